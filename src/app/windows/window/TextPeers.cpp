#include "app/windows/window/Peer.h"
#include "app/windows/window/TextUnits.h"
#include "platform/text/Encoding.h"
#include "platform/windows/Text.h"
#include <algorithm>

namespace appwindows {
namespace {

using platform::windowsdesktop::FromWide;
using platform::windowsdesktop::ToWide;
using ui::layout::Kind;

constexpr WPARAM LongestText = 0x7FFFFFFE;
constexpr DWORD LineStyle = ES_AUTOHSCROLL;
constexpr DWORD AreaStyle = ES_MULTILINE | ES_AUTOVSCROLL | ES_WANTRETURN | WS_VSCROLL;

std::wstring WideTextOf(HWND edit)
{
    std::wstring text(static_cast<std::size_t>(GetWindowTextLengthW(edit)) + 1, L'\0');
    text.resize(static_cast<std::size_t>(GetWindowTextW(edit, text.data(), static_cast<int>(text.size()))));
    return text;
}

// A box of one or of several lines. The native one keeps the text, as the user sees it.
class CTextPeer final : public CPeerOf<ui::CTextBox> {
public:
    CTextPeer(const Place& place, ui::CControl& control, const ui::layout::Row& row, HWND native)
        : CPeerOf(place, control, row, native)
    {
        Send(native, EM_SETLIMITTEXT, LongestText);
        m_control.SetKeeper(Keeper());
    }
    ~CTextPeer() override { m_control.SetKeeper({}); }
    void Commanded(int code, int) override
    {
        if (code == EN_CHANGE && !m_putting)
            m_control.Edited();
        else if (code == EN_KILLFOCUS)
            m_control.Commit();
    }
    bool Pressed(WPARAM key) override
    {
        if (key != VK_RETURN)
            return false;
        if (Look().kind == Kind::TextBox)
            m_control.Commit();
        return Look().kind == Kind::TextBox;
    }
    // A click puts the caret where it was, but only after the focus has come.
    void Entered() override { m_control.Enter(); }
    void MoveTo(const Rectangle& place) override;

private:
    std::optional<LRESULT> Filter(HWND, const Message& message) override
    {
        if (message.code != WM_CHAR || message.w != 1)  // Ctrl+A, which older systems lack.
            return std::nullopt;
        Send(Native(), EM_SETSEL, 0, -1);
        return 0;
    }
    std::pair<std::size_t, std::size_t> NativeSelection() const
    {
        DWORD from = 0, to = 0;
        Send(Native(), EM_GETSEL, reinterpret_cast<WPARAM>(&from), ToParam(&to));
        return {from, to};
    }
    ui::CTextBox::Keeper Keeper();
    void Put(const std::string& text)
    {
        m_putting = true;
        SetWindowTextW(Native(), ToWide(platform::text::WithCrLf(text)).c_str());
        m_putting = false;
        Send(Native(), EM_SETSEL, 0, 0);
    }
    bool m_putting = false;
};

// A line stands in the middle of its place, as high as the boxes with a list.
void CTextPeer::MoveTo(const Rectangle& place)
{
    constexpr int BoxHeight = 8;  // Its border, which does not grow with the resolution.
    Rectangle own = place;
    if (Look().kind == Kind::TextBox) {
        const CMemoryDc dc;
        const CSelected font(dc.Get(), reinterpret_cast<HGDIOBJ>(Send(Native(), WM_GETFONT)));
        own.height = std::min(place.height, static_cast<int>(ExtentOf(dc.Get(), "A").cy) + BoxHeight);
        own.y += (place.height - own.height) / 2;
    }
    CPeer::MoveTo(own);
}

ui::CTextBox::Keeper CTextPeer::Keeper()
{
    ui::CTextBox::Keeper keeper;
    keeper.put = [this](const std::string& text) { Put(text); };
    keeper.text = [this] { return FromWide(WideTextOf(Native())); };
    keeper.isEmpty = [this] { return GetWindowTextLengthW(Native()) == 0; };
    keeper.select = [this](ui::TextSelection selection) {
        const std::wstring text = WideTextOf(Native());
        const std::size_t from = IndexOfCharacter(text, selection.start);
        const std::size_t to = IndexOfCharacter(text, selection.start + selection.length);
        Send(Native(), EM_SETSEL, from, static_cast<LPARAM>(to));
    };
    keeper.selection = [this] {
        const std::wstring text = WideTextOf(Native());
        const auto [from, to] = NativeSelection();
        const std::int32_t start = CharactersIn(std::wstring_view(text).substr(0, from));
        return ui::TextSelection{start, CharactersIn(std::wstring_view(text).substr(0, to)) - start};
    };
    keeper.selectedText = [this] {
        const std::wstring text = WideTextOf(Native());
        const auto [from, to] = NativeSelection();
        return FromWide(std::wstring_view(text).substr(from, to - from));
    };
    return keeper;
}

HWND MakeNative(const Place& place, Kind kind)
{
    const DWORD style = kind == Kind::TextArea ? AreaStyle : LineStyle;
    return MakeChild(place.parent, WC_EDITW, style | WS_TABSTOP, place.id, WS_EX_CLIENTEDGE);
}

}

std::unique_ptr<CPeer> MakeTextPeer(const Place& place, ui::CControl& control, const ui::layout::Row& row)
{
    if (row.kind != Kind::TextBox && row.kind != Kind::TextArea)
        return nullptr;
    return std::make_unique<CTextPeer>(place, control, row, MakeNative(place, row.kind));
}

}
