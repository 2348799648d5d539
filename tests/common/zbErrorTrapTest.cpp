#include "common/zbErrorTrap.h"
#include "platform/headless/Desktop.h"
#include <gtest/gtest.h>
#include <new>
#include <stdexcept>

namespace {

using platform::BoxAnswer;
using platform::BoxButtons;
using platform::BoxIcon;
using platform::CFailure;
using zbErrorTrap::CEventHandler;
using zbErrorTrap::CGuard;
using zbErrorTrap::FailureReport;

const CGuard guard("bOptions", "GetOptions");

[[noreturn]] void Mismatch() { throw platform::failure::TypeMismatch(); }

}

TEST(zbErrorTrap, ErrorTrap_WithoutAPendingFailure_ShowsNothing)
{
    CHeadlessDesktop desktop;

    zbErrorTrap::ErrorTrap("bOptions", "GetOptions");

    EXPECT_TRUE(desktop.messageBoxes.shown.empty());
}

TEST(zbErrorTrap, ErrorTrap_WithAPendingFailure_ShowsTheWholeReport)
{
    CHeadlessDesktop desktop;

    guard(Mismatch);

    EXPECT_EQ(desktop.messageBoxes.Last().text,
              "Section: bOptions:GetOptions\r\n\r\nError Code: 13\r\n'Type mismatch'\r\n\r\n"
              "You may be able to continue normally by clicking the OK button,\r\n"
              "but please report this problem on the Parlune website so it can be resolved.");
}

TEST(zbErrorTrap, ErrorTrap_WithAPendingFailure_ShowsTitleIconAndButtons)
{
    CHeadlessDesktop desktop;

    guard(Mismatch);

    EXPECT_EQ(desktop.messageBoxes.Last().title, "Parlune 2.6 Unexpected Error");
    EXPECT_EQ(desktop.messageBoxes.Last().icon, BoxIcon::Critical);
    EXPECT_EQ(desktop.messageBoxes.Last().buttons, BoxButtons::OkCancel);
    EXPECT_FALSE(desktop.messageBoxes.Last().secondButtonIsDefault);
}

TEST(zbErrorTrap, ErrorTrap_ADescriptionWithAnApostrophe_IsShownAsItStands)
{
    CHeadlessDesktop desktop;

    guard([] { throw CFailure(429, "Can't do 'that'"); });

    EXPECT_EQ(desktop.messageBoxes.Last().Line(4), "'Can't do 'that''");
}

TEST(zbErrorTrap, ErrorTrap_ANegativeNumber_IsShownInDecimal)
{
    CHeadlessDesktop desktop;

    guard([] { throw CFailure(-2147024894, "No such file"); });

    EXPECT_EQ(desktop.messageBoxes.Last().Line(3), "Error Code: -2147024894");
}

TEST(zbErrorTrap, ErrorTrap_AFailureWithTheNumberZero_ShowsNothing)
{
    CHeadlessDesktop desktop;

    guard([] { throw CFailure(0, "nothing"); });

    EXPECT_TRUE(desktop.messageBoxes.shown.empty());
}

TEST(zbErrorTrap, ErrorTrap_Ok_ContinuesWithTheNextStatement)
{
    CHeadlessDesktop desktop;
    desktop.messageBoxes.answers = {BoxAnswer::Ok};
    int value = 1;
    bool continued = false;

    guard([&] { value = (Mismatch(), 2); });
    guard([&] { continued = true; });

    EXPECT_EQ(value, 1);
    EXPECT_TRUE(continued);
    EXPECT_FALSE(desktop.program.ended);
}

TEST(zbErrorTrap, ErrorTrap_Cancel_EndsTheProgramAtOnce)
{
    CHeadlessDesktop desktop;
    desktop.messageBoxes.answers = {BoxAnswer::Cancel};

    EXPECT_THROW(guard(Mismatch), platform::CProgramEnded);

    EXPECT_TRUE(desktop.program.ended);
}

