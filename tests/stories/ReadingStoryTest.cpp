#include "reading/bRead.h"
#include "stories/Story.h"

namespace {

using platform::RequestStatus;

class ReadingStory : public CStory {};

TEST_F(ReadingStory, Start_WithAGreeting_ShowsTheCharacterAndSpeaksIt)
{
    PutOption("Greeting1", "Hello, nice to see you");
    Start();
    Pass(5'000);
    EXPECT_TRUE(host.Window().shown);
    EXPECT_EQ(Spoken(), (std::vector<std::string>{"Hello, nice to see you"}));
    ASSERT_EQ(host.sound.streams.size(), 1U);
    EXPECT_GT(host.sound.streams[0].written, 0);
}

TEST_F(ReadingStory, Start_WithoutStoredPosition_StandsInTheBottomRightCorner)
{
    StartAndSettle();
    EXPECT_EQ(host.Window().place, (engine::Rect{1024 - 4 - 50, 768 - 4 - 50, 4, 4}));
}

TEST_F(ReadingStory, DoubleClick_TextOnTheClipboard_IsSpokenWhileTheWordsAppear)
{
    StartAndSettle();
    desktop.clipboard.Put("one two three four five");
    DoubleClickCharacter();
    std::vector<std::string> seen;
    for (int step = 0; step < 400 && (step < 10 || !NobodySpeaks()); ++step) {
        Pass(20);
        if (!BalloonText().empty() && (seen.empty() || seen.back() != BalloonText()))
            seen.push_back(BalloonText());
    }
    EXPECT_EQ(Spoken(), (std::vector<std::string>{"one two three four five"}));
    EXPECT_EQ(seen, (std::vector<std::string>{"one", "one two", "one two three", "one two three four",
                                              "one two three four five"}));
    EXPECT_EQ(character::State().speechRequest->Status(), RequestStatus::Completed);
}

TEST_F(ReadingStory, DoubleClick_BalloonAfterTheReading_HidesByItself)
{
    StartAndSettle();
    desktop.clipboard.Put("one two");
    DoubleClickCharacter();
    Pass(20'000);
    EXPECT_TRUE(NobodySpeaks());
    EXPECT_EQ(BalloonText(), "");
}

TEST_F(ReadingStory, DoubleClick_LongText_IsReadPieceByPieceInOrder)
{
    StartAndSettle();
    desktop.clipboard.Put("First paragraph, which is long enough to be cut from the others.\r\nIt has two lines.\r\n\r\n"
                          "Second paragraph.\r\n\r\nThird paragraph.");
    DoubleClickCharacter();
    Pass(60'000);
    EXPECT_EQ(Spoken(),
              (std::vector<std::string>{"First paragraph, which is long enough to be cut from the others. It has two lines.",
                                        "Second paragraph.", "Third paragraph."}));
}

TEST_F(ReadingStory, SecondDoubleClick_Queueing_SpeaksBothToTheEnd)
{
    StartAndSettle();
    desktop.clipboard.Put("the first text");
    DoubleClickCharacter();
    const platform::RequestRef first = character::State().speechRequest;
    Pass(300);
    desktop.clipboard.Put("the second text");
    DoubleClickCharacter();
    Pass(30'000);
    EXPECT_EQ(Spoken(), (std::vector<std::string>{"the first text", "the second text"}));
    EXPECT_EQ(character::State().speechRequest->Status(), RequestStatus::Completed);
}

TEST_F(ReadingStory, SecondDoubleClick_NotQueueing_CutsTheFirstOff)
{
    PutOption("QueueReadCommands", "0");
    StartAndSettle();
    desktop.clipboard.Put("the first text");
    DoubleClickCharacter();
    Pass(600);
    const platform::RequestRef first = character::State().speechRequest;
    desktop.clipboard.Put("the second text");
    DoubleClickCharacter();
    Pass(30'000);
    EXPECT_EQ(first->Status(), RequestStatus::Interrupted);
    EXPECT_EQ(character::State().speechRequest->Status(), RequestStatus::Completed);
}

TEST_F(ReadingStory, DoubleClick_PictureOnTheClipboard_ReadsNothing)
{
    StartAndSettle();
    desktop.clipboard.Put(std::nullopt);
    DoubleClickCharacter();
    Pass(5'000);
    EXPECT_TRUE(Spoken().empty());
    EXPECT_TRUE(desktop.messageBoxes.shown.empty());
}

TEST_F(ReadingStory, DoubleClick_OptionSwitchedOff_ReadsNothing)
{
    PutOption("ReadClipboardOnDblClick", "0");
    StartAndSettle();
    desktop.clipboard.Put("some text");
    DoubleClickCharacter();
    Pass(5'000);
    EXPECT_TRUE(Spoken().empty());
}

TEST_F(ReadingStory, ShiftClick_WhileSpeaking_FallsSilent)
{
    StartAndSettle();
    desktop.clipboard.Put("one two three four five six seven eight nine ten");
    DoubleClickCharacter();
    Pass(800);
    host.Window().Click(1, 1, Centre());
    Pass(100);
    EXPECT_TRUE(NobodySpeaks());
    EXPECT_TRUE(host.sound.streams.back().stopped);
}

TEST_F(ReadingStory, NoVoice_DoubleClick_TheWordsAppearAtReadingPace)
{
    host.synthesizer.available = false;
    StartAndSettle();
    desktop.clipboard.Put("one two three four five");
    DoubleClickCharacter();
    Pass(700);
    EXPECT_NE(BalloonText(), "");
    EXPECT_NE(BalloonText(), "one two three four five");
    Pass(10'000);
    EXPECT_EQ(character::State().speechRequest->Status(), RequestStatus::Completed);
}

TEST_F(ReadingStory, CharacterHidden_ReadCommand_HidesItAgainAtOnceAndSaysNothing)
{
    PutOption("StartUpHideInTray", "1");
    StartAndSettle();
    desktop.clipboard.Put("some text");
    bRead::ReadClipboard();
    Pass(10'000);
    EXPECT_FALSE(host.Window().shown);
    EXPECT_TRUE(Spoken().empty());
    EXPECT_TRUE(desktop.messageBoxes.shown.empty());
}

TEST_F(ReadingStory, Monitoring_TextCopiedElsewhere_IsReadOnce)
{
    PutOption("MonitorClipboard", "1");
    desktop.clipboard.Put("there before the start");
    StartAndSettle();
    desktop.clipboard.Put("copied later");
    Pass(10'000);
    EXPECT_EQ(Spoken(), (std::vector<std::string>{"copied later"}));
}

TEST_F(ReadingStory, TextFile_ChosenInTheDialog_IsRead)
{
    StartAndSettle();
    desktop.files.PutFile("C:\\Users\\Ann\\Documents\\letter.txt", "Dear Ann,\r\nall is well.");
    desktop.fileDialogs.answers = {"C:\\Users\\Ann\\Documents\\letter.txt"};
    bRead::ReadTextFile("");
    Pass(10'000);
    EXPECT_EQ(Spoken(), (std::vector<std::string>{"Dear Ann,", "all is well."}));
}

TEST_F(ReadingStory, TextFile_VanishedAfterTheChoice_IsReportedAndTheProgramGoesOn)
{
    StartAndSettle();
    bRead::ReadTextFile("C:\\Users\\Ann\\Documents\\gone.txt");
    ASSERT_EQ(desktop.messageBoxes.shown.size(), 1U);
    EXPECT_EQ(desktop.messageBoxes.Last().Line(1), "Section: bReadTextFile:ReadTextFile");
    EXPECT_EQ(desktop.messageBoxes.Last().Line(3), "Error Code: 53");
    desktop.clipboard.Put("still here");
    DoubleClickCharacter();
    Pass(5'000);
    EXPECT_EQ(Spoken(), (std::vector<std::string>{"still here"}));
}

TEST_F(ReadingStory, ATextOfTenMinutes_IsSpokenToTheEnd)
{
    StartAndSettle();
    std::string text;
    for (int paragraph = 0; paragraph < 150; ++paragraph)
        text += "This paragraph takes about four seconds to read, no more and no less.\r\n\r\n";
    desktop.clipboard.Put(text);
    DoubleClickCharacter();
    int seconds = 0;
    while (!NobodySpeaks() && seconds < 3'600) {
        Pass(1'000);
        ++seconds;
    }
    EXPECT_GT(seconds, 600);
    EXPECT_EQ(Spoken().size(), 150U);
    EXPECT_EQ(character::State().speechRequest->Status(), RequestStatus::Completed);
}

}
