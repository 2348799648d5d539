#include "app/linux/editor/EditorView.h"
#include <QClipboard>
#include <QGuiApplication>
#include <QInputMethodEvent>
#include <QKeyEvent>
#include <QMenu>
#include <QMimeData>

// What the keyboard, the clipboard and input methods do in the editor.
namespace {
constexpr std::size_t SurroundingBytes = 2000;

std::string Normal(QString text) { return text.toStdString(); }

QString ForClipboard(const std::string& text) { return QString::fromStdString(text).replace("\r\n", "\n"); }

const QKeySequence::StandardKey Shortcuts[] = {QKeySequence::Undo,     QKeySequence::Redo,  QKeySequence::Cut,
                                               QKeySequence::Copy,     QKeySequence::Paste, QKeySequence::Delete,
                                               QKeySequence::SelectAll};
}

void CEditorView::Move(std::size_t position, bool select)
{
    m_text.MoveTo(position, select);
    CaretMoved();
}

std::size_t CEditorView::Next(std::size_t position, QTextLayout::CursorMode over)
{
    const CTextBuffer& buffer = m_text.Buffer();
    const std::size_t block = buffer.BlockAt(position);
    if (position >= buffer.BlockEnd(block))
        return buffer.BlockBehind(block);
    const CBlockLayout& layout = LayoutOf(block);
    return layout.PositionOf(layout.Layout().nextCursorPosition(layout.IndexOf(position), over));
}

std::size_t CEditorView::Previous(std::size_t position, QTextLayout::CursorMode over)
{
    const CTextBuffer& buffer = m_text.Buffer();
    std::size_t block = buffer.BlockAt(position);
    if (position == buffer.BlockBegin(block)) {
        if (block == 0)
            return 0;
        if (buffer.EndsLine(--block))
            return buffer.BlockEnd(block);
        position = buffer.BlockEnd(block);
    }
    const CBlockLayout& layout = LayoutOf(block);
    return layout.PositionOf(layout.Layout().previousCursorPosition(layout.IndexOf(position), over));
}

// Up and down the caret keeps its distance from the left edge, also over shorter rows.
void CEditorView::MoveRows(int rows, bool select)
{
    const std::size_t caret = m_text.Caret();
    const Row from = RowOf(caret);
    const Row to = Moved(from, rows);
    const CBlockLayout& here = LayoutOf(from.block);
    const double x = m_wantedX.value_or(here.XOf(here.IndexOf(caret)));
    if (to != from)
        Move(LayoutOf(to.block).PositionAt(to.row, x), select);
    else
        Move(rows < 0 ? 0 : m_text.Buffer().Size(), select);
    m_wantedX = x;
}

bool CEditorView::MoveByKey(QKeyEvent& event)
{
    const auto is = [&](QKeySequence::StandardKey plain, QKeySequence::StandardKey selecting, bool& select) {
        select = event.matches(selecting);
        return select || event.matches(plain);
    };
    const std::size_t caret = m_text.Caret();
    bool select = false;
    if (is(QKeySequence::MoveToNextChar, QKeySequence::SelectNextChar, select))
        Move(!select && m_text.HasSelection() ? m_text.SelectionEnd() : NextCharacter(caret), select);
    else if (is(QKeySequence::MoveToPreviousChar, QKeySequence::SelectPreviousChar, select))
        Move(!select && m_text.HasSelection() ? m_text.SelectionBegin() : PreviousCharacter(caret), select);
    else if (is(QKeySequence::MoveToNextWord, QKeySequence::SelectNextWord, select))
        Move(NextWord(caret), select);
    else if (is(QKeySequence::MoveToPreviousWord, QKeySequence::SelectPreviousWord, select))
        Move(PreviousWord(caret), select);
    else if (is(QKeySequence::MoveToNextLine, QKeySequence::SelectNextLine, select))
        MoveRows(1, select);
    else if (is(QKeySequence::MoveToPreviousLine, QKeySequence::SelectPreviousLine, select))
        MoveRows(-1, select);
    else if (is(QKeySequence::MoveToNextPage, QKeySequence::SelectNextPage, select))
        ScrollRows(PageRows()), MoveRows(PageRows(), select);
    else if (is(QKeySequence::MoveToPreviousPage, QKeySequence::SelectPreviousPage, select))
        ScrollRows(-PageRows()), MoveRows(-PageRows(), select);
    else if (is(QKeySequence::MoveToStartOfLine, QKeySequence::SelectStartOfLine, select))
        Move(RowAround(caret).first, select);
    else if (is(QKeySequence::MoveToEndOfLine, QKeySequence::SelectEndOfLine, select))
        Move(RowAround(caret).second, select);
    else if (is(QKeySequence::MoveToStartOfDocument, QKeySequence::SelectStartOfDocument, select))
        Move(0, select);
    else if (is(QKeySequence::MoveToEndOfDocument, QKeySequence::SelectEndOfDocument, select))
        Move(m_text.Buffer().Size(), select);
    else
        return false;
    return true;
}

