#include "base/text/Case.h"
#include "common/bGlobal.h"
#include "common/zbErrorTrap.h"

namespace {

constexpr char Module[] = "bGlobal";

platform::CFailure SubscriptOutOfRange() { return {9, "Subscript out of range"}; }

// Sorts texts by keys; both move together.
class CSorter {
public:
    CSorter(std::vector<std::string>& texts, std::vector<std::string>& keys) : m_texts(texts), m_keys(keys) {}

    // The smaller half goes first and the larger one stays in the loop, so that no order of texts exhausts the stack.
    void Sort(std::int32_t low, std::int32_t high)
    {
        while (low < high) {
            const Halves halves = Partition(low, high);
            if (halves.leftHigh - low < high - halves.rightLow) {
                Sort(low, halves.leftHigh);
                low = halves.rightLow;
            } else {
                Sort(halves.rightLow, high);
                high = halves.leftHigh;
            }
        }
    }

private:
    struct Halves {
        std::int32_t leftHigh;
        std::int32_t rightLow;
    };

    Halves Partition(std::int32_t low, std::int32_t high)
    {
        const std::string pivot = Key(low + (high - low) / 2);
        std::int32_t left = low;
        std::int32_t right = high;
        while (left <= right) {
            while (Key(left) < pivot)
                ++left;
            while (Key(right) > pivot)
                --right;
            if (left <= right)
                Swap(left++, right--);
        }
        return {right, left};
    }

    std::string& Key(std::int32_t index) { return m_keys[static_cast<std::size_t>(index)]; }
    void Swap(std::int32_t one, std::int32_t other)
    {
        Key(one).swap(Key(other));
        if (&m_keys != &m_texts)
            m_texts[static_cast<std::size_t>(one)].swap(m_texts[static_cast<std::size_t>(other)]);
    }

    std::vector<std::string>& m_texts;
    std::vector<std::string>& m_keys;
};

std::vector<std::string> UpperCased(const std::vector<std::string>& texts)
{
    std::vector<std::string> keys;
    keys.reserve(texts.size());
    for (const std::string& text : texts)
        keys.push_back(text::Upper(text));
    return keys;
}

void SortRange(std::vector<std::string>& texts, bool caseSensitive, std::int32_t low, std::int32_t high)
{
    if (low >= high)
        return;
    if (low < 0 || static_cast<std::size_t>(high) >= texts.size())
        throw SubscriptOutOfRange();
    std::vector<std::string> keys = caseSensitive ? std::vector<std::string>() : UpperCased(texts);
    CSorter(texts, caseSensitive ? texts : keys).Sort(low, high);
}

}

void bGlobal::QuickSort(std::vector<std::string>& texts, bool caseSensitive, std::optional<std::int32_t> low,
                        std::optional<std::int32_t> high)
{
    const zbErrorTrap::CGuard guard(Module, "QuickSort");
    const std::int32_t last = static_cast<std::int32_t>(texts.size()) - 1;
    guard([&] { SortRange(texts, caseSensitive, low.value_or(0), high.value_or(last)); });
}
