#include "app/linux/editor/EditorView.h"
#include "app/linux/editor/EditorAccess.h"
#include <QGuiApplication>
#include <QPainter>
#include <QScopedValueRollback>
#include <QScrollBar>
#include <QStyleHints>

namespace {
constexpr int Margin = 4;  // Pixels.
constexpr int CaretWidth = 1;
constexpr std::size_t LayoutsKept = 500;
constexpr int LeastTextWidth = 20;

// Steps of the scroll bar for a block; fewer where the bar's numbers would not suffice.
int StepsPerBlock(std::size_t blocks) { return blocks < 4'000'000 ? 256 : 8; }
}

CEditorView::CEditorView(QWidget* parent) : QAbstractScrollArea(parent)
{
    InstallEditorAccess();
    setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    setVerticalScrollBarPolicy(Qt::ScrollBarAlwaysOn);
    setFocusPolicy(Qt::StrongFocus);
    setAttribute(Qt::WA_InputMethodEnabled);
    setAcceptDrops(true);
    viewport()->setCursor(Qt::IBeamCursor);
    m_text.onEdited = [this](std::size_t begin, std::size_t removed, std::size_t inserted) {
        TextChanged();
        TellEdit(*this, begin, removed, inserted);
        if (onEdited)
            onEdited();
    };
    connect(verticalScrollBar(), &QScrollBar::actionTriggered, this, [this](int action) { StepByScrollBar(action); });
}

void CEditorView::SetText(std::string_view text)
{
    m_text.SetText(text);
    m_top = {};
    m_preedit = {};
    TextChanged();
    CaretMoved();
}

void CEditorView::Select(std::size_t anchor, std::size_t caret)
{
    m_text.Select(anchor, caret);
    CaretMoved();
}

void CEditorView::TextChanged()
{
    ForgetLayouts();
    m_top.block = std::min(m_top.block, m_text.Buffer().BlockCount() - 1);
    m_top.row = std::min(m_top.row, LayoutOf(m_top.block).Rows() - 1);
    MirrorScrollBar();
}

void CEditorView::ForgetLayouts()
{
    m_layouts.clear();
    m_lastTop.reset();
    viewport()->update();
}

void CEditorView::CaretMoved()
{
    m_wantedX.reset();
    ShowCaret();
    RestartBlinking();
    updateMicroFocus();
    TellCaret(*this);
}

int CEditorView::RowHeight() const { return std::max(1, fontMetrics().lineSpacing()); }

int CEditorView::PageRows() const { return std::max(1, viewport()->height() / RowHeight() - 1); }

int CEditorView::TextWidth() const { return std::max(LeastTextWidth, viewport()->width() - 2 * Margin); }

const CBlockLayout& CEditorView::LayoutOf(std::size_t block)
{
    if (m_layouts.size() > LayoutsKept)
        m_layouts.clear();
    std::unique_ptr<CBlockLayout>& layout = m_layouts[block];
    if (!layout)
        layout = std::make_unique<CBlockLayout>(m_text.Buffer(), block, font(), TextWidth(), m_preedit);
    return *layout;
}

CEditorView::Row CEditorView::RowOf(std::size_t position)
{
    const std::size_t block = m_text.Buffer().BlockAt(position);
    const CBlockLayout& layout = LayoutOf(block);
    return {block, layout.RowOf(layout.IndexOf(position))};
}

CEditorView::Row CEditorView::Moved(Row row, int rows)
{
    for (; rows > 0; --rows) {
        if (row.row + 1 < LayoutOf(row.block).Rows())
            ++row.row;
        else if (row.block + 1 < m_text.Buffer().BlockCount())
            row = {row.block + 1, 0};
    }
    for (; rows < 0; ++rows) {
        if (row.row > 0)
            --row.row;
        else if (row.block > 0)
            row = {row.block - 1, LayoutOf(row.block - 1).Rows() - 1};
    }
    return row;
}

// The uppermost row so that all rows from it to `row` fit into a height.
CEditorView::Row CEditorView::UpFrom(Row row, int height)
{
    const auto heightOf = [&](Row of) { return LayoutOf(of.block).RowTop(of.row + 1) - LayoutOf(of.block).RowTop(of.row); };
    for (int left = height - heightOf(row); row != Row{};) {
        const Row above = Moved(row, -1);
        left -= heightOf(above);
        if (left < 0)
            break;
        row = above;
    }
    return row;
}

