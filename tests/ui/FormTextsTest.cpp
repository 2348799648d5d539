#include "ui/frmParlune.h"
#include "ui/frmSplash.h"
#include "ui/frmSysTray.h"
#include "ui/layout/FormLayout.h"
#include <gtest/gtest.h>

// Every fixed text, tool tip, first text and design state of the windows, written out by hand: whoever changes one has to
// change it here, too, and to know why.

namespace {

std::string Quoted(const std::string& text) { return "\"" + text + "\""; }

std::string Joined(const std::vector<std::string>& texts)
{
    std::string joined;
    for (const std::string& text : texts)
        joined += (joined.empty() ? "" : "|") + text;
    return joined;
}

std::string MenuOf(const ui::CMenuItem& item)
{
    std::vector<std::string> names;
    for (const ui::CMenuItem* below : item.Items())
        names.push_back(below->Name());
    return "menu " + Quoted(item.Caption()) + (item.Checked() ? ", checked" : "") +
           (names.empty() ? "" : ": " + Joined(names));
}

std::string Number(std::int32_t number) { return std::to_string(number); }

// The control's kind, its caption or first text, and what else its kind holds.
std::string Contents(const ui::CControl& control)
{
    if (const auto* box = dynamic_cast<const ui::CCheckBox*>(&control))
        return "box " + Quoted(box->Caption()) + (box->Value() == 1 ? " on" : box->Value() == 0 ? " off" : " neither");
    if (const auto* text = dynamic_cast<const ui::CTextBox*>(&control))
        return "text " + Quoted(text->Text());
    if (const auto* combo = dynamic_cast<const ui::CComboBox*>(&control))
        return "combo " + Quoted(combo->Text()) + " of " + Number(combo->Count());
    if (const auto* list = dynamic_cast<const ui::CListBox*>(&control))
        return "list of " + Number(list->Count());
    if (const auto* slider = dynamic_cast<const ui::CSlider*>(&control))
        return "slider " + Number(slider->Minimum()) + " to " + Number(slider->Maximum()) + " at " + Number(slider->Value());
    if (const auto* bar = dynamic_cast<const ui::CProgressBar*>(&control))
        return "progress " + Number(bar->Value()) + " of " + Number(bar->Maximum());
    if (const auto* strip = dynamic_cast<const ui::CTabStrip*>(&control))
        return "tabs " + Joined(strip->Tabs()) + " at " + Number(strip->Selected());
    if (const auto* bar = dynamic_cast<const ui::CToolBar*>(&control))
        return "tools " + Joined(bar->Keys());
    if (const auto* status = dynamic_cast<const ui::CStatusBar*>(&control))
        return "status " + Quoted(status->Text());
    if (const auto* timer = dynamic_cast<const ui::CTimer*>(&control))
        return "timer of " + Number(timer->Interval()) + " ms";
    if (const auto* item = dynamic_cast<const ui::CMenuItem*>(&control))
        return MenuOf(*item);
    if (dynamic_cast<const ui::CFrame*>(&control))
        return "frame " + Quoted(control.Caption());
    if (dynamic_cast<const ui::CButton*>(&control))
        return "button " + Quoted(control.Caption());
    if (dynamic_cast<const ui::CLabel*>(&control))
        return "label " + Quoted(control.Caption());
    if (dynamic_cast<const ui::CPicture*>(&control))
        return "picture " + Quoted(control.Caption());
    return "unknown";
}

std::string Described(const ui::CControl& control)
{
    return Contents(control) + (control.Enabled() ? "" : ", disabled") + (control.Visible() ? "" : ", hidden") +
           (control.ToolTip().empty() ? "" : ", tip " + Quoted(control.ToolTip()));
}

std::string Described(const ui::CForm& form)
{
    return form.Name() + " " + Quoted(form.Caption()) + " " + Quoted(form.Icon()) + (form.Visible() ? ", visible" : "") +
           (form.Loaded() ? ", loaded" : "") + (form.State() == ui::WindowState::Normal ? "" : ", not normal");
}

struct Expected {
    const char* name;
    const char* described;
};

template <std::size_t N> void ExpectControls(const ui::CForm& form, const Expected (&table)[N])
{
    ASSERT_EQ(form.Controls().size(), N);
    for (std::size_t row = 0; row < N; ++row) {
        EXPECT_EQ(form.Controls()[row]->Name(), table[row].name);
        EXPECT_EQ(Described(*form.Controls()[row]), table[row].described) << table[row].name;
    }
}

constexpr Expected MainControls[] = {
    {"tabMain", "tabs General|Character|Voice|Balloon|Read|Greetings|About at 0"},
    // General
    {"fraStartup", "frame \"StartUp\""},
    {"chkShowSplash", "box \"Show Splash Screen at Start Up\" off"},
    {"chkStartWithWindows", "box \"Start Parlune with Windows\" off"},
    {"chkMinimizeOnClose", "box \"Minimize when clicking Close button\" on"},
    {"chkIEMenu", "box \"Internet Explorer 'Read With Parlune'\" off"},
    {"fraClipboard", "frame \"Read Clipboard\""},
    {"chkMonitorClipboard", "box \"Automatically Read Clipboard when Changed\" off"},
    {"chkReadClipBoardOnDblClick", "box \"Read Clipboard when Character is Double-Clicked\" on"},
    {"chkQueueReadCommands", "box \"Queue Read Commands\" on"},
    {"cmdReadClipboard", "button \"Read Clipboard Now\""},
    {"fraTime", "frame \"Say Time\""},
    {"chkSayTime", "box \"\" on"},
    {"lblEvery", "label \"Every\""},
    {"cboSayTimeInterval", "combo \"30\" of 0"},
    {"lblMinutes", "label \"minutes\""},
    {"lblTimeFormat", "label \"Time Format\""},
    {"cboSayTimeFormat", "combo \"h:mm AM/PM\" of 0"},
    {"cboSayTime", "combo \"The time is now {Time}\" of 0"},
    {"Label1", "label \"Requires {Time} placeholder.\""},
    {"chkSayTimeShowIfHidden", "box \"Show Character if Hidden\" on"},
    // Character
    {"fraCharacter", "frame \"Character\""},
    {"lblCharacter", "label \"Character\""},
    {"cboChar", "combo \"\" of 0"},
    {"cmdLoadChar", "button \"Select\""},
    {"cboBrowseChar", "button \"Browse...\""},
    {"chkCustomSize", "box \"Custom Width\" off"},
    {"lblCustomSize", "label \"Height\""},
    {"txtSize(0)", "text \"\", disabled"},
    {"txtSize(1)", "text \"\", disabled"},
    {"chkProportional", "box \"Proportional\" off, disabled"},
    {"chkPlayReadAnimation", "box \"Play \"Read\" Animation before Reading\" on"},
    {"cmdCharacterOptions", "button \"MS Agent Options\""},
    {"cmdSetDefault", "button \"Character Properties\""},
    {"cmdSaveCurrentPos", "button \"Save Current Position\", disabled"},
    {"chkSavePosOnClose", "box \"Remember Character's Last Position at StartUp\" on"},
    {"chkStartUpHideInTray", "box \"Hide Character in System Tray at Start Up\" off"},
    {"chkIdleOn", "box \"Play \"Idle\" Animations (Sleeping, Snoring)\" on"},
    {"chkSoundEffectsOn", "box \"Play Animation Sound Effects\" on"},
    // Voice
    {"fraVoice", "frame \"\""},
    {"tabTTS", "tabs TTS Voice|Voice Modifiers at 0"},
    {"fraTTS", "frame \"TTS Voice\""},
    {"lstTTS", "list of 0"},
    {"pbrTTSEngines", "progress 0 of 100, hidden"},
    {"lblTTSEngines", "label \"Loading TTS Engines.  Please Wait...\", hidden"},
    {"fraVoiceModifiers", "frame \"Voice Modifiers\""},
    {"lblVoiceModifiers", "label \"Use the modifiers checked below to enhance the  currently selected voice.\""},
    {"chkAdvSpkTags(0)", "box \"Pitch\" off"},
    {"chkAdvSpkTags(1)", "box \"Speed\" off"},
    {"chkAdvSpkTags(2)", "box \"Volume\" off"},
    {"chkAdvSpkTags(3)", "box \"Char.\" off, tip \"Char (Chr)\""},
    {"chkAdvSpkTags(4)", "box \"Context\" off"},
    {"sldAdvSpeak(0)", "slider 50 to 400 at 100"},
    {"sldAdvSpeak(1)", "slider 50 to 250 at 150"},
    {"sldAdvSpeak(2)", "slider 0 to 65535 at 32767"},
    {"lblAdvSpeak(0)", "label \"100\""},
    {"lblAdvSpeak(1)", "label \"150\""},
    {"lblAdvSpeak(2)", "label \"32767\""},
    {"cboChr", "combo \"\" of 0, tip \"Voice Characteristic\""},
    {"lblChr", "label \"Whisper/Monotone\""},
    {"cboCtx", "combo \"\" of 0, tip \"Voice Context.\""},
    {"lblTestText", "label \"Test Text\""},
    {"txtTestText", "text \"Welcome to Parlune from Tarrowind Technologies!\r\n\""},
    {"cmdTTSVoice(0)", "button \"Test\""},
    {"cmdTTSVoice(1)", "button \"Reset to Default\""},
    {"cmdTTSVoice(2)", "button \"Set\""},
    // Balloon
    {"fraBalloon", "frame \"\""},
    {"chkBalloon(0)", "box \"Show Balloon\" off"},
    {"chkBalloon(1)", "box \"Size to Text\" off"},
    {"chkBalloon(2)", "box \"Auto-Hide\" off"},
    {"chkBalloon(3)", "box \"Auto-Pace\" off"},
    {"lblFontDisplay", "label \"Balloon Text Font...\""},
    {"lblFontName", "label \"Font Name\""},
    {"cboFontName", "combo \"\" of 0"},
    {"lblFontSize", "label \"Font Size\""},
    {"cboFontSize", "combo \"\" of 0"},
    {"lblCharsPerLine", "label \"Characters Per Line (8 to 255)\""},
    {"txtCharsPerLine", "text \"\""},
    {"lblNumberOfLines", "label \"Number of Lines (1 to 127)\""},
    {"txtNumberOfLines", "text \"\""},
    {"cmdSetFont(0)", "button \"Set Font\""},
    {"cmdSetFont(1)", "button \"Reset to Default\""},
    {"imgBalloon", "picture \"\""},
    // Read
    {"tlbToolbar", "tools NEW|OPEN|SAVE|READ|STOP"},
    {"txtRead", "text \"\""},
    {"staStatus", "status \"\""},
    // Greetings
    {"fraGreetings", "frame \"\""},
    {"lblUserName", "label \"Your Name\""},
    {"txtUserName", "text \"\""},
    {"lblInfo", "label \"(Replaces {UserName} in text.)\""},
    {"chkReadGreeting", "box \"Read Random Greeting at Start Up\" on"},
    {"chkShowIfHidden", "box \"Show Character if Hidden\" off, hidden"},
    {"cmdTestWelcome", "button \"Test Greeting\""},
    {"tabGreetings", "tabs Greeting 1|Greeting 2|Greeting 3|Greeting 4|Greeting 5 at 0"},
    {"lblGreeting(0)", "label \"Greeting\""},
    {"lblGreeting(1)", "label \"Greeting\""},
    {"lblGreeting(2)", "label \"Greeting\""},
    {"lblGreeting(3)", "label \"Greeting\""},
    {"lblGreeting(4)", "label \"Greeting\""},
    {"txtGreeting(0)", "text \"\""},
    {"txtGreeting(1)", "text \"\""},
    {"txtGreeting(2)", "text \"\""},
    {"txtGreeting(3)", "text \"\""},
    {"txtGreeting(4)", "text \"\""},
    {"cboAnim(0)", "combo \"\" of 0"},
    {"cboAnim(1)", "combo \"\" of 0"},
    {"cboAnim(2)", "combo \"\" of 0"},
    {"cboAnim(3)", "combo \"\" of 0"},
    {"cboAnim(4)", "combo \"\" of 0"},
    // About
    {"fraAbout", "frame \"\""},
    {"imgParlune", "picture \"\""},
    {"lblVersion", "label \"\""},
    {"lblTechnologies", "label \"Uses Microsoft Agent 2.0 Technologies\""},
    {"lblURL(0)", "label \"https://parlune.example/scripting\""},
    {"lblURL(1)", "label \"https://parlune.example/agent-ring\""},
    {"lblURL(2)", "label \"https://parlune.example/\""},
    {"lblHomePage", "label \"Parlune Home Page\""},
    {"lblAgentRing", "label \"Visit the Microsoft Agent Ring\""},
    {"imgAgentRing", "picture \"\""},
    // Menu bar
    {"mnuFile", "menu \"&File\": mnuFileNew|mnuFileOpen|mnuFileSave|mnuFileRead|mnuFileClose|mnuSep3|mnuFileStop|"
                "mnuFileSep1|mnuFileResetDefaults|mnuFileSep2|mnuFileExit"},
    {"mnuFileNew", "menu \"&New\""},
    {"mnuFileOpen", "menu \"&Open...\""},
    {"mnuFileSave", "menu \"&Save\""},
    {"mnuFileRead", "menu \"&Read\""},
    {"mnuFileClose", "menu \"&Close\""},
    {"mnuSep3", "menu \"-\""},
    {"mnuFileStop", "menu \"Sto&p\""},
    {"mnuFileSep1", "menu \"-\""},
    {"mnuFileResetDefaults", "menu \"&Reset Defaults...\""},
    {"mnuFileSep2", "menu \"-\""},
    {"mnuFileExit", "menu \"E&xit\""},
    {"mnuDownload", "menu \"&Download\": mnuDownloadCharacters|mnuDownloadTTSEngines"},
    {"mnuDownloadCharacters", "menu \"Characters...\""},
    {"mnuDownloadTTSEngines", "menu \"TTS Voice Engines...\""},
    {"frmHelp", "menu \"&Help\": frmHelpAbout"},
    {"frmHelpAbout", "menu \"&About...\""},
    // Popup menu
    {"mnuPopup", "menu \"Popup\": mnuPopReadClipboard|mnuPopReadTextFile|mnuPopRead|mnuPopSep1|mnuPopSayTime|"
                 "mnuPopAutoReadClipboard|mnuPopSep2|mnuPopParluneOptions|mnuPopSep3|mnuPopHide|mnuPopCharSkip|"
                 "mnuPopCharPause|mnuPopCharStop|mnuPopSep4|mnuPopExit"},
    {"mnuPopReadClipboard", "menu \"Read &Clipboard\""},
    {"mnuPopReadTextFile", "menu \"Read Text &File...\""},
    {"mnuPopRead", "menu \"&Read Other\": mnuPopReadWordDocument|mnuPopReadWordSelection|mnuPopReadExcelSelection"},
    {"mnuPopReadWordDocument", "menu \"Word &Document\""},
    {"mnuPopReadWordSelection", "menu \"&Word Selection\""},
    {"mnuPopReadExcelSelection", "menu \"&Excel Selection\""},
    {"mnuPopSep1", "menu \"-\""},
    {"mnuPopSayTime", "menu \"Announce &Time\""},
    {"mnuPopAutoReadClipboard", "menu \"&Auto-Read Clipboard\""},
    {"mnuPopSep2", "menu \"-\""},
    {"mnuPopParluneOptions", "menu \"&Options...\""},
    {"mnuPopSep3", "menu \"-\""},
    {"mnuPopHide", "menu \"&Hide\""},
    {"mnuPopCharSkip", "menu \"Skip\""},
    {"mnuPopCharPause", "menu \"&Pause\""},
    {"mnuPopCharStop", "menu \"&Stop\""},
    {"mnuPopSep4", "menu \"-\""},
    {"mnuPopExit", "menu \"&Exit Parlune\""},
    {"tmrTimer", "timer of 500 ms, disabled"},
};

constexpr Expected SplashControls[] = {
    {"imgAbout", "picture \"\""},
    {"lblVersion", "label \"\""},
};

constexpr const char* MainWords[] = {
    "tabMain: |Parlune|",
    "chkSayTime: |Say Time|",
    "lblEvery: cboSayTimeInterval||",
    "lblTimeFormat: cboSayTimeFormat||",
    "cboSayTime: |Announcement|",
    "lblCharacter: cboChar||",
    "txtSize(0): |Width|",
    "lblCustomSize: txtSize(1)||",
    "fraVoice: |Voice|",
    "tabTTS: |Voice|",
    "lstTTS: |TTS Voice|",
    "pbrTTSEngines: |Loading TTS Engines|",
    "sldAdvSpeak(0): |Pitch|",
    "sldAdvSpeak(1): |Speed|",
    "sldAdvSpeak(2): |Volume|",
    "cboChr: |Voice Characteristic|",
    "cboCtx: |Voice Context|",
    "lblTestText: txtTestText||",
    "fraBalloon: |Balloon|",
    "imgBalloon: |Balloon|balloon",
    "lblFontName: cboFontName||",
    "lblFontSize: cboFontSize||",
    "lblCharsPerLine: txtCharsPerLine||",
    "lblNumberOfLines: txtNumberOfLines||",
    "tlbToolbar: |Text|",
    "txtRead: |Text|",
    "fraGreetings: |Greetings|",
    "lblUserName: txtUserName||",
    "tabGreetings: |Greetings|",
    "lblGreeting(0): txtGreeting(0)||",
    "cboAnim(0): |Animation|",
    "lblGreeting(1): txtGreeting(1)||",
    "cboAnim(1): |Animation|",
    "lblGreeting(2): txtGreeting(2)||",
    "cboAnim(2): |Animation|",
    "lblGreeting(3): txtGreeting(3)||",
    "cboAnim(3): |Animation|",
    "lblGreeting(4): txtGreeting(4)||",
    "cboAnim(4): |Animation|",
    "fraAbout: |About|",
    "imgParlune: |Parlune Home Page|parlune",
    "lblHomePage: lblURL(2)||",
    "lblAgentRing: lblURL(1)||",
    "imgAgentRing: |Microsoft Agent Ring|ring",
    "staStatus: |Status|",
};

// What a row of the layout says or shows: what it names, what a screen reader says, its picture.
std::vector<std::string> Words(const ui::layout::FormLayout& layout)
{
    std::vector<std::string> words;
    for (const ui::layout::Row& row : layout.rows)
        if (!row.names.empty() || !row.spoken.empty() || !row.picture.empty())
            words.push_back(std::string(row.control) + ": " + std::string(row.names) + "|" + std::string(row.spoken) + "|" +
                            std::string(row.picture));
    return words;
}

using Texts = std::vector<std::string>;

}

