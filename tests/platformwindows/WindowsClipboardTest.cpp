#include "platform/windows/WindowsClipboard.h"
#include "Support.h"
#include "platform/windows/ClipboardChain.h"
#include <atomic>
#include <thread>

namespace platform::windowsdesktop {
namespace {
struct Clipboard : testing::Test {
    Clipboard() { clipboard.UseWindow(window.Get()); }
    CTestWindow window;
    CWindowsClipboard clipboard;
};

// Another thread holds the clipboard until the end.
class CHeldClipboard {
public:
    CHeldClipboard() : m_other([this] { Hold(); })
    {
        while (!m_held)
            SwitchToThread();
    }
    ~CHeldClipboard() { LetGo(); }
    void LetGo()
    {
        m_enough = true;
        if (m_other.joinable())
            m_other.join();
    }

private:
    void Hold()
    {
        CTestWindow holder;
        while (OpenClipboard(holder.Get()) == 0)
            SwitchToThread();
        m_held = true;
        while (!m_enough)
            SwitchToThread();
        CloseClipboard();
    }
    std::atomic<bool> m_held = false;
    std::atomic<bool> m_enough = false;
    std::thread m_other;
};

void CopyMarked(const wchar_t* mark)
{
    CopyText("secret");
    OpenClipboard(nullptr);
    const HGLOBAL block = GlobalAlloc(GMEM_MOVEABLE | GMEM_ZEROINIT, 4);
    SetClipboardData(RegisterClipboardFormatW(mark), block);
    CloseClipboard();
}
}

TEST_F(Clipboard, Text_IsWhatWasCopied)
{
    CopyText("one\r\ntwo");
    EXPECT_TRUE(clipboard.HasText());
    EXPECT_EQ(clipboard.Text(), "one\r\ntwo");
}

TEST_F(Clipboard, Text_LettersOfEveryScript_AreKept)
{
    CopyText("Gr\xC3\xBC\xC3\x9F\x65 \xE6\x97\xA5 \xF0\x9F\x98\x80");
    EXPECT_EQ(clipboard.Text(), "Gr\xC3\xBC\xC3\x9F\x65 \xE6\x97\xA5 \xF0\x9F\x98\x80");
}

TEST_F(Clipboard, Text_EveryLineEnd_IsMadeOne)
{
    CopyText("one\ntwo\rthree\r\n");
    EXPECT_EQ(clipboard.Text(), "one\r\ntwo\r\nthree\r\n");
}

TEST_F(Clipboard, Text_OfTheCodePage_IsTranslated)
{
    CopyBlock(CF_TEXT, "Gr\xFC\xDF\x65", 6);
    EXPECT_TRUE(clipboard.HasText());
    EXPECT_EQ(clipboard.Text(), FromAnsi("Gr\xFC\xDF\x65"));
}

// Some systems put the missing NUL in the place of the last letter, some round the size of a block up.
TEST_F(Clipboard, Text_ABlockWithoutNul_EndsWithTheBlock)
{
    const wchar_t letters[4] = {L'a', L'b', L'c', L'd'};
    CopyBlock(CF_UNICODETEXT, letters, sizeof letters);
    EXPECT_EQ(clipboard.Text().substr(0, 3), "abc");
    EXPECT_LE(clipboard.Text().size(), 12U);
}

TEST_F(Clipboard, Text_ABlockOfOddSize_LeavesTheHalfLetterOut)
{
    CopyBlock(CF_UNICODETEXT, L"ab\0", 7);
    EXPECT_EQ(clipboard.Text(), "ab");
}

TEST_F(Clipboard, Text_ALoneSurrogate_IsReplaced)
{
    const wchar_t letters[4] = {L'a', static_cast<wchar_t>(0xD800), L'b', L'\0'};
    CopyBlock(CF_UNICODETEXT, letters, sizeof letters);
    EXPECT_EQ(clipboard.Text(), "a\xEF\xBF\xBD\x62");
}

TEST_F(Clipboard, Text_AMegabyte_IsRead)
{
    const std::string text(1'000'000, 'x');
    CopyText(text);
    EXPECT_EQ(clipboard.Text(), text);
}

TEST_F(Clipboard, HasText_OfNothingAndOfAPicture_IsFalse)
{
    CopyNothing();
    EXPECT_FALSE(clipboard.HasText());
    EXPECT_EQ(clipboard.Text(), "");
    const BITMAPINFOHEADER picture = {};
    CopyBlock(CF_DIB, &picture, sizeof picture);
    EXPECT_FALSE(clipboard.HasText());
    EXPECT_EQ(clipboard.Text(), "");
}

TEST_F(Clipboard, Text_WhileAnotherThreadHoldsTheClipboard_Fails)
{
    CopyText("one");
    CHeldClipboard held;
    EXPECT_TRUE(clipboard.HasText());
    EXPECT_EQ(FailureOf([&] { clipboard.Text(); }), 521);
    held.LetGo();
    EXPECT_EQ(clipboard.Text(), "one");
}

TEST_F(Clipboard, IsSecret_ByTheMarksOfPasswordManagers)
{
    CopyText("plain");
    EXPECT_FALSE(clipboard.IsSecret());
    CopyMarked(L"ExcludeClipboardContentFromMonitorProcessing");
    EXPECT_TRUE(clipboard.IsSecret());
    CopyMarked(L"Clipboard Viewer Ignore");
    EXPECT_TRUE(clipboard.IsSecret());
    CopyText("plain");
    EXPECT_FALSE(clipboard.IsSecret());
}

TEST_F(Clipboard, Watch_TellsOfLaterCopiesUntilItIsStopped)
{
    int changes = 0;
    CopyText("before");
    EXPECT_TRUE(clipboard.CanWatch());
    clipboard.Watch([&] { ++changes; });
    CopyText("after");
    EXPECT_TRUE(RunUntil([&] { return changes == 1; }));
    clipboard.StopWatching();
    CopyText("later");
    RunUntil([] { return false; }, 5);
    EXPECT_EQ(changes, 1);
}

TEST_F(Clipboard, Watch_ASecondTime_ReplacesTheFirst)
{
    int first = 0, second = 0;
    clipboard.Watch([&] { ++first; });
    clipboard.Watch([&] { ++second; });
    CopyText("one");
    EXPECT_TRUE(RunUntil([&] { return second == 1; }));
    EXPECT_EQ(first, 0);
    clipboard.StopWatching();
}

TEST_F(Clipboard, Watch_TheProcedureReadsTheClipboard)
{
    std::string read;
    clipboard.Watch([&] { read = clipboard.Text(); });
    CopyText("one");
    EXPECT_TRUE(RunUntil([&] { return read == "one"; }));
    clipboard.StopWatching();
}

namespace {
constexpr DWORD WithoutEnd = 3'600'000;

// A clipboard with a patience of its own, which notes how often it was told of a change and what could be read then.
struct Watched {
    explicit Watched(DWORD patienceMilliseconds) : clipboard(patienceMilliseconds)
    {
        clipboard.UseWindow(window.Get());
        clipboard.Watch([this] {
            ++changes;
            failure = FailureOf([this] { read = clipboard.Text(); });
        });
    }
    // What the system does when something has been copied.
    void Change() { SendMessageW(window.Get(), WM_DRAWCLIPBOARD, 0, 0); }

