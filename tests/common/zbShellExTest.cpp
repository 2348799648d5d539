#include "common/zbShellEx.h"
#include "support/FailEachCall.h"
#include <gtest/gtest.h>

namespace {

struct Target {
    std::string target;
    std::string file;
    std::string parameters;
};
void PrintTo(const Target& each, std::ostream* out) { *out << each.target; }

class ShellExOf : public testing::TestWithParam<Target> {};

}

TEST(zbShellEx, ShellEx_AProgram_IsStartedAndAnsweredZero)
{
    CHeadlessDesktop desktop;
    desktop.shell.programs = {"notepad.exe a.txt"};

    EXPECT_EQ(zbShellEx::ShellEx("notepad.exe a.txt"), 0);

    EXPECT_EQ(desktop.shell.started, std::vector<std::string>{"notepad.exe a.txt"});
    EXPECT_TRUE(desktop.shell.opened.empty());
}

TEST(zbShellEx, ShellEx_BlanksAroundTheTarget_AreTrimmed)
{
    CHeadlessDesktop desktop;
    desktop.shell.programs = {"notepad.exe"};

    zbShellEx::ShellEx("  notepad.exe ");

    EXPECT_EQ(desktop.shell.started, std::vector<std::string>{"notepad.exe"});
}

TEST(zbShellEx, ShellEx_NoProgram_IsOpenedByTheDesktopAndItsCodeReturned)
{
    CHeadlessDesktop desktop;
    desktop.shell.openCode = 42;

    EXPECT_EQ(zbShellEx::ShellEx("https://parlune.example/"), 42);

    EXPECT_EQ(desktop.shell.opened.at(0).file, "https://parlune.example/");
    EXPECT_TRUE(desktop.messageBoxes.shown.empty());
}

TEST(zbShellEx, ShellEx_ACodeThatMeansRefusal_IsReturnedAndNotReported)
{
    CHeadlessDesktop desktop;
    desktop.shell.openCode = 2;

    EXPECT_EQ(zbShellEx::ShellEx("missing.txt"), 2);

    EXPECT_TRUE(desktop.messageBoxes.shown.empty());
}

TEST_P(ShellExOf, ShellEx_TheTarget_IsSplitIntoFileAndParameters)
{
    CHeadlessDesktop desktop;

    zbShellEx::ShellEx(GetParam().target);

    EXPECT_EQ(desktop.shell.opened.at(0).file, GetParam().file);
    EXPECT_EQ(desktop.shell.opened.at(0).parameters, GetParam().parameters);
}

INSTANTIATE_TEST_SUITE_P(Targets, ShellExOf,
                         testing::Values(Target{"\"C:\\My Texts\\a.txt\" /p", "C:\\My Texts\\a.txt", "/p"},
                                         Target{"\"C:\\My Texts\\a.txt\"", "C:\\My Texts\\a.txt", ""},
                                         Target{"\" a.txt \"   /p  /q ", "a.txt", "/p  /q"},
                                         Target{"\"a\"b \"c\"", "a", "b \"c\""}, Target{"a.txt /p /q", "a.txt", "/p /q"},
                                         Target{"a.txt   /p", "a.txt", "/p"}, Target{"a.txt", "a.txt", ""},
                                         Target{"a\"b c\"", "a\"b", "c\""}, Target{"\"\" /p", "\"\" /p", ""},
                                         Target{"\"a b", "\"a b", ""}, Target{"\" \"", "", ""}, Target{"", "", ""}));

TEST(zbShellEx, ShellEx_AfterOpening_LetsPendingEventsRun)
{
    CHeadlessDesktop desktop;

    zbShellEx::ShellEx("a.txt");

    EXPECT_EQ(desktop.journal.Calls().back(), "Events.RunPendingEvents");
    EXPECT_EQ(desktop.events.Yields(), 1U);
}

TEST(zbShellEx, ShellEx_AfterStarting_LetsPendingEventsRun)
{
    CHeadlessDesktop desktop;
    desktop.shell.programs = {"notepad.exe"};

    zbShellEx::ShellEx("notepad.exe");

    EXPECT_EQ(desktop.events.Yields(), 1U);
}

TEST(zbShellEx, ShellEx_WhenTheDesktopCannotBeAsked_TellsTheUserInItsOwnBox)
{
    CHeadlessDesktop desktop;
    desktop.journal.FailNext("Shell.Open", platform::CFailure(57, "Device I/O error"));

    const std::int32_t code = zbShellEx::ShellEx(" a.txt /p ");

    EXPECT_EQ(code, 0);
    ASSERT_EQ(desktop.messageBoxes.shown.size(), 1U);
    EXPECT_EQ(desktop.messageBoxes.Last().text, "Error opening:\r\na.txt /p\r\n\r\nError 57 : Device I/O error");
    EXPECT_EQ(desktop.messageBoxes.Last().title, "Parlune");
    EXPECT_EQ(desktop.messageBoxes.Last().icon, platform::BoxIcon::Exclamation);
    EXPECT_EQ(desktop.messageBoxes.Last().buttons, platform::BoxButtons::Ok);
    EXPECT_EQ(desktop.events.Yields(), 1U);
}

TEST(zbShellEx, ShellEx_WhenEvenTheBoxFails_IsReported)
{
    CHeadlessDesktop desktop;
    desktop.journal.FailNext("Shell.Open", platform::CFailure(57, "Device I/O error"));
    desktop.journal.FailNext("MessageBoxes.Show", platform::CFailure(7, "Out of memory"));

    zbShellEx::ShellEx("a.txt");

    EXPECT_EQ(desktop.messageBoxes.Last().Line(1), "Section: bShellEx:ShellEx");
    EXPECT_EQ(desktop.messageBoxes.Last().Line(3), "Error Code: 7");
}

TEST(zbShellEx, ShellEx_WhenACallFails_OnlyTheEventsAreReported)
{
    std::int32_t code = -1;
    support::FailEachCall([](CHeadlessDesktop&) {}, [&](CHeadlessDesktop&) { code = zbShellEx::ShellEx("a.txt"); },
                          [&](const support::FailedRun& run) {
                              support::ExpectReport(run, {{"Events.", "bShellEx:ShellEx"}, {"Shell.", ""}});
                              EXPECT_EQ(code, run.FailedIn("Shell.Open") ? 0 : 42);
                              EXPECT_EQ(run.desktop.journal.Count("Events.RunPendingEvents"), 1U);
                          });
}
