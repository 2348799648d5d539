#include "reading/bRead.h"
#include "character/bParlune.h"
#include "support/CharacterProgram.h"

using Texts = std::vector<std::string>;

namespace {

// A sentence of 40 characters, its full stop included.
constexpr char Forty[] = "Forty characters make up this sentence..";
static_assert(sizeof(Forty) == 41);

std::string Times(std::size_t count, const std::string& part)
{
    std::string text;
    for (std::size_t time = 0; time < count; ++time)
        text += part;
    return text;
}

}

class Reading : public CharacterProgram {
protected:
    Reading()
    {
        LoadMerlin();
        window.chkPlayReadAnimation.SetValue(0);
    }
    Texts EngineCalls() const { return desktop.journal.CallsOf("Character."); }
    std::size_t Speaks() const { return desktop.journal.Count("Character.Speak"); }
    std::size_t Yields() const { return desktop.journal.Count("Events.RunPendingEvents"); }
};

class ReadContents : public Reading {};

TEST_F(ReadContents, OfAShortText_SpeaksItWhole)
{
    bRead::ReadContents("Hello.  World.");
    EXPECT_EQ(desktop.engine.Spoken(), Texts{"Hello.  World."});
    EXPECT_EQ(Yields(), 0U);
}

TEST_F(ReadContents, OfAHundredCharactersWithLineBreaks_SpeaksLineByLine)
{
    const std::string text = Times(49, "a") + "\r\n" + Times(49, "b");
    bRead::ReadContents(text);
    EXPECT_EQ(desktop.engine.Spoken(), (Texts{Times(49, "a"), Times(49, "b")}));
    EXPECT_EQ(Yields(), 0U);
}

TEST_F(ReadContents, Of101CharactersWithLineBreaks_GoesThroughTheParagraphs)
{
    const std::string text = Times(49, "a") + "\r\n" + Times(50, "b");
    bRead::ReadContents(text);
    EXPECT_EQ(desktop.engine.Spoken(), (Texts{Times(49, "a"), Times(50, "b")}));
    EXPECT_EQ(Yields(), 1U);
}

TEST_F(ReadContents, OfManyLinesThatTakeLong_LetsEventsRunEveryTwentyMilliseconds)
{
    desktop.engine.whenSpoken = [this] { desktop.clock.Advance(5); };
    bRead::ReadContents(Times(10, "A line of a long list\r\n"));
    EXPECT_EQ(Speaks(), 10U);
    EXPECT_EQ(Yields(), 3U);  // Before the paragraph, after four lines, after eight.
}

TEST_F(ReadContents, CountsCharactersAndNotBytes)
{
    bRead::ReadContents(Times(100, "\xC3\xA4"));
    EXPECT_EQ(Yields(), 0U);
    bRead::ReadContents(Times(101, "\xC3\xA4"));
    EXPECT_EQ(Yields(), 3U);
}

TEST_F(ReadContents, OfParagraphs_SpeaksOneRequestPerParagraphWithTheLinesJoined)
{
    bRead::ReadContents("First line\r\nof a paragraph that goes on and on\r\n\r\n"
                        "Second paragraph\r\nwith three\r\nlines of text in it\r\n\r\nThird");
    EXPECT_EQ(desktop.engine.Spoken(), (Texts{"First line of a paragraph that goes on and on",
                                              "Second paragraph with three lines of text in it", "Third"}));
}

TEST_F(ReadContents, OfAnOddNumberOfLineBreaks_LeavesNoneInside)
{
    bRead::ReadContents(Times(60, "a") + "\r\n\r\n\r\n" + Times(60, "b"));
    EXPECT_EQ(desktop.engine.Spoken(), (Texts{Times(60, "a"), Times(60, "b")}));
}