// The top when the end of the text is at the bottom.
CEditorView::Row CEditorView::LastTop()
{
    if (!m_lastTop) {
        const std::size_t last = m_text.Buffer().BlockCount() - 1;
        m_lastTop = UpFrom({last, LayoutOf(last).Rows() - 1}, viewport()->height() - 2 * Margin);
    }
    return *m_lastTop;
}

void CEditorView::SetTop(Row top)
{
    top = std::min(top, LastTop());
    if (top != m_top) {
        m_top = top;
        viewport()->update();
    }
    MirrorScrollBar();
}

void CEditorView::ScrollRows(int rows) { SetTop(Moved(m_top, rows)); }

void CEditorView::ShowCaret() { ShowPosition(m_text.Caret()); }

void CEditorView::ShowPosition(std::size_t position)
{
    const Row row = RowOf(position);
    const Row lowestTop = UpFrom(row, viewport()->height() - 2 * Margin);
    SetTop(std::clamp(m_top, std::min(lowestTop, row), row));
    viewport()->update();
}

int CEditorView::ScrollValueOf(Row row)
{
    const int steps = StepsPerBlock(m_text.Buffer().BlockCount());
    const int inside = row.row == 0 ? 0 : row.row * steps / LayoutOf(row.block).Rows();
    return static_cast<int>(row.block) * steps + inside;
}

void CEditorView::MirrorScrollBar()
{
    const QScopedValueRollback mirroring(m_mirroring, true);
    const Row last = LastTop();
    m_top = std::min(m_top, last);
    const int maximum = ScrollValueOf(last);
    const int all = static_cast<int>(m_text.Buffer().BlockCount()) * StepsPerBlock(m_text.Buffer().BlockCount());
    verticalScrollBar()->setRange(0, maximum);
    verticalScrollBar()->setPageStep(std::max(1, all - maximum));
    verticalScrollBar()->setValue(ScrollValueOf(m_top));
}

void CEditorView::scrollContentsBy(int, int)
{
    if (m_mirroring)
        return;
    const int steps = StepsPerBlock(m_text.Buffer().BlockCount());
    const int value = verticalScrollBar()->value();
    const auto block = std::min(static_cast<std::size_t>(value / steps), m_text.Buffer().BlockCount() - 1);
    m_top = std::min(Row{block, value % steps * LayoutOf(block).Rows() / steps}, LastTop());
    viewport()->update();
}

// The bar's own steps are blocks; the user expects rows and pages.
void CEditorView::StepByScrollBar(int action)
{
    switch (action) {
    case QAbstractSlider::SliderSingleStepAdd:
        ScrollRows(1);
        break;
    case QAbstractSlider::SliderSingleStepSub:
        ScrollRows(-1);
        break;
    case QAbstractSlider::SliderPageStepAdd:
        ScrollRows(PageRows());
        break;
    case QAbstractSlider::SliderPageStepSub:
        ScrollRows(-PageRows());
        break;
    default:
        return;
    }
    verticalScrollBar()->setSliderPosition(verticalScrollBar()->value());
}

QRect CEditorView::CaretRectangle(std::size_t position)
{
    const Row row = RowOf(position);
    int y = Margin - LayoutOf(m_top.block).RowTop(m_top.row);
    if (row.block < m_top.block)
        return {Margin, -RowHeight(), CaretWidth, RowHeight()};
    for (std::size_t block = m_top.block; block < row.block; ++block)
        if ((y += LayoutOf(block).Height()) > viewport()->height())
            return {Margin, viewport()->height(), CaretWidth, RowHeight()};
    const CBlockLayout& layout = LayoutOf(row.block);
    const int top = layout.RowTop(row.row);
    return {Margin + qRound(layout.XOf(layout.IndexOf(position))), y + top, CaretWidth, layout.RowTop(row.row + 1) - top};
}

std::size_t CEditorView::PositionAt(QPoint point) { return PlaceAt(point, QTextLine::CursorBetweenCharacters); }

std::size_t CEditorView::CharacterAt(QPoint point) { return PlaceAt(point, QTextLine::CursorOnCharacter); }

