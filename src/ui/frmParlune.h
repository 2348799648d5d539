#pragma once
#include "common/WebAddresses.h"
#include "ui/controls/Controls.h"

// The main window: options tabs, text editor, menus and the announcement timer. Its controls, under their own names, with
// their captions, design states and first texts, and nothing else; what they do is wired in ui/Wiring.cpp.
struct frmParlune final : ui::CForm {
    frmParlune() : CForm("frmParlune", "Parlune")
    {
        SetIcon("parlune");
        chkShowIfHidden.SetVisible(false);
        chkAdvSpkTags[3].SetToolTip("Char (Chr)");
        cboChr.SetToolTip("Voice Characteristic");
        cboCtx.SetToolTip("Voice Context.");
        for (ui::CTextBox& box : txtSize)
            box.SetEnabled(false);
        chkProportional.SetEnabled(false);
        cmdSaveCurrentPos.SetEnabled(false);
        pbrTTSEngines.SetVisible(false);
        lblTTSEngines.SetVisible(false);
    }

    ui::CTabStrip tabMain{*this, "tabMain", {"General", "Character", "Voice", "Balloon", "Read", "Greetings", "About"}};

    // General
    ui::CFrame fraStartup{*this, "fraStartup", "StartUp"};
    ui::CCheckBox chkShowSplash{*this, "chkShowSplash", "Show Splash Screen at Start Up", false};
    ui::CCheckBox chkStartWithWindows{*this, "chkStartWithWindows", "Start Parlune with Windows", false};
    ui::CCheckBox chkMinimizeOnClose{*this, "chkMinimizeOnClose", "Minimize when clicking Close button", true};
    ui::CCheckBox chkIEMenu{*this, "chkIEMenu", "Internet Explorer 'Read With Parlune'", false};
    ui::CFrame fraClipboard{*this, "fraClipboard", "Read Clipboard"};
    ui::CCheckBox chkMonitorClipboard{*this, "chkMonitorClipboard", "Automatically Read Clipboard when Changed", false};
    ui::CCheckBox chkReadClipBoardOnDblClick{*this, "chkReadClipBoardOnDblClick",
                                             "Read Clipboard when Character is Double-Clicked", true};
    ui::CCheckBox chkQueueReadCommands{*this, "chkQueueReadCommands", "Queue Read Commands", true};
    ui::CButton cmdReadClipboard{*this, "cmdReadClipboard", "Read Clipboard Now"};
    ui::CFrame fraTime{*this, "fraTime", "Say Time"};
    ui::CCheckBox chkSayTime{*this, "chkSayTime", "", true};
    ui::CLabel lblEvery{*this, "lblEvery", "Every"};
    ui::CComboBox cboSayTimeInterval{*this, "cboSayTimeInterval", "30"};
    ui::CLabel lblMinutes{*this, "lblMinutes", "minutes"};
    ui::CLabel lblTimeFormat{*this, "lblTimeFormat", "Time Format"};
    ui::CComboBox cboSayTimeFormat{*this, "cboSayTimeFormat", "h:mm AM/PM"};
    ui::CComboBox cboSayTime{*this, "cboSayTime", "The time is now {Time}"};
    ui::CLabel Label1{*this, "Label1", "Requires {Time} placeholder."};
    ui::CCheckBox chkSayTimeShowIfHidden{*this, "chkSayTimeShowIfHidden", "Show Character if Hidden", true};

