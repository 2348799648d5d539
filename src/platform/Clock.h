#pragma once
#include <cstdint>
#include <string>

namespace platform {

struct LocalTime {
    int year = 1970;
    int month = 1;  // 1 to 12.
    int day = 1;    // 1 to 31.
    int hour = 0;   // 0 to 23.
    int minute = 0;
    int second = 0;
    int weekday = 0;  // 0 Sunday to 6 Saturday.
};

class IClock {
public:
    virtual ~IClock() = default;
    virtual LocalTime Now() const = 0;                    // The user's wall clock.
    virtual std::int64_t SteadyMilliseconds() const = 0;  // Never jumps; any origin.
};

// How the user's language spells dates. Every answer may be "" where the system has none.
class ILocale {
public:
    virtual ~ILocale() = default;
    virtual std::string MonthName(int month, bool abbreviated) const = 0;
    virtual std::string WeekdayName(int weekday, bool abbreviated) const = 0;
    virtual std::string AmText() const = 0;
    virtual std::string PmText() const = 0;
    // Picture formats of the user's short and long date and long time, in the symbols of common/DateFormat.h.
    virtual std::string ShortDateFormat() const = 0;
    virtual std::string LongDateFormat() const = 0;
    virtual std::string LongTimeFormat() const = 0;
};

}
