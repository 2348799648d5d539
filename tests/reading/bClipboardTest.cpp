#include "reading/bClipboard.h"
#include "platform/headless/Desktop.h"
#include "reading/bRead.h"
#include "support/LoadedCharacter.h"
#include <algorithm>
#include <gtest/gtest.h>

namespace {

using bClipboard::Monitoring;
using bClipboard::SetClipboardMonitor;

// A desktop with a visible character that reads what it is given.
class bClipboardTest : public testing::Test {
protected:
    bClipboardTest()
    {
        support::LoadCharacter(desktop, "Robby");
        desktop.engine.loaded->visible = true;
    }
    std::size_t TextsRead() const { return desktop.journal.Count("Clipboard.Text"); }
    std::size_t Watches() const { return desktop.journal.Count("Clipboard.Watch"); }
    std::size_t Stops() const { return desktop.journal.Count("Clipboard.StopWatching"); }

    // Of 20 paragraphs, between which other things happen.
    static std::string LongText()
    {
        std::string longText;
        for (int line = 0; line < 20; ++line)
            longText += "A line that is long enough to be read on its own.\r\n\r\n";
        return longText;
    }

    CHeadlessDesktop desktop;
};

}

TEST_F(bClipboardTest, Monitoring_AtTheStart_IsOff) { EXPECT_FALSE(Monitoring()); }

TEST_F(bClipboardTest, SetClipboardMonitor_True_WatchesTheClipboard)
{
    SetClipboardMonitor(true);
    EXPECT_TRUE(Monitoring());
    EXPECT_TRUE(desktop.clipboard.Watched());
}

TEST_F(bClipboardTest, SetClipboardMonitor_True_DoesNotReadWhatIsThereAlready)
{
    desktop.clipboard.Put("old");
    SetClipboardMonitor(true);
    EXPECT_EQ(TextsRead(), 0U);
    EXPECT_EQ(desktop.journal.Count("Character.Speak"), 0U);
}

TEST_F(bClipboardTest, ClipboardChanged_ATextCopied_IsRead)
{
    SetClipboardMonitor(true);
    desktop.clipboard.Put("new text");
    ASSERT_EQ(desktop.journal.Count("Character.Speak"), 1U);
    EXPECT_NE(desktop.journal.CallsOf("Character.Speak").at(0).find("new text"), std::string::npos);
}

TEST_F(bClipboardTest, ClipboardChanged_EachCopy_IsReadOnce)
{
    SetClipboardMonitor(true);
    desktop.clipboard.Put("one");
    desktop.clipboard.Put("two");
    EXPECT_EQ(desktop.journal.Count("Character.Speak"), 2U);
}

TEST_F(bClipboardTest, ClipboardChanged_APictureCopied_IsNotRead)
{
    SetClipboardMonitor(true);
    desktop.clipboard.Put(std::nullopt);
    EXPECT_EQ(desktop.journal.Count("Clipboard.HasText"), 1U);
    EXPECT_EQ(TextsRead(), 0U);
    EXPECT_EQ(desktop.journal.Count("Character.Speak"), 0U);
}

TEST_F(bClipboardTest, SetClipboardMonitor_TwiceTrue_WatchesOnce)
{
    SetClipboardMonitor(true);
    SetClipboardMonitor(true);
    EXPECT_EQ(Watches(), 1U);
}

TEST_F(bClipboardTest, SetClipboardMonitor_FalseWhileOff_ChangesNothing)
{
    SetClipboardMonitor(false);
    EXPECT_EQ(Stops(), 0U);
    EXPECT_FALSE(Monitoring());
}

TEST_F(bClipboardTest, SetClipboardMonitor_False_StopsWatching)
{
    SetClipboardMonitor(true);
    SetClipboardMonitor(false);
    desktop.clipboard.Put("new");
    EXPECT_FALSE(Monitoring());
    EXPECT_FALSE(desktop.clipboard.Watched());
    EXPECT_EQ(desktop.journal.Count("Character.Speak"), 0U);
}

TEST_F(bClipboardTest, SetClipboardMonitor_TwiceFalse_StopsOnce)
{
    SetClipboardMonitor(true);
    SetClipboardMonitor(false);
    SetClipboardMonitor(false);
    EXPECT_EQ(Stops(), 1U);
}

TEST_F(bClipboardTest, SetClipboardMonitor_OnAgain_WatchesAgain)
{
    SetClipboardMonitor(true);
    SetClipboardMonitor(false);
    SetClipboardMonitor(true);
    desktop.clipboard.Put("new");
    EXPECT_EQ(Watches(), 2U);
    EXPECT_EQ(desktop.journal.Count("Character.Speak"), 1U);
}

TEST_F(bClipboardTest, SetClipboardMonitor_WhenWatchingFails_IsNotReportedAndCountsAsOn)
{
    desktop.journal.FailNext("Clipboard.Watch", platform::failure::DeviceError());
    SetClipboardMonitor(true);
    EXPECT_TRUE(Monitoring());
    EXPECT_TRUE(desktop.messageBoxes.shown.empty());
}

