#include "common/zbErrorTrap.h"
#include "common/ProgramState.h"
#include "common/Version.h"
#include "platform/MessageBoxes.h"
#include "platform/Platform.h"
#include "platform/Program.h"
#include <algorithm>
#include <new>
#include <vector>

namespace zbErrorTrap {
namespace {

using platform::BoxAnswer;
using platform::BoxButtons;
using platform::BoxIcon;

CurrentError& Error() { return common::StateOf<CurrentError>(); }

struct ReportState {
    CEventHandler* running = nullptr;        // The innermost one.
    std::vector<const FailureReport*> open;  // They stand on the screen.
    std::size_t unshown = 0;
    std::function<void(const FailureReport&, bool)> log;
    std::function<void()> lastAct;
};

ReportState& State() { return common::StateOf<ReportState>(); }

// A report while it stands on the screen.
class COpenReport {
public:
    explicit COpenReport(const FailureReport& report) { State().open.push_back(&report); }
    ~COpenReport() { State().open.pop_back(); }
    COpenReport(const COpenReport&) = delete;
    COpenReport& operator=(const COpenReport&) = delete;
};

bool StandsOnTheScreen(const FailureReport& report)
{
    const std::vector<const FailureReport*>& open = State().open;
    return std::any_of(open.begin(), open.end(), [&](const FailureReport* each) { return *each == report; });
}

bool IsKnown(const FailureReport& report)
{
    return StandsOnTheScreen(report) || (State().running && State().running->WasAnswered(report));
}

void Log(const FailureReport& report, bool shown)
{
    if (State().log)
        IgnoreFailure([&] { State().log(report, shown); });
}

std::string ReportText(const FailureReport& report)
{
    return "Section: " + report.module + ":" + report.section +
           "\r\n\r\n"
           "Error Code: " +
           std::to_string(report.error.number) + "\r\n'" + report.error.description +
           "'\r\n\r\n"
           "You may be able to continue normally by clicking the OK button,\r\n"
           "but please report this problem on the Parlune website so it can be resolved.";
}

std::string ReportTitle()
{
    return "Parlune " + std::to_string(version::Major) + "." + std::to_string(version::Minor) + " Unexpected Error";
}

void End()
{
    if (State().lastAct)
        State().lastAct();
    platform::Current().program.End();
}

void Show(const FailureReport& report)
{
    const COpenReport open(report);
    if (platform::Current().messageBoxes.Show(
            {ReportText(report), ReportTitle(), BoxButtons::OkCancel, BoxIcon::Critical}) == BoxAnswer::Cancel)
        End();
    if (State().running)
        State().running->NoteAnswer(report);
}

void Report(const FailureReport& report)
{
    const bool known = IsKnown(report);
    Log(report, !known);
    if (known)
        ++State().unshown;
    else
        Show(report);
}

void ReportPlainly()
{
    platform::Current().messageBoxes.Show({std::to_string(Error().number) + " : " + Error().description, version::Title,
                                           BoxButtons::Ok, BoxIcon::Exclamation});
}

}

const CurrentError& LastError() { return Error(); }

void SetCurrentError()
{
    CurrentError& error = Error();
    try {
        throw;
    } catch (const platform::CFailure& failure) {
        error = {failure.Number(), failure.Description()};
    } catch (const std::bad_alloc&) {
        error = {platform::failure::OutOfMemory().Number(), platform::failure::OutOfMemory().Description()};
    } catch (...) {
        error = {platform::failure::InvalidCall().Number(), platform::failure::InvalidCall().Description()};
    }
}

void ClearCurrentError() { Error() = {}; }

void BeforeEnd(std::function<void()> lastAct) { State().lastAct = std::move(lastAct); }

void ErrorTrap(std::string_view module, std::string_view section)
{
    if (Error().number == 0)
        return;
    try {
        Report({std::string(module), std::string(section), Error()});
    } catch (const platform::CProgramEnded&) {
        throw;
    } catch (...) {
        SetCurrentError();
        IgnoreFailure(ReportPlainly);  // There is no third way to tell it.
    }
}

void SetReportLog(std::function<void(const FailureReport&, bool)> log) { State().log = std::move(log); }

std::size_t UnshownReports() { return State().unshown; }

CEventHandler::CEventHandler() : m_outer(std::exchange(State().running, this)) {}

CEventHandler::~CEventHandler() { State().running = m_outer; }

}
