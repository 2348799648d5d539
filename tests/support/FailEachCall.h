#pragma once
#include "platform/headless/Desktop.h"
#include <algorithm>
#include <gtest/gtest.h>
#include <string>
#include <vector>

// Plays a procedure once for each platform call that it makes, and makes that call fail. Each play has a desktop of its
// own: `prepare(desktop)` sets it up, unfailed; `act(desktop)` runs the procedure; `check(run)` looks at what became of it.
namespace support {

inline constexpr std::int32_t FailedNumber = 57;
inline constexpr char FailedDescription[] = "Device I/O error";

// One play, in which one call failed.
struct FailedRun {
    CHeadlessDesktop& desktop;
    std::string call;  // The call that failed, as the journal notes it.

    bool FailedIn(std::string_view beginning) const { return call.starts_with(beginning); }
    // What the error trap reported, as "module:procedure", one text per report.
    std::vector<std::string> Reports() const
    {
        std::vector<std::string> reports;
        for (const platform::headless::ShownBox& box : desktop.messageBoxes.shown)
            if (box.title == "Parlune 2.6 Unexpected Error")
                reports.push_back(box.Line(1).substr(std::string("Section: ").size()));
        return reports;
    }
};

// Which procedure reports the failure of which calls: the first rule whose beginning fits the call holds. The beginning ""
// fits every call; the section "" means that nothing is reported.
struct ReportRule {
    std::string callBeginning;
    std::string section;  // "module:procedure"
};

// Expects exactly the report that the rules name, with the failure that was played, and no other.
inline void ExpectReport(const FailedRun& run, const std::vector<ReportRule>& rules)
{
    const auto rule =
        std::find_if(rules.begin(), rules.end(), [&](const ReportRule& each) { return run.FailedIn(each.callBeginning); });
    ASSERT_NE(rule, rules.end()) << "no rule says who reports the failure of " << run.call;
    if (rule->section.empty()) {
        EXPECT_EQ(run.Reports(), std::vector<std::string>{});
        return;
    }
    EXPECT_EQ(run.Reports(), std::vector<std::string>{rule->section});
    for (const platform::headless::ShownBox& box : run.desktop.messageBoxes.shown)
        if (box.title == "Parlune 2.6 Unexpected Error") {
            EXPECT_EQ(box.Line(3), "Error Code: 57");
            EXPECT_EQ(box.Line(4), "'Device I/O error'");
        }
}

// The platform calls of a play in which nothing fails.
template <class Prepare, class Act> std::vector<std::string> CallsOfPlay(Prepare prepare, Act act)
{
    CHeadlessDesktop desktop;
    prepare(desktop);
    desktop.journal.Clear();
    act(desktop);
    return desktop.journal.Calls();
}

template <class Prepare, class Act, class Check> void FailEachCall(Prepare prepare, Act act, Check check)
{
    const std::vector<std::string> calls = CallsOfPlay(prepare, act);
    ASSERT_FALSE(calls.empty()) << "the procedure makes no platform call at all";
    for (std::size_t number = 1; number <= calls.size(); ++number) {
        CHeadlessDesktop desktop;
        prepare(desktop);
        desktop.journal.Clear();
        desktop.journal.FailCall(number, platform::CFailure(FailedNumber, FailedDescription));
        act(desktop);
        const FailedRun run{desktop, calls[number - 1]};
        SCOPED_TRACE("failed call " + std::to_string(number) + ": " + run.call);
        check(run);
    }
}

// The usual case: only the reports are looked at.
template <class Prepare, class Act>
void FailEachCallAndExpect(const std::vector<ReportRule>& rules, Prepare prepare, Act act)
{
    FailEachCall(prepare, act, [&](const FailedRun& run) { ExpectReport(run, rules); });
}

}
