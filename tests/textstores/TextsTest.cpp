#include "base/text/Case.h"
#include "base/text/Utf8.h"
#include "platform/text/CommandLine.h"
#include "platform/text/DesktopEntry.h"
#include "platform/text/Encoding.h"
#include "platform/text/Wildcards.h"
#include <gtest/gtest.h>

namespace platform::text {

using Words = std::vector<std::string>;

TEST(TextOfBytes, Utf8_IsKept) { EXPECT_EQ(TextOfBytes("Gr\xC3\xBC\xC3\x9F dich \xF0\x9F\x98\x80"), "Grüß dich 😀"); }

TEST(TextOfBytes, NoUtf8_IsWindows1252)
{
    EXPECT_EQ(TextOfBytes("Gr\xFC\xDF dich, 5 \x80 \x93ja\x94"), "Grüß dich, 5 € “ja”");
}

TEST(TextOfBytes, Windows1252BytesWithoutCharacter_BecomeControlCharacters)
{
    EXPECT_EQ(TextOfBytes("\xFC\x81"), "\xC3\xBC\xC2\x81");
}

TEST(TextOfBytes, Utf8ByteOrderMark_IsNoText) { EXPECT_EQ(TextOfBytes("\xEF\xBB\xBFhi"), "hi"); }

TEST(TextOfBytes, Utf16BothByteOrders_AreUnderstood)
{
    EXPECT_EQ(TextOfBytes(std::string("\xFF\xFEh\0\xAC\x20", 6)), "h€");
    EXPECT_EQ(TextOfBytes(std::string("\xFE\xFF\0h\x20\xAC", 6)), "h€");
}

TEST(TextOfBytes, Utf16PairWithItsBytes_IsOneCharacter)
{
    EXPECT_EQ(TextOfBytes(std::string("\xFF\xFE\x3D\xD8\x00\xDE", 6)), "😀");
}

TEST(TextOfBytes, Utf16LoneSurrogateAndOddByte_AreHarmless)
{
    EXPECT_EQ(TextOfBytes(std::string("\xFF\xFE\x3D\xD8x\0y", 7)), "\xEF\xBF\xBDx");
    EXPECT_EQ(TextOfBytes(std::string("\xFF\xFE\x00\xDC", 4)), "\xEF\xBF\xBD");
}

TEST(TextOfBytes, EveryLineEnd_BecomesCrLf) { EXPECT_EQ(TextOfBytes("a\nb\rc\r\nd\n\r\n"), "a\r\nb\r\nc\r\nd\r\n\r\n"); }

TEST(TextOfBytes, NulCharacters_AreLeftOut) { EXPECT_EQ(TextOfBytes(std::string("a\0b\0\0", 5)), "ab"); }

TEST(TextOfBytes, NothingOrMarkOnly_IsEmpty)
{
    EXPECT_EQ(TextOfBytes(""), "");
    EXPECT_EQ(TextOfBytes("\xFF\xFE"), "");
    EXPECT_EQ(TextOfBytes("\xEF\xBB\xBF"), "");
}

TEST(WithLf, CrLfAndCr_BecomeLf) { EXPECT_EQ(WithLf("a\r\nb\rc\n"), "a\nb\nc\n"); }

TEST(IsUtf8, OverlongSurrogateTooLargeAndCutForms_AreNot)
{
    for (const char* text :
         {"\xC0\x80", "\xE0\x80\x80", "\xF0\x80\x80\x80", "\xED\xA0\x80", "\xF4\x90\x80\x80", "\xC3", "\x80"})
        EXPECT_FALSE(::text::IsUtf8(text));
    EXPECT_TRUE(::text::IsUtf8("\xF4\x8F\xBF\xBF"));
}

TEST(CutBetweenCharacters, Limit_NeverSplitsACharacter)
{
    EXPECT_EQ(::text::CutBetweenCharacters("a€b", 0), "");
    EXPECT_EQ(::text::CutBetweenCharacters("a€b", 1), "a");
    EXPECT_EQ(::text::CutBetweenCharacters("a€b", 2), "a");
    EXPECT_EQ(::text::CutBetweenCharacters("a€b", 3), "a");
    EXPECT_EQ(::text::CutBetweenCharacters("a€b", 4), "a€");
    EXPECT_EQ(::text::CutBetweenCharacters("a€b", 9), "a€b");
}

TEST(CutBetweenCharacters, InvalidBytes_AreCutAnywhere)
{
    EXPECT_EQ(::text::CutBetweenCharacters("\xFF\xFF\xFF", 2), "\xFF\xFF");
}

TEST(FoldCase, Letters_OfSeveralScripts)
{
    EXPECT_EQ(::text::FoldCase("ÄÖÜ×ß ŁŻŸ ΑΩ ЯЁ AZ"), "äöü×ß łżÿ αω яё az");
    EXPECT_EQ(::text::FoldCase("\xFF\xC3"), "\xFF\xC3");
}

TEST(MatchesWildcards, Extension_IgnoresCase)
{
    EXPECT_TRUE(MatchesWildcards("Robby.ACS", "*.acs"));
    EXPECT_TRUE(MatchesWildcards(".acs", "*.acs"));
    EXPECT_FALSE(MatchesWildcards("Robby.acs2", "*.acs"));
}

TEST(MatchesWildcards, QuestionMark_IsOneCharacterNotOneByte)
{
    EXPECT_TRUE(MatchesWildcards("ä.acs", "?.acs"));
    EXPECT_FALSE(MatchesWildcards("ab.acs", "?.acs"));
    EXPECT_FALSE(MatchesWildcards(".acs", "?.acs"));
}

TEST(MatchesWildcards, StarDotStar_IsEveryName) { EXPECT_TRUE(MatchesWildcards("README", "*.*")); }

TEST(MatchesWildcards, NoWildcard_IsTheNameItself)
{
    EXPECT_TRUE(MatchesWildcards("Parlune.chm", "parlune.CHM"));
    EXPECT_FALSE(MatchesWildcards("Parlune.chm", "parlune"));
}

TEST(MatchesWildcards, ManyStars_TakeNoExponentialTime)
{
    std::string pattern;
    for (int i = 0; i < 200; ++i)
        pattern += "*a";
    EXPECT_FALSE(MatchesWildcards(std::string(2000, 'a') + "b", pattern));
}

TEST(SplitCommandLine, Quotes_KeepBlanksAndAreTakenOff)
{
    EXPECT_EQ(SplitCommandLine("\"/opt/my program/run\"  /p \"a\\\"b\""), (Words{"/opt/my program/run", "/p", "a\"b"}));
}

TEST(SplitCommandLine, OpenQuote_ReachesToTheEnd) { EXPECT_EQ(SplitCommandLine("a \"b c"), (Words{"a", "b c"})); }

TEST(SplitCommandLine, EmptyQuotesAndNothing)
{
    EXPECT_EQ(SplitCommandLine("a \"\""), (Words{"a", ""}));
    EXPECT_EQ(SplitCommandLine("  \t"), Words{});
}

TEST(JoinCommandLine, WordsWithBlanks_AreQuoted)
{
    EXPECT_EQ(JoinCommandLine({"/NODETECT"}), "/NODETECT");
    EXPECT_EQ(JoinCommandLine({"a b", "", "c\"d"}), "\"a b\" \"\" \"c\\\"d\"");
    EXPECT_EQ(JoinCommandLine({}), "");
}

// A backslash before the closing quote would take it for a part of the word.
TEST(JoinCommandLine, AWordThatEndsWithBackslashes_SplitsIntoItself)
{
    const Words words{"C:\\my files\\", "x\"\\\\", "last"};

    EXPECT_EQ(JoinCommandLine(words), "\"C:\\my files\"\\ \"x\\\"\"\\\\ last");
    EXPECT_EQ(SplitCommandLine(JoinCommandLine(words)), words);
}

TEST(AutostartEntry, Program_IsQuotedForTheExecKey)
{
    EXPECT_EQ(AutostartEntry("/opt/my \"50%\" $x\\/parlune"),
              "[Desktop Entry]\nType=Application\nVersion=1.0\nName=Parlune\n"
              "Comment=A desktop companion that reads text aloud\n"
              "Exec=\"/opt/my \\\\\"50%%\\\\\" \\\\$x\\\\\\\\/parlune\"\nTerminal=false\nCategories=Utility;\n");
}

TEST(AutostartProgram, EntryAsWritten_IsItsProgram)
{
    EXPECT_EQ(AutostartProgram(AutostartEntry("/usr/bin/parlune")), "/usr/bin/parlune");
    EXPECT_EQ(AutostartProgram(AutostartEntry("/opt/my \"50%\" $x\\/parlune")), "/opt/my \"50%\" $x\\/parlune");
}

TEST(AutostartProgram, CommandLineOfTheUsersOwn_IsNone)
{
    EXPECT_EQ(AutostartProgram("[Desktop Entry]\nExec=parlune /nodetect\n"), std::nullopt);
    EXPECT_EQ(AutostartProgram("[Desktop Entry]\nExec=\"/opt/parlune\" \"/nodetect\"\n"), std::nullopt);
    EXPECT_EQ(AutostartProgram("[Desktop Entry]\nExec=\"/opt/parlune\" /nodetect\n"), std::nullopt);
    EXPECT_EQ(AutostartProgram("[Desktop Entry]\nExec=/opt/parlune /nodetect\n"), std::nullopt);
    EXPECT_EQ(AutostartProgram("[Desktop Entry]\nName=x\n"), std::nullopt);
    EXPECT_EQ(AutostartProgram("[Desktop Entry]\nExec=\"/opt/x\\\"\n"), std::nullopt);
}

TEST(WithAutostartProgram, EntryOfTheUser_KeepsTheRest)
{
    EXPECT_EQ(WithAutostartProgram("[Desktop Entry]\nExec=\"/old\"\nHidden=true\nX-My=1\n", "/new place"),
              "[Desktop Entry]\nExec=\"/new place\"\nHidden=true\nX-My=1\n");
}

TEST(IsAutostartOn, EntryAsWritten_IsOn) { EXPECT_TRUE(IsAutostartOn(AutostartEntry("/usr/bin/parlune"))); }

TEST(IsAutostartOn, SwitchedOffByTheUser_IsOff)
{
    EXPECT_FALSE(IsAutostartOn(AutostartEntry("/usr/bin/parlune") + "Hidden=true\n"));
    EXPECT_FALSE(IsAutostartOn(AutostartEntry("/usr/bin/parlune") + "X-GNOME-Autostart-enabled=false\n"));
    EXPECT_TRUE(IsAutostartOn(AutostartEntry("/usr/bin/parlune") + "Hidden=false\n"));
    EXPECT_FALSE(IsAutostartOn(""));
}

TEST(MatchesWildcards, StarInTheMiddle_TakesAsMuchAsNeeded)
{
    EXPECT_TRUE(MatchesWildcards("abcabd", "a*bd"));
    EXPECT_FALSE(MatchesWildcards("abcabd", "a*bc"));
}

TEST(MatchesWildcards, StarAtTheEnd_TakesNothingToo)
{
    EXPECT_TRUE(MatchesWildcards("abc", "abc*"));
    EXPECT_TRUE(MatchesWildcards("abc", "abc**"));
    EXPECT_FALSE(MatchesWildcards("abc", "abc*d"));
}

TEST(MatchesWildcards, StarsBeforeALetterOfSeveralBytes_FindIt)
{
    EXPECT_TRUE(MatchesWildcards("ääö", "*ö"));
    EXPECT_FALSE(MatchesWildcards("ä", "*\xA4"));
}

TEST(MatchesWildcards, EmptyPattern_MatchesTheEmptyNameOnly)
{
    EXPECT_TRUE(MatchesWildcards("", ""));
    EXPECT_TRUE(MatchesWildcards("", "*"));
    EXPECT_FALSE(MatchesWildcards("a", ""));
    EXPECT_FALSE(MatchesWildcards("", "a"));
}

TEST(SplitCommandLine, QuotesInsideAWord_JoinItsParts) { EXPECT_EQ(SplitCommandLine("a\"b c\"d e"), (Words{"ab cd", "e"})); }

TEST(SplitCommandLine, BackslashOutsideQuotes_IsPartOfTheWord)
{
    EXPECT_EQ(SplitCommandLine("C:\\a\\b"), (Words{"C:\\a\\b"}));
}

TEST(SplitCommandLine, BackslashBeforeAQuoteOutsideQuotes_OpensThem)
{
    EXPECT_EQ(SplitCommandLine("a\\\"b c\""), (Words{"a\\b c"}));
}

TEST(SplitCommandLine, Tabs_SeparateWords) { EXPECT_EQ(SplitCommandLine("\ta\t b\t"), (Words{"a", "b"})); }

TEST(JoinCommandLine, SeveralWords_AreSeparatedByOneBlank) { EXPECT_EQ(JoinCommandLine({"a", "b", "c"}), "a b c"); }

TEST(JoinCommandLine, WordWithATab_IsQuoted) { EXPECT_EQ(JoinCommandLine({"a\tb"}), "\"a\tb\""); }

TEST(AutostartEntry, GraveAccent_IsQuotedForTheExecKey)
{
    EXPECT_NE(AutostartEntry("/a`b").find("Exec=\"/a\\\\`b\"\n"), std::string::npos);
    EXPECT_EQ(AutostartProgram(AutostartEntry("/a`b")), "/a`b");
}

TEST(AutostartProgram, PathThatIsNotWhole_IsNone)
{
    EXPECT_EQ(AutostartProgram("[Desktop Entry]\nExec=\"parlune\"\n"), std::nullopt);
}

TEST(AutostartProgram, ProgramWithAFieldCode_IsNone)
{
    EXPECT_EQ(AutostartProgram("[Desktop Entry]\nExec=\"/opt/parlune %f\"\n"), std::nullopt);
}

TEST(AutostartProgram, ProgramWithoutQuotes_IsNone)
{
    EXPECT_EQ(AutostartProgram("[Desktop Entry]\nExec=/opt/parlune\n"), std::nullopt);
}

TEST(AutostartProgram, BackslashAtTheEnd_IsNone)
{
    EXPECT_EQ(AutostartProgram("[Desktop Entry]\nExec=\"/opt/x\\\\\"\n"), std::nullopt);
}

TEST(AutostartProgram, SignsInTheMiddle_ComeBack)
{
    EXPECT_EQ(AutostartProgram(AutostartEntry("/a\\b")), "/a\\b");
    EXPECT_EQ(AutostartProgram(AutostartEntry("/a%b")), "/a%b");
    EXPECT_EQ(AutostartProgram(AutostartEntry("/a$b\"c")), "/a$b\"c");
}

TEST(WithAutostartProgram, EntryWithoutTheGroup_GetsIt)
{
    EXPECT_EQ(WithAutostartProgram("", "/x"), "[Desktop Entry]\r\nExec=\"/x\"\r\n");
}

TEST(IsAutostartOn, EntryWithoutAProgram_IsOff) { EXPECT_FALSE(IsAutostartOn("[Desktop Entry]\nName=x\n")); }

TEST(IsAutostartOn, OtherLetterCaseOfTheWords_CountsToo)
{
    EXPECT_FALSE(IsAutostartOn("[Desktop Entry]\nExec=\"/x\"\nHidden=TRUE\n"));
    EXPECT_TRUE(IsAutostartOn("[Desktop Entry]\nExec=\"/x\"\nX-GNOME-Autostart-enabled=true\n"));
}

TEST(SplitCommandLine, BlankBehindAQuoteInsideQuotes_SeparatesNothing)
{
    EXPECT_EQ(SplitCommandLine("\"a\\\" b\" c"), (Words{"a\" b", "c"}));
}

}
