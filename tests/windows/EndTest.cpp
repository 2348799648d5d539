#include "driver/Companion.h"

// Every way to end the program, and what is written then.
using namespace driver;

namespace {

class End : public CCompanion {
protected:
    void ExpectEndedWell()
    {
        EXPECT_TRUE(parlune.HasEnded());
        EXPECT_EQ(parlune.Process().ExitCode(), 0U);
        EXPECT_EQ(registry::Option("TTSTestText"),
                  "Welcome to Parlune from Tarrowind Technologies!\r\n");  // Written at the end only.
    }
};

TEST_F(End, ByTheFileMenu_SavesTheOptions)
{
    Begin();
    parlune.Choose("mnuFileExit");

    ExpectEndedWell();
}

TEST_F(End, ByThePopupMenu_SavesTheOptions)
{
    Begin();
    parlune.Choose("mnuPopExit");

    ExpectEndedWell();
}

TEST_F(End, ByVoice_SavesTheOptions)
{
    Begin();
    agent.Hears("ExitParlune");

    ExpectEndedWell();
}

TEST_F(End, ByVoiceWithMinimizeOnClose_StillEnds)
{
    registry::PutOption("MinimizeOnClose", "1");
    Begin();
    agent.Hears("ExitParlune");

    ExpectEndedWell();
}

TEST_F(End, ByTheCloseBoxWithoutMinimizeOnClose_SavesTheOptions)
{
    registry::PutOption("MinimizeOnClose", "0");
    BeginShown();
    PostMessageW(parlune.Main(), WM_SYSCOMMAND, SC_CLOSE, 0);

    ExpectEndedWell();
}

TEST_F(End, ByTheCloseBoxWithMinimizeOnClose_HidesTheWindowOnly)
{
    registry::PutOption("MinimizeOnClose", "1");
    BeginShown();
    PostMessageW(parlune.Main(), WM_SYSCOMMAND, SC_CLOSE, 0);

    EXPECT_TRUE(Eventually([&] { return !IsWindowVisible(parlune.Main()); }));
    EXPECT_TRUE(Answers(parlune.Main()));
    EXPECT_TRUE(parlune.IsRunning());
}

TEST_F(End, ByTheKeyboardOfTheWindow_HidesTheWindowOnly)
{
    registry::PutOption("MinimizeOnClose", "1");
    BeginShown();
    hand::Press({VK_MENU, VK_F4});

    EXPECT_TRUE(Eventually([&] { return !IsWindowVisible(parlune.Main()); }));
    EXPECT_TRUE(parlune.IsRunning());
}

TEST_F(End, ByACloseMessageOfAnotherProgram_EndsInSpiteOfMinimizeOnClose)
{
    registry::PutOption("MinimizeOnClose", "1");
    BeginShown();
    PostMessageW(parlune.Main(), WM_CLOSE, 0, 0);

    ExpectEndedWell();
}

TEST_F(End, OfTheSession_SavesTheOptions)
{
    registry::PutOption("MinimizeOnClose", "1");
    Begin();
    const HWND main = parlune.Main();
    EXPECT_NE(Ask(main, WM_QUERYENDSESSION), 0);
    Ask(main, WM_ENDSESSION, TRUE);

    EXPECT_TRUE(Eventually([] { return registry::Option("TTSTestText") != "(none)"; }));
}

TEST_F(End, OfTheSessionTakenBack_LeavesTheProgramRunning)
{
    Begin();
    const HWND main = parlune.Main();
    Ask(main, WM_QUERYENDSESSION);
    Ask(main, WM_ENDSESSION, FALSE);

    EXPECT_TRUE(Answers(main));
    EXPECT_EQ(registry::Option("TTSTestText"), "(none)");
    EXPECT_TRUE(parlune.IsRunning());
}

TEST_F(End, ByForceAfterAChange_TheNextStartHasIt)
{
    registry::PutOption("QueueReadCommands", "1");
    BeginShown();
    parlune.SetText("txtUserName", "Ann ä");
    parlune.Click("chkQueueReadCommands");
    const std::string journal = CParlune::DataFolder() + "Tarrowind\\Parlune\\Options.journal";
    EXPECT_TRUE(Eventually([&] {
        const std::string kept = Contents(journal);
        return kept.find("UserNameAnn ä") != std::string::npos && kept.find("QueueReadCommands10") != std::string::npos;
    }));
    EXPECT_EQ(registry::Option("UserName"), "(none)");
    parlune.Process().Kill();
    EXPECT_FALSE(Contents(journal).empty());
    Begin();
    EXPECT_TRUE(Eventually([] { return registry::Option("UserName") == "Ann ä"; }));
    EXPECT_TRUE(Eventually([] { return registry::Option("QueueReadCommands") == "0"; }));
    EXPECT_EQ(parlune.Text("txtUserName"), "Ann ä");
    parlune.End();

    EXPECT_EQ(Contents(journal), "");
}

TEST_F(End, ByForceOfOneOfTwo_TheNextStartHasItsChange)
{
    CParlune other;
    other.Start(" /NODETECT");
    ASSERT_TRUE(Eventually([&] { return other.Main() != nullptr; }));
    BeginShown();
    parlune.SetText("txtUserName", "Ann");
    const std::string journal = CParlune::DataFolder() + "Tarrowind\\Parlune\\Options-2.journal";
    EXPECT_TRUE(Eventually([&] { return Contents(journal).find("UserNameAnn") != std::string::npos; }));
    parlune.Process().Kill();
    Begin();

    EXPECT_TRUE(Eventually([] { return registry::Option("UserName") == "Ann"; }));
}

TEST_F(End, WithAModifiedDocument_SavesItSilently)
{
    const std::string file = CParlune::DataFolder() + "letter.txt";
    WriteFile(file, "first\r\n");
    BeginShown();
    parlune.Choose("mnuFileOpen");
    GiveFile(WaitForFileDialog(parlune.Id(), "Open Text File"), file);
    EXPECT_TRUE(Eventually([&] { return parlune.Text("txtRead") == "first\r\n"; }));
    parlune.SetText("txtRead", "changed");
    parlune.Choose("mnuFileExit");

    EXPECT_TRUE(parlune.HasEnded());
    EXPECT_EQ(Contents(file), "changed\r\n");
}

TEST_F(End, WithAModifiedNewDocument_AsksForAFileName)
{
    BeginShown();
    parlune.SetText("txtRead", "new");
    parlune.Choose("mnuFileExit");
    const HWND dialog = WaitForFileDialog(parlune.Id(), "Save Text File");
    ASSERT_TRUE(dialog);
    GiveFile(dialog, CParlune::DataFolder() + "kept.txt");

    EXPECT_TRUE(parlune.HasEnded());
    EXPECT_EQ(Contents(CParlune::DataFolder() + "kept.txt"), "new\r\n");
}

TEST_F(End, WithTheClipboardWatched_LeavesTheViewerChain)
{
    registry::PutOption("MonitorClipboard", "1");
    Begin();
    ASSERT_EQ(GetClipboardViewer(), parlune.Main());
    parlune.End();

    EXPECT_NE(ProcessOf(GetClipboardViewer()), parlune.Id());
}

TEST_F(End, WithTheCharacterOnTheDesk_KeepsItsPlaceWhenTheButtonIsPressedOnly)
{
    Begin();
    parlune.End();

    EXPECT_EQ(registry::Option("CharLeft"), "(none)");
    EXPECT_EQ(registry::Option("CharTop"), "(none)");
}

}
