#include "ui/StatusBar.h"
#include "character/CharacterEvents.h"
#include "character/bParlune.h"
#include "reading/bClipboard.h"
#include "support/CharacterProgram.h"
#include "ui/Menus.h"
#include "ui/PopupMenu.h"

using platform::RequestStatus;
using statusBar::PlainName;
using statusBar::TextFor;

namespace {

TEST(StatusBarText, OfAShownCharacterThatDoesNothing_IsItsName)
{
    EXPECT_EQ(TextFor({.character = "Merlin", .shown = true}), "Merlin");
}

TEST(StatusBarText, OfACharacterThatReads_SaysSo)
{
    EXPECT_EQ(TextFor({.character = "Merlin", .shown = true, .reading = true}), "Merlin - reading");
    EXPECT_EQ(TextFor({.character = "Merlin", .shown = false, .reading = true}), "Merlin - reading");
}

TEST(StatusBarText, OfAHiddenCharacter_SaysSo)
{
    EXPECT_EQ(TextFor({.character = "Merlin"}), "Merlin - hidden");
    EXPECT_EQ(TextFor({}), "Character - hidden");
}

TEST(StatusBarText, WhileMonitoring_SaysSoLast)
{
    EXPECT_EQ(TextFor({.character = "Merlin", .shown = true, .monitoring = true}), "Merlin - monitoring the clipboard");
    EXPECT_EQ(TextFor({.character = "Merlin", .monitoring = true}), "Merlin - hidden, monitoring the clipboard");
    EXPECT_EQ(TextFor({.character = "Merlin", .shown = true, .reading = true, .monitoring = true}),
              "Merlin - reading, monitoring the clipboard");
}

TEST(StatusBarText, WithoutACharacterThatShouldBeThere_SaysSo)
{
    EXPECT_EQ(TextFor({.character = "", .shown = true}), "No character");
}

TEST(StatusBarName, OfAFile_IsTheBareName)
{
    EXPECT_EQ(PlainName("C:\\Chars\\Merlin.acs"), "Merlin");
    EXPECT_EQ(PlainName("/home/ann/chars/Nibbin.ACS"), "Nibbin");
    EXPECT_EQ(PlainName("Merlin"), "Merlin");
    EXPECT_EQ(PlainName(".acs"), ".acs");
    EXPECT_EQ(PlainName(""), "");
}

class StatusBar : public CharacterProgram {
protected:
    StatusBar() { LoadMerlin(); }
    std::string Shown() const { return window.staStatus.Text(); }
    void Speak()
    {
        bParlune::CharSpeak("Hello");
        Set(RequestStatus::InProgress);
        character::EventReceiver().RequestStart(desktop.engine.requests.back());
    }
    void Set(RequestStatus status) { desktop.engine.requests.back()->status = status; }
};

TEST_F(StatusBar, AfterALoad_ShowsTheCharactersName) { EXPECT_EQ(Shown(), "Merlin"); }

TEST_F(StatusBar, AfterTheLoadOfAnotherCharacter_ShowsItsName)
{
    character::CharLoad("C:\\Chars\\Robby.acs", /*show*/ true);
    EXPECT_EQ(Shown(), "Robby");
}

TEST_F(StatusBar, WhenTheSpeechBegins_ShowsThatItReads)
{
    Speak();
    EXPECT_EQ(Shown(), "Merlin - reading");
}

TEST_F(StatusBar, WhenTheSpeechEnds_ShowsTheNameAgain)
{
    for (const RequestStatus end : {RequestStatus::Completed, RequestStatus::Interrupted, RequestStatus::Failed}) {
        Speak();
        desktop.engine.Complete(desktop.engine.requests.size() - 1, end);
        EXPECT_EQ(Shown(), "Merlin");
    }
}

TEST_F(StatusBar, BetweenTwoLinesOfASpeech_ShowsThatItReads)
{
    bParlune::CharSpeak("One\r\nTwo");
    desktop.engine.Complete(desktop.engine.requests.size() - 2);
    EXPECT_EQ(Shown(), "Merlin - reading");
}

TEST_F(StatusBar, WhenTheCharacterHides_ShowsThatItIsHidden)
{
    character::EventReceiver().Hide("Bot", 1);
    EXPECT_EQ(Shown(), "Merlin - hidden");
    character::EventReceiver().Show("Bot", 1);
    EXPECT_EQ(Shown(), "Merlin");
}

TEST_F(StatusBar, WhenTheCharacterIsUnloaded_ShowsThatItIsHidden)
{
    Speak();
    popupMenu::mnuPopHide_Click();
    EXPECT_EQ(Shown(), "Character - hidden");
}

TEST_F(StatusBar, WhenTheMonitorIsSwitched_ShowsIt)
{
    bClipboard::SetClipboardMonitor(true);
    EXPECT_EQ(Shown(), "Merlin - monitoring the clipboard");
    bClipboard::SetClipboardMonitor(false);
    EXPECT_EQ(Shown(), "Merlin");
}

TEST_F(StatusBar, Refresh_ASecondTime_AsksTheEngineForNothing)
{
    statusBar::Refresh();
    EXPECT_TRUE(desktop.journal.Calls().empty());
}

TEST_F(StatusBar, Refresh_WhenTheEngineFails_KeepsTheTextAndIsSilent)
{
    desktop.journal.FailAlways("Character.Name", failure);
    character::CharLoad("Robby", /*show*/ true);
    desktop.messageBoxes.shown.clear();
    statusBar::Refresh();
    EXPECT_EQ(Shown(), "Merlin");
    EXPECT_TRUE(desktop.messageBoxes.shown.empty());
}

}
