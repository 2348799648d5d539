#include "platform/windows/WindowsFiles.h"
#include "Support.h"
#include <algorithm>

namespace platform::windowsdesktop {
namespace {
struct Files : testing::Test {
    CTemporaryFolder folder;
    CWindowsFiles files;

    std::vector<std::string> Matches(const std::string& pattern) const
    {
        auto names = files.Match(folder.Path(pattern));
        std::sort(names.begin(), names.end());
        return names;
    }
    void SetAttributes(const std::string& name, DWORD attributes) const
    {
        SetFileAttributesW(ToWide(folder.Path(name)).c_str(), attributes);
    }
};
using Texts = std::vector<std::string>;
using namespace std::string_literals;
}

TEST_F(Files, WindowsFolder_IsTheSystems)
{
    char expected[MAX_PATH] = {};
    GetWindowsDirectoryA(expected, MAX_PATH);
    EXPECT_EQ(files.WindowsFolder(255), expected);
    EXPECT_EQ(files.Kind(files.WindowsFolder(255)), EntryKind::Folder);
}

TEST_F(Files, SystemFolder_LiesInTheWindowsFolder)
{
    EXPECT_EQ(files.SystemFolder(255).substr(0, files.WindowsFolder(255).size() + 1), files.WindowsFolder(255) + "\\");
}

TEST_F(Files, TemporaryFolder_EndsWithASeparator) { EXPECT_EQ(files.TemporaryFolder(255).back(), '\\'); }

TEST_F(Files, SystemsFolders_LongerThanTheLimit_AreEmpty)
{
    const std::size_t size = files.WindowsFolder(255).size();
    EXPECT_EQ(files.WindowsFolder(size), "");
    EXPECT_EQ(files.WindowsFolder(size + 1).size(), size);
    EXPECT_EQ(files.SystemFolder(3), "");
    EXPECT_EQ(files.TemporaryFolder(3), "");
    EXPECT_EQ(files.TemporaryFolder(0), "");
}

TEST_F(Files, ProgramFolder_HoldsTheRunningProgram)
{
    EXPECT_EQ(files.Kind(files.ProgramFolder() + "\\test_platformwindows.exe"), EntryKind::File);
}

TEST_F(Files, CurrentFolder_IsTheProcesses)
{
    const CCurrentFolder here(folder.Path());
    EXPECT_EQ(files.CurrentFolder(), folder.Path());
}

TEST_F(Files, Kind_TellsFilesFromFolders)
{
    folder.Write("a.txt", "");
    EXPECT_EQ(files.Kind(folder.Path("a.txt")), EntryKind::File);
    EXPECT_EQ(files.Kind(folder.Path()), EntryKind::Folder);
    EXPECT_EQ(files.Kind(folder.Path() + "\\"), EntryKind::Folder);
    EXPECT_EQ(files.Kind(folder.Path("none")), EntryKind::None);
    EXPECT_EQ(files.Kind(""), EntryKind::None);
    EXPECT_EQ(files.Kind(folder.Path("a*")), EntryKind::None);
    EXPECT_EQ(files.Kind(folder.Path("a.txt") + "\0.bak"s), EntryKind::None);
}

TEST_F(Files, MakeFolder_MakesOneLevel)
{
    files.MakeFolder(folder.Path("A"));
    EXPECT_EQ(files.Kind(folder.Path("A")), EntryKind::Folder);
    EXPECT_EQ(FailureOf([&] { files.MakeFolder(folder.Path("none\\B")); }), 76);
    EXPECT_EQ(FailureOf([&] { files.MakeFolder(folder.Path("A")); }), 75);
    EXPECT_EQ(FailureOf([&] { files.MakeFolder(""); }), 75);
    EXPECT_EQ(FailureOf([&] { files.MakeFolder(folder.Path(std::string(260, 'x'))); }), 52);
    EXPECT_EQ(FailureOf([&] { files.MakeFolder("A\0B"s); }), 52);
}

TEST_F(Files, Match_FindsHiddenAndSystemFilesButNoFolders)
{
    folder.Write("Robby.ACS", "");
    folder.Write("hidden.acs", "");
    folder.Write("system.acs", "");
    folder.Write("other.txt", "");
    folder.MakeFolder("folder.acs");
    SetAttributes("hidden.acs", FILE_ATTRIBUTE_HIDDEN);
    SetAttributes("system.acs", FILE_ATTRIBUTE_SYSTEM);
    EXPECT_EQ(Matches("*.acs"), (Texts{"Robby.ACS", "hidden.acs", "system.acs"}));
}

TEST_F(Files, Match_ANameWhoseShortFormMatches_IsNotMeant)
{
    folder.Write("Robby.acsbackup", "");
    folder.Write("my.acs.backup.acs", "");
    EXPECT_EQ(Matches("*.acs"), (Texts{"my.acs.backup.acs"}));
}

TEST_F(Files, Match_NamesOfEveryScript_AreFound)
{
    folder.Write("\xE6\x97\xA5\xE6\x9C\xAC.acs", "");
    EXPECT_EQ(Matches("*.acs"), (Texts{"\xE6\x97\xA5\xE6\x9C\xAC.acs"}));
}

TEST_F(Files, Match_NothingFound_IsEmpty)
{
    EXPECT_EQ(Matches("*.acs"), Texts{});
    EXPECT_EQ(Matches("none\\*.acs"), Texts{});
    EXPECT_EQ(files.Match(""), Texts{});
    EXPECT_EQ(files.Match("*\0x"s), Texts{});
}

TEST_F(Files, Delete_RemovesAFile)
{
    folder.Write("a.txt", "a");
    files.Delete(folder.Path("a.txt"));
    EXPECT_EQ(folder.Names(), Texts{});
    EXPECT_EQ(FailureOf([&] { files.Delete(folder.Path("a.txt")); }), 53);
    EXPECT_EQ(FailureOf([&] { files.Delete(folder.Path()); }), 75);
    EXPECT_EQ(FailureOf([&] { files.Delete(""); }), 75);
}

TEST_F(Files, Delete_AReadOnlyFile_Fails)
{
    folder.Write("a.txt", "a");
    SetAttributes("a.txt", FILE_ATTRIBUTE_READONLY);
    EXPECT_EQ(FailureOf([&] { files.Delete(folder.Path("a.txt")); }), 75);
    EXPECT_EQ(folder.Read("a.txt"), "a");
}

TEST_F(Files, Rename_GivesAnotherName)
{
    folder.Write("Parlune.ini", "a");
    files.Rename(folder.Path("Parlune.ini"), folder.Path("Parlune.old"));
    EXPECT_EQ(folder.Names(), Texts{"Parlune.old"});
}

TEST_F(Files, Rename_NeverReplaces)
{
    folder.Write("a", "first");
    folder.Write("b", "second");
    EXPECT_EQ(FailureOf([&] { files.Rename(folder.Path("a"), folder.Path("b")); }), 58);
    EXPECT_EQ(folder.Read("b"), "second");
    EXPECT_EQ(FailureOf([&] { files.Rename(folder.Path("none"), folder.Path("c")); }), 53);
    EXPECT_EQ(FailureOf([&] { files.Rename(folder.Path("a"), folder.Path("none\\c")); }), 76);
}

TEST_F(Files, PathsOf250Characters_Work)
{
    const std::string name = std::string(250 - folder.Path().size() - 5, 'n') + ".txt";
    ASSERT_EQ(folder.Path(name).size(), 250U);
    files.WriteLine(folder.Path(name), "abc");
    EXPECT_EQ(files.ReadText(folder.Path(name)), "abc\r\n");
    files.WriteLine(folder.Path(name), "def");
    EXPECT_EQ(files.ReadText(folder.Path(name)), "def\r\n");
    EXPECT_EQ(Matches("*.txt"), Texts{name});
    files.Delete(folder.Path(name));
    EXPECT_EQ(folder.Names(), Texts{});
}

TEST_F(Files, AFolderOfNearlyTheGreatestLength_HoldsAFileOfAShorterNameThanTheTemporaryOne)
{
    const std::string deep(255 - folder.Path().size() - 1, 'd');
    files.MakeFolder(folder.Path(deep).substr(0, 247));
    const std::string path = folder.Path(deep).substr(0, 247) + "\\abcdefghijk";
    ASSERT_EQ(path.size(), 259U);
    files.WriteLine(path, "abc");
    files.WriteLine(path, "def");
    EXPECT_EQ(files.ReadText(path), "def\r\n");
}

TEST_F(Files, PathsOf260CharactersAndMore_FailClearly)
{
    const std::string path = folder.Path(std::string(260 - folder.Path().size() - 1, 'n'));
    ASSERT_EQ(path.size(), 260U);
    EXPECT_EQ(FailureOf([&] { files.ReadText(path); }), 52);
    EXPECT_EQ(FailureOf([&] { files.OpenLines(path); }), 52);
    EXPECT_EQ(FailureOf([&] { files.WriteLine(path, "a"); }), 52);
    EXPECT_EQ(FailureOf([&] { files.Delete(path); }), 52);
    EXPECT_EQ(FailureOf([&] { files.Rename(folder.Path(), path); }), 52);
}

}
