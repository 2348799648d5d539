#include "app/linux/window/FormMirror.h"
#include <QScrollArea>
#include <QTabWidget>
#include <QVBoxLayout>
#include <algorithm>

// Where the widgets are, and what holds them.
namespace {
using ui::layout::Growth;

QRect Grown(QRect place, const ui::layout::Row& row, const QSize& gained)
{
    if (row.movesDown)
        place.translate(0, gained.height());
    if (row.growth == Growth::Wide || row.growth == Growth::Both)
        place.setWidth(place.width() + gained.width());
    if (row.growth == Growth::Tall || row.growth == Growth::Both)
        place.setHeight(place.height() + gained.height());
    return place;
}
}

QWidget& CFormMirror::HolderWidget(const Holder& holder)
{
    if (holder.control.empty())
        return m_surface;
    QWidget* native = WidgetOf(holder.control);
    auto* strip = qobject_cast<QTabWidget*>(native);
    if (!strip)
        return *native;
    if (!m_pages.contains(HolderKey(holder)))
        MakePage(holder, *strip->widget(holder.page));
    return *m_pages.value(HolderKey(holder));
}

// Where the screen is too small for a page it can be scrolled.
void CFormMirror::MakePage(const Holder& holder, QWidget& page)
{
    auto* canvas = new QWidget;
    const bool isInner = !FindRow(m_layout, holder.control)->holder.control.empty();
    auto* column = new QVBoxLayout(&page);
    column->setContentsMargins(0, 0, 0, 0);
    if (isInner) {
        column->addWidget(canvas);
        canvas->show();  // At once: the page is on the screen.
    } else {
        auto* scroller = new QScrollArea;
        scroller->setFrameShape(QFrame::NoFrame);
        scroller->setFocusPolicy(Qt::NoFocus);
        scroller->setWidgetResizable(true);
        scroller->setWidget(canvas);
        scroller->viewport()->setAutoFillBackground(false);
        canvas->setAutoFillBackground(false);
        column->addWidget(scroller);
        scroller->show();
    }
    canvas->setMinimumSize(LeastSizeOf(holder));
    canvas->installEventFilter(this);
    m_pages.insert(HolderKey(holder), canvas);
}

// A page whose controls give way needs half of its room.
QSize CFormMirror::LeastSizeOf(const Holder& page) const
{
    const ui::layout::Rectangle inside = InsideOf(m_layout, page);
    const QSize size = m_units.ToPixels(inside.width, inside.height);
    const bool givesWay = std::any_of(m_layout.rows.begin(), m_layout.rows.end(), [&](const Row& row) {
        return SameHolder(row.holder, page) && row.growth == Growth::Both;
    });
    return givesWay ? size / 2 : size;
}

void CFormMirror::Arrange(const QWidget& holder)
{
    for (const Placed& placed : m_placed) {
        if (placed.holder != &holder)
            continue;
        const Row& row = placed.peer->Look();
        const ui::layout::Rectangle inside = InsideOf(m_layout, row.holder);
        const QSize gained = holder.size() - m_units.ToPixels(inside.width, inside.height);
        placed.peer->Native().setGeometry(Grown(m_units.ToPixels(PlaceNow(row)), row, gained));
    }
}

ui::layout::Rectangle CFormMirror::PlaceNow(const Row& row) const
{
    const CPeer* below = row.covers.empty() ? nullptr : PeerOf(row.covers);
    ui::layout::Rectangle place = row.place;
    if (below && !below->Subject().Visible())
        place.height = below->Look().place.Bottom() - place.y;
    return place;
}

void CFormMirror::Rescale()
{
    m_units = UnitsThatFit(m_surface, m_form, m_layout);
    for (auto page = m_pages.constBegin(); page != m_pages.constEnd(); ++page) {
        const std::string strip = page.key().first.toStdString();
        page.value()->setMinimumSize(LeastSizeOf({strip, page.key().second}));
    }
    for (const Placed& placed : m_placed)
        Arrange(*placed.holder);
}

QSize CFormMirror::NaturalSize() const { return m_units.ToPixels(m_layout.width, m_layout.height); }
