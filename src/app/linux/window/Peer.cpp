#include "app/linux/window/Peer.h"
#include <stdexcept>

CPeer::CPeer(ui::CControl& control, const ui::layout::Row& row, QWidget& native)
    : m_control(control), m_row(row), m_native(native)
{
    m_native.setObjectName(FromText(control.Name()));
}

void CPeer::SetLabel(const std::string& caption) { m_label = caption; }

QString CPeer::SpokenName() const
{
    if (!m_row.spoken.empty())
        return FromText(std::string(m_row.spoken));
    return FromText(m_label.empty() ? m_control.Caption() : m_label);
}

void CPeer::Mirror()
{
    const QScopedValueRollback mirroring(m_mirroring, true);
    m_native.setEnabled(m_control.Enabled());
    m_native.setVisible(m_control.Visible());
    m_native.setToolTip(FromText(m_control.ToolTip()));
    m_native.setAccessibleName(SpokenName());
    MirrorOwn();
}

std::unique_ptr<CPeer> MakePeer(ui::CControl& control, const ui::layout::Row& row, QWidget& parent)
{
    for (const auto make : {MakeCaptionPeer, MakeTextPeer, MakeListPeer, MakeRangePeer, MakeBarPeer})
        if (auto peer = make(control, row, parent))
            return peer;
    throw std::logic_error("No widget is made for " + control.Name());
}
