#include "Support.h"
#include "platform/windows/Handle.h"
#include "platform/windows/WindowsEnvironment.h"
#include "platform/windows/WindowsFiles.h"
#include "platform/windows/WindowsProfile.h"

// On disks that with-small-disks mounts; where they cannot be had there are none of these tests.
namespace platform::windowsdesktop {
namespace {
using Texts = std::vector<std::string>;

Texts Disk(const std::string& variable)
{
    const std::string disk = CWindowsEnvironment().Variable(variable);
    return disk.empty() ? Texts() : Texts{disk};
}

struct Disks : testing::TestWithParam<std::string> {
    std::string Path(const std::string& name) const { return GetParam() + "\\" + name; }
    std::string Read(const std::string& name) const
    {
        try {
            return files.ReadText(Path(name));
        } catch (const CFailure&) {
            return "(no file)";
        }
    }
    Texts Names() const { return files.Match(Path("*.*")); }
    bool Set(const std::string& value) { return profile.Write(Path("Parlune.ini"), "Merlin", "FontName", value); }
    std::int32_t FailureOfWriting(const std::string& name, const std::string& text)
    {
        return FailureOf([&] { files.WriteLine(Path(name), text); });
    }
    CWindowsFiles files;
    CWindowsProfile profile;
};

struct FullDisk : Disks {
    ~FullDisk() override
    {
        for (const std::string& name : Names())
            files.Delete(Path(name));
    }
    // Leaves no room for a single byte, or room for one small file.
    void Fill(bool withSomeRoom = false) const
    {
        const CHandle file(
            CreateFileW(ToWide(Path("filler.bin")).c_str(), GENERIC_WRITE, 0, nullptr, CREATE_ALWAYS, 0, nullptr));
        const std::string piece(1024, 'f');
        DWORD written = 0, whole = 0;
        while (WriteFile(file.Get(), piece.data(), static_cast<DWORD>(piece.size()), &written, nullptr) != 0 && written != 0)
            whole += written;
        if (withSomeRoom) {
            SetFilePointer(file.Get(), static_cast<LONG>(whole - 8192), nullptr, FILE_BEGIN);
            SetEndOfFile(file.Get());
        }
    }
};
struct ReadOnlyDisk : Disks {};
}

GTEST_ALLOW_UNINSTANTIATED_PARAMETERIZED_TEST(FullDisk);
GTEST_ALLOW_UNINSTANTIATED_PARAMETERIZED_TEST(ReadOnlyDisk);
INSTANTIATE_TEST_SUITE_P(Small, FullDisk, testing::ValuesIn(Disk("PARLUNE_SMALL_DISK")));
INSTANTIATE_TEST_SUITE_P(Small, ReadOnlyDisk, testing::ValuesIn(Disk("PARLUNE_READ_ONLY_DISK")));

TEST_P(FullDisk, WriteLine_AnExistingFile_FailsAndKeepsItsText)
{
    files.WriteLine(Path("a.txt"), "former");
    Fill();
    EXPECT_EQ(FailureOfWriting("a.txt", std::string(5000, 'x')), 61);
    EXPECT_EQ(Read("a.txt"), "former\r\n");
    EXPECT_EQ(Names().size(), 2U);
}

TEST_P(FullDisk, WriteLine_MoreThanFits_FailsAndKeepsTheText)
{
    files.WriteLine(Path("a.txt"), "former");
    Fill(/*withSomeRoom*/ true);
    EXPECT_EQ(FailureOfWriting("a.txt", std::string(100'000, 'x')), 61);
    EXPECT_EQ(Read("a.txt"), "former\r\n");
    EXPECT_EQ(Names().size(), 2U);
}

TEST_P(FullDisk, WriteLine_WhatFits_IsWritten)
{
    files.WriteLine(Path("a.txt"), "former");
    Fill(/*withSomeRoom*/ true);
    EXPECT_EQ(FailureOfWriting("a.txt", "new"), 0);
    EXPECT_EQ(Read("a.txt"), "new\r\n");
}

TEST_P(FullDisk, WriteLine_ANewFile_FailsAndLeavesNone)
{
    Fill();
    EXPECT_EQ(FailureOfWriting("a.txt", std::string(5000, 'x')), 61);
    EXPECT_EQ(Names(), Texts{"filler.bin"});
}

TEST_P(FullDisk, ProfileWrite_IsRefusedAndKeepsEverySetting)
{
    EXPECT_TRUE(Set("Arial"));
    Fill();
    EXPECT_FALSE(Set("Tahoma"));
    EXPECT_EQ(Read("Parlune.ini"), "[Merlin]\r\nFontName=Arial\r\n");
    EXPECT_EQ(Names().size(), 2U);
}

TEST_P(FullDisk, ProfileWrite_MoreThanFits_IsRefusedAndKeepsEverySetting)
{
    EXPECT_TRUE(Set("Arial"));
    Fill(/*withSomeRoom*/ true);
    EXPECT_FALSE(Set(std::string(30'000, 'x')));
    EXPECT_EQ(Read("Parlune.ini"), "[Merlin]\r\nFontName=Arial\r\n");
    EXPECT_EQ(Names().size(), 2U);
}

TEST_P(FullDisk, ProfileWrite_WithRoomAgain_Works)
{
    EXPECT_TRUE(Set("Arial"));
    Fill();
    EXPECT_FALSE(Set("Tahoma"));
    files.Delete(Path("filler.bin"));
    EXPECT_TRUE(Set("Tahoma"));
    EXPECT_EQ(Read("Parlune.ini"), "[Merlin]\r\nFontName=Tahoma\r\n");
}

TEST_P(ReadOnlyDisk, EveryWriting_FailsAndReadingWorks)
{
    EXPECT_EQ(FailureOfWriting("a.txt", "new"), 75);
    EXPECT_EQ(FailureOfWriting("Parlune.ini", "new"), 75);
    EXPECT_EQ(FailureOf([&] { files.MakeFolder(Path("A")); }), 75);
    EXPECT_EQ(FailureOf([&] { files.Delete(Path("Parlune.ini")); }), 75);
    EXPECT_EQ(FailureOf([&] { files.Rename(Path("Parlune.ini"), Path("Parlune.old")); }), 75);
    EXPECT_EQ(Read("Parlune.ini"), "[Merlin]\r\nFontName=Arial\r\n");
}

TEST_P(ReadOnlyDisk, Profile_IsReadButNotWritten)
{
    EXPECT_EQ(profile.Read(Path("Parlune.ini"), "Merlin", "FontName", "", 4096), "Arial");
    EXPECT_FALSE(Set("Tahoma"));
    EXPECT_FALSE(profile.Write(Path("new.ini"), "Merlin", "FontName", "Arial"));
    EXPECT_EQ(profile.Read(Path("Parlune.ini"), "Merlin", "FontName", "", 4096), "Arial");
}

}
