#include "platform/windows/WindowsProfile.h"
#include "Support.h"
#include "platform/windows/Handle.h"
#include "platform/windows/Text.h"
#include <thread>

namespace platform::windowsdesktop {
namespace {
struct Profile : testing::Test {
    CTemporaryFolder folder;
    CWindowsProfile profile;
    std::string file = folder.Path("Parlune.ini");

    std::string Read(const std::string& section, const std::string& key, const std::string& defaultValue = "(none)")
    {
        return profile.Read(file, section, key, defaultValue, 4096);
    }
    std::string Keys(const std::string& section) { return profile.Read(file, section, std::nullopt, "", 4096); }
    bool Write(const std::string& section, const std::optional<std::string>& key, const std::optional<std::string>& value)
    {
        return profile.Write(file, section, key, value);
    }
    std::string Bytes() const { return folder.Read("Parlune.ini"); }
    void Put(const std::string& bytes) const { folder.Write("Parlune.ini", bytes); }
};
using namespace std::string_literals;
}

TEST_F(Profile, Write_CreatesFileAndSection)
{
    EXPECT_TRUE(Write("Merlin", "FontName", "Arial"));
    EXPECT_EQ(Bytes(), "[Merlin]\r\nFontName=Arial\r\n");
}

TEST_F(Profile, Write_ASecondKey_GoesToItsSection)
{
    Put("[Merlin]\r\nFontName=Arial\r\n[Robby]\r\nFontName=Tahoma\r\n");
    EXPECT_TRUE(Write("merlin", "FontSize", "12"));
    EXPECT_EQ(Bytes(), "[Merlin]\r\nFontName=Arial\r\nFontSize=12\r\n[Robby]\r\nFontName=Tahoma\r\n");
}

// As programs do that look through every changed file.
TEST_F(Profile, Write_WhileAnotherProgramReadsTheFile_WaitsUntilItLetsGo)
{
    Put("[Merlin]\r\nFontName=Arial\r\n");
    CHandle reader(CreateFileW(ToWide(file).c_str(), GENERIC_READ, FILE_SHARE_READ | FILE_SHARE_WRITE, nullptr,
                               OPEN_EXISTING, FILE_ATTRIBUTE_NORMAL, nullptr));
    ASSERT_TRUE(reader.Open());
    std::thread other([&] {
        Sleep(100);
        reader.Close();
    });

    EXPECT_TRUE(Write("Merlin", "FontSize", "12"));
    other.join();
    EXPECT_EQ(Bytes(), "[Merlin]\r\nFontName=Arial\r\nFontSize=12\r\n");
}

TEST_F(Profile, Write_AnExistingKey_IsChangedInItsPlace)
{
    Put("[Merlin]\r\nFontName=Arial\r\nFontSize=12\r\n");
    EXPECT_TRUE(Write("Merlin", "FontName", "Tahoma"));
    EXPECT_EQ(Bytes(), "[Merlin]\r\nFontName=Tahoma\r\nFontSize=12\r\n");
}

TEST_F(Profile, Write_NoValue_RemovesTheKey)
{
    Put("[Merlin]\r\nFontName=Arial\r\nFontSize=12\r\n");
    EXPECT_TRUE(Write("Merlin", "FontName", std::nullopt));
    EXPECT_EQ(Bytes(), "[Merlin]\r\nFontSize=12\r\n");
}

TEST_F(Profile, Write_NoKey_RemovesTheSection)
{
    Put("[Merlin]\r\nFontName=Arial\r\n[Robby]\r\nFontName=Tahoma\r\n");
    EXPECT_TRUE(Write("Merlin", std::nullopt, std::nullopt));
    EXPECT_EQ(Bytes(), "[Robby]\r\nFontName=Tahoma\r\n");
}

TEST_F(Profile, Write_RemovingWhatIsNotThere_SucceedsAndMakesNoFile)
{
    EXPECT_TRUE(Write("Merlin", "FontName", std::nullopt));
    EXPECT_TRUE(Write("Merlin", std::nullopt, std::nullopt));
    EXPECT_EQ(folder.Names(), std::vector<std::string>{});
}

TEST_F(Profile, Write_LeavesNothingElseInTheFolder)
{
    Put("[Merlin]\r\nFontName=Arial\r\n");
    EXPECT_TRUE(Write("Merlin", "FontName", "Tahoma"));
    EXPECT_EQ(folder.Names(), std::vector<std::string>{"Parlune.ini"});
}

TEST_F(Profile, Write_SectionsAndKeysOfEveryLook_ReadBack)
{
    for (const char* section : {"C:\\x\\my [x].acs", "(Default Character)", "{CA141FD0-AC7F-11D1-97A3-006008273000}"}) {
        EXPECT_TRUE(Write(section, "{ca141fd0-ac7f-11d1-97a3-006008273000}", "1,2,3"));
        EXPECT_EQ(Read(section, "{CA141FD0-AC7F-11D1-97A3-006008273000}"), "1,2,3");
    }
}

TEST_F(Profile, Write_ALineBreak_IsRefusedAndHarmsNothing)
{
    Put("[Merlin]\r\nFontName=Arial\r\n");
    EXPECT_FALSE(Write("Merlin", "FontName", "Arial\r\n[Robby]"));
    EXPECT_FALSE(Write("Merlin", "Font\nName", "Arial"));
    EXPECT_FALSE(Write("Mer\nlin", "FontName", "Arial"));
    EXPECT_FALSE(Write("Merlin", "FontName", "Ari\0al"s));
    EXPECT_EQ(Bytes(), "[Merlin]\r\nFontName=Arial\r\n");
}

TEST_F(Profile, Write_WhatIsNotUnderstood_IsKept)
{
    Put("; a remark\r\n\r\n[Merlin]\r\nFontName=Arial\r\n; another\r\nFontSize=12\r\n");
    EXPECT_TRUE(Write("Merlin", "FontSize", "14"));
    EXPECT_NE(Bytes().find("; a remark"), std::string::npos);
    EXPECT_NE(Bytes().find("; another"), std::string::npos);
    EXPECT_EQ(Read("Merlin", "FontSize"), "14");
}

TEST_F(Profile, Write_AReadOnlyFile_IsRefusedAndKept)
{
    Put("[Merlin]\r\nFontName=Arial\r\n");
    SetFileAttributesW(ToWide(file).c_str(), FILE_ATTRIBUTE_READONLY);
    EXPECT_FALSE(Write("Merlin", "FontName", "Tahoma"));
    EXPECT_EQ(Bytes(), "[Merlin]\r\nFontName=Arial\r\n");
}

TEST_F(Profile, Write_AFileThatAnotherProgramHolds_IsRefusedAndKept)
{
    Put("[Merlin]\r\nFontName=Arial\r\n");
    const HANDLE held = CreateFileW(ToWide(file).c_str(), GENERIC_READ, 0, nullptr, OPEN_EXISTING, 0, nullptr);
    EXPECT_FALSE(Write("Merlin", "FontName", "Tahoma"));
    CloseHandle(held);
    EXPECT_EQ(Bytes(), "[Merlin]\r\nFontName=Arial\r\n");
}

TEST_F(Profile, Write_WhereNoFileCanBe_IsRefused)
{
    EXPECT_FALSE(profile.Write(folder.Path("none\\a.ini"), "A", "B", "c"));
    EXPECT_FALSE(profile.Write(folder.Path(), "A", "B", "c"));
    EXPECT_FALSE(profile.Write("", "A", "B", "c"));
    EXPECT_FALSE(profile.Write("a\0b"s, "A", "B", "c"));
}

TEST_F(Profile, Write_LettersOfTheCodePage_AreItsBytes)
{
    if (GetACP() == CP_UTF8)
        return;
    EXPECT_TRUE(Write("J\xC3\xB6rg", "Gr\xC3\xB6\xC3\x9F\x65", "\xC3\xBC"));
    EXPECT_EQ(Bytes(), "[J\xF6rg]\r\nGr\xF6\xDF\x65=\xFC\r\n");
    EXPECT_EQ(Read("J\xC3\xB6rg", "Gr\xC3\xB6\xC3\x9F\x65"), "\xC3\xBC");
}

TEST_F(Profile, Write_LettersThatTheCodePageLacks_AreReplaced)
{
    if (GetACP() == CP_UTF8)
        return;
    EXPECT_TRUE(Write("Merlin", "FontName", "\xE6\x97\xA5 Sans"));
    EXPECT_EQ(Bytes(), "[Merlin]\r\nFontName=? Sans\r\n");
}

TEST_F(Profile, Read_AMissingKey_IsTheDefault)
{
    EXPECT_EQ(Read("Merlin", "FontName", "Arial"), "Arial");
    Put("[Merlin]\r\nFontSize=12\r\n");
    EXPECT_EQ(Read("Merlin", "FontName", "Arial"), "Arial");
    EXPECT_EQ(Read("Merlin", "FontName", ""), "");
}

TEST_F(Profile, Read_AnEmptyValue_IsAValue)
{
    Put("[Merlin]\r\nFontName=\r\n");
    EXPECT_EQ(Read("Merlin", "FontName", "Arial"), "");
}

TEST_F(Profile, Read_BlanksAndOnePairOfQuotes_AreNotPartOfTheValue)
{
    Put("[Merlin]\r\nA=  two words  \r\nB=\" quoted \"\r\nC='x'\r\nD=\"open\r\n");
    EXPECT_EQ(Read("Merlin", "A"), "two words");
    EXPECT_EQ(Read("Merlin", "B"), " quoted ");
    EXPECT_EQ(Read("Merlin", "C"), "x");
    EXPECT_EQ(Read("Merlin", "D"), "\"open");
}

TEST_F(Profile, Read_ALongValue_IsCutAtTheLimit)
{
    Put("[Merlin]\r\nA=" + std::string(5000, 'x') + "\r\n");
    EXPECT_EQ(Read("Merlin", "A"), std::string(4095, 'x'));
    EXPECT_EQ(profile.Read(file, "Merlin", "A", "", 6000), std::string(5000, 'x'));
    EXPECT_EQ(profile.Read(file, "Merlin", "A", "", 2), "x");
    EXPECT_EQ(profile.Read(file, "Merlin", "A", "", 1), "");
    EXPECT_EQ(profile.Read(file, "Merlin", "A", "", 0), "");
}

TEST_F(Profile, Read_ALongValueOfTwoByteLetters_IsCutBetweenTwo)
{
    std::string bytes, letters;
    for (int letter = 0; letter < 3000; ++letter)
        letters += "\xC3\xBC";
    bytes = GetACP() == CP_UTF8 ? letters : std::string(3000, '\xFC');
    Put("[Merlin]\r\nA=" + bytes + "\r\n");
    EXPECT_EQ(Read("Merlin", "A"), letters.substr(0, 4094));
}

TEST_F(Profile, Read_NoKey_ListsTheNamesEachWithANul)
{
    Put("[Merlin]\r\nFontName=Arial\r\nFontSize=12\r\n[Robby]\r\nX=1\r\n");
    EXPECT_EQ(Keys("Merlin"), "FontName\0FontSize\0"s);
    EXPECT_EQ(Keys("None"), "");
}

TEST_F(Profile, Read_AListThatIsTooLong_IsCutInsideAName)
{
    std::string lines = "[Merlin]\r\n";
    for (int i = 0; i < 100; ++i)
        lines += std::string(60, 'k') + std::to_string(i) + "=1\r\n";
    Put(lines);
    EXPECT_EQ(profile.Read(file, "Merlin", std::nullopt, "", 40), std::string(38, 'k'));
    EXPECT_EQ(Keys("Merlin").size(), 4094U);
}

TEST_F(Profile, Read_ABareName_MeansTheCurrentFolder)
{
    const CCurrentFolder here(folder.Path());
    EXPECT_TRUE(profile.Write("Parlune.ini", "Merlin", "FontName", "Arial"));
    EXPECT_EQ(Bytes(), "[Merlin]\r\nFontName=Arial\r\n");
    EXPECT_EQ(profile.Read("Parlune.ini", "Merlin", "FontName", "", 4096), "Arial");
}

TEST_F(Profile, Read_WhatAnotherProgramHasJustWritten_IsSeen)
{
    Write("Merlin", "FontName", "Arial");
    EXPECT_EQ(Read("Merlin", "FontName"), "Arial");
    Put("[Merlin]\r\nFontName=Other\r\n");
    EXPECT_EQ(Read("Merlin", "FontName"), "Other");
    Write("Merlin", "FontName", "Tahoma");
    EXPECT_EQ(Read("Merlin", "FontName"), "Tahoma");
}

TEST_F(Profile, APathOfLettersThatTheCodePageLacks_WorksByItsShortName)
{
    folder.MakeFolder("\xE6\x97\xA5\xE6\x9C\xAC");
    const std::string path = folder.Path("\xE6\x97\xA5\xE6\x9C\xAC\\Parlune.ini");
    EXPECT_TRUE(profile.Write(path, "Merlin", "FontName", "Arial"));
    EXPECT_EQ(profile.Read(path, "Merlin", "FontName", "(none)", 4096), "Arial");
}

TEST_F(Profile, APathOf250Characters_Works)
{
    const std::string name(250 - folder.Path().size() - 5, 'n');
    const std::string path = folder.Path(name) + ".ini";
    ASSERT_EQ(path.size(), 250U);
    EXPECT_TRUE(profile.Write(path, "Merlin", "FontName", "Arial"));
    EXPECT_EQ(profile.Read(path, "Merlin", "FontName", "(none)", 4096), "Arial");
}

TEST_F(Profile, APathThatIsTooLong_IsRefusedAndReadsAsMissing)
{
    const std::string path = folder.Path(std::string(300, 'n')) + ".ini";
    EXPECT_FALSE(profile.Write(path, "Merlin", "FontName", "Arial"));
    EXPECT_EQ(profile.Read(path, "Merlin", "FontName", "Arial", 4096), "Arial");
    EXPECT_EQ(profile.Read("", "Merlin", "FontName", "Arial", 4096), "Arial");
}

}
