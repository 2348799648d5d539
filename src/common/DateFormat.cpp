#include "common/DateFormat.h"
#include "base/text/Case.h"
#include "platform/Failure.h"
#include <algorithm>
#include <array>
#include <chrono>

namespace common {
namespace {

using platform::ILocale;
using platform::LocalTime;

constexpr std::array<const char*, 12> EnglishMonths{"January", "February", "March",     "April",   "May",      "June",
                                                    "July",    "August",   "September", "October", "November", "December"};
constexpr std::array<const char*, 7> EnglishWeekdays{"Sunday",   "Monday", "Tuesday", "Wednesday",
                                                     "Thursday", "Friday", "Saturday"};
constexpr char EnglishShortDate[] = "m/d/yyyy";
constexpr char EnglishLongDate[] = "dddd, mmmm d, yyyy";
constexpr char EnglishLongTime[] = "h:nn:ss AM/PM";

// What a symbol is written from.
struct Moment {
    const LocalTime& time;
    const ILocale& locale;
    bool nested;               // Inside a format of the locale: its own formats are not asked for again.
    bool twelveHours = false;  // Some symbol of the format writes morning or afternoon.
    int weekday = 0;
    int dayOfYear = 1;
};

std::string Write(const LocalTime& time, std::string_view format, const ILocale& locale, bool nested);

std::string Padded(int number, std::size_t digits)
{
    std::string text = std::to_string(number);
    return text.size() < digits ? text.insert(0, digits - text.size(), '0') : text;
}

std::string Name(std::string localName, std::string_view englishName, bool abbreviated)
{
    return localName.empty() ? std::string(abbreviated ? englishName.substr(0, 3) : englishName) : localName;
}

std::string Month(const Moment& moment, bool abbreviated)
{
    const int month = moment.time.month;
    return Name(moment.locale.MonthName(month, abbreviated), EnglishMonths.at(static_cast<std::size_t>(month - 1)),
                abbreviated);
}

std::string Weekday(const Moment& moment, bool abbreviated)
{
    const int weekday = moment.weekday;
    return Name(moment.locale.WeekdayName(weekday, abbreviated), EnglishWeekdays.at(static_cast<std::size_t>(weekday)),
                abbreviated);
}

std::string InLocalFormat(const Moment& moment, std::string (ILocale::*format)() const, const char* english)
{
    std::string localFormat = moment.nested ? std::string() : (moment.locale.*format)();
    return Write(moment.time, localFormat.empty() ? english : localFormat, moment.locale, true);
}

std::string ShortDate(const Moment& moment) { return InLocalFormat(moment, &ILocale::ShortDateFormat, EnglishShortDate); }
std::string LongDate(const Moment& moment) { return InLocalFormat(moment, &ILocale::LongDateFormat, EnglishLongDate); }
std::string LongTime(const Moment& moment) { return InLocalFormat(moment, &ILocale::LongTimeFormat, EnglishLongTime); }

// The complete moment; midnight is a date without a time.
std::string Complete(const Moment& moment)
{
    const LocalTime& time = moment.time;
    const bool midnight = time.hour == 0 && time.minute == 0 && time.second == 0;
    return midnight ? ShortDate(moment) : ShortDate(moment) + " " + LongTime(moment);
}

int Hour(const Moment& moment)
{
    if (!moment.twelveHours)
        return moment.time.hour;
    return moment.time.hour % 12 == 0 ? 12 : moment.time.hour % 12;
}

// Weeks begin on Sunday; the one with 1 January is the first.
int Week(const Moment& moment)
{
    const int firstWeekday = (moment.weekday - (moment.dayOfYear - 1) % 7 + 7) % 7;
    return (moment.dayOfYear - 1 + firstWeekday) / 7 + 1;
}

bool Morning(const Moment& moment) { return moment.time.hour < 12; }

std::string HalfOfDay(const Moment& moment)
{
    const std::string local = Morning(moment) ? moment.locale.AmText() : moment.locale.PmText();
    return Name(local, Morning(moment) ? "AM" : "PM", false);
}

struct Symbol {
    std::string_view name;
    std::string (*text)(const Moment&);
};

// Of the symbols that begin alike, the longest comes first.
constexpr Symbol Symbols[] = {
    {"dddddd", LongDate},
    {"ddddd", ShortDate},
    {"dddd", [](const Moment& moment) { return Weekday(moment, false); }},
    {"ddd", [](const Moment& moment) { return Weekday(moment, true); }},
    {"dd", [](const Moment& moment) { return Padded(moment.time.day, 2); }},
    {"d", [](const Moment& moment) { return Padded(moment.time.day, 1); }},
    {"ww", [](const Moment& moment) { return Padded(Week(moment), 1); }},
    {"w", [](const Moment& moment) { return Padded(moment.weekday + 1, 1); }},
    {"mmmm", [](const Moment& moment) { return Month(moment, false); }},
    {"mmm", [](const Moment& moment) { return Month(moment, true); }},
    {"mm", [](const Moment& moment) { return Padded(moment.time.month, 2); }},
    {"m", [](const Moment& moment) { return Padded(moment.time.month, 1); }},
    {"q", [](const Moment& moment) { return Padded((moment.time.month + 2) / 3, 1); }},
    {"yyyy", [](const Moment& moment) { return Padded(moment.time.year, 4); }},
    {"yy", [](const Moment& moment) { return Padded(moment.time.year % 100, 2); }},
    {"y", [](const Moment& moment) { return Padded(moment.dayOfYear, 1); }},
    {"hh", [](const Moment& moment) { return Padded(Hour(moment), 2); }},
    {"h", [](const Moment& moment) { return Padded(Hour(moment), 1); }},
    {"nn", [](const Moment& moment) { return Padded(moment.time.minute, 2); }},
    {"n", [](const Moment& moment) { return Padded(moment.time.minute, 1); }},
    {"ss", [](const Moment& moment) { return Padded(moment.time.second, 2); }},
    {"s", [](const Moment& moment) { return Padded(moment.time.second, 1); }},
    {"ttttt", LongTime},
    {"c", Complete},
    {"am/pm", [](const Moment& moment) { return std::string(Morning(moment) ? "AM" : "PM"); }},
    {"a/p", [](const Moment& moment) { return std::string(Morning(moment) ? "A" : "P"); }},
    {"ampm", HalfOfDay},
};

// A symbol as it stands in the format, or a text to copy.
struct Token {
    const Symbol* symbol;
    std::string_view text;
};

Token TakeLiteral(std::string_view& format)
{
    const std::size_t marks = format.front() == '"' || (format.front() == '\\' && format.size() > 1) ? 1 : 0;
    const std::size_t end = format.front() == '"' ? std::min(format.find('"', 1), format.size()) : marks + 1;
    const Token token{nullptr, format.substr(marks, end - marks)};
    format.remove_prefix(std::min(format.size(), format.front() == '"' ? end + 1 : end));
    return token;
}

// Most letters of a format begin no symbol, and each symbol is asked: the first letter decides nearly always.
bool Begins(std::string_view format, std::string_view name)
{
    constexpr char SmallLetter = 'a' ^ 'A';
    return (format.front() | SmallLetter) == name.front() && text::EqualIgnoringCase(format.substr(0, name.size()), name);
}

Token TakeToken(std::string_view& format)
{
    for (const Symbol& symbol : Symbols)
        if (Begins(format, symbol.name)) {
            const Token token{&symbol, format.substr(0, symbol.name.size())};
            format.remove_prefix(symbol.name.size());
            return token;
        }
    return TakeLiteral(format);
}

bool IsHalfOfDay(const Token& token) { return token.symbol != nullptr && token.symbol->name.front() == 'a'; }

bool HasHalfOfDay(std::string_view format)
{
    while (!format.empty())
        if (IsHalfOfDay(TakeToken(format)))
            return true;
    return false;
}

std::string TextOf(const Token& token, const Moment& moment)
{
    if (token.symbol == nullptr)
        return std::string(token.text);
    const std::string text = token.symbol->text(moment);
    const bool wantsSmallLetters = token.symbol->name.find('/') != std::string_view::npos && token.text.front() == 'a';
    return wantsSmallLetters ? text::Lower(text) : text;
}

bool IsMonthNumber(const Token& token) { return token.symbol->name == "m" || token.symbol->name == "mm"; }

std::string WriteTokens(std::string_view format, const Moment& moment)
{
    std::string written;
    bool afterHour = false;
    while (!format.empty()) {
        const Token token = TakeToken(format);
        if (token.symbol != nullptr && afterHour && IsMonthNumber(token))
            written += Padded(moment.time.minute, token.text.size());
        else
            written += TextOf(token, moment);
        if (token.symbol != nullptr)
            afterHour = token.symbol->name.front() == 'h';
    }
    return written;
}

std::string Write(const LocalTime& time, std::string_view format, const ILocale& locale, bool nested)
{
    using std::chrono::sys_days;
    const std::chrono::year year{time.year};
    const sys_days day{year / time.month / time.day};
    const sys_days newYear{year / 1 / 1};
    Moment moment{time, locale, nested};
    moment.twelveHours = HasHalfOfDay(format);
    moment.weekday = static_cast<int>(std::chrono::weekday{day}.c_encoding());
    moment.dayOfYear = static_cast<int>((day - newYear).count()) + 1;
    return WriteTokens(format, moment);
}

bool Within(int number, int low, int high) { return number >= low && number <= high; }

bool IsValid(const LocalTime& time)
{
    return Within(time.year, 1, 9999) && Within(time.month, 1, 12) && Within(time.day, 1, 31) && Within(time.hour, 0, 23) &&
           Within(time.minute, 0, 59) && Within(time.second, 0, 60) &&
           (std::chrono::year{time.year} / time.month / time.day).ok();
}

struct NamedFormat {
    std::string_view name;
    std::string_view format;
};
constexpr NamedFormat NamedFormats[] = {
    {"General Date", "c"},  {"Long Date", "dddddd"},        {"Medium Date", "dd-mmm-yy"}, {"Short Date", "ddddd"},
    {"Long Time", "ttttt"}, {"Medium Time", "hh:nn AM/PM"}, {"Short Time", "hh:nn"},
};

}

std::string FormatDate(const LocalTime& time, std::string_view format, const ILocale& locale)
{
    if (!IsValid(time))
        throw platform::failure::InvalidCall();
    for (const NamedFormat& named : NamedFormats)
        if (text::EqualIgnoringCase(format, named.name))
            return Write(time, named.format, locale, false);
    return Write(time, format, locale, false);
}

}
