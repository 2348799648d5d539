#include "platform/headless/Time.h"
#include <array>
#include <chrono>

namespace platform::headless {
namespace {

constexpr std::int64_t MillisecondsPerDay = 24LL * 60 * 60 * 1000;

constexpr std::array<const char*, 12> Months{"January", "February", "March",     "April",   "May",      "June",
                                             "July",    "August",   "September", "October", "November", "December"};
constexpr std::array<const char*, 7> Weekdays{"Sunday", "Monday", "Tuesday", "Wednesday", "Thursday", "Friday", "Saturday"};

std::string Shortened(const std::string& name, bool abbreviated) { return abbreviated ? name.substr(0, 3) : name; }

}

LocalTime CClock::Now() const
{
    m_journal.Enter("Clock.Now");
    const std::chrono::sys_days today{std::chrono::days{m_wallMilliseconds / MillisecondsPerDay}};
    const std::chrono::year_month_day date{today};
    const int second = static_cast<int>(m_wallMilliseconds % MillisecondsPerDay / 1000);
    LocalTime now;
    now.year = static_cast<int>(date.year());
    now.month = static_cast<int>(static_cast<unsigned>(date.month()));
    now.day = static_cast<int>(static_cast<unsigned>(date.day()));
    now.hour = second / 3600;
    now.minute = second / 60 % 60;
    now.second = second % 60;
    now.weekday = static_cast<int>(std::chrono::weekday{today}.c_encoding());
    return now;
}

std::int64_t CClock::SteadyMilliseconds() const
{
    m_journal.Enter("Clock.SteadyMilliseconds");
    return m_steadyMilliseconds;
}

void CClock::Set(int year, int month, int day, int hour, int minute, int second)
{
    const std::chrono::year_month_day date{std::chrono::year{year}, std::chrono::month{static_cast<unsigned>(month)},
                                           std::chrono::day{static_cast<unsigned>(day)}};
    const std::int64_t days = std::chrono::sys_days{date}.time_since_epoch().count();
    m_wallMilliseconds = days * MillisecondsPerDay + ((hour * 60LL + minute) * 60 + second) * 1000;
}

void CClock::Advance(std::int64_t milliseconds)
{
    m_wallMilliseconds += milliseconds;
    m_steadyMilliseconds += milliseconds;
}

std::string CLocale::MonthName(int month, bool abbreviated) const
{
    m_journal.Enter("Locale.MonthName " + std::to_string(month));
    if (!hasNames)
        return "";
    const auto own = monthNames.find(month);
    return Shortened(own != monthNames.end() ? own->second : Months.at(static_cast<std::size_t>(month - 1)), abbreviated);
}

std::string CLocale::WeekdayName(int weekday, bool abbreviated) const
{
    m_journal.Enter("Locale.WeekdayName " + std::to_string(weekday));
    if (!hasNames)
        return "";
    const auto own = weekdayNames.find(weekday);
    return Shortened(own != weekdayNames.end() ? own->second : Weekdays.at(static_cast<std::size_t>(weekday)), abbreviated);
}

void CRandomNumbers::Seed(double seed)
{
    m_journal.Enter("Random.Seed");
    seeds.push_back(seed);
}

double CRandomNumbers::Next()
{
    m_journal.Enter("Random.Next");
    if (fractions.empty())
        return 0;
    const double next = fractions.front();
    fractions.pop_front();
    return next;
}

void CEventPump::RunPendingEvents()
{
    m_journal.Enter("Events.RunPendingEvents");
    ++m_yields;
    if (onYield)
        onYield();
    RunDue();
}

void CEventPump::WaitForEvents(std::int32_t milliseconds)
{
    m_journal.Enter("Events.WaitForEvents");
    ++m_yields;
    std::int64_t passing = milliseconds;
    if (!m_atTime.empty() && m_atTime.begin()->first - m_now < passing)
        passing = std::max<std::int64_t>(0, m_atTime.begin()->first - m_now);
    m_now += passing;
    m_clock.Advance(passing);
    if (onTimePasses)
        onTimePasses(static_cast<std::int32_t>(passing));
    if (onYield)
        onYield();
    RunDue();
}

void CEventPump::Pass(std::int64_t milliseconds)
{
    for (std::int64_t passed = 0; passed < milliseconds; ++passed) {
        RunDue();
        ++m_now;
        m_clock.Advance(1);
    }
    RunDue();
}

void CEventPump::CallLater(std::int32_t milliseconds, std::function<void()> call)
{
    m_later.emplace(m_now + milliseconds, std::move(call));
}

void CEventPump::AtYield(std::size_t yield, std::function<void()> event)
{
    m_atYield.emplace(m_yields + yield, std::move(event));
}

void CEventPump::After(std::int64_t milliseconds, std::function<void()> event)
{
    m_atTime.emplace(m_now + milliseconds, std::move(event));
}

void CEventPump::RunDue()
{
    while (!m_atYield.empty() && m_atYield.begin()->first <= m_yields) {
        const std::function<void()> event = std::move(m_atYield.begin()->second);
        m_atYield.erase(m_atYield.begin());
        event();
    }
    RunDueOf(m_atTime);
    RunDueOf(m_later);
}

void CEventPump::RunDueOf(std::multimap<std::int64_t, std::function<void()>>& events)
{
    while (!events.empty() && events.begin()->first <= m_now) {
        const std::function<void()> event = std::move(events.begin()->second);
        events.erase(events.begin());
        event();
    }
}

}
