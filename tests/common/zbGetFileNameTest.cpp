#include "common/zbGetFileName.h"
#include "support/FailEachCall.h"
#include <gtest/gtest.h>

namespace {

using platform::FileDialog;

std::string Ask(const std::string& mode, const std::string& filter = "Text Files (*.txt)|*.txt",
                const std::string& initialFile = "")
{
    return zbGetFileName::GetFileName(mode, filter, 2, "C:\\Texts\\", initialFile, "TXT", "Select a file");
}

}

TEST(zbGetFileName, GetFileName_AChosenFile_IsItsPath)
{
    CHeadlessDesktop desktop;
    desktop.fileDialogs.answers = {"C:\\Texts\\a.txt"};
    EXPECT_EQ(Ask("OPEN"), "C:\\Texts\\a.txt");
}

TEST(zbGetFileName, GetFileName_Cancelled_IsEmpty)
{
    CHeadlessDesktop desktop;
    EXPECT_EQ(Ask("OPEN"), "");
}

TEST(zbGetFileName, GetFileName_Open_AsksForAFileThatExists)
{
    CHeadlessDesktop desktop;

    Ask("OPEN");

    const FileDialog& dialog = desktop.fileDialogs.asked.at(0);
    EXPECT_EQ(dialog.mode, FileDialog::Mode::Open);
    EXPECT_TRUE(dialog.fileMustExist);
    EXPECT_FALSE(dialog.pathMustExist);
    EXPECT_FALSE(dialog.confirmOverwrite);
}

TEST(zbGetFileName, GetFileName_Save_AsksForAnExistingFolderAndConfirmsOverwriting)
{
    CHeadlessDesktop desktop;

    Ask("SAVE");

    const FileDialog& dialog = desktop.fileDialogs.asked.at(0);
    EXPECT_EQ(dialog.mode, FileDialog::Mode::Save);
    EXPECT_FALSE(dialog.fileMustExist);
    EXPECT_TRUE(dialog.pathMustExist);
    EXPECT_TRUE(dialog.confirmOverwrite);
}

TEST(zbGetFileName, GetFileName_TheModeInAnyCase_IsAccepted)
{
    CHeadlessDesktop desktop;

    Ask("open");
    Ask("Save");

    EXPECT_EQ(desktop.fileDialogs.asked.size(), 2U);
    EXPECT_TRUE(desktop.messageBoxes.shown.empty());
}

TEST(zbGetFileName, GetFileName_AnyOtherMode_ShowsTheMessageAndIsEmpty)
{
    CHeadlessDesktop desktop;
    desktop.fileDialogs.answers = {"C:\\Texts\\a.txt"};

    EXPECT_EQ(Ask("OPEN "), "");

    EXPECT_EQ(desktop.messageBoxes.Last().text, "The GetFileName function requires OPEN or SAVE to be the first parameter.");
    EXPECT_EQ(desktop.messageBoxes.Last().icon, platform::BoxIcon::Exclamation);
    EXPECT_EQ(desktop.messageBoxes.Last().title, "Parlune");
    EXPECT_TRUE(desktop.fileDialogs.asked.empty());
}

TEST(zbGetFileName, GetFileName_TheFilter_IsSeparatedByNuls)
{
    CHeadlessDesktop desktop;

    Ask("OPEN", "Text (*.txt)|*.txt|All|*.*");

    EXPECT_EQ(desktop.fileDialogs.asked.at(0).filter, std::string("Text (*.txt)\0*.txt\0All\0*.*", 26));
}

TEST(zbGetFileName, GetFileName_BarsAtTheEndsOfTheFilter_AreRemoved)
{
    CHeadlessDesktop desktop;

    Ask("OPEN", "||All|*.*||");

    EXPECT_EQ(desktop.fileDialogs.asked.at(0).filter, std::string("All\0*.*", 7));
}

TEST(zbGetFileName, GetFileName_AFilterOfBarsOnly_IsEmpty)
{
    CHeadlessDesktop desktop;

    Ask("OPEN", "||");

    EXPECT_EQ(desktop.fileDialogs.asked.at(0).filter, "");
}

TEST(zbGetFileName, GetFileName_TheOtherArguments_ReachTheDialogAsTheyAre)
{
    CHeadlessDesktop desktop;

    Ask("OPEN", "All|*.*", "a.txt");

    const FileDialog& dialog = desktop.fileDialogs.asked.at(0);
    EXPECT_EQ(dialog.filterIndex, 2);
    EXPECT_EQ(dialog.initialFolder, "C:\\Texts\\");
    EXPECT_EQ(dialog.initialFile, "a.txt");
    EXPECT_EQ(dialog.defaultExtension, "TXT");
    EXPECT_EQ(dialog.title, "Select a file");
    EXPECT_EQ(dialog.fileLimit, 256U);
}

TEST(zbGetFileName, GetFileName_AnInitialNameLongerThanTheBuffer_IsCutBetweenTwoCharacters)
{
    CHeadlessDesktop desktop;
    std::string longName = "a";
    for (int count = 0; count < 200; ++count)
        longName += "ä";

    Ask("OPEN", "All|*.*", longName);

    EXPECT_EQ(desktop.fileDialogs.asked.at(0).initialFile, longName.substr(0, 255));
}

TEST(zbGetFileName, GetFileName_ANulInTheAnswer_EndsThePath)
{
    CHeadlessDesktop desktop;
    desktop.fileDialogs.answers = {std::string("C:\\a.txt\0rubbish", 16)};
    EXPECT_EQ(Ask("OPEN"), "C:\\a.txt");
}

TEST(zbGetFileName, GetFileName_WhenTheDialogFails_IsReportedAndEmpty)
{
    std::string path = "former";
    support::FailEachCall([](CHeadlessDesktop& desktop) { desktop.fileDialogs.answers = {"C:\\a.txt"}; },
                          [&](CHeadlessDesktop&) { path = Ask("OPEN"); },
                          [&](const support::FailedRun& run) {
                              support::ExpectReport(run, {{"", "bGetFileName:GetFileName"}});
                              EXPECT_EQ(path, "");
                          });
}

TEST(zbGetFileName, GetFileName_WhenTheMessageFails_IsReportedAndEmpty)
{
    support::FailEachCallAndExpect(
        {{"", "bGetFileName:GetFileName"}}, [](CHeadlessDesktop&) {},
        [](CHeadlessDesktop&) { EXPECT_EQ(Ask("PRINT"), ""); });
}
