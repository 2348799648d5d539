#pragma once
#include "platform/Failure.h"
#include <cstddef>
#include <cstdint>
#include <functional>
#include <optional>
#include <string>
#include <string_view>
#include <utility>

// The program's one way to deal with an unexpected run-time failure. User-interface thread only.
namespace zbErrorTrap {

// The last failure, until the procedure in which it happened continues; number 0 when there is none.
struct CurrentError {
    std::int32_t number = 0;
    std::string description;
    friend bool operator==(const CurrentError&, const CurrentError&) = default;
};
const CurrentError& LastError();
// Takes the failure that is being handled; to be called inside a catch clause. An exception that is no CFailure becomes
// a failure with a number of its own: out of memory 7, anything else 5.
void SetCurrentError();
void ClearCurrentError();

// Reports the current error to the user, under the module's and procedure's names; returns when they choose to continue
// and ends the program when they do not. Does nothing while there is no current error. What the user knows already is not
// shown again, only counted: a report that stands on the screen, and the one that they answered last in the running event
// handler.
void ErrorTrap(std::string_view module, std::string_view section);

struct FailureReport {
    std::string module;
    std::string section;
    CurrentError error;
    friend bool operator==(const FailureReport&, const FailureReport&) = default;
};

// What is told of every report from now on, and whether the user sees it; its failures are ignored. None at the start.
void SetReportLog(std::function<void(const FailureReport& report, bool shown)> log);
// How many reports of this run were not shown.
std::size_t UnshownReports();

// The time in which one event handler runs. Whatever brings an event into the program makes one: the controls and windows,
// the engine's events, the clipboard. A handler that runs in the middle of another one, because that one sets a control or
// lets events run, is a handler of its own.
class CEventHandler {
public:
    CEventHandler();
    ~CEventHandler();
    CEventHandler(const CEventHandler&) = delete;
    CEventHandler& operator=(const CEventHandler&) = delete;

    void NoteAnswer(const FailureReport& report) { m_answered = report; }
    bool WasAnswered(const FailureReport& report) const { return m_answered == report; }

private:
    CEventHandler* m_outer;
    std::optional<FailureReport> m_answered;  // The last one.
};

// What is still done when the user chooses to end the program. It must not throw.
void BeforeEnd(std::function<void()> lastAct);

// Runs the statements of one procedure. A statement that fails is reported under the two names; then the call returns
// and the procedure continues with its next statement. What the failed statement would have set keeps its value.
class CGuard {
public:
    CGuard(const char* module, const char* section) : m_module(module), m_section(section) {}
    template <class Statement> void operator()(Statement&& statement) const
    {
        try {
            std::forward<Statement>(statement)();
        } catch (const platform::CProgramEnded&) {
            throw;  // The user chose to end: no guard may swallow that.
        } catch (...) {
            SetCurrentError();
            ErrorTrap(m_module, m_section);
            ClearCurrentError();
        }
    }

private:
    const char* m_module;
    const char* m_section;
};

// Runs a statement whose failure means nothing. Returns whether it succeeded.
template <class Statement> bool IgnoreFailure(Statement&& statement)
{
    try {
        std::forward<Statement>(statement)();
        return true;
    } catch (const platform::CProgramEnded&) {
        throw;
    } catch (...) {
        return false;
    }
}

}
