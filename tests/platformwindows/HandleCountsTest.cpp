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

namespace platform::windowsdesktop {
namespace {
constexpr int Operations = 1000;

struct Counts {
    DWORD kernel = 0;
    DWORD gdi = 0;
    DWORD user = 0;
    // The places that the next objects get. Some systems count none; there what stays behind shows in these.
    int nextGdi = 0;
    int nextUser = 0;
};

template <class Handle> int PlaceOf(Handle handle) { return LOWORD(reinterpret_cast<ULONG_PTR>(handle)); }

Counts CountsNow()
{
    Counts counts;
    GetProcessHandleCount(GetCurrentProcess(), &counts.kernel);
    counts.gdi = GetGuiResources(GetCurrentProcess(), GR_GDIOBJECTS);
    counts.user = GetGuiResources(GetCurrentProcess(), GR_USEROBJECTS);
    const HBRUSH brush = CreateSolidBrush(0x123456);
    counts.nextGdi = PlaceOf(brush);
    DeleteObject(brush);
    counts.nextUser = PlaceOf(CTestWindow().Get());
    return counts;
}

// The first operations may load what stays.
template <class Operation> void ExpectNoGrowth(Operation operation)
{
    for (int i = 0; i < 10; ++i)
        operation();
    const Counts before = CountsNow();
    for (int i = 0; i < Operations; ++i)
        operation();
    const Counts after = CountsNow();
    EXPECT_EQ(after.kernel, before.kernel);
    EXPECT_EQ(after.gdi, before.gdi);
    EXPECT_EQ(after.user, before.user);
    EXPECT_LT(after.nextGdi, before.nextGdi + Operations / 2);
    EXPECT_LT(after.nextUser, before.nextUser + Operations / 2);
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
    EXPECT_EQ(profile.Read(folder.Path("a.ini"), "A", "B", "", 4096), "1010");
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
    const std::vector<CDialogAnswers::Answer> presses(Operations + 10, Press(IDOK));
    const CDialogAnswers answers(presses);
    CWindowsMessageBoxes boxes;
    ExpectNoGrowth([&] { boxes.Show({"text", "Parlune"}); });
}

}
