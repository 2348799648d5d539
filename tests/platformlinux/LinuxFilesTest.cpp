#include "platform/linux/LinuxFiles.h"
#include "TemporaryHome.h"
#include "platform/Failure.h"
#include "platform/FirstStart.h"
#include "platform/linux/FirstStart.h"
#include "platform/linux/LinuxEnvironment.h"
#include "platform/linux/LinuxRegistry.h"
#include "platform/linux/UserFolders.h"
#include <algorithm>
#include <sys/stat.h>

namespace platform::linuxdesktop {
namespace {
struct LinuxFiles : testing::Test {
    CTemporaryFolder folder;
    CEnvironmentChange environment;
    CLinuxFiles files;

    std::vector<std::string> Sorted(const std::string& pattern) const
    {
        auto names = files.Match(folder.Path(pattern));
        std::sort(names.begin(), names.end());
        return names;
    }
    template <class Call> static std::int32_t FailureOf(Call call)
    {
        try {
            call();
        } catch (const CFailure& failure) {
            return failure.Number();
        }
        return 0;
    }
    std::int32_t FailureOfReading(const std::string& name) const
    {
        return FailureOf([&] { files.ReadText(name); });
    }
    std::int32_t FailureOfDeleting(const std::string& path)
    {
        return FailureOf([&] { files.Delete(path); });
    }
    std::int32_t FailureOfRenaming(const std::string& from, const std::string& to)
    {
        return FailureOf([&] { files.Rename(from, to); });
    }
};
using Names = std::vector<std::string>;
}

TEST_F(LinuxFiles, WindowsFolder_DataHomeSet_IsBelowIt)
{
    environment.Set("XDG_DATA_HOME", "/data/");
    EXPECT_EQ(files.WindowsFolder(255), "/data/parlune");
}

TEST_F(LinuxFiles, WindowsFolder_DataHomeUnsetEmptyOrRelative_IsBelowHome)
{
    environment.Set("HOME", "/home/ann");
    for (const auto& value :
         {std::optional<std::string>(), std::optional<std::string>(""), std::optional<std::string>("x")}) {
        environment.Set("XDG_DATA_HOME", value);
        EXPECT_EQ(files.WindowsFolder(255), "/home/ann/.local/share/parlune");
    }
}

TEST_F(LinuxFiles, WindowsFolder_LongerThanTheLimit_IsNoWrongFolder)
{
    environment.Set("XDG_DATA_HOME", "/" + std::string(300, 'x'));
    EXPECT_EQ(files.WindowsFolder(255), "");
}

TEST_F(LinuxFiles, StateFolder_StateHomeSet_IsBelowIt)
{
    environment.Set("XDG_STATE_HOME", "/state/");
    EXPECT_EQ(StateFolder(), "/state/parlune");
}

TEST_F(LinuxFiles, StateFolder_StateHomeUnsetOrRelative_IsBelowHome)
{
    environment.Set("HOME", "/home/ann");
    for (const auto& value : {std::optional<std::string>(), std::optional<std::string>("x")}) {
        environment.Set("XDG_STATE_HOME", value);
        EXPECT_EQ(StateFolder(), "/home/ann/.local/state/parlune");
    }
}

TEST_F(LinuxFiles, SystemAndTemporaryFolders_Exist)
{
    EXPECT_EQ(files.Kind(files.SystemFolder(255)), EntryKind::Folder);
    EXPECT_EQ(files.Kind(files.TemporaryFolder(255)), EntryKind::Folder);
}

TEST_F(LinuxFiles, ProgramFolder_IsWhereThisTestLies)
{
    EXPECT_EQ(files.Kind(files.ProgramFolder() + "/test_platformlinux"), EntryKind::File);
}

TEST_F(LinuxFiles, Kind_FileFolderAndNothing)
{
    folder.Write("file", "");
    EXPECT_EQ(files.Kind(folder.Path("file")), EntryKind::File);
    EXPECT_EQ(files.Kind(folder.Path()), EntryKind::Folder);
    EXPECT_EQ(files.Kind(folder.Path() + "/"), EntryKind::Folder);
    EXPECT_EQ(files.Kind(folder.Path("file/x")), EntryKind::None);
    EXPECT_EQ(files.Kind(""), EntryKind::None);
}

TEST_F(LinuxFiles, MakeFolder_MissingParent_IsPathNotFound)
{
    EXPECT_NO_THROW(files.MakeFolder(folder.Path("a")));
    try {
        files.MakeFolder(folder.Path("b/c"));
        FAIL();
    } catch (const CFailure& failure) {
        EXPECT_EQ(failure.Number(), 76);
    }
}

TEST_F(LinuxFiles, MakeFolder_ThereAlready_IsAccessError)
{
    try {
        files.MakeFolder(folder.Path());
        FAIL();
    } catch (const CFailure& failure) {
        EXPECT_EQ(failure.Number(), 75);
    }
}

TEST_F(LinuxFiles, Match_Characters_IncludesHiddenOnesAndAnyLetterCase)
{
    folder.Write("Robby.ACS", "");
    folder.Write(".hidden.acs", "");
    folder.Write("notes.txt", "");
    folder.MakeFolder("folder.acs");

    EXPECT_EQ(Sorted("*.acs"), (Names{".hidden.acs", "Robby.ACS"}));
}

TEST_F(LinuxFiles, Match_MissingFolder_IsEmpty) { EXPECT_EQ(files.Match(folder.Path("none/*.acs")), Names{}); }

TEST_F(LinuxFiles, ReadText_Windows1252_IsText)
{
    folder.Write("a.txt", "Caf\xE9\nzwei");
    EXPECT_EQ(files.ReadText(folder.Path("a.txt")), "Café\r\nzwei");
}

TEST_F(LinuxFiles, ReadText_Failures_HaveTheirNumbers)
{
    folder.Write("file", "x");
    EXPECT_EQ(FailureOfReading(folder.Path("none.txt")), 53);
    EXPECT_EQ(FailureOfReading(folder.Path("none/none.txt")), 76);
    EXPECT_EQ(FailureOfReading(folder.Path("file/none.txt")), 76);
    EXPECT_EQ(FailureOfReading(folder.Path()), 75);
    EXPECT_EQ(FailureOfReading(""), 75);
    EXPECT_EQ(FailureOfReading(folder.Path(std::string(300, 'x'))), 52);
    EXPECT_EQ(FailureOfReading(folder.Path("file") + std::string("\0", 1)), 52);
}

TEST_F(LinuxFiles, ReadText_Pipe_FailsInsteadOfWaiting)
{
    ASSERT_EQ(::mkfifo(folder.Path("pipe").c_str(), 0600), 0);
    EXPECT_EQ(FailureOfReading(folder.Path("pipe")), 75);
    EXPECT_EQ(FailureOfReading("/dev/zero"), 75);
}

TEST_F(LinuxFiles, ReadText_FileOfUnknownSize_IsReadToItsEnd)
{
    EXPECT_EQ(files.ReadText("/proc/self/comm"), "test_platformli\r\n");
}

TEST_F(LinuxFiles, ReadText_HundredMegabytes_IsWhole)
{
    const std::string line(99, 'x');
    {
        std::ofstream file(folder.Path("large.txt"));
        for (int i = 0; i < 1000000; ++i)
            file << line << '\n';
    }
    EXPECT_EQ(files.ReadText(folder.Path("large.txt")).size(), std::size_t{101000000});
}

TEST_F(LinuxFiles, AppData_ConfigurationFolder_IsNotCreated)
{
    environment.Set("XDG_CONFIG_HOME", folder.Path("config"));

    EXPECT_EQ(CLinuxEnvironment("").Variable("APPDATA"), folder.Path("config"));
    EXPECT_FALSE(folder.Has("config"));
}

TEST_F(LinuxFiles, AppData_NothingSet_IsBelowHome)
{
    environment.Set("XDG_CONFIG_HOME", std::nullopt);
    environment.Set("HOME", "/home/ann/");
    EXPECT_EQ(CLinuxEnvironment("").Variable("APPDATA"), "/home/ann/.config");
    EXPECT_EQ(CLinuxEnvironment("").Variable("PARLUNE_NOT_SET"), "");
}

TEST_F(LinuxFiles, MakeUserFolders_SeveralLevels_AreForThisUserAlone)
{
    EXPECT_TRUE(MakeUserFolders(folder.Path("a/b/c")));
    EXPECT_EQ(std::filesystem::status(folder.Path("a")).permissions(), std::filesystem::perms::owner_all);
    folder.Write("file", "");
    EXPECT_FALSE(MakeUserFolders(folder.Path("file/a")));
}

TEST_F(LinuxFiles, Delete_AFile_RemovesIt)
{
    folder.Write("a.txt", "text");
    files.Delete(folder.Path("a.txt"));
    EXPECT_FALSE(folder.Has("a.txt"));
}

TEST_F(LinuxFiles, Delete_WhatIsNoFile_FailsAndRemovesNothing)
{
    folder.MakeFolder("a");
    EXPECT_EQ(FailureOfDeleting(folder.Path("b.txt")), 53);
    EXPECT_EQ(FailureOfDeleting(folder.Path("b/c.txt")), 76);
    EXPECT_EQ(FailureOfDeleting(folder.Path("a")), 75);
    EXPECT_EQ(FailureOfDeleting(folder.Path("a") + std::string("\0.txt", 5)), 52);
    EXPECT_TRUE(folder.Has("a"));
}

TEST_F(LinuxFiles, Rename_AFile_KeepsItsContent)
{
    folder.Write("a.ini", "text");
    files.Rename(folder.Path("a.ini"), folder.Path("a.old"));
    EXPECT_FALSE(folder.Has("a.ini"));
    EXPECT_EQ(folder.Read("a.old"), "text");
}

TEST_F(LinuxFiles, Rename_OntoSomethingThatIsThere_FailsAndKeepsBoth)
{
    folder.Write("a.ini", "new");
    folder.Write("a.old", "old");
    EXPECT_EQ(FailureOfRenaming(folder.Path("a.ini"), folder.Path("a.old")), 58);
    EXPECT_EQ(folder.Read("a.ini"), "new");
    EXPECT_EQ(folder.Read("a.old"), "old");
}

TEST_F(LinuxFiles, Rename_WhatIsNotThere_Fails)
{
    EXPECT_EQ(FailureOfRenaming(folder.Path("a.ini"), folder.Path("a.old")), 53);
    folder.Write("a.ini", "text");
    EXPECT_EQ(FailureOfRenaming(folder.Path("a.ini"), folder.Path("none/a.old")), 76);
}

TEST_F(LinuxFiles, PlaceCharacters_MissingOnes_AreCopied)
{
    folder.Write("from/Nibbin.acs", "new");
    folder.Write("from/Own.acs", "bundled");
    folder.Write("from/readme.txt", "no character");
    folder.Write("to/Own.acs", "the user's own");
    PlaceCharacters(folder.Path("from"), folder.Path("to"));

    EXPECT_EQ(Sorted("to/*"), (Names{"Nibbin.acs", "Own.acs"}));
    EXPECT_EQ(folder.Read("to/Nibbin.acs"), "new");
    EXPECT_EQ(folder.Read("to/Own.acs"), "the user's own");
}

TEST_F(LinuxFiles, PlaceCharacters_NoneBundledOrNoPlace_IsHarmless)
{
    PlaceCharacters(folder.Path("none"), folder.Path("a/b"));
    EXPECT_TRUE(folder.Has("a/b"));
    folder.Write("from/Nibbin.acs", "new");
    folder.Write("blocked", "a file in the folder's place");
    EXPECT_NO_THROW(PlaceCharacters(folder.Path("from"), folder.Path("blocked")));
}

TEST_F(LinuxFiles, SeedGreetings_NewUser_GetsFiveWithoutAName)
{
    CLinuxRegistry registry(folder.Path("registry.txt"), CAutostart("", ""));
    SeedGreetings(registry);
    const std::string text = folder.Read("registry.txt");

    for (int i = 1; i <= 5; ++i)
        EXPECT_NE(text.find("\"Greeting" + std::to_string(i) + "\" = \""), std::string::npos) << i;
    EXPECT_EQ(text.find("{UserName}"), std::string::npos);
    EXPECT_EQ(std::count(text.begin(), text.end(), '='), 5);
}

TEST_F(LinuxFiles, PrepareOptions_AnotherKeyIsStored_GivesTheGreetings)
{
    CLinuxRegistry registry(folder.Path("registry.txt"), CAutostart("", ""));
    registry.Create(Root::CurrentUser, "Software\\Tarrowind\\Other")->SetText("Name", "Ada");
    PrepareOptions(registry);
    const auto key = registry.Open(Root::CurrentUser, "Software\\Tarrowind\\Parlune");

    ASSERT_TRUE(key);
    EXPECT_TRUE(key->ValueSize("Greeting1"));
    EXPECT_TRUE(key->ValueSize("Greeting5"));
    EXPECT_TRUE(key->ValueSize("CharWidth"));
}

TEST_F(LinuxFiles, PrepareOptions_AnOptionIsStored_GivesNoGreetings)
{
    CLinuxRegistry registry(folder.Path("registry.txt"), CAutostart("", ""));
    registry.Create(Root::CurrentUser, "Software\\Tarrowind\\Parlune")->SetText("UserName", "Ada");
    PrepareOptions(registry);
    const auto key = registry.Open(Root::CurrentUser, "Software\\Tarrowind\\Parlune");

    EXPECT_FALSE(key->ValueSize("Greeting1"));
    EXPECT_TRUE(key->ValueSize("CharWidth"));
}

TEST_F(LinuxFiles, SeedCustomSize_OneSideStored_OnlyTheOtherIsAdded)
{
    CLinuxRegistry registry(folder.Path("registry.txt"), CAutostart("", ""));
    registry.Create(Root::CurrentUser, "Software\\Tarrowind\\Parlune")->SetText("CharWidth", "200");
    SeedCustomSize(registry);

    EXPECT_NE(folder.Read("registry.txt").find("\"CharHeight\" = \"0\"\n\"CharWidth\" = \"200\"\n"), std::string::npos);
}

}
