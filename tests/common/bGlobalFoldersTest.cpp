#include "common/bGlobal.h"
#include "support/FailEachCall.h"
#include <gtest/gtest.h>

namespace {

constexpr auto Nothing = [](CHeadlessDesktop&) {};

}

TEST(bGlobalFolders, GetWinDir_WithoutASeparatorAtItsEnd_GetsOne)
{
    CHeadlessDesktop desktop;
    EXPECT_EQ(bGlobal::GetWinDir(), "C:\\WINDOWS\\");
}

TEST(bGlobalFolders, GetWinDir_ADriveAlone_KeepsItsSeparator)
{
    CHeadlessDesktop desktop;
    desktop.files.windowsFolder = "D:\\";
    EXPECT_EQ(bGlobal::GetWinDir(), "D:\\");
}

TEST(bGlobalFolders, GetWinDir_NoAnswerOfTheSystem_StillEndsInASeparator)
{
    CHeadlessDesktop desktop;
    desktop.files.windowsFolder = "";
    EXPECT_EQ(bGlobal::GetWinDir(), "\\");
}

TEST(bGlobalFolders, GetWinDir_ALongPath_IsAskedForWithALimitOf255)
{
    CHeadlessDesktop desktop;
    desktop.files.windowsFolder = std::string(300, 'w');
    EXPECT_EQ(bGlobal::GetWinDir(), std::string(255, 'w') + "\\");
}

TEST(bGlobalFolders, GetWinSysDir_EndsInASeparator)
{
    CHeadlessDesktop desktop;
    EXPECT_EQ(bGlobal::GetWinSysDir(), "C:\\WINDOWS\\system32\\");
}

TEST(bGlobalFolders, GetTempDir_WithASeparatorAtItsEnd_GetsNoSecondOne)
{
    CHeadlessDesktop desktop;
    EXPECT_EQ(bGlobal::GetTempDir(), "C:\\Temp\\");
}

TEST(bGlobalFolders, GetWinDir_WhenTheSystemFails_IsReportedAndOnlyASeparator)
{
    std::string folder;
    support::FailEachCall(
        Nothing, [&](CHeadlessDesktop&) { folder = bGlobal::GetWinDir(); },
        [&](const support::FailedRun& run) {
            support::ExpectReport(run, {{"", "bGlobal:GetWinDir"}});
            EXPECT_EQ(folder, "\\");
        });
}

TEST(bGlobalFolders, GetWinSysDir_WhenTheSystemFails_IsReported)
{
    support::FailEachCallAndExpect({{"", "bGlobal:GetWinSysDir"}}, Nothing,
                                   [](CHeadlessDesktop&) { bGlobal::GetWinSysDir(); });
}

TEST(bGlobalFolders, GetTempDir_WhenTheSystemFails_IsReported)
{
    support::FailEachCallAndExpect({{"", "bGlobal:GetTempDir"}}, Nothing, [](CHeadlessDesktop&) { bGlobal::GetTempDir(); });
}

TEST(bGlobalFolders, FileExists_AFile_IsTrue)
{
    CHeadlessDesktop desktop;
    desktop.files.PutFile("C:\\Temp\\a.txt");
    EXPECT_TRUE(bGlobal::FileExists("C:\\Temp\\a.txt"));
}

TEST(bGlobalFolders, FileExists_AFolder_IsFalse)
{
    CHeadlessDesktop desktop;
    EXPECT_FALSE(bGlobal::FileExists("C:\\Temp"));
}

TEST(bGlobalFolders, FileExists_WhatIsNotThere_IsFalse)
{
    CHeadlessDesktop desktop;
    EXPECT_FALSE(bGlobal::FileExists("C:\\Temp\\none.txt"));
}

TEST(bGlobalFolders, FileExists_AnEmptyPath_IsFalseWithoutAsking)
{
    CHeadlessDesktop desktop;
    EXPECT_FALSE(bGlobal::FileExists(""));
    EXPECT_TRUE(desktop.journal.Calls().empty());
}

TEST(bGlobalFolders, FileExists_WhenLookingFails_IsReportedAndFalse)
{
    bool exists = true;
    support::FailEachCall([](CHeadlessDesktop& desktop) { desktop.files.PutFile("C:\\Temp\\a.txt"); },
                          [&](CHeadlessDesktop&) { exists = bGlobal::FileExists("C:\\Temp\\a.txt"); },
                          [&](const support::FailedRun& run) {
                              support::ExpectReport(run, {{"", "bGlobal:FileExists"}});
                              EXPECT_FALSE(exists);
                          });
}

