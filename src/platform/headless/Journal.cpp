#include "platform/headless/Journal.h"
#include <algorithm>
#include <utility>

namespace platform::headless {

void CJournal::Enter(std::string call)
{
    if (!m_noting)
        return;
    m_calls.push_back(std::move(call));
    const std::string& entered = m_calls.back();
    for (auto script = m_scripts.begin(); script != m_scripts.end(); ++script) {
        if (!entered.starts_with(script->beginning))
            continue;
        if (script->passes > 0) {
            --script->passes;
            continue;
        }
        const CFailure failure = script->failure;
        if (!script->always)
            m_scripts.erase(script);
        throw failure;
    }
}

void CJournal::FailCall(std::size_t number, CFailure failure)
{
    m_scripts.push_back({"", number - 1, false, std::move(failure)});
}

void CJournal::FailNext(std::string beginning, CFailure failure, std::size_t passes)
{
    m_scripts.push_back({std::move(beginning), passes, false, std::move(failure)});
}

void CJournal::FailAlways(std::string beginning, CFailure failure)
{
    m_scripts.push_back({std::move(beginning), 0, true, std::move(failure)});
}

void CJournal::ForgetFailures() { m_scripts.clear(); }

std::vector<std::string> CJournal::CallsOf(std::string_view beginning) const
{
    std::vector<std::string> calls;
    std::copy_if(m_calls.begin(), m_calls.end(), std::back_inserter(calls),
                 [&](const std::string& call) { return call.starts_with(beginning); });
    return calls;
}

}
