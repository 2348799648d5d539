#include "app/windows/window/Peer.h"
#include <algorithm>

namespace appwindows {
namespace {

using ui::layout::Kind;

class CSliderPeer final : public CPeerOf<ui::CSlider> {
public:
    CSliderPeer(const Place& place, ui::CControl& control, const ui::layout::Row& row, HWND native)
        : CPeerOf(place, control, row, native)
    {
        const int range = m_control.Maximum() - m_control.Minimum();
        Send(native, TBM_SETRANGEMIN, FALSE, m_control.Minimum());
        Send(native, TBM_SETRANGEMAX, FALSE, m_control.Maximum());
        Send(native, TBM_SETLINESIZE, 0, std::max(1, range / 100));
        Send(native, TBM_SETPAGESIZE, 0, std::max(1, range / 10));
        SetTextOf(native, std::string(row.spoken));
    }
    void Scrolled() override
    {
        Report([&] { m_control.SetValue(Send<std::int32_t>(Native(), TBM_GETPOS)); });
    }
    void Dress(HFONT font, int dpi) override
    {
        constexpr int Thumb = 18;
        CPeer::Dress(font, dpi);
        Send(Native(), TBM_SETTHUMBLENGTH, static_cast<WPARAM>(Scaled(Thumb, dpi)));
    }

private:
    void MirrorOwn() override
    {
        if (Send<std::int32_t>(Native(), TBM_GETPOS) != m_control.Value())
            Send(Native(), TBM_SETPOS, TRUE, m_control.Value());
    }
};

class CProgressPeer final : public CPeerOf<ui::CProgressBar> {
public:
    CProgressPeer(const Place& place, ui::CControl& control, const ui::layout::Row& row, HWND native)
        : CPeerOf(place, control, row, native)
    {
        SetTextOf(native, std::string(row.spoken));
    }

private:
    void MirrorOwn() override
    {
        Send(Native(), PBM_SETRANGE32, 0, m_control.Maximum());
        Send(Native(), PBM_SETPOS, static_cast<WPARAM>(m_control.Value()));
    }
};

}

std::unique_ptr<CPeer> MakeRangePeer(const Place& place, ui::CControl& control, const ui::layout::Row& row)
{
    switch (row.kind) {
    case Kind::Slider:
        return std::make_unique<CSliderPeer>(
            place, control, row,
            MakeChild(place.parent, TRACKBAR_CLASSW, TBS_HORZ | TBS_NOTICKS | TBS_FIXEDLENGTH | WS_TABSTOP, place.id));
    case Kind::ProgressBar:
        return std::make_unique<CProgressPeer>(place, control, row, MakeChild(place.parent, PROGRESS_CLASSW, 0, place.id));
    default:
        return nullptr;
    }
}

}
