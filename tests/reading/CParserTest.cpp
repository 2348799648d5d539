#include "reading/CParser.h"
#include "platform/headless/Desktop.h"
#include <cstdlib>
#include <gtest/gtest.h>
#include <new>

namespace {

using Fields = std::vector<std::string>;

// How many more allocations succeed; -1: all.
int allocationsLeft = -1;

// Counts down to one failed allocation within a block.
class CFailingAllocation {
public:
    explicit CFailingAllocation(int passes) { allocationsLeft = passes; }
    ~CFailingAllocation() { allocationsLeft = -1; }
    CFailingAllocation(const CFailingAllocation&) = delete;
    CFailingAllocation& operator=(const CFailingAllocation&) = delete;
};

void* Allocate(std::size_t size)
{
    if (allocationsLeft == 0) {
        allocationsLeft = -1;
        throw std::bad_alloc();
    }
    if (allocationsLeft > 0)
        --allocationsLeft;
    if (void* memory = std::malloc(size == 0 ? 1 : size))
        return memory;
    throw std::bad_alloc();
}

Fields FieldsOf(std::string_view text, std::string_view delimiter)
{
    CParser parser;
    parser.ParseIt(text, delimiter);
    Fields fields;
    for (std::int32_t index = 1; index <= parser.FieldCount(); ++index)
        fields.push_back(parser.Field(index));
    return fields;
}

}

void* operator new(std::size_t size) { return Allocate(size); }
void* operator new[](std::size_t size) { return Allocate(size); }
void operator delete(void* memory) noexcept { std::free(memory); }
void operator delete[](void* memory) noexcept { std::free(memory); }
void operator delete(void* memory, std::size_t) noexcept { std::free(memory); }
void operator delete[](void* memory, std::size_t) noexcept { std::free(memory); }

TEST(CParser, ParseIt_TwoFields_AreTrimmed) { EXPECT_EQ(FieldsOf("a, b", ","), (Fields{"a", "b"})); }

TEST(CParser, ParseIt_BlanksOnly_GiveNoField) { EXPECT_EQ(FieldsOf("    ", ","), Fields{}); }

TEST(CParser, ParseIt_AnEmptyText_GivesNoField) { EXPECT_EQ(FieldsOf("", ","), Fields{}); }

TEST(CParser, ParseIt_TwoLineBreaksInARow_GiveAnEmptyField)
{
    EXPECT_EQ(FieldsOf("a\r\n\r\nb", "\r\n"), (Fields{"a", "", "b"}));
}

TEST(CParser, ParseIt_SentencesWithBlanksAtTheEnd_KeepTheLastFullStop)
{
    EXPECT_EQ(FieldsOf("a.  b.   ", ".  "), (Fields{"a", "b."}));
}

TEST(CParser, ParseIt_ADelimiterAtTheEnd_GivesNoLastField) { EXPECT_EQ(FieldsOf("a,b,", ","), (Fields{"a", "b"})); }

TEST(CParser, ParseIt_ADelimiterAtTheStart_GivesAnEmptyFirstField) { EXPECT_EQ(FieldsOf(",a", ","), (Fields{"", "a"})); }

TEST(CParser, ParseIt_OnlyTheDelimiter_GivesOneEmptyField) { EXPECT_EQ(FieldsOf(",", ","), Fields{""}); }

TEST(CParser, ParseIt_NoDelimiter_GivesTheTrimmedText) { EXPECT_EQ(FieldsOf("  a b  ", ","), Fields{"a b"}); }

TEST(CParser, ParseIt_TabsAndLineEnds_AreNotTrimmed) { EXPECT_EQ(FieldsOf("\ta\r\n,\tb", ","), (Fields{"\ta\r\n", "\tb"})); }

TEST(CParser, ParseIt_TheDelimiter_IsMatchedWithItsCase) { EXPECT_EQ(FieldsOf("1x2X3", "X"), (Fields{"1x2", "3"})); }

TEST(CParser, ParseIt_ABlankAsDelimiter_GivesTheWords) { EXPECT_EQ(FieldsOf(" a  b c ", " "), (Fields{"a", "b", "c"})); }

TEST(CParser, ParseIt_ADelimiterThatTrimmingTakesApart_IsNotFound)
{
    EXPECT_EQ(FieldsOf("a,  ,b", " ,"), (Fields{"a,", "b"}));
}

TEST(CParser, ParseIt_OverlappingDelimiters_AreTakenFromTheLeft) { EXPECT_EQ(FieldsOf("a---b", "--"), (Fields{"a", "-b"})); }

TEST(CParser, ParseIt_AnEmptyDelimiter_IsNeverFound) { EXPECT_EQ(FieldsOf("a b", ""), Fields{"a b"}); }

TEST(CParser, ParseIt_ADelimiterLongerThanTheText_IsNotFound) { EXPECT_EQ(FieldsOf("a", "aa"), Fields{"a"}); }

