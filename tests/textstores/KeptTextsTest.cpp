#include "platform/kept/KeptTexts.h"
#include "MemoryFolder.h"
#include <gtest/gtest.h>

namespace platform::kept {
namespace {

using Names = std::vector<std::string>;

struct KeptTexts : testing::Test {
    CMemoryFolder folder;
    std::map<std::string, std::string> disk;
    std::optional<EditedText> edited;
    int timers = 0;
    std::optional<CKeptTexts> made{
        std::in_place,
        KeptTextsOfSystem{
            .folder = folder,
            .now = [] { return LocalTime{.year = 2026, .month = 11, .day = 5}; },
            .bytesOfText = [](std::string text) { return "bytes of " + text; },
            .read =
                [this](const std::string& path) { return disk.contains(path) ? std::optional(disk[path]) : std::nullopt; },
            .bytesToWrite = [](const std::string&, const std::string& text) { return text + "!"; },
            .startTimer = [this] { ++timers; }}};
    CKeptTexts& texts = *made;

    KeptTexts()
    {
        texts.Follow([this] { return edited; });
    }
    std::string OnlyContent() const { return folder.files.size() == 1 ? folder.files.begin()->second : "(not one file)"; }
    void End() { made.reset(); }  // When the other thread has done what was ordered.
};

TEST_F(KeptTexts, Keep_AText_IsWrittenAsTheSystemWritesTexts)
{
    EXPECT_TRUE(texts.Keep({"a.txt", "Hello"}));
    EXPECT_EQ(OnlyContent(), "bytes of Hello");
}

TEST_F(KeptTexts, Keep_AnEmptyText_IsNotKept)
{
    EXPECT_FALSE(texts.Keep({"a.txt", ""}));
    EXPECT_TRUE(folder.files.empty());
}

TEST_F(KeptTexts, KeepFormer_AnotherContent_IsKeptByteForByte)
{
    disk["/a.txt"] = std::string("a\0b", 3);
    EXPECT_TRUE(texts.KeepFormer("/a.txt", "new"));
    EXPECT_EQ(OnlyContent(), std::string("a\0b", 3));
}

TEST_F(KeptTexts, KeepFormer_TheSameContentOrNoFile_KeepsNothing)
{
    disk["/a.txt"] = "same!";
    EXPECT_FALSE(texts.KeepFormer("/a.txt", "same"));
    EXPECT_FALSE(texts.KeepFormer("/none.txt", "same"));
    EXPECT_TRUE(folder.files.empty());
}

TEST_F(KeptTexts, Changed_ManyTimes_StartsTheTimerOnce)
{
    texts.Changed();
    texts.Changed();
    EXPECT_EQ(timers, 1);
    texts.TimeIsUp();
    texts.Changed();
    EXPECT_EQ(timers, 2);
}

TEST_F(KeptTexts, TimeIsUp_AfterAChange_MakesTheCopy)
{
    edited = {"a.txt", "Hello"};
    texts.Changed();
    EXPECT_TRUE(folder.files.empty());
    texts.TimeIsUp();
    End();
    EXPECT_EQ(OnlyContent(), "bytes of Hello");
}

TEST_F(KeptTexts, TimeIsUp_AfterTheTextWasSaved_MakesNone)
{
    edited = {"a.txt", "Hello"};
    texts.Changed();
    texts.ForgetCopy();
    texts.TimeIsUp();
    End();
    EXPECT_TRUE(folder.files.empty());
}

TEST_F(KeptTexts, CopyNow_IsOnTheDiskWhenItReturns)
{
    edited = {"a.txt", "Hello"};
    EXPECT_TRUE(texts.CopyNow());
    EXPECT_EQ(folder.Names(), Names{"unsaved 2026-11-05 00-00-00 a.txt"});
}

TEST_F(KeptTexts, CopyNow_WithoutAnUnsavedText_MakesNone)
{
    EXPECT_FALSE(texts.CopyNow());
    edited = {"a.txt", ""};
    EXPECT_FALSE(texts.CopyNow());
    EXPECT_TRUE(folder.files.empty());
}

TEST_F(KeptTexts, CopyNow_OnAFullDisk_SaysSo)
{
    edited = {"a.txt", "Hello"};
    folder.full = true;
    EXPECT_FALSE(texts.CopyNow());
}

TEST_F(KeptTexts, ForgetCopy_RemovesIt)
{
    edited = {"a.txt", "Hello"};
    texts.CopyNow();
    texts.ForgetCopy();
    End();
    EXPECT_TRUE(folder.files.empty());
}

}

static std::string AsItIs(std::string text) { return text; }

TEST(RunningCopy, Remove_BeforeAnyCopy_BeginsNoThread)
{
    CMemoryFolder folder;
    CKeptTextStore store(folder, [] { return LocalTime(); });
    CRunningCopy copy(store, AsItIs);
    copy.Remove();
    EXPECT_FALSE(copy.Wait());
}

TEST(RunningCopy, Remove_AfterACopy_LeavesNothing)
{
    CMemoryFolder folder;
    CKeptTextStore store(folder, [] { return LocalTime(); });
    CRunningCopy copy(store, AsItIs);
    copy.Make({"a.txt", "text"});
    EXPECT_TRUE(copy.Wait());
    copy.Remove();
    EXPECT_FALSE(copy.Wait());
    EXPECT_TRUE(folder.files.empty());
}

TEST(RunningCopy, Make_ManyInARow_EndsWithTheLast)
{
    CMemoryFolder folder;
    CKeptTextStore store(folder, [] { return LocalTime(); });
    CRunningCopy copy(store, AsItIs);
    for (int i = 0; i < 1000; ++i)
        copy.Make({"a.txt", std::to_string(i)});
    EXPECT_TRUE(copy.Wait());
    ASSERT_EQ(folder.files.size(), 1U);
    EXPECT_EQ(folder.files.begin()->second, "999");
}

TEST(RunningCopy, Destructor_WithAnOrderLeft_DoesItFirst)
{
    CMemoryFolder folder;
    CKeptTextStore store(folder, [] { return LocalTime(); });
    std::optional<CRunningCopy> copy(std::in_place, store, AsItIs);
    copy->Make({"a.txt", "text"});
    copy.reset();
    EXPECT_EQ(folder.files.size(), 1U);
}

}
