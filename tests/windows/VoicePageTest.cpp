#include "driver/Companion.h"

// The Voice page: voices tried, set and reset, and the modifiers.
using namespace driver;

namespace {

constexpr char Welcome[] = "Welcome to Parlune from Tarrowind Technologies!";

class VoicePage : public CCompanion {
protected:
    void BeginOnPage()
    {
        BeginShown();
        ShowPage(Page::Voice);
        ASSERT_TRUE(Eventually([&] { return parlune.Entries("lstTTS").size() == 3; }));
        agent.Forget();
    }
    void BeginOnModifiers()
    {
        BeginOnPage();
        parlune.SetTab("tabTTS", 1);
    }
    std::string Setting(const std::string& key) const { return SettingOf("Merlin", key); }
    bool Settles(const std::string& key, const std::string& value)
    {
        return Eventually([&] { return Setting(key) == value; });
    }
};

TEST_F(VoicePage, List_ShowsTheVoicesAndMarksTheCharactersOwn)
{
    BeginOnPage();

    EXPECT_EQ(parlune.Entries("lstTTS"), (std::vector<std::string>{"Voice One", "Voice Two", "Voice Three"}));
    EXPECT_EQ(parlune.Selected("lstTTS"), 1);
}

TEST_F(VoicePage, VisitedTwice_AsksForTheVoicesOnce)
{
    BeginOnPage();
    ShowPage(Page::General);
    ShowPage(Page::Voice);

    EXPECT_EQ(parlune.Entries("lstTTS").size(), 3U);
    EXPECT_TRUE(agent.LinesWith("get Speech.CountEngines").empty());
}

TEST_F(VoicePage, Test_SpeaksWithTheSelectedVoice)
{
    BeginOnPage();
    parlune.Select("lstTTS", 2);
    parlune.Click("cmdTTSVoice(0)");

    EXPECT_TRUE(agent.Sees("put Character[Bot].TTSModeID(\"{CA141FD0-AC7F-11D1-97A3-006008273006}\")"));
    EXPECT_TRUE(agent.Speaks(Welcome));
    EXPECT_EQ(Setting("TTSModeID"), "");
}

TEST_F(VoicePage, TestIsOver_TheVoiceIsRestored)
{
    BeginOnPage();
    agent.Tell("hold on");
    parlune.Select("lstTTS", 2);
    parlune.Click("cmdTTSVoice(0)");
    ASSERT_TRUE(agent.Speaks(Welcome));
    agent.Forget();
    agent.Tell("complete");

    EXPECT_TRUE(agent.Sees("put Character[Bot].TTSModeID(\"{CA141FD0-AC7F-11D1-97A3-006008273002}\")"));
}

TEST_F(VoicePage, TestInterrupted_RestoresNothing)
{
    BeginOnPage();
    agent.Tell("hold on");
    parlune.Select("lstTTS", 2);
    parlune.Click("cmdTTSVoice(0)");
    ASSERT_TRUE(agent.Speaks(Welcome));
    agent.Forget();
    agent.Tell("complete 3");
    agent.Click(1, 1);
    ASSERT_TRUE(agent.Sees("call Character[Bot].Play"));

    EXPECT_TRUE(agent.LinesWith("put Character[Bot].TTSModeID").empty());
}

TEST_F(VoicePage, TestOfBlankText_FillsInTheWelcome)
{
    BeginOnPage();
    parlune.SetText("txtTestText", "   ");
    parlune.Click("cmdTTSVoice(0)");

    EXPECT_TRUE(agent.Speaks(Welcome));
    EXPECT_EQ(parlune.Text("txtTestText"), Welcome);
}

TEST_F(VoicePage, DoubleClickOnAVoice_TestsIt)
{
    BeginOnPage();
    const RECT place = PlaceOf(parlune.Control("lstTTS"));
    hand::DoubleClick(POINT{place.left + 20, place.top + 8});

    EXPECT_TRUE(agent.Sees("put Character[Bot].TTSModeID(\"{CA141FD0-AC7F-11D1-97A3-006008273000}\")"));
    EXPECT_TRUE(agent.Speaks(Welcome));
}

TEST_F(VoicePage, Set_StoresTheVoiceAndSaysSo)
{
    BeginOnPage();
    parlune.Select("lstTTS", 2);
    parlune.Click("cmdTTSVoice(2)");

    EXPECT_TRUE(agent.Speaks("Voice Changed."));
    EXPECT_EQ(Setting("TTSModeID"), "{CA141FD0-AC7F-11D1-97A3-006008273006}");
}

TEST_F(VoicePage, Reset_ForgetsTheVoiceAndSaysSo)
{
    BeginOnPage();
    parlune.Select("lstTTS", 2);
    parlune.Click("cmdTTSVoice(2)");
    ASSERT_TRUE(agent.Speaks("Voice Changed."));
    agent.Forget();
    parlune.Click("cmdTTSVoice(1)");

    EXPECT_TRUE(agent.Speaks("Voice Options are now Reset."));
    EXPECT_EQ(Setting("TTSModeID"), "");
    EXPECT_TRUE(agent.Saw("put Character[Bot].TTSModeID(\"{CA141FD0-AC7F-11D1-97A3-006008273002}\")"));
    EXPECT_EQ(parlune.Selected("lstTTS"), 1);
}

TEST_F(VoicePage, StoredVoice_IsGivenToTheCharacterAtTheStart)
{
    WriteSetting("Merlin", "TTSModeID", "{CA141FD0-AC7F-11D1-97A3-006008273000}");
    Begin();

    EXPECT_TRUE(agent.Sees("put Character[Bot].TTSModeID(\"{CA141FD0-AC7F-11D1-97A3-006008273000}\")"));
}

TEST_F(VoicePage, PitchByTheSlider_IsSpokenWithTheText)
{
    BeginOnModifiers();
    hand::Click(parlune.Control("chkAdvSpkTags(0)"));
    hand::Press({VK_TAB});
    hand::Press({VK_END});
    ASSERT_TRUE(Eventually([&] { return parlune.Text("lblAdvSpeak(0)") == "400"; }));
    parlune.Click("cmdTTSVoice(0)");

    EXPECT_TRUE(agent.Speaks(std::string("\\Pit=400\\") + Welcome));
}

TEST_F(VoicePage, AllModifiers_AreSpokenInTheirOrder)
{
    WriteSetting("Merlin", "{CA141FD0-AC7F-11D1-97A3-006008273002}", "11110,120,170,30000,1,-1");
    BeginOnModifiers();
    EXPECT_EQ(parlune.Text("lblAdvSpeak(0)"), "120");
    EXPECT_EQ(parlune.Text("lblAdvSpeak(1)"), "170");
    EXPECT_EQ(parlune.Text("lblAdvSpeak(2)"), "30000");
    EXPECT_EQ(parlune.Selected("cboChr"), 1);
    parlune.Click("cmdTTSVoice(0)");

    EXPECT_TRUE(agent.Speaks(std::string("\\Vol=30000\\\\Pit=120\\\\Spd=170\\\\Chr=\"Whisper\"\\") + Welcome));
}

TEST_F(VoicePage, CharacteristicChosen_TicksItsBox)
{
    BeginOnModifiers();
    ASSERT_FALSE(parlune.IsTicked("chkAdvSpkTags(3)"));
    parlune.Select("cboChr", 0);

    EXPECT_TRUE(Eventually([&] { return parlune.IsTicked("chkAdvSpkTags(3)"); }));
}

TEST_F(VoicePage, CharacteristicList_OffersFour)
{
    BeginOnModifiers();

    EXPECT_EQ(parlune.Entries("cboChr"), (std::vector<std::string>{"Monotone", "Whisper", "Email", "Address"}));
    EXPECT_TRUE(parlune.Entries("cboCtx").empty());
}

TEST_F(VoicePage, SetOnModifiers_StoresTheRecordUnderTheVoice)
{
    BeginOnModifiers();
    parlune.Click("chkAdvSpkTags(1)");
    parlune.Select("cboChr", 2);
    ASSERT_TRUE(Eventually([&] { return parlune.IsTicked("chkAdvSpkTags(3)"); }));
    parlune.Click("cmdTTSVoice(2)");

    EXPECT_TRUE(Settles("{CA141FD0-AC7F-11D1-97A3-006008273002}", "01010,100,150,32767,2,-1"));
}

TEST_F(VoicePage, ResetOnModifiers_RemovesTheRecordAndClearsTheBoxes)
{
    WriteSetting("Merlin", "{CA141FD0-AC7F-11D1-97A3-006008273002}", "11110,120,170,30000,1,-1");
    BeginOnModifiers();
    parlune.Click("cmdTTSVoice(1)");

    EXPECT_TRUE(agent.Speaks("Voice Options are now Reset."));
    EXPECT_EQ(Setting("{CA141FD0-AC7F-11D1-97A3-006008273002}"), "");
    EXPECT_FALSE(parlune.IsTicked("chkAdvSpkTags(0)"));
    EXPECT_EQ(parlune.Text("lblAdvSpeak(2)"), "32767");
    EXPECT_EQ(parlune.Selected("cboChr"), -1);
}

}
