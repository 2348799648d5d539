#include "app/windows/ControlIds.h"
#include "app/windows/window/Peer.h"
#include "app/windows/window/Pictures.h"
#include "platform/windows/Text.h"

namespace appwindows {
namespace {

using platform::windowsdesktop::FromWide;
using platform::windowsdesktop::ToWide;
using ui::layout::Kind;

class CTabPeer final : public CPeerOf<ui::CTabStrip> {
public:
    CTabPeer(const Place& place, ui::CControl& control, const ui::layout::Row& row, HWND native)
        : CPeerOf(place, control, row, native)
    {
        SetTextOf(native, std::string(row.spoken));
        int index = 0;
        for (const std::string& caption : m_control.Tabs()) {
            std::wstring text = ToWide(caption);
            TCITEMW item = {};
            item.mask = TCIF_TEXT;
            item.pszText = text.data();
            Send(native, TCM_INSERTITEMW, static_cast<WPARAM>(index++), ToParam(&item));
        }
    }
    LRESULT Notified(const NMHDR& header) override
    {
        if (header.code == TCN_SELCHANGE)
            m_control.Select(Send<std::int32_t>(Native(), TCM_GETCURSEL));
        return 0;
    }

private:
    void MirrorOwn() override
    {
        if (Send<std::int32_t>(Native(), TCM_GETCURSEL) != m_control.Selected())
            Send(Native(), TCM_SETCURSEL, static_cast<WPARAM>(m_control.Selected()));
    }
    // Beside the tabs what lies behind shines through.
    std::optional<LRESULT> Filter(HWND, const Message& message) override
    {
        if (message.code != WM_ERASEBKGND)
            return std::nullopt;
        const auto ground =
            reinterpret_cast<HBRUSH>(Send(GetParent(Native()), WM_CTLCOLORSTATIC, message.w, ToParam(Native())));
        const SIZE inside = InsideOf(Native());
        const RECT all = {0, 0, inside.cx, inside.cy};
        FillRect(reinterpret_cast<HDC>(message.w), &all, ground);
        return 1;
    }
};

struct DestroyImages {
    void operator()(HIMAGELIST images) const { ImageList_Destroy(images); }
};
using Images = std::unique_ptr<std::remove_pointer_t<HIMAGELIST>, DestroyImages>;

// The text of a button is for screen readers and the tool tip; only the picture is shown.
class CToolBarPeer final : public CPeerOf<ui::CToolBar> {
public:
    CToolBarPeer(const Place& place, ui::CControl& control, const ui::layout::Row& row, HWND native)
        : CPeerOf(place, control, row, native)
    {
        SetTextOf(native, std::string(row.spoken));
        Send(native, TB_BUTTONSTRUCTSIZE, sizeof(TBBUTTON));
        Send(native, TB_SETEXTENDEDSTYLE, 0, TBSTYLE_EX_MIXEDBUTTONS);
        for (std::size_t index = 0; index < Buttons().count; ++index)
            AddButton(static_cast<int>(index));
    }
    ~CToolBarPeer() override { Send(Native(), TB_SETIMAGELIST); }
    void Commanded(int, int id) override
    {
        m_control.Click(m_control.Keys().at(static_cast<std::size_t>(id - FirstToolButtonId)));
    }
    LRESULT Notified(const NMHDR& header) override
    {
        if (header.code != TBN_GETINFOTIPW)
            return 0;
        const auto& info = reinterpret_cast<const NMTBGETINFOTIPW&>(header);
        const std::string tip(Buttons().first[info.iItem - FirstToolButtonId].toolTip);
        lstrcpynW(info.pszText, ToWide(tip).c_str(), info.cchTextMax);
        return 0;
    }
    void Dress(HFONT font, int dpi) override;
    bool Pressed(WPARAM key) override { return key == VK_RETURN && PressHot(); }

private:
    static ui::layout::Table<ui::layout::ToolButton> Buttons() { return ui::layout::ToolBarButtons(); }
    void AddButton(int index)
    {
        const std::wstring text = ToWide(std::string(Buttons().first[index].toolTip));
        TBBUTTON button = {};
        button.iBitmap = index;
        button.idCommand = FirstToolButtonId + index;
        button.fsState = TBSTATE_ENABLED;
        button.fsStyle = BTNS_BUTTON;
        button.iString = reinterpret_cast<INT_PTR>(text.c_str());
        Send(Native(), TB_ADDBUTTONSW, 1, ToParam(&button));
    }
    int Hot() const { return Send<int>(Native(), TB_GETHOTITEM); }
    void SetHot(int index) { Send(Native(), TB_SETHOTITEM, static_cast<WPARAM>(index)); }
    bool PressHot()
    {
        if (Hot() >= 0)
            Commanded(0, FirstToolButtonId + Hot());
        return true;
    }
    // The keys of a tool bar, which older systems leave to nobody.
    std::optional<LRESULT> Filter(HWND, const Message& message) override;
    Images m_images;
};

// Drawn only where the resources do not have them.
void AddPictures(HIMAGELIST images, int pixels)
{
    const COLORREF ink = GetSysColor(COLOR_BTNTEXT);
    if (const Gdi<HBITMAP> strip = pictures::ToolBarStrip(pixels, ink)) {
        ImageList_Add(images, strip.get(), nullptr);
        return;
    }
    for (const ui::layout::ToolButton& look : ui::layout::ToolBarButtons())
        ImageList_Add(images, pictures::Draw(look.picture, {pixels, pixels}, ink).get(), nullptr);
}

void CToolBarPeer::Dress(HFONT font, int dpi)
{
    constexpr int Picture = 20, Padding = 6;
    CPeer::Dress(font, dpi);
    const int pixels = Scaled(Picture, dpi), button = pixels + Scaled(Padding, dpi);
    Images images(ImageList_Create(pixels, pixels, ILC_COLOR32, static_cast<int>(Buttons().count), 1));
    AddPictures(images.get(), pixels);
    Send(Native(), TB_SETIMAGELIST, 0, ToParam(images.get()));
    m_images = std::move(images);
    Send(Native(), TB_SETBUTTONSIZE, 0, MAKELPARAM(button, button));
}

std::optional<LRESULT> CToolBarPeer::Filter(HWND, const Message& message)
{
    const int last = static_cast<int>(Buttons().count) - 1;
    if (message.code == WM_GETDLGCODE)
        return DLGC_WANTARROWS | DLGC_WANTCHARS;
    if (message.code == WM_SETFOCUS && Hot() < 0)
        SetHot(0);
    if (message.code == WM_KILLFOCUS)
        SetHot(-1);
    if (message.code != WM_KEYDOWN)
        return std::nullopt;
    switch (message.w) {
    case VK_LEFT:
        SetHot(Hot() > 0 ? Hot() - 1 : last);
        return 0;
    case VK_RIGHT:
        SetHot(Hot() < last ? Hot() + 1 : 0);
        return 0;
    case VK_SPACE:
        PressHot();
        return 0;
    default:
        return std::nullopt;
    }
}

class CStatusPeer final : public CPeerOf<ui::CStatusBar> {
public:
    using CPeerOf::CPeerOf;

private:
    void MirrorOwn() override
    {
        const std::wstring text = ToWide(m_control.Text());
        const auto length = static_cast<std::size_t>(LOWORD(Send<DWORD>(Native(), SB_GETTEXTLENGTHW)));
        std::wstring shown(length + 1, L'\0');
        Send(Native(), SB_GETTEXTW, 0, ToParam(shown.data()));
        shown.resize(length);
        if (shown != text)
            Send(Native(), SB_SETTEXTW, SBT_NOBORDERS, ToParam(text.c_str()));
    }
};

constexpr DWORD OurPlaces = CCS_NORESIZE | CCS_NOPARENTALIGN | CCS_NODIVIDER;

}

std::unique_ptr<CPeer> MakeBarPeer(const Place& place, ui::CControl& control, const ui::layout::Row& row)
{
    switch (row.kind) {
    case Kind::TabStrip:
        return std::make_unique<CTabPeer>(place, control, row,
                                          MakeChild(place.parent, WC_TABCONTROLW, WS_TABSTOP | WS_CLIPSIBLINGS, place.id));
    case Kind::ToolBar:
        return std::make_unique<CToolBarPeer>(
            place, control, row,
            MakeChild(place.parent, TOOLBARCLASSNAMEW,
                      OurPlaces | TBSTYLE_FLAT | TBSTYLE_TRANSPARENT | TBSTYLE_LIST | TBSTYLE_TOOLTIPS | WS_TABSTOP,
                      place.id));
    case Kind::StatusBar:
        return std::make_unique<CStatusPeer>(
            place, control, row, MakeChild(place.parent, STATUSCLASSNAMEW, OurPlaces | SBARS_SIZEGRIP, place.id));
    default:
        return nullptr;
    }
}

}
