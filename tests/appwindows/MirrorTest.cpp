#include "Mirror.h"
#include "app/windows/ControlIds.h"

// Each kind of control both ways: what the program sets is shown, what the user does is reported.
namespace {
using appwindows::Send;
using appwindows::TextOf;
using appwindows::ToParam;
using platform::windowsdesktop::FromWide;
}

TEST_F(Mirror, Control_OfEveryRow_HasItsNumber)
{
    for (int tab = 0; tab < 7; ++tab)
        shown.Visit(tab);
    int id = 1000;
    for (const ui::layout::Row& row : ui::layout::MainWindowLayout().rows) {
        const std::string name(row.control);
        EXPECT_EQ(GetDlgCtrlID(shown.Native(name.c_str())), id) << name;
        EXPECT_EQ(appwindows::IdOf(ui::layout::MainWindowLayout(), name), id) << name;
        ++id;
    }
}

TEST_F(Mirror, CheckBox_SetByTheProgram_IsShown)
{
    shown.form.chkShowSplash.SetValue(1);
    shown.Turn();

    EXPECT_EQ(Send(shown.Native("chkShowSplash"), BM_GETCHECK), BST_CHECKED);
}

TEST_F(Mirror, CheckBox_TickedByTheUser_RunsItsClickOnce)
{
    int clicks = 0;
    shown.form.chkShowSplash.onClick = [&] { ++clicks; };
    Click("chkShowSplash");

    EXPECT_EQ(shown.form.chkShowSplash.Value(), 1);
    EXPECT_EQ(clicks, 1);
}

TEST_F(Mirror, CheckBox_ThatItsClickTakesBack_IsShownCleared)
{
    shown.form.chkShowSplash.onClick = [&] {
        shown.form.chkShowSplash.onClick = {};
        shown.form.chkShowSplash.SetValue(0);
    };
    Click("chkShowSplash");

    EXPECT_EQ(Send(shown.Native("chkShowSplash"), BM_GETCHECK), BST_UNCHECKED);
}

TEST_F(Mirror, CheckBox_SpacePressed_IsTicked)
{
    shown.form.chkShowSplash.SetFocus();
    shown.Turn();
    shown.Press(VK_SPACE);

    EXPECT_TRUE(shown.form.chkShowSplash.Ticked());
}

TEST_F(Mirror, Button_PressedByTheUser_IsClicked)
{
    int clicks = 0;
    shown.form.cmdReadClipboard.onClick = [&] { ++clicks; };
    Click("cmdReadClipboard");

    EXPECT_EQ(clicks, 1);
}

TEST_F(Mirror, Button_CaptionChanged_IsShown)
{
    shown.form.cmdReadClipboard.SetCaption("Read \xC5\x81ukasz");
    shown.Turn();

    EXPECT_EQ(TextOf(shown.Native("cmdReadClipboard")), "Read \xC5\x81ukasz");
}

TEST_F(Mirror, Combo_TextOfTheProgram_NeedsNoEntry)
{
    shown.form.cboSayTimeFormat.SetText("hh o'clock");
    shown.Turn();

    EXPECT_EQ(TextOf(shown.Native("cboSayTimeFormat")), "hh o'clock");
    EXPECT_EQ(Send(shown.Native("cboSayTimeFormat"), CB_GETCURSEL), -1);
}

TEST_F(Mirror, Combo_TypedByTheUser_ChangesTheTextOncePerKey)
{
    int changes = 0;
    shown.form.cboSayTimeInterval.SetText("");
    shown.Turn();
    shown.form.cboSayTimeInterval.onChange = [&] { ++changes; };
    Type(EditOf("cboSayTimeInterval"), L"45");

    EXPECT_EQ(shown.form.cboSayTimeInterval.Text(), "45");
    EXPECT_EQ(changes, 2);
}