TEST(FormTexts, MainWindow_EveryControl_HasItsTextsAndItsDesignState) { ExpectControls(frmParlune(), MainControls); }

TEST(FormTexts, SplashWindow_EveryControl_HasItsTextsAndItsDesignState) { ExpectControls(frmSplash(), SplashControls); }

TEST(FormTexts, Windows_HaveTheirNamesTitlesAndIcons)
{
    EXPECT_EQ(Described(frmParlune()), "frmParlune \"Parlune\" \"parlune\"");
    EXPECT_EQ(Described(frmSplash()), "frmSplash \"Parlune\" \"\"");
    EXPECT_EQ(Described(frmSysTray()), "frmSysTray \"Parlune\" \"\"");
}

TEST(FormTexts, Labels_OfTheDesign_AreBlackAndPlain)
{
    const frmParlune form;
    for (const ui::CControl* control : form.Controls())
        if (const auto* label = dynamic_cast<const ui::CLabel*>(control)) {
            EXPECT_EQ(label->Style(), (ui::TextStyle{"", 8, false, false, false, false, 0})) << label->Name();
        }
}

TEST(FormTexts, ToolBar_EachButton_HasItsTipAndPicture)
{
    Texts buttons;
    for (const ui::layout::ToolButton& button : ui::layout::ToolBarButtons())
        buttons.push_back(Joined({std::string(button.key), std::string(button.toolTip), std::string(button.picture)}));
    EXPECT_EQ(buttons, (Texts{"NEW|New Text|new", "OPEN|Open Text File|open", "SAVE|Save Text|save",
                              "READ|Read Text Aloud|read", "STOP|Stop Reading|stop"}));
}

TEST(FormTexts, SplashLayout_NamesAndPictures_AreThese)
{
    EXPECT_EQ(Words(ui::layout::SplashLayout()), Texts{"imgAbout: |Parlune|splash"});
}

TEST(FormTexts, MainLayout_NamesAndPictures_AreThese)
{
    EXPECT_EQ(Words(ui::layout::MainWindowLayout()), Texts(std::begin(MainWords), std::end(MainWords)));
}