TEST_F(bClipboardTest, SetClipboardMonitor_WhenStoppingFails_CountsAsOffAndReadsNothingMore)
{
    SetClipboardMonitor(true);
    desktop.journal.FailNext("Clipboard.StopWatching", platform::failure::DeviceError());

    SetClipboardMonitor(false);
    desktop.clipboard.Put("new");

    EXPECT_FALSE(Monitoring());
    EXPECT_TRUE(desktop.messageBoxes.shown.empty());
    EXPECT_EQ(desktop.journal.Count("Character.Speak"), 0U);
}

TEST_F(bClipboardTest, ClipboardChanged_WhileAnEarlierTextIsRead_IsReadInItsMiddle)
{
    SetClipboardMonitor(true);
    desktop.events.AtYield(2, [&] { desktop.clipboard.Put("second"); });

    desktop.clipboard.Put(LongText());

    std::size_t place = 0;
    const std::vector<std::string> spoken = desktop.journal.CallsOf("Character.Speak");
    while (place < spoken.size() && spoken[place].find("second") == std::string::npos)
        ++place;
    EXPECT_GT(place, 0U);
    EXPECT_LT(place, spoken.size() - 1);
}

TEST_F(bClipboardTest, ClipboardChanged_ASecretCopied_IsNotRead)
{
    SetClipboardMonitor(true);
    desktop.clipboard.PutSecret("my password");
    EXPECT_EQ(TextsRead(), 0U);
    EXPECT_EQ(desktop.journal.Count("Character.Speak"), 0U);
}

TEST_F(bClipboardTest, ClipboardChanged_ATextAfterASecret_IsRead)
{
    SetClipboardMonitor(true);
    desktop.clipboard.PutSecret("my password");
    desktop.clipboard.Put("new text");
    EXPECT_EQ(desktop.engine.Spoken(), std::vector<std::string>{"new text"});
}

TEST_F(bClipboardTest, ReadClipboard_OfASecret_ReadsItOnCommand)
{
    desktop.clipboard.PutSecret("my password");
    bRead::ReadClipboard();
    EXPECT_EQ(desktop.engine.Spoken(), std::vector<std::string>{"my password"});
}

TEST_F(bClipboardTest, ClipboardChanged_WhenTheClipboardCannotSayWhetherItIsSecret_IsNotReadAndNotReported)
{
    SetClipboardMonitor(true);
    desktop.journal.FailNext("Clipboard.IsSecret", platform::failure::DeviceError());
    desktop.clipboard.Put("new text");
    EXPECT_TRUE(desktop.engine.Spoken().empty());
    EXPECT_TRUE(desktop.messageBoxes.shown.empty());
}

TEST_F(bClipboardTest, ClipboardChanged_AFloodOfLongTexts_NestsFewReadsAndEndsWithTheLast)
{
    SetClipboardMonitor(true);
    int copies = 0;
    int running = 0;
    int deepest = 0;
    desktop.events.onYield = [&] {
        if (copies == 1000)
            return;
        deepest = std::max(deepest, ++running);
        desktop.clipboard.Put(LongText() + "copy " + std::to_string(++copies));
        --running;
    };

    desktop.clipboard.Put(LongText() + "the first copy");

    EXPECT_EQ(copies, 1000);
    EXPECT_EQ(deepest, 8);
    const std::vector<std::string> spoken = desktop.engine.Spoken();
    EXPECT_EQ(spoken.back(), "the first copy");
    EXPECT_EQ(std::count(spoken.begin(), spoken.end(), "copy 1000"), 1);
}

namespace {

// A clipboard that calls the program back while it is asked to watch or to stop: what it asks for is not there yet.
class CCallingClipboard final : public platform::IClipboard {
public:
    bool HasText() const override { return false; }
    std::string Text() const override { return ""; }
    bool IsSecret() const override { return false; }
    bool CanWatch() const override { return true; }
    void Watch(std::function<void()>) override
    {
        if (++watches < 3)
            SetClipboardMonitor(true);
    }
    void StopWatching() override
    {
        if (++stops < 3)
            SetClipboardMonitor(false);
    }
    int watches = 0;
    int stops = 0;
};

}

TEST_F(bClipboardTest, SetClipboardMonitor_FromInsideItself_ChangesNothing)
{
    CCallingClipboard clipboard;
    const platform::CPlatform& now = platform::Current();
    const platform::CPlatform platform{now.characterEngines, clipboard,  now.clock,   now.environment,   now.events,
                                       now.fileDialogs,      now.files,  now.fonts,   now.keptTexts,     now.locale,
                                       now.messageBoxes,     now.office, now.profile, now.program,       now.random,
                                       now.registry,         now.screen, now.shell,   now.speechEngines, now.stateFile,
                                       now.trayIcon};
    const platform::CPlatformInUse inUse(platform);

    SetClipboardMonitor(true);
    EXPECT_TRUE(Monitoring());
    SetClipboardMonitor(false);
    EXPECT_FALSE(Monitoring());

    EXPECT_EQ(clipboard.watches, 1);
    EXPECT_EQ(clipboard.stops, 1);
}
