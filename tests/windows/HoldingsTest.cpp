#include "driver/Companion.h"

// What the running program holds of the system before and after many operations of a kind.
using namespace driver;

namespace {

class Holdings : public CCompanion {
protected:
    template <class Operation> void ExpectNoGrowth(Operation&& operation, int times = 1000)
    {
        const auto repeat = [&] {
            for (int i = 0; i < times; ++i)
                operation(i);
            Settle();
        };
        repeat();                                           // What the system keeps for later is there now.
        const auto few = static_cast<unsigned>(times / 4);  // Far less than one for each.
        EXPECT_EQ(support::GrowthOf([&] { return agent.Held(); }, repeat, few), "");
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

    ExpectNoGrowth([&](int i) { parlune.SetTab("tabMain", i % 7); }, 70);
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

    ExpectNoGrowth(
        [&](int) {
            agent.Forget();
            parlune.Choose("mnuPopHide");
            ASSERT_TRUE(agent.Sees("call Characters.Unload"));
            agent.Rest();
            parlune.Choose("mnuPopHide");
            ASSERT_TRUE(agent.Sees("event Show"));
            agent.Rest();
        },
        20);
}

TEST_F(Holdings, BoxesClicked_DoNotGrow)
{
    BeginShown();

    ExpectNoGrowth([&](int) { Ask(parlune.Control("chkMonitorClipboard"), BM_CLICK); }, 700);
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
    ShowPage(Page::Balloon);
    ASSERT_TRUE(Eventually([&] { return parlune.Entries("cboFontName").size() > 3; }));

    ExpectNoGrowth([&](int i) { parlune.Select("cboFontName", i % 4); }, 200);
}

}