TEST(bGlobalFolders, FolderExists_AFolder_IsTrue)
{
    CHeadlessDesktop desktop;
    EXPECT_TRUE(bGlobal::FolderExists("C:\\Temp\\"));
}

TEST(bGlobalFolders, FolderExists_WithoutASeparator_GetsOne)
{
    CHeadlessDesktop desktop;
    EXPECT_TRUE(bGlobal::FolderExists("C:\\Temp"));
    EXPECT_EQ(desktop.journal.Calls(), std::vector<std::string>{"Files.Kind C:\\Temp\\"});
}

TEST(bGlobalFolders, FolderExists_AFile_IsFalse)
{
    CHeadlessDesktop desktop;
    desktop.files.PutFile("C:\\Temp\\a.txt");
    EXPECT_FALSE(bGlobal::FolderExists("C:\\Temp\\a.txt"));
}

TEST(bGlobalFolders, FolderExists_AnEmptyPath_IsFalse)
{
    CHeadlessDesktop desktop;
    EXPECT_FALSE(bGlobal::FolderExists(""));
}

TEST(bGlobalFolders, FolderExists_WhenLookingFails_IsReportedAndFalse)
{
    bool exists = true;
    support::FailEachCall(
        Nothing, [&](CHeadlessDesktop&) { exists = bGlobal::FolderExists("C:\\Temp"); },
        [&](const support::FailedRun& run) {
            support::ExpectReport(run, {{"", "bGlobal:FolderExists"}});
            EXPECT_FALSE(exists);
        });
}

TEST(bGlobalFolders, FileNamePart_AfterTheLastSeparator_IsTheName)
{
    CHeadlessDesktop desktop;
    EXPECT_EQ(bGlobal::FileNamePart("C:\\My Texts\\a.txt"), "a.txt");
}

TEST(bGlobalFolders, FileNamePart_WithoutASeparator_IsTheWholePath)
{
    CHeadlessDesktop desktop;
    EXPECT_EQ(bGlobal::FileNamePart("a.txt"), "a.txt");
}

TEST(bGlobalFolders, FileNamePart_OfAFolder_IsEmpty)
{
    CHeadlessDesktop desktop;
    EXPECT_EQ(bGlobal::FileNamePart("C:\\My Texts\\"), "");
}

TEST(bGlobalFolders, FolderPart_UpToTheLastSeparator_IncludesIt)
{
    CHeadlessDesktop desktop;
    EXPECT_EQ(bGlobal::FolderPart("C:\\My Texts\\a.txt"), "C:\\My Texts\\");
}

TEST(bGlobalFolders, FolderPart_WithoutASeparator_IsEmpty)
{
    CHeadlessDesktop desktop;
    EXPECT_EQ(bGlobal::FolderPart("a.txt"), "");
}

TEST(bGlobalFolders, MakeFolder_BelowAnExistingFolder_CreatesIt)
{
    CHeadlessDesktop desktop;
    EXPECT_TRUE(bGlobal::MakeFolder("C:\\Temp\\new"));
    EXPECT_TRUE(desktop.files.Has("C:\\Temp\\new"));
}

TEST(bGlobalFolders, MakeFolder_TwoLevelsAtOnce_FailsAndIsNotReported)
{
    CHeadlessDesktop desktop;
    EXPECT_FALSE(bGlobal::MakeFolder("C:\\Temp\\new\\newer"));
    EXPECT_TRUE(desktop.messageBoxes.shown.empty());
}

TEST(bGlobalFolders, MakeFolder_AnExistingFolder_FailsAndIsNotReported)
{
    CHeadlessDesktop desktop;
    EXPECT_FALSE(bGlobal::MakeFolder("C:\\Temp"));
    EXPECT_TRUE(desktop.messageBoxes.shown.empty());
}

TEST(bGlobalFolders, MakeFolder_WhenCreatingFails_IsFalseAndNotReported)
{
    bool made = true;
    support::FailEachCall(
        Nothing, [&](CHeadlessDesktop&) { made = bGlobal::MakeFolder("C:\\Temp\\new"); },
        [&](const support::FailedRun& run) {
            support::ExpectReport(run, {{"", ""}});
            EXPECT_FALSE(made);
        });
}
