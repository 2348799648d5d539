#include "app/windows/window/Peer.h"
#include "app/windows/window/Guarded.h"
#include <stdexcept>

namespace appwindows {
namespace {

constexpr UINT_PTR FilterId = 1;

void SetFlag(bool& flag, bool value) { flag = value; }

}

CPeer::CPeer(IPeerOwner& owner, ui::CControl& control, const ui::layout::Row& row, HWND native)
    : m_owner(owner), m_control(control), m_row(row), m_native(native)
{
    SetWindowSubclass(m_native, FilterProcedure, FilterId, reinterpret_cast<DWORD_PTR>(this));
}

CPeer::~CPeer()
{
    for (HWND window : {m_native, m_part})
        if (window)
            RemoveWindowSubclass(window, FilterProcedure, FilterId);
    if (m_native)
        DestroyWindow(m_native);
}

void CPeer::FilterPart(HWND part)
{
    m_part = part;
    SetWindowSubclass(part, FilterProcedure, FilterId, reinterpret_cast<DWORD_PTR>(this));
}

LRESULT CALLBACK CPeer::FilterProcedure(HWND window, UINT code, WPARAM w, LPARAM l, UINT_PTR, DWORD_PTR self)
{
    auto& peer = *reinterpret_cast<CPeer*>(self);
    std::optional<LRESULT> answer;
    if (code == WM_NCDESTROY) {
        RemoveWindowSubclass(window, FilterProcedure, FilterId);
        (window == peer.m_native ? peer.m_native : peer.m_part) = nullptr;
    } else {
        RunGuarded([&] {
            if (code == WM_SETFOCUS)
                peer.m_owner.FocusCame(peer);
            answer = peer.Filter(window, {code, w, l});
        });
    }
    return answer ? *answer : DefSubclassProc(window, code, w, l);
}

void CPeer::Mirror(bool enabled, bool visible)
{
    SetFlag(m_mirroring, true);
    const std::unique_ptr<bool, void (*)(bool*)> done(&m_mirroring, [](bool* mirroring) { *mirroring = false; });
    if ((IsWindowEnabled(m_native) != FALSE) != enabled)
        EnableWindow(m_native, enabled);
    MirrorOwn();
    const bool shown = (GetWindowLongPtrW(m_native, GWL_STYLE) & WS_VISIBLE) != 0;
    if (shown != visible)
        ShowWindow(m_native, visible ? SW_SHOWNA : SW_HIDE);
}

void CPeer::Dress(HFONT font, int dpi)
{
    m_dpi = dpi;
    SendMessageW(m_native, WM_SETFONT, reinterpret_cast<WPARAM>(font), TRUE);
}

void CPeer::MoveTo(const Rectangle& place) { appwindows::MoveTo(m_native, place); }

std::unique_ptr<CPeer> MakePeer(const Place& place, ui::CControl& control, const ui::layout::Row& row)
{
    for (const auto make :
         {MakeCaptionPeer, MakePicturePeer, MakeTextPeer, MakeListPeer, MakeRangePeer, MakeBarPeer, MakeEditorPeer})
        if (auto peer = make(place, control, row))
            return peer;
    throw std::logic_error("No native control is made for " + control.Name());
}

}
