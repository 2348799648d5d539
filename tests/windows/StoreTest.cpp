#include "driver/Companion.h"
#include "platform/windows/Text.h"

// What is stored, read back with the system's own tools and compared to the byte.
using namespace driver;

namespace {

class Store : public CCompanion {
protected:
    void SetUp() override
    {
        CCompanion::SetUp();
        registry::Remove(HKEY_CURRENT_USER, registry::OptionKey);
    }
    // What reg.exe exports of the option key, without its head, as UTF-8.
    std::string Exported()
    {
        const std::string file = CParlune::DataFolder() + "exported.reg";
        OutputOf("reg export HKCU\\Software\\Tarrowind\\Parlune " + file + " /y");
        const std::string bytes = Contents(file);
        std::wstring text(bytes.size() / sizeof(wchar_t), L'\0');
        bytes.copy(reinterpret_cast<char*>(text.data()), text.size() * sizeof(wchar_t));
        const auto key = text.find(L"[HKEY");
        return key == std::wstring::npos ? "" : platform::windowsdesktop::FromWide(text.substr(key));
    }
};

TEST_F(Store, FreshMachineStartedAndEnded_HoldsEveryOptionAsText)
{
    Begin();
    parlune.End();

    EXPECT_EQ(Exported(),
              "[HKEY_CURRENT_USER\\Software\\Tarrowind\\Parlune]\r\n"
              "\"CharHeight\"=\"0\"\r\n"
              "\"CharSize\"=\"0\"\r\n"
              "\"CharWidth\"=\"0\"\r\n"
              "\"DSSInstalled\"=\"1\"\r\n"
              "\"FirstTime\"=\"0\"\r\n"
              "\"Greeting1\"=\"Good {TimeOfDay}! It is nice to see you.\"\r\n"
              "\"Greeting2\"=\"Hello! Today is {Day}, and it is {Time}.\"\r\n"
              "\"Greeting3\"=\"Good {TimeOfDay}! Copy a text and double-click me, and I will read it to you.\"\r\n"
              "\"Greeting4\"=\"Hello again! I wish you a pleasant {Day}.\"\r\n"
              "\"Greeting5\"=\"Good {TimeOfDay}! It is {Time}. I am ready when you are.\"\r\n"
              "\"GreetingAnimation1\"=\"Greet\"\r\n"
              "\"GreetingAnimation2\"=\"Greet\"\r\n"
              "\"GreetingAnimation3\"=\"Greet\"\r\n"
              "\"GreetingAnimation4\"=\"Greet\"\r\n"
              "\"GreetingAnimation5\"=\"Greet\"\r\n"
              "\"IdleOn\"=\"1\"\r\n"
              "\"MinimizeOnClose\"=\"1\"\r\n"
              "\"MonitorClipboard\"=\"0\"\r\n"
              "\"PlayReadAnimation\"=\"1\"\r\n"
              "\"QueueReadCommands\"=\"1\"\r\n"
              "\"ReadClipboardOnDblClick\"=\"1\"\r\n"
              "\"ReadGreeting\"=\"1\"\r\n"
              "\"SavePosOnClose\"=\"1\"\r\n"
              "\"SayTime\"=\"1\"\r\n"
              "\"SayTimeFormat\"=\"h:mm AM/PM\"\r\n"
              "\"SayTimeInterval\"=\"30\"\r\n"
              "\"SayTimeShowIfHidden\"=\"1\"\r\n"
              "\"SayTimeText\"=\"The time is now {Time}\"\r\n"
              "\"ShowIfHidden\"=\"0\"\r\n"
              "\"ShowSplash\"=\"0\"\r\n"
              "\"SoundEffectsOn\"=\"1\"\r\n"
              "\"StartUpHideInTray\"=\"0\"\r\n"
              "\"StartWithWindows\"=\"0\"\r\n"
              "\"TTSTestText\"=\"Welcome to Parlune from Tarrowind Technologies!\\r\\n\"\r\n\r\n");
}

TEST_F(Store, Queried_ShowsTextsOnly)
{
    Begin();
    parlune.End();
    const std::string output = OutputOf("reg query HKCU\\Software\\Tarrowind\\Parlune /v FirstTime");

    EXPECT_NE(output.find("FirstTime    REG_SZ    0"), std::string::npos) << output;
}

TEST_F(Store, TextBeyondAscii_ReadsBackAsItWasTyped)
{
    BeginShown();
    parlune.SetText("txtUserName", "Zo\xC3\xAB \xC3\x9C");
    parlune.End();

    EXPECT_EQ(registry::Option("UserName"), "Zo\xC3\xAB \xC3\x9C");
}

TEST_F(Store, EmptiedName_ReadsBackAsTheEmptyText)
{
    registry::PutOption("UserName", "Ada");
    BeginShown();
    parlune.SetText("txtUserName", "");
    parlune.End();

    const auto stored = registry::Find(HKEY_CURRENT_USER, registry::OptionKey, "UserName");
    ASSERT_TRUE(stored);
    EXPECT_EQ(stored->type, static_cast<DWORD>(REG_SZ));
    EXPECT_EQ(stored->bytes, std::string("\0\0", 2));
}

TEST_F(Store, SettingsFile_HoldsWhatIsStoredForTheCharacter)
{
    BeginShown();
    ShowPage(Page::Balloon);
    parlune.SetText("cboFontName", "Tahoma");
    parlune.SetText("cboFontSize", "14");
    parlune.SetText("txtCharsPerLine", "20");
    parlune.SetText("txtNumberOfLines", "2");
    for (const char* box : {"chkBalloon(0)", "chkBalloon(1)", "chkBalloon(2)", "chkBalloon(3)"})
        if (!parlune.IsTicked(box))
            parlune.Click(box);
    parlune.Click("cmdSetFont(0)");
    parlune.End();

    EXPECT_EQ(Contents(CParlune::SettingsFile()),
              "[Merlin]\r\nFontName=Tahoma\r\nFontSize=14\r\nBalloonStyle=&H0214000F\r\n");
}

TEST_F(Store, SettingsOfAnotherCharacter_AreLeftAlone)
{
    WriteSetting("Genie", "FontName", "Arial");
    WriteSetting("Merlin", "FontName", "Tahoma");
    BeginShown();
    ShowPage(Page::Balloon);
    parlune.Click("cmdSetFont(1)");
    parlune.End();

    EXPECT_EQ(SettingOf("Merlin", "FontName"), "");
    EXPECT_EQ(SettingOf("Genie", "FontName"), "Arial");
}

TEST_F(Store, SecondEnd_WithoutChanges_WritesTheSame)
{
    Begin();
    parlune.End();
    const std::string before = Exported();
    Begin();
    parlune.End();

    EXPECT_EQ(Exported(), before);
}

}
