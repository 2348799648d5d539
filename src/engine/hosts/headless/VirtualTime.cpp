#include "engine/hosts/headless/VirtualTime.h"
#include <algorithm>

namespace engine {

TimerID CVirtualTime::CallLater(std::int32_t milliseconds, std::function<void()> call)
{
    const TimerID id = ++m_last;
    const std::int64_t due = m_now + std::max(0, milliseconds);
    m_due.emplace(id, due);
    m_calls.emplace(Key{due, id}, std::move(call));  // Last: a call that nobody has the number of is never made.
    return id;
}

void CVirtualTime::Cancel(TimerID timer)
{
    const auto found = m_due.find(timer);
    if (found == m_due.end())
        return;
    m_calls.erase(Key{found->second, timer});
    m_due.erase(found);
}

void CVirtualTime::RunFirst()
{
    const auto first = m_calls.begin();
    m_now = std::max(m_now, first->first.first);
    const std::function<void()> call = std::move(first->second);
    m_due.erase(first->first.second);
    m_calls.erase(first);
    ++m_made;
    call();
}

void CVirtualTime::Advance(std::int64_t milliseconds)
{
    const std::int64_t end = m_now + milliseconds;
    while (!m_calls.empty() && m_calls.begin()->first.first <= end)
        RunFirst();
    m_now = std::max(m_now, end);
}

bool CVirtualTime::RunUntilIdle(std::int64_t mostMilliseconds)
{
    const std::int64_t end = m_now + mostMilliseconds;
    while (!m_calls.empty() && m_calls.begin()->first.first <= end)
        RunFirst();
    return m_calls.empty();
}

}
