#include "app/windows/editor/RichText.h"
#include "app/windows/window/Peer.h"
#include "platform/text/Encoding.h"
#include "platform/windows/Text.h"
#include "settings/bOptions.h"
#include <algorithm>

namespace appwindows {
namespace {

constexpr DWORD Style = ES_MULTILINE | ES_AUTOVSCROLL | ES_NOHIDESEL | ES_WANTRETURN | WS_VSCROLL | WS_TABSTOP;

// The text editor: a native rich-text box that keeps a plain text in the control's place.
class CEditorPeer final : public CPeerOf<ui::CTextBox> {
public:
    CEditorPeer(const Place& place, ui::CControl& control, const ui::layout::Row& row, HWND native);
    ~CEditorPeer() override { m_control.SetKeeper({}); }
    void Commanded(int code, int) override
    {
        if (code == EN_CHANGE && !m_quiet)
            m_control.Edited();
        else if (code == EN_KILLFOCUS)
            m_control.Commit();
    }
    bool TypesTabs() const override { return true; }
    void Entered() override { m_control.Enter(); }
    void Dress(HFONT font, int dpi) override
    {
        const bool former = std::exchange(m_quiet, true);
        CPeer::Dress(font, dpi);
        Send(Native(), EM_EMPTYUNDOBUFFER);
        m_quiet = former;
    }

private:
    std::optional<LRESULT> Filter(HWND, const Message& message) override;
    ui::CTextBox::Keeper Keeper();
    CHARRANGE NativeSelection() const
    {
        CHARRANGE range = {};
        Send(Native(), EM_EXGETSEL, 0, ToParam(&range));
        return range;
    }
    void SelectUnits(LONG from, LONG to)
    {
        CHARRANGE range = {from, to};
        Send(Native(), EM_EXSETSEL, 0, ToParam(&range));
        Send(Native(), EM_SCROLLCARET);
    }
    void OpenDropped(HDROP files);
    bool m_quiet = false;  // What happens is the program's doing.
};

CEditorPeer::CEditorPeer(const Place& place, ui::CControl& control, const ui::layout::Row& row, HWND native)
    : CPeerOf(place, control, row, native)
{
    Send(native, EM_SETTEXTMODE, TM_PLAINTEXT | TM_MULTILEVELUNDO | TM_MULTICODEPAGE);
    Send(native, EM_EXLIMITTEXT, 0, 0x7FFFFFFE);
    Send(native, EM_SETEVENTMASK, 0, ENM_CHANGE);
    RevokeDragDrop(native);  // Its own target would lay a dropped file into the text.
    DragAcceptFiles(native, TRUE);
    m_control.SetKeeper(Keeper());
}

ui::CTextBox::Keeper CEditorPeer::Keeper()
{
    ui::CTextBox::Keeper keeper;
    keeper.put = [this](std::string text) {
        m_quiet = true;
        richText::Put(Native(), platform::text::WithCrLf(std::move(text)));
        m_quiet = false;
    };
    keeper.text = [this] { return richText::Part(Native(), 0, richText::UnitCount(Native())); };
    keeper.isEmpty = [this] { return richText::UnitCount(Native()) == 0; };
    keeper.select = [this](ui::TextSelection selection) {
        SelectUnits(richText::UnitOfCharacter(Native(), selection.start),
                    richText::UnitOfCharacter(Native(), selection.start + selection.length));
    };
    keeper.selection = [this] {
        const CHARRANGE range = NativeSelection();
        const std::int32_t start = richText::CharacterOfUnit(Native(), range.cpMin);
        return ui::TextSelection{start, richText::CharacterOfUnit(Native(), range.cpMax) - start};
    };
    keeper.selectedText = [this] {
        const CHARRANGE range = NativeSelection();
        return richText::Part(Native(), range.cpMin, range.cpMax);
    };
    return keeper;
}

std::optional<LRESULT> CEditorPeer::Filter(HWND, const Message& message)
{
    const bool control = GetKeyState(VK_CONTROL) < 0;
    if (message.code == WM_DROPFILES) {
        OpenDropped(reinterpret_cast<HDROP>(message.w));
        return 0;
    }
    if (message.code == WM_NCPAINT) {  // Its scroll bar, too.
        const LRESULT painted = DefSubclassProc(Native(), message.code, message.w, message.l);
        DrawThinBorder(Native());
        return painted;
    }
    if (message.code == WM_KEYDOWN && message.w == 'A' && control && GetKeyState(VK_MENU) >= 0) {
        SelectUnits(0, richText::UnitCount(Native()));
        return 0;
    }
    if (message.code == WM_KEYDOWN && message.w == VK_TAB && control) {
        Send(Native(), EM_REPLACESEL, TRUE, ToParam(L"\t"));
        return 0;
    }
    return std::nullopt;
}

void CEditorPeer::OpenDropped(HDROP files)
{
    std::wstring path(DragQueryFileW(files, 0, nullptr, 0) + std::size_t{1}, L'\0');
    path.resize(DragQueryFileW(files, 0, path.data(), static_cast<UINT>(path.size())));
    DragFinish(files);
    if (!path.empty())
        bOptions::OpenFile(platform::windowsdesktop::FromWide(path));
}

// The library that brings the native box. It stays.
void NeedRichText()
{
    static const HMODULE library = LoadLibraryW(L"msftedit.dll");
    (void)library;
}

}

std::unique_ptr<CPeer> MakeEditorPeer(const Place& place, ui::CControl& control, const ui::layout::Row& row)
{
    if (row.kind != ui::layout::Kind::Editor)
        return nullptr;
    NeedRichText();
    return std::make_unique<CEditorPeer>(place, control, row,
                                         MakeChild(place.parent, L"RICHEDIT50W", Style, place.id, WS_EX_CLIENTEDGE));
}

}