    CTestWindow window;
    CWindowsClipboard clipboard;
    int changes = 0;
    std::int32_t failure = 0;
    std::string read;
};
}

TEST(HeldClipboard, Changed_IsReadAsSoonAsItIsFree)
{
    CopyText("one");
    Watched watched(WithoutEnd);
    CHeldClipboard held;
    watched.Change();
    EXPECT_EQ(watched.changes, 0);
    EXPECT_FALSE(RunUntil([&] { return watched.changes > 0; }, 5));
    held.LetGo();
    EXPECT_TRUE(RunUntil([&] { return watched.changes > 0; }));
    EXPECT_EQ(watched.read, "one");
    EXPECT_FALSE(RunUntil([&] { return watched.changes > 1; }, 5));
}

TEST(HeldClipboard, ChangedTwice_IsToldOnce)
{
    CopyText("one");
    Watched watched(WithoutEnd);
    CHeldClipboard held;
    watched.Change();
    watched.Change();
    held.LetGo();
    EXPECT_TRUE(RunUntil([&] { return watched.changes > 0; }));
    EXPECT_FALSE(RunUntil([&] { return watched.changes > 1; }, 5));
}

TEST(HeldClipboard, NeverFree_IsToldWhenThePatienceIsOver)
{
    Watched watched(ClipboardPatienceMilliseconds);
    const CHeldClipboard held;
    const ULONGLONG before = GetTickCount64();
    watched.Change();
    EXPECT_TRUE(RunUntil([&] { return watched.changes == 1; }));
    EXPECT_GE(GetTickCount64() - before, 500U);
    EXPECT_EQ(watched.failure, 521);
}

TEST(HeldClipboard, WatchingStoppedMeanwhile_IsNotTold)
{
    Watched watched(WithoutEnd);
    CHeldClipboard held;
    watched.Change();
    watched.clipboard.StopWatching();
    held.LetGo();
    EXPECT_FALSE(RunUntil([&] { return watched.changes > 0; }, 5));
}

TEST(HeldClipboard, ByNobody_IsToldAtOnceAndLetGo)
{
    Watched watched(WithoutEnd);
    watched.Change();
    EXPECT_EQ(watched.changes, 1);
    const CHeldClipboard canBeHeldByOthers;
}

TEST_F(Clipboard, Watch_ProcedureThatReadsNothing_LetsTheClipboardGo)
{
    bool told = false;
    clipboard.Watch([&] { told = true; });
    CopyText("one");
    EXPECT_TRUE(RunUntil([&] { return told; }));
    const CHeldClipboard canBeHeldByOthers;
    clipboard.StopWatching();
}

TEST_F(Clipboard, Watch_WithoutAWindow_WatchesNothing)
{
    CWindowsClipboard windowless;
    windowless.Watch([] {});
    EXPECT_FALSE(clipboardChain::Joined());
}

TEST_F(Clipboard, Watch_AFloodOfCopiesFromAnotherThread_IsToldWithoutDelayForTheOther)
{
    int changes = 0;
    std::atomic<bool> done = false;
    clipboard.Watch([&] { ++changes; });
    std::thread other([&] {
        for (int copy = 0; copy < 200; ++copy)
            CopyText("copy " + std::to_string(copy));
        done = true;
    });
    EXPECT_TRUE(RunUntil([&] { return done.load(); }));
    other.join();
    EXPECT_TRUE(RunUntil([&] { return changes > 0; }));
    EXPECT_EQ(clipboard.Text(), "copy 199");
    clipboard.StopWatching();
}

}