    // Character
    ui::CFrame fraCharacter{*this, "fraCharacter", "Character"};
    ui::CLabel lblCharacter{*this, "lblCharacter", "Character"};
    ui::CComboBox cboChar{*this, "cboChar"};
    ui::CButton cmdLoadChar{*this, "cmdLoadChar", "Select"};
    ui::CButton cboBrowseChar{*this, "cboBrowseChar", "Browse..."};
    ui::CCheckBox chkCustomSize{*this, "chkCustomSize", "Custom Width", false};
    ui::CLabel lblCustomSize{*this, "lblCustomSize", "Height"};
    ui::CTextBox txtSize[2] = {{*this, "txtSize(0)"}, {*this, "txtSize(1)"}};
    ui::CCheckBox chkProportional{*this, "chkProportional", "Proportional", false};
    ui::CCheckBox chkPlayReadAnimation{*this, "chkPlayReadAnimation", "Play \"Read\" Animation before Reading", true};
    ui::CButton cmdCharacterOptions{*this, "cmdCharacterOptions", "MS Agent Options"};
    ui::CButton cmdSetDefault{*this, "cmdSetDefault", "Character Properties"};
    ui::CButton cmdSaveCurrentPos{*this, "cmdSaveCurrentPos", "Save Current Position"};
    ui::CCheckBox chkSavePosOnClose{*this, "chkSavePosOnClose", "Remember Character's Last Position at StartUp", true};
    ui::CCheckBox chkStartUpHideInTray{*this, "chkStartUpHideInTray", "Hide Character in System Tray at Start Up", false};
    ui::CCheckBox chkIdleOn{*this, "chkIdleOn", "Play \"Idle\" Animations (Sleeping, Snoring)", true};
    ui::CCheckBox chkSoundEffectsOn{*this, "chkSoundEffectsOn", "Play Animation Sound Effects", true};

    // Voice
    ui::CFrame fraVoice{*this, "fraVoice"};
    ui::CTabStrip tabTTS{*this, "tabTTS", {"TTS Voice", "Voice Modifiers"}};
    ui::CFrame fraTTS{*this, "fraTTS", "TTS Voice"};
    ui::CListBox lstTTS{*this, "lstTTS"};
    ui::CProgressBar pbrTTSEngines{*this, "pbrTTSEngines"};
    ui::CLabel lblTTSEngines{*this, "lblTTSEngines", "Loading TTS Engines.  Please Wait..."};
    ui::CFrame fraVoiceModifiers{*this, "fraVoiceModifiers", "Voice Modifiers"};
    ui::CLabel lblVoiceModifiers{*this, "lblVoiceModifiers",
                                 "Use the modifiers checked below to enhance the  currently selected voice."};
    ui::CCheckBox chkAdvSpkTags[5] = {{*this, "chkAdvSpkTags(0)", "Pitch", false},
                                      {*this, "chkAdvSpkTags(1)", "Speed", false},
                                      {*this, "chkAdvSpkTags(2)", "Volume", false},
                                      {*this, "chkAdvSpkTags(3)", "Char.", false},
                                      {*this, "chkAdvSpkTags(4)", "Context", false}};
    ui::CSlider sldAdvSpeak[3] = {{*this, "sldAdvSpeak(0)", 50, 400, 100},
                                  {*this, "sldAdvSpeak(1)", 50, 250, 150},
                                  {*this, "sldAdvSpeak(2)", 0, 65535, 32767}};
    ui::CLabel lblAdvSpeak[3] = {
        {*this, "lblAdvSpeak(0)", "100"}, {*this, "lblAdvSpeak(1)", "150"}, {*this, "lblAdvSpeak(2)", "32767"}};
    ui::CComboBox cboChr{*this, "cboChr"};
    ui::CLabel lblChr{*this, "lblChr", "Whisper/Monotone"};
    ui::CComboBox cboCtx{*this, "cboCtx"};
    ui::CLabel lblTestText{*this, "lblTestText", "Test Text"};
    ui::CTextBox txtTestText{*this, "txtTestText", "Welcome to Parlune from Tarrowind Technologies!\r\n"};
    ui::CButton cmdTTSVoice[3] = {
        {*this, "cmdTTSVoice(0)", "Test"}, {*this, "cmdTTSVoice(1)", "Reset to Default"}, {*this, "cmdTTSVoice(2)", "Set"}};

