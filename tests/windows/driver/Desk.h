#pragma once
#include "driver/Boxes.h"
#include "driver/Hand.h"
#include "driver/Parlune.h"
#include "driver/Registry.h"
#include "driver/Waiting.h"
#include "driver/Windows.h"
#include <gtest/gtest.h>

namespace driver {

// A desk on which nobody has worked yet: no options, no files, no engine, an empty clipboard. The program that a test starts
// on it is ended after the test.
class CDesk : public ::testing::Test {
protected:
    static void SetUpTestSuite();  // Brings the program to its own folder.
    void SetUp() override;
    void TearDown() override;

    CParlune parlune;
};

void WriteFile(const std::string& path, const std::string& contents);
std::string Contents(const std::string& path);  // "" when there is no file.
bool FileExists(const std::string& path);
void RemoveFolder(const std::string& path);  // With all that is in it.
void MakeFolder(const std::string& path);    // With those above it.
void PutCharacter(const std::string& path);  // A file that the engine takes for a character.

// What is stored for a character: "" when there is nothing.
std::string SettingOf(const std::string& character, const std::string& key);
void WriteSetting(const std::string& character, const std::string& key, const std::string& value);

}
