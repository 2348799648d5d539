#include "driver/Companion.h"

// The clipboard monitor beside other programs: this one copies, and is a viewer itself.
using namespace driver;

namespace {

class ClipboardMonitor : public CCompanion {
protected:
    void Watch()
    {
        registry::PutOption("MonitorClipboard", "1");
        Begin();
        agent.Forget();
    }
    // What was copied before has been handled when the answer to this is there.
    void Settle()
    {
        agent.Hears("Stop");
        EXPECT_TRUE(agent.Sees("call Character[Bot].StopAll"));
    }
};

TEST_F(ClipboardMonitor, TextCopied_IsRead)
{
    Watch();
    clipboard::CopyText("copied elsewhere");

    EXPECT_TRUE(agent.Speaks("copied elsewhere"));
}

TEST_F(ClipboardMonitor, SameTextCopiedTwice_IsReadTwice)
{
    Watch();
    clipboard::CopyText("again");
    ASSERT_TRUE(agent.Speaks("again"));
    clipboard::CopyText("again");

    EXPECT_TRUE(Eventually([&] { return agent.Spoken().size() == 2; }));
}

TEST_F(ClipboardMonitor, PictureCopied_ReadsNothing)
{
    Watch();
    clipboard::CopyPicture();
    Settle();

    EXPECT_TRUE(agent.Spoken().empty());
}

TEST_F(ClipboardMonitor, NothingCopied_ReadsNothing)
{
    Watch();
    clipboard::Empty();
    Settle();

    EXPECT_TRUE(agent.Spoken().empty());
}

TEST_F(ClipboardMonitor, SecretCopied_IsNotRead)
{
    Watch();
    clipboard::CopySecret("hunter2");
    Settle();

    EXPECT_TRUE(agent.Spoken().empty());
}

TEST_F(ClipboardMonitor, WhatWasThereBefore_IsNotRead)
{
    clipboard::CopyText("from before");
    Watch();
    Settle();

    EXPECT_TRUE(agent.Spoken().empty());
}

TEST_F(ClipboardMonitor, Off_ReadsNothing)
{
    Begin();
    agent.Forget();
    clipboard::CopyText("copied elsewhere");
    Settle();

    EXPECT_TRUE(agent.Spoken().empty());
    EXPECT_NE(GetClipboardViewer(), parlune.Main());
}

TEST_F(ClipboardMonitor, SwitchedOnByItsBox_JoinsTheChain)
{
    Begin();
    parlune.Click("chkMonitorClipboard");

    EXPECT_TRUE(Eventually([&] { return GetClipboardViewer() == parlune.Main(); }));
}

TEST_F(ClipboardMonitor, SwitchedOffByItsBox_LeavesTheChain)
{
    Watch();
    ASSERT_EQ(GetClipboardViewer(), parlune.Main());
    parlune.Click("chkMonitorClipboard");

    EXPECT_TRUE(Eventually([&] { return GetClipboardViewer() != parlune.Main(); }));
}

TEST_F(ClipboardMonitor, SwitchedOffAndOn_ReadsAgain)
{
    Watch();
    parlune.Click("chkMonitorClipboard");
    ASSERT_TRUE(Eventually([&] { return GetClipboardViewer() != parlune.Main(); }));
    parlune.Click("chkMonitorClipboard");
    ASSERT_TRUE(Eventually([&] { return GetClipboardViewer() == parlune.Main(); }));
    clipboard::CopyText("once more");

    EXPECT_TRUE(agent.Speaks("once more"));
}

// A viewer of ours, before or behind the program's window in the chain.
class CViewer {
public:
    CViewer()
    {
        WNDCLASSW description{};
        description.lpfnWndProc = Procedure;
        description.lpszClassName = L"ViewerOfTheTests";
        RegisterClassW(&description);
        m_window =
            CreateWindowExW(0, description.lpszClassName, L"", WS_POPUP, 0, 0, 0, 0, nullptr, nullptr, nullptr, nullptr);
        SetWindowLongPtrW(m_window, GWLP_USERDATA, reinterpret_cast<LONG_PTR>(this));
        next = SetClipboardViewer(m_window);
        changes = 0;  // The system tells a new viewer at once.
    }
    ~CViewer()
    {
        Leave();
        DestroyWindow(m_window);
    }
    CViewer(const CViewer&) = delete;
    CViewer& operator=(const CViewer&) = delete;
    void Leave()
    {
        if (m_joined)
            ChangeClipboardChain(m_window, next);
        m_joined = false;
    }
    HWND next = nullptr;
    int changes = 0;

private:
    static LRESULT CALLBACK Procedure(HWND window, UINT message, WPARAM wParam, LPARAM lParam)
    {
        auto* const viewer = reinterpret_cast<CViewer*>(GetWindowLongPtrW(window, GWLP_USERDATA));
        if (viewer && message == WM_DRAWCLIPBOARD) {
            ++viewer->changes;
            if (viewer->next)
                SendMessageW(viewer->next, message, wParam, lParam);
            return 0;
        }
        return DefWindowProcW(window, message, wParam, lParam);
    }
    HWND m_window = nullptr;
    bool m_joined = true;
};

TEST_F(ClipboardMonitor, ViewerThatCameFirst_IsToldByTheProgram)
{
    CViewer viewer;
    Watch();
    clipboard::CopyText("for both");

    EXPECT_TRUE(Eventually([&] { return viewer.changes == 1; }));
    EXPECT_TRUE(agent.Speaks("for both"));
}

TEST_F(ClipboardMonitor, ViewerThatComesLater_HasTheProgramBehindIt)
{
    Watch();
    CViewer viewer;
    EXPECT_EQ(viewer.next, parlune.Main());
    clipboard::CopyText("for both");

    EXPECT_TRUE(agent.Speaks("for both"));
    EXPECT_EQ(viewer.changes, 1);
}

TEST_F(ClipboardMonitor, ViewerThatCameLater_Leaves_TheProgramIsStillTold)
{
    Watch();
    {
        const CViewer viewer;
    }
    clipboard::CopyText("after it");

    EXPECT_TRUE(agent.Speaks("after it"));
}

TEST_F(ClipboardMonitor, NextViewerLeaves_TheProgramReadsOn)
{
    CViewer viewer;
    Watch();
    viewer.Leave();
    clipboard::CopyText("after it");

    EXPECT_TRUE(agent.Speaks("after it"));
}

TEST_F(ClipboardMonitor, FloodOfCopies_LeavesTheProgramAlive)
{
    Watch();
    for (int i = 0; i < 100; ++i)
        clipboard::CopyText("copy number " + std::to_string(i));

    EXPECT_TRUE(agent.Speaks("copy number 99"));
    EXPECT_TRUE(Answers(parlune.Main()));
}

TEST_F(ClipboardMonitor, LongTextCopied_IsReadInPieces)
{
    Watch();
    clipboard::CopyText("A first paragraph that is not short at all, and goes on.\r\n\r\n"
                        "A second paragraph, which stands\r\non two lines and has more to say than the first.");

    EXPECT_TRUE(agent.Speaks("A second paragraph, which stands on two lines and has more to say than the first."));
    EXPECT_EQ(agent.Spoken().front(), "A first paragraph that is not short at all, and goes on.");
}

TEST_F(ClipboardMonitor, TextBeyondTheCodePage_BecomesWhatTheSystemMakesOfIt)
{
    Watch();
    clipboard::CopyText("Gr\xC3\xBC\xC3\x9F"
                        "e");

    EXPECT_TRUE(agent.Speaks("Gr\xC3\xBC\xC3\x9F"
                             "e"));
}

}
