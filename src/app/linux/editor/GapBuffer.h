#pragma once
#include <algorithm>
#include <cstddef>
#include <span>
#include <vector>

// A row of elements with a gap where the last change was made, so that changes near each other move little.
template <class T> class CGapBuffer {
public:
    std::size_t Size() const { return m_elements.size() - GapSize(); }
    std::size_t Gap() const { return m_gapBegin; }
    const T& operator[](std::size_t index) const { return m_elements[index < m_gapBegin ? index : index + GapSize()]; }
    // What lies before and behind the gap.
    std::span<const T> Before() const { return std::span<const T>(m_elements).first(m_gapBegin); }
    std::span<const T> Behind() const { return std::span<const T>(m_elements).subspan(m_gapEnd); }

    void Clear()
    {
        std::vector<T>().swap(m_elements);
        m_gapBegin = m_gapEnd = 0;
    }
    // Brings the gap to `index`; every element that changes its side is changed by `cross`.
    template <class Cross> void MoveGap(std::size_t index, Cross cross)
    {
        while (m_gapBegin > index)
            m_elements[--m_gapEnd] = cross(m_elements[--m_gapBegin]);
        while (m_gapBegin < index)
            m_elements[m_gapBegin++] = cross(m_elements[m_gapEnd++]);
    }
    // The same for elements that mean the same on both sides.
    void MoveGap(std::size_t index)
    {
        const auto begin = m_elements.begin();
        const auto at = [&](std::size_t place) { return begin + static_cast<std::ptrdiff_t>(place); };
        if (index < m_gapBegin)
            std::move_backward(at(index), at(m_gapBegin), at(m_gapEnd));
        else
            std::move(at(m_gapEnd), at(index + GapSize()), at(m_gapBegin));
        m_gapEnd = index + GapSize();
        m_gapBegin = index;
    }
    void EraseBehindGap(std::size_t count) { m_gapEnd += count; }
    void InsertAtGap(std::span<const T> elements)
    {
        Reserve(elements.size());
        std::copy(elements.begin(), elements.end(), m_elements.begin() + static_cast<std::ptrdiff_t>(m_gapBegin));
        m_gapBegin += elements.size();
    }
    // A gap of at least so many elements.
    void Reserve(std::size_t count)
    {
        if (GapSize() >= count)
            return;
        const std::size_t behind = m_elements.size() - m_gapEnd;
        std::vector<T> larger(Size() + count + std::max<std::size_t>(Size() / 16, 64));
        std::copy_n(m_elements.begin(), m_gapBegin, larger.begin());
        std::copy(m_elements.end() - static_cast<std::ptrdiff_t>(behind), m_elements.end(),
                  larger.end() - static_cast<std::ptrdiff_t>(behind));
        m_elements.swap(larger);
        m_gapEnd = m_elements.size() - behind;
    }

private:
    std::size_t GapSize() const { return m_gapEnd - m_gapBegin; }
    std::vector<T> m_elements;
    std::size_t m_gapBegin = 0;
    std::size_t m_gapEnd = 0;
};
