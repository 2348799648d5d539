#include "Support.h"
#include "platform/windows/WindowsClipboard.h"
#include "platform/windows/WindowsEventPump.h"
#include "platform/windows/WindowsFiles.h"
#include "platform/windows/WindowsFonts.h"
#include "platform/windows/WindowsMessageBoxes.h"
#include "platform/windows/WindowsProfile.h"
#include "platform/windows/WindowsRegistry.h"
#include "platform/windows/WindowsScreen.h"
#include "platform/windows/WindowsShell.h"
#include "platform/windows/WindowsTrayIcon.h"
#include "support/OwnHandles.h"

namespace platform::windowsdesktop {
namespace {
constexpr int Operations = 1000;

// The first operations may load what stays.
template <class Operation> void ExpectNoGrowth(Operation operation)
{
    for (int i = 0; i < 10; ++i)
        operation();
    const auto repeat = [&] {
        for (int i = 0; i < Operations; ++i)
            operation();
    };
    EXPECT_EQ(support::GrowthOf(support::CountOwnHandles, repeat, 0), "");
}

struct HandleCounts : testing::Test {
    CTemporaryFolder folder;
};
}

TEST_F(HandleCounts, Registry_DoNotGrow)
{
    CWindowsRegistry registry;
    ExpectNoGrowth([&] {
        const auto key = registry.Create(Root::CurrentUser, "Software\\ParluneHandleTest");
        key->SetText("Name", "abc");
        registry.Open(Root::CurrentUser, "Software\\ParluneHandleTest")->ValueSize("Name");
        registry.Open(Root::CurrentUser, "Software\\NoSuchKey");
    });
    registry.DeleteKey(Root::CurrentUser, "Software\\ParluneHandleTest");
}

TEST_F(HandleCounts, Profile_DoNotGrow)
{
    CWindowsProfile profile;
    int number = 0;
    ExpectNoGrowth([&] {
        profile.Write(folder.Path("a.ini"), "A", "B", std::to_string(++number));
        profile.Read(folder.Path("a.ini"), "A", "B", "", 4096);
        profile.Write(folder.Path("none\\a.ini"), "A", "B", "c");
    });
    EXPECT_EQ(profile.Read(folder.Path("a.ini"), "A", "B", "", 4096), std::to_string(number));
}

TEST_F(HandleCounts, Files_DoNotGrow)
{
    CWindowsFiles files;
    ExpectNoGrowth([&] {
        files.WriteLine(folder.Path("a.txt"), "abc");
        files.ReadText(folder.Path("a.txt"));
        std::string lines;
        files.OpenLines(folder.Path("a.txt"))->AppendLine(lines);
        files.Match(folder.Path("*.txt"));
        FailureOf([&] { files.WriteLine(folder.Path("none\\a.txt"), "abc"); });
        FailureOf([&] { files.ReadText(folder.Path("none.txt")); });
        FailureOf([&] { files.OpenLines(folder.Path()); });
    });
}

TEST_F(HandleCounts, Clipboard_DoNotGrow)
{
    CTestWindow window;
    CWindowsClipboard clipboard;
    clipboard.UseWindow(window.Get());
    CopyText("one");
    ExpectNoGrowth([&] {
        clipboard.Watch([] {});
        clipboard.Text();
        clipboard.IsSecret();
        clipboard.StopWatching();
    });
}

TEST_F(HandleCounts, TrayIcon_DoNotGrow)
{
    CTestWindow window;
    CWindowsTrayIcon icon;
    icon.UseOwner(window.Get(), LoadIconA(nullptr, IDI_APPLICATION));
    ExpectNoGrowth([&] {
        icon.Add("Parlune", {});
        icon.Delete();
    });
}

TEST_F(HandleCounts, FontsAndScreen_DoNotGrow)
{
    CWindowsScreen screen;
    ExpectNoGrowth([&] {
        CWindowsFonts().EnumerateFamilies([](std::string_view) { return 0; });
        screen.WidthInUnits();
        screen.UnitsPerPixelY();
        screen.SetPointer(Pointer::Hourglass);
        screen.SetPointer(Pointer::Default);
    });
}

TEST_F(HandleCounts, EventPump_DoNotGrow)
{
    CTestWindow window;
    CWindowsEventPump pump;
    ExpectNoGrowth([&] {
        PostMessageW(window.Get(), WM_APP, 0, 0);
        pump.WaitForEvents(1);
        pump.RunPendingEvents();
    });
}

TEST_F(HandleCounts, ShellThatRefuses_DoNotGrow)
{
    ExpectNoGrowth([&] {
        FailureOf([] { CWindowsShell().StartProgram("no-such-program-here"); });
        CWindowsShell().Open(folder.Path("none.txt"), "");
    });
}

TEST_F(HandleCounts, MessageBoxes_DoNotGrow)
{
    CWindowsMessageBoxes boxes;
    ExpectNoGrowth([&] {
        const CDialogAnswers answers({Press(IDOK)});
        boxes.Show({"text", "Parlune"});
    });
}

}
