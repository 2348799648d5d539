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

}
