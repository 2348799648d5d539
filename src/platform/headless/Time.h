#pragma once
#include "platform/Clock.h"
#include "platform/EventPump.h"
#include "platform/RandomNumbers.h"
#include "platform/headless/Journal.h"
#include <deque>
#include <functional>
#include <map>
#include <vector>

namespace platform::headless {

// Virtual time: it advances only when a test or a wait of the program says so.
class CClock final : public IClock {
public:
    explicit CClock(CJournal& journal) : m_journal(journal) {}
    LocalTime Now() const override;
    std::int64_t SteadyMilliseconds() const override;

    // For tests: the wall clock from now on; the weekday follows from the date.
    void Set(int year, int month, int day, int hour, int minute, int second = 0);
    void Advance(std::int64_t milliseconds);

private:
    CJournal& m_journal;
    std::int64_t m_wallMilliseconds = 0;  // Since 1970-01-01 00:00, local.
    std::int64_t m_steadyMilliseconds = 0;
};

// English names by default; empty them to play a system that has none.
class CLocale final : public ILocale {
public:
    explicit CLocale(CJournal& journal) : m_journal(journal) {}
    std::string MonthName(int month, bool abbreviated) const override;
    std::string WeekdayName(int weekday, bool abbreviated) const override;
    std::string AmText() const override { return hasNames ? am : ""; }
    std::string PmText() const override { return hasNames ? pm : ""; }
    std::string ShortDateFormat() const override { return hasNames ? "m/d/yyyy" : ""; }
    std::string LongDateFormat() const override { return hasNames ? "dddd, mmmm d, yyyy" : ""; }
    std::string LongTimeFormat() const override { return hasNames ? "h:nn:ss AM/PM" : ""; }

    bool hasNames = true;
    std::map<int, std::string> monthNames;  // Used instead of the English ones where present.
    std::map<int, std::string> weekdayNames;
    std::string am = "AM";
    std::string pm = "PM";

private:
    CJournal& m_journal;
};

// Answers with the scripted fractions in turn, then with 0.
class CRandomNumbers final : public IRandomNumbers {
public:
    explicit CRandomNumbers(CJournal& journal) : m_journal(journal) {}
    void Seed(double seed) override;
    double Next() override;

    std::deque<double> fractions;
    std::vector<double> seeds;

private:
    CJournal& m_journal;
};

// Events happen when the program yields: scripted ones at a certain yield or time.
class CEventPump final : public IEventPump {
public:
    CEventPump(CJournal& journal, CClock& clock) : m_journal(journal), m_clock(clock) {}
    void RunPendingEvents() override;
    void WaitForEvents(std::int32_t milliseconds) override;  // Advances the clock.
    // Not noted, for it asks nothing of the system that could fail; and no wait is shorter for it.
    void CallLater(std::int32_t milliseconds, std::function<void()> call) override;

    // For tests. `yield` counts from now; 1 is the next one. An event runs once.
    void AtYield(std::size_t yield, std::function<void()> event);
    void After(std::int64_t milliseconds, std::function<void()> event);
    std::size_t Yields() const { return m_yields; }
    void Pass(std::int64_t milliseconds);  // The program is idle meanwhile: events that come due happen.
    // Called with the milliseconds that pass, so that other virtual times keep step.
    std::function<void(std::int32_t)> onTimePasses;
    // Called at each yield, before the scripted events.
    std::function<void()> onYield;

private:
    void RunDue();
    void RunDueOf(std::multimap<std::int64_t, std::function<void()>>& events);
    CJournal& m_journal;
    CClock& m_clock;
    std::size_t m_yields = 0;
    std::int64_t m_now = 0;
    std::multimap<std::size_t, std::function<void()>> m_atYield;
    std::multimap<std::int64_t, std::function<void()>> m_atTime;
    std::multimap<std::int64_t, std::function<void()>> m_later;
};

}
