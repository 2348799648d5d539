#pragma once
#include "platform/Clock.h"
#include <string>
#include <string_view>

namespace common {

// A date and time written in a format of symbols: d dd ddd dddd ddddd dddddd w ww m mm mmm mmmm q y yy yyyy h hh n nn s ss
// ttttt c, AM/PM am/pm A/P a/p AMPM, ":" and "/" separators, "\x" and "quoted" text; "m" and "mm" right after an hour mean
// minutes. Letters of a symbol ignore case; every other character is copied. `weekday` and yearday follow from the date.
// "General Date", "Long Date", "Medium Date", "Short Date", "Long Time", "Medium Time" and "Short Time" name whole formats.
// Throws 5 for a date or time that does not exist.
std::string FormatDate(const platform::LocalTime& time, std::string_view format, const platform::ILocale& locale);

}
