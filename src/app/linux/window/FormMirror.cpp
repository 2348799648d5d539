#include "app/linux/window/FormMirror.h"
#include <QApplication>
#include <QComboBox>
#include <QCoreApplication>
#include <QEvent>
#include <QLabel>
#include <QLineEdit>
#include <algorithm>
#include <stdexcept>

namespace {
using ui::layout::Kind;

QEvent::Type TurnEvent()
{
    static const int type = QEvent::registerEventType();
    return static_cast<QEvent::Type>(type);
}

}

CFormMirror::CFormMirror(ui::CForm& form, const ui::layout::FormLayout& layout, QWidget& surface)
    : m_form(form), m_layout(layout), m_surface(surface), m_units(UnitsThatFit(surface, form, layout))
{
    m_surface.installEventFilter(this);
    QObject::connect(qApp, &QApplication::focusChanged, this, [this](QWidget*, QWidget* now) {
        if (!m_focusDue)  // What a page that goes does with the focus counts less than what the program wants.
            ReportFocus(now);
    });
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
    if (!m_pages.contains(HolderKey(page))) {
        HolderWidget(page);
        Build(page);
    }
}

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
