#include "driver/Companion.h"

// What the user does to the character, and says to it.
using namespace driver;

namespace {

constexpr char Copied[] = "The copied text.";

class CharacterMouse : public CCompanion {
protected:
    void SetUp() override
    {
        CCompanion::SetUp();
        clipboard::CopyText(Copied);
    }
    void Start()
    {
        Begin();
        agent.Forget();
    }
};

TEST_F(CharacterMouse, DoubleClick_ReadsTheClipboard)
{
    Start();
    agent.DoubleClick(1);

    EXPECT_TRUE(agent.Speaks(Copied));
}

TEST_F(CharacterMouse, DoubleClick_WithItsOptionOff_DoesNothing)
{
    registry::PutOption("ReadClipboardOnDblClick", "0");
    Start();
    agent.DoubleClick(1);
    agent.Hears("Stop");
    ASSERT_TRUE(agent.Sees("call Character[Bot].StopAll"));

    EXPECT_TRUE(agent.Spoken().empty());
}

TEST_F(CharacterMouse, DoubleClickWithCtrl_ShowsTheOptionsWindow)
{
    Start();
    agent.DoubleClick(1, 2);

    EXPECT_TRUE(Eventually([&] { return parlune.IsShown(); }));
    EXPECT_TRUE(agent.Spoken().empty());
}

TEST_F(CharacterMouse, DoubleClickWithCtrl_OnAShownWindow_HidesIt)
{
    BeginShown();
    agent.DoubleClick(1, 2);

    EXPECT_TRUE(Eventually([&] { return !IsWindowVisible(parlune.Main()); }));
}

TEST_F(CharacterMouse, DoubleClickWithShift_DoesNothing)
{
    Start();
    agent.DoubleClick(1, 1);
    agent.Hears("Stop");
    ASSERT_TRUE(agent.Sees("call Character[Bot].StopAll"));

    EXPECT_TRUE(agent.Spoken().empty());
    EXPECT_FALSE(parlune.IsShown());
}

TEST_F(CharacterMouse, ClickWithShift_StopsAndRests)
{
    Start();
    agent.Click(1, 1);

    EXPECT_TRUE(agent.Sees("call Character[Bot].StopAll"));
    EXPECT_TRUE(agent.Sees("call Character[Bot].Play(\"RestPose\")"));
}

TEST_F(CharacterMouse, RightClick_OpensThePopupMenu)
{
    Start();
    agent.Click(2);

    EXPECT_TRUE(Eventually([&] { return MenuIsOpen(parlune.Main()); }));
    TakePicture(nullptr, "popup-menu");
}

TEST_F(CharacterMouse, RightClickWithCtrl_OpensNoMenu)
{
    Start();
    agent.Click(2, 2);
    agent.Hears("Stop");
    ASSERT_TRUE(agent.Sees("call Character[Bot].StopAll"));

    EXPECT_FALSE(MenuIsOpen(parlune.Main()));
}

TEST_F(CharacterMouse, PlainClick_DoesNothing)
{
    Start();
    agent.Click(1);
    agent.Hears("Stop");
    ASSERT_TRUE(agent.Sees("call Character[Bot].StopAll"));

    EXPECT_TRUE(agent.LinesWith("call Character[Bot].Play").empty());
}

// What was said, how sure the engine is, what else it might have been, and whether it is done.
struct Heard {
    const char* name;
    int confidence;
    const char* others;
    bool obeyed;
};

class VoiceCommand : public CCompanion, public ::testing::WithParamInterface<Heard> {};

// Shift and click tells when a command that is not obeyed would have been through.
TEST_P(VoiceCommand, IsObeyedOnlyWhenItIsClear)
{
    clipboard::CopyText(Copied);
    Begin();
    agent.Forget();
    const Heard& heard = GetParam();
    ASSERT_TRUE(agent.Hears(heard.name, heard.confidence, heard.others));
    agent.Click(1, 1);
    ASSERT_TRUE(agent.Sees("call Character[Bot].Play(\"RestPose\")"));

    EXPECT_EQ(agent.Spoken(), heard.obeyed ? std::vector<std::string>{Copied} : std::vector<std::string>{});
}

INSTANTIATE_TEST_SUITE_P(AtTheLimits, VoiceCommand,
                         ::testing::Values(Heard{"ReadClipboard", 100, "", true}, Heard{"ReadClipboard", -39, "", true},
                                           Heard{"ReadClipboard", -40, "", false}, Heard{"ReadClipboard", -100, "", false},
                                           Heard{"ReadClipboard", 50, "Stop 41 \"\"", false},
                                           Heard{"ReadClipboard", 50, "Stop 40 \"\"", true},
                                           Heard{"ReadClipboard", 50, "Stop 59 \"\"", false},
                                           Heard{"ReadClipboard", 50, "ReadClipboard 50 \"\"", true},
                                           // The second alternative is measured by the first one's confidence.
                                           Heard{"ReadClipboard", 50, "ReadClipboard 45 \"\" Stop 0", false},
                                           Heard{"ReadClipboard", 50, "ReadClipboard 0 \"\" Stop 50", true},
                                           // Without its sign a low confidence is near a high one.
                                           Heard{"ReadClipboard", 30, "Stop -30 \"\"", false},
                                           Heard{"readclipboard", 100, "", false}, Heard{"Unknown", 100, "", false}));

TEST_F(CharacterMouse, VoiceCommandStop_StopsAll)
{
    Start();
    agent.Hears("Stop");

    EXPECT_TRUE(agent.Sees("call Character[Bot].StopAll"));
}

TEST_F(CharacterMouse, VoiceCommandReadTextFile_AsksForAFile)
{
    Start();
    agent.Hears("ReadTextFile");

    EXPECT_TRUE(WaitForFileDialog(parlune.Id(), "Read Text File"));
}

TEST_F(CharacterMouse, VoiceCommandReadTextFile_WhileTheWindowIsHidden_AsksInADialogOfTheWindow)
{
    Start();
    agent.Hears("ReadTextFile");
    const HWND dialog = WaitForFileDialog(parlune.Id(), "Read Text File");

    EXPECT_FALSE(parlune.IsShown());
    EXPECT_EQ(GetWindow(dialog, GW_OWNER), parlune.Main());
}

TEST_F(CharacterMouse, Load_RegistersTheVoiceCommands)
{
    Begin();

    EXPECT_TRUE(agent.Sees("call Character[Bot].Commands.RemoveAll"));
    EXPECT_TRUE(agent.Sees("put Character[Bot].Commands.Caption(\"Parlune\")"));
    EXPECT_EQ(agent.LinesWith("call Character[Bot].Commands.Add"),
              (std::vector<std::string>{
                  "call Character[Bot].Commands.Add(\"ReadClipboard\", \"&Read Clipboard\", \"Read Clipboard\")",
                  "call Character[Bot].Commands.Add(\"ReadTextFile\", \"&Read Text File\", \"Read [Text] File\")",
                  "call Character[Bot].Commands.Add(\"Stop\", \"&Stop\", \"Stop\")",
                  "call Character[Bot].Commands.Add(\"ExitParlune\", \"E&xit Parlune\", \"(Exit|Close) Parlune\")"}));
}

}
