#include "TemporaryHome.h"
#include "platform/Failure.h"
#include "platform/linux/DocumentFile.h"
#include "platform/linux/LinuxFiles.h"
#include <csignal>
#include <sys/resource.h>
#include <sys/stat.h>

namespace platform::linuxdesktop {
namespace {
struct TextFiles : testing::Test {
    CTemporaryFolder folder;
    CEnvironmentChange environment;
    CLinuxFiles files;

    void SetUp() override { environment.Set("XDG_STATE_HOME", folder.Path("state")); }
    std::vector<std::string> Lines(const std::string& bytes)
    {
        folder.Write("a.txt", bytes);
        const auto reader = files.OpenLines(folder.Path("a.txt"));
        std::vector<std::string> lines;
        for (std::string line; reader->AppendLine(line); line.clear())
            lines.push_back(line);
        return lines;
    }
    std::string Text(const std::string& bytes)
    {
        folder.Write("a.txt", bytes);
        const auto reader = files.OpenLines(folder.Path("a.txt"));
        std::string lines;
        while (reader->AppendLine(lines))
            lines += "\r\n";
        return reader->Text(lines);
    }
    template <class Action> static std::int32_t FailureOf(Action action)
    {
        try {
            action();
        } catch (const CFailure& failure) {
            return failure.Number();
        }
        return 0;
    }
    std::int32_t FailureOfOpening(const std::string& path)
    {
        return FailureOf([&] { files.OpenLines(path); });
    }
    std::int32_t FailureOfWriting(const std::string& path)
    {
        return FailureOf([&] { files.WriteLine(path, "new"); });
    }
    // The name of the only file in a folder.
    std::string OnlyName(const std::string& name) const
    {
        std::vector<std::string> names;
        std::error_code none;
        for (const auto& entry : std::filesystem::directory_iterator(folder.Path(name), none))
            names.push_back(entry.path().filename().string());
        return names.size() == 1 ? names[0] : "(not one)";
    }
    // The folder can be looked into and its files written, but nothing be made there, by a user who owns none of it.
    void LetNobodyIn() const
    {
        folder.MakeFolder("state");
        ::chmod(folder.Path("state").c_str(), 0777);
        ::chmod(folder.Path().c_str(), 0755);
        ::chmod(folder.Path("shut").c_str(), ::geteuid() == 0 ? 0755 : 0555);
    }
    static void BecomeNobody()
    {
        constexpr uid_t Nobody = 65534;
        if (::geteuid() == 0 && (::setgid(Nobody) != 0 || ::setuid(Nobody) != 0))
            ::_exit(2);
    }
    mode_t Mode(const std::string& name) const
    {
        struct stat status = {};
        ::stat(folder.Path(name).c_str(), &status);
        return status.st_mode & 07777u;
    }
};
using Texts = std::vector<std::string>;
}

TEST_F(TextFiles, OpenLines_EveryKindOfLineEnd_EndsALine) { EXPECT_EQ(Lines("a\r\nb\nc\rd"), (Texts{"a", "b", "c", "d"})); }

TEST_F(TextFiles, OpenLines_ALineEndAtTheEnd_BeginsNoFurtherLine)
{
    EXPECT_EQ(Lines("a\n"), Texts{"a"});
    EXPECT_EQ(Lines("a\r"), Texts{"a"});
    EXPECT_EQ(Lines("a\r\n"), Texts{"a"});
}

TEST_F(TextFiles, OpenLines_EmptyLines_AreLines) { EXPECT_EQ(Lines("\n\r\r\n\n"), (Texts{"", "", "", ""})); }

TEST_F(TextFiles, OpenLines_AnEmptyFile_HasNoLine) { EXPECT_EQ(Lines(""), Texts{}); }

TEST_F(TextFiles, OpenLines_ALineEndBetweenTwoPieces_IsOneLineEnd)
{
    const std::string line((1 << 20) - 1, 'x');
    EXPECT_EQ(Lines(line + "\r\nb"), (Texts{line, "b"}));
    EXPECT_EQ(Lines(line + "\r\n"), Texts{line});
    EXPECT_EQ(Lines(line + "\rb"), (Texts{line, "b"}));
    EXPECT_EQ(Lines(line + "\n\nb"), (Texts{line, "", "b"}));
}

TEST_F(TextFiles, OpenLines_ALineLongerThanAPiece_IsOneLine)
{
    const std::string line(3'000'000, 'x');
    EXPECT_EQ(Lines(line + "\n" + line), (Texts{line, line}));
}

TEST_F(TextFiles, OpenLines_ManyLinesEndedByCarriageReturns_AreReadInNoTime)
{
    std::string bytes;
    for (int line = 0; line < 2'000'000; ++line)
        bytes += "\r";
    EXPECT_EQ(Lines(bytes).size(), 2'000'000U);
}

TEST_F(TextFiles, Text_Utf8WithAndWithoutMark_IsTheSame)
{
    EXPECT_EQ(Text("Gr\xC3\xBC\xC3\x9F\x65\n"), "Gr\xC3\xBC\xC3\x9F\x65\r\n");
    EXPECT_EQ(Text("\xEF\xBB\xBFGr\xC3\xBC\xC3\x9F\x65\n"), "Gr\xC3\xBC\xC3\x9F\x65\r\n");
}

TEST_F(TextFiles, Text_NotUtf8_IsWindows1252)
{
    EXPECT_EQ(Text("Gr\xFC\xDF\x65 \x80\n"), "Gr\xC3\xBC\xC3\x9F\x65 \xE2\x82\xAC\r\n");
}

TEST_F(TextFiles, Text_OneLateStrayByte_MakesTheWholeFileWindows1252)
{
    EXPECT_EQ(Text("\xC3\xBC\n\xFF\n"), "\xC3\x83\xC2\xBC\r\n\xC3\xBF\r\n");
}

TEST_F(TextFiles, Text_Utf16_IsRead)
{
    EXPECT_EQ(Text(std::string("\xFF\xFE"
                               "a\0\n\0b\0\xFC\0",
                               10)),
              "a\r\nb\xC3\xBC\r\n");
    EXPECT_EQ(Text(std::string("\xFE\xFF"
                               "\0a\0\n\0b",
                               8)),
              "a\r\nb\r\n");
}

TEST_F(TextFiles, OpenLines_WhatIsNoReadableFile_FailsWithItsNumber)
{
    EXPECT_EQ(FailureOfOpening(folder.Path("none.txt")), 53);
    EXPECT_EQ(FailureOfOpening(folder.Path("none/a.txt")), 76);
    EXPECT_EQ(FailureOfOpening(folder.Path()), 75);
    EXPECT_EQ(FailureOfOpening("/dev/null"), 75);
    EXPECT_EQ(FailureOfOpening(std::string("a\0b", 3)), 52);
    ::mkfifo(folder.Path("pipe").c_str(), 0600);
    EXPECT_EQ(FailureOfOpening(folder.Path("pipe")), 75);
}

TEST_F(TextFiles, OpenLines_AFileThatGrowsMeanwhile_EndsWhereItsEndWasSeen)
{
    folder.Write("a.txt", "one\ntw");
    const auto reader = files.OpenLines(folder.Path("a.txt"));
    std::string lines;
    EXPECT_TRUE(reader->AppendLine(lines));
    EXPECT_TRUE(reader->AppendLine(lines));
    folder.Write("a.txt", "one\ntwo\nthree\n");
    EXPECT_FALSE(reader->AppendLine(lines));
    EXPECT_EQ(lines, "onetw");
}

TEST_F(TextFiles, OpenLines_AFileThatVanishesMeanwhile_IsReadToItsEnd)
{
    folder.Write("a.txt", "one\ntwo\n");
    const auto reader = files.OpenLines(folder.Path("a.txt"));
    std::filesystem::remove(folder.Path("a.txt"));
    std::string lines;
    while (reader->AppendLine(lines)) {
    }
    EXPECT_EQ(lines, "onetwo");
}

TEST_F(TextFiles, WriteLine_ANewFile_HasTextAndLineBreakInTheSystemsForm)
{
    files.WriteLine(folder.Path("a.txt"), "Gr\xC3\xBC\xC3\x9F\x65\r\nb");
    EXPECT_EQ(folder.Read("a.txt"), "Gr\xC3\xBC\xC3\x9F\x65\nb\n");
}

TEST_F(TextFiles, WriteLine_ANewFile_HasTheModeThatTheUsersMaskLeaves)
{
    const mode_t former = ::umask(027);
    files.WriteLine(folder.Path("a.txt"), "a");
    ::umask(former);
    EXPECT_EQ(Mode("a.txt"), 0640U);
}

TEST_F(TextFiles, WriteLine_AnExistingFile_IsReplacedAndKeepsItsMode)
{
    folder.Write("a.txt", "a former text that is longer");
    ::chmod(folder.Path("a.txt").c_str(), 0751);
    files.WriteLine(folder.Path("a.txt"), "new");
    EXPECT_EQ(folder.Read("a.txt"), "new\n");
    EXPECT_EQ(Mode("a.txt"), 0751U);
}

TEST_F(TextFiles, WriteLine_LeavesNothingElseInTheFolder)
{
    folder.Write("a.txt", "former");
    folder.Write("a.txt.new", "the user's own");
    files.WriteLine(folder.Path("a.txt"), "new");
    EXPECT_EQ(std::distance(std::filesystem::directory_iterator(folder.Path()), {}), 2);
    EXPECT_EQ(folder.Read("a.txt.new"), "the user's own");
}

TEST_F(TextFiles, WriteLine_AReader_StillSeesTheFormerText)
{
    folder.Write("a.txt", "former");
    const auto reader = files.OpenLines(folder.Path("a.txt"));
    std::ifstream other(folder.Path("a.txt"));
    files.WriteLine(folder.Path("a.txt"), "new");
    std::string line;
    std::getline(other, line);
    EXPECT_EQ(line, "former");
}

TEST_F(TextFiles, WriteLine_ALink_StaysALink)
{
    folder.Write("real/a.txt", "former");
    std::filesystem::create_symlink("real/a.txt", folder.Path("link.txt"));
    files.WriteLine(folder.Path("link.txt"), "new");
    EXPECT_TRUE(std::filesystem::is_symlink(folder.Path("link.txt")));
    EXPECT_EQ(folder.Read("real/a.txt"), "new\n");
}

TEST_F(TextFiles, WriteLine_ALinkToNoFileYet_CreatesTheFileItPointsTo)
{
    folder.MakeFolder("real");
    std::filesystem::create_symlink("real/a.txt", folder.Path("link.txt"));
    std::filesystem::create_symlink(folder.Path("link.txt"), folder.Path("second.txt"));
    files.WriteLine(folder.Path("second.txt"), "new");
    EXPECT_TRUE(std::filesystem::is_symlink(folder.Path("link.txt")));
    EXPECT_TRUE(std::filesystem::is_symlink(folder.Path("second.txt")));
    EXPECT_EQ(folder.Read("real/a.txt"), "new\n");
}

TEST_F(TextFiles, WriteLine_ALinkToItself_FailsAndStays)
{
    std::filesystem::create_symlink("a.txt", folder.Path("a.txt"));
    EXPECT_EQ(FailureOfWriting(folder.Path("a.txt")), 76);
    EXPECT_TRUE(std::filesystem::is_symlink(folder.Path("a.txt")));
}

TEST_F(TextFiles, WriteLine_AHardLinkedFile_GivesItsTwinTheSameText)
{
    folder.Write("a.txt", "a former text that is longer");
    std::filesystem::create_hard_link(folder.Path("a.txt"), folder.Path("twin.txt"));
    files.WriteLine(folder.Path("a.txt"), "new");
    EXPECT_EQ(folder.Read("a.txt"), "new\n");
    EXPECT_EQ(folder.Read("twin.txt"), "new\n");
    EXPECT_EQ(std::filesystem::hard_link_count(folder.Path("a.txt")), 2U);
    EXPECT_EQ(OnlyName("state/parlune/texts"), "(not one)");
}

TEST_F(TextFiles, WriteLine_AHardLinkedFileOnAFullDisk_KeepsItsText)
{
    folder.Write("a.txt", "former");
    std::filesystem::create_hard_link(folder.Path("a.txt"), folder.Path("twin.txt"));
    EXPECT_TRUE(SucceedsInChild([&] {
        const rlimit little{8, 8};
        ::signal(SIGXFSZ, SIG_IGN);
        ::setrlimit(RLIMIT_FSIZE, &little);
        return FailureOf([&] { files.WriteLine(folder.Path("a.txt"), "a text that is much longer"); }) == 61;
    }));
    EXPECT_EQ(folder.Read("twin.txt"), "former");
}

TEST_F(TextFiles, WriteLine_WhereNoNewFileCanBeMade_WritesInPlace)
{
    folder.Write("shut/a.txt", "a former text that is longer");
    ::chmod(folder.Path("shut/a.txt").c_str(), 0666);
    LetNobodyIn();
    EXPECT_TRUE(SucceedsInChild([&] {
        BecomeNobody();
        return FailureOf([&] { files.WriteLine(folder.Path("shut/b.txt"), "new"); }) == 75 &&
               FailureOf([&] { files.WriteLine(folder.Path("shut/a.txt"), "new"); }) == 0;
    }));
    EXPECT_EQ(folder.Read("shut/a.txt"), "new\n");
    EXPECT_EQ(OnlyName("shut"), "a.txt");
    EXPECT_EQ(OnlyName("state/parlune/texts"), "(not one)");
}

TEST_F(TextFiles, WriteDocument_InPlace_HasItsSafetyCopyBeforeTheFirstByteChanges)
{
    folder.Write("a.txt", "former");
    std::filesystem::create_hard_link(folder.Path("a.txt"), folder.Path("twin.txt"));
    bool copyWasThere = false;
    EXPECT_EQ(WriteDocument(folder.Path("a.txt"), "new text",
                            [&](const std::string& path, const std::string& bytes) -> std::shared_ptr<void> {
                                copyWasThere = path == folder.Path("a.txt") && bytes == "new text" &&
                                               folder.Read("a.txt").substr(0, 6) == "former";
                                return nullptr;
                            }),
              0);
    EXPECT_TRUE(copyWasThere);
    EXPECT_EQ(folder.Read("twin.txt"), "new text");
}

// Only root can make a file that belongs to somebody else; for others it is their own.
TEST_F(TextFiles, WriteLine_AFileOfAnotherOwner_StaysTheirs)
{
    folder.Write("a.txt", "former");
    ::chmod(folder.Path("a.txt").c_str(), 0640);
    EXPECT_EQ(::chown(folder.Path("a.txt").c_str(), 1, 2), ::geteuid() == 0 ? 0 : -1);
    struct stat before = {}, after = {};
    ::stat(folder.Path("a.txt").c_str(), &before);
    files.WriteLine(folder.Path("a.txt"), "new");
    ::stat(folder.Path("a.txt").c_str(), &after);
    EXPECT_EQ(after.st_uid, before.st_uid);
    EXPECT_EQ(after.st_gid, before.st_gid);
    EXPECT_EQ(Mode("a.txt"), 0640U);
}

TEST_F(TextFiles, WriteLine_AReadOnlyFile_FailsAndKeepsItsText)
{
    folder.Write("a.txt", "former");
    ::chmod(folder.Path("a.txt").c_str(), 0444);
    EXPECT_EQ(FailureOfWriting(folder.Path("a.txt")), 75);
    EXPECT_EQ(folder.Read("a.txt"), "former");
}

TEST_F(TextFiles, WriteLine_WhereNoFileCanBe_FailsWithItsNumber)
{
    EXPECT_EQ(FailureOfWriting(folder.Path()), 75);
    EXPECT_EQ(FailureOfWriting(folder.Path("none/a.txt")), 76);
    EXPECT_EQ(FailureOfWriting("/dev/null"), 75);
    EXPECT_EQ(FailureOfWriting("/dev/full"), 75);
    EXPECT_EQ(FailureOfWriting(folder.Path(std::string(300, 'x'))), 52);
    EXPECT_EQ(FailureOfWriting(std::string("a\0b", 3)), 52);
}

TEST_F(TextFiles, WriteLine_TheDiskIsFull_KeepsTheFormerText)
{
    folder.Write("a.txt", "former");
    EXPECT_TRUE(SucceedsInChild([&] {
        const rlimit little{3, 3};
        ::signal(SIGXFSZ, SIG_IGN);
        ::setrlimit(RLIMIT_FSIZE, &little);
        return FailureOfWriting(folder.Path("a.txt")) == 61;
    }));
    EXPECT_EQ(folder.Read("a.txt"), "former");
    EXPECT_EQ(std::distance(std::filesystem::directory_iterator(folder.Path()), {}), 1);
}

TEST_F(TextFiles, WriteLine_AFileThatWasOpened_KeepsItsForm)
{
    EXPECT_EQ(Text("Gr\xFC\xDF\x65\r\nb"), "Gr\xC3\xBC\xC3\x9F\x65\r\nb\r\n");
    files.WriteLine(folder.Path("a.txt"), "Gr\xC3\xBC\xC3\x9F\x65!\r\nb\r\n");
    EXPECT_EQ(folder.Read("a.txt"), "Gr\xFC\xDF\x65!\r\nb");
}

TEST_F(TextFiles, WriteLine_Utf16File_KeepsItsForm)
{
    const std::string bytes("\xFF\xFE"
                            "a\0\r\0\n\0b\0\n\0",
                            12);
    EXPECT_EQ(Text(bytes), "a\r\nb\r\n");
    files.WriteLine(folder.Path("a.txt"), "a\r\nb\r\n");
    EXPECT_EQ(folder.Read("a.txt"), bytes);
    files.WriteLine(folder.Path("a.txt"), "a\r\nc\r\n");
    EXPECT_EQ(folder.Read("a.txt"), std::string("\xFF\xFE"
                                                "a\0\r\0\n\0c\0\n\0",
                                                12));
}

TEST_F(TextFiles, WriteLine_AWindows1252FileThatBecameUtf8_StaysUtf8)
{
    Text("Gr\xFC\xDF\x65\n");
    files.WriteLine(folder.Path("a.txt"), "\xC3\xBC\xCE\xB1\r\n");
    files.WriteLine(folder.Path("a.txt"), "\xC3\xBC\r\n");
    EXPECT_EQ(folder.Read("a.txt"), "\xC3\xBC\n");
}

TEST_F(TextFiles, WriteLine_ThatFails_LeavesTheFormAsItIs)
{
    folder.Write("a.txt", "");
    Text("Gr\xFC\xDF\x65\n");
    std::filesystem::permissions(folder.Path("a.txt"), std::filesystem::perms::owner_read);
    EXPECT_EQ(FailureOf([&] { files.WriteLine(folder.Path("a.txt"), "\xC3\xBC\xCE\xB1\r\n"); }), 75);
    std::filesystem::permissions(folder.Path("a.txt"), std::filesystem::perms::owner_all);
    files.WriteLine(folder.Path("a.txt"), "\xC3\xBC\r\n");
    EXPECT_EQ(folder.Read("a.txt"), "\xFC\n");
}

TEST_F(TextFiles, WriteLine_AFileThatWasDeletedMeanwhile_HasItsFormAgain)
{
    Text("\xEF\xBB\xBF"
         "a\r\nb\r\n");
    std::filesystem::remove(folder.Path("a.txt"));
    files.WriteLine(folder.Path("a.txt"), "a\r\nc\r\n");
    EXPECT_EQ(folder.Read("a.txt"), "\xEF\xBB\xBF"
                                    "a\r\nc\r\n");
}

TEST_F(TextFiles, Bytes_AreWhatIsWritten)
{
    Text("Gr\xFC\xDF\x65\r\nb");
    for (const char* path : {"a.txt", "new.txt"})
        for (const char* text : {"Gr\xC3\xBC\xC3\x9F\x65\r\nb\r\n", "\xC3\xBC", ""}) {
            const std::string bytes = files.Bytes(folder.Path(path), text);
            files.WriteLine(folder.Path(path), text);
            EXPECT_EQ(folder.Read(path), bytes);
        }
}

}