TEST_F(ReadContents, OfSeveralEmptyLines_SpeaksNothingForThem)
{
    bRead::ReadContents(Times(60, "a") + "\r\n\r\n\r\n\r\n" + Times(60, "b") + "\r\n\r\n");
    EXPECT_EQ(desktop.engine.Spoken(), (Texts{Times(60, "a"), Times(60, "b")}));
}

TEST_F(ReadContents, OfLinesWithoutEmptyLine_SpeaksOneRequestPerLine)
{
    bRead::ReadContents(Times(60, "a") + "\r\n" + Times(60, "b") + "\r\n" + Times(100, "c"));
    EXPECT_EQ(desktop.engine.Spoken(), (Texts{Times(60, "a"), Times(60, "b"), Times(100, "c")}));
}

TEST_F(ReadContents, OfALongLineWithThreeSentences_EndsTheThirdWithTwoFullStops)
{
    bRead::ReadContents("One sentence that takes up some room.  Another sentence of about the same length.  "
                        "The last one ends the line.");
    EXPECT_EQ(desktop.engine.Spoken(),
              (Texts{"One sentence that takes up some room.", "Another sentence of about the same length.",
                     "The last one ends the line.."}));
}

TEST_F(ReadContents, OfALongLineWithoutSentenceEnd_SpeaksItWithAFullStop)
{
    bRead::ReadContents(Times(101, "a"));
    EXPECT_EQ(desktop.engine.Spoken(), Texts{Times(101, "a") + "."});
}

TEST_F(ReadContents, OfAFullStopAndOneBlank_DoesNotCutThere)
{
    bRead::ReadContents(Times(60, "a") + ". " + Times(60, "b"));
    EXPECT_EQ(desktop.engine.Spoken(), Texts{Times(60, "a") + ". " + Times(60, "b") + "."});
}

TEST_F(ReadContents, OfAnEmptySentence_SpeaksALoneFullStop)
{
    bRead::ReadContents(Times(60, "a") + ".  .  " + Times(60, "b"));
    EXPECT_EQ(desktop.engine.Spoken(), (Texts{Times(60, "a") + ".", ".", Times(60, "b") + "."}));
}

TEST_F(ReadContents, OfALongLineWithBlanksBehindItsFullStop_DropsTheBlanksFirst)
{
    bRead::ReadContents(Times(110, "a") + ".  ");
    EXPECT_EQ(desktop.engine.Spoken(), Texts{Times(110, "a") + ".."});
}

TEST_F(ReadContents, OfALongParagraph_CutsItIntoSentences)
{
    bRead::ReadContents(std::string(Forty) + "  " + Forty + "\r\n" + Forty + "\r\n\r\nEnd");
    EXPECT_EQ(desktop.engine.Spoken(),
              (Texts{"Forty characters make up this sentence..",
                     "Forty characters make up this sentence.. Forty characters make up this sentence...", "End"}));
}

TEST_F(ReadContents, YieldsBeforeParagraphsLongLinesAndSentences)
{
    const std::string shortLine = Times(60, "a");
    const std::string longLine = Times(60, "b") + ".  " + Times(60, "c");
    bRead::ReadContents(shortLine + "\r\n" + longLine);
    Texts calls = desktop.journal.CallsOf("");
    std::erase(calls, "Clock.SteadyMilliseconds");
    EXPECT_EQ(calls, (Texts{"Events.RunPendingEvents", "Character.Speak " + shortLine + " | -", "Events.RunPendingEvents",
                            "Events.RunPendingEvents", "Character.Speak " + Times(60, "b") + ". | -",
                            "Events.RunPendingEvents", "Character.Speak " + Times(60, "c") + ". | -"}));
}

TEST_F(ReadContents, OfABareLineFeed_KeepsItInItsPiece)
{
    bRead::ReadContents(Times(60, "a") + "\n\n" + Times(30, "b") + "\r\n" + Times(20, "c"));
    EXPECT_EQ(desktop.engine.Spoken(), (Texts{Times(60, "a") + "\n\n" + Times(30, "b"), Times(20, "c")}));
}

