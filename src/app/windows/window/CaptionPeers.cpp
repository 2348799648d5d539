#include "app/windows/window/Peer.h"
#include "platform/windows/Text.h"
#include <algorithm>
#include <cmath>

// Controls that show a caption.
namespace appwindows {
namespace {

using ui::layout::Kind;
using ui::layout::Row;

// Stands behind the controls that it holds; without a caption it is not seen.
class CFramePeer final : public CPeerOf<ui::CFrame> {
public:
    using CPeerOf::CPeerOf;

private:
    void MirrorOwn() override { SetTextOf(Native(), m_control.Caption()); }
};

class CCheckBoxPeer final : public CPeerOf<ui::CCheckBox> {
public:
    using CPeerOf::CPeerOf;
    void Commanded(int code, int) override
    {
        if (code == BN_CLICKED)
            m_control.SetValue(Send(Native(), BM_GETCHECK) == BST_CHECKED ? 1 : 0);
    }

private:
    void MirrorOwn() override
    {
        SetTextOf(Native(), m_control.Caption());
        const WPARAM check = m_control.Ticked() ? BST_CHECKED : BST_UNCHECKED;
        if (Send<WPARAM>(Native(), BM_GETCHECK) != check)
            Send(Native(), BM_SETCHECK, check);
    }
};

class CButtonPeer final : public CPeerOf<ui::CButton> {
public:
    using CPeerOf::CPeerOf;
    void Commanded(int code, int) override
    {
        if (code == BN_CLICKED)
            m_control.Click();
    }
    bool Pressed(WPARAM key) override
    {
        if (key == VK_RETURN)
            Send(Native(), BM_CLICK);
        return key == VK_RETURN;
    }

private:
    void MirrorOwn() override { SetTextOf(Native(), m_control.Caption()); }
};

class CLabelPeer final : public CPeerOf<ui::CLabel> {
public:
    using CPeerOf::CPeerOf;
    void Dress(HFONT font, int dpi) override
    {
        m_dialogFont = font;
        CPeer::Dress(font, dpi);
        m_style = {};
        TakeFont();
    }
    int GroundColor() const override { return Look().kind == Kind::Preview ? COLOR_WINDOW : NoColor; }

private:
    void MirrorOwn() override
    {
        SetTextOf(Native(), m_control.Caption());
        TakeFont();
    }
    // A label without a style of its own looks like all text of the window.
    void TakeFont()
    {
        if (m_control.Style() == m_style)
            return;
        m_style = m_control.Style();
        Gdi<HFONT> font = m_style == ui::TextStyle{} ? nullptr : FontOf(m_style, Dpi());
        Send(Native(), WM_SETFONT, reinterpret_cast<WPARAM>(font ? font.get() : m_dialogFont), TRUE);
        m_font = std::move(font);
    }
    std::optional<LRESULT> Filter(HWND, const Message& message) override
    {
        if (message.code != WM_NCPAINT || Look().kind != Kind::Preview)
            return std::nullopt;
        DrawThinBorder(Native());
        return 0;
    }
    HFONT m_dialogFont = nullptr;
    ui::TextStyle m_style;
    Gdi<HFONT> m_font;
};

// How bright a colour is to the eye, 0 to 1.
double Brightness(COLORREF color)
{
    const auto part = [](BYTE value) { return std::pow(value / 255.0, 2.2); };
    return 0.2126 * part(GetRValue(color)) + 0.7152 * part(GetGValue(color)) + 0.0722 * part(GetBValue(color));
}

double Contrast(COLORREF one, COLORREF other)
{
    const auto [low, high] = std::minmax(Brightness(one), Brightness(other));
    return (high + 0.05) / (low + 0.05);
}

// A colour that could not be read gives way: to the blue of links, and where the ground is dark to the text's colour.
COLORREF Readable(COLORREF color)
{
    constexpr double LeastContrast = 3;
    const COLORREF ground = GetSysColor(COLOR_3DFACE), blue = RGB(0, 0, 238);
    if (Contrast(color, ground) >= LeastContrast)
        return color;
    return Contrast(blue, ground) >= LeastContrast ? blue : GetSysColor(COLOR_WINDOWTEXT);
}

// An underlined text that leads somewhere: to the system a button that we draw, so that keyboard and screen readers know it.
class CLinkPeer final : public CPeerOf<ui::CLabel> {
public:
    using CPeerOf::CPeerOf;
    void Commanded(int code, int) override
    {
        if (code == BN_CLICKED || code == BN_DBLCLK)
            m_control.Click();
    }
    bool Pressed(WPARAM key) override
    {
        if (key == VK_RETURN)
            Send(Native(), BM_CLICK);
        return key == VK_RETURN;
    }
    void Dress(HFONT font, int dpi) override
    {
        CPeer::Dress(font, dpi);
        LOGFONTW description = {};
        GetObjectW(font, sizeof description, &description);
        description.lfUnderline = TRUE;
        m_font.reset(CreateFontIndirectW(&description));
    }
    void Drawn(const DRAWITEMSTRUCT& item) override;

private:
    void MirrorOwn() override
    {
        SetTextOf(Native(), m_control.Caption());
        InvalidateRect(Native(), nullptr, TRUE);
    }
    std::optional<LRESULT> Filter(HWND, const Message& message) override
    {
        if (message.code != WM_SETCURSOR)
            return std::nullopt;
        SetCursor(LoadCursorW(nullptr, MAKEINTRESOURCEW(32649)));  // The hand.
        return TRUE;
    }
    COLORREF Color() const
    {
        const auto own = static_cast<COLORREF>(m_control.Style().color);
        return Readable(own == 0 || HighContrast() ? GetSysColor(COLOR_HOTLIGHT) : own);
    }
    Gdi<HFONT> m_font;
};

void CLinkPeer::Drawn(const DRAWITEMSTRUCT& item)
{
    const std::wstring text = platform::windowsdesktop::ToWide(m_control.Caption());
    const auto ground = reinterpret_cast<HBRUSH>(
        SendMessageW(GetParent(Native()), WM_CTLCOLORBTN, reinterpret_cast<WPARAM>(item.hDC), ToParam(Native())));
    RECT place = item.rcItem;
    FillRect(item.hDC, &place, ground);
    const CSelected font(item.hDC, m_font.get());
    SetBkMode(item.hDC, TRANSPARENT);
    SetTextColor(item.hDC, Color());
    DrawTextW(item.hDC, text.c_str(), -1, &place, DT_SINGLELINE | DT_VCENTER | DT_NOPREFIX);
    if (!(item.itemState & ODS_FOCUS) || (item.itemState & ODS_NOFOCUSRECT))
        return;
    place.right = place.left + ExtentOf(item.hDC, m_control.Caption()).cx + 2;
    SetTextColor(item.hDC, GetSysColor(COLOR_BTNTEXT));
    DrawFocusRect(item.hDC, &place);
}

HWND MakeFrame(const Place& place, const ui::CControl& control)
{
    if (control.Caption().empty())
        return MakeChild(place.parent, WC_STATICW, SS_NOPREFIX | SS_LEFT, place.id);
    return MakeChild(place.parent, WC_BUTTONW, BS_GROUPBOX | WS_GROUP, place.id);
}

HWND MakeLabel(const Place& place, Kind kind)
{
    const DWORD style = kind == Kind::WrappedLabel ? SS_LEFT
                        : kind == Kind::Preview    ? SS_CENTER | SS_CENTERIMAGE
                                                   : SS_CENTERIMAGE;
    return MakeChild(place.parent, WC_STATICW, style | SS_NOPREFIX, place.id, kind == Kind::Preview ? WS_EX_CLIENTEDGE : 0);
}

HWND MakeButton(const Place& place, DWORD kind)
{
    return MakeChild(place.parent, WC_BUTTONW, kind | BS_NOTIFY | WS_TABSTOP, place.id);
}

template <class Peer> std::unique_ptr<CPeer> Make(const Place& place, ui::CControl& control, const Row& row, HWND native)
{
    return std::make_unique<Peer>(place, control, row, native);
}

}

std::unique_ptr<CPeer> MakeCaptionPeer(const Place& place, ui::CControl& control, const Row& row)
{
    switch (row.kind) {
    case Kind::Frame:
        return Make<CFramePeer>(place, control, row, MakeFrame(place, control));
    case Kind::CheckBox:
        return Make<CCheckBoxPeer>(place, control, row, MakeButton(place, BS_AUTOCHECKBOX));
    case Kind::Button:
        return Make<CButtonPeer>(place, control, row, MakeButton(place, BS_PUSHBUTTON));
    case Kind::Label:
    case Kind::WrappedLabel:
    case Kind::Preview:
        return Make<CLabelPeer>(place, control, row, MakeLabel(place, row.kind));
    case Kind::Link:
        return Make<CLinkPeer>(place, control, row, MakeButton(place, BS_OWNERDRAW));
    default:
        return nullptr;
    }
}

}
