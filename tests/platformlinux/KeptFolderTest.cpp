#include "TemporaryHome.h"
#include "platform/kept/KeptTextStore.h"
#include "platform/linux/LinuxFiles.h"
#include "platform/linux/LinuxKeptFolder.h"
#include "platform/linux/LinuxKeptTexts.h"
#include <csignal>
#include <sys/file.h>
#include <sys/resource.h>
#include <sys/stat.h>

namespace platform::linuxdesktop {
namespace {
using Hold = kept::IKeptFolder::Hold;

struct KeptFolder : testing::Test {
    CTemporaryFolder home;
    CLinuxKeptFolder folder{home.Path("state/texts")};

    mode_t Mode(const std::string& name) const
    {
        struct stat status = {};
        ::stat(home.Path(name).c_str(), &status);
        return status.st_mode & 07777u;
    }
    std::size_t Count() const
    {
        return static_cast<std::size_t>(std::distance(std::filesystem::directory_iterator(home.Path("state/texts")), {}));
    }
};
}

TEST_F(KeptFolder, Create_FileAndFolders_AreForThisUserAlone)
{
    const mode_t former = ::umask(0);
    EXPECT_TRUE(folder.Create("a.txt", std::string("a\0b", 3), Hold::No));
    ::umask(former);
    EXPECT_EQ(home.Read("state/texts/a.txt"), std::string("a\0b", 3));
    EXPECT_EQ(Mode("state/texts/a.txt"), 0600U);
    EXPECT_EQ(Mode("state/texts"), 0700U);
    EXPECT_EQ(Mode("state"), 0700U);
    EXPECT_EQ(Count(), 1U);
}

TEST_F(KeptFolder, Create_AFileOfThatName_StaysAsItIs)
{
    home.Write("state/texts/a.txt", "the user's");
    EXPECT_FALSE(folder.Create("a.txt", "new", Hold::No));
    EXPECT_EQ(home.Read("state/texts/a.txt"), "the user's");
    EXPECT_EQ(Count(), 1U);
}

TEST_F(KeptFolder, Create_WhereNothingCanBe_LeavesNothing)
{
    home.Write("file", "");
    EXPECT_FALSE(CLinuxKeptFolder(home.Path("file/texts")).Create("a.txt", "new", Hold::No));
    home.MakeFolder("state/texts");
    EXPECT_TRUE(SucceedsInChild([&] {
        const rlimit little{2, 2};
        ::signal(SIGXFSZ, SIG_IGN);
        ::setrlimit(RLIMIT_FSIZE, &little);
        return !folder.Create("a.txt", "too long", Hold::No);
    }));
    EXPECT_EQ(Count(), 0U);
}

TEST_F(KeptFolder, Take_WhatARunningProcessHolds_IsRefused)
{
    EXPECT_TRUE(folder.Create("a.txt", "text", Hold::Yes));
    EXPECT_TRUE(SucceedsInChild([&] { return !CLinuxKeptFolder(home.Path("state/texts")).Take("a.txt", "b.txt"); }));
    EXPECT_TRUE(folder.Remove("a.txt"));
    EXPECT_EQ(Count(), 0U);
}

TEST_F(KeptFolder, Take_WhatAnEndedProcessHeld_Succeeds)
{
    EXPECT_TRUE(SucceedsInChild([&] { return folder.Create("a.txt", "text", Hold::Yes); }));
    EXPECT_TRUE(folder.Take("a.txt", "b.txt"));
    EXPECT_EQ(home.Read("state/texts/b.txt"), "text");
}

TEST_F(KeptFolder, Sweep_RemovesWhatEndedProcessesLeftHalfMade)
{
    home.Write("state/texts/.half-made-1-1", "te");
    home.Write("state/texts/.half-made-1-2", "te");
    home.Write("state/texts/.hidden", "the user's");
    const CDescriptor held(::open(home.Path("state/texts/.half-made-1-2").c_str(), O_RDONLY | O_CLOEXEC));
    ASSERT_EQ(::flock(held.Get(), LOCK_EX | LOCK_NB), 0);
    folder.Sweep();
    EXPECT_FALSE(home.Has("state/texts/.half-made-1-1"));
    EXPECT_TRUE(home.Has("state/texts/.half-made-1-2"));
    EXPECT_TRUE(home.Has("state/texts/.hidden"));
}

TEST_F(KeptFolder, Files_FoldersAndLinksToNowhere_AreLeftOut)
{
    home.Write("state/texts/a.txt", "text");
    home.MakeFolder("state/texts/folder");
    std::filesystem::create_symlink("nowhere", home.Path("state/texts/link"));
    const auto files = folder.Files();
    ASSERT_EQ(files.size(), 1U);
    EXPECT_EQ(files[0].name, "a.txt");
    EXPECT_EQ(files[0].size, 4U);
    EXPECT_TRUE(CLinuxKeptFolder(home.Path("none")).Files().empty());
}

namespace {
struct LinuxKeptTexts : KeptFolder {
    CLinuxFiles files;
    CLinuxKeptTexts net{files, home.Path("state/texts")};

