#include "app/linux/editor/EditorView.h"
#include <QApplication>
#include <QClipboard>
#include <QContextMenuEvent>
#include <QDrag>
#include <QFileInfo>
#include <QMenu>
#include <QMimeData>
#include <QTextBoundaryFinder>
#include <QWheelEvent>
#include <algorithm>

// What the mouse does in the editor: selecting by characters, words and lines, scrolling, dragging and dropping.
namespace {
constexpr int AutoScrollMilliseconds = 50;
constexpr std::size_t LargestOffer = 10 << 20;  // Bytes of a selection that other programs are offered.
constexpr double WheelStep = 120;               // Of the wheel's angle, for one notch.

// The path of the one file that is dragged; "" when it is none or several.
std::string DraggedFile(const QMimeData& data)
{
    const QList<QUrl> urls = data.urls();
    if (urls.size() != 1 || !urls.first().isLocalFile() || !QFileInfo(urls.first().toLocalFile()).isFile())
        return "";
    return urls.first().toLocalFile().toStdString();
}

bool CanDrop(const QMimeData& data) { return !DraggedFile(data).empty() || (data.hasText() && !data.hasUrls()); }
}

std::pair<std::size_t, std::size_t> CEditorView::WordAround(std::size_t position)
{
    const CBlockLayout& layout = LayoutOf(m_text.Buffer().BlockAt(position));
    const int index = layout.IndexOf(position);
    QTextBoundaryFinder finder(QTextBoundaryFinder::Word, layout.Text());
    finder.setPosition(index);
    const qsizetype begin = finder.isAtBoundary() && index < layout.Text().size() ? index : finder.toPreviousBoundary();
    finder.setPosition(begin);
    const qsizetype end = finder.toNextBoundary();
    return {layout.PositionOf(static_cast<int>(std::max<qsizetype>(begin, 0))),
            layout.PositionOf(static_cast<int>(end < 0 ? layout.Text().size() : end))};
}

std::pair<std::size_t, std::size_t> CEditorView::UnitAround(std::size_t position)
{
    const CTextBuffer& buffer = m_text.Buffer();
    if (m_unit == Unit::Word)
        return WordAround(position);
    if (m_unit == Unit::Character)
        return {position, position};
    std::size_t first = buffer.BlockAt(position);
    std::size_t last = first;
    while (first > 0 && !buffer.EndsLine(first - 1))
        --first;
    while (!buffer.EndsLine(last) && last + 1 < buffer.BlockCount())
        ++last;
    return {buffer.BlockBegin(first), buffer.BlockBehind(last)};
}

void CEditorView::SelectTo(std::size_t position)
{
    const auto [begin, end] = UnitAround(position);
    if (begin < m_pressed.first)
        m_text.Select(m_pressed.second, begin);
    else
        m_text.Select(m_pressed.first, std::max(end, m_pressed.second));
    CaretMoved();
}

void CEditorView::mousePressEvent(QMouseEvent* event)
{
    m_preedit = {};
    const std::size_t position = PositionAt(event->position().toPoint());
    m_pressPoint = event->position().toPoint();
    if (event->button() == Qt::MiddleButton && QGuiApplication::clipboard()->supportsSelection()) {
        Move(position, /*select*/ false);
        PasteFrom(/*selectionOfMouse*/ true);
    }
    if (event->button() != Qt::LeftButton)
        return;
    const bool third = m_sinceDoubleClick.isValid() && m_sinceDoubleClick.elapsed() < QApplication::doubleClickInterval();
    m_sinceDoubleClick.invalidate();
    m_unit = third ? Unit::Line : Unit::Character;
    m_mayDrag = !third && m_text.HasSelection() && position >= m_text.SelectionBegin() && position < m_text.SelectionEnd() &&
                !event->modifiers().testFlag(Qt::ShiftModifier);
    m_selecting = !m_mayDrag;
    if (m_mayDrag)
        return;
    if (event->modifiers().testFlag(Qt::ShiftModifier)) {
        const std::size_t anchor =
            m_text.Caret() == m_text.SelectionBegin() ? m_text.SelectionEnd() : m_text.SelectionBegin();
        m_pressed = {anchor, anchor};
    } else {
        m_pressed = UnitAround(position);
    }
    SelectTo(position);
}

void CEditorView::mouseDoubleClickEvent(QMouseEvent* event)
{
    if (event->button() != Qt::LeftButton)
        return;
    const std::size_t position = CharacterAt(event->position().toPoint());
    m_sinceDoubleClick.start();
    m_unit = Unit::Word;
    m_pressed = UnitAround(position);
    m_selecting = true;
    m_mayDrag = false;
    SelectTo(position);
}

void CEditorView::mouseMoveEvent(QMouseEvent* event)
{
    if (!event->buttons().testFlag(Qt::LeftButton))
        return;
    m_scrollPoint = event->position().toPoint();
    if (m_mayDrag && (m_scrollPoint - m_pressPoint).manhattanLength() >= QApplication::startDragDistance())
        return DragSelection();
    if (!m_selecting)
        return;
    if (viewport()->rect().contains(m_scrollPoint))
        m_autoScroll.stop();
    else if (!m_autoScroll.isActive())
        m_autoScroll.start(AutoScrollMilliseconds, this);
    SelectTo(m_unit == Unit::Word ? CharacterAt(m_scrollPoint) : PositionAt(m_scrollPoint));
}

