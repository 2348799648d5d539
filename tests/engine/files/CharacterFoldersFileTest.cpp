#include "engine/files/AcsWriter.h"
#include "engine/files/CharacterFolders.h"
#include "engine/files/FileParts.h"
#include <fstream>
#include <random>

using namespace engine;
using namespace files_test;
namespace fs = std::filesystem;
using platform::engineError::Code;

namespace {

// Two character folders of its own for each test, the user's and the program's.
class CharacterFolders : public testing::Test {
protected:
    void SetUp() override
    {
        // Several test programs may run at once.
        do
            m_root = fs::temp_directory_path() / ("parlune-folders-" + std::to_string(std::random_device()()));
        while (!fs::create_directory(m_root));
        fs::create_directories(m_root / "user");
        fs::create_directories(m_root / "program");
    }
    void TearDown() override { fs::remove_all(m_root); }

    void Put(const std::string& file, const Bytes& bytes) const
    {
        const fs::path path = m_root / fs::path(std::u8string(file.begin(), file.end()));
        fs::create_directories(path.parent_path());
        std::ofstream(path, std::ios::binary)
            .write(reinterpret_cast<const char*>(bytes.data()), static_cast<std::streamsize>(bytes.size()));
    }

    void PutCharacter(const std::string& file, const std::string& name, bool hasStandardSet = false) const
    {
        Character character = Pip();
        character.names[0].name = name;
        character.hasStandardSet = hasStandardSet;
        Put(file, WriteCharacterFile(character));
    }

    std::string PathOf(const std::string& file) const
    {
        const std::u8string path = (m_root / file).u8string();
        return {path.begin(), path.end()};
    }

    CCharacterFolders Folders(const std::string& defaultName = "") const
    {
        return CCharacterFolders({PathOf("user"), PathOf("program")}, defaultName);
    }

    // The name of the loaded character, or the number of the failure.
    std::string Loaded(const std::string& file) const
    {
        return Outcome([&] { return Folders().Load(file); });
    }
    std::string RefusalText(const std::string& file) const
    {
        try {
            return Folders().Load(file)->names[0].name;
        } catch (const platform::CFailure& failure) {
            return failure.Description();
        }
    }
    std::string LoadedDefault(const std::string& defaultName = "") const
    {
        return Outcome([&] { return Folders(defaultName).LoadDefault(); });
    }

    static constexpr const char* NotFound = "80070002";

private:
    template <class Procedure> static std::string Outcome(Procedure&& load)
    {
        try {
            return load()->names[0].name;
        } catch (const platform::CFailure& failure) {
            char text[16];
            std::snprintf(text, sizeof text, "%08X", static_cast<unsigned>(failure.Number()));
            return text;
        }
    }

    fs::path m_root;
};

}

TEST_F(CharacterFolders, Load_AName_IsFoundInTheProgramsFolder)
{
    PutCharacter("program/Robby.acs", "Robby");

    EXPECT_EQ(Loaded("Robby.acs"), "Robby");
}

TEST_F(CharacterFolders, Load_ANameInBothFolders_IsTheUsers)
{
    PutCharacter("program/Robby.acs", "Bundled");
    PutCharacter("user/ROBBY.ACS", "Own");

    EXPECT_EQ(Loaded("Robby.acs"), "Own");
}

TEST_F(CharacterFolders, Load_ANameInOtherLetterCase_IsFound)
{
    PutCharacter("user/rObBy.AcS", "Robby");

    EXPECT_EQ(Loaded("Robby.acs"), "Robby");
}

TEST_F(CharacterFolders, Load_ANameOutsideAscii_IsFoundInOtherLetterCase)
{
    PutCharacter("user/Fr\xC3\x96hlich.acs", "Glad");

    EXPECT_EQ(Loaded("fr\xC3\xB6hlich.acs"), "Glad");
}

TEST_F(CharacterFolders, Load_AMissingName_IsNotFound) { EXPECT_EQ(Loaded("Robby.acs"), NotFound); }

TEST_F(CharacterFolders, Load_AMissingName_SaysWhichFileItMisses)
{
    EXPECT_EQ(RefusalText("Robby.acs"), "The character file \"Robby.acs\" cannot be found.");
}

TEST_F(CharacterFolders, Load_AnEmptyName_IsNotFound) { EXPECT_EQ(Loaded(""), NotFound); }

TEST_F(CharacterFolders, Load_TheNameOfAFolder_IsNotFound)
{
    PutCharacter("user/Robby.acs/x.acs", "x");

    EXPECT_EQ(Loaded("Robby.acs"), NotFound);
}

TEST_F(CharacterFolders, Load_AFullPath_IsUsedAsItIs)
{
    PutCharacter("elsewhere/Robby.acs", "Robby");

    EXPECT_EQ(Loaded(PathOf("elsewhere/Robby.acs")), "Robby");
}