TEST_F(Mirror, Combo_TypedIntoTheMiddle_KeepsTheCaretThere)
{
    shown.form.cboSayTimeFormat.SetText("hnn");
    shown.Turn();
    HWND edit = EditOf("cboSayTimeFormat");
    Send(edit, EM_SETSEL, 1, 1);
    Type(edit, L":");

    DWORD from = 0, to = 0;
    Send(edit, EM_GETSEL, reinterpret_cast<WPARAM>(&from), ToParam(&to));
    EXPECT_EQ(shown.form.cboSayTimeFormat.Text(), "h:nn");
    EXPECT_EQ(shown.form.cboSayTimeFormat.Index(), 1);
    EXPECT_EQ(from, 2U);
    EXPECT_EQ(to, 2U);
}

TEST_F(Mirror, Combo_EntryChosenByTheUser_RunsItsClickOnce)
{
    int clicks = 0;
    shown.form.cboSayTime.onClick = [&] { ++clicks; };
    Choose(shown.Native("cboSayTime"), CB_SETCURSEL, 0, CBN_SELCHANGE);

    EXPECT_EQ(shown.form.cboSayTime.Index(), 0);
    EXPECT_EQ(shown.form.cboSayTime.Text(), "The time is now {Time}.");
    EXPECT_EQ(TextOf(shown.Native("cboSayTime")), "The time is now {Time}.");
    EXPECT_EQ(clicks, 1);
}

TEST_F(Mirror, Combo_DownKey_ChoosesTheFirstEntry)
{
    shown.form.cboSayTime.SetFocus();
    shown.Turn();
    shown.Press(VK_DOWN);

    EXPECT_EQ(shown.form.cboSayTime.Text(), "The time is now {Time}.");
}

TEST_F(Mirror, Combo_WheelPassingOverIt_ChoosesNothing)
{
    Send(shown.Native("cboSayTime"), WM_MOUSEWHEEL, static_cast<WPARAM>(MAKELONG(0, -120)));
    shown.Turn();

    EXPECT_EQ(shown.form.cboSayTime.Text(), "The time is now {Time}");
}

TEST_F(Mirror, DropDownList_WithoutSelection_ShowsNone)
{
    shown.Visit(2);
    shown.form.cboChr.SetIndex(2);
    shown.form.cboChr.SetIndex(-1);
    shown.Turn();

    EXPECT_EQ(Send(shown.Native("cboChr"), CB_GETCURSEL), -1);
    EXPECT_EQ(TextOf(shown.Native("cboChr")), "");
}

TEST_F(Mirror, DropDownList_EntryChosenByTheUser_IsSelected)
{
    shown.Visit(2);
    Choose(shown.Native("cboChr"), CB_SETCURSEL, 3, CBN_SELCHANGE);

    EXPECT_EQ(shown.form.cboChr.Index(), 3);
}

TEST_F(Mirror, Combo_ListFilledAnew_ShowsTheNewEntries)
{
    shown.form.cboSayTimeFormat.Clear();
    shown.form.cboSayTimeFormat.Add("one");
    shown.form.cboSayTimeFormat.Add("two");
    shown.Turn();

    EXPECT_EQ(Send(shown.Native("cboSayTimeFormat"), CB_GETCOUNT), 2);
    EXPECT_EQ(EntryOf("cboSayTimeFormat", 1), "two");
    EXPECT_EQ(TextOf(shown.Native("cboSayTimeFormat")), "h:mm AM/PM");
}

TEST_F(Mirror, List_FilledWithFiveHundredEntries_IsShownInOneTurn)
{
    shown.Visit(3);
    shown.form.cboFontName.Clear();
    for (int font = 0; font < 500; ++font)
        shown.form.cboFontName.Add("Family " + std::to_string(font));
    EXPECT_EQ(Send(shown.Native("cboFontName"), CB_GETCOUNT), 5);
    shown.Turn();

    EXPECT_EQ(Send(shown.Native("cboFontName"), CB_GETCOUNT), 500);
    EXPECT_EQ(EntryOf("cboFontName", 499), "Family 499");
}

