#include "platform/linux/LinuxStateFile.h"
#include "TemporaryHome.h"
#include <sys/stat.h>

namespace {

using platform::linuxdesktop::CLinuxStateFile;
using Contents = std::vector<std::string>;

class LinuxStateFile : public testing::Test {
protected:
    bool Flush()
    {
        fileAtFlush = home.Read("state/options.journal");
        return flushes;
    }
    // What a run finds; it takes them or not.
    Contents Offered(bool take)
    {
        Contents offered;
        file.TakeOver([&](const std::string& content) {
            offered.push_back(content);
            return take;
        });
        return offered;
    }
    bool IsThere() const { return home.Has("state/options.journal"); }

    CTemporaryFolder home;
    bool flushes = true;
    std::string fileAtFlush;
    CLinuxStateFile file{home.Path("state/options.journal"), [this] { return Flush(); }};
};

TEST_F(LinuxStateFile, Keep_AContent_IsInTheFileInAFolderOfTheUserAlone)
{
    file.Keep(std::string("a\0b", 3));
    file.Finish();
    struct stat folder = {};
    ASSERT_EQ(::stat(home.Path("state").c_str(), &folder), 0);

    EXPECT_EQ(home.Read("state/options.journal"), std::string("a\0b", 3));
    EXPECT_EQ(folder.st_mode & 0777U, 0700U);
}

TEST_F(LinuxStateFile, Keep_AnotherContent_ReplacesTheFirst)
{
    file.Keep("a long first content");
    file.Finish();
    file.Keep("second");
    file.Finish();
    EXPECT_EQ(home.Read("state/options.journal"), "second");
    EXPECT_FALSE(home.Has("state/options.journal.new"));
}

TEST_F(LinuxStateFile, Keep_WhereNoFolderCanBeMade_IsHarmless)
{
    home.Write("state", "a file");
    file.Keep("content");
    file.Finish();
    file.Remove();
    EXPECT_EQ(home.Read("state"), "a file");
}

TEST_F(LinuxStateFile, End_AContentWaits_IsWritten)
{
    {
        CLinuxStateFile other(home.Path("other/options.journal"), [] { return true; });
        other.Keep("content");
    }
    EXPECT_EQ(home.Read("other/options.journal"), "content");
}

TEST_F(LinuxStateFile, Remove_WhileAContentWaits_LeavesNoFile)
{
    file.Keep("content");
    file.Remove();
    EXPECT_FALSE(IsThere());
}

TEST_F(LinuxStateFile, Remove_TheStores_AreFlushedBefore)
{
    file.Keep("content");
    file.Remove();
    EXPECT_EQ(fileAtFlush, "content");
}

TEST_F(LinuxStateFile, Remove_TheStoresCannotBeFlushed_LeavesTheFile)
{
    flushes = false;
    file.Keep("content");
    file.Remove();
    EXPECT_TRUE(IsThere());
}

TEST_F(LinuxStateFile, TakeOver_WhatARunLeft_IsOfferedAndRemovedAfterTheFlush)
{
    home.Write("state/options.journal", "left");
    EXPECT_EQ(Offered(/*take*/ true), Contents{"left"});
    EXPECT_FALSE(IsThere());
    EXPECT_EQ(fileAtFlush, "left");
}

TEST_F(LinuxStateFile, TakeOver_NotTaken_Stays)
{
    home.Write("state/options.journal", "left");
    EXPECT_EQ(Offered(/*take*/ false), Contents{"left"});
    EXPECT_TRUE(IsThere());
}

TEST_F(LinuxStateFile, TakeOver_NothingLeft_OffersNothing)
{
    EXPECT_TRUE(Offered(/*take*/ true).empty());
    EXPECT_FALSE(home.Has("state"));
}

TEST_F(LinuxStateFile, TakeOver_WhatIsNoFile_IsLeftAlone)
{
    home.MakeFolder("state/options.journal");
    EXPECT_TRUE(Offered(/*take*/ true).empty());
    ::rmdir(home.Path("state/options.journal").c_str());
    ASSERT_EQ(::mkfifo(home.Path("state/options.journal").c_str(), 0600), 0);
    EXPECT_TRUE(Offered(/*take*/ true).empty());
    EXPECT_TRUE(IsThere());
}

TEST_F(LinuxStateFile, TakeOver_AnEnormousFile_IsLeftAlone)
{
    home.Write("state/options.journal", "");
    ASSERT_EQ(::truncate(home.Path("state/options.journal").c_str(), 64LL * 1024 * 1024 + 1), 0);
    EXPECT_TRUE(Offered(/*take*/ true).empty());
    EXPECT_TRUE(IsThere());
}

}
