#include "platform/kept/KeptTextStore.h"
#include "MemoryFolder.h"
#include <gtest/gtest.h>

namespace platform::kept {
namespace {

using Names = std::vector<std::string>;

struct KeptTextStore : testing::Test {
    CMemoryFolder folder;
    LocalTime time{.year = 2026, .month = 11, .day = 5, .hour = 9, .minute = 7, .second = 3};
    CKeptTextStore store{folder, [this] { return time; }};

    // Files of earlier days, the first one the oldest.
    void PutFormer(int count, std::uint64_t size)
    {
        for (int i = 0; i < count; ++i) {
            const std::string name = "2025-01-01 00-" + std::to_string(10 + i) + "-00 a.txt";
            folder.files[name] = "former " + std::to_string(i);
            folder.sizes[name] = size;
        }
    }
};

TEST_F(KeptTextStore, Keep_AFile_IsCalledByDateAndName)
{
    EXPECT_TRUE(store.Keep("/home/ann/letter.txt", "Dear"));
    EXPECT_EQ(folder.files, (std::map<std::string, std::string>{{"2026-11-05 09-07-03 letter.txt", "Dear"}}));
}

TEST_F(KeptTextStore, Keep_SeveralInASecond_KeepTheirOrder)
{
    for (const char* file : {"z.txt", "b.txt", "a.txt"})
        store.Keep(file, file);
    EXPECT_EQ(folder.Names(),
              (Names{"2026-11-05 09-07-03 z.txt", "2026-11-05 09-07-03.02 b.txt", "2026-11-05 09-07-03.03 a.txt"}));
}

TEST_F(KeptTextStore, Keep_NothingOrAFullDisk_KeepsNothingAndSaysSo)
{
    EXPECT_FALSE(store.Keep("a.txt", ""));
    folder.full = true;
    EXPECT_FALSE(store.Keep("a.txt", "text"));
    EXPECT_TRUE(folder.files.empty());
}

TEST_F(KeptTextStore, Keep_AFullDisk_RemovesNothing)
{
    PutFormer(MostFiles, 1);
    folder.full = true;
    store.Keep("a.txt", "text");
    EXPECT_EQ(folder.files.size(), 50U);
}

TEST_F(KeptTextStore, Keep_TheFiftyFirst_DrivesTheOldestOut)
{
    PutFormer(50, 1);
    store.Keep("a.txt", "text");
    EXPECT_EQ(folder.files.size(), 50U);
    EXPECT_FALSE(folder.files.contains("2025-01-01 00-10-00 a.txt"));
    EXPECT_TRUE(folder.files.contains("2025-01-01 00-11-00 a.txt"));
}

TEST_F(KeptTextStore, Keep_MoreThanSixtyFourMegabytes_DrivesTheOldestOut)
{
    PutFormer(4, 16 << 20);
    store.Keep("a.txt", "text");
    EXPECT_EQ(folder.Names(), (Names{"2025-01-01 00-11-00 a.txt", "2025-01-01 00-12-00 a.txt", "2025-01-01 00-13-00 a.txt",
                                     "2026-11-05 09-07-03 a.txt"}));
}

TEST_F(KeptTextStore, Keep_ExactlySixtyFourMegabytes_DrivesNothingOut)
{
    PutFormer(1, (64 << 20) - 4);
    store.Keep("a.txt", "text");
    EXPECT_EQ(folder.files.size(), 2U);
}

TEST_F(KeptTextStore, Keep_OneTooLargeForAll_StaysAndDrivesNothingOut)
{
    PutFormer(3, 16 << 20);
    folder.sizes["2026-11-05 09-07-03 a.txt"] = 100 << 20;
    store.Keep("a.txt", "text");
    EXPECT_EQ(folder.files.size(), 4U);
    time.second = 4;
    store.Keep("b.txt", "next");
    EXPECT_FALSE(folder.files.contains("2026-11-05 09-07-03 a.txt"));
    EXPECT_EQ(folder.files.size(), 4U);
}

TEST_F(KeptTextStore, Keep_WhileTheClockIsWrong_NeverRemovesWhatWasJustKept)
{
    PutFormer(60, 1);
    time.year = 1999;
    store.Keep("a.txt", "text");
    EXPECT_TRUE(folder.files.contains("1999-11-05 09-07-03 a.txt"));
    EXPECT_EQ(folder.files.size(), 50U);
}

TEST_F(KeptTextStore, Keep_TheUsersOwnFiles_StayUntouched)
{
    PutFormer(60, 1);
    folder.files["notes.txt"] = "text";
    folder.files["2026-11-05"] = "text";
    store.Keep("a.txt", "text");
    EXPECT_TRUE(folder.files.contains("notes.txt"));
    EXPECT_TRUE(folder.files.contains("2026-11-05"));
}

TEST_F(KeptTextStore, Keep_TheSameBytesAgain_KeepsThemOnceUnderTheLastDate)
{
    store.Keep("a.txt", "text");
    store.Keep("a.txt", "tixt");
    time.second = 9;
    store.Keep("b.txt", "text");
    EXPECT_EQ(folder.Names(), (Names{"2026-11-05 09-07-03.02 a.txt", "2026-11-05 09-07-09 b.txt"}));
}

TEST_F(KeptTextStore, PlainName_WithWhatADiskMayNotLike_IsHarmless)
{
    EXPECT_EQ(CKeptTextStore::PlainName("C:\\Texts\\a.txt"), "a.txt");
    EXPECT_EQ(CKeptTextStore::PlainName("/a/x:y?\n*.txt"), "x_y___.txt");
    EXPECT_EQ(CKeptTextStore::PlainName("Gr\xC3\xBC\xC3\x9F\x65.txt"), "Gr\xC3\xBC\xC3\x9F\x65.txt");
    EXPECT_EQ(CKeptTextStore::PlainName("a. ."), "a");
    EXPECT_EQ(CKeptTextStore::PlainName("/home/ann/"), "New File.txt");
    EXPECT_EQ(CKeptTextStore::PlainName(""), "New File.txt");
}

TEST_F(KeptTextStore, PlainName_TooLong_IsCutBetweenCharactersAndKeepsItsEnding)
{
    std::string letters;
    for (int i = 0; i < 100; ++i)
        letters += "\xC3\xBC";
    const std::string name = CKeptTextStore::PlainName("x" + letters + ".markdown");
    EXPECT_EQ(name, "x" + letters.substr(0, 110) + ".markdown");
}

TEST_F(KeptTextStore, Copy_ANewOne_ReplacesTheFormerOneAndIsHeld)
{
    store.Copy("a.txt", "one");
    time.second = 33;
    EXPECT_TRUE(store.Copy("a.txt", "two"));
    EXPECT_EQ(folder.files, (std::map<std::string, std::string>{{"unsaved 2026-11-05 09-07-33 a.txt", "two"}}));
    EXPECT_EQ(folder.held.size(), 1U);
}

TEST_F(KeptTextStore, Copy_OnAFullDisk_LeavesTheFormerOne)
{
    store.Copy("a.txt", "one");
    folder.full = true;
    time.second = 33;
    EXPECT_FALSE(store.Copy("a.txt", "two"));
    EXPECT_EQ(folder.Names(), Names{"unsaved 2026-11-05 09-07-03 a.txt"});
}

TEST_F(KeptTextStore, RemoveCopy_LeavesTheKeptTexts)
{
    store.Keep("a.txt", "text");
    store.Copy("a.txt", "copy");
    store.RemoveCopy();
    store.RemoveCopy();
    EXPECT_EQ(folder.Names(), Names{"2026-11-05 09-07-03 a.txt"});
}

TEST_F(KeptTextStore, Keep_Pruning_LeavesTheCopy)
{
    PutFormer(60, 1);
    store.Copy("a.txt", "copy");
    store.Keep("a.txt", "text");
    EXPECT_TRUE(folder.files.contains("unsaved 2026-11-05 09-07-03 a.txt"));
}

TEST_F(KeptTextStore, TakeLeftBehind_ACopy_BecomesAKeptTextAndIsToldOnce)
{
    folder.files["unsaved 2026-11-04 08-00-00 a b.txt"] = "text";
    EXPECT_EQ(store.TakeLeftBehind(), "/kept/2026-11-04 08-00-00 a b.txt");
    EXPECT_EQ(folder.Names(), Names{"2026-11-04 08-00-00 a b.txt"});
    EXPECT_EQ(store.TakeLeftBehind(), "");
    EXPECT_TRUE(folder.swept);
}

TEST_F(KeptTextStore, TakeLeftBehind_SeveralCopies_TakesAllAndTellsTheNewest)
{
    folder.files["unsaved 2026-11-04 08-00-00 z.txt"] = "old";
    folder.files["unsaved 2026-11-04 08-00-30 a.txt"] = "new";
    EXPECT_EQ(store.TakeLeftBehind(), "/kept/2026-11-04 08-00-30 a.txt");
    EXPECT_EQ(folder.Names(), (Names{"2026-11-04 08-00-00 z.txt", "2026-11-04 08-00-30 a.txt"}));
}

TEST_F(KeptTextStore, TakeLeftBehind_TheCopyOfARunningProcess_StaysItsOwn)
{
    folder.files["unsaved 2026-11-04 08-00-00 a.txt"] = "text";
    folder.heldByOthers = {"unsaved 2026-11-04 08-00-00 a.txt"};
    EXPECT_EQ(store.TakeLeftBehind(), "");
    EXPECT_EQ(folder.Names(), Names{"unsaved 2026-11-04 08-00-00 a.txt"});
}

TEST_F(KeptTextStore, TakeLeftBehind_BesideAKeptTextOfThatName_BothStay)
{
    folder.files["unsaved 2026-11-04 08-00-00 a.txt"] = "copy";
    folder.files["2026-11-04 08-00-00 a.txt"] = "kept";
    EXPECT_EQ(store.TakeLeftBehind(), "/kept/2026-11-04 08-00-00.02 a.txt");
    EXPECT_EQ(folder.files["2026-11-04 08-00-00.02 a.txt"], "copy");
    EXPECT_EQ(folder.files["2026-11-04 08-00-00 a.txt"], "kept");
}

TEST_F(KeptTextStore, TakeLeftBehind_WhatIsKeptAlready_IsThereOnce)
{
    folder.files["unsaved 2026-11-04 08-00-00.02 a.txt"] = "text";
    folder.files["2026-11-04 08-00-00 a.txt"] = "text";
    EXPECT_EQ(store.TakeLeftBehind(), "/kept/2026-11-04 08-00-00.02 a.txt");
    EXPECT_EQ(folder.Names(), Names{"2026-11-04 08-00-00.02 a.txt"});
}

TEST_F(KeptTextStore, TakeLeftBehind_AFileThatOnlyLooksAlike_IsTheUsersOwn)
{
    folder.files["unsaved notes.txt"] = "text";
    EXPECT_EQ(store.TakeLeftBehind(), "");
    EXPECT_EQ(folder.Names(), Names{"unsaved notes.txt"});
}

}
}
