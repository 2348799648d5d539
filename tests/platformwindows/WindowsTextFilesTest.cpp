#include "Support.h"
#include "platform/windows/Handle.h"
#include "platform/windows/WindowsFiles.h"

namespace platform::windowsdesktop {
namespace {
struct TextFiles : testing::Test {
    CTemporaryFolder folder;
    CWindowsFiles files;

    std::vector<std::string> Lines(const std::string& bytes)
    {
        folder.Write("a.txt", bytes);
        const auto reader = files.OpenLines(folder.Path("a.txt"));
        std::vector<std::string> lines;
        for (std::string line; reader->AppendLine(line); line.clear())
            lines.push_back(line);
        return lines;
    }
    // The text by lines; the same as at once.
    std::string Text(const std::string& bytes)
    {
        folder.Write("a.txt", bytes);
        const auto reader = files.OpenLines(folder.Path("a.txt"));
        std::string lines;
        while (reader->AppendLine(lines))
            lines += "\r\n";
        const std::string text = reader->Text(lines);
        EXPECT_EQ(files.ReadText(folder.Path("a.txt")), text);
        return text;
    }
    CHandle Hold(const std::string& name, DWORD access, DWORD sharing) const
    {
        return CHandle(CreateFileW(ToWide(folder.Path(name)).c_str(), access, sharing, nullptr, OPEN_EXISTING, 0, nullptr));
    }
    std::int32_t FailureOfWriting(const std::string& path)
    {
        return FailureOf([&] { files.WriteLine(path, "new"); });
    }
};
using Texts = std::vector<std::string>;
using namespace std::string_literals;
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
    EXPECT_EQ(Lines(line + "\rb"), (Texts{line, "b"}));
    EXPECT_EQ(Lines(line + "\n\nb"), (Texts{line, "", "b"}));
}

TEST_F(TextFiles, OpenLines_ALineLongerThanAPiece_IsOneLine)
{
    const std::string line(3'000'000, 'x');
    EXPECT_EQ(Lines(line + "\n" + line), (Texts{line, line}));
}

TEST_F(TextFiles, Text_Utf8WithAndWithoutMark_IsTheSame)
{
    EXPECT_EQ(Text("Gr\xC3\xBC\xC3\x9F\x65\r\n"), "Gr\xC3\xBC\xC3\x9F\x65\r\n");
    EXPECT_EQ(Text("\xEF\xBB\xBFGr\xC3\xBC\xC3\x9F\x65\r\n"), "Gr\xC3\xBC\xC3\x9F\x65\r\n");
}

TEST_F(TextFiles, Text_NotUtf8_IsOfTheSystemsCodePage)
{
    EXPECT_EQ(Text("Gr\xFC\xDF\x65 \x80\r\n"), "Gr\xC3\xBC\xC3\x9F\x65 \xE2\x82\xAC\r\n");
}

TEST_F(TextFiles, Text_Utf16OfBothOrders_IsRead)
{
    EXPECT_EQ(Text("\xFF\xFE"
                   "a\0\r\0\n\0\xFC\0\r\0\n\0"s),
              "a\r\n\xC3\xBC\r\n");
    EXPECT_EQ(Text("\xFE\xFF"
                   "\0a\0\r\0\n"s),
              "a\r\n");
}

TEST_F(TextFiles, Text_NulCharacters_AreLeftOut) { EXPECT_EQ(Text("a\0b\r\n"s), "ab\r\n"); }

TEST_F(TextFiles, ReadText_WhatIsNoReadableFile_FailsWithItsNumber)
{
    EXPECT_EQ(FailureOf([&] { files.ReadText(folder.Path("none.txt")); }), 53);
    EXPECT_EQ(FailureOf([&] { files.ReadText(folder.Path("none\\a.txt")); }), 76);
    EXPECT_EQ(FailureOf([&] { files.ReadText(folder.Path()); }), 75);
    EXPECT_EQ(FailureOf([&] { files.ReadText(folder.Path("a?.txt")); }), 52);
    EXPECT_EQ(FailureOf([&] { files.ReadText("a\0b"s); }), 52);
    EXPECT_EQ(FailureOf([&] { files.ReadText(""); }), 75);
    EXPECT_EQ(FailureOf([&] { files.ReadText("NUL"); }), 75);
}

TEST_F(TextFiles, OpenLines_WhatIsNoReadableFile_FailsWithItsNumber)
{
    EXPECT_EQ(FailureOf([&] { files.OpenLines(folder.Path("none.txt")); }), 53);
    EXPECT_EQ(FailureOf([&] { files.OpenLines(folder.Path("none\\a.txt")); }), 76);
    EXPECT_EQ(FailureOf([&] { files.OpenLines(folder.Path()); }), 75);
    EXPECT_EQ(FailureOf([&] { files.OpenLines("NUL"); }), 75);
}

TEST_F(TextFiles, AFileThatAnotherProgramHolds_FailsWithPermissionDenied)
{
    folder.Write("a.txt", "former");
    const CHandle held = Hold("a.txt", GENERIC_READ, 0);
    EXPECT_EQ(FailureOf([&] { files.ReadText(folder.Path("a.txt")); }), 70);
    EXPECT_EQ(FailureOf([&] { files.OpenLines(folder.Path("a.txt")); }), 70);
    EXPECT_EQ(FailureOfWriting(folder.Path("a.txt")), 70);
}

TEST_F(TextFiles, OpenLines_AFileThatGrowsMeanwhile_EndsWhereItsEndWasSeen)
{
    folder.Write("a.txt", "one\ntw");
    const auto reader = files.OpenLines(folder.Path("a.txt"));
    std::string lines;
    EXPECT_TRUE(reader->AppendLine(lines));
    EXPECT_TRUE(reader->AppendLine(lines));
    const CHandle writer = Hold("a.txt", FILE_APPEND_DATA, FILE_SHARE_READ);
    EXPECT_FALSE(writer.Open() && reader->AppendLine(lines));
    EXPECT_EQ(lines, "onetw");
}

TEST_F(TextFiles, WriteLine_ANewFile_HasTextAndLineBreak)
{
    files.WriteLine(folder.Path("a.txt"), "abc");
    EXPECT_EQ(folder.Read("a.txt"), "abc\r\n");
}

TEST_F(TextFiles, WriteLine_LettersOfTheCodePage_AreItsBytes)
{
    if (GetACP() == CP_UTF8)
        return;
    files.WriteLine(folder.Path("a.txt"), "Gr\xC3\xBC\xC3\x9F\x65");
    EXPECT_EQ(folder.Read("a.txt"), "Gr\xFC\xDF\x65\r\n");
}

TEST_F(TextFiles, WriteLine_LettersThatTheCodePageLacks_AreKeptInMarkedUtf8)
{
    files.WriteLine(folder.Path("a.txt"), "\xE6\x97\xA5 \xC3\xBC");
    EXPECT_EQ(folder.Read("a.txt"), (GetACP() == CP_UTF8 ? "" : "\xEF\xBB\xBF") + "\xE6\x97\xA5 \xC3\xBC\r\n"s);
    EXPECT_EQ(files.ReadText(folder.Path("a.txt")), "\xE6\x97\xA5 \xC3\xBC\r\n");
}

TEST_F(TextFiles, WriteLine_ATextWhoseBytesReadAsAnother_StillReadsBack)
{
    for (const char* text : {"\xC3\x83\xC2\xBC", "\xC3\xBF\xC3\xBE", "\xC3\xAF\xC2\xBB\xC2\xBF"}) {
        files.WriteLine(folder.Path("a.txt"), text);
        EXPECT_EQ(files.ReadText(folder.Path("a.txt")), text + "\r\n"s);
    }
}

TEST_F(TextFiles, WriteLine_AnExistingFile_IsReplacedAndKeepsItsAttributes)
{
    folder.Write("a.txt", "a former text that is longer");
    SetFileAttributesW(ToWide(folder.Path("a.txt")).c_str(), FILE_ATTRIBUTE_HIDDEN);
    files.WriteLine(folder.Path("a.txt"), "new");
    EXPECT_EQ(folder.Read("a.txt"), "new\r\n");
    EXPECT_EQ(folder.Names(), Texts{"a.txt"});
}

TEST_F(TextFiles, WriteLine_AReader_StillSeesTheFormerText)
{
    folder.Write("a.txt", "former");
    const auto reader = files.OpenLines(folder.Path("a.txt"));
    files.WriteLine(folder.Path("a.txt"), "new");
    std::string line;
    EXPECT_TRUE(reader->AppendLine(line));
    EXPECT_EQ(line, "former");
    EXPECT_EQ(folder.Read("a.txt"), "new\r\n");
}

TEST_F(TextFiles, WriteLine_WhileAProgramReadsWithoutSharing_FailsAndKeepsTheText)
{
    folder.Write("a.txt", "former");
    {
        const CHandle held = Hold("a.txt", GENERIC_READ, FILE_SHARE_READ | FILE_SHARE_WRITE);
        EXPECT_EQ(FailureOfWriting(folder.Path("a.txt")), 70);
    }
    EXPECT_EQ(folder.Read("a.txt"), "former");
    EXPECT_EQ(folder.Names(), Texts{"a.txt"});
}

TEST_F(TextFiles, WriteLine_AReadOnlyFile_FailsAndKeepsItsText)
{
    folder.Write("a.txt", "former");
    SetFileAttributesW(ToWide(folder.Path("a.txt")).c_str(), FILE_ATTRIBUTE_READONLY);
    EXPECT_EQ(FailureOfWriting(folder.Path("a.txt")), 75);
    EXPECT_EQ(folder.Read("a.txt"), "former");
    EXPECT_EQ(folder.Names(), Texts{"a.txt"});
}

TEST_F(TextFiles, WriteLine_WhereNoFileCanBe_FailsWithItsNumber)
{
    EXPECT_EQ(FailureOfWriting(folder.Path()), 75);
    EXPECT_EQ(FailureOfWriting(folder.Path("none\\a.txt")), 76);
    EXPECT_EQ(FailureOfWriting(folder.Path("a?.txt")), 52);
    EXPECT_EQ(FailureOfWriting("a\0b"s), 52);
    EXPECT_EQ(FailureOfWriting(""), 75);
    EXPECT_EQ(FailureOfWriting("NUL"), 75);
    EXPECT_EQ(folder.Names(), Texts{});
}

}