TEST_F(ReadContents, OfTheLettersOfAPlaceholder_SpeaksThem)
{
    const std::string odd = std::string("\0GSB\0", 5);
    bRead::ReadContents(Times(60, "a") + odd + "\r\n\r\n" + Times(60, "b"));
    EXPECT_EQ(desktop.engine.Spoken(), (Texts{Times(60, "a") + odd, Times(60, "b")}));
}

TEST_F(ReadContents, ExpandsTokensInThePieces)
{
    window.cboSayTimeFormat.SetText("h:nn");
    bRead::ReadContents(Times(90, "a") + "\r\nIt is {Time}");
    EXPECT_EQ(desktop.engine.Spoken(), (Texts{Times(90, "a"), "It is 14:05"}));
}

TEST_F(ReadContents, PutsTheTagsBeforeEveryPiece)
{
    window.chkAdvSpkTags[1].SetValue(1);
    window.sldAdvSpeak[1].SetValue(200);
    bRead::ReadContents(Times(90, "a") + "\r\n" + Times(90, "b"));
    EXPECT_EQ(desktop.engine.Spoken(), (Texts{"\\Spd=200\\" + Times(90, "a"), "\\Spd=200\\" + Times(90, "b")}));
}

TEST_F(ReadContents, KeepsTheLastPieceForSkip)
{
    bRead::ReadContents(Times(90, "a") + "\r\nLast");
    EXPECT_EQ(LastRequest().what, "Character.Speak Last | -");
    EXPECT_EQ(character::State().skipTarget->ID(), LastRequest().ID());
}

TEST_F(ReadContents, WithReadingAnimations_PlaysThemAroundTheText)
{
    window.chkPlayReadAnimation.SetValue(1);
    bRead::ReadContents("Hello");
    EXPECT_EQ(EngineCalls(), (Texts{"Character.Play Read", "Character.Speak Hello | -", "Character.Play ReadReturn"}));
}

TEST_F(ReadContents, WithReadingAnimations_PlaysThemAroundAnEmptyTextToo)
{
    window.chkPlayReadAnimation.SetValue(1);
    bRead::ReadContents("");
    EXPECT_EQ(EngineCalls(), (Texts{"Character.Play Read", "Character.Play ReadReturn"}));
}

TEST_F(ReadContents, WhenTheAnimationIsSwitchedOffMeanwhile_DoesNotPlayTheSecond)
{
    window.chkPlayReadAnimation.SetValue(1);
    desktop.events.AtYield(1, [this] { window.chkPlayReadAnimation.SetValue(0); });
    bRead::ReadContents(Times(90, "a") + "\r\n" + Times(90, "b"));
    EXPECT_EQ(desktop.journal.CallsOf("Character.Play"), Texts{"Character.Play Read"});
}

TEST_F(ReadContents, WhenAnotherReadArrivesBetweenPieces_QueuesItThere)
{
    desktop.events.AtYield(2, [] { bRead::ReadContents("Meanwhile"); });
    bRead::ReadContents(Times(60, "a") + "\r\n\r\n" + Times(60, "b"));
    EXPECT_EQ(desktop.engine.Spoken(), (Texts{Times(60, "a"), "Meanwhile", Times(60, "b")}));
}

TEST_F(ReadContents, WhenStopArrivesBetweenPieces_StopsThoseQueuedBefore)
{
    desktop.events.AtYield(2, [] { bParlune::CharStop(); });
    bRead::ReadContents(Times(60, "a") + "\r\n\r\n" + Times(60, "b"));
    EXPECT_EQ(EngineCalls(), (Texts{"Character.Speak " + Times(60, "a") + " | -", "Character.StopAll -",
                                    "Character.Speak " + Times(60, "b") + " | -"}));
}