void CEditorView::EraseTo(std::size_t position, bool wordwise)
{
    const std::size_t caret = m_text.Caret();
    if (m_text.HasSelection())
        m_text.InsertAtSelection("", CEditedText::Kind::Whole);
    else
        m_text.Erase(std::min(caret, position), std::max(caret, position),
                     wordwise ? CEditedText::Kind::Whole : CEditedText::Kind::Deleting);
    CaretMoved();
}

bool CEditorView::EditByKey(QKeyEvent& event)
{
    const std::size_t caret = m_text.Caret();
    if (event.matches(QKeySequence::Undo))
        Undo();
    else if (event.matches(QKeySequence::Redo))
        Redo();
    else if (event.matches(QKeySequence::Cut))
        Cut();
    else if (event.matches(QKeySequence::Copy))
        Copy();
    else if (event.matches(QKeySequence::Paste))
        Paste();
    else if (event.matches(QKeySequence::SelectAll))
        SelectAll();
    else if (event.matches(QKeySequence::Delete))
        EraseTo(NextCharacter(caret), false);
    else if (event.key() == Qt::Key_Backspace && (event.modifiers() & ~Qt::ShiftModifier) == Qt::NoModifier)
        EraseTo(PreviousCharacter(caret), false);
    else if (event.matches(QKeySequence::DeleteStartOfWord))
        EraseTo(PreviousWord(caret), true);
    else if (event.matches(QKeySequence::DeleteEndOfWord))
        EraseTo(NextWord(caret), true);
    else
        return false;
    return true;
}

// Tab leaves the editor, as in every dialog; with Ctrl it is typed.
bool CEditorView::TypeByKey(QKeyEvent& event)
{
    const bool control = event.modifiers().testFlag(Qt::ControlModifier);
    const bool alternate = event.modifiers().testFlag(Qt::AltModifier);
    if (event.key() == Qt::Key_Tab && control)
        Insert("\t");
    else if (event.key() == Qt::Key_Return || event.key() == Qt::Key_Enter)
        Insert("\r\n");
    else if (const QString text = event.text(); !text.isEmpty() && text.at(0).isPrint() && control == alternate)
        Insert(Normal(text));  // Both together are the third level of some keyboards.
    else
        return false;
    return true;
}

void CEditorView::keyPressEvent(QKeyEvent* event)
{
    event->setAccepted(MoveByKey(*event) || EditByKey(*event) || TypeByKey(*event));
}

bool CEditorView::focusNextPrevChild(bool next) { return QAbstractScrollArea::focusNextPrevChild(next); }

// The editor's own keys come before shortcuts of the window.
bool CEditorView::event(QEvent* event)
{
    if (event->type() == QEvent::ShortcutOverride) {
        auto* key = static_cast<QKeyEvent*>(event);
        const bool own =
            std::any_of(std::begin(Shortcuts), std::end(Shortcuts), [&](auto each) { return key->matches(each); });
        if (own || (key->key() == Qt::Key_Tab && key->modifiers() == Qt::ControlModifier))
            event->accept();
    }
    if (event->type() == QEvent::KeyPress) {
        auto* key = static_cast<QKeyEvent*>(event);
        if (key->key() == Qt::Key_Tab && key->modifiers() == Qt::ControlModifier && TypeByKey(*key))
            return true;
    }
    return QAbstractScrollArea::event(event);
}

void CEditorView::Insert(std::string_view text)
{
    m_text.InsertAtSelection(text, CEditedText::Kind::Typing);
    CaretMoved();
}

void CEditorView::ReplaceRange(std::size_t begin, std::size_t end, std::string_view text)
{
    m_text.Select(begin, end);
    m_text.InsertAtSelection(text, CEditedText::Kind::Whole);
    CaretMoved();
}

void CEditorView::Undo()
{
    m_text.Undo();
    CaretMoved();
}

void CEditorView::Redo()
{
    m_text.Redo();
    CaretMoved();
}

void CEditorView::Cut()
{
    Copy();
    Delete();
}

void CEditorView::Copy()
{
    if (m_text.HasSelection())
        QGuiApplication::clipboard()->setText(ForClipboard(m_text.SelectedText()));
}

void CEditorView::Paste() { PasteFrom(/*selectionOfMouse*/ false); }

void CEditorView::PasteFrom(bool selectionOfMouse)
{
    const auto mode = selectionOfMouse ? QClipboard::Selection : QClipboard::Clipboard;
    m_text.InsertAtSelection(Normal(QGuiApplication::clipboard()->text(mode)), CEditedText::Kind::Whole);
    CaretMoved();
}

