#include "platform/windows/ClipboardChain.h"
#include "Support.h"
#include "platform/windows/WindowsClipboard.h"
#include <thread>

namespace platform::windowsdesktop {
namespace {
constexpr UINT DrawClipboard = 0x308;
constexpr UINT ChangeChain = 0x30D;

struct Message {
    UINT message;
    WPARAM wParam;
    LPARAM lParam;
    std::optional<LPARAM> valueAt;  // What lay at the address lParam while the message was delivered.
};

std::optional<LPARAM> ValueAt(LPARAM address)
{
    LPARAM value = 0;
    SIZE_T read = 0;
    const auto* place = reinterpret_cast<const void*>(address);
    return ReadProcessMemory(GetCurrentProcess(), place, &value, sizeof value, &read) ? std::optional(value) : std::nullopt;
}

// A viewer that only writes down what it is told of the chain.
struct Viewer {
    explicit Viewer(bool unicode = true)
        : window([this](UINT message, WPARAM wParam, LPARAM lParam) { return Note(message, wParam, lParam); }, 0, unicode)
    {
    }
    std::optional<LRESULT> Note(UINT message, WPARAM wParam, LPARAM lParam)
    {
        if (message != DrawClipboard && message != ChangeChain)
            return std::nullopt;
        told.push_back({message, wParam, lParam, ValueAt(lParam)});
        return 0;
    }
    std::vector<Message> told;
    CTestWindow window;
};

struct Chain : testing::Test {
    ~Chain() override { clipboardChain::Leave(); }
    void Join()
    {
        clipboardChain::Join(main.window.Get(), [this] {
            ++changes;
            if (whenChanged)
                whenChanged();
        });
    }
    Viewer main;
    int changes = 0;
    std::function<void()> whenChanged;
};

// Does something in another thread of the process, while this one runs its messages, as another program would.
void InOtherThread(const std::function<void()>& action)
{
    bool done = false;
    std::thread other([&] {
        action();
        done = true;
    });
    RunUntil([&] { return done; });
    other.join();
}
}

TEST_F(Chain, Join_TheContentOfNow_IsToldToTheOldProcedureOnly)
{
    CopyText("already there");
    Join();
    EXPECT_TRUE(clipboardChain::Joined());
    RunUntil([] { return false; }, 5);
    EXPECT_EQ(changes, 0);
    ASSERT_FALSE(main.told.empty());
    EXPECT_EQ(main.told[0].message, DrawClipboard);
}

TEST_F(Chain, Join_LaterCopies_AreToldOnceEach)
{
    Join();
    CopyText("one");
    EXPECT_TRUE(RunUntil([&] { return changes == 1; }));
    CopyText("one");
    EXPECT_TRUE(RunUntil([&] { return changes == 2; }));
    RunUntil([] { return false; }, 5);
    EXPECT_EQ(changes, 2);
}

TEST_F(Chain, Join_APicture_IsToldToo)
{
    Join();
    const BITMAPINFOHEADER picture = {.biSize = sizeof(BITMAPINFOHEADER),
                                      .biWidth = 0,
                                      .biHeight = 0,
                                      .biPlanes = 1,
                                      .biBitCount = 24,
                                      .biCompression = 0,
                                      .biSizeImage = 0,
                                      .biXPelsPerMeter = 0,
                                      .biYPelsPerMeter = 0,
                                      .biClrUsed = 0,
                                      .biClrImportant = 0};
    CopyBlock(CF_DIB, &picture, sizeof picture);
    EXPECT_TRUE(RunUntil([&] { return changes == 1; }));
    EXPECT_FALSE(CWindowsClipboard().HasText());
}

TEST_F(Chain, Join_Twice_JoinsOnce)
{
    Join();
    const LONG_PTR previous = clipboardChain::CurrentState().previousProcedure;
    Join();
    EXPECT_EQ(clipboardChain::CurrentState().previousProcedure, previous);
    CopyText("one");
    RunUntil([&] { return changes > 0; });
    RunUntil([] { return false; }, 5);
    EXPECT_EQ(changes, 1);
}

TEST_F(Chain, Join_NotesTheWindowAndItsProcedure)
{
    const LONG_PTR former = GetWindowLongPtrW(main.window.Get(), GWLP_WNDPROC);
    Join();
    EXPECT_EQ(clipboardChain::CurrentState().hookedWindow, main.window.Get());
    EXPECT_EQ(clipboardChain::CurrentState().previousProcedure, former);
    EXPECT_NE(GetWindowLongPtrW(main.window.Get(), GWLP_WNDPROC), former);
}

TEST_F(Chain, Join_TheFormerViewer_IsTheNextOne)
{
    Viewer other;
    SetClipboardViewer(other.window.Get());
    Join();
    EXPECT_EQ(clipboardChain::CurrentState().nextViewer, other.window.Get());
    ChangeClipboardChain(other.window.Get(), nullptr);
}

TEST_F(Chain, Leave_RestoresTheProcedureAndTellsNothingMore)
{
    const LONG_PTR former = GetWindowLongPtrW(main.window.Get(), GWLP_WNDPROC);
    Join();
    clipboardChain::Leave();
    EXPECT_FALSE(clipboardChain::Joined());
    EXPECT_EQ(GetWindowLongPtrW(main.window.Get(), GWLP_WNDPROC), former);
    CopyText("one");
    RunUntil([] { return false; }, 5);
    EXPECT_EQ(changes, 0);
}

TEST_F(Chain, Leave_Twice_DoesNothing)
{
    Join();
    clipboardChain::Leave();
    const LONG_PTR former = GetWindowLongPtrW(main.window.Get(), GWLP_WNDPROC);
    clipboardChain::Leave();
    EXPECT_EQ(GetWindowLongPtrW(main.window.Get(), GWLP_WNDPROC), former);
}

TEST_F(Chain, JoinAgain_AfterLeaving_TellsAgain)
{
    Join();
    clipboardChain::Leave();
    Join();
    CopyText("one");
    EXPECT_TRUE(RunUntil([&] { return changes == 1; }));
}

TEST_F(Chain, ACopy_IsPassedOnToTheNextViewerAfterwards)
{
    Viewer other;
    SetClipboardViewer(other.window.Get());
    Join();
    other.told.clear();
    std::size_t toldBefore = 99;
    whenChanged = [&] { toldBefore = other.told.size(); };
    CopyText("one");
    ASSERT_TRUE(RunUntil([&] { return other.told.size() == 1; }));
    EXPECT_EQ(other.told[0].message, DrawClipboard);
    EXPECT_EQ(other.told[0].valueAt, 0) << "the address of a copy of the argument, which is 0 for a copy";
    EXPECT_EQ(toldBefore, 0U);
    clipboardChain::Leave();
    ChangeClipboardChain(other.window.Get(), nullptr);
}

TEST_F(Chain, TheNextViewerLeaves_TheLinkToItStays)
{
    Viewer other;
    SetClipboardViewer(other.window.Get());
    Join();
    const HWND leaving = other.window.Get();
    other.told.clear();
    ChangeClipboardChain(leaving, nullptr);
    EXPECT_EQ(clipboardChain::CurrentState().nextViewer, leaving);
    EXPECT_TRUE(other.told.empty());
    CopyText("one");
    EXPECT_TRUE(RunUntil([&] { return other.told.size() == 1; }));
}

TEST_F(Chain, AnotherViewerLeaves_TheNextOneIsToldWithTheAddressOfACopyOfItsFollower)
{
    Viewer other;
    SetClipboardViewer(other.window.Get());
    Join();
    other.told.clear();
    SendMessageW(main.window.Get(), ChangeChain, 0x1234, 0x5678);
    ASSERT_EQ(other.told.size(), 1U);
    EXPECT_EQ(other.told[0].message, ChangeChain);
    EXPECT_EQ(other.told[0].wParam, 0x1234U);
    EXPECT_NE(other.told[0].lParam, 0x5678);
    EXPECT_EQ(other.told[0].valueAt, 0x5678);
    clipboardChain::Leave();
    ChangeClipboardChain(other.window.Get(), nullptr);
}

TEST_F(Chain, OtherMessages_GoToTheFormerProcedure)
{
    Join();
    SetWindowTextW(main.window.Get(), L"Gr\xFC\xDF\x65 \x65E5");
    EXPECT_EQ(TextOf(main.window.Get()), "Gr\xC3\xBC\xC3\x9F\x65 \xE6\x97\xA5");
    EXPECT_TRUE(IsWindowUnicode(main.window.Get()));
}

TEST_F(Chain, AWindowOfTheCodePage_StaysOne)
{
    Viewer narrow(/*unicode*/ false);
    clipboardChain::Join(narrow.window.Get(), [this] { ++changes; });
    EXPECT_FALSE(IsWindowUnicode(narrow.window.Get()));
    CopyText("one");
    EXPECT_TRUE(RunUntil([&] { return changes == 1; }));
    clipboardChain::Leave();
}

TEST_F(Chain, ACopyByAnotherThread_LeavesTheMessageBeforeTheProcedureRuns)
{
    Join();
    DWORD seen = ISMEX_SEND;
    whenChanged = [&] { seen = InSendMessageEx(nullptr); };
    InOtherThread([] { CopyText("one"); });
    ASSERT_TRUE(RunUntil([&] { return changes == 1; }));
    EXPECT_NE(seen & (ISMEX_SEND | ISMEX_REPLIED), DWORD{ISMEX_SEND});
}

TEST_F(Chain, AMessageSentByAnotherThread_IsAnsweredBeforeTheProcedureEnds)
{
    Join();
    bool answered = false, answeredMeanwhile = false;
    whenChanged = [&] { answeredMeanwhile = RunUntil([&] { return answered; }); };
    InOtherThread([&] {
        SendMessageW(main.window.Get(), DrawClipboard, 0, 0);
        answered = true;
    });
    EXPECT_EQ(changes, 1);
    EXPECT_TRUE(answeredMeanwhile);
}

TEST_F(Chain, TheProcedureLeavesTheChain_NothingBreaks)
{
    Join();
    whenChanged = [] { clipboardChain::Leave(); };
    CopyText("one");
    EXPECT_TRUE(RunUntil([&] { return changes == 1; }));
    CopyText("two");
    RunUntil([] { return false; }, 5);
    EXPECT_EQ(changes, 1);
}

TEST_F(Chain, TheProcedureThrows_NothingIsThrownThroughTheSystem)
{
    Join();
    whenChanged = [] { throw failure::InvalidCall(); };
    CopyText("one");
    EXPECT_TRUE(RunUntil([&] { return changes == 1; }));
    CopyText("two");
    EXPECT_TRUE(RunUntil([&] { return changes == 2; }));
}

TEST_F(Chain, ACopyDuringTheProcedure_IsToldInItsMiddle)
{
    Join();
    whenChanged = [&] {
        if (changes == 1) {
            CopyText("two");
            RunUntil([&] { return changes == 2; });
        }
    };
    CopyText("one");
    EXPECT_TRUE(RunUntil([&] { return changes == 2; }));
}

}
