#include "settings/Paths.h"
#include "startup/bInit.h"
#include "support/FailEachCall.h"
#include <gtest/gtest.h>

namespace {

using settings::Paths;

constexpr char OwnFolder[] = "C:\\Users\\Ann\\AppData\\Roaming\\Tarrowind\\Parlune";

}

TEST(Folders, SetUpFolders_TheFoldersOfTheSystem_EndInASeparator)
{
    CHeadlessDesktop desktop;

    bInit::SetUpFolders();

    EXPECT_EQ(Paths().windowsFolder, "C:\\WINDOWS\\");
    EXPECT_EQ(Paths().systemFolder, "C:\\WINDOWS\\system32\\");
    EXPECT_EQ(Paths().programFolder, "C:\\Program Files\\Parlune\\");
    EXPECT_EQ(Paths().temporaryFolder, "C:\\Temp\\");
}

TEST(Folders, SetUpFolders_TheCharacterFolder_IsBelowTheWindowsFolder)
{
    CHeadlessDesktop desktop;
    desktop.files.windowsFolder = "D:\\";
    bInit::SetUpFolders();
    EXPECT_EQ(Paths().characterFolder, "D:\\MSAgent\\Chars\\");
}

TEST(Folders, SetUpFolders_WithoutTheOwnFolder_CreatesBothLevelsAndUsesThem)
{
    CHeadlessDesktop desktop;

    bInit::SetUpFolders();

    EXPECT_TRUE(desktop.files.Has(OwnFolder));
    EXPECT_EQ(desktop.journal.CallsOf("Files.MakeFolder"),
              (std::vector<std::string>{"Files.MakeFolder C:\\Users\\Ann\\AppData\\Roaming\\Tarrowind\\",
                                        "Files.MakeFolder C:\\Users\\Ann\\AppData\\Roaming\\Tarrowind\\Parlune\\"}));
    EXPECT_EQ(Paths().settingsFile, "C:\\Users\\Ann\\AppData\\Roaming\\Tarrowind\\Parlune\\Parlune.ini");
}

TEST(Folders, SetUpFolders_WithTheOuterLevelOnly_CreatesTheInnerOneAndUsesIt)
{
    CHeadlessDesktop desktop;
    desktop.files.PutFolder("C:\\Users\\Ann\\AppData\\Roaming\\Tarrowind");

    bInit::SetUpFolders();

    EXPECT_EQ(Paths().settingsFile, "C:\\Users\\Ann\\AppData\\Roaming\\Tarrowind\\Parlune\\Parlune.ini");
    EXPECT_TRUE(desktop.messageBoxes.shown.empty());
}

TEST(Folders, SetUpFolders_WithTheOwnFolder_CreatesNothing)
{
    CHeadlessDesktop desktop;
    desktop.files.PutFolder(OwnFolder);

    bInit::SetUpFolders();

    EXPECT_EQ(desktop.journal.Count("Files.MakeFolder"), 0U);
    EXPECT_EQ(Paths().settingsFile, "C:\\Users\\Ann\\AppData\\Roaming\\Tarrowind\\Parlune\\Parlune.ini");
}

TEST(Folders, SetUpFolders_WithoutTheVariable_UsesTheBareFileName)
{
    CHeadlessDesktop desktop;
    desktop.environment.variables.clear();

    bInit::SetUpFolders();

    EXPECT_EQ(Paths().settingsFile, "Parlune.ini");
    EXPECT_EQ(desktop.journal.Count("Files.MakeFolder"), 0U);
    EXPECT_TRUE(desktop.messageBoxes.shown.empty());
}

TEST(Folders, SetUpFolders_AVariableThatNamesNoFolder_IsUsedAsItIs)
{
    CHeadlessDesktop desktop;
    desktop.environment.variables["APPDATA"] = "E:\\Gone";

    bInit::SetUpFolders();

    EXPECT_EQ(Paths().settingsFile, "E:\\Gone\\Parlune.ini");
    EXPECT_EQ(desktop.journal.Count("Files.MakeFolder"), 0U);
    EXPECT_TRUE(desktop.messageBoxes.shown.empty());
}

TEST(Folders, SetUpFolders_AVariableWithASeparatorAtItsEnd_GetsNoSecondOne)
{
    CHeadlessDesktop desktop;
    desktop.environment.variables["APPDATA"] = "C:\\Users\\Ann\\AppData\\Roaming\\";
    bInit::SetUpFolders();
    EXPECT_EQ(Paths().settingsFile, "C:\\Users\\Ann\\AppData\\Roaming\\Tarrowind\\Parlune\\Parlune.ini");
}

TEST(Folders, SetUpFolders_WhenTheOwnFolderCannotBeCreated_UsesTheProgramFolder)
{
    CHeadlessDesktop desktop;
    desktop.journal.FailAlways("Files.MakeFolder", platform::failure::PermissionDenied());

    bInit::SetUpFolders();

    EXPECT_EQ(Paths().settingsFile, "C:\\Program Files\\Parlune\\Parlune.ini");
    EXPECT_EQ(desktop.journal.Count("Files.MakeFolder"), 2U);
    EXPECT_TRUE(desktop.messageBoxes.shown.empty());
}

TEST(Folders, SetUpFolders_AFileInTheWayOfTheOwnFolder_UsesTheProgramFolder)
{
    CHeadlessDesktop desktop;
    desktop.files.PutFile("C:\\Users\\Ann\\AppData\\Roaming\\Tarrowind");
    bInit::SetUpFolders();
    EXPECT_EQ(Paths().settingsFile, "C:\\Program Files\\Parlune\\Parlune.ini");
}

TEST(Folders, SetUpFolders_TheHelpFile_NeverFollowsTheVariable)
{
    for (const char* variable : {"", "E:\\Gone", "C:\\Users\\Ann\\AppData\\Roaming"}) {
        CHeadlessDesktop desktop;
        desktop.environment.variables["APPDATA"] = variable;
        bInit::SetUpFolders();
        EXPECT_EQ(Paths().helpFile, "C:\\Program Files\\Parlune\\Parlune.chm");
    }
}

TEST(Folders, SetUpFolders_WhenACallFails_IsReportedUnderItsProcedureAndTheRestIsSettled)
{
    const std::vector<support::ReportRule> rules{{"Files.WindowsFolder", "bGlobal:GetWinDir"},
                                                 {"Files.SystemFolder", "bGlobal:GetWinSysDir"},
                                                 {"Files.TemporaryFolder", "bGlobal:GetTempDir"},
                                                 {"Files.ProgramFolder", "bInit:SetUpFolders"},
                                                 {"Environment.Variable", "bInit:SetUpFolders"},
                                                 {"Files.Kind", "bGlobal:FolderExists"},
                                                 {"Files.MakeFolder", ""}};
    support::FailEachCall([](CHeadlessDesktop&) {}, [](CHeadlessDesktop&) { bInit::SetUpFolders(); },
                          [&](const support::FailedRun& run) {
                              support::ExpectReport(run, rules);
                              EXPECT_TRUE(Paths().settingsFile.ends_with("Parlune.ini"));
                              EXPECT_TRUE(Paths().helpFile.ends_with("Parlune.chm"));
                              EXPECT_TRUE(Paths().characterFolder.ends_with("MSAgent\\Chars\\"));
                          });
}
