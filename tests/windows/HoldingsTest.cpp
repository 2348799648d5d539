#include "driver/Companion.h"

// What the running program holds of the system before and after many operations of a kind.
using namespace driver;

namespace {

class Holdings : public CCompanion {
protected:
    // Does it often, so that what is made once is there, then a thousand times.
    template <class Operation> void ExpectNoGrowth(Operation&& operation, int times = 1000)
    {
        for (int i = 0; i < times / 10; ++i)
            operation(i);
        Settle();
        const driver::Holdings before = HoldingsOf(parlune.Process());
        for (int i = 0; i < times; ++i)
            operation(i);
        Settle();
        const driver::Holdings after = HoldingsOf(parlune.Process());
        // A few come and go by themselves.
        EXPECT_LE(after.pens, before.pens + 5);
        EXPECT_LE(after.windows, before.windows + 5);
        EXPECT_LE(after.handles, before.handles + 10);
        EXPECT_GT(before.handles, 0U);
    }
    // Everything that was posted has been done.
    void Settle()
    {
        agent.Forget();
        parlune.Choose("mnuPopCharStop");
        ASSERT_TRUE(agent.Sees("call Character[Bot].Play(\"RestPose\")"));
    }
};

TEST_F(Holdings, PagesTurned_DoNotGrow)
{
    BeginShown();

    ExpectNoGrowth([&](int i) { parlune.SetTab("tabMain", i % 7); }, 700);
}

TEST_F(Holdings, WindowShownAndHidden_DoesNotGrow)
{
    Begin();

    ExpectNoGrowth(
        [&](int) {
            PostMessageW(parlune.Tray(), WM_MOUSEMOVE, 1, WM_LBUTTONDBLCLK);
            Answers(parlune.Main());
        },
        100);
}

TEST_F(Holdings, TextsRead_DoNotGrow)
{
    clipboard::CopyText("The copied text.");
    Begin();

    ExpectNoGrowth([&](int) {
        parlune.Choose("mnuPopReadClipboard");
        Answers(parlune.Main());
    });
}

TEST_F(Holdings, VoiceCommandsHeard_DoNotGrow)
{
    Begin();

    ExpectNoGrowth([&](int) { agent.Hears("Stop"); });
}

TEST_F(Holdings, CharactersLoaded_DoNotGrow)
{
    Begin();

    ExpectNoGrowth([&](int) {
        parlune.Choose("mnuPopHide");
        Answers(parlune.Main());
    });
}

TEST_F(Holdings, BoxesClicked_DoNotGrow)
{
    BeginShown();

    ExpectNoGrowth([&](int) { Ask(parlune.Control("chkMonitorClipboard"), BM_CLICK); });
}

TEST_F(Holdings, MenusOpened_DoNotGrow)
{
    Begin();

    ExpectNoGrowth(
        [&](int) {
            PostMessageW(parlune.Tray(), WM_MOUSEMOVE, 1, WM_RBUTTONUP);
            ASSERT_TRUE(Eventually([&] { return MenuIsOpen(parlune.Tray()); }));
            hand::Press({VK_ESCAPE});
            ASSERT_TRUE(Eventually([&] { return !MenuIsOpen(parlune.Tray()); }));
        },
        50);
}

TEST_F(Holdings, FontsSet_DoNotGrow)
{
    BeginShown();
    parlune.GoTo(Page::Balloon);
    ASSERT_TRUE(Eventually([&] { return parlune.Entries("cboFontName").size() > 3; }));

    ExpectNoGrowth([&](int i) { parlune.Select("cboFontName", i % 4); });
}

}