std::size_t CEditorView::PlaceAt(QPoint point, QTextLine::CursorPosition which)
{
    const std::size_t last = m_text.Buffer().BlockCount() - 1;
    std::size_t block = m_top.block;
    int y = point.y() - Margin + LayoutOf(block).RowTop(m_top.row);
    for (; block < last && y >= LayoutOf(block).Height(); ++block)
        y -= LayoutOf(block).Height();
    const CBlockLayout& layout = LayoutOf(block);
    int row = 0;
    while (row + 1 < layout.Rows() && y >= layout.RowTop(row + 1))
        ++row;
    return layout.PositionAt(row, point.x() - Margin, which);
}

std::size_t CEditorView::TopPosition() { return LayoutOf(m_top.block).RowBegin(m_top.row); }

std::pair<std::size_t, std::size_t> CEditorView::RowAround(std::size_t position)
{
    const Row row = RowOf(position);
    return {LayoutOf(row.block).RowBegin(row.row), LayoutOf(row.block).RowEnd(row.row)};
}

void CEditorView::paintEvent(QPaintEvent* event)
{
    QPainter painter(viewport());
    painter.setPen(palette().color(QPalette::Text));
    int y = Margin - LayoutOf(m_top.block).RowTop(m_top.row);
    for (std::size_t block = m_top.block; block < m_text.Buffer().BlockCount() && y < event->rect().bottom(); ++block) {
        PaintBlock(painter, block, y);
        y += LayoutOf(block).Height();
    }
    if (m_dropPlace)
        painter.fillRect(CaretRectangle(*m_dropPlace), palette().color(QPalette::Text));
}

void CEditorView::PaintBlock(QPainter& painter, std::size_t block, int y)
{
    const CBlockLayout& layout = LayoutOf(block);
    layout.Layout().draw(&painter, QPointF(Margin, y), SelectionIn(block), viewport()->rect());
    const bool shown = m_caretShown && hasFocus() && m_text.Buffer().BlockAt(m_text.Caret()) == block;
    if (!shown)
        return;
    int index = layout.IndexOf(m_text.Caret());
    if (!m_preedit.text.isEmpty())
        index += m_preedit.cursor;
    layout.Layout().drawCursor(&painter, QPointF(Margin, y), index, CaretWidth);
}

QList<QTextLayout::FormatRange> CEditorView::SelectionIn(std::size_t block) const
{
    const CTextBuffer& buffer = m_text.Buffer();
    const std::size_t begin = std::max(m_text.SelectionBegin(), buffer.BlockBegin(block));
    const std::size_t end = std::min(m_text.SelectionEnd(), buffer.BlockBehind(block));
    if (begin >= end)
        return {};
    const CBlockLayout& layout = *m_layouts.at(block);
    const auto group = hasFocus() ? QPalette::Active : QPalette::Inactive;
    QTextLayout::FormatRange range;
    range.start = layout.IndexOf(begin);
    // A selected line end is shown as a little more than the text.
    range.length =
        layout.IndexOf(std::min(end, buffer.BlockEnd(block))) - range.start + (end > buffer.BlockEnd(block) ? 1 : 0);
    range.format.setBackground(palette().brush(group, QPalette::Highlight));
    range.format.setForeground(palette().brush(group, QPalette::HighlightedText));
    return {range};
}

void CEditorView::resizeEvent(QResizeEvent*)
{
    // What was at the top stays there, however it is wrapped now.
    const std::size_t top = m_layouts.contains(m_top.block) ? TopPosition() : m_text.Buffer().BlockBegin(m_top.block);
    ForgetLayouts();
    m_top = RowOf(top);
    MirrorScrollBar();
}

void CEditorView::changeEvent(QEvent* event)
{
    QAbstractScrollArea::changeEvent(event);
    if (event->type() != QEvent::FontChange && event->type() != QEvent::StyleChange)
        return;
    ForgetLayouts();
    m_top.row = 0;
    MirrorScrollBar();
}

void CEditorView::RestartBlinking()
{
    m_caretShown = hasFocus();
    const int period = QGuiApplication::styleHints()->cursorFlashTime();
    if (hasFocus() && period > 1)
        m_blink.start(period / 2, this);
    else
        m_blink.stop();
    viewport()->update();
}

void CEditorView::focusInEvent(QFocusEvent* event)
{
    QAbstractScrollArea::focusInEvent(event);
    RestartBlinking();
}

void CEditorView::focusOutEvent(QFocusEvent* event)
{
    QAbstractScrollArea::focusOutEvent(event);
    RestartBlinking();
}
