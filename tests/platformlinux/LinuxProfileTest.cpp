#include "platform/linux/LinuxProfile.h"
#include "TemporaryHome.h"
#include <csignal>
#include <sys/resource.h>

namespace platform::linuxdesktop {
namespace {
struct LinuxProfile : testing::Test {
    CTemporaryFolder folder;
    CLinuxProfile profile;
    std::string file = folder.Path("Parlune.ini");
};
}

TEST_F(LinuxProfile, Write_NoFile_CreatesItWithCrLf)
{
    EXPECT_TRUE(profile.Write(file, "Robby", "FontSize", "9"));
    EXPECT_EQ(folder.Read("Parlune.ini"), "[Robby]\r\nFontSize=9\r\n");
}

TEST_F(LinuxProfile, Write_NoFolder_IsRefused)
{
    EXPECT_FALSE(profile.Write(folder.Path("none/Parlune.ini"), "Robby", "FontSize", "9"));
}

TEST_F(LinuxProfile, Write_RemoveFromNoFile_SucceedsAndCreatesNothing)
{
    EXPECT_TRUE(profile.Write(file, "Robby", "FontSize", std::nullopt));
    EXPECT_TRUE(profile.Write(file, "Robby", std::nullopt, std::nullopt));
    EXPECT_FALSE(folder.Has("Parlune.ini"));
}

TEST_F(LinuxProfile, Write_LineBreakInTheValue_IsRefusedAndTheFileStays)
{
    folder.Write("Parlune.ini", "[A]\r\nK=1\r\n");

    EXPECT_FALSE(profile.Write(file, "A", "K", "1\r\n[B]"));
    EXPECT_EQ(folder.Read("Parlune.ini"), "[A]\r\nK=1\r\n");
}

TEST_F(LinuxProfile, Write_FolderInTheFilesPlace_IsRefused)
{
    folder.MakeFolder("Parlune.ini");
    EXPECT_FALSE(profile.Write(file, "A", "K", "1"));
}

TEST_F(LinuxProfile, Write_DiskFull_IsRefusedAndTheFileStays)
{
    folder.Write("Parlune.ini", "[A]\r\nK=1\r\n");

    EXPECT_TRUE(SucceedsInChild([&] {
        std::signal(SIGXFSZ, SIG_IGN);
        const rlimit limit{100, 100};
        ::setrlimit(RLIMIT_FSIZE, &limit);
        return !profile.Write(file, "A", "K", std::string(1000, 'x'));
    }));
    EXPECT_EQ(folder.Read("Parlune.ini"), "[A]\r\nK=1\r\n");
    EXPECT_FALSE(folder.Has("Parlune.ini.new"));
}

TEST_F(LinuxProfile, Write_PrivateFile_StaysPrivate)
{
    folder.Write("Parlune.ini", "");
    std::filesystem::permissions(file, std::filesystem::perms::owner_read | std::filesystem::perms::owner_write);
    profile.Write(file, "A", "K", "1");

    EXPECT_EQ(std::filesystem::status(file).permissions(),
              std::filesystem::perms::owner_read | std::filesystem::perms::owner_write);
}

TEST_F(LinuxProfile, Read_MissingFile_IsTheDefault) { EXPECT_EQ(profile.Read(file, "A", "K", "none", 4096), "none"); }

TEST_F(LinuxProfile, Read_LongValue_IsCutBetweenTwoCharacters)
{
    folder.Write("Parlune.ini", "[A]\r\nK=ab€\r\n");

    EXPECT_EQ(profile.Read(file, "A", "K", "", 6), "ab€");
    EXPECT_EQ(profile.Read(file, "A", "K", "", 5), "ab");
    EXPECT_EQ(profile.Read(file, "A", "K", "", 0), "");
}

TEST_F(LinuxProfile, Read_WithoutKey_NamesTheKeys)
{
    folder.Write("Parlune.ini", "[A]\r\nK=1\r\nL=2\r\n");

    EXPECT_EQ(profile.Read(file, "a", std::nullopt, "", 4096), std::string("K\0L\0", 4));
}

TEST_F(LinuxProfile, Write_BareFileName_IsInTheCurrentFolder)
{
    const auto former = std::filesystem::current_path();
    std::filesystem::current_path(folder.Path());
    const bool written = profile.Write("Parlune.ini", "A", "K", "1");
    std::filesystem::current_path(former);

    EXPECT_TRUE(written);
    EXPECT_EQ(folder.Read("Parlune.ini"), "[A]\r\nK=1\r\n");
}

}
