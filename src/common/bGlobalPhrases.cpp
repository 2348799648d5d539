#include "common/DateFormat.h"
#include "common/bGlobal.h"
#include "common/zbErrorTrap.h"
#include "platform/Platform.h"

namespace {

using platform::Current;
using zbErrorTrap::CGuard;

constexpr char Module[] = "bGlobal";

std::string Now(std::string_view format) { return common::FormatDate(Current().clock.Now(), format, Current().locale); }

std::string WithOrdinalSuffix(const std::string& day)
{
    if (day == "11" || day == "12" || day == "13")
        return day + "th";
    switch (day.back()) {
    case '1':
        return day + "st";
    case '2':
        return day + "nd";
    case '3':
        return day + "rd";
    default:
        return day + "th";
    }
}

std::string PartOfDay(int hour)
{
    if (hour < 12)
        return "Morning";
    return hour < 17 ? "Afternoon" : "Evening";  // Deliberate: there is no phrase for the night.
}

}

std::string bGlobal::GetDate()
{
    const CGuard guard(Module, "GetDate");
    std::string result;
    guard([&] {
        const std::string month = Now("mmmm");
        const std::string day = WithOrdinalSuffix(Now("d"));
        result = month + " " + day + ", " + Now("yyyy");
    });
    return result;
}

std::string bGlobal::GetDay()
{
    const CGuard guard(Module, "GetDay");
    std::string result;
    guard([&] { result = Now("dddd"); });
    return result;
}

std::string bGlobal::GetTime(const std::string& format)
{
    const CGuard guard(Module, "GetTime");
    std::string result;
    guard([&] { result = Now(format); });
    return result;
}

std::string bGlobal::GetTimeOfDay()
{
    const CGuard guard(Module, "GetTimeOfDay");
    std::string result;
    guard([&] { result = PartOfDay(Current().clock.Now().hour); });
    return result;
}
