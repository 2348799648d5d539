#include "platform/linux/NameBeside.h"
#include "TemporaryHome.h"
#include "platform/linux/LinuxFiles.h"
#include <fcntl.h>
#include <sys/file.h>
#include <sys/stat.h>

namespace platform::linuxdesktop {
namespace {
pid_t ProcessThatIsOver()
{
    const pid_t child = ::fork();
    if (child == 0)
        ::_exit(0);
    ::waitpid(child, nullptr, 0);
    return child;
}

// What processes that were killed while they saved "letter.txt" have left.
struct LeftBeside : testing::Test {
    CTemporaryFolder folder;
    const std::string over = std::to_string(ProcessThatIsOver());
    const std::string left = ".letter.txt." + over + "-7.parlune";

    void Save() const { CLinuxFiles().WriteLine(folder.Path("letter.txt"), "new"); }
    bool StaysAtTheNextSave(const std::string& name) const
    {
        folder.Write(name, "half");
        Save();
        return folder.Has(name);
    }
};
}

TEST_F(LeftBeside, Save_AProcessThatIsOverLeftAFile_RemovesIt)
{
    folder.Write(left, "half");
    folder.Write(".letter.txt." + over + "-12.parlune", "half");
    Save();
    EXPECT_FALSE(folder.Has(left));
    EXPECT_FALSE(folder.Has(".letter.txt." + over + "-12.parlune"));
    EXPECT_EQ(folder.Read("letter.txt"), "new\n");
}

TEST_F(LeftBeside, Save_ThroughALink_LooksBesideTheFileItself)
{
    folder.Write("real/letter.txt", "old");
    folder.Write("real/" + left, "half");
    std::filesystem::create_symlink("real/letter.txt", folder.Path("letter.txt"));
    Save();
    EXPECT_FALSE(folder.Has("real/" + left));
}

TEST_F(LeftBeside, Save_AProcessThatRunsIsWriting_LeavesItsFile)
{
    EXPECT_TRUE(StaysAtTheNextSave(".letter.txt." + std::to_string(::getppid()) + "-7.parlune"));
}

TEST_F(LeftBeside, Save_AFileThatIsLocked_Stays)
{
    folder.Write(left, "half");
    const int elsewhere = ::open(folder.Path(left).c_str(), O_RDONLY | O_CLOEXEC);
    ASSERT_EQ(::flock(elsewhere, LOCK_EX), 0);
    Save();
    ::close(elsewhere);
    EXPECT_TRUE(folder.Has(left));
}

TEST_F(LeftBeside, Save_OtherNames_Stay)
{
    const std::vector<std::string> others = {
        ".letter.txt." + over + "-7.parlune2",
        ".letter.txt." + over + "-7",
        ".letter.txt." + over + "7.parlune",
        ".letter.txt." + over + "-.parlune",
        ".letter.txt." + over + "-7x.parlune",
        ".letter.txt.-" + over + "-7.parlune",
        ".letter.txt.x" + over + "-7.parlune",
        "letter.txt." + over + "-7.parlune",
        ".other.txt." + over + "-7.parlune",
        ".letter.txt.-7.parlune",
        ".letter.txt.0-7.parlune",
        ".letter.txt.99999999999999999999-7.parlune",
    };
    for (const std::string& name : others)
        EXPECT_TRUE(StaysAtTheNextSave(name)) << name;
}

TEST_F(LeftBeside, Save_WhatIsNoFile_Stays)
{
    folder.MakeFolder(left);
    ASSERT_EQ(::mkfifo(folder.Path(".letter.txt." + over + "-8.parlune").c_str(), 0600), 0);
    folder.Write("target", "of the user");
    std::filesystem::create_symlink("target", folder.Path(".letter.txt." + over + "-9.parlune"));
    Save();
    EXPECT_TRUE(folder.Has(left));
    EXPECT_TRUE(folder.Has(".letter.txt." + over + "-8.parlune"));
    EXPECT_TRUE(folder.Has(".letter.txt." + over + "-9.parlune"));
    EXPECT_EQ(folder.Read("target"), "of the user");
}

TEST_F(LeftBeside, NameBeside_AVeryLongName_FitsOnTheDisk)
{
    const std::string name = std::string(251, 'l') + ".txt";
    CLinuxFiles().WriteLine(folder.Path(name), "new");
    EXPECT_EQ(folder.Read(name), "new\n");
}

TEST_F(LeftBeside, NameBeside_AskedTwice_GivesTwoNames)
{
    EXPECT_NE(NameBeside(folder.Path("letter.txt")), NameBeside(folder.Path("letter.txt")));
}
}
