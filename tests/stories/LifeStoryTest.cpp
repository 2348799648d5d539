#include "reading/bRead.h"
#include "stories/Story.h"

namespace {

class LifeStory : public CStory {
protected:
    // Ends the run of the program and begins a new one on the same desktop.
    void Restart()
    {
        MainWindow().Unload();
        common::RenewProgramState();
        host.Advance(0);
        Start();
    }
};

TEST_F(LifeStory, Close_InTheMiddleOfASpeech_SavesTheOptionsAndFallsSilent)
{
    StartAndSettle();
    desktop.clipboard.Put("a text that is still being spoken when the program ends");
    DoubleClickCharacter();
    Pass(500);
    MainWindow().txtUserName.SetText("Ann");
    MainWindow().mnuPopExit.Click();
    common::RenewProgramState();
    Pass(1'000);
    EXPECT_EQ(Option("UserName"), "Ann");
    EXPECT_EQ(Option("FirstTime"), "0");
    EXPECT_FALSE(host.Window().shown);
    EXPECT_TRUE(host.sound.streams.back().stopped);
}

TEST_F(LifeStory, SecondRun_AfterAFirst_StartsInTheTray)
{
    StartAndSettle();
    EXPECT_TRUE(MainWindow().Visible());
    Restart();
    EXPECT_FALSE(MainWindow().Visible());
    EXPECT_TRUE(host.Window().shown);
}

TEST_F(LifeStory, SecondRun_OptionsChangedInTheFirst_HasThem)
{
    StartAndSettle();
    MainWindow().chkQueueReadCommands.SetValue(0);
    MainWindow().txtGreeting[2].SetText("Welcome back, {UserName}");
    MainWindow().cboSayTimeFormat.SetText("hh:nn");
    Restart();
    EXPECT_EQ(MainWindow().chkQueueReadCommands.Value(), 0);
    EXPECT_EQ(MainWindow().txtGreeting[2].Text(), "Welcome back, {UserName}");
    EXPECT_EQ(MainWindow().cboSayTimeFormat.Text(), "hh:nn");
}

TEST_F(LifeStory, CloseBox_WithMinimizeOnClose_TheCharacterGoesOnReading)
{
    StartAndSettle();
    desktop.clipboard.Put("one two three");
    DoubleClickCharacter();
    Pass(200);
    MainWindow().Unload(ui::UnloadMode::ControlMenu);
    Pass(10'000);
    EXPECT_EQ(character::State().speechRequest->Status(), platform::RequestStatus::Completed);
    EXPECT_FALSE(MainWindow().Visible());
}

TEST_F(LifeStory, CtrlDoubleClick_OnTheCharacter_TogglesTheMainWindow)
{
    StartAndSettle();
    host.Window().DoubleClick(1, 2, Centre());
    Pass(10);
    EXPECT_FALSE(MainWindow().Visible());
    host.Window().DoubleClick(1, 2, Centre());
    Pass(10);
    EXPECT_TRUE(MainWindow().Visible());
}

TEST_F(LifeStory, Drag_TheCharacter_TheBalloonFollows)
{
    StartAndSettle();
    desktop.clipboard.Put("one two three four five six seven eight nine ten");
    DoubleClickCharacter();
    Pass(600);
    const engine::Rect before = host.Balloon().picture.place;
    host.Window().Drag(Centre(), {300, 400});
    Pass(100);
    EXPECT_TRUE(host.Balloon().shown);
    EXPECT_NE(host.Balloon().picture.place, before);
}

TEST_F(LifeStory, NoCharacterAtAll_Start_GoesOnWithTheMainWindow)
{
    source.standard = nullptr;
    Start();
    Pass(1'000);
    EXPECT_TRUE(MainWindow().Visible());
    EXPECT_FALSE(character::State().loaded);
    EXPECT_TRUE(desktop.messageBoxes.shown.empty());
}

TEST_F(LifeStory, ErrorReport_AnsweredCancel_EndsTheProgramWhileTheCharacterSpeaks)
{
    StartAndSettle();
    desktop.clipboard.Put("one two three");
    DoubleClickCharacter();
    Pass(100);
    desktop.messageBoxes.answers = {platform::BoxAnswer::Cancel};
    EXPECT_THROW(bRead::ReadTextFile("C:\\gone.txt"), platform::CProgramEnded);
    EXPECT_TRUE(desktop.program.ended);
    EXPECT_EQ(Option("FirstTime"), std::nullopt);
}

}