    // Balloon. The boxes' indexes are the bits of the style word.
    ui::CFrame fraBalloon{*this, "fraBalloon"};
    ui::CCheckBox chkBalloon[4] = {{*this, "chkBalloon(0)", "Show Balloon", false},
                                   {*this, "chkBalloon(1)", "Size to Text", false},
                                   {*this, "chkBalloon(2)", "Auto-Hide", false},
                                   {*this, "chkBalloon(3)", "Auto-Pace", false}};
    ui::CLabel lblFontDisplay{*this, "lblFontDisplay", "Balloon Text Font..."};
    ui::CLabel lblFontName{*this, "lblFontName", "Font Name"};
    ui::CComboBox cboFontName{*this, "cboFontName"};
    ui::CLabel lblFontSize{*this, "lblFontSize", "Font Size"};
    ui::CComboBox cboFontSize{*this, "cboFontSize"};
    ui::CLabel lblCharsPerLine{*this, "lblCharsPerLine", "Characters Per Line (8 to 255)"};
    ui::CTextBox txtCharsPerLine{*this, "txtCharsPerLine"};
    ui::CLabel lblNumberOfLines{*this, "lblNumberOfLines", "Number of Lines (1 to 127)"};
    ui::CTextBox txtNumberOfLines{*this, "txtNumberOfLines"};
    ui::CButton cmdSetFont[2] = {{*this, "cmdSetFont(0)", "Set Font"}, {*this, "cmdSetFont(1)", "Reset to Default"}};
    ui::CPicture imgBalloon{*this, "imgBalloon"};

    // Read
    ui::CToolBar tlbToolbar{*this, "tlbToolbar", {"NEW", "OPEN", "SAVE", "READ", "STOP"}};
    ui::CTextBox txtRead{*this, "txtRead"};
    ui::CStatusBar staStatus{*this, "staStatus"};

    // Greetings
    ui::CFrame fraGreetings{*this, "fraGreetings"};
    ui::CLabel lblUserName{*this, "lblUserName", "Your Name"};
    ui::CTextBox txtUserName{*this, "txtUserName"};
    ui::CLabel lblInfo{*this, "lblInfo", "(Replaces {UserName} in text.)"};
    ui::CCheckBox chkReadGreeting{*this, "chkReadGreeting", "Read Random Greeting at Start Up", true};
    ui::CCheckBox chkShowIfHidden{*this, "chkShowIfHidden", "Show Character if Hidden", false};
    ui::CButton cmdTestWelcome{*this, "cmdTestWelcome", "Test Greeting"};
    ui::CTabStrip tabGreetings{
        *this, "tabGreetings", {"Greeting 1", "Greeting 2", "Greeting 3", "Greeting 4", "Greeting 5"}};
    ui::CLabel lblGreeting[5] = {{*this, "lblGreeting(0)", "Greeting"},
                                 {*this, "lblGreeting(1)", "Greeting"},
                                 {*this, "lblGreeting(2)", "Greeting"},
                                 {*this, "lblGreeting(3)", "Greeting"},
                                 {*this, "lblGreeting(4)", "Greeting"}};
    ui::CTextBox txtGreeting[5] = {{*this, "txtGreeting(0)"},
                                   {*this, "txtGreeting(1)"},
                                   {*this, "txtGreeting(2)"},
                                   {*this, "txtGreeting(3)"},
                                   {*this, "txtGreeting(4)"}};
    ui::CComboBox cboAnim[5] = {
        {*this, "cboAnim(0)"}, {*this, "cboAnim(1)"}, {*this, "cboAnim(2)"}, {*this, "cboAnim(3)"}, {*this, "cboAnim(4)"}};

    // About
    ui::CFrame fraAbout{*this, "fraAbout"};
    ui::CPicture imgParlune{*this, "imgParlune"};
    ui::CLabel lblVersion{*this, "lblVersion"};
    ui::CLabel lblTechnologies{*this, "lblTechnologies", "Uses Microsoft Agent 2.0 Technologies"};
    ui::CLabel lblURL[3] = {
        {*this, "lblURL(0)", web::ScriptingTool}, {*this, "lblURL(1)", web::AgentRing}, {*this, "lblURL(2)", web::Home}};
    ui::CLabel lblHomePage{*this, "lblHomePage", "Parlune Home Page"};
    ui::CLabel lblAgentRing{*this, "lblAgentRing", "Visit the Microsoft Agent Ring"};
    ui::CPicture imgAgentRing{*this, "imgAgentRing"};

