#include "app/linux/window/Peer.h"
#include <QProgressBar>
#include <QSlider>
#include <algorithm>

namespace {
using ui::layout::Kind;

class CSliderPeer final : public CPeerOf<ui::CSlider, QSlider> {
public:
    CSliderPeer(ui::CSlider& control, const ui::layout::Row& row, QSlider* native) : CPeerOf(control, row, native)
    {
        const int range = control.Maximum() - control.Minimum();
        native->setOrientation(Qt::Horizontal);
        native->setRange(control.Minimum(), control.Maximum());
        native->setSingleStep(std::max(1, range / 100));
        native->setPageStep(std::max(1, range / 10));
        QObject::connect(native, &QSlider::valueChanged, this,
                         [this](int value) { Report([&] { m_control.SetValue(value); }); });
    }

private:
    void MirrorOwn() override { m_native.setValue(m_control.Value()); }
};

class CProgressPeer final : public CPeerOf<ui::CProgressBar, QProgressBar> {
public:
    CProgressPeer(ui::CProgressBar& control, const ui::layout::Row& row, QProgressBar* native)
        : CPeerOf(control, row, native)
    {
        native->setTextVisible(false);
    }

private:
    void MirrorOwn() override
    {
        m_native.setRange(0, m_control.Maximum());
        m_native.setValue(m_control.Value());
    }
};
}

std::unique_ptr<CPeer> MakeRangePeer(ui::CControl& control, const ui::layout::Row& row, QWidget& parent)
{
    switch (row.kind) {
    case Kind::Slider:
        return std::make_unique<CSliderPeer>(dynamic_cast<ui::CSlider&>(control), row, new QSlider(&parent));
    case Kind::ProgressBar:
        return std::make_unique<CProgressPeer>(dynamic_cast<ui::CProgressBar&>(control), row, new QProgressBar(&parent));
    default:
        return nullptr;
    }
}
