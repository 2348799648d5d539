#include "driver/Companion.h"
#include "driver/WebPages.h"

// Every entry of the menu bar and of the popup menu, by its command and by keyboard.
using namespace driver;

namespace {

class MenuBar : public CCompanion {
protected:
    // Opens a menu of the bar by its letter and presses the keys of an entry.
    void ChooseByKeys(WORD menu, std::initializer_list<WORD> keys)
    {
        hand::Front(parlune.Main());
        hand::Press({VK_MENU, menu});
        ASSERT_TRUE(Eventually([&] { return MenuIsOpen(parlune.Main()); }));
        for (WORD key : keys)
            hand::Press({key});
    }
    bool HasTitle(const std::string& title)
    {
        return Eventually([&] { return parlune.Title() == title; });
    }
    bool IsOn(Page page)
    {
        return Eventually([&] { return parlune.TabOf("tabMain") == static_cast<int>(page); });
    }
};

TEST_F(MenuBar, New_EmptiesTheEditorAndShowsItsPage)
{
    BeginShown();
    parlune.Choose("mnuFileNew");

    EXPECT_TRUE(HasTitle("Parlune - [New File]"));
    EXPECT_TRUE(IsOn(Page::Read));
}

TEST_F(MenuBar, New_ByKeys)
{
    BeginShown();
    ChooseByKeys('F', {'N'});

    EXPECT_TRUE(HasTitle("Parlune - [New File]"));
}

TEST_F(MenuBar, Open_ByKeys_AsksForAFileAndShowsTheEditor)
{
    BeginShown();
    ChooseByKeys('F', {'O'});
    const HWND dialog = WaitForFileDialog(parlune.Id(), "Open Text File");
    ASSERT_TRUE(dialog);
    CancelDialog(dialog);

    EXPECT_TRUE(IsOn(Page::Read));
}

TEST_F(MenuBar, Save_OfAnEmptyEditor_DoesNothing)
{
    BeginShown();
    ChooseByKeys('F', {'S'});
    ASSERT_TRUE(Eventually([&] { return !MenuIsOpen(parlune.Main()); }));
    parlune.Choose("mnuFileNew");

    EXPECT_TRUE(HasTitle("Parlune - [New File]"));
    EXPECT_FALSE(FindBox(parlune.Id()));
}

TEST_F(MenuBar, Save_OfANewText_AsksForAFile)
{
    BeginShown();
    parlune.SetText("txtRead", "abc");
    parlune.Choose("mnuFileSave");
    const HWND dialog = WaitForFileDialog(parlune.Id(), "Save Text File");
    ASSERT_TRUE(dialog);
    GiveFile(dialog, CParlune::DataFolder() + "new");

    EXPECT_TRUE(HasTitle("Parlune - [" + CParlune::DataFolder() + "new.TXT]"));
    EXPECT_EQ(Contents(CParlune::DataFolder() + "new.TXT"), "abc\r\n");
}

TEST_F(MenuBar, Read_ByKeys_SpeaksTheEditorsText)
{
    BeginShown();
    parlune.SetText("txtRead", "Read me.");
    agent.Forget();
    ChooseByKeys('F', {'R', VK_RETURN});  // "Read" and "Reset Defaults..." share the letter.

    EXPECT_TRUE(agent.Speaks("Read me."));
}

TEST_F(MenuBar, Close_EmptiesTheEditor)
{
    BeginShown();
    parlune.Choose("mnuFileNew");
    ASSERT_TRUE(HasTitle("Parlune - [New File]"));
    ChooseByKeys('F', {'C'});

    EXPECT_TRUE(HasTitle("Parlune"));
}

TEST_F(MenuBar, Stop_ByKeys_StopsAll)
{
    BeginShown();
    agent.Forget();
    ChooseByKeys('F', {'P'});

    EXPECT_TRUE(agent.Sees("call Character[Bot].StopAll"));
}

TEST_F(MenuBar, Exit_ByKeys_Ends)
{
    BeginShown();
    ChooseByKeys('F', {'X'});

    EXPECT_TRUE(parlune.HasEnded());
}

TEST_F(MenuBar, DownloadCharacters_OpensItsPage)
{
    BeginShown();
    ChooseByKeys('D', {VK_RETURN});

    EXPECT_EQ(browser::WaitForPage(), "https://parlune.example/characters");
}

TEST_F(MenuBar, DownloadVoiceEngines_OpensItsPage)
{
    BeginShown();
    ChooseByKeys('D', {VK_DOWN, VK_RETURN});

    EXPECT_EQ(browser::WaitForPage(), "https://parlune.example/speech-engines");
}

TEST_F(MenuBar, About_ByKeys_ShowsItsPage)
{
    BeginShown();
    ChooseByKeys('H', {'A'});

    EXPECT_TRUE(IsOn(Page::About));
}

class ResetDefaults : public CCompanion {
protected:
    Box Ask()
    {
        registry::PutOption("UserName", "Ada");
        BeginShown();
        parlune.Choose("mnuFileResetDefaults");
        return SeeBox();
    }
};

TEST_F(ResetDefaults, Asks_WithNoAsTheStandardButton)
{
    const Box box = Ask();

    EXPECT_EQ(box.text, "Are you sure you want to reset all options\r\nto their original installation defaults?");
    EXPECT_EQ(box.title, "Parlune");
    EXPECT_EQ(box.buttons, (std::vector<int>{IDYES, IDNO}));
    EXPECT_EQ(box.standard, IDNO);
    EXPECT_EQ(SignOf(box), Sign::Warning);
}

TEST_F(ResetDefaults, No_ChangesNothing)
{
    Answer(Ask(), IDNO);
    EXPECT_EQ(registry::Option("UserName"), "Ada");
    parlune.End();

    EXPECT_EQ(registry::Option("UserName"), "Ada");
}

TEST_F(ResetDefaults, Yes_TellsOfItAndEndsWithoutOptions)
{
    Answer(Ask(), IDYES);
    const Box box = SeeBox();
    EXPECT_EQ(box.text,
              "All options have been reset to their original installation defaults.\r\n\r\nPlease restart Parlune.");
    EXPECT_EQ(box.title, "Parlune");
    EXPECT_EQ(box.buttons, std::vector<int>{IDOK});
    EXPECT_EQ(SignOf(box), Sign::Information);
    Answer(box, IDOK);

    EXPECT_TRUE(parlune.HasEnded());
    EXPECT_FALSE(registry::HasKey(HKEY_CURRENT_USER, registry::OptionKey));
}

TEST_F(ResetDefaults, Yes_RenamesTheSettingsBesideTheProgram)
{
    WriteFile(CParlune::Folder() + "Parlune.ini", "[new]\r\n");
    WriteFile(CParlune::Folder() + "Parlune.old", "[old]\r\n");
    Answer(Ask(), IDYES);
    Answer(SeeBox(), IDOK);

    EXPECT_TRUE(parlune.HasEnded());
    EXPECT_FALSE(FileExists(CParlune::Folder() + "Parlune.ini"));
    EXPECT_EQ(Contents(CParlune::Folder() + "Parlune.old"), "[new]\r\n");
}

class PopupMenu : public CCompanion {
protected:
    void Start()
    {
        Begin();
        agent.Forget();
    }
    // As the user does it: a right click on the character, then the entries' letters.
    void ChooseByKeys(std::initializer_list<WORD> keys)
    {
        agent.Click(2);
        ASSERT_TRUE(Eventually([&] { return MenuIsOpen(parlune.Main()); }));
        for (WORD key : keys)
            hand::Press({key});
    }
};

TEST_F(PopupMenu, ReadClipboard_ByKeys_Reads)
{
    clipboard::CopyText("The copied text.");
    Start();
    ChooseByKeys({'C'});

    EXPECT_TRUE(agent.Speaks("The copied text."));
}

TEST_F(PopupMenu, ReadTextFile_ByKeys_ReadsTheChosenFile)
{
    WriteFile(CParlune::DataFolder() + "story.txt", "Once upon a time.");
    Start();
    ChooseByKeys({'F'});
    GiveFile(WaitForFileDialog(parlune.Id(), "Read Text File"), CParlune::DataFolder() + "story.txt");

    EXPECT_TRUE(agent.Speaks("Once upon a time."));
    parlune.End();
    EXPECT_EQ(registry::Option("LastFolder"), CParlune::DataFolder());
}

TEST_F(PopupMenu, AnnounceTime_ByKeys_TicksItsBox)
{
    Start();
    ASSERT_FALSE(parlune.IsTicked("chkSayTime"));
    ChooseByKeys({'T'});

    EXPECT_TRUE(Eventually([&] { return parlune.IsTicked("chkSayTime"); }));
}

TEST_F(PopupMenu, AnnounceTimeTwice_ClearsItsBoxAgain)
{
    Start();
    parlune.Choose("mnuPopSayTime");
    ASSERT_TRUE(Eventually([&] { return parlune.IsTicked("chkSayTime"); }));
    parlune.Choose("mnuPopSayTime");

    EXPECT_TRUE(Eventually([&] { return !parlune.IsTicked("chkSayTime"); }));
}

TEST_F(PopupMenu, AutoReadClipboard_ByKeys_TicksItsBoxAndWatches)
{
    Start();
    ChooseByKeys({'A'});

    EXPECT_TRUE(Eventually([&] { return parlune.IsTicked("chkMonitorClipboard"); }));
    EXPECT_TRUE(Eventually([&] { return GetClipboardViewer() == parlune.Main(); }));
}

TEST_F(PopupMenu, Options_ByKeys_ShowsTheWindow)
{
    Start();
    ChooseByKeys({'O'});

    EXPECT_TRUE(Eventually([&] { return parlune.IsShown(); }));
}

TEST_F(PopupMenu, Hide_ByKeys_UnloadsTheCharacter)
{
    Start();
    ChooseByKeys({'H'});

    EXPECT_TRUE(agent.Sees("call Character[Bot].Hide"));
    EXPECT_TRUE(agent.Sees("call Characters.Unload(\"Bot\")"));
}

TEST_F(PopupMenu, Hide_WhileAnotherProgramHasTheCharacter_OnlyHides)
{
    Start();
    ASSERT_TRUE(agent.Tell("set Bot HasOtherClients true"));
    parlune.Choose("mnuPopHide");
    ASSERT_TRUE(agent.Sees("call Character[Bot].Hide"));
    parlune.Choose("mnuPopHide");
    ASSERT_TRUE(agent.Sees("call Character[Bot].Show"));

    EXPECT_TRUE(agent.LinesWith("call Characters.Unload").empty());
}

TEST_F(PopupMenu, HideThenShow_LoadsTheCharacterAgain)
{
    Start();
    parlune.Choose("mnuPopHide");
    ASSERT_TRUE(agent.Sees("call Characters.Unload"));
    agent.Forget();
    parlune.Choose("mnuPopHide");

    EXPECT_TRUE(agent.Sees("call Characters.Load(\"Bot\""));
    EXPECT_TRUE(agent.Sees("call Character[Bot].Show"));
}

TEST_F(PopupMenu, Skip_StopsOneRequest)
{
    clipboard::CopyText("The copied text.");
    Start();
    agent.Tell("hold on");
    parlune.Choose("mnuPopReadClipboard");
    ASSERT_TRUE(agent.Speaks("The copied text."));
    agent.Forget();
    parlune.Choose("mnuPopCharSkip");

    EXPECT_TRUE(agent.Sees("call Character[Bot].Stop("));
    EXPECT_TRUE(agent.LinesWith("call Character[Bot].StopAll").empty());
}

TEST_F(PopupMenu, Pause_ByKeys_StopsAll)
{
    Start();
    ChooseByKeys({'P'});

    EXPECT_TRUE(agent.Sees("call Character[Bot].StopAll"));
}

TEST_F(PopupMenu, Stop_ByKeys_StopsAllAndRests)
{
    Start();
    ChooseByKeys({'S'});

    EXPECT_TRUE(agent.Sees("call Character[Bot].StopAll"));
    EXPECT_TRUE(agent.Sees("call Character[Bot].Play(\"RestPose\")"));
}

TEST_F(PopupMenu, Exit_ByKeys_Ends)
{
    Start();
    ChooseByKeys({'E'});

    EXPECT_TRUE(parlune.HasEnded());
}

}
