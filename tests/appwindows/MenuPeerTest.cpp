#include "app/windows/MenuPeer.h"
#include "FilledForm.h"
#include "app/windows/ControlIds.h"
#include "app/windows/window/TrayWindow.h"

namespace {

using appwindows::CommandOf;
using appwindows::Send;
using platform::windowsdesktop::FromWide;

std::string TextAt(HMENU menu, int position)
{
    wchar_t text[100] = L"";
    GetMenuStringW(menu, static_cast<UINT>(position), text, 100, MF_BYPOSITION);
    return FromWide(text);
}

std::string TextsOf(HMENU menu)
{
    std::string texts;
    for (int position = 0; position < GetMenuItemCount(menu); ++position) {
        const UINT state = GetMenuState(menu, static_cast<UINT>(position), MF_BYPOSITION);
        HMENU below = GetSubMenu(menu, position);
        texts += !below && (state & MF_SEPARATOR) ? "-" : TextAt(menu, position);
        texts += !below && (state & MF_CHECKED) ? " (ticked)" : "";
        texts += (state & MF_GRAYED) && (below || !(state & MF_SEPARATOR)) ? " (greyed)" : "";
        texts += below ? " [" + TextsOf(below) + "]" : "";
        texts += ", ";
    }
    return texts;
}

struct MenuPeer : testing::Test {
    FilledForm filled;
    frmParlune& form = filled.form;
    HMENU bar = nullptr;

    ~MenuPeer() override
    {
        if (bar)
            DestroyMenu(bar);
    }
    // The popup menu as it opens.
    HMENU Popup()
    {
        bar = appwindows::MakeMenuBar(form, {&form.mnuPopup});
        return GetSubMenu(bar, 0);
    }
};

}

TEST_F(MenuPeer, Bar_Whole_HasEveryEntryInOrder)
{
    bar = appwindows::MakeMenuBar(form, {&form.mnuFile, &form.mnuDownload, &form.frmHelp});

    EXPECT_EQ(TextsOf(bar), "&File [&New, &Open..., &Save, &Read, &Close, -, Sto&p, -, &Reset Defaults..., -, E&xit, ], "
                            "&Download [Characters..., TTS Voice Engines..., ], &Help [&About..., ], ");
}

TEST_F(MenuPeer, Popup_Whole_HasEveryEntryInOrder)
{
    EXPECT_EQ(TextsOf(Popup()),
              "Read &Clipboard, Read Text &File..., &Read Other [Word &Document, &Word Selection, &Excel "
              "Selection, ], -, Announce &Time, &Auto-Read Clipboard, -, &Options..., -, &Hide, Skip, &Pause, "
              "&Stop, -, &Exit Parlune, ");
}

TEST_F(MenuPeer, Entry_MadeInvisible_IsLeftOutAtTheNextOpening)
{
    HMENU popup = Popup();
    for (ui::CMenuItem* item :
         {&form.mnuPopReadClipboard, &form.mnuPopRead, &form.mnuPopSep1, &form.mnuPopSayTime, &form.mnuPopAutoReadClipboard,
          &form.mnuPopSep2, &form.mnuPopCharSkip, &form.mnuPopCharPause})
        item->SetVisible(false);
    form.mnuPopHide.SetCaption("&Show");
    appwindows::RefreshOpening(popup, form);

    EXPECT_EQ(TextsOf(popup), "Read Text &File..., &Options..., -, &Show, &Stop, -, &Exit Parlune, ");
}

TEST_F(MenuPeer, Entry_Ticked_IsShownTicked)
{
    form.mnuPopSayTime.SetChecked(true);

    EXPECT_NE(TextsOf(Popup()).find("Announce &Time (ticked), &Auto-Read Clipboard,"), std::string::npos);
}

TEST_F(MenuPeer, Entry_Disabled_IsGreyed)
{
    form.mnuPopCharStop.SetEnabled(false);

    EXPECT_NE(TextsOf(Popup()).find("&Stop (greyed), "), std::string::npos);
}

TEST_F(MenuPeer, SubMenu_WithEveryEntryInvisible_IsGreyed)
{
    for (ui::CMenuItem* item : {&form.mnuPopReadWordDocument, &form.mnuPopReadWordSelection, &form.mnuPopReadExcelSelection})
        item->SetVisible(false);

    EXPECT_NE(TextsOf(Popup()).find("&Read Other (greyed) [], "), std::string::npos);
}

