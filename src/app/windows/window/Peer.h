#pragma once
#include "app/windows/window/Look.h"
#include "app/windows/window/Window.h"
#include "ui/controls/Controls.h"
#include "ui/layout/FormLayout.h"
#include <memory>
#include <optional>

namespace appwindows {

class CPeer;

// The window's inside, as its peers know it.
class IPeerOwner {
public:
    virtual ~IPeerOwner() = default;
    virtual void FocusCame(CPeer& peer) = 0;  // The user's or the system's doing.
};

// Where a native control is made and what it is dressed in.
struct Place {
    IPeerOwner& owner;
    HWND parent = nullptr;
    int id = 0;
};

// A native control: mirrors a control of the program and reports what the user does to it by the control's own calls. Owns
// the native window.
class CPeer {
public:
    CPeer(IPeerOwner& owner, ui::CControl& control, const ui::layout::Row& row, HWND native);
    virtual ~CPeer();
    CPeer(const CPeer&) = delete;
    CPeer& operator=(const CPeer&) = delete;
    ui::CControl& Subject() const { return m_control; }
    const ui::layout::Row& Look() const { return m_row; }
    HWND Native() const { return m_native; }

    void Mirror(bool enabled, bool visible);  // Brings the native control up to date. Both are what the user sees.
    virtual void Dress(HFONT font, int dpi);  // The font has changed, or the resolution.
    virtual void MoveTo(const Rectangle& place);

    // What the native control tells the window that holds it.
    virtual void Commanded(int /*code*/, int /*id*/) {}
    virtual LRESULT Notified(const NMHDR& /*header*/) { return 0; }
    virtual void Scrolled() {}
    virtual void Drawn(const DRAWITEMSTRUCT& /*item*/) {}
    // The system's colour (COLOR_...) that its ground is filled with; NoColor for what lies behind it.
    static constexpr int NoColor = -1;
    virtual int GroundColor() const { return NoColor; }
    // Keys that move among the controls elsewhere. True when this one used the key.
    virtual bool Pressed(WPARAM /*key*/) { return false; }
    virtual bool TypesTabs() const { return false; }
    virtual void Entered() {}  // A moment after the focus came.

    bool changed = false;
    // As of the last time that it was mirrored, with what holds it.
    bool wasEnabled = true;
    bool wasVisible = true;

protected:
    virtual void MirrorOwn() {}
    // Messages on their way to the native control. An answer keeps them from it.
    virtual std::optional<LRESULT> Filter(HWND /*window*/, const Message& /*message*/) { return std::nullopt; }
    // Filters another window's messages, too: of a part of the native control.
    void FilterPart(HWND part);
    IPeerOwner& Owner() const { return m_owner; }
    int Dpi() const { return m_dpi; }
    bool HasFocus() const { return Holds(m_native, GetFocus()); }
    // Runs a report of the user's doing; what the mirror itself does to the native control is none.
    template <class Action> void Report(Action&& action)
    {
        if (!m_mirroring)
            action();
    }

private:
    static LRESULT CALLBACK FilterProcedure(HWND window, UINT code, WPARAM w, LPARAM l, UINT_PTR, DWORD_PTR self);

    IPeerOwner& m_owner;
    ui::CControl& m_control;
    const ui::layout::Row& m_row;
    HWND m_native;
    HWND m_part = nullptr;
    int m_dpi = UsualDpi;
    bool m_mirroring = false;
};

template <class Control> class CPeerOf : public CPeer {
public:
    CPeerOf(const Place& place, ui::CControl& control, const ui::layout::Row& row, HWND native)
        : CPeer(place.owner, control, row, native), m_control(dynamic_cast<Control&>(control))
    {
    }

protected:
    Control& m_control;
};

// Makes the native control and its peer. The control must be of the row's kind: throws std::bad_cast otherwise.
std::unique_ptr<CPeer> MakePeer(const Place& place, ui::CControl& control, const ui::layout::Row& row);

// By kind, for MakePeer only; null when the kind is another's.
std::unique_ptr<CPeer> MakeCaptionPeer(const Place& place, ui::CControl& control, const ui::layout::Row& row);
std::unique_ptr<CPeer> MakePicturePeer(const Place& place, ui::CControl& control, const ui::layout::Row& row);
std::unique_ptr<CPeer> MakeTextPeer(const Place& place, ui::CControl& control, const ui::layout::Row& row);
std::unique_ptr<CPeer> MakeListPeer(const Place& place, ui::CControl& control, const ui::layout::Row& row);
std::unique_ptr<CPeer> MakeRangePeer(const Place& place, ui::CControl& control, const ui::layout::Row& row);
std::unique_ptr<CPeer> MakeBarPeer(const Place& place, ui::CControl& control, const ui::layout::Row& row);
std::unique_ptr<CPeer> MakeEditorPeer(const Place& place, ui::CControl& control, const ui::layout::Row& row);

}