TEST(zbErrorTrap, ErrorTrap_CancelInsideNestedGuards_IsNotSwallowedByTheOuterOne)
{
    CHeadlessDesktop desktop;
    desktop.messageBoxes.answers = {BoxAnswer::Cancel};
    const CGuard outer("Parlune", "Form_Load");

    EXPECT_THROW(outer([] { guard(Mismatch); }), platform::CProgramEnded);

    EXPECT_EQ(desktop.messageBoxes.shown.size(), 1U);
}

TEST(zbErrorTrap, ErrorTrap_WhenTheReportFails_ShowsThePlainBox)
{
    CHeadlessDesktop desktop;
    desktop.journal.FailNext("MessageBoxes.Show", CFailure(7, "Out of memory"));

    guard(Mismatch);

    ASSERT_EQ(desktop.messageBoxes.shown.size(), 1U);
    EXPECT_EQ(desktop.messageBoxes.Last().text, "7 : Out of memory");
    EXPECT_EQ(desktop.messageBoxes.Last().title, "Parlune");
    EXPECT_EQ(desktop.messageBoxes.Last().icon, BoxIcon::Exclamation);
    EXPECT_EQ(desktop.messageBoxes.Last().buttons, BoxButtons::Ok);
}

TEST(zbErrorTrap, ErrorTrap_WhenThePlainBoxFailsToo_Returns)
{
    CHeadlessDesktop desktop;
    desktop.journal.FailAlways("MessageBoxes.Show", CFailure(7, "Out of memory"));
    bool continued = false;

    guard(Mismatch);
    guard([&] { continued = true; });

    EXPECT_TRUE(continued);
    EXPECT_EQ(desktop.journal.Count("MessageBoxes.Show"), 2U);
}

TEST(zbErrorTrap, ErrorTrap_WhenEndingFails_ShowsThePlainBox)
{
    CHeadlessDesktop desktop;
    desktop.messageBoxes.answers = {BoxAnswer::Cancel};
    desktop.journal.FailNext("Program.End", CFailure(70, "Permission denied"));

    guard(Mismatch);

    EXPECT_EQ(desktop.messageBoxes.Last().text, "70 : Permission denied");
}

TEST(zbErrorTrap, Guard_AfterAReport_ClearsTheCurrentError)
{
    CHeadlessDesktop desktop;

    guard(Mismatch);

    EXPECT_EQ(zbErrorTrap::LastError().number, 0);
    EXPECT_EQ(zbErrorTrap::LastError().description, "");
}

TEST(zbErrorTrap, Guard_WhileTheReportStands_KeepsTheCurrentError)
{
    CHeadlessDesktop desktop;
    std::int32_t number = 0;
    desktop.messageBoxes.whileShown = [&] { number = zbErrorTrap::LastError().number; };

    guard(Mismatch);

    EXPECT_EQ(number, 13);
}

TEST(zbErrorTrap, Guard_ASecondFailureWhileTheFirstReportStands_IsReportedOnItsOwn)
{
    CHeadlessDesktop desktop;
    desktop.messageBoxes.whileShown = [&] {
        desktop.messageBoxes.whileShown = nullptr;
        CGuard("Parlune", "tmrTimer_Timer")([] { throw platform::failure::Overflow(); });
    };

    guard(Mismatch);

    ASSERT_EQ(desktop.messageBoxes.shown.size(), 2U);
    EXPECT_EQ(desktop.messageBoxes.shown[0].Line(1), "Section: bOptions:GetOptions");
    EXPECT_EQ(desktop.messageBoxes.shown[1].Line(1), "Section: Parlune:tmrTimer_Timer");
    EXPECT_EQ(desktop.messageBoxes.shown[1].Line(3), "Error Code: 6");
}

TEST(zbErrorTrap, Guard_WithoutAFailure_RunsTheStatementAndShowsNothing)
{
    CHeadlessDesktop desktop;
    int value = 0;

    guard([&] { value = 7; });

    EXPECT_EQ(value, 7);
    EXPECT_TRUE(desktop.journal.Calls().empty());
}

