#include "driver/Companion.h"
#include "driver/WebPages.h"
#include <algorithm>

// The Balloon, Greetings and About pages.
using namespace driver;

namespace {

class BalloonPage : public CCompanion {
protected:
    void BeginOnPage()
    {
        BeginShown();
        ShowPage(Page::Balloon);
        agent.Forget();
    }
    bool Settles(const std::string& key, const std::string& value)
    {
        return Eventually([&] { return SettingOf("Merlin", key) == value; });
    }
};

TEST_F(BalloonPage, Lists_OfferFontsAndSizes)
{
    BeginOnPage();
    const auto fonts = parlune.Entries("cboFontName");

    EXPECT_NE(std::find(fonts.begin(), fonts.end(), "Tahoma"), fonts.end());
    EXPECT_EQ(parlune.Entries("cboFontSize"), (std::vector<std::string>{"8", "9", "10", "11", "12", "14", "16", "18", "20",
                                                                        "22", "24", "26", "28", "36", "48", "72"}));
}

TEST_F(BalloonPage, SetFont_GivesItToTheBalloonAndStoresIt)
{
    BeginOnPage();
    parlune.SetText("cboFontName", "Tahoma");
    parlune.SetText("cboFontSize", "14");
    parlune.SetText("txtCharsPerLine", "20");
    parlune.SetText("txtNumberOfLines", "2");
    parlune.Click("cmdSetFont(0)");

    EXPECT_TRUE(agent.Sees("put Character[Bot].Balloon.FontName(\"Tahoma\")"));
    EXPECT_TRUE(agent.Sees("put Character[Bot].Balloon.FontSize("));
    EXPECT_TRUE(Settles("FontName", "Tahoma"));
    EXPECT_TRUE(Settles("FontSize", "14"));
}

TEST_F(BalloonPage, StyleBoxes_MakeTheStyleWord)
{
    BeginOnPage();
    for (const char* box : {"chkBalloon(0)", "chkBalloon(1)", "chkBalloon(2)", "chkBalloon(3)"})
        if (parlune.IsTicked(box) != (std::string(box) == "chkBalloon(0)" || std::string(box) == "chkBalloon(3)"))
            parlune.Click(box);
    parlune.SetText("txtCharsPerLine", "32");
    parlune.SetText("txtNumberOfLines", "2");
    parlune.Click("cmdSetFont(0)");

    EXPECT_TRUE(Settles("BalloonStyle", "&H02200009"));
    EXPECT_TRUE(agent.Sees("put Character[Bot].Balloon.Style("));
}

TEST_F(BalloonPage, ResetToDefault_ForgetsAllThree)
{
    WriteSetting("Merlin", "FontName", "Tahoma");
    WriteSetting("Merlin", "FontSize", "14");
    WriteSetting("Merlin", "BalloonStyle", "&H02200009");
    BeginOnPage();
    parlune.Click("cmdSetFont(1)");

    EXPECT_TRUE(Settles("FontName", ""));
    EXPECT_TRUE(Settles("FontSize", ""));
    EXPECT_TRUE(Settles("BalloonStyle", ""));
}

TEST_F(BalloonPage, StoredStyle_IsGivenToTheBalloonAtTheStart)
{
    WriteSetting("Merlin", "BalloonStyle", "&H0A280001");
    Begin();

    EXPECT_TRUE(agent.Sees("put Character[Bot].Balloon.Style("));
    EXPECT_EQ(parlune.Text("txtCharsPerLine"), "40");
    EXPECT_EQ(parlune.Text("txtNumberOfLines"), "10");
    EXPECT_TRUE(parlune.IsTicked("chkBalloon(0)"));
    EXPECT_FALSE(parlune.IsTicked("chkBalloon(1)"));
}

class GreetingsPage : public CCompanion {
protected:
    void BeginOnPage()
    {
        BeginShown();
        ShowPage(Page::Greetings);
        agent.Forget();
    }
};

TEST_F(GreetingsPage, TestGreeting_PlaysSpeaksAndRests)
{
    BeginOnPage();
    parlune.SetText("txtUserName", "Grace");
    parlune.SetText("txtGreeting(0)", "Good day, {UserName}.");
    parlune.Click("cmdTestWelcome");

    EXPECT_TRUE(agent.Speaks("Good day, Grace."));
    EXPECT_TRUE(agent.Sees("call Character[Bot].Play(\"RestPose\")"));
    EXPECT_TRUE(agent.Saw("call Character[Bot].Play(\"Greet\")"));
}

TEST_F(GreetingsPage, TestGreeting_SpeaksTheOneThatIsSeen)
{
    BeginOnPage();
    parlune.SetTab("tabGreetings", 3);
    parlune.SetText("txtGreeting(3)", "The fourth.");
    parlune.Click("cmdTestWelcome");

    EXPECT_TRUE(agent.Speaks("The fourth."));
}

TEST_F(GreetingsPage, TextsAndName_AreStored)
{
    BeginOnPage();
    parlune.SetText("txtUserName", "Grace");
    for (int i = 0; i < 5; ++i)
        parlune.SetText("txtGreeting(" + std::to_string(i) + ")", "Hello " + std::to_string(i));
    parlune.End();

    EXPECT_EQ(registry::Option("UserName"), "Grace");
    EXPECT_EQ(registry::Option("Greeting1"), "Hello 0");
    EXPECT_EQ(registry::Option("Greeting5"), "Hello 4");
}

TEST_F(GreetingsPage, GreetingCleared_KeepsItsStoredText)
{
    registry::PutOption("Greeting3", "Kept");
    BeginOnPage();
    parlune.SetText("txtGreeting(2)", "");
    parlune.End();

    EXPECT_EQ(registry::Option("Greeting3"), "Kept");
}

TEST_F(GreetingsPage, AnimationChosen_IsPlayedAndStored)
{
    BeginOnPage();
    const auto animations = parlune.Entries("cboAnim(0)");
    const auto wave = std::find(animations.begin(), animations.end(), "Wave");
    ASSERT_NE(wave, animations.end());
    parlune.Select("cboAnim(0)", static_cast<int>(wave - animations.begin()));

    EXPECT_TRUE(agent.Sees("call Character[Bot].Play(\"Wave\")"));
    parlune.End();
    EXPECT_EQ(registry::Option("GreetingAnimation1"), "Wave");
}

TEST_F(GreetingsPage, Animations_AreThoseOfTheCharacterWithGreetChosen)
{
    BeginOnPage();
    const auto animations = parlune.Entries("cboAnim(4)");

    ASSERT_EQ(animations.size(), 19U);
    EXPECT_EQ(animations.front(), "Acknowledge");
    EXPECT_EQ(animations.at(static_cast<std::size_t>(parlune.Selected("cboAnim(4)"))), "Greet");
}

// A picture or a link of the About page, and the page it leads to.
struct Link {
    const char* control;
    const char* address;
};

class AboutPage : public CCompanion, public ::testing::WithParamInterface<Link> {};

TEST_P(AboutPage, Clicked_OpensItsPage)
{
    BeginShown();
    parlune.Choose("frmHelpAbout");
    ASSERT_TRUE(Eventually([&] { return IsWindowVisible(parlune.Control(GetParam().control)) != FALSE; }));
    hand::Front(parlune.Main());
    const RECT place = PlaceOf(parlune.Control(GetParam().control));
    hand::Click(POINT{place.left + 20, (place.top + place.bottom) / 2});

    EXPECT_EQ(browser::WaitForPage(), GetParam().address);
    agent.Rest();
    EXPECT_EQ(browser::Opened().size(), 1U);
}

INSTANTIATE_TEST_SUITE_P(All, AboutPage,
                         ::testing::Values(Link{"imgParlune", "https://parlune.example/"},
                                           Link{"imgAgentRing", "https://parlune.example/agent-ring"},
                                           Link{"lblURL(0)", "https://parlune.example/scripting"},
                                           Link{"lblURL(1)", "https://parlune.example/agent-ring"},
                                           Link{"lblURL(2)", "https://parlune.example/"}));

TEST_F(GreetingsPage, AboutPage_ShowsTheVersion)
{
    Begin();

    EXPECT_EQ(parlune.Text("lblVersion"), "Version 2.6.3");
}

}