TEST_F(Mirror, ListBox_RowChosenByTheUser_IsSelected)
{
    shown.Visit(2);
    Choose(shown.Native("lstTTS"), LB_SETCURSEL, 7, LBN_SELCHANGE);

    EXPECT_EQ(shown.form.lstTTS.Index(), 7);
}

TEST_F(Mirror, ListBox_SelectedByTheProgram_IsShownAndRunsNoSecondClick)
{
    int clicks = 0;
    shown.Visit(2);
    shown.form.lstTTS.onClick = [&] { ++clicks; };
    shown.form.lstTTS.SetIndex(100);
    shown.Turn();

    EXPECT_EQ(Send(shown.Native("lstTTS"), LB_GETCURSEL), 100);
    EXPECT_EQ(clicks, 1);
}

TEST_F(Mirror, ListBox_DoubleClick_IsReported)
{
    int doubleClicks = 0;
    shown.Visit(2);
    shown.form.lstTTS.onDoubleClick = [&] { ++doubleClicks; };
    HWND list = shown.Native("lstTTS");
    for (const auto code : {UINT{WM_LBUTTONDOWN}, UINT{WM_LBUTTONUP}, UINT{WM_LBUTTONDBLCLK}, UINT{WM_LBUTTONUP}})
        Send(list, code, code == WM_LBUTTONUP ? 0 : MK_LBUTTON, MAKELPARAM(20, 20));
    shown.Turn();

    EXPECT_EQ(doubleClicks, 1);
}

TEST_F(Mirror, Slider_MovedByTheUser_ChangesItsValue)
{
    shown.form.tabTTS.Select(1);
    shown.Visit(2);
    Send(shown.Native("sldAdvSpeak(0)"), WM_KEYDOWN, VK_RIGHT);
    shown.Turn();

    EXPECT_EQ(shown.form.sldAdvSpeak[0].Value(), 103);
}

TEST_F(Mirror, Slider_SetByTheProgram_IsShownAndReportsNothing)
{
    int changes = 0;
    shown.Visit(2);
    shown.form.sldAdvSpeak[2].onChange = [&] { ++changes; };
    shown.form.sldAdvSpeak[2].SetValue(65535);
    shown.Turn();

    EXPECT_EQ(Send(shown.Native("sldAdvSpeak(2)"), TBM_GETPOS), 65535);
    EXPECT_EQ(changes, 1);
}

TEST_F(Mirror, Progress_OfTheVoices_IsShown)
{
    shown.Visit(2);
    shown.form.pbrTTSEngines.SetMaximum(131);
    shown.form.pbrTTSEngines.SetValue(48);
    shown.form.pbrTTSEngines.SetVisible(true);
    shown.form.lblTTSEngines.SetVisible(true);
    shown.Turn();

    EXPECT_EQ(Send(shown.Native("pbrTTSEngines"), PBM_GETPOS), 48);
    EXPECT_EQ(Send(shown.Native("pbrTTSEngines"), PBM_GETRANGE, FALSE), 131);
    EXPECT_TRUE(IsWindowVisible(shown.Native("lblTTSEngines")));
}

TEST_F(Mirror, Tab_ChosenByTheUser_IsSelectedOnce)
{
    int clicks = 0;
    shown.form.tabMain.onClick = [&] { ++clicks; };
    Send(shown.Native("tabMain"), TCM_SETCURFOCUS, 5);
    shown.Turn();

    EXPECT_EQ(shown.form.tabMain.Selected(), 5);
    EXPECT_EQ(clicks, 1);
    EXPECT_TRUE(IsWindowVisible(shown.Native("txtUserName")));
    EXPECT_FALSE(IsWindowVisible(shown.Native("chkShowSplash")));
}