void CEditorView::mouseReleaseEvent(QMouseEvent* event)
{
    if (event->button() != Qt::LeftButton)
        return;
    m_autoScroll.stop();
    if (m_mayDrag)
        Move(PositionAt(event->position().toPoint()), /*select*/ false);
    else if (m_selecting)
        OfferSelection();
    m_mayDrag = m_selecting = false;
}

void CEditorView::timerEvent(QTimerEvent* event)
{
    if (event->timerId() == m_blink.timerId()) {
        m_caretShown = !m_caretShown;
        viewport()->update(CaretRectangle(m_text.Caret()).adjusted(-2, 0, 2, 0));
    }
    if (event->timerId() == m_autoScroll.timerId()) {
        const int beyond = m_scrollPoint.y() < 0 ? m_scrollPoint.y() : m_scrollPoint.y() - viewport()->height();
        ScrollRows(beyond / RowHeight() + (beyond < 0 ? -1 : 1));
        SelectTo(PositionAt({m_scrollPoint.x(), std::clamp(m_scrollPoint.y(), 0, viewport()->height() - 1)}));
    }
}

// The selection that other programs paste with the middle button.
void CEditorView::OfferSelection()
{
    QClipboard* clipboard = QGuiApplication::clipboard();
    const std::size_t bytes = m_text.SelectionEnd() - m_text.SelectionBegin();
    if (clipboard->supportsSelection() && bytes > 0 && bytes <= LargestOffer)
        clipboard->setText(QString::fromStdString(m_text.SelectedText()).replace("\r\n", "\n"), QClipboard::Selection);
}

void CEditorView::DragSelection()
{
    m_mayDrag = false;
    auto* dragged = new QMimeData;
    dragged->setText(QString::fromStdString(m_text.SelectedText()).replace("\r\n", "\n"));
    auto* drag = new QDrag(this);  // Deletes itself and the data.
    drag->setMimeData(dragged);
    if (drag->exec(Qt::CopyAction | Qt::MoveAction, Qt::MoveAction) == Qt::MoveAction && drag->target() != viewport())
        Delete();
}

void CEditorView::wheelEvent(QWheelEvent* event)
{
    const double angle = event->angleDelta().y();
    const double rows = event->pixelDelta().isNull() ? angle / WheelStep * QApplication::wheelScrollLines()
                                                     : static_cast<double>(event->pixelDelta().y()) / RowHeight();
    m_wheelRest = (m_wheelRest * rows < 0 ? 0 : m_wheelRest) + rows;
    const int whole = static_cast<int>(m_wheelRest);
    m_wheelRest -= whole;
    ScrollRows(-whole);
    event->accept();
}

void CEditorView::contextMenuEvent(QContextMenuEvent* event)
{
    const bool byMouse = event->reason() == QContextMenuEvent::Mouse;
    const QPoint place = byMouse ? event->pos() : CaretRectangle(m_text.Caret()).bottomLeft();
    if (byMouse && !m_text.HasSelection())
        Move(PositionAt(place), /*select*/ false);
    ContextMenu()->exec(viewport()->mapToGlobal(place));
}

void CEditorView::dragEnterEvent(QDragEnterEvent* event)
{
    if (CanDrop(*event->mimeData()))
        event->acceptProposedAction();
}

void CEditorView::dragMoveEvent(QDragMoveEvent* event)
{
    if (!CanDrop(*event->mimeData()))
        return event->ignore();
    ShowDropPlace(event->position().toPoint());
    event->acceptProposedAction();
}

void CEditorView::ShowDropPlace(QPoint point)
{
    m_dropPlace = PositionAt(point);
    viewport()->update();
}

void CEditorView::dragLeaveEvent(QDragLeaveEvent*)
{
    m_dropPlace.reset();
    viewport()->update();
}

void CEditorView::dropEvent(QDropEvent* event)
{
    m_dropPlace.reset();
    if (const std::string file = DraggedFile(*event->mimeData()); !file.empty()) {
        event->setDropAction(Qt::CopyAction);
        event->accept();
        if (onFileDropped)
            onFileDropped(file);
        return;
    }
    const std::string text = event->mimeData()->text().toStdString();
    std::size_t place = PositionAt(event->position().toPoint());
    const bool own = event->source() == this && event->dropAction() == Qt::MoveAction && m_text.HasSelection();
    event->acceptProposedAction();
    if (own && place >= m_text.SelectionBegin() && place <= m_text.SelectionEnd())
        return;
    if (own) {
        const std::size_t length = m_text.SelectionEnd() - m_text.SelectionBegin();
        const bool behind = place >= m_text.SelectionEnd();
        Delete();
        place -= behind ? length : 0;
    }
    ReplaceRange(place, place, text);
    Select(place, m_text.Caret());
    setFocus();
}