TEST_F(MenuPeer, Entry_Chosen_IsClicked)
{
    int clicks = 0;
    form.mnuPopCharStop.onClick = [&] { ++clicks; };

    EXPECT_TRUE(appwindows::ClickEntry(form, CommandOf(form, "mnuPopCharStop")));
    EXPECT_EQ(clicks, 1);
}

TEST_F(MenuPeer, Number_OfNoEntry_ClicksNothing)
{
    EXPECT_FALSE(appwindows::ClickEntry(form, CommandOf(form, "chkShowSplash")));
    EXPECT_FALSE(appwindows::ClickEntry(form, 3));
    EXPECT_FALSE(appwindows::ClickEntry(form, 30000));
    EXPECT_EQ(CommandOf(form, "mnuNothing"), 0);
}

TEST(Menus, CommandSentToTheMainWindow_ClicksTheEntry)
{
    ShownWindow shown;
    int clicks = 0;
    shown.form.mnuFileNew.onClick = [&] { ++clicks; };
    Send(shown.window.Native(), WM_COMMAND, static_cast<WPARAM>(CommandOf(shown.form, "mnuFileNew")));

    EXPECT_EQ(clicks, 1);
}

TEST(Menus, MainWindow_Shown_HasItsBar)
{
    ShownWindow shown;

    EXPECT_EQ(GetMenuItemCount(GetMenu(shown.window.Native())), 3);
    EXPECT_EQ(TextAt(GetMenu(shown.window.Native()), 1), "&Download");
}

namespace {

// Chooses the entry with this access key as soon as a menu is open.
struct Chooser {
    static WPARAM key;
    static VOID CALLBACK Tick(HWND, UINT, UINT_PTR, DWORD)
    {
        GUITHREADINFO state = {};
        state.cbSize = sizeof state;
        if (key == 0 || !GetGUIThreadInfo(GetCurrentThreadId(), &state) || !(state.flags & GUI_INMENUMODE))
            return;
        if (const WPARAM chosen = std::exchange(key, 0); chosen == VK_ESCAPE)
            EndMenu();
        else
            PostMessageW(state.hwndMenuOwner, WM_CHAR, chosen, 1);
    }
    explicit Chooser(WPARAM chosen) { key = chosen; }
    ~Chooser() { KillTimer(nullptr, timer); }
    Chooser(const Chooser&) = delete;
    Chooser& operator=(const Chooser&) = delete;
    UINT_PTR timer = SetTimer(nullptr, 0, 10, Tick);
};
WPARAM Chooser::key = 0;

}

TEST(Menus, PopupOfTheHiddenTrayWindow_EntryChosen_IsClicked)
{
    ShownWindow shown;
    frmSysTray trayForm;
    const appwindows::CTrayWindow tray(trayForm, shown.form, [](const appwindows::Message&) { return false; });
    int clicks = 0;
    shown.form.mnuPopCharStop.onClick = [&] { ++clicks; };
    const Chooser chooser('S');
    trayForm.BringToFront();
    trayForm.PopUpMenu(shown.form.mnuPopup);
    trayForm.PostEmptyMessage();
    shown.Turn();

    EXPECT_EQ(clicks, 1);
    EXPECT_FALSE(IsWindowVisible(tray.Native()));
}

TEST(Menus, Popup_ClosedWithoutAChoice_OpensAgain)
{
    ShownWindow shown;
    int clicks = 0;
    shown.form.mnuPopCharStop.onClick = [&] { ++clicks; };
    {
        const Chooser chooser(VK_ESCAPE);
        shown.form.PopUpMenu(shown.form.mnuPopup);
        shown.Turn();
    }
    EXPECT_EQ(clicks, 0);
    const Chooser chooser('S');
    shown.form.PopUpMenu(shown.form.mnuPopup);
    shown.Turn();

    EXPECT_EQ(clicks, 1);
}

TEST(Menus, PopupWithoutAnyEntry_DoesNotOpen)
{
    ShownWindow shown;
    for (ui::CMenuItem* item : shown.form.mnuPopup.Items())
        item->SetVisible(false);
    shown.form.PopUpMenu(shown.form.mnuPopup);

    EXPECT_TRUE(IsWindowVisible(shown.window.Native()));
}
