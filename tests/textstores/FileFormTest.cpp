#include "platform/text/FileForm.h"
#include "platform/text/FileLines.h"
#include <gtest/gtest.h>

namespace platform::text {
namespace {

// What the editor shows of a file.
std::string Opened(const std::string& bytes, FileForm& form)
{
    std::string piece = bytes;
    CLineCutter cutter([&](std::string& next) { next = std::exchange(piece, ""); });
    std::string lines;
    const Encoding encoding = EncodingOf(bytes);
    if (cutter.IsUtf16())
        cutter.ReadFrom(Decoded(bytes, encoding));
    while (cutter.AppendLine(lines))
        lines += "\r\n";
    form = FormOf(encoding, HasMark(bytes), cutter.Ends());
    std::string text =
        encoding == Encoding::Utf8 || encoding == Encoding::Windows1252 ? WithCrLf(Decoded(lines, encoding)) : lines;
    if (text == "\r\n")
        text.clear();
    while (text.ends_with("\r\n\r\n"))
        text.resize(text.size() - 2);
    return text;
}

std::string Replaced(std::string text, const std::string& from, const std::string& to)
{
    const std::size_t at = text.find(from);
    EXPECT_NE(at, std::string::npos) << "there is no " << from;
    return text.replace(at, from.size(), to);
}

// The file after something in its text was replaced and saved.
std::string Saved(const std::string& bytes, const std::string& from, const std::string& to)
{
    FileForm form;
    const std::string text = Replaced(Opened(bytes, form), from, to);
    return BytesOfEdited(text, form, bytes);
}

std::string Utf16(const std::string& text, bool bigEndian)
{
    const Encoding encoding = bigEndian ? Encoding::Utf16Big : Encoding::Utf16Little;
    return std::string(MarkOf(encoding)) + *Encoded(text, encoding);
}

TEST(FileForm, AnUnchangedText_ChangesNoByte)
{
    const std::string files[] = {"a\nb\n",
                                 "a\r\nb\r\n",
                                 "a\rb\r",
                                 "a\nb",
                                 "a",
                                 "",
                                 "\n",
                                 "\r\n\r\n\r\n",
                                 "a\n\n\n\n",
                                 "a\r\nb\nc\rd\r\n\r\n",
                                 "Gr\xC3\xBC\xC3\x9F\x65\n",
                                 "\xEF\xBB\xBFGr\xC3\xBC\xC3\x9F\x65\r\n",
                                 "\xEF\xBB\xBF",
                                 "Gr\xFC\xDF\x65\r\n\x81\x80\n",
                                 "\xEF\xBB\xBFGr\xFC\xDF\x65\n",
                                 std::string("a\0b\n\0\n", 6),
                                 std::string("\x89PNG\r\n\x1A\n\0\0\0\rIHDR\xFF\xFE\r\r\n", 21),
                                 Utf16("Gr\xC3\xBC\xC3\x9F\x65\n\xF0\x9F\x98\x80\r\nc", false),
                                 Utf16("Gr\xC3\xBC\xC3\x9F\x65\nb\n\n", true),
                                 std::string("\xFF\xFE\x3D\xD8x\0\n\0y", 9)};
    for (const std::string& file : files) {
        FileForm form;
        const std::string text = Opened(file, form);
        EXPECT_EQ(BytesOfEdited(text, form, file), file);
    }
}

TEST(FileForm, LineEnds_OfAChangedText_AreThoseOfTheFile)
{
    EXPECT_EQ(Saved("a\nb\n", "b", "B\r\nc"), "a\nB\nc\n");
    EXPECT_EQ(Saved("a\r\nb\r\n", "b", "B\r\nc"), "a\r\nB\r\nc\r\n");
    EXPECT_EQ(Saved("a\rb\r", "b", "B\r\nc"), "a\rB\rc\r");
}

TEST(FileForm, LastLine_OfAChangedText_EndsAsInTheFile)
{
    EXPECT_EQ(Saved("a\nb", "b", "B"), "a\nB");
    EXPECT_EQ(Saved("a\nb", "a", "A"), "A\nb");
    EXPECT_EQ(Saved("a\nb\n", "b\r\n", "b"), "a\nb\n");
    EXPECT_EQ(Saved("a", "a\r\n", "a\r\nb\r\n"), "a\nb");
}

TEST(FileForm, EmptyLines_AddedAtTheEnd_AreWritten) { EXPECT_EQ(Saved("a\n", "a\r\n", "a\r\n\r\n\r\n"), "a\n\n\n"); }

TEST(FileForm, AnEmptiedText_LeavesAnEmptyLineWhereTheLastLineEnded)
{
    EXPECT_EQ(Saved("a\nb\n", "a\r\nb\r\n", ""), "\n");
    EXPECT_EQ(Saved("a\nb", "a\r\nb\r\n", ""), "");
}

TEST(FileForm, AnEmptyFile_GetsTheUsualForm)
{
    FileForm form;
    Opened("", form);
    EXPECT_EQ(BytesOfEdited("a\r\nb", form, ""), "a\nb\n");
}

TEST(FileForm, MixedLineEnds_StayWhereLinesStay)
{
    EXPECT_EQ(Saved("a\r\nb\nc\rd\n", "c", "C"), "a\r\nb\nC\rd\n");
    EXPECT_EQ(Saved("a\r\nb\nc\rd\n", "b\r\n", "b\r\nnew\r\n"), "a\r\nb\nnew\nc\rd\n");
    EXPECT_EQ(Saved("a\r\nb\nc\rd\n", "b\r\n", ""), "a\r\nc\rd\n");
}

TEST(FileForm, SameLines_AddedOrTakenAway_AreNotTakenForOneAnother)
{
    EXPECT_EQ(Saved("a\na\r\n", "a\r\na\r\n", "a\r\na\r\na\r\n"), "a\na\r\na\n");
    EXPECT_EQ(Saved("a\na\r\na\n", "a\r\na\r\na\r\n", "a\r\n"), "a\n");
}

TEST(FileForm, NulCharacters_StayInLinesThatStay)
{
    EXPECT_EQ(Saved(std::string("a\0\nb\nc\0", 8), "b", "B"), std::string("a\0\nB\nc\0", 8));
}

TEST(FileForm, Mark_Stays)
{
    EXPECT_EQ(Saved("\xEF\xBB\xBF"
                    "a\r\n",
                    "a", "\xC3\xBC"),
              "\xEF\xBB\xBF\xC3\xBC\r\n");
}

TEST(FileForm, Windows1252_Stays)
{
    EXPECT_EQ(Saved("Gr\xFC\xDF\x65\r\nb\r\n", "b", "5 \xE2\x82\xAC \xE2\x80\x9Cja\xE2\x80\x9D"),
              "Gr\xFC\xDF\x65\r\n5 \x80 \x93ja\x94\r\n");
}

TEST(FileForm, Windows1252_WithALetterThatItLacks_BecomesUtf8)
{
    FileForm form;
    Opened("Gr\xFC\xDF\x65\r\n", form);
    EXPECT_EQ(BytesOfEdited("Gr\xC3\xBC\xC3\x9F\x65 \xCE\xB1\r\n", form, "Gr\xFC\xDF\x65\r\n"),
              "Gr\xC3\xBC\xC3\x9F\x65 \xCE\xB1\r\n");
    EXPECT_EQ(form.encoding, Encoding::Utf8);
    EXPECT_EQ(form.lineEnd, "\r\n");
}

// "Ã¼" in Windows-1252 has the bytes of "ü" in UTF-8.
TEST(FileForm, Windows1252_WhoseBytesWouldReadAsUtf8_BecomesUtf8)
{
    EXPECT_EQ(Saved("Gr\xFC\xDF\x65\n", "Gr\xC3\xBC\xC3\x9F\x65", "\xC3\x83\xC2\xBC"), "\xC3\x83\xC2\xBC\n");
}

TEST(FileForm, Windows1252_WhoseBytesWouldReadAsAMark_BecomesUtf8)
{
    EXPECT_EQ(Saved("Gr\xFC\xDF\x65\n", "Gr\xC3\xBC\xC3\x9F\x65", "\xC3\xBF\xC3\xBE\x61"), "\xC3\xBF\xC3\xBE\x61\n");
}

TEST(FileForm, Windows1252_WithoutItsLetters_StaysPlain)
{
    FileForm form;
    Opened("Gr\xFC\xDF\x65\n", form);
    EXPECT_EQ(BytesOfEdited("Gruss\r\n", form, "Gr\xFC\xDF\x65\n"), "Gruss\n");
    EXPECT_EQ(BytesOfEdited("Gr\xC3\xBC\xC3\x9F\x65\r\n", form, "Gruss\n"), "Gr\xFC\xDF\x65\n");
}

TEST(FileForm, Utf16_Stays)
{
    for (const bool bigEndian : {false, true}) {
        EXPECT_EQ(Saved(Utf16("a\r\nb\nc\n", bigEndian), "b", "\xF0\x9F\x98\x80\xC3\xBC"),
                  Utf16("a\r\n\xF0\x9F\x98\x80\xC3\xBC\nc\n", bigEndian));
    }
}

TEST(FileForm, Utf16_UnpairedAndOddBytes_StayInLinesThatStay)
{
    EXPECT_EQ(Saved(std::string("\xFF\xFE\x3D\xD8\n\0b\0\n\0c\0y", 13), "b", "B"),
              std::string("\xFF\xFE\x3D\xD8\n\0B\0\n\0c\0y", 13));
}

// U+0A0D and U+0D0A hold the bytes of line ends, but are none.
TEST(FileForm, Utf16_LettersWithTheBytesOfLineEnds_AreLetters)
{
    const std::string text = "\xE0\xA8\x8D\xE0\xB4\x8A\r\nb\r\n";
    EXPECT_EQ(Saved(Utf16(text, false), "b", "c"), Utf16("\xE0\xA8\x8D\xE0\xB4\x8A\r\nc\r\n", false));
}

TEST(FileForm, AFileThatHasBeenChangedMeanwhile_GetsTheTextInTheFormThatWasOpened)
{
    FileForm form;
    Opened("a\r\nb\r\n", form);
    EXPECT_EQ(BytesOfEdited("a\r\nB\r\n", form, Utf16("other\n", false)), "a\r\nB\r\n");
    EXPECT_EQ(BytesOfEdited("a\r\nB\r\n", form, ""), "a\r\nB\r\n");
    Opened(Utf16("a\r\n", true), form);
    EXPECT_EQ(BytesOfEdited("B\r\n", form, "a\n"), Utf16("B\r\n", true));
}

TEST(FileForm, ATextThatBeginsWithAMark_KeepsIt)
{
    EXPECT_EQ(Saved("a\n", "a",
                    "\xEF\xBB\xBF"
                    "a"),
              "\xEF\xBB\xBF\xEF\xBB\xBF"
              "a\n");
}

TEST(FileForm, ANewFile_IsUtf8WithLf)
{
    EXPECT_EQ(BytesOfNew("Gr\xC3\xBC\xC3\x9F\x65\r\nb"), "Gr\xC3\xBC\xC3\x9F\x65\nb\n");
    EXPECT_EQ(BytesOfNew(""), "\n");
}

TEST(FileForm, FormOf_MixedLineEnds_IsTheMostFrequentOne)
{
    EXPECT_EQ(FormOf(Encoding::Utf8, false, {.crLf = 2, .lf = 1, .cr = 1}).lineEnd, "\r\n");
    EXPECT_EQ(FormOf(Encoding::Utf8, false, {.crLf = 1, .lf = 2, .cr = 1}).lineEnd, "\n");
    EXPECT_EQ(FormOf(Encoding::Utf8, false, {.crLf = 1, .lf = 1, .cr = 2}).lineEnd, "\r");
    EXPECT_EQ(FormOf(Encoding::Utf8, false, {.crLf = 1, .lf = 1}).lineEnd, "\n");
    EXPECT_EQ(FormOf(Encoding::Utf8, false, {}).lineEnd, "\n");
}

}
}