TEST_F(Mirror, Page_NotYetVisited_IsNotMade)
{
    EXPECT_EQ(shown.Native("cboChar"), nullptr);
    shown.Visit(1);
    EXPECT_NE(shown.Native("cboChar"), nullptr);
    EXPECT_EQ(shown.Native("lstTTS"), nullptr);
}

TEST_F(Mirror, Label_CaptionAndStyle_AreShown)
{
    shown.Visit(3);
    shown.form.lblFontDisplay.SetStyle({.fontName = "Tahoma", .fontSize = 20, .bold = true});
    shown.form.lblFontDisplay.SetCaption("New & old");
    shown.Turn();
    HWND label = shown.Native("lblFontDisplay");
    LOGFONTW font = {};
    GetObjectW(reinterpret_cast<HGDIOBJ>(Send(label, WM_GETFONT)), sizeof font, &font);

    EXPECT_EQ(TextOf(label), "New & old");
    EXPECT_TRUE(GetWindowLongPtrW(label, GWL_STYLE) & SS_NOPREFIX);
    EXPECT_EQ(FromWide(font.lfFaceName), "Tahoma");
    EXPECT_EQ(font.lfHeight, -27);
    EXPECT_EQ(font.lfWeight, 700);
}

TEST_F(Mirror, Link_Clicked_IsReported)
{
    int clicks = 0;
    shown.form.lblURL[1].onClick = [&] { ++clicks; };
    shown.Visit(6);
    Click("lblURL(1)");

    EXPECT_EQ(clicks, 1);
}

TEST_F(Mirror, Link_ReturnPressed_IsClicked)
{
    int clicks = 0;
    shown.form.lblURL[1].onClick = [&] { ++clicks; };
    shown.Visit(6);
    shown.form.lblURL[1].SetFocus();
    shown.Turn();
    shown.Press(VK_RETURN);

    EXPECT_EQ(clicks, 1);
}

TEST_F(Mirror, Picture_SpacePressed_IsClicked)
{
    int clicks = 0;
    shown.form.imgParlune.onClick = [&] { ++clicks; };
    shown.Visit(6);
    shown.form.imgParlune.SetFocus();
    shown.Turn();
    shown.Press(VK_SPACE);

    EXPECT_EQ(clicks, 1);
}

TEST_F(Mirror, ToolBar_Button_IsReportedByItsKey)
{
    std::string pressed;
    shown.form.tlbToolbar.onButtonClick = [&](const std::string& key) { pressed += key; };
    shown.Visit(4);
    HWND bar = shown.Native("tlbToolbar");
    for (int button = 0; button < 5; ++button) {
        RECT place = {};
        Send(bar, TB_GETITEMRECT, static_cast<WPARAM>(button), ToParam(&place));
        const LPARAM middle = MAKELPARAM((place.left + place.right) / 2, (place.top + place.bottom) / 2);
        Send(bar, WM_LBUTTONDOWN, MK_LBUTTON, middle);
        Send(bar, WM_LBUTTONUP, 0, middle);
        shown.Turn();
    }

    EXPECT_EQ(pressed, "NEWOPENSAVEREADSTOP");
}

TEST_F(Mirror, ToolBar_Keys_WalkAndPress)
{
    std::string pressed;
    shown.form.tlbToolbar.onButtonClick = [&](const std::string& key) { pressed += key; };
    shown.Visit(4);
    shown.form.tlbToolbar.SetFocus();
    shown.Turn();
    shown.Press(VK_RIGHT);
    shown.Press(VK_SPACE);
    shown.Press(VK_LEFT);
    shown.Press(VK_LEFT);
    shown.Press(VK_RETURN);

    EXPECT_EQ(pressed, "OPENSTOP");
}

TEST_F(Mirror, StatusBar_Text_IsShown)
{
    wchar_t text[200] = L"";
    shown.form.staStatus.SetText("Nibbin: reading");
    shown.Turn();
    Send(shown.Native("staStatus"), SB_GETTEXTW, 0, ToParam(text));

    EXPECT_EQ(FromWide(text), "Nibbin: reading");
}

