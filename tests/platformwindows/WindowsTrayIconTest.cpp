#include "platform/windows/WindowsTrayIcon.h"
#include "Support.h"

namespace platform::windowsdesktop {
namespace {
using namespace std::string_literals;

struct Tray : testing::Test {
    Tray()
        : owner([this](UINT message, WPARAM wParam, LPARAM lParam) -> std::optional<LRESULT> {
              return icon.OnMessage(message, wParam, lParam) ? std::optional<LRESULT>(0) : std::nullopt;
          })
    {
        icon.UseOwner(owner.Get(), LoadIconA(nullptr, IDI_APPLICATION));
    }
    void Add()
    {
        icon.Add("Parlune", [this](std::int32_t message) { mouse.push_back(message); });
    }
    std::string Tip() const { return std::string(icon.Record().szTip, 64); }
    // Whether the shell knows the icon: it refuses a change of one that it does not know.
    bool ShellHasIcon() const
    {
        NOTIFYICONDATAA record = icon.Record();
        return Shell_NotifyIconA(NIM_MODIFY, &record) != 0;
    }
    CWindowsTrayIcon icon;
    CTestWindow owner;
    std::vector<std::int32_t> mouse;
};
}

TEST_F(Tray, Add_TheRecord_HasItsFirstForm)
{
    Add();
    EXPECT_EQ(icon.Record().cbSize, sizeof(void*) == 4 ? 88U : 104U);
    EXPECT_EQ(icon.Record().hWnd, owner.Get());
    EXPECT_EQ(icon.Record().uID, 1U);
    EXPECT_EQ(icon.Record().uFlags, 7U);
    EXPECT_EQ(icon.Record().uCallbackMessage, 512U);
    EXPECT_NE(icon.Record().hIcon, nullptr);
}

TEST_F(Tray, Add_TheTip_IsFilledWithBlanksBehindItsNul)
{
    Add();
    EXPECT_EQ(Tip(), "Parlune\0"s + std::string(56, ' '));
}

TEST_F(Tray, Add_ATipThatIsTooLong_IsCut)
{
    icon.Add(std::string(200, 'x'), {});
    EXPECT_EQ(Tip(), std::string(63, 'x') + '\0');
}

TEST_F(Tray, Add_TheShellKnowsTheIconUntilItIsDeleted)
{
    EXPECT_FALSE(ShellHasIcon());
    Add();
    EXPECT_TRUE(ShellHasIcon());
    icon.Delete();
    EXPECT_FALSE(ShellHasIcon());
}

TEST_F(Tray, Destroyed_TheIconIsGone)
{
    NOTIFYICONDATAA record = {};
    {
        CWindowsTrayIcon other;
        other.UseOwner(owner.Get(), LoadIconA(nullptr, IDI_APPLICATION));
        other.Add("Parlune", {});
        record = other.Record();
        EXPECT_TRUE(Shell_NotifyIconA(NIM_MODIFY, &record));
    }
    EXPECT_FALSE(Shell_NotifyIconA(NIM_MODIFY, &record));
}

TEST_F(Tray, MouseMessages_ReachTheProcedure)
{
    Add();
    for (const LPARAM message : {512, 513, 514, 515, 516, 517})
        PostMessageW(owner.Get(), WM_MOUSEMOVE, 1, message);
    EXPECT_TRUE(RunUntil([&] { return mouse.size() == 6; }));
    EXPECT_EQ(mouse, (std::vector<std::int32_t>{512, 513, 514, 515, 516, 517}));
}

TEST_F(Tray, MouseMessagesOfAnotherNumber_AreNotTheIcons)
{
    Add();
    EXPECT_FALSE(icon.OnMessage(WM_MOUSEMOVE, 2, 515));
    EXPECT_FALSE(icon.OnMessage(WM_LBUTTONDOWN, 1, 515));
    EXPECT_TRUE(mouse.empty());
}

TEST_F(Tray, MouseMessages_BeforeAddAndAfterDelete_AreNotTheIcons)
{
    EXPECT_FALSE(icon.OnMessage(WM_MOUSEMOVE, 1, 515));
    Add();
    icon.Delete();
    EXPECT_FALSE(icon.OnMessage(WM_MOUSEMOVE, 1, 515));
    EXPECT_TRUE(mouse.empty());
}

TEST_F(Tray, TheShellStartsAgain_TheIconComesBack)
{
    Add();
    NOTIFYICONDATAA record = icon.Record();
    Shell_NotifyIconA(NIM_DELETE, &record);
    EXPECT_FALSE(ShellHasIcon());
    SendMessageW(owner.Get(), RegisterWindowMessageW(L"TaskbarCreated"), 0, 0);
    EXPECT_TRUE(ShellHasIcon());
}

TEST_F(Tray, TheShellStartsAgain_AfterDelete_NoIconComes)
{
    Add();
    icon.Delete();
    SendMessageW(owner.Get(), RegisterWindowMessageW(L"TaskbarCreated"), 0, 0);
    EXPECT_FALSE(ShellHasIcon());
}

TEST_F(Tray, TheProcedureDeletesTheIcon_NothingBreaks)
{
    icon.Add("Parlune", [this](std::int32_t message) {
        icon.Delete();
        mouse.push_back(message);
    });
    EXPECT_TRUE(icon.OnMessage(WM_MOUSEMOVE, 1, 515));
    EXPECT_EQ(mouse, std::vector<std::int32_t>{515});
}

TEST_F(Tray, AddAgain_AfterDelete_Works)
{
    Add();
    icon.Delete();
    Add();
    EXPECT_TRUE(ShellHasIcon());
}

}
