#pragma once
#include "app/windows/window/Page.h"
#include "app/windows/window/Peer.h"
#include "app/windows/window/Units.h"
#include <functional>
#include <memory>
#include <vector>

namespace appwindows {

inline bool SameHolder(const ui::layout::Holder& one, const ui::layout::Holder& other)
{
    return one.control == other.control && one.page == other.page;
}

// The inside of a native window: the native controls of a form, made from its table. Changes of the controls are mirrored
// together before the next message is handled, so that filling a long list costs one change. The pages of a tab strip that
// stands on the form itself are made when they are first shown.
class CFormMirror final : public IPeerOwner {
public:
    // `surface` is the window of the form. All are borrowed. The surface hands its messages to Handle.
    CFormMirror(ui::CForm& form, const ui::layout::FormLayout& layout, HWND surface, int dpi);
    ~CFormMirror() override;

    void MirrorNow();     // Brings all native controls up to date.
    void FollowFocus();   // The form's focus has moved.
    void RestoreFocus();  // The window has become the active one.
    void Dress(int dpi);  // Fonts, colours or the resolution have changed.
    void ArrangeSurface();
    SIZE NaturalSize() const;
    HWND WindowOf(std::string_view control) const;  // Null while its page has not been shown.
    CPeer* PeerOf(std::string_view control) const;
    CPeer* PeerAround(HWND window) const;  // The control that the window is, or is a part of.

    // What the surface or a page was told about its controls. No answer: nothing of ours.
    std::optional<LRESULT> Handle(HWND holder, const Message& message);
    // Keys that move among the controls. True when that is done.
    bool TakeKey(MSG& message);
    // What a dialog's keys ask of the window (WM_NEXTDLGCTL).
    void MoveFocusTo(const Message& message);
    void FocusCame(CPeer& peer) override;

    // Messages to the surface, from the mirror itself.
    static constexpr UINT TurnMessage = WM_APP + 1;
    static constexpr UINT EnteredMessage = WM_APP + 2;  // With the control's identifier.

private:
    using Row = ui::layout::Row;
    using Holder = ui::layout::Holder;

    // The page or the surface that a control stands in, and where the frames around it begin there, in dialog units.
    struct Home {
        Holder holder;
        int x = 0, y = 0;
    };
    struct Placed {
        Holder holder;
        std::unique_ptr<CPage> page;
    };

    Holder RootOf(const Row& row) const;
    Home HomeOf(const Row& row) const;
    void Build(const Holder& root);
    void BuildControl(const Row& row, int id);
    void AddSpokenLabel(const Row& row, HWND holder) const;
    void ShowPages(const CPeer& strip);
    void PlacePages(const CPeer& strip);
    HWND WindowOfHolder(const Holder& holder);
    CPage* PageOf(const Holder& holder) const;
    CPage* PageAround(HWND window) const;
    CPage& MakePage(const Holder& holder);
    SIZE LeastSizeOf(const Holder& page) const;
    void Arrange(const Holder& holder, SIZE area, POINT offset);
    Rectangle PlaceNow(const Row& row) const;
    CPeer* PeerAbove(const CPeer& peer) const;
    bool IsEnabled(const CPeer& peer) const;
    bool IsVisible(const CPeer& peer) const;
    void Mirror(CPeer& peer);
    void MirrorToolTip(const CPeer& peer);
    void MarkHeld(const CPeer& holder);
    void Schedule(CPeer& peer);
    void ScheduleTurn();
    void TakeFocus();
    void LeaveLostControl();
    void GiveFocus(HWND window);
    CPeer* NextStop(const CPeer* from, int step) const;
    void MoveFocus(int step);
    bool TakeNavigation(WPARAM key);
    std::optional<LRESULT> Color(HWND holder, HDC dc, HWND control);
    ui::CControl& ControlOf(const Row& row) const;

    ui::CForm& m_form;
    const ui::layout::FormLayout& m_layout;
    HWND m_surface;
    int m_dpi;
    Gdi<HFONT> m_font;
    Units m_units;
    HWND m_toolTips = nullptr;
    std::vector<std::unique_ptr<CPeer>> m_peers;  // By row; null where not yet made.
    std::vector<Placed> m_pages;
    HWND m_lastFocus = nullptr;
    bool m_turnDue = false;
    bool m_focusDue = false;
    bool m_restoring = false;
    bool m_closing = false;
};

}