TEST_F(Mirror, Frame_Disabled_KeepsTheKeyboardOut)
{
    shown.form.fraStartup.SetEnabled(false);
    shown.Turn();
    EXPECT_FALSE(IsWindowEnabled(shown.Native("chkShowSplash")));
    EXPECT_TRUE(shown.form.chkShowSplash.Enabled());

    shown.form.fraStartup.SetEnabled(true);
    shown.Turn();
    EXPECT_TRUE(IsWindowEnabled(shown.Native("chkShowSplash")));
}

TEST_F(Mirror, Frame_DisabledAroundATabStrip_DisablesWhatItsPagesHold)
{
    shown.Visit(2);
    shown.form.fraVoice.SetEnabled(false);
    shown.Turn();

    EXPECT_FALSE(IsWindowEnabled(shown.Native("tabTTS")));
    EXPECT_FALSE(IsWindowEnabled(shown.Native("lstTTS")));
}

TEST_F(Mirror, Frame_WithoutCaption_IsNotSeen)
{
    shown.Visit(2);

    EXPECT_FALSE(IsWindowVisible(shown.Native("fraVoice")));
    EXPECT_TRUE(IsWindowVisible(shown.Native("txtTestText")));
}

TEST_F(Mirror, Control_InvisibleOrDisabled_IsShownSo)
{
    shown.form.tabTTS.Select(1);
    shown.Visit(2);
    EXPECT_FALSE(IsWindowVisible(shown.Native("pbrTTSEngines")));

    shown.form.chkAdvSpkTags[3].SetEnabled(false);
    shown.Turn();
    EXPECT_FALSE(IsWindowEnabled(shown.Native("chkAdvSpkTags(3)")));
}

TEST_F(Mirror, ToolTip_OfAControl_IsKnownToTheSystem)
{
    shown.form.tabTTS.Select(1);
    shown.Visit(2);
    std::string found;
    HWND tips = nullptr;
    while ((tips = FindWindowExW(nullptr, tips, TOOLTIPS_CLASSW, nullptr)) != nullptr) {
        wchar_t text[100] = L"";
        TOOLINFOW tool = {};
        tool.cbSize = sizeof tool;
        tool.hwnd = shown.window.Native();
        tool.uId = reinterpret_cast<UINT_PTR>(shown.Native("chkAdvSpkTags(3)"));
        tool.lpszText = text;
        if (GetWindow(tips, GW_OWNER) == shown.window.Native())
            Send(tips, TTM_GETTEXTW, 100, ToParam(&tool));
        found += FromWide(text);
    }

    EXPECT_EQ(found, "Char (Chr)");
}

TEST_F(Mirror, SpokenName_OfAControlWithoutCaption_StandsBeforeIt)
{
    shown.form.tabTTS.Select(1);
    shown.Visit(2);
    const std::pair<const char*, const char*> named[] = {{"lstTTS", "TTS Voice"},
                                                         {"sldAdvSpeak(0)", "Pitch"},
                                                         {"cboChr", "Voice Characteristic"},
                                                         {"txtTestText", "Test Text"}};
    for (const auto& [control, name] : named)
        EXPECT_EQ(TextOf(GetWindow(shown.Native(control), GW_HWNDPREV)), name) << control;
}

TEST(MainWindow, Gone_LeavesTheControlsTheirTexts)
{
    FilledForm filled;
    {
        appwindows::CMainWindowPeer window(filled.form,
                                           {.isBusy = [] { return false; }, .unloaded = [] {}, .sessionEnds = [] {}});
        filled.form.tabMain.Select(5);
        filled.form.SetVisible(true);
    }
    filled.form.chkShowSplash.SetValue(1);
    filled.form.tabMain.Select(3);

    EXPECT_EQ(filled.form.txtUserName.Text(), "Ada");
    EXPECT_EQ(filled.form.chkShowSplash.Value(), 1);
}