TEST(zbErrorTrap, SetCurrentError_OutOfMemory_IsNumber7)
{
    CHeadlessDesktop desktop;

    guard([] { throw std::bad_alloc(); });

    EXPECT_EQ(desktop.messageBoxes.Last().Line(3), "Error Code: 7");
    EXPECT_EQ(desktop.messageBoxes.Last().Line(4), "'Out of memory'");
}

TEST(zbErrorTrap, SetCurrentError_AnyOtherException_IsNumber5)
{
    CHeadlessDesktop desktop;

    guard([] { throw std::out_of_range("vector"); });

    EXPECT_EQ(desktop.messageBoxes.Last().Line(3), "Error Code: 5");
    EXPECT_EQ(desktop.messageBoxes.Last().Line(4), "'Invalid procedure call or argument'");
}

TEST(zbErrorTrap, SetCurrentError_SomethingThatIsNoException_IsNumber5)
{
    CHeadlessDesktop desktop;

    guard([] { throw 42; });

    EXPECT_EQ(desktop.messageBoxes.Last().Line(3), "Error Code: 5");
}

TEST(zbErrorTrap, IgnoreFailure_AFailure_IsNotShownAndAnsweredFalse)
{
    CHeadlessDesktop desktop;

    EXPECT_FALSE(zbErrorTrap::IgnoreFailure(Mismatch));

    EXPECT_TRUE(desktop.messageBoxes.shown.empty());
    EXPECT_EQ(zbErrorTrap::LastError().number, 0);
}

TEST(zbErrorTrap, IgnoreFailure_Success_IsAnsweredTrue)
{
    CHeadlessDesktop desktop;

    EXPECT_TRUE(zbErrorTrap::IgnoreFailure([] {}));
}

TEST(zbErrorTrap, IgnoreFailure_TheEndOfTheProgram_IsNotIgnored)
{
    CHeadlessDesktop desktop;

    EXPECT_THROW(zbErrorTrap::IgnoreFailure([&] { desktop.program.End(); }), platform::CProgramEnded);
}

TEST(zbErrorTrap, ErrorTrap_TheSameAgainInOneEventHandler_IsCountedAndNotShown)
{
    CHeadlessDesktop desktop;
    const CEventHandler handler;

    for (int paragraph = 0; paragraph < 20; ++paragraph)
        guard(Mismatch);

    EXPECT_EQ(desktop.messageBoxes.shown.size(), 1U);
    EXPECT_EQ(zbErrorTrap::UnshownReports(), 19U);
}

TEST(zbErrorTrap, ErrorTrap_TheSameAgainInTheNextEventHandler_IsShown)
{
    CHeadlessDesktop desktop;

    for (int event = 0; event < 2; ++event) {
        const CEventHandler handler;
        guard(Mismatch);
    }

    EXPECT_EQ(desktop.messageBoxes.shown.size(), 2U);
    EXPECT_EQ(zbErrorTrap::UnshownReports(), 0U);
}

TEST(zbErrorTrap, ErrorTrap_TheSameAgainOutsideOfAnyEventHandler_IsShown)
{
    CHeadlessDesktop desktop;

    guard(Mismatch);
    guard(Mismatch);

    EXPECT_EQ(desktop.messageBoxes.shown.size(), 2U);
}

TEST(zbErrorTrap, ErrorTrap_AnotherProcedureModuleNumberOrDescription_IsShown)
{
    CHeadlessDesktop desktop;
    const CEventHandler handler;

    guard([] { throw CFailure(13, "Type mismatch"); });
    guard([] { throw CFailure(13, "Another mismatch"); });
    guard([] { throw CFailure(14, "Another mismatch"); });
    CGuard("bOptions", "SetOptions")([] { throw CFailure(14, "Another mismatch"); });
    CGuard("bInit", "SetOptions")([] { throw CFailure(14, "Another mismatch"); });

    EXPECT_EQ(desktop.messageBoxes.shown.size(), 5U);
}