    // Menu bar
    ui::CMenuItem mnuFile{*this, "mnuFile", "&File"};
    ui::CMenuItem mnuFileNew{mnuFile, *this, "mnuFileNew", "&New"};
    ui::CMenuItem mnuFileOpen{mnuFile, *this, "mnuFileOpen", "&Open..."};
    ui::CMenuItem mnuFileSave{mnuFile, *this, "mnuFileSave", "&Save"};
    ui::CMenuItem mnuFileRead{mnuFile, *this, "mnuFileRead", "&Read"};
    ui::CMenuItem mnuFileClose{mnuFile, *this, "mnuFileClose", "&Close"};
    ui::CMenuItem mnuSep3{mnuFile, *this, "mnuSep3", "-"};
    ui::CMenuItem mnuFileStop{mnuFile, *this, "mnuFileStop", "Sto&p"};
    ui::CMenuItem mnuFileSep1{mnuFile, *this, "mnuFileSep1", "-"};
    ui::CMenuItem mnuFileResetDefaults{mnuFile, *this, "mnuFileResetDefaults", "&Reset Defaults..."};
    ui::CMenuItem mnuFileSep2{mnuFile, *this, "mnuFileSep2", "-"};
    ui::CMenuItem mnuFileExit{mnuFile, *this, "mnuFileExit", "E&xit"};
    ui::CMenuItem mnuDownload{*this, "mnuDownload", "&Download"};
    ui::CMenuItem mnuDownloadCharacters{mnuDownload, *this, "mnuDownloadCharacters", "Characters..."};
    ui::CMenuItem mnuDownloadTTSEngines{mnuDownload, *this, "mnuDownloadTTSEngines", "TTS Voice Engines..."};
    ui::CMenuItem frmHelp{*this, "frmHelp", "&Help"};
    ui::CMenuItem frmHelpAbout{frmHelp, *this, "frmHelpAbout", "&About..."};

    // Popup menu of the character and of the tray icon
    ui::CMenuItem mnuPopup{*this, "mnuPopup", "Popup"};
    ui::CMenuItem mnuPopReadClipboard{mnuPopup, *this, "mnuPopReadClipboard", "Read &Clipboard"};
    ui::CMenuItem mnuPopReadTextFile{mnuPopup, *this, "mnuPopReadTextFile", "Read Text &File..."};
    ui::CMenuItem mnuPopRead{mnuPopup, *this, "mnuPopRead", "&Read Other"};
    ui::CMenuItem mnuPopReadWordDocument{mnuPopRead, *this, "mnuPopReadWordDocument", "Word &Document"};
    ui::CMenuItem mnuPopReadWordSelection{mnuPopRead, *this, "mnuPopReadWordSelection", "&Word Selection"};
    ui::CMenuItem mnuPopReadExcelSelection{mnuPopRead, *this, "mnuPopReadExcelSelection", "&Excel Selection"};
    ui::CMenuItem mnuPopSep1{mnuPopup, *this, "mnuPopSep1", "-"};
    ui::CMenuItem mnuPopSayTime{mnuPopup, *this, "mnuPopSayTime", "Announce &Time"};
    ui::CMenuItem mnuPopAutoReadClipboard{mnuPopup, *this, "mnuPopAutoReadClipboard", "&Auto-Read Clipboard"};
    ui::CMenuItem mnuPopSep2{mnuPopup, *this, "mnuPopSep2", "-"};
    ui::CMenuItem mnuPopParluneOptions{mnuPopup, *this, "mnuPopParluneOptions", "&Options..."};
    ui::CMenuItem mnuPopSep3{mnuPopup, *this, "mnuPopSep3", "-"};
    ui::CMenuItem mnuPopHide{mnuPopup, *this, "mnuPopHide", "&Hide"};
    ui::CMenuItem mnuPopCharSkip{mnuPopup, *this, "mnuPopCharSkip", "Skip"};
    ui::CMenuItem mnuPopCharPause{mnuPopup, *this, "mnuPopCharPause", "&Pause"};
    ui::CMenuItem mnuPopCharStop{mnuPopup, *this, "mnuPopCharStop", "&Stop"};
    ui::CMenuItem mnuPopSep4{mnuPopup, *this, "mnuPopSep4", "-"};
    ui::CMenuItem mnuPopExit{mnuPopup, *this, "mnuPopExit", "&Exit Parlune"};

    ui::CTimer tmrTimer{*this, "tmrTimer", 500};
};

// The one main window, there (unloaded) from the first call on.
frmParlune& MainWindow();