TEST_F(ReadContents, WhenAYieldFails_ReportsAndEndsWithThePiecesQueuedSoFar)
{
    desktop.journal.FailNext("Events.RunPendingEvents", failure, /*passes*/ 1);
    bRead::ReadContents(Times(60, "a") + "\r\n\r\n" + Times(60, "b"));
    EXPECT_EQ(Reports(), Texts{"bReadTextFile:ReadContents"});
    EXPECT_EQ(desktop.engine.Spoken(), Texts{Times(60, "a")});
}

TEST_F(ReadContents, OfALongDocument_QueuesEveryPieceInOrder)
{
    bRead::ReadContents(Times(2000, "A paragraph with one\r\nline break in it\r\n\r\n"));
    EXPECT_EQ(desktop.engine.Spoken().size(), 2000U);
    EXPECT_EQ(desktop.engine.Spoken().back(), "A paragraph with one line break in it");
    EXPECT_EQ(Yields(), 2000U);
}

class ReadClipboard : public Reading {
protected:
    void HideCharacter() { desktop.engine.loaded->visible = false; }
};

TEST_F(ReadClipboard, OfText_ReadsIt)
{
    desktop.clipboard.Put("Hello");
    bRead::ReadClipboard();
    EXPECT_EQ(EngineCalls(), (Texts{"Character.Visible", "Character.Speak Hello | -"}));
}

TEST_F(ReadClipboard, OfAPicture_ChangesNothing)
{
    HideCharacter();
    desktop.clipboard.Put(std::nullopt);
    bRead::ReadClipboard();
    EXPECT_EQ(desktop.journal.Calls(), Texts{"Clipboard.HasText"});
}

TEST_F(ReadClipboard, OfAnEmptyText_ChangesNothing)
{
    HideCharacter();
    desktop.clipboard.Put("");
    bRead::ReadClipboard();
    EXPECT_TRUE(EngineCalls().empty());
}

TEST_F(ReadClipboard, WithQueueingOff_CutsThePresentSpeechOff)
{
    window.chkQueueReadCommands.SetValue(0);
    desktop.clipboard.Put("Hello");
    bRead::ReadClipboard();
    EXPECT_EQ(EngineCalls(), (Texts{"Character.Visible", "Character.StopAll -", "Character.Speak Hello | -"}));
}

TEST_F(ReadClipboard, WithQueueingGrayed_CutsThePresentSpeechOff)
{
    window.chkQueueReadCommands.SetValue(2);
    desktop.clipboard.Put("Hello");
    bRead::ReadClipboard();
    EXPECT_EQ(desktop.journal.Count("Character.StopAll"), 1U);
}

TEST_F(ReadClipboard, WithAHiddenCharacter_ShowsItForTheReadingOnly)
{
    HideCharacter();
    desktop.clipboard.Put("Hello");
    bRead::ReadClipboard();
    EXPECT_EQ(EngineCalls(), (Texts{"Character.Visible", "Character.Show -", "Character.Speak Hello | -",
                                    "Character.StopAll -", "Character.Hide -"}));
}

TEST_F(ReadClipboard, WithAHiddenCharacterAndQueueingOff_ShowsItBeforeItStopsTheSpeech)
{
    window.chkQueueReadCommands.SetValue(0);
    desktop.engine.loaded->visible = false;
    desktop.clipboard.Put("Hello");
    bRead::ReadClipboard();
    EXPECT_EQ(EngineCalls(), (Texts{"Character.Visible", "Character.Show -", "Character.StopAll -",
                                    "Character.Speak Hello | -", "Character.StopAll -", "Character.Hide -"}));
}

TEST_F(ReadClipboard, WithoutCharacter_LoadsIt)
{
    bParlune::CharUnload(false);
    desktop.clipboard.Put("Hello");
    bRead::ReadClipboard();
    EXPECT_EQ(desktop.engine.Spoken(), Texts{"Hello"});
    EXPECT_TRUE(character::State().loaded);
}