TEST(zbErrorTrap, ErrorTrap_TheSameAfterAnotherReport_IsShown)
{
    CHeadlessDesktop desktop;
    const CEventHandler handler;

    guard(Mismatch);
    guard([] { throw platform::failure::Overflow(); });
    guard(Mismatch);

    EXPECT_EQ(desktop.messageBoxes.shown.size(), 3U);
}

TEST(zbErrorTrap, ErrorTrap_TheSameInAHandlerWithinTheHandler_IsShown)
{
    CHeadlessDesktop desktop;
    const CEventHandler outer;
    guard(Mismatch);
    {
        const CEventHandler inner;
        guard(Mismatch);
    }
    EXPECT_EQ(desktop.messageBoxes.shown.size(), 2U);
}

TEST(zbErrorTrap, ErrorTrap_TheSameAfterAHandlerWithinTheHandler_IsNotShown)
{
    CHeadlessDesktop desktop;
    const CEventHandler outer;
    guard(Mismatch);
    {
        const CEventHandler inner;
        guard([] { throw platform::failure::Overflow(); });
    }
    guard(Mismatch);
    EXPECT_EQ(desktop.messageBoxes.shown.size(), 2U);
}

TEST(zbErrorTrap, ErrorTrap_TheSameWhileItStandsOnTheScreen_IsCountedAndNotShown)
{
    CHeadlessDesktop desktop;
    desktop.messageBoxes.whileShown = [] {
        const CEventHandler inner;
        guard(Mismatch);
    };

    guard(Mismatch);

    EXPECT_EQ(desktop.messageBoxes.shown.size(), 1U);
    EXPECT_EQ(zbErrorTrap::UnshownReports(), 1U);
}

TEST(zbErrorTrap, ErrorTrap_OneThatStandsBelowAnother_IsNotShownAgain)
{
    CHeadlessDesktop desktop;
    desktop.messageBoxes.whileShown = [&] {
        desktop.messageBoxes.whileShown = [] { guard(Mismatch); };
        guard([] { throw platform::failure::Overflow(); });
    };

    guard(Mismatch);

    EXPECT_EQ(desktop.messageBoxes.shown.size(), 2U);
}

TEST(zbErrorTrap, ErrorTrap_TheSameAfterAReportThatCouldNotBeShown_IsShown)
{
    CHeadlessDesktop desktop;
    const CEventHandler handler;
    desktop.journal.FailNext("MessageBoxes.Show", CFailure(7, "Out of memory"));

    guard(Mismatch);
    guard(Mismatch);

    EXPECT_EQ(desktop.messageBoxes.Last().Line(1), "Section: bOptions:GetOptions");
}

TEST(zbErrorTrap, SetReportLog_IsToldOfEveryReportAndWhetherItIsSeen)
{
    CHeadlessDesktop desktop;
    std::vector<std::pair<FailureReport, bool>> log;
    zbErrorTrap::SetReportLog([&](const FailureReport& report, bool shown) { log.emplace_back(report, shown); });
    const CEventHandler handler;

    guard(Mismatch);
    guard(Mismatch);

    const FailureReport expected{"bOptions", "GetOptions", {13, "Type mismatch"}};
    ASSERT_EQ(log.size(), 2U);
    EXPECT_EQ(log[0], std::make_pair(expected, true));
    EXPECT_EQ(log[1], std::make_pair(expected, false));
}

TEST(zbErrorTrap, SetReportLog_ALogThatFails_DoesNotKeepTheReportFromTheUser)
{
    CHeadlessDesktop desktop;
    zbErrorTrap::SetReportLog([](const FailureReport&, bool) { throw platform::failure::DiskFull(); });

    guard(Mismatch);

    EXPECT_EQ(desktop.messageBoxes.Last().Line(1), "Section: bOptions:GetOptions");
}
