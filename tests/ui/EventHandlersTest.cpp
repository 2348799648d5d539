#include "character/CharacterEvents.h"
#include "common/zbErrorTrap.h"
#include "reading/bClipboard.h"
#include "support/CharacterProgram.h"
#include "ui/frmSplash.h"

// Whatever brings an event into the program begins an event handler: within it, the same report is shown once.

using Texts = std::vector<std::string>;

namespace {

class EventHandlers : public CharacterProgram {
protected:
    static void FailTwice()
    {
        const zbErrorTrap::CGuard guard("Parlune", "Handler");
        for (int time = 0; time < 2; ++time)
            guard([] { throw platform::failure::TypeMismatch(); });
    }
    // The reports of two events, each of which fails twice in its handler.
    std::size_t ReportsOfTwo(const std::function<void()>& event)
    {
        event();
        event();
        return Reports().size();
    }
    static std::string TwentyParagraphs()
    {
        std::string text;
        for (int paragraph = 0; paragraph < 20; ++paragraph)
            text += "A line that is long enough to be read on its own.\r\n\r\n";
        return text;
    }
};

TEST_F(EventHandlers, Button_Clicked_IsOne)
{
    window.cmdLoadChar.onClick = FailTwice;
    EXPECT_EQ(ReportsOfTwo([this] { window.cmdLoadChar.Click(); }), 2U);
}

TEST_F(EventHandlers, MenuEntry_Chosen_IsOne)
{
    window.mnuFileNew.onClick = FailTwice;
    EXPECT_EQ(ReportsOfTwo([this] { window.mnuFileNew.Click(); }), 2U);
}

TEST_F(EventHandlers, Box_Set_IsOne)
{
    window.chkSayTime.onClick = FailTwice;
    EXPECT_EQ(ReportsOfTwo([this] { window.chkSayTime.SetValue(1); }), 2U);
}

TEST_F(EventHandlers, Text_Changed_IsOne)
{
    window.txtUserName.onChange = FailTwice;
    EXPECT_EQ(ReportsOfTwo([this] { window.txtUserName.SetText(window.txtUserName.Text() + "a"); }), 2U);
}

TEST_F(EventHandlers, Timer_Ticking_IsOne)
{
    window.tmrTimer.onTimer = FailTwice;
    window.tmrTimer.SetEnabled(true);
    EXPECT_EQ(ReportsOfTwo([this] { window.tmrTimer.Tick(); }), 2U);
}

TEST_F(EventHandlers, ToolBar_Clicked_IsOne)
{
    window.tlbToolbar.onButtonClick = [](const std::string&) { FailTwice(); };
    EXPECT_EQ(ReportsOfTwo([this] { window.tlbToolbar.Click("NEW"); }), 2U);
}

TEST_F(EventHandlers, Splash_Clicked_IsOne)
{
    SplashWindow().onClick = FailTwice;
    EXPECT_EQ(ReportsOfTwo([] { SplashWindow().Click(); }), 2U);
}

TEST_F(EventHandlers, Window_LoadedResizedOrMoved_IsOneEach)
{
    window.onLoad = FailTwice;
    window.onResize = FailTwice;
    window.onMouseMove = [](int, int, float, float) { FailTwice(); };
    window.Load();
    window.SetState(ui::WindowState::Minimized);
    window.MouseMove(0, 0, 0, 0);
    EXPECT_EQ(Reports().size(), 3U);
}

TEST_F(EventHandlers, Window_AskedToCloseAndUnloaded_IsOneEach)
{
    window.onQueryUnload = [](ui::UnloadMode) { return FailTwice(), true; };
    window.onUnload = FailTwice;
    window.Load();
    window.Unload();
    EXPECT_EQ(Reports().size(), 2U);
}

TEST_F(EventHandlers, Copy_ThatCannotBeRead_IsOne)
{
    LoadMerlin();
    bClipboard::SetClipboardMonitor(true);
    desktop.journal.FailAlways("Character.Speak", failure);
    EXPECT_EQ(ReportsOfTwo([this] { desktop.clipboard.Put(TwentyParagraphs()); }), 2U);
}

TEST_F(EventHandlers, Character_DoubleClicked_IsOne)
{
    LoadMerlin();
    desktop.clipboard.Put(TwentyParagraphs());
    desktop.journal.FailAlways("Character.Speak", failure);
    EXPECT_EQ(ReportsOfTwo([] { character::EventReceiver().DblClick("Bot", 1, 0, 10, 20); }), 2U);
}

// What the engine heard: a command to read the clipboard.
struct Heard final : platform::IUserInput {
    std::string CharacterID() const override { return "Bot"; }
    std::int32_t Count() const override { return 1; }
    std::string Name() const override { return "ReadClipboard"; }
    std::int32_t Confidence() const override { return 100; }
    std::string Voice() const override { return ""; }
    std::string Alt1Name() const override { return ""; }
    std::int32_t Alt1Confidence() const override { return 0; }
    std::string Alt1Voice() const override { return ""; }
    std::string Alt2Name() const override { return ""; }
    std::int32_t Alt2Confidence() const override { return 0; }
    std::string Alt2Voice() const override { return ""; }
};

TEST_F(EventHandlers, Character_SpokenTo_IsOne)
{
    LoadMerlin();
    desktop.clipboard.Put(TwentyParagraphs());
    desktop.journal.FailAlways("Character.Speak", failure);
    EXPECT_EQ(ReportsOfTwo([] { character::EventReceiver().Command(Heard()); }), 2U);
}

}