    std::string OnlyContent() const
    {
        std::vector<std::string> names;
        for (const kept::KeptFile& file : folder.Files())
            names.push_back(file.name);
        return names.size() == 1 ? home.Read("state/texts/" + names[0]) : "(not one)";
    }
};
}

TEST_F(LinuxKeptTexts, Keep_AText_IsUtf8WithLf)
{
    EXPECT_TRUE(net.Texts().Keep({"a.txt", "Gr\xC3\xBC\xC3\x9F\x65\r\nb"}));
    EXPECT_EQ(OnlyContent(), "Gr\xC3\xBC\xC3\x9F\x65\nb");
}

TEST_F(LinuxKeptTexts, KeepFormer_OfAnyBytes_KeepsThemAll)
{
    std::string bytes;
    for (int i = 0; i < 100'000; ++i)
        bytes += static_cast<char>(i * i % 251);
    home.Write("picture.png", bytes);
    EXPECT_TRUE(net.Texts().KeepFormer(home.Path("picture.png"), "text"));
    EXPECT_EQ(OnlyContent(), bytes);
}

TEST_F(LinuxKeptTexts, KeepFormer_OfAnUnchangedText_KeepsNothing)
{
    home.Write("a.txt", "a\nb");
    const auto reader = files.OpenLines(home.Path("a.txt"));
    std::string lines;
    while (reader->AppendLine(lines))
        lines += "\r\n";
    const std::string text = reader->Text(lines);
    EXPECT_FALSE(net.Texts().KeepFormer(home.Path("a.txt"), text));
    EXPECT_FALSE(home.Has("state"));
    EXPECT_TRUE(net.Texts().KeepFormer(home.Path("a.txt"), text + "c"));
    EXPECT_EQ(OnlyContent(), "a\nb");
}

TEST_F(LinuxKeptTexts, KeepFormer_OfWhatIsNoFile_KeepsNothing)
{
    ::mkfifo(home.Path("pipe").c_str(), 0600);
    for (const std::string& path : {home.Path(), home.Path("none"), home.Path("pipe"), std::string("a\0b", 3)})
        EXPECT_FALSE(net.Texts().KeepFormer(path, "text"));
}

TEST_F(LinuxKeptTexts, TakeLeftBehind_OfAKilledProcess_IsItsText)
{
    EXPECT_FALSE(SucceedsInChild([&] {
        CLinuxKeptTexts other(files, home.Path("state/texts"));
        other.Texts().Follow([] { return EditedText{"/home/ann/letter.txt", "Dear\r\n"}; });
        other.Texts().CopyNow();
        ::kill(::getpid(), SIGKILL);
        return true;
    }));
    const std::string path = net.Texts().TakeLeftBehind();
    EXPECT_TRUE(path.starts_with(home.Path("state/texts/20"))) << path;
    EXPECT_TRUE(path.ends_with(" letter.txt")) << path;
    EXPECT_EQ(OnlyContent(), "Dear\n");
    EXPECT_EQ(net.Texts().TakeLeftBehind(), "");
}

}
