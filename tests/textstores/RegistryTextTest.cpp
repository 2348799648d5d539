#include "platform/text/RegistryText.h"
#include <gtest/gtest.h>

namespace platform::text {
namespace {
constexpr char Key[] = "Software\\Tarrowind\\Parlune";

std::string TextOf(const CRegistryTree& tree, std::string_view path, std::string_view name)
{
    const RegistryData* data = tree.Find(Root::CurrentUser, path, name);
    return data && std::holds_alternative<std::string>(*data) ? std::get<std::string>(*data) : "(nothing)";
}

CRegistryTree TreeWith(std::string_view name, RegistryData data)
{
    CRegistryTree tree;
    tree.CreateKey(Root::CurrentUser, Key);
    tree.Set(Root::CurrentUser, Key, name, std::move(data));
    return tree;
}

CRegistryTree Again(const CRegistryTree& tree) { return ReadRegistryText(WriteRegistryText(tree)).tree; }
}

TEST(RegistryText, Write_KeysAndValues_AreReadable)
{
    CRegistryTree tree;
    tree.CreateKey(Root::CurrentUser, "Software\\Tarrowind");
    tree.Set(Root::CurrentUser, "Software\\Tarrowind", "", std::string("plain"));
    tree.Set(Root::CurrentUser, "Software\\Tarrowind", "Greeting1", std::string("Say \"hi\"\r\n"));
    tree.Set(Root::CurrentUser, "Software\\Tarrowind", "Contexts", -17);

    EXPECT_EQ(WriteRegistryText(tree), "# Parlune registry 1\n"
                                       "\n"
                                       "[CurrentUser\\Software]\n"
                                       "\n"
                                       "[CurrentUser\\Software\\Tarrowind]\n"
                                       "@ = \"plain\"\n"
                                       "\"Contexts\" = -17\n"
                                       "\"Greeting1\" = \"Say \\\"hi\\\"\\r\\n\"\n"
                                       "\n"
                                       "# end\n");
}

TEST(RegistryText, Read_WrittenText_IsSound) { EXPECT_TRUE(ReadRegistryText(WriteRegistryText(TreeWith("A", 1))).Sound()); }

TEST(RegistryText, Read_EveryByteInANameAndAText_ComesBack)
{
    std::string all;
    for (int byte = 0; byte < 256; ++byte)
        all += static_cast<char>(byte);

    EXPECT_EQ(TextOf(Again(TreeWith(all, all)), Key, all), all);
}

TEST(RegistryText, Read_KeyNameWithPercentBracketAndControlCharacter_ComesBack)
{
    CRegistryTree tree;
    tree.CreateKey(Root::ClassesRoot, "100% [sure]\x01]");

    EXPECT_TRUE(Again(tree).HasKey(Root::ClassesRoot, "100% [sure]\x01]"));
}

TEST(RegistryText, Read_NumberBounds_ComeBack)
{
    const CRegistryTree lowest = Again(TreeWith("N", std::int32_t{-2147483647 - 1}));
    EXPECT_EQ(*lowest.Find(Root::CurrentUser, Key, "N"), RegistryData(std::int32_t{-2147483647 - 1}));
    EXPECT_EQ(ReadRegistryText("[CurrentUser\\A]\n\"N\" = 2147483648\n").damagedLines, 1u);
}

TEST(RegistryText, Read_TextWithoutItsEnd_IsNotSoundButKeepsWhatIsThere)
{
    const RegistryText read =
        ReadRegistryText("# Parlune registry 1\n[CurrentUser\\A]\n\"Name\" = \"kept\"\n\"Other\" = \"cu");

    EXPECT_FALSE(read.Sound());
    EXPECT_EQ(TextOf(read.tree, "A", "Name"), "kept");
    EXPECT_EQ(TextOf(read.tree, "A", "Other"), "(nothing)");
}

TEST(RegistryText, Read_DamagedLine_LosesOnlyThatLine)
{
    const RegistryText read = ReadRegistryText("# Parlune registry 1\n[CurrentUser\\A]\n\"One\" = \"1\"\n\"Two = 2\n"
                                               "\"Three\" = \"3\"\n# end\n");

    EXPECT_EQ(read.damagedLines, 1u);
    EXPECT_FALSE(read.Sound());
    EXPECT_EQ(TextOf(read.tree, "A", "One"), "1");
    EXPECT_EQ(TextOf(read.tree, "A", "Three"), "3");
}

TEST(RegistryText, Read_DamagedKeyLine_GivesItsValuesToNoOtherKey)
{
    const RegistryText read =
        ReadRegistryText("# Parlune registry 1\n[CurrentUser\\A]\n[CurrentUser\\B\n\"Lost\" = \"x\"\n# end\n");

    EXPECT_EQ(TextOf(read.tree, "A", "Lost"), "(nothing)");
    EXPECT_EQ(read.damagedLines, 2u);
}

TEST(RegistryText, Read_LinesAfterTheEnd_AreReadButNotSound)
{
    const RegistryText read = ReadRegistryText("# Parlune registry 1\n# end\n[CurrentUser\\A]\n\"N\" = \"late\"\n");

    EXPECT_FALSE(read.ends);
    EXPECT_EQ(TextOf(read.tree, "A", "N"), "late");
}

TEST(RegistryText, Read_HandMadeText_MayHaveBlanksCommentsCrLfAndAByteOrderMark)
{
    const RegistryText read = ReadRegistryText("\xEF\xBB\xBF# Parlune registry 1\r\n# mine\r\n  [CurrentUser\\A]  \r\n"
                                               "\t\"Name\"   =   \"x\"  \r\n# end\r\n\r\n");

    EXPECT_TRUE(read.Sound());
    EXPECT_EQ(TextOf(read.tree, "A", "Name"), "x");
}

TEST(RegistryText, Read_UnknownRoot_IsDamaged) { EXPECT_EQ(ReadRegistryText("[Users\\A]\n").damagedLines, 1u); }

TEST(RegistryText, Read_RootsOwnValues_ComeBack)
{
    CRegistryTree tree;
    ASSERT_TRUE(tree.Set(Root::CurrentUser, "", "Top", std::string("x")));

    EXPECT_EQ(TextOf(Again(tree), "", "Top"), "x");
}

TEST(RegistryText, Read_EmptyText_IsNotSound) { EXPECT_FALSE(ReadRegistryText("").Sound()); }

TEST(RegistryText, Read_ZeroBytesOnly_IsNotSoundAndHoldsNothing)
{
    const RegistryText read = ReadRegistryText(std::string(4096, '\0'));

    EXPECT_FALSE(read.Sound());
    EXPECT_TRUE(read.tree.KeysBelow(Root::CurrentUser).empty());
}

TEST(RegistryTree, Find_OtherLetterCase_IsTheSameValue)
{
    const CRegistryTree tree = TreeWith("GRÖSSE", std::string("12"));

    EXPECT_EQ(TextOf(tree, "SOFTWARE\\tarrowind\\PARLUNE", "größe"), "(nothing)");  // "ß" has no capital of its own.
    EXPECT_EQ(TextOf(tree, "SOFTWARE\\tarrowind\\PARLUNE", "grösse"), "12");
}

TEST(RegistryTree, Set_OtherLetterCase_KeepsTheFirstSpelling)
{
    CRegistryTree tree = TreeWith("SayTime", std::string("0"));
    tree.Set(Root::CurrentUser, Key, "SAYTIME", std::string("1"));

    EXPECT_NE(WriteRegistryText(tree).find("\"SayTime\" = \"1\""), std::string::npos);
}

TEST(RegistryTree, HasKey_DoubledAndTrailingSeparators_AreIgnored)
{
    const CRegistryTree tree = TreeWith("A", 1);

    EXPECT_TRUE(tree.HasKey(Root::CurrentUser, "\\Software\\\\Tarrowind\\Parlune\\\\"));
}

TEST(RegistryTree, CreateKey_MissingParents_CreatesThem)
{
    CRegistryTree tree;
    ASSERT_TRUE(tree.CreateKey(Root::ClassesRoot, "A\\B\\C"));

    EXPECT_TRUE(tree.HasKey(Root::ClassesRoot, "A"));
    EXPECT_TRUE(tree.HasKey(Root::ClassesRoot, "A\\B"));
    EXPECT_FALSE(tree.HasKey(Root::CurrentUser, "A"));
}

TEST(RegistryTree, CreateKey_TooDeep_IsRefused)
{
    std::string path = "A";
    for (int i = 0; i < 32; ++i)
        path += "\\A";

    CRegistryTree tree;
    EXPECT_FALSE(tree.CreateKey(Root::CurrentUser, path));
    EXPECT_FALSE(tree.HasKey(Root::CurrentUser, path));
}

TEST(RegistryTree, DeleteKey_WithKeysBelow_IsRefused)
{
    CRegistryTree tree = TreeWith("A", 1);

    EXPECT_FALSE(tree.DeleteKey(Root::CurrentUser, "Software\\Tarrowind"));
    EXPECT_TRUE(tree.DeleteKey(Root::CurrentUser, Key));
    EXPECT_TRUE(tree.DeleteKey(Root::CurrentUser, "Software\\Tarrowind"));
    EXPECT_FALSE(tree.DeleteKey(Root::CurrentUser, "Software\\Tarrowind"));
}

TEST(RegistryTree, DeleteKey_NameThatBeginsAnotherKeysName_IsNotMistakenForItsParent)
{
    CRegistryTree tree;
    tree.CreateKey(Root::CurrentUser, "Par");
    tree.CreateKey(Root::CurrentUser, "Parlune");
    tree.CreateKey(Root::CurrentUser, "Par!x");

    EXPECT_TRUE(tree.DeleteKey(Root::CurrentUser, "Par"));
}

TEST(RegistryTree, DeleteKey_Root_IsRefused)
{
    CRegistryTree tree;
    EXPECT_FALSE(tree.DeleteKey(Root::CurrentUser, ""));
    EXPECT_FALSE(tree.DeleteKey(Root::CurrentUser, "\\"));
}

TEST(RegistryTree, Add_SameValue_TheOtherTreeWins)
{
    CRegistryTree tree = TreeWith("A", std::string("old"));
    tree.Set(Root::CurrentUser, Key, "B", std::string("stays"));
    tree.Add(TreeWith("a", std::string("new")));

    EXPECT_EQ(TextOf(tree, Key, "A"), "new");
    EXPECT_EQ(TextOf(tree, Key, "B"), "stays");
}

TEST(RegistryTree, BytesOf_Text_HasATerminator) { EXPECT_EQ(BytesOf(std::string("ab")), std::string("ab\0", 3)); }

TEST(RegistryTree, BytesOf_Number_IsLowestByteFirst)
{
    EXPECT_EQ(BytesOf(std::int32_t{17}), std::string("\x11\0\0\0", 4));
    EXPECT_EQ(BytesOf(std::int32_t{-2}), "\xFE\xFF\xFF\xFF");
}

TEST(RegistryText, Read_NumbersAtTheirBounds_AreTaken)
{
    const RegistryText read = ReadRegistryText("[CurrentUser\\A]\n\"High\" = 2147483647\n\"Low\" = -2147483648\n");

    EXPECT_EQ(read.damagedLines, 0u);
    EXPECT_EQ(*read.tree.Find(Root::CurrentUser, "A", "High"), RegistryData(std::int32_t{2147483647}));
}

TEST(RegistryText, Read_NumberWithSomethingBehind_IsDamaged)
{
    EXPECT_EQ(ReadRegistryText("[CurrentUser\\A]\n\"N\" = 12x\n").damagedLines, 1u);
}

TEST(RegistryText, Read_TextWithSomethingBehind_IsDamaged)
{
    EXPECT_EQ(ReadRegistryText("[CurrentUser\\A]\n\"N\" = \"a\" b\n").damagedLines, 1u);
}

TEST(RegistryText, Read_ValueWithoutEqualsSign_IsDamaged)
{
    EXPECT_EQ(ReadRegistryText("[CurrentUser\\A]\n\"N\" \"a\"\n").damagedLines, 1u);
}

TEST(RegistryText, Read_NameWithoutQuotes_IsDamaged)
{
    EXPECT_EQ(ReadRegistryText("[CurrentUser\\A]\nName = \"a\"\n").damagedLines, 1u);
}

TEST(RegistryText, Read_ValueBeforeAnyKey_IsDamaged) { EXPECT_EQ(ReadRegistryText("\"N\" = \"a\"\n").damagedLines, 1u); }

TEST(RegistryText, Read_DefaultValue_IsTheOneWithoutName)
{
    const RegistryText read = ReadRegistryText("[CurrentUser\\A]\n@ = \"plain\"\n");

    EXPECT_EQ(TextOf(read.tree, "A", ""), "plain");
    EXPECT_EQ(read.damagedLines, 0u);
}

TEST(RegistryText, Read_UnknownEscape_IsDamaged)
{
    EXPECT_EQ(ReadRegistryText("[CurrentUser\\A]\n\"N\" = \"\\q\"\n").damagedLines, 1u);
}

TEST(RegistryText, Read_EscapeAtTheEnd_IsDamaged)
{
    EXPECT_EQ(ReadRegistryText("[CurrentUser\\A]\n\"N\" = \"\\").damagedLines, 1u);
    EXPECT_EQ(ReadRegistryText("[CurrentUser\\A]\n\"N\" = \"\\x1").damagedLines, 1u);
}

TEST(RegistryText, Read_ByteInHex_TakesTwoDigitsAndNoMore)
{
    EXPECT_EQ(TextOf(ReadRegistryText("[CurrentUser\\A]\n\"N\" = \"\\x411\"\n").tree, "A", "N"), "A1");
    EXPECT_EQ(ReadRegistryText("[CurrentUser\\A]\n\"N\" = \"\\x4g\"\n").damagedLines, 1u);
}

TEST(RegistryText, Read_PercentInAKeyWithoutTwoDigits_IsDamaged)
{
    EXPECT_EQ(ReadRegistryText("[CurrentUser\\A%4]\n").damagedLines, 1u);
    EXPECT_EQ(ReadRegistryText("[CurrentUser\\100%]\n").damagedLines, 1u);
    EXPECT_EQ(ReadRegistryText("[CurrentUser\\A%zz]\n").damagedLines, 1u);
}

TEST(RegistryText, Read_PercentInAKey_IsTheByteOfItsDigits)
{
    EXPECT_TRUE(ReadRegistryText("[CurrentUser\\A%2541]\n").tree.HasKey(Root::CurrentUser, "A%41"));
}

TEST(RegistryText, Read_RootThatOnlyBeginsLikeOne_IsDamaged)
{
    EXPECT_EQ(ReadRegistryText("[CurrentUsers]\n").damagedLines, 1u);
    EXPECT_EQ(ReadRegistryText("[CurrentUser]\n").damagedLines, 0u);
}

TEST(RegistryText, Read_OneBracketAlone_IsDamaged) { EXPECT_EQ(ReadRegistryText("[\n").damagedLines, 1u); }

TEST(RegistryText, Read_KeyTooDeep_IsDamaged)
{
    std::string path = "A";
    for (int i = 0; i < 32; ++i)
        path += "\\A";

    EXPECT_EQ(ReadRegistryText("[CurrentUser\\" + path + "]\n").damagedLines, 1u);
}

TEST(RegistryText, Read_FirstLineLater_DoesNotBegin)
{
    const RegistryText read = ReadRegistryText("\n# Parlune registry 1\n# end\n");

    EXPECT_FALSE(read.begins);
    EXPECT_TRUE(read.ends);
}

TEST(RegistryText, Read_CommentBehindTheEnd_IsNoEnd)
{
    EXPECT_FALSE(ReadRegistryText("# Parlune registry 1\n# end\n# more\n").ends);
}

TEST(RegistryText, Read_DamagedLineBetweenBeginAndEnd_IsNotSound)
{
    EXPECT_FALSE(ReadRegistryText("# Parlune registry 1\njunk\n# end\n").Sound());
}

TEST(RegistryText, Write_ControlCharacters_AreWrittenAsTheirNumbers)
{
    EXPECT_NE(WriteRegistryText(TreeWith("N", std::string("\x1F \x7F"))).find("\"\\x1F \\x7F\""), std::string::npos);
}

TEST(RegistryText, Write_ClassesBeforeTheUser_InTheOrderOfTheirNames)
{
    CRegistryTree tree;
    tree.CreateKey(Root::CurrentUser, "B");
    tree.CreateKey(Root::CurrentUser, "a");
    tree.CreateKey(Root::ClassesRoot, "Z");

    EXPECT_EQ(WriteRegistryText(tree),
              "# Parlune registry 1\n\n[ClassesRoot\\Z]\n\n[CurrentUser\\a]\n\n[CurrentUser\\B]\n\n# end\n");
}

TEST(RegistryTree, CreateKey_AsDeepAsAllowed_IsMade)
{
    std::string path = "A";
    for (int i = 0; i < 31; ++i)
        path += "\\A";

    CRegistryTree tree;
    EXPECT_TRUE(tree.CreateKey(Root::CurrentUser, path));
    EXPECT_TRUE(tree.HasKey(Root::CurrentUser, path));
}

TEST(RegistryTree, CreateKey_OfTheLongestPath_IsMadeAndOneMoreIsRefused)
{
    CRegistryTree tree;
    EXPECT_TRUE(tree.CreateKey(Root::CurrentUser, std::string(2048, 'a')));
    EXPECT_FALSE(tree.CreateKey(Root::CurrentUser, std::string(2049, 'b')));
}

TEST(RegistryTree, CreateKey_ThatIsThere_KeepsItsValues)
{
    CRegistryTree tree = TreeWith("A", std::string("kept"));
    EXPECT_TRUE(tree.CreateKey(Root::CurrentUser, Key));

    EXPECT_EQ(TextOf(tree, Key, "A"), "kept");
}

TEST(RegistryTree, HasKey_OfARoot_IsTrueInAnEmptyTree) { EXPECT_TRUE(CRegistryTree().HasKey(Root::ClassesRoot, "\\")); }

TEST(RegistryTree, Set_BelowAMissingKey_IsRefused)
{
    CRegistryTree tree;
    EXPECT_FALSE(tree.Set(Root::CurrentUser, "Missing", "A", 1));
    EXPECT_FALSE(tree.HasKey(Root::CurrentUser, "Missing"));
}

TEST(RegistryTree, Delete_Value_IsGoneAndOnlyThat)
{
    CRegistryTree tree = TreeWith("A", std::string("1"));
    tree.Set(Root::CurrentUser, Key, "B", std::string("2"));

    EXPECT_TRUE(tree.Delete(Root::CurrentUser, Key, "a"));
    EXPECT_EQ(TextOf(tree, Key, "A"), "(nothing)");
    EXPECT_EQ(TextOf(tree, Key, "B"), "2");
}

TEST(RegistryTree, Delete_MissingValueOrKey_IsRefused)
{
    CRegistryTree tree = TreeWith("A", 1);

    EXPECT_FALSE(tree.Delete(Root::CurrentUser, Key, "B"));
    EXPECT_FALSE(tree.Delete(Root::CurrentUser, "Missing", "A"));
}

TEST(RegistryTree, DeleteKey_BesideALaterOne_IsGoneAlone)
{
    CRegistryTree tree;
    tree.CreateKey(Root::CurrentUser, "A");
    tree.CreateKey(Root::CurrentUser, "B");

    EXPECT_TRUE(tree.DeleteKey(Root::CurrentUser, "A"));
    EXPECT_FALSE(tree.HasKey(Root::CurrentUser, "A"));
    EXPECT_TRUE(tree.HasKey(Root::CurrentUser, "B"));
}

TEST(RegistryTree, Add_KeysWithoutValues_AreThere)
{
    CRegistryTree other;
    other.CreateKey(Root::ClassesRoot, "Empty");
    CRegistryTree tree;
    tree.Add(other);

    EXPECT_TRUE(tree.HasKey(Root::ClassesRoot, "Empty"));
}

TEST(RegistryTree, Find_BelowAPathTooDeep_IsNothing)
{
    EXPECT_EQ(CRegistryTree().Find(Root::CurrentUser, std::string(3000, 'a'), "A"), nullptr);
}

TEST(RegistryTree, DeleteKey_OfAPathTooLong_IsRefused)
{
    EXPECT_FALSE(CRegistryTree().DeleteKey(Root::CurrentUser, std::string(3000, 'a')));
}

TEST(RegistryTree, Delete_BelowAPathTooLong_IsRefused)
{
    EXPECT_FALSE(CRegistryTree().Delete(Root::CurrentUser, std::string(3000, 'a'), "A"));
}

}