void CEditorView::Delete()
{
    if (m_text.HasSelection())
        m_text.InsertAtSelection("", CEditedText::Kind::Whole);
    CaretMoved();
}

// What the user sees stays where it is.
void CEditorView::SelectAll()
{
    const Row top = m_top;
    Select(0, m_text.Buffer().Size());
    SetTop(top);
}

std::unique_ptr<QMenu> CEditorView::ContextMenu()
{
    auto menu = std::make_unique<QMenu>();
    const auto add = [&](const char* text, QKeySequence::StandardKey key, bool enabled, void (CEditorView::*command)()) {
        QAction* action = menu->addAction(text, [this, command] { (this->*command)(); });
        action->setShortcut(key);
        action->setShortcutContext(Qt::WidgetShortcut);
        action->setEnabled(enabled);
    };
    add("&Undo", QKeySequence::Undo, m_text.CanUndo(), &CEditorView::Undo);
    add("&Redo", QKeySequence::Redo, m_text.CanRedo(), &CEditorView::Redo);
    menu->addSeparator();
    add("Cu&t", QKeySequence::Cut, m_text.HasSelection(), &CEditorView::Cut);
    add("&Copy", QKeySequence::Copy, m_text.HasSelection(), &CEditorView::Copy);
    const QMimeData* offered = QGuiApplication::clipboard()->mimeData();
    add("&Paste", QKeySequence::Paste, offered != nullptr && offered->hasText(), &CEditorView::Paste);
    add("&Delete", QKeySequence::Delete, m_text.HasSelection(), &CEditorView::Delete);
    menu->addSeparator();
    add("Select &All", QKeySequence::SelectAll, m_text.Buffer().Size() > 0, &CEditorView::SelectAll);
    return menu;
}

void CEditorView::inputMethodEvent(QInputMethodEvent* event)
{
    m_preedit = {};
    if (!event->commitString().isEmpty() || event->replacementLength() > 0) {
        std::size_t begin = m_text.SelectionBegin();
        for (int back = event->replacementStart(); back < 0; ++back)
            begin = PreviousCharacter(begin);
        std::size_t end = event->replacementLength() > 0 ? begin : m_text.SelectionEnd();
        for (int on = 0; on < event->replacementLength(); ++on)
            end = NextCharacter(end);
        if (event->replacementLength() > 0)
            m_text.Select(begin, end);
        Insert(Normal(event->commitString()));
    }
    m_preedit.position = m_text.Caret();
    m_preedit.text = event->preeditString();
    m_preedit.cursor = static_cast<int>(m_preedit.text.size());
    for (const QInputMethodEvent::Attribute& attribute : event->attributes()) {
        if (attribute.type == QInputMethodEvent::Cursor)
            m_preedit.cursor = attribute.start;
        const QTextFormat format = attribute.value.value<QTextFormat>();
        if (attribute.type == QInputMethodEvent::TextFormat && format.isCharFormat())
            m_preedit.formats.append({attribute.start, attribute.length, format.toCharFormat()});
    }
    const CBlockLayout& layout = (ForgetLayouts(), LayoutOf(m_text.Buffer().BlockAt(m_text.Caret())));
    for (QTextLayout::FormatRange& range : m_preedit.formats)
        range.start += layout.IndexOf(m_preedit.position);
    ForgetLayouts();
    ShowCaret();
    RestartBlinking();
    event->accept();
}

QVariant CEditorView::inputMethodQuery(Qt::InputMethodQuery query) const
{
    auto& self = const_cast<CEditorView&>(*this);  // Laying out changes nothing that is seen.
    const CTextBuffer& buffer = m_text.Buffer();
    const std::size_t begin = std::max(buffer.BlockBegin(buffer.BlockAt(m_text.Caret())),
                                       m_text.Caret() - std::min(m_text.Caret(), SurroundingBytes));
    switch (query) {
    case Qt::ImEnabled:
        return isEnabled();
    case Qt::ImCursorRectangle:
        return self.CaretRectangle(m_text.Caret()).translated(viewport()->pos());
    case Qt::ImFont:
        return font();
    case Qt::ImSurroundingText:
        return QString::fromStdString(buffer.Text(
            begin, std::min(m_text.Caret() + SurroundingBytes, buffer.BlockEnd(buffer.BlockAt(m_text.Caret())))));
    case Qt::ImCursorPosition:
    case Qt::ImAnchorPosition:
        return static_cast<int>(QString::fromStdString(buffer.Text(begin, m_text.Caret())).size());
    case Qt::ImCurrentSelection:
        return QString::fromStdString(buffer.Text(
            m_text.SelectionBegin(), std::min(m_text.SelectionEnd(), m_text.SelectionBegin() + SurroundingBytes)));
    default:
        return QAbstractScrollArea::inputMethodQuery(query);
    }
}
