#include "ui/controls/Controls.h"
#include "base/text/Text.h"
#include "platform/Failure.h"
#include <algorithm>

namespace ui {

const std::string& CTextBox::Text() const
{
    if (!m_fetched) {
        m_text = m_keeper.text();
        m_fetched = true;
    }
    return m_text;
}

void CTextBox::SetText(std::string text)
{
    m_selection = {};
    if (Text() == text) {
        if (m_keeper.select)
            m_keeper.select({});
        return;
    }
    if (m_keeper.put) {
        Forget();
        m_keeper.put(std::move(text));
    } else {
        m_text = std::move(text);
    }
    Changed();
    Raise(onChange);
}

std::string CTextBox::SelectedText() const
{
    if (m_keeper.selectedText)
        return m_keeper.selectedText();
    return std::string(
        text::Mid(Text(), static_cast<std::size_t>(m_selection.start) + 1, static_cast<std::size_t>(m_selection.length)));
}

void CTextBox::Select(std::int32_t start, std::int32_t length)
{
    m_selection = {start, length};
    if (m_keeper.select)
        m_keeper.select(m_selection);
    Changed();
}

void CTextBox::SetKeeper(Keeper keeper)
{
    const TextSelection selection = Selection();
    std::string text = Text();
    m_keeper = std::move(keeper);
    m_selection = selection;
    if (!m_keeper.put)
        return;
    Forget();
    m_keeper.put(std::move(text));
    m_keeper.select(selection);
}

void CTextBox::Edited()
{
    Forget();
    TellForm();
    Raise(onChange);
}

// Gives the memory back, too.
void CTextBox::Forget()
{
    std::string().swap(m_text);
    m_fetched = false;
}

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

void CTextBox::SelectAll() { Select(0, static_cast<std::int32_t>(text::Length(Text()))); }

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
