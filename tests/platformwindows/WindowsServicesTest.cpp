#include "Support.h"
#include "platform/windows/WindowsClock.h"
#include "platform/windows/WindowsEnvironment.h"
#include "platform/windows/WindowsEventPump.h"
#include "platform/windows/WindowsFonts.h"
#include "platform/windows/WindowsLocale.h"
#include "platform/windows/WindowsRandomNumbers.h"
#include "platform/windows/WindowsScreen.h"
#include "platform/windows/WindowsShell.h"
#include <algorithm>
#include <set>

namespace platform::windowsdesktop {
namespace {
using namespace std::string_literals;
std::wstring After(const wchar_t* commandLine) { return std::wstring(WithoutProgramName(commandLine)); }
}

TEST(CommandLine, TheProgramsNameAndOneBlank_AreLeftOut)
{
    EXPECT_EQ(After(L"Parlune.exe /NODETECT"), L"/NODETECT");
    EXPECT_EQ(After(L"\"C:\\Program Files\\Parlune.exe\" /nodetect"), L"/nodetect");
    EXPECT_EQ(After(L"\"C:\\Program Files\\Parlune.exe\" \"/NODETECT\""), L"\"/NODETECT\"");
    EXPECT_EQ(After(L"\"C:\\Program\" Files\\Parlune.exe x"), L"Files\\Parlune.exe x");
}

TEST(CommandLine, FurtherBlanks_Stay)
{
    EXPECT_EQ(After(L"Parlune.exe  /NODETECT"), L" /NODETECT");
    EXPECT_EQ(After(L"Parlune.exe /NODETECT "), L"/NODETECT ");
    EXPECT_EQ(After(L"Parlune.exe\t/NODETECT"), L"/NODETECT");
}

TEST(CommandLine, NothingElse_IsEmpty)
{
    EXPECT_EQ(After(L"Parlune.exe"), L"");
    EXPECT_EQ(After(L"\"C:\\Program Files\\Parlune.exe\""), L"");
    EXPECT_EQ(After(L"\"C:\\never closed /NODETECT"), L"");
    EXPECT_EQ(After(L""), L"");
}

TEST(CommandLine, OfThisProgram_EndsWithWhatWasTyped)
{
    const std::string whole = FromWide(GetCommandLineW());
    const std::string typed = CWindowsEnvironment().CommandLine();
    EXPECT_TRUE(whole.ends_with(typed));
    EXPECT_EQ(typed.find(".exe"), std::string::npos);
}

TEST(Environment, Variable_IsTheProcesses)
{
    SetEnvironmentVariableW(L"PARLUNE_TEST", L"Gr\xFC\xDF\x65 \x65E5");
    EXPECT_EQ(CWindowsEnvironment().Variable("PARLUNE_TEST"), "Gr\xC3\xBC\xC3\x9F\x65 \xE6\x97\xA5");
    SetEnvironmentVariableW(L"PARLUNE_TEST", std::wstring(5000, L'x').c_str());
    EXPECT_EQ(CWindowsEnvironment().Variable("PARLUNE_TEST"), std::string(5000, 'x'));
    SetEnvironmentVariableW(L"PARLUNE_TEST", L"");
    EXPECT_EQ(CWindowsEnvironment().Variable("PARLUNE_TEST"), "");
    SetEnvironmentVariableW(L"PARLUNE_TEST", nullptr);
    EXPECT_EQ(CWindowsEnvironment().Variable("PARLUNE_TEST"), "");
}

TEST(Environment, Variable_OfTheUsersSettings_IsAFolder)
{
    const std::string folder = CWindowsEnvironment().Variable("APPDATA");
    EXPECT_NE(GetFileAttributesW(ToWide(folder).c_str()) & FILE_ATTRIBUTE_DIRECTORY, 0U);
    EXPECT_EQ(CWindowsEnvironment().Variable("APP\0DATA"s), "");
}

TEST(Clock, Now_IsTheSystemsLocalTime)
{
    SYSTEMTIME before = {}, after = {};
    GetLocalTime(&before);
    const LocalTime now = CWindowsClock().Now();
    GetLocalTime(&after);
    EXPECT_TRUE(now.year == before.wYear || now.year == after.wYear);
    EXPECT_TRUE(now.month == before.wMonth || now.month == after.wMonth);
    EXPECT_TRUE(now.minute == before.wMinute || now.minute == after.wMinute);
    EXPECT_TRUE(now.weekday == before.wDayOfWeek || now.weekday == after.wDayOfWeek);
}

TEST(Clock, SteadyMilliseconds_NeverGoBack)
{
    const CWindowsClock clock;
    const std::int64_t first = clock.SteadyMilliseconds();
    Sleep(20);
    EXPECT_GE(clock.SteadyMilliseconds(), first + 15);
}

TEST(Locale, PictureFormat_HasTheSymbolsOfOurFormats)
{
    EXPECT_EQ(PictureFormat("M/d/yyyy"), "m/d/yyyy");
    EXPECT_EQ(PictureFormat("dddd, MMMM dd, yyyy"), "dddd, mmmm dd, yyyy");
    EXPECT_EQ(PictureFormat("h:mm:ss tt"), "h:nn:ss AM/PM");
    EXPECT_EQ(PictureFormat("h:mm t"), "h:nn A/P");
    EXPECT_EQ(PictureFormat("HH:mm:ss"), "hh:nn:ss");
    EXPECT_EQ(PictureFormat("d 'de' MMMM 'de' yyyy"), "d \"de\" mmmm \"de\" yyyy");
    EXPECT_EQ(PictureFormat("H 'o''clock"), "h \"o\"\"clock\"");
    EXPECT_EQ(PictureFormat("gg yyyy"), "yyyy");
    EXPECT_EQ(PictureFormat("yyyy\xE5\xB9\xB4M\xE6\x9C\x88"), "yyyy\xE5\xB9\xB4m\xE6\x9C\x88");
    EXPECT_EQ(PictureFormat(""), "");
}

TEST(Locale, Names_AreTheUsers)
{
    if (GetUserDefaultLCID() != MAKELCID(MAKELANGID(LANG_ENGLISH, SUBLANG_ENGLISH_US), SORT_DEFAULT))
        return;
    const CWindowsLocale locale;
    EXPECT_EQ(locale.MonthName(1, false), "January");
    EXPECT_EQ(locale.MonthName(12, true), "Dec");
    EXPECT_EQ(locale.WeekdayName(0, false), "Sunday");
    EXPECT_EQ(locale.WeekdayName(1, true), "Mon");
    EXPECT_EQ(locale.WeekdayName(6, false), "Saturday");
    EXPECT_EQ(locale.AmText(), "AM");
    EXPECT_EQ(locale.PmText(), "PM");
    EXPECT_EQ(locale.ShortDateFormat(), "m/d/yyyy");
    EXPECT_EQ(locale.LongTimeFormat(), "h:nn:ss AM/PM");
}

TEST(Locale, MonthsAndDaysThatDoNotExist_HaveNoName)
{
    const CWindowsLocale locale;
    EXPECT_EQ(locale.MonthName(0, false), "");
    EXPECT_EQ(locale.MonthName(13, false), "");
    EXPECT_EQ(locale.WeekdayName(-1, false), "");
    EXPECT_EQ(locale.WeekdayName(7, false), "");
}

TEST(Fonts, FaceNameOf_EndsWithTheFirstNul)
{
    EXPECT_EQ(FaceNameOf("Arial\0rubbish"s), "Arial\0"s);
    EXPECT_EQ(FaceNameOf(std::string(32, 'x')), std::string(32, 'x'));
}

TEST(Fonts, EnumerateFamilies_TellsEveryFamilyOnce)
{
    std::vector<std::string> names;
    CWindowsFonts().EnumerateFamilies([&](std::string_view name) {
        names.emplace_back(name);
        return 1;
    });
    EXPECT_GT(names.size(), 3U);
    EXPECT_EQ(std::set<std::string>(names.begin(), names.end()).size(), names.size());
    for (const std::string& name : names)
        EXPECT_TRUE(name.size() > 1 && name.back() == '\0') << name;
    EXPECT_NE(std::find(names.begin(), names.end(), "Tahoma\0"s), names.end());
}

TEST(Fonts, EnumerateFamilies_StopsAtNull)
{
    int told = 0;
    CWindowsFonts().EnumerateFamilies([&](std::string_view) { return ++told == 2 ? 0 : 1; });
    EXPECT_EQ(told, 2);
}

TEST(Fonts, EnumerateFamilies_WhatTheProcedureThrows_ReachesTheCaller)
{
    EXPECT_EQ(FailureOf([] {
                  CWindowsFonts().EnumerateFamilies([](std::string_view) -> std::int32_t { throw failure::Overflow(); });
              }),
              6);
}

TEST(Screen, UnitsAt_IsTheInchDividedByTheDensity)
{
    EXPECT_EQ(UnitsAt(96), 15);
    EXPECT_EQ(UnitsAt(120), 12);
    EXPECT_EQ(UnitsAt(144), 10);
    EXPECT_EQ(UnitsAt(192), 7);
    EXPECT_EQ(UnitsAt(5000), 1);
    EXPECT_EQ(UnitsAt(0), 15);
}

TEST(Screen, SizeInUnits_IsThatOfTheScreen)
{
    const CWindowsScreen screen;
    EXPECT_EQ(screen.WidthInUnits() / screen.UnitsPerPixelX(), GetSystemMetrics(SM_CXSCREEN));
    EXPECT_EQ(screen.HeightInUnits() / screen.UnitsPerPixelY(), GetSystemMetrics(SM_CYSCREEN));
}

TEST(Screen, SetPointer_TheHourglass_StaysForAllWindowsUntilTheDefaultIsSet)
{
    CWindowsScreen screen;
    EXPECT_FALSE(screen.ShowPointer());
    screen.SetPointer(Pointer::Hourglass);
    EXPECT_EQ(screen.CurrentPointer(), Pointer::Hourglass);
    EXPECT_EQ(GetCursor(), LoadCursorA(nullptr, IDC_WAIT));
    SetCursor(LoadCursorA(nullptr, IDC_ARROW));
    EXPECT_TRUE(screen.ShowPointer());
    EXPECT_EQ(GetCursor(), LoadCursorA(nullptr, IDC_WAIT));
    screen.SetPointer(Pointer::Default);
    EXPECT_FALSE(screen.ShowPointer());
}

TEST(Screen, SetPointer_TheDefault_TheWindowBelowShowsItsOwnAgain)
{
    int asked = 0;
    const CTestWindow window(
        [&](UINT message, WPARAM, LPARAM) -> std::optional<LRESULT> {
            asked += message == WM_SETCURSOR;
            return std::nullopt;
        },
        WS_POPUP | WS_VISIBLE);
    SetCursorPos(50, 50);
    RunUntil([] { return false; }, 100);
    CWindowsScreen screen;
    screen.SetPointer(Pointer::Hourglass);
    asked = 0;
    screen.SetPointer(Pointer::Default);
    EXPECT_EQ(asked, 1);
}

TEST(Shell, StartProgram_StartsItWithItsArguments)
{
    CTemporaryFolder folder;
    CWindowsShell().StartProgram("cmd /c echo started> \"" + folder.Path("out.txt") + "\"");
    EXPECT_TRUE(RunUntil([&] { return folder.Read("out.txt") == "started\r\n"; }));
}

TEST(Shell, StartProgram_WhatIsNoProgram_Fails)
{
    CTemporaryFolder folder;
    folder.Write("a.txt", "text");
    EXPECT_EQ(FailureOf([] { CWindowsShell().StartProgram("no-such-program-here /x"); }), 53);
    EXPECT_NE(FailureOf([] { CWindowsShell().StartProgram("http://localhost/parlune"); }), 0);
    EXPECT_NE(FailureOf([&] { CWindowsShell().StartProgram(folder.Path("a.txt")); }), 0);
    EXPECT_EQ(FailureOf([] { CWindowsShell().StartProgram(""); }), 53);
    EXPECT_EQ(FailureOf([] { CWindowsShell().StartProgram("cmd\0x"s); }), 53);
}

TEST(Shell, Open_WhatIsMissing_IsRefusedWithItsCode)
{
    CTemporaryFolder folder;
    folder.Write("a.nokind", "");
    EXPECT_EQ(CWindowsShell().Open(folder.Path("none.txt"), ""), 2);
    EXPECT_EQ(CWindowsShell().Open(folder.Path("a.nokind"), ""), 31);
    EXPECT_EQ(FailureOf([] { CWindowsShell().Open("a\0b"s, ""); }), 52);
}

TEST(Shell, Open_AProgramWithBlanksInItsPath_GetsItsParameters)
{
    CTemporaryFolder folder;
    folder.MakeFolder("two words");
    const std::string program = folder.Path("two words\\run.bat");
    folder.Write("two words\\run.bat", "@echo %1> \"" + folder.Path("out.txt") + "\"\r\n");
    EXPECT_GT(CWindowsShell().Open(program, "/p"), 32);
    EXPECT_TRUE(RunUntil([&] { return folder.Read("out.txt") == "/p\r\n"; }));
}

TEST(RandomNumbers, Next_LiesBetweenNullAndOneAndFollowsTheSeed)
{
    CWindowsRandomNumbers first, second;
    first.Seed(12.5);
    second.Seed(12.5);
    for (int i = 0; i < 1000; ++i) {
        const double number = first.Next();
        EXPECT_TRUE(number >= 0 && number < 1);
        EXPECT_EQ(second.Next(), number);
    }
    second.Seed(13);
    EXPECT_NE(second.Next(), first.Next());
}

namespace {
struct Pump : testing::Test {
    Pump()
        : window([this](UINT message, WPARAM wParam, LPARAM) -> std::optional<LRESULT> {
              if (message != WM_APP)
                  return std::nullopt;
              got.push_back(static_cast<int>(wParam));
              if (whenGot)
                  whenGot();
              return 0;
          })
    {
    }
    void Post(int number) const { PostMessageW(window.Get(), WM_APP, static_cast<WPARAM>(number), 0); }
    CWindowsEventPump pump;
    std::vector<int> got;
    std::function<void()> whenGot;
    CTestWindow window;
};
}

TEST_F(Pump, RunPendingEvents_RunsThemInTheirOrder)
{
    Post(1);
    Post(2);
    pump.RunPendingEvents();
    EXPECT_EQ(got, (std::vector<int>{1, 2}));
}

TEST_F(Pump, RunPendingEvents_WhatTheFilterTakes_IsNotDispatched)
{
    pump.SetFilter([](MSG& message) { return message.message == WM_APP && message.wParam == 1; });
    Post(1);
    Post(2);
    pump.RunPendingEvents();
    EXPECT_EQ(got, std::vector<int>{2});
}

TEST_F(Pump, RunPendingEvents_TheWishToEnd_StaysInTheQueue)
{
    PostQuitMessage(7);
    Post(1);
    pump.RunPendingEvents();
    pump.RunPendingEvents();
    MSG message = {};
    ASSERT_TRUE(PeekMessageW(&message, nullptr, WM_QUIT, WM_QUIT, PM_REMOVE));
    EXPECT_EQ(message.wParam, 7U);
    EXPECT_EQ(got, std::vector<int>{1});
}

TEST_F(Pump, RunPendingEvents_AWindowThatPostsWithoutEnd_ComesToAnEnd)
{
    whenGot = [&] { Post(0); };
    Post(0);
    pump.RunPendingEvents();
    EXPECT_GT(got.size(), 100U);
    whenGot = {};
    pump.RunPendingEvents();
}

TEST_F(Pump, WaitForEvents_ReturnsWithTheFirstEvent)
{
    Post(1);
    pump.WaitForEvents(3'600'000);  // An hour, should it not.
    EXPECT_EQ(got, std::vector<int>{1});
}

TEST_F(Pump, WaitForEvents_NothingHappens_ReturnsAfterTheTime)
{
    pump.RunPendingEvents();
    const ULONGLONG before = GetTickCount64();
    for (int tries = 0; tries < 20 && GetTickCount64() - before < 30; ++tries)
        pump.WaitForEvents(40);
    EXPECT_GE(GetTickCount64() - before, 30U);
    pump.WaitForEvents(0);
    pump.WaitForEvents(-1);  // Not for ever.
}

TEST_F(Pump, CallLater_ComesOnceAsAnEvent)
{
    int calls = 0;
    pump.CallLater(0, [&] { ++calls; });
    EXPECT_EQ(calls, 0);
    EXPECT_TRUE(RunUntil([&] { return calls > 0; }));
    RunUntil([] { return false; }, 50);
    EXPECT_EQ(calls, 1);
}

TEST_F(Pump, CallLater_TheEarlierOneComesFirst)
{
    pump.CallLater(200, [&] { got.push_back(2); });
    pump.CallLater(0, [&] { got.push_back(1); });
    EXPECT_TRUE(RunUntil([&] { return got.size() == 2; }));
    EXPECT_EQ(got, (std::vector<int>{1, 2}));
}

TEST_F(Pump, CallLater_AgainFromInside_ComesAgain)
{
    pump.CallLater(0, [&] { pump.CallLater(0, [&] { got.push_back(1); }); });
    EXPECT_TRUE(RunUntil([&] { return !got.empty(); }));
}

TEST_F(Pump, CallLater_WhileAMessageBoxStands_Comes)
{
    const CDialogAnswers answers({[&](HWND dialog) { return !got.empty() && Press(IDOK)(dialog); }});
    pump.CallLater(0, [&] { got.push_back(1); });
    MessageBoxW(nullptr, L"text", L"title", MB_OK);
    EXPECT_EQ(got, std::vector<int>{1});
}

TEST_F(Pump, CallLater_ThePumpIsGone_NeverComes)
{
    {
        CWindowsEventPump other;
        other.CallLater(0, [&] { got.push_back(1); });
    }
    RunUntil([] { return false; }, 100);
    EXPECT_TRUE(got.empty());
}

TEST_F(Pump, RunPendingEvents_KeysBecomeLetters)
{
    std::vector<wchar_t> letters;
    CTestWindow typed([&](UINT message, WPARAM wParam, LPARAM) -> std::optional<LRESULT> {
        if (message == WM_CHAR)
            letters.push_back(static_cast<wchar_t>(wParam));
        return std::nullopt;
    });
    PostMessageW(typed.Get(), WM_KEYDOWN, 'A', 1);
    pump.RunPendingEvents();
    pump.RunPendingEvents();
    EXPECT_EQ(letters, std::vector<wchar_t>{L'a'});
}

}
