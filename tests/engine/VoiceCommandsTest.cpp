#include "EngineTest.h"

using namespace testing_character;

namespace {

// A shown character with two commands to say.
class VoiceCommandsTest : public EngineTest {
protected:
    void LoadWithCommands()
    {
        LoadShown();
        bot->Commands()->SetCaption("Parlune");
        bot->Commands()->Add("read", "Read", "read [the clipboard]", true, true);
        bot->Commands()->Add("hide", "Hide", "(hide | go away)", true, true);
        journal.Clear();
    }
    void Hear(const std::vector<engine::HeardCommand>& matches)
    {
        host.speechInput.Hear(matches);
        host.Advance(1);
    }
};

}

TEST_F(VoiceCommandsTest, Add_OffersTheCommandToTheRecogniser)
{
    LoadWithCommands();
    EXPECT_EQ(host.speechInput.Offered(), (Lines{"read: read [the clipboard]", "hide: (hide | go away)"}));
}

TEST_F(VoiceCommandsTest, Add_WithoutVoiceTextOrDisabled_OffersNothing)
{
    LoadShown();
    bot->Commands()->Add("silent", "Silent", std::nullopt, true, true);
    bot->Commands()->Add("off", "Off", "off", false, true);
    EXPECT_TRUE(host.speechInput.Offered().empty());
}

TEST_F(VoiceCommandsTest, Add_InvisibleInMenus_CanBeSpoken)
{
    LoadShown();
    bot->Commands()->Add("secret", std::nullopt, "open sesame", true, false);
    EXPECT_EQ(host.speechInput.Offered(), (Lines{"secret: open sesame"}));
}

TEST_F(VoiceCommandsTest, Add_OfANameThatIsThere_KeepsTheOldOffer)
{
    LoadWithCommands();
    EXPECT_EQ(FailureOf([&] { bot->Commands()->Add("READ", "", "other", true, true); }), code::CommandExists);
    EXPECT_EQ(host.speechInput.Offered().size(), 2u);
}

TEST_F(VoiceCommandsTest, RemoveAll_WithdrawsTheOffer)
{
    LoadWithCommands();
    bot->Commands()->RemoveAll();
    EXPECT_TRUE(host.speechInput.Offered().empty());
}

TEST_F(VoiceCommandsTest, Hide_WithdrawsTheOffer_AndShowRenewsIt)
{
    LoadWithCommands();
    bot->Hide(true);
    host.RunUntilIdle();
    EXPECT_TRUE(host.speechInput.Offered().empty());
    bot->Show(true);
    host.RunUntilIdle();
    EXPECT_EQ(host.speechInput.Offered().size(), 2u);
}

TEST_F(VoiceCommandsTest, Unload_WithdrawsTheOffer)
{
    LoadWithCommands();
    control->Characters()->Unload("Bot");
    EXPECT_TRUE(host.speechInput.Offered().empty());
}

TEST_F(VoiceCommandsTest, Heard_WithTwoAlternatives_TellsAllThree)
{
    LoadWithCommands();
    Hear({{"read", 85, "read"}, {"hide", -20, "go away"}, {"read", -100, "read the clipboard"}});
    EXPECT_EQ(journal.lines,
              (Lines{"Command Bot count 3: read 85 'read', hide -20 'go away', read -100 'read the clipboard'"}));
}

TEST_F(VoiceCommandsTest, Heard_WithOneMatch_LeavesTheAlternativesEmpty)
{
    LoadWithCommands();
    Hear({{"hide", 100, "hide"}});
    EXPECT_EQ(journal.lines, (Lines{"Command Bot count 1: hide 100 'hide',  0 '',  0 ''"}));
}

TEST_F(VoiceCommandsTest, Heard_OfNothingThatMatches_HasCountZero)
{
    LoadWithCommands();
    Hear({});
    EXPECT_EQ(journal.lines, (Lines{"Command Bot count 0:  0 '',  0 '',  0 ''"}));
}

TEST_F(VoiceCommandsTest, Heard_OfTheEnginesOwnCommand_HasNoName)
{
    LoadWithCommands();
    Hear({{"", 70, "hide Tester"}});
    EXPECT_EQ(journal.lines, (Lines{"Command Bot count 1:  70 'hide Tester',  0 '',  0 ''"}));
}

TEST_F(VoiceCommandsTest, Heard_OfFourMatches_TellsTheBestThree)
{
    LoadWithCommands();
    Hear({{"read", 4, "a"}, {"read", 3, "b"}, {"read", 2, "c"}, {"hide", 1, "d"}});
    EXPECT_EQ(journal.lines, (Lines{"Command Bot count 3: read 4 'a', read 3 'b', read 2 'c'"}));
}

TEST_F(VoiceCommandsTest, Heard_ComesFromTheEventLoop)
{
    LoadWithCommands();
    host.speechInput.Hear({{"read", 1, "read"}});
    EXPECT_TRUE(journal.lines.empty());
}

// The menu of the engine itself is nowhere: a right click with AutoPopupMenu tells nothing and opens nothing.
TEST_F(VoiceCommandsTest, RightClick_ShowsNoMenuOfTheEngine)
{
    LoadWithCommands();
    host.Window().Click(2, 0, {401, 401});
    host.RunUntilIdle();
    EXPECT_TRUE(journal.lines.empty());
    EXPECT_EQ(host.windows.size(), 1u);
}
