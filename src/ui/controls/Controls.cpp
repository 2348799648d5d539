#include "ui/controls/Controls.h"
#include "platform/Failure.h"
#include <algorithm>

namespace ui {

void CListControl::SetIndex(std::int32_t index)
{
    if (index < -1 || index >= Count())
        throw platform::failure::InvalidPropertyValue();
    m_index = index;
    IndexChanged();
    Changed();
    if (index >= 0)
        Raise(onClick);
}

void CListControl::Select(std::string_view text)
{
    const std::int32_t index = Find(text);
    if (index < 0)
        throw platform::failure::InvalidPropertyValue();
    SetIndex(index);
}

std::int32_t CListControl::Find(std::string_view text) const
{
    const auto found = std::find_if(m_items.begin(), m_items.end(), [&](const Entry& entry) { return entry.text == text; });
    return found == m_items.end() ? -1 : static_cast<std::int32_t>(found - m_items.begin());
}

void CComboBox::SetText(std::string text)
{
    m_index = Find(text);
    if (m_text == text)
        return;
    m_text = std::move(text);
    Changed();
    Raise(onChange);
}

void CSlider::SetValue(std::int32_t value)
{
    const std::int32_t clamped = std::clamp(value, m_minimum, m_maximum);
    if (clamped == m_value)
        return;
    m_value = clamped;
    Changed();
    Raise(onChange);
}

void CTabStrip::Select(std::int32_t tab)
{
    if (tab < 0 || tab >= static_cast<std::int32_t>(m_tabs.size()))
        throw platform::failure::InvalidPropertyValue();
    m_selected = tab;
    Changed();
    Raise(onClick);
}

}
