#include "platform/text/ProfileText.h"
#include <gtest/gtest.h>

using namespace std::string_literals;

namespace platform::text {
namespace {
constexpr char Robby[] = "; voices\r\n"
                         "[Robby]\r\n"
                         "FontName = Comic Sans \r\n"
                         "FontSize=9\r\n"
                         "\r\n"
                         "[Peedy]\r\n"
                         "FontSize=12\r\n";

std::string Value(std::string_view text, std::string_view section, std::string_view key)
{
    return ReadProfileValue(text, section, key).value_or("(nothing)");
}
}

TEST(ReadProfileValue, BlanksAround_AreNotPartOfTheValue) { EXPECT_EQ(Value(Robby, "Robby", "FontName"), "Comic Sans"); }

TEST(ReadProfileValue, OtherLetterCase_IsTheSameName) { EXPECT_EQ(Value(Robby, "ROBBY", "fontsize"), "9"); }

TEST(ReadProfileValue, KeyOfAnotherSection_IsNotFound) { EXPECT_EQ(Value(Robby, "Peedy", "FontName"), "(nothing)"); }

TEST(ReadProfileValue, MissingSection_IsNothing) { EXPECT_EQ(Value(Robby, "Merlin", "FontSize"), "(nothing)"); }

TEST(ReadProfileValue, EmptyValue_IsEmptyAndNotMissing) { EXPECT_EQ(Value("[A]\nK=\n", "A", "K"), ""); }

TEST(ReadProfileValue, OnePairOfQuotes_IsTakenOff)
{
    EXPECT_EQ(Value("[A]\nK=\" x \"\n", "A", "K"), " x ");
    EXPECT_EQ(Value("[A]\nK=''x''\n", "A", "K"), "'x'");
    EXPECT_EQ(Value("[A]\nK=\"x'\n", "A", "K"), "\"x'");
    EXPECT_EQ(Value("[A]\nK=\"\n", "A", "K"), "\"");
}

TEST(ReadProfileValue, ValueWithEqualsSign_IsWhole) { EXPECT_EQ(Value("[A]\nK=a=b\n", "A", "K"), "a=b"); }

TEST(ReadProfileValue, TwoSectionsOfOneName_TheFirstCounts)
{
    EXPECT_EQ(Value("[A]\nK=1\n[a]\nK=2\nL=3\n", "A", "K"), "1");
    EXPECT_EQ(Value("[A]\nK=1\n[a]\nK=2\nL=3\n", "A", "L"), "(nothing)");
}

TEST(ReadProfileValue, BracedKeyAndBracketsInSection_AreFound)
{
    constexpr char Text[] = "[C:\\x\\my [x].acs]\r\n{ca141fd0-ac7f-11d1-97a3-006008273000}=\\Spd=1\\\r\n";
    EXPECT_EQ(Value(Text, "C:\\x\\my [x].acs", "{CA141FD0-AC7F-11D1-97A3-006008273000}"), "\\Spd=1\\");
}

TEST(ReadProfileValue, CommentLine_IsNoKey) { EXPECT_EQ(Value("[A]\n;K=1\n ; K=2\nK=3\n", "A", "K"), "3"); }

TEST(ReadProfileValue, ByteOrderMark_DoesNotHideTheFirstSection)
{
    EXPECT_EQ(Value("\xEF\xBB\xBF[A]\nK=1\n", "A", "K"), "1");
}

TEST(ReadProfileValue, LineBeforeTheFirstSection_BelongsToNone) { EXPECT_EQ(Value("K=1\n[A]\n", "", "K"), "(nothing)"); }

TEST(ReadProfileValue, BinaryBytes_AreReadAround)
{
    const std::string junk = "\0\xFF[[=]]\x01\n=\n]\n["s + "\n[A]\nK=1\n";
    EXPECT_EQ(Value(junk, "A", "K"), "1");
}

TEST(ReadProfileKeys, Section_NamesWithANulEach) { EXPECT_EQ(ReadProfileKeys(Robby, "robby"), "FontName\0FontSize\0"s); }

TEST(ReadProfileKeys, LinesThatAreNoKeys_AreLeftOut)
{
    EXPECT_EQ(ReadProfileKeys("[A]\njunk\n;c=1\n=x\nK=1\n", "A"), "K\0"s);
}

TEST(ReadProfileKeys, MissingSection_IsEmpty) { EXPECT_EQ(ReadProfileKeys(Robby, "Merlin"), ""); }

TEST(WithProfileValue, EmptyText_MakesSectionAndKey)
{
    EXPECT_EQ(WithProfileValue("", "Robby", "FontSize", "9"), "[Robby]\r\nFontSize=9\r\n");
}

TEST(WithProfileValue, ExistingKey_ChangesOnlyItsLineAndKeepsItsSpelling)
{
    EXPECT_EQ(WithProfileValue(Robby, "ROBBY", "FONTSIZE", "10"), "; voices\r\n"
                                                                  "[Robby]\r\n"
                                                                  "FontName = Comic Sans \r\n"
                                                                  "FontSize=10\r\n"
                                                                  "\r\n"
                                                                  "[Peedy]\r\n"
                                                                  "FontSize=12\r\n");
}

TEST(WithProfileValue, NewKey_GoesBeforeTheBlankLinesAtTheSectionsEnd)
{
    EXPECT_EQ(WithProfileValue(Robby, "Robby", "BalloonStyle", "3"), "; voices\r\n"
                                                                     "[Robby]\r\n"
                                                                     "FontName = Comic Sans \r\n"
                                                                     "FontSize=9\r\n"
                                                                     "BalloonStyle=3\r\n"
                                                                     "\r\n"
                                                                     "[Peedy]\r\n"
                                                                     "FontSize=12\r\n");
}

TEST(WithProfileValue, NewSection_GoesToTheEnd)
{
    EXPECT_EQ(WithProfileValue("[A]\r\nK=1\r\n", "B", "L", "2"), "[A]\r\nK=1\r\n[B]\r\nL=2\r\n");
}

TEST(WithProfileValue, LastLineWithoutEnd_GetsOne)
{
    EXPECT_EQ(WithProfileValue("[A]\r\nK=1", "A", "L", "2"), "[A]\r\nK=1\r\nL=2\r\n");
    EXPECT_EQ(WithProfileValue("[A]\r\nK=1", "A", "K", "2"), "[A]\r\nK=2");
}

TEST(WithProfileValue, TextWithLineFeedsOnly_KeepsThem)
{
    EXPECT_EQ(WithProfileValue("[A]\nK=1\n", "A", "L", "2"), "[A]\nK=1\nL=2\n");
}

TEST(WithProfileValue, UnknownLinesAndBytes_StayAsTheyAre)
{
    const std::string text = "junk \xFF\0 line\r\n[A]\r\n ; note\r\n??\r\nK=1\r\n\r\n[B]\nx"s;
    const std::string expected = "junk \xFF\0 line\r\n[A]\r\n ; note\r\n??\r\nK=7\r\n\r\n[B]\nx"s;

    EXPECT_EQ(WithProfileValue(text, "A", "K", "7"), expected);
}

TEST(WithProfileValue, LineBreakOrNul_IsRefused)
{
    EXPECT_EQ(WithProfileValue("", "A", "K", "a\nb"), std::nullopt);
    EXPECT_EQ(WithProfileValue("", "A", "K", "a\rb"), std::nullopt);
    EXPECT_EQ(WithProfileValue("", "A", "K", "a\0b"s), std::nullopt);
    EXPECT_EQ(WithProfileValue("", "A\n[B]", "K", "a"), std::nullopt);
    EXPECT_EQ(WithProfileValue("", "A", "K\nL", "a"), std::nullopt);
}

TEST(WithProfileValue, KeyThatCouldNotBeFoundAgain_IsRefused)
{
    for (const char* key : {"", " ", "a=b", ";a", "[a"})
        EXPECT_EQ(WithProfileValue("", "A", key, "x"), std::nullopt) << key;
}

TEST(WithProfileValue, ValueWithBlanksAround_IsWrittenWithThemAndReadWithout)
{
    const auto text = WithProfileValue("", "A", "K", "  x  ");

    EXPECT_EQ(text, "[A]\r\nK=  x  \r\n");
    EXPECT_EQ(Value(*text, "A", "K"), "x");
}

TEST(WithoutProfileKey, Key_LosesItsLinesOnly)
{
    EXPECT_EQ(WithoutProfileKey("[A]\r\nK=1\r\n;K\r\nk=2\r\nL=3\r\n[B]\r\nK=4\r\n", "A", "K"),
              "[A]\r\n;K\r\nL=3\r\n[B]\r\nK=4\r\n");
}

TEST(WithoutProfileKey, MissingKeyOrSection_ChangesNothing)
{
    EXPECT_EQ(WithoutProfileKey(Robby, "Robby", "None"), Robby);
    EXPECT_EQ(WithoutProfileKey(Robby, "None", "FontSize"), Robby);
}

TEST(WithoutProfileSection, Section_GoesUpToTheNextOne)
{
    EXPECT_EQ(WithoutProfileSection(Robby, "robby"), "; voices\r\n[Peedy]\r\nFontSize=12\r\n");
}

TEST(WithoutProfileSection, TwoOfOneName_BothGo)
{
    EXPECT_EQ(WithoutProfileSection("[A]\nK=1\n[B]\nL=1\n[a]\nK=2\n", "A"), "[B]\nL=1\n");
}

TEST(WithoutProfileSection, ByteOrderMark_Stays)
{
    EXPECT_EQ(WithoutProfileSection("\xEF\xBB\xBF[A]\nK=1\n", "A"), "\xEF\xBB\xBF");
}

TEST(ReadProfileValue, SectionNameWithBlanksAround_IsTheSame) { EXPECT_EQ(Value(" [ A ] \nK=1\n", " A ", " K "), "1"); }

TEST(ReadProfileValue, HeadingWithSomethingBehind_IsAHeading) { EXPECT_EQ(Value("[A] note\nK=1\n", "A", "K"), "1"); }

TEST(ReadProfileValue, HeadingWithoutItsBracket_IsNone) { EXPECT_EQ(Value("[A]\n[B\nK=1\n", "A", "K"), "1"); }

TEST(ReadProfileValue, LineThatBeginsWithEquals_IsNoKey) { EXPECT_EQ(Value("[A]\n=1\nK=2\n", "A", ""), "(nothing)"); }

TEST(ReadProfileValue, TwoKeysOfOneName_TheFirstCounts) { EXPECT_EQ(Value("[A]\nK=1\nk=2\n", "A", "K"), "1"); }

TEST(ReadProfileValue, LastLineWithoutEnd_IsRead) { EXPECT_EQ(Value("[A]\nK=12", "A", "K"), "12"); }

TEST(ReadProfileValue, EverySortOfBlankAround_IsNotPartOfTheValue)
{
    EXPECT_EQ(Value("[A]\nK=\t\v\f x \t\r\n", "A", "K"), "x");
}

TEST(ReadProfileValue, SingleQuotes_AreTakenOffToo) { EXPECT_EQ(Value("[A]\nK=' x '\n", "A", "K"), " x "); }

TEST(ReadProfileValue, QuotesWithNothingInside_AreNothing) { EXPECT_EQ(Value("[A]\nK=\"\"\n", "A", "K"), ""); }

TEST(ReadProfileKeys, SecondSectionOfOneName_IsLeftOut) { EXPECT_EQ(ReadProfileKeys("[A]\nK=1\n[a]\nL=1\n", "A"), "K\0"s); }

TEST(WithProfileValue, BlanksAroundNames_AreNotWritten)
{
    EXPECT_EQ(WithProfileValue("", " A ", " K ", "1"), "[A]\r\nK=1\r\n");
}

TEST(WithProfileValue, LastKeyOfAMiddleSection_StaysInIt)
{
    EXPECT_EQ(WithProfileValue("[A]\n[B]\nK=1\n", "A", "L", "2"), "[A]\nL=2\n[B]\nK=1\n");
}

TEST(WithProfileValue, SeveralBlankLinesAtTheSectionsEnd_AllStayBehindTheNewKey)
{
    EXPECT_EQ(WithProfileValue("[A]\nK=1\n \n\n[B]\n", "A", "L", "2"), "[A]\nK=1\nL=2\n \n\n[B]\n");
}

TEST(WithProfileValue, TextOfAMarkOnly_KeepsItAndGetsNoEmptyLine)
{
    EXPECT_EQ(WithProfileValue("\xEF\xBB\xBF", "A", "K", "1"), "\xEF\xBB\xBF[A]\r\nK=1\r\n");
}

TEST(WithProfileValue, NewSectionBehindALineWithoutEnd_BeginsALine)
{
    EXPECT_EQ(WithProfileValue("[A]\nK=1", "B", "L", "2"), "[A]\nK=1\n[B]\nL=2\n");
}

TEST(WithProfileValue, TextThatBeginsWithALineFeed_GetsLineFeeds)
{
    EXPECT_EQ(WithProfileValue("\n[A]\r\n", "A", "K", "1"), "\n[A]\r\nK=1\n");
}

TEST(WithProfileValue, KeyWithACommentSignInside_IsKept)
{
    EXPECT_EQ(WithProfileValue("", "A", "K;[", "1"), "[A]\r\nK;[=1\r\n");
}

TEST(WithoutProfileKey, SecondSectionOfOneName_KeepsItsKey)
{
    EXPECT_EQ(WithoutProfileKey("[A]\nK=1\n[a]\nK=2\n", "A", "K"), "[A]\n[a]\nK=2\n");
}

TEST(WithoutProfileKey, ByteOrderMarkAndBlanksAroundTheName_DoNotMatter)
{
    EXPECT_EQ(WithoutProfileKey("\xEF\xBB\xBF[A]\nK=1\nL=2\n", "A", " K "), "\xEF\xBB\xBF[A]\nL=2\n");
    EXPECT_EQ(WithoutProfileKey("\xEF\xBB\xBF", "A", "K"), "\xEF\xBB\xBF");
}

TEST(WithoutProfileSection, LinesBeforeTheFirstHeading_Stay)
{
    EXPECT_EQ(WithoutProfileSection("note\n[A]\nK=1\n", " A "), "note\n");
}

TEST(ReadProfileValue, HeadingWithAnEqualsSign_IsAHeading) { EXPECT_EQ(Value("[A=B]\nK=1\n", "A=B", "K"), "1"); }

TEST(WithoutProfileKey, KeyNamedLikeItsSection_LeavesTheHeading)
{
    EXPECT_EQ(WithoutProfileKey("[A]\nA=1\nB=2\n", "A", "A"), "[A]\nB=2\n");
}

}
