#pragma once
#include "app/linux/editor/TextBuffer.h"
#include <deque>
#include <functional>
#include <string>

// A text, its caret and selection, and the changes that can be undone. Positions are bytes and lie between characters.
class CEditedText {
public:
    // Called after each change of the text, with the place that changed.
    std::function<void(std::size_t begin, std::size_t removed, std::size_t inserted)> onEdited;

    const CTextBuffer& Buffer() const { return m_buffer; }
    // A new text: caret at the start, nothing to undo. Calls nothing.
    void SetText(std::string_view text);

    std::size_t Caret() const { return m_caret; }
    std::size_t SelectionBegin() const { return std::min(m_anchor, m_caret); }
    std::size_t SelectionEnd() const { return std::max(m_anchor, m_caret); }
    bool HasSelection() const { return m_anchor != m_caret; }
    std::string SelectedText() const { return m_buffer.Text(SelectionBegin(), SelectionEnd()); }
    // Moves the caret; the selection goes on from where it began, or ends.
    void MoveTo(std::size_t position, bool select);
    void Select(std::size_t anchor, std::size_t caret);

    // Every line end of what comes in becomes "\r\n".
    enum class Kind { Typing, Deleting, Whole };
    void InsertAtSelection(std::string_view text, Kind kind);
    void Erase(std::size_t begin, std::size_t end, Kind kind);
    bool CanUndo() const { return m_done > 0; }
    bool CanRedo() const { return m_done < m_changes.size(); }
    void Undo();
    void Redo();

private:
    struct Change {
        std::size_t position;
        std::string removed;
        std::string inserted;
        Kind kind;
        std::size_t anchor;  // Before the change.
        std::size_t caret;
        std::size_t Bytes() const { return removed.size() + inserted.size(); }
    };
    void Do(Change change);
    bool Joins(const Change& change);
    void Remember(Change change);
    void Apply(std::size_t position, std::size_t removed, const std::string& inserted);
    CTextBuffer m_buffer;
    std::size_t m_anchor = 0;
    std::size_t m_caret = 0;
    std::deque<Change> m_changes;
    std::size_t m_done = 0;  // Changes that are done; the others were undone.
    std::size_t m_bytes = 0;
    bool m_mayJoin = false;  // The caret has not been moved since the last change.
};
