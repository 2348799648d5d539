#pragma once
#include "platform/Clock.h"
#include <string_view>

namespace platform::windowsdesktop {

// The user's own settings of language and date.
class CWindowsLocale final : public ILocale {
public:
    std::string MonthName(int month, bool abbreviated) const override;
    std::string WeekdayName(int weekday, bool abbreviated) const override;
    std::string AmText() const override;
    std::string PmText() const override;
    std::string ShortDateFormat() const override;
    std::string LongDateFormat() const override;
    std::string LongTimeFormat() const override;
};

// The system's date or time format in the symbols of common/DateFormat.h. An era is left out.
std::string PictureFormat(std::string_view format);

}
