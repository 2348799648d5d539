#include "driver/Desk.h"
#include "driver/WebPages.h"
#include "platform/windows/Text.h"
#include "platform/windows/WholeFile.h"
#include <algorithm>
#include <filesystem>
#include <fstream>
#include <sstream>

using platform::windowsdesktop::ToWide;

namespace driver {
namespace {

constexpr char CharacterFolder[] = "C:\\windows\\MSAgent\\Chars\\";

void CopyProgram()
{
    MakeFolder(CParlune::Folder());
    CopyFileW(ToWide(ProgramFolder() + "Parlune.exe").c_str(), ToWide(CParlune::Folder() + "Parlune.exe").c_str(), FALSE);
}

void ForgetRegistry()
{
    registry::Remove(HKEY_CURRENT_USER, "Software\\Tarrowind");
    registry::Remove(HKEY_CURRENT_USER, registry::BrowserKey);
    registry::RemoveValue(HKEY_CURRENT_USER, registry::RunKey, "Parlune");
    for (const char* name : {"Word.Application", "Excel.Application"})
        registry::Remove(HKEY_CLASSES_ROOT, name);
}

void PutCharacters()
{
    RemoveFolder(CharacterFolder);
    MakeFolder(CharacterFolder);
    for (const char* name : {"Merlin.acs", "Genie.acs", "ROBBY.ACS"})
        PutCharacter(std::string(CharacterFolder) + name);
}

// What the screen shows and what the engine was asked.
void KeepEvidence()
{
    const ::testing::TestInfo& test = *::testing::UnitTest::GetInstance()->current_test_info();
    std::string name = std::string("failed-") + test.test_suite_name() + "." + test.name();
    std::replace(name.begin(), name.end(), '/', '-');
    TakePicture(nullptr, name);
    Keep("C:\\parlune\\engine.log", name + ".engine.log");
}

}

void CDesk::SetUpTestSuite()
{
    static const bool copied = (CopyProgram(), true);
    EXPECT_TRUE(copied);
}

void CDesk::SetUp()
{
    ForgetRegistry();
    RemoveFolder(CParlune::DataFolder());
    MakeFolder(CParlune::DataFolder());
    PutCharacters();
    browser::Forget();
}

void CDesk::TearDown()
{
    if (HasFailure())
        KeepEvidence();
    if (parlune.IsRunning())
        parlune.Process().Kill();
}

void WriteFile(const std::string& path, const std::string& contents)
{
    std::ofstream stream(std::filesystem::path(ToWide(path)), std::ios::binary);
    stream.write(contents.data(), static_cast<std::streamsize>(contents.size()));
}

std::string Contents(const std::string& path)
{
    std::uint32_t error = 0;  // A stream would keep the program from replacing the file meanwhile.
    return platform::windowsdesktop::ReadWhole(ToWide(path), error).value_or("");
}

bool FileExists(const std::string& path) { return GetFileAttributesW(ToWide(path).c_str()) != INVALID_FILE_ATTRIBUTES; }

void RemoveFolder(const std::string& path)
{
    std::error_code ignored;
    std::filesystem::remove_all(std::filesystem::path(ToWide(path)), ignored);
}

void MakeFolder(const std::string& path)
{
    std::error_code ignored;
    std::filesystem::create_directories(std::filesystem::path(ToWide(path)), ignored);
}

void PutCharacter(const std::string& path) { WriteFile(path, "\xC3\xAB\xCD\xAB"); }

// By a reader of our own: the program's own way is what the tests are about.
std::string SettingOf(const std::string& character, const std::string& key)
{
    std::istringstream stream(Contents(CParlune::SettingsFile()));
    std::string section;
    for (std::string line; std::getline(stream, line);) {
        if (!line.empty() && line.back() == '\r')
            line.pop_back();
        if (!line.empty() && line.front() == '[')
            section = line;
        else if (section == "[" + character + "]" && line.compare(0, key.size() + 1, key + "=") == 0)
            return line.substr(key.size() + 1);
    }
    return "";
}

void WriteSetting(const std::string& character, const std::string& key, const std::string& value)
{
    MakeFolder(CParlune::DataFolder() + "Tarrowind\\Parlune");
    WritePrivateProfileStringW(ToWide(character).c_str(), ToWide(key).c_str(), ToWide(value).c_str(),
                               ToWide(CParlune::SettingsFile()).c_str());
}

}
