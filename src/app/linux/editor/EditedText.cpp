#include "app/linux/editor/EditedText.h"
#include "platform/text/Encoding.h"

namespace {
constexpr std::size_t BytesRemembered = 256 << 20;
}

void CEditedText::SetText(std::string_view text)
{
    m_changes.clear();
    m_anchor = m_caret = m_done = m_bytes = 0;
    m_buffer.SetText(text);
}

void CEditedText::MoveTo(std::size_t position, bool select) { Select(select ? m_anchor : position, position); }

void CEditedText::Select(std::size_t anchor, std::size_t caret)
{
    m_anchor = std::min(anchor, m_buffer.Size());
    m_caret = std::min(caret, m_buffer.Size());
    m_mayJoin = false;
}

void CEditedText::InsertAtSelection(std::string_view text, Kind kind)
{
    if (!text.empty() || HasSelection())
        Do({SelectionBegin(), SelectedText(), platform::text::WithCrLf(std::string(text)), kind, m_anchor, m_caret});
}

void CEditedText::Erase(std::size_t begin, std::size_t end, Kind kind)
{
    if (begin < end)
        Do({begin, m_buffer.Text(begin, end), "", kind, m_anchor, m_caret});
}

void CEditedText::Do(Change change)
{
    const std::size_t removed = change.removed.size();
    const std::size_t position = change.position;
    const std::string inserted = change.inserted;
    if (!Joins(change))
        Remember(std::move(change));
    Apply(position, removed, inserted);
    m_mayJoin = true;
}

// What is typed or deleted in one go is undone in one go; a line break begins a new one.
bool CEditedText::Joins(const Change& change)
{
    if (!m_mayJoin || m_done == 0 || CanRedo() || m_changes.back().kind != change.kind)
        return false;
    Change& last = m_changes.back();
    const bool typedOn = change.kind == Kind::Typing && change.removed.empty() && change.inserted != "\r\n" &&
                         last.position + last.inserted.size() == change.position && !last.inserted.ends_with('\n');
    const bool deletedOn = change.kind == Kind::Deleting && change.position == last.position;
    const bool deletedBack = change.kind == Kind::Deleting && change.position + change.removed.size() == last.position;
    if (typedOn)
        last.inserted += change.inserted;
    else if (deletedOn)
        last.removed += change.removed;
    else if (deletedBack)
        last.removed.insert(0, change.removed);
    if (deletedBack && !deletedOn)
        last.position = change.position;
    m_bytes += typedOn || deletedOn || deletedBack ? change.Bytes() : 0;
    return typedOn || deletedOn || deletedBack;
}

void CEditedText::Remember(Change change)
{
    for (; CanRedo(); m_changes.pop_back())
        m_bytes -= m_changes.back().Bytes();
    m_bytes += change.Bytes();
    m_changes.push_back(std::move(change));
    for (; m_bytes > BytesRemembered && m_changes.size() > 1; m_changes.pop_front())
        m_bytes -= m_changes.front().Bytes();
    m_done = m_changes.size();
}

void CEditedText::Apply(std::size_t position, std::size_t removed, const std::string& inserted)
{
    m_buffer.Replace(position, position + removed, inserted);
    m_anchor = m_caret = position + inserted.size();
    if (onEdited)
        onEdited(position, removed, inserted.size());
}

void CEditedText::Undo()
{
    if (!CanUndo())
        return;
    const Change& change = m_changes[--m_done];
    Apply(change.position, change.inserted.size(), change.removed);
    Select(change.anchor, change.caret);
}

void CEditedText::Redo()
{
    if (!CanRedo())
        return;
    const Change& change = m_changes[m_done++];
    Apply(change.position, change.removed.size(), change.inserted);
    m_mayJoin = false;
}
