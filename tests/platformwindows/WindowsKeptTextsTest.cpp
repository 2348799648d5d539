#include "platform/windows/WindowsKeptTexts.h"
#include "Support.h"
#include "platform/windows/Handle.h"
#include "platform/windows/WholeFile.h"
#include "platform/windows/WindowsFiles.h"

namespace platform::windowsdesktop {
namespace {
using Hold = kept::IKeptFolder::Hold;
using Names = std::vector<std::string>;

struct KeptFolder : testing::Test {
    CTemporaryFolder home;
    CWindowsKeptFolder folder{home.Path("state\\texts")};

    Names Files() const
    {
        Names names;
        for (const kept::KeptFile& file : folder.Files())
            names.push_back(file.name);
        return names;
    }
    std::wstring Wide(const std::string& name) const { return ToWide(home.Path(name)); }
};
}

TEST_F(KeptFolder, Create_AFile_IsThereWithAllItsBytes)
{
    EXPECT_TRUE(folder.Create("\xC3\xBC.txt", std::string("a\0b", 3), Hold::No));
    EXPECT_EQ(home.Read("state\\texts\\\xC3\xBC.txt"), std::string("a\0b", 3));
    EXPECT_EQ(Files(), Names{"\xC3\xBC.txt"});
    EXPECT_EQ(folder.Files()[0].size, 3U);
    EXPECT_EQ(folder.Read("\xC3\xBC.txt"), std::string("a\0b", 3));
}

TEST_F(KeptFolder, Create_AFileOfThatName_StaysAsItIs)
{
    folder.Create("a.txt", "former", Hold::No);
    EXPECT_FALSE(folder.Create("a.txt", "new", Hold::No));
    EXPECT_EQ(folder.Read("a.txt"), "former");
    EXPECT_EQ(Files(), Names{"a.txt"});
}

TEST_F(KeptFolder, Create_WithoutAPlace_SaysSo)
{
    home.Write("file", "");
    EXPECT_FALSE(CWindowsKeptFolder(home.Path("file\\texts")).Create("a.txt", "new", Hold::No));
    EXPECT_FALSE(CWindowsKeptFolder("").Create("a.txt", "new", Hold::No));
}

TEST_F(KeptFolder, Take_WhatIsHeld_IsRefusedUntilItsHolderHasGone)
{
    {
        CWindowsKeptFolder other(home.Path("state\\texts"));
        EXPECT_TRUE(other.Create("a.txt", "text", Hold::Yes));
        EXPECT_FALSE(folder.Take("a.txt", "b.txt"));
    }
    EXPECT_TRUE(folder.Take("a.txt", "b.txt"));
    EXPECT_EQ(Files(), Names{"b.txt"});
}

TEST_F(KeptFolder, Remove_WhatThisOneHolds_RemovesIt)
{
    folder.Create("a.txt", "text", Hold::Yes);
    EXPECT_TRUE(folder.Remove("a.txt"));
    EXPECT_EQ(Files(), Names{});
}

TEST_F(KeptFolder, Sweep_RemovesWhatWasLeftHalfMade)
{
    folder.Create("a.txt", "text", Hold::No);
    folder.Create("half-made-1-1", "te", Hold::No);
    folder.Sweep();
    EXPECT_EQ(Files(), Names{"a.txt"});
}

TEST_F(KeptFolder, KeptTexts_OverwrittenFile_IsKeptByteForByte)
{
    CWindowsKeptTexts net(home.Path("state\\texts"));
    home.Write("picture.png", std::string("\x89PNG\0\xFF", 6));
    EXPECT_TRUE(net.Texts().KeepFormer(home.Path("picture.png"), "text"));
    ASSERT_EQ(Files().size(), 1U);
    EXPECT_EQ(folder.Read(Files()[0]), std::string("\x89PNG\0\xFF", 6));
    EXPECT_TRUE(Files()[0].ends_with(" picture.png"));
}

TEST_F(KeptFolder, KeptTexts_TheSameContentOrNoFile_KeepsNothing)
{
    CWindowsKeptTexts net(home.Path("state\\texts"));
    home.Write("a.txt", "text\r\n");
    EXPECT_FALSE(net.Texts().KeepFormer(home.Path("a.txt"), "text"));
    EXPECT_FALSE(net.Texts().KeepFormer(home.Path("none.txt"), "text"));
    EXPECT_FALSE(net.Texts().KeepFormer(home.Path(), "text"));
    EXPECT_EQ(Files(), Names{});
}

TEST_F(KeptFolder, KeptTexts_CopyOfAnEndedRun_IsTakenByTheNext)
{
    {
        CWindowsKeptTexts former(home.Path("state\\texts"));
        former.Texts().Follow([] { return EditedText{"C:\\letter.txt", "Dear\r\n"}; });
        EXPECT_TRUE(former.Texts().CopyNow());
        EXPECT_EQ(CWindowsKeptTexts(home.Path("state\\texts")).Texts().TakeLeftBehind(), "");
    }
    const std::string path = CWindowsKeptTexts(home.Path("state\\texts")).Texts().TakeLeftBehind();
    EXPECT_TRUE(path.ends_with(" letter.txt")) << path;
    ASSERT_EQ(Files().size(), 1U);
    EXPECT_EQ(folder.Read(Files()[0]), "Dear\r\n");
}

TEST_F(KeptFolder, WriteLine_AHardLinkedFile_GivesItsTwinTheSameText)
{
    home.Write("a.txt", "a former text that is longer");
    ASSERT_TRUE(CreateHardLinkW(Wide("twin.txt").c_str(), Wide("a.txt").c_str(), nullptr));
    CWindowsFiles().WriteLine(home.Path("a.txt"), "new");
    EXPECT_EQ(home.Read("twin.txt"), "new\r\n");
}

TEST_F(KeptFolder, WriteInPlace_ALongerAndAShorterText_AreWhole)
{
    home.Write("a.txt", "former");
    WriteInPlace(Wide("a.txt"), "a text that is longer");
    EXPECT_EQ(home.Read("a.txt"), "a text that is longer");
    WriteInPlace(Wide("a.txt"), "");
    EXPECT_EQ(home.Read("a.txt"), "");
}

TEST_F(KeptFolder, WriteInPlace_AFileThatIsLocked_FailsAndKeepsItsText)
{
    home.Write("a.txt", "former");
    const CHandle held(
        CreateFileW(Wide("a.txt").c_str(), GENERIC_READ, FILE_SHARE_READ, nullptr, OPEN_EXISTING, 0, nullptr));
    EXPECT_EQ(FailureOf([&] { WriteInPlace(Wide("a.txt"), "new"); }), 70);
    EXPECT_EQ(home.Read("a.txt"), "former");
}

}