TEST_F(ReadClipboard, WhileTheClipboardIsLocked_IsReportedAndReadsNothing)
{
    desktop.clipboard.Put("Hello");
    desktop.journal.FailNext("Clipboard.Text", failure);
    bRead::ReadClipboard();
    EXPECT_EQ(Reports(), Texts{"bReadTextFile:ReadClipboard"});
    EXPECT_TRUE(EngineCalls().empty());
}

TEST_F(ReadClipboard, WhenTheClipboardCannotBeAsked_IsReported)
{
    desktop.journal.FailNext("Clipboard.HasText", failure);
    bRead::ReadClipboard();
    EXPECT_EQ(Reports(), Texts{"bReadTextFile:ReadClipboard"});
}

class ReadText : public Reading {
protected:
    // The editor with its caret or selection, in characters.
    void PutIntoEditor(const std::string& text, std::int32_t start, std::int32_t length = 0)
    {
        window.txtRead.SetText(text);
        window.txtRead.Select(start, length);
    }
};

TEST_F(ReadText, ShowsTheCharacterFirst)
{
    PutIntoEditor("Hello", 0);
    bRead::ReadText();
    EXPECT_EQ(EngineCalls(), (Texts{"Character.Show -", "Character.Speak Hello | -"}));
}

TEST_F(ReadText, OfAnEmptyEditor_ReadsTheClipboard)
{
    desktop.clipboard.Put("From the clipboard");
    bRead::ReadText();
    EXPECT_EQ(desktop.engine.Spoken(), Texts{"From the clipboard"});
}

TEST_F(ReadText, WithTheCaretAtTheStart_SpeaksAll)
{
    PutIntoEditor("Hello world", 0);
    bRead::ReadText();
    EXPECT_EQ(desktop.engine.Spoken(), Texts{"Hello world"});
}

TEST_F(ReadText, WithTheCaretAtTheEnd_SpeaksAll)
{
    PutIntoEditor("Hello world", 11);
    bRead::ReadText();
    EXPECT_EQ(desktop.engine.Spoken(), Texts{"Hello world"});
}

TEST_F(ReadText, WithTheCaretBehindTheW_SpeaksFromTheW)
{
    PutIntoEditor("Hello world", 7);
    bRead::ReadText();
    EXPECT_EQ(desktop.engine.Spoken(), Texts{"world"});
}

TEST_F(ReadText, WithTheCaretBeforeTheW_SpeaksFromTheBlankWithoutIt)
{
    PutIntoEditor("Hello world", 6);
    bRead::ReadText();
    EXPECT_EQ(desktop.engine.Spoken(), Texts{"world"});
}

TEST_F(ReadText, WithTheCaretInAWord_StartsOneCharacterBefore)
{
    PutIntoEditor("Hello world", 9);
    bRead::ReadText();
    EXPECT_EQ(desktop.engine.Spoken(), Texts{"rld"});
}

TEST_F(ReadText, CountsCharactersAndNotBytes)
{
    PutIntoEditor("\xC3\x84\xC3\x96\xC3\x9C world", 5);
    bRead::ReadText();
    EXPECT_EQ(desktop.engine.Spoken(), Texts{"world"});
}

TEST_F(ReadText, WithASelection_SpeaksOnlyThat)
{
    PutIntoEditor("Hello \xC3\xA4\xC3\xB6 world", 6, 2);
    bRead::ReadText();
    EXPECT_EQ(desktop.engine.Spoken(), Texts{"\xC3\xA4\xC3\xB6"});
}

TEST_F(ReadText, OfALongText_PlaysNoAnimationAndCutsAtLineBreaksOnly)
{
    window.chkPlayReadAnimation.SetValue(1);
    const std::string longLine = Times(60, "a") + ".  " + Times(60, "b");
    PutIntoEditor(longLine + "\r\nEnd", 0);
    bRead::ReadText();
    EXPECT_EQ(desktop.engine.Spoken(), (Texts{longLine, "End"}));
    EXPECT_EQ(desktop.journal.Count("Character.Play"), 0U);
}