TEST_F(CharacterFolders, Load_AFullPathThatIsMissing_IsNotFoundThoughTheNameIsInAFolder)
{
    PutCharacter("user/Robby.acs", "Robby");

    EXPECT_EQ(Loaded(PathOf("elsewhere/Robby.acs")), NotFound);
}

TEST_F(CharacterFolders, Load_ASubFolder_IsFoundWithEitherSlash)
{
    PutCharacter("program/Robots/Robby.acs", "Robby");

    EXPECT_EQ(Loaded("robots/robby.acs"), "Robby");
    EXPECT_EQ(Loaded("robots\\robby.acs"), "Robby");
    EXPECT_EQ(Loaded("./robots/robby.acs"), "Robby");
}

TEST_F(CharacterFolders, Load_APathOutOfTheFolder_IsNotFound)
{
    PutCharacter("elsewhere/Robby.acs", "Robby");
    PutCharacter("user/Sub/Other.acs", "Other");

    EXPECT_EQ(Loaded("../elsewhere/Robby.acs"), NotFound);
    EXPECT_EQ(Loaded("..\\elsewhere\\Robby.acs"), NotFound);
    EXPECT_EQ(Loaded("Sub/../../elsewhere/Robby.acs"), NotFound);
}

TEST_F(CharacterFolders, Load_ANameWithAZero_IsNotFound)
{
    PutCharacter("user/Robby.acs", "Robby");

    EXPECT_EQ(Loaded(PathOf("user/Robby.acs") + std::string("\0x", 2)), NotFound);
}

TEST_F(CharacterFolders, Load_ADamagedFile_IsRefusedAsItsReaderDoes)
{
    Put("user/Text.acs", {'H', 'e', 'l', 'l', 'o'});
    Put("user/Old.acs", {0xD0, 0xCF, 0x11, 0xE0});
    Put("user/Cut.acs", PipPart(0, 100));

    EXPECT_EQ(Loaded("Text.acs"), "80042204");
    EXPECT_EQ(Loaded("Old.acs"), "80042202");
    EXPECT_EQ(Loaded("Cut.acs"), "8007000D");
}

TEST_F(CharacterFolders, Load_AFileBeyondTheLimit_IsRefusedBeforeItIsRead)
{
    Put("user/Huge.acs", {0xC3, 0xAB, 0xCD, 0xAB});
    fs::resize_file(PathOf("user/Huge.acs"), (std::uintmax_t{64} << 20) + 1);

    EXPECT_EQ(RefusalText("Huge.acs"), "The character file is too large.");
}

TEST_F(CharacterFolders, Load_AFolderThatIsMissing_IsPassedOver)
{
    PutCharacter("program/Robby.acs", "Robby");
    CCharacterFolders folders({PathOf("nowhere"), PathOf("program")});

    EXPECT_EQ(folders.Load("Robby.acs")->names[0].name, "Robby");
}

TEST_F(CharacterFolders, LoadDefault_AConfiguredName_IsLoaded)
{
    PutCharacter("user/Alf.acs", "Alf", /*hasStandardSet*/ true);
    PutCharacter("program/Robby.acs", "Robby");

    EXPECT_EQ(LoadedDefault("robby.acs"), "Robby");
}

TEST_F(CharacterFolders, LoadDefault_AConfiguredNameThatCannotBeLoaded_IsPassedOver)
{
    PutCharacter("user/Alf.acs", "Alf");
    Put("user/Robby.acs", {1, 2, 3});

    EXPECT_EQ(LoadedDefault("Robby.acs"), "Alf");
    EXPECT_EQ(LoadedDefault("Missing.acs"), "Alf");
}

TEST_F(CharacterFolders, LoadDefault_WithoutConfiguredName_IsTheFirstWithTheStandardSet)
{
    PutCharacter("user/a.acs", "a");
    PutCharacter("user/C.acs", "C", /*hasStandardSet*/ true);
    PutCharacter("program/b.acs", "b", /*hasStandardSet*/ true);

    EXPECT_EQ(LoadedDefault(), "b");
}

TEST_F(CharacterFolders, LoadDefault_NoneWithTheStandardSet_IsTheFirstThatLoads)
{
    Put("user/A.acs", {1, 2, 3});
    PutCharacter("user/C.acs", "C");
    PutCharacter("program/b.ACS", "b");
    PutCharacter("program/a.txt", "a");

    EXPECT_EQ(LoadedDefault(), "b");
}

TEST_F(CharacterFolders, LoadDefault_AfterSetDefault_IsThatOne)
{
    PutCharacter("user/A.acs", "A");
    PutCharacter("user/B.acs", "B");
    CCharacterFolders folders = Folders();
    folders.SetDefault("B.acs");

    EXPECT_EQ(folders.LoadDefault()->names[0].name, "B");
}

TEST_F(CharacterFolders, LoadDefault_NoCharacterAtAll_IsNoStandardCharacter) { EXPECT_EQ(LoadedDefault(), "80042017"); }