TEST(CParser, ParseIt_NulsInText_AreOrdinaryCharacters)
{
    EXPECT_EQ(FieldsOf(std::string_view("a\0b\0", 4), std::string_view("\0", 1)), (Fields{"a", "b"}));
}

TEST(CParser, ParseIt_WideCharacters_StayWhole) { EXPECT_EQ(FieldsOf("é€😀,ä", ","), (Fields{"é€😀", "ä"})); }

TEST(CParser, ParseIt_ASecondText_ReplacesTheFields)
{
    CParser parser;
    parser.ParseIt("a,b,c", ",");
    parser.ParseIt("d", ",");
    EXPECT_EQ(parser.FieldCount(), 1);
    EXPECT_EQ(parser.Field(1), "d");
    EXPECT_EQ(parser.Field(2), "");
}

TEST(CParser, ParseIt_AnEmptyTextAfterAFullOne_LeavesNoField)
{
    CParser parser;
    parser.ParseIt("a,b", ",");
    parser.ParseIt(" ", ",");
    EXPECT_EQ(parser.FieldCount(), 0);
}

TEST(CParser, ParseIt_AFieldOfItsOwn_MayBeParsedAgain)
{
    CParser parser;
    parser.ParseIt("a,b;c", ",");
    const std::string second = parser.Field(2);
    parser.ParseIt(second, ";");
    EXPECT_EQ(parser.GetFieldArray(), (Fields{"b", "c"}));
}

TEST(CParser, FieldCount_AfterConstruction_IsZero) { EXPECT_EQ(CParser().FieldCount(), 0); }

TEST(CParser, Field_OutsideTheFields_IsEmpty)
{
    CParser parser;
    parser.ParseIt("a,b", ",");
    EXPECT_EQ(parser.Field(0), "");
    EXPECT_EQ(parser.Field(3), "");
    EXPECT_EQ(parser.Field(-1), "");
    EXPECT_EQ(parser.Field(2147483647), "");
}

TEST(CParser, Field_BeforeAnyParse_IsEmpty) { EXPECT_EQ(CParser().Field(1), ""); }

TEST(CParser, GetFieldArray_TheFields_AreACopy)
{
    CParser parser;
    parser.ParseIt("a,b", ",");
    Fields copy = parser.GetFieldArray();
    copy[0] = "changed";
    EXPECT_EQ(parser.Field(1), "a");
    EXPECT_EQ(parser.GetFieldArray(), (Fields{"a", "b"}));
}

TEST(CParser, GetFieldArray_WithoutAField_HoldsOneEmptyText)
{
    CParser parser;
    EXPECT_EQ(parser.GetFieldArray(), Fields{""});
    parser.ParseIt("   ", ",");
    EXPECT_EQ(parser.GetFieldArray(), Fields{""});
    EXPECT_EQ(parser.FieldCount(), 0);
}

TEST(CParser, ParseIt_WhenMemoryRunsOut_TellsItAndKeepsTheFieldsFoundSoFar)
{
    CHeadlessDesktop desktop;
    const std::string text = "a," + std::string(100, 'b') + "," + std::string(100, 'c');
    CParser parser;
    parser.ParseIt("1,2,3,4", ",");  // Its memory for fields stays.

    {
        const CFailingAllocation failing(/*passes*/ 1);  // The second field's text is allocated, the third one's is not.
        parser.ParseIt(text, ",");
    }

    EXPECT_EQ(parser.GetFieldArray(), (Fields{"a", std::string(100, 'b')}));
    ASSERT_EQ(desktop.messageBoxes.shown.size(), 1U);
    EXPECT_EQ(desktop.messageBoxes.Last().text, "7 : Out of memory");
    EXPECT_EQ(desktop.messageBoxes.Last().buttons, platform::BoxButtons::Ok);
}

TEST(CParser, ParseIt_WhenEvenTheMessageFails_KeepsTheFieldsFoundSoFar)
{
    CHeadlessDesktop desktop;
    desktop.journal.FailAlways("MessageBoxes.Show", platform::failure::DeviceError());
    const std::string text = "a," + std::string(100, 'b');
    CParser parser;
    parser.ParseIt("1,2", ",");

    {
        const CFailingAllocation failing(/*passes*/ 0);
        parser.ParseIt(text, ",");
    }

    EXPECT_EQ(parser.GetFieldArray(), Fields{"a"});
    EXPECT_TRUE(desktop.messageBoxes.shown.empty());
}

TEST(CParser, ParseIt_AHugeTextOfManyFields_IsCutInLinearTime)
{
    std::string text;
    for (int line = 0; line < 200000; ++line)
        text += "The quick brown fox.\r\n";
    CParser parser;

    parser.ParseIt(text, "\r\n");

    EXPECT_EQ(parser.FieldCount(), 200000);
    EXPECT_EQ(parser.Field(200000), "The quick brown fox.");
}
