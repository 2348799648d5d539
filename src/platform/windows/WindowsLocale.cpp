#include "platform/windows/WindowsLocale.h"
#include "platform/windows/Text.h"
#include "platform/windows/Win32.h"
#include <algorithm>
#include <iterator>

namespace platform::windowsdesktop {
namespace {
std::string InfoOfUser(LCTYPE type)
{
    wchar_t text[256] = {};
    const int length = GetLocaleInfoW(LOCALE_USER_DEFAULT, type, text, static_cast<int>(std::size(text)));
    return length > 0 ? FromWide(std::wstring_view(text, static_cast<std::size_t>(length) - 1)) : "";
}

// The types of a list of names follow each other.
std::string NameOfUser(LCTYPE first, int index) { return InfoOfUser(first + static_cast<LCTYPE>(index)); }

// Takes what is between two quotes, or the doubled quote that stands for one, from the place of the first quote.
std::string TakeQuoted(std::string_view format, std::size_t& at)
{
    if (format.substr(at, 2) == "''") {
        at += 2;
        return "'";
    }
    const std::size_t end = std::min(format.find('\'', at + 1), format.size());
    const std::string text(format.substr(at + 1, end - at - 1));
    at = end + 1;
    return '"' + text + '"';
}

// Takes the letters of one designator of the half of the day.
std::string TakeHalfOfDay(std::string_view format, std::size_t& at)
{
    const std::size_t end = std::min(format.find_first_not_of('t', at), format.size());
    const bool whole = end - at > 1;
    at = end;
    return whole ? "AM/PM" : "A/P";
}

std::string SymbolFor(char letter)
{
    switch (letter) {
    case 'M':
        return "m";
    case 'm':
        return "n";
    case 'H':
        return "h";
    case 'g':
        return "";
    default:
        return {letter};
    }
}

std::string WithoutBlanksAround(const std::string& text)
{
    const std::size_t first = text.find_first_not_of(' ');
    return first == std::string::npos ? "" : text.substr(first, text.find_last_not_of(' ') - first + 1);
}
}

std::string PictureFormat(std::string_view format)
{
    std::string picture;
    for (std::size_t at = 0; at < format.size();) {
        if (format[at] == '\'')
            picture += TakeQuoted(format, at);
        else if (format[at] == 't')
            picture += TakeHalfOfDay(format, at);
        else
            picture += SymbolFor(format[at++]);
    }
    return WithoutBlanksAround(picture);
}

std::string CWindowsLocale::MonthName(int month, bool abbreviated) const
{
    if (month < 1 || month > 12)
        return "";
    return NameOfUser(abbreviated ? LOCALE_SABBREVMONTHNAME1 : LOCALE_SMONTHNAME1, month - 1);
}

// The system's week begins on Monday.
std::string CWindowsLocale::WeekdayName(int weekday, bool abbreviated) const
{
    if (weekday < 0 || weekday > 6)
        return "";
    return NameOfUser(abbreviated ? LOCALE_SABBREVDAYNAME1 : LOCALE_SDAYNAME1, (weekday + 6) % 7);
}

std::string CWindowsLocale::AmText() const { return InfoOfUser(LOCALE_S1159); }

std::string CWindowsLocale::PmText() const { return InfoOfUser(LOCALE_S2359); }

std::string CWindowsLocale::ShortDateFormat() const { return PictureFormat(InfoOfUser(LOCALE_SSHORTDATE)); }

std::string CWindowsLocale::LongDateFormat() const { return PictureFormat(InfoOfUser(LOCALE_SLONGDATE)); }

std::string CWindowsLocale::LongTimeFormat() const { return PictureFormat(InfoOfUser(LOCALE_STIMEFORMAT)); }

}
