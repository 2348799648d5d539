#include "app/linux/window/FormMirror.h"
#include <QApplication>
#include <QComboBox>
#include <QCoreApplication>
#include <QEvent>
#include <QLabel>
#include <QLineEdit>
#include <QScrollArea>
#include <QTabWidget>
#include <QVBoxLayout>
#include <algorithm>
#include <stdexcept>

namespace {
using ui::layout::Growth;
using ui::layout::Kind;

QEvent::Type TurnEvent()
{
    static const int type = QEvent::registerEventType();
    return static_cast<QEvent::Type>(type);
}

QPair<QString, int> KeyOf(const ui::layout::Holder& holder)
{
    return {QString::fromUtf8(holder.control.data(), static_cast<qsizetype>(holder.control.size())), holder.page};
}

bool SameHolder(const ui::layout::Holder& one, const ui::layout::Holder& other)
{
    return one.control == other.control && one.page == other.page;
}

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

CFormMirror::CFormMirror(ui::CForm& form, const ui::layout::FormLayout& layout, QWidget& surface)
    : m_form(form), m_layout(layout), m_surface(surface), m_units(UnitsThatFit(surface, form, layout))
{
    m_surface.installEventFilter(this);
    QObject::connect(qApp, &QApplication::focusChanged, this, [this](QWidget*, QWidget* now) { ReportFocus(now); });
    Build({});
    FollowFocus();
}

CFormMirror::~CFormMirror()
{
    for (const auto& peer : m_peers)
        peer->Subject().SetPeer({});
}

// A page of a tab strip on the form, or the form.
CFormMirror::Holder CFormMirror::RootOf(const Row& row) const
{
    Holder root = row.holder;
    while (!root.control.empty()) {
        const Row* above = FindRow(m_layout, root.control);
        if (!above || above->holder.control.empty())
            break;
        root = above->holder;
    }
    return root;
}

void CFormMirror::Build(const Holder& root)
{
    for (const Row& row : m_layout.rows)
        if (SameHolder(RootOf(row), root))
            BuildControl(row);
    JoinLabels(root);
    for (const Placed& placed : m_placed)
        Arrange(*placed.holder);
    for (std::size_t at = 0, count = m_peers.size(); at < count; ++at)
        if (SameHolder(RootOf(m_peers[at]->Look()), root))
            ShowSelectedPages(*m_peers[at]);
}

void CFormMirror::BuildControl(const Row& row)
{
    QWidget& holder = HolderWidget(row.holder);
    m_peers.push_back(MakePeer(ControlOf(row), row, holder));
    CPeer& peer = *m_peers.back();
    peer.Native().setGeometry(m_units.ToPixels(row.place));
    m_placed.push_back({&peer, &holder});
    peer.Mirror();
    AddSpokenLabel(row, holder, peer.Native());
    peer.Subject().SetPeer([this, &peer] { Schedule(peer); });
}

// A label names the control beside it, for the eye as for a screen reader.
void CFormMirror::JoinLabels(const Holder& root)
{
    for (const auto& peer : m_peers) {
        const Row& row = peer->Look();
        CPeer* named = row.names.empty() ? nullptr : PeerOf(row.names);
        if (!named || !SameHolder(RootOf(row), root))
            continue;
        named->SetLabel(peer->Subject().Caption());
        named->Mirror();
        if (auto* label = qobject_cast<QLabel*>(&peer->Native()))
            label->setBuddy(&named->Native());
    }
}

// A screen reader takes a combo box's text for its name and looks for a label beside it, which nobody else needs to see.
void CFormMirror::AddSpokenLabel(const Row& row, QWidget& holder, QWidget& combo)
{
    if (row.spoken.empty() || !qobject_cast<QComboBox*>(&combo))
        return;
    auto* label = new QLabel(FromText(std::string(row.spoken)), &holder);
    label->setGeometry(QRect(combo.pos(), QSize(1, 1)));
    label->setBuddy(&combo);
    label->lower();
    label->show();
}

void CFormMirror::ShowSelectedPages(const CPeer& peer)
{
    if (peer.Look().kind != Kind::TabStrip || !peer.Look().holder.control.empty())
        return;
    const Holder page{peer.Look().control, dynamic_cast<const ui::CTabStrip&>(peer.Subject()).Selected()};
    if (!m_pages.contains(KeyOf(page))) {
        HolderWidget(page);
        Build(page);
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
    if (!m_pages.contains(KeyOf(holder)))
        MakePage(holder, *strip->widget(holder.page));
    return *m_pages.value(KeyOf(holder));
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
    m_pages.insert(KeyOf(holder), canvas);
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

void CFormMirror::MirrorNow()
{
    m_turnDue = false;
    for (std::size_t at = 0; at < m_peers.size(); ++at) {  // Showing a page adds peers.
        CPeer& peer = *m_peers[at];
        if (!std::exchange(peer.changed, false))
            continue;
        peer.Mirror();
        ShowSelectedPages(peer);
        Arrange(*peer.Native().parentWidget());  // Something may have come or gone.
    }
    if (std::exchange(m_focusDue, false))
        TakeFocus();
}

void CFormMirror::FollowFocus()
{
    m_focusDue = true;
    ScheduleTurn();
}

void CFormMirror::Schedule(CPeer& peer)
{
    peer.changed = true;
    ScheduleTurn();
}

void CFormMirror::ScheduleTurn()
{
    if (std::exchange(m_turnDue, true))
        return;
    QCoreApplication::postEvent(this, new QEvent(TurnEvent()), Qt::HighEventPriority);
}

bool CFormMirror::event(QEvent* event)
{
    if (event->type() != TurnEvent())
        return QObject::event(event);
    MirrorNow();
    return true;
}

bool CFormMirror::eventFilter(QObject* holder, QEvent* event)
{
    if (event->type() == QEvent::Resize)
        Arrange(*qobject_cast<QWidget*>(holder));
    return false;
}

void CFormMirror::TakeFocus()
{
    const ui::CControl* focused = m_form.Focused();
    const CPeer* peer = focused ? PeerOf(focused->Name()) : nullptr;
    if (peer && !peer->Holds(m_surface.window()->focusWidget()))
        peer->Native().setFocus(Qt::OtherFocusReason);
}

// The innermost control around the widget that has the focus.
void CFormMirror::ReportFocus(const QWidget* widget)
{
    for (; widget && widget != &m_surface; widget = widget->parentWidget()) {
        const CPeer* peer = PeerOf(widget->objectName().toStdString());
        if (!peer || &peer->Native() != widget)
            continue;
        if (!peer->Subject().HasFocus() && peer->Subject().Enabled() && peer->Subject().Visible())
            peer->Subject().SetFocus();
        return;
    }
}

ui::CControl& CFormMirror::ControlOf(const Row& row) const
{
    for (ui::CControl* control : m_form.Controls())
        if (control->Name() == row.control)
            return *control;
    throw std::logic_error("The form has no control " + std::string(row.control));
}

CPeer* CFormMirror::PeerOf(std::string_view control) const
{
    const auto found =
        std::find_if(m_peers.begin(), m_peers.end(), [&](const auto& peer) { return peer->Subject().Name() == control; });
    return found == m_peers.end() ? nullptr : found->get();
}

QWidget* CFormMirror::WidgetOf(std::string_view control) const
{
    const CPeer* peer = PeerOf(control);
    return peer ? &peer->Native() : nullptr;
}
