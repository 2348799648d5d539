#pragma once
#include "platform/Failure.h"
#include <cstddef>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace platform::headless {

// Every call that the program makes of the headless platform, in order, as text: "Service.Procedure" and its arguments,
// separated by blanks. Any of them can be made to fail.
class CJournal {
public:
    // Notes a call; throws the failure that was scripted for it.
    void Enter(std::string call);

    // The call with this number from now on (1 is the next one) fails.
    void FailCall(std::size_t number, CFailure failure);
    // The next call whose text begins with `beginning` fails; after `passes` such calls that succeed.
    void FailNext(std::string beginning, CFailure failure, std::size_t passes = 0);
    // Every call whose text begins with `beginning` fails from now on.
    void FailAlways(std::string beginning, CFailure failure);
    void ForgetFailures();

    const std::vector<std::string>& Calls() const { return m_calls; }
    std::vector<std::string> CallsOf(std::string_view beginning) const;
    std::size_t Count(std::string_view beginning) const { return CallsOf(beginning).size(); }
    void Clear() { m_calls.clear(); }
    // Without noting no call fails either. For benchmarks, which make millions of calls.
    void SetNoting(bool noting) { m_noting = noting; }

private:
    struct Script {
        std::string beginning;
        std::size_t passes;
        bool always;
        CFailure failure;
    };
    std::vector<std::string> m_calls;
    bool m_noting = true;
    std::vector<Script> m_scripts;
};

}
