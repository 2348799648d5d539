#pragma once
#include "platform/Clock.h"
#include <QLocale>

namespace platform::linuxdesktop {

// The user's language, as the environment names it; English where the language has no word.
class CLinuxLocale final : public ILocale {
public:
    explicit CLinuxLocale(QLocale locale = QLocale::system()) : m_locale(std::move(locale)) {}
    std::string MonthName(int month, bool abbreviated) const override;
    std::string WeekdayName(int weekday, bool abbreviated) const override;
    std::string AmText() const override;
    std::string PmText() const override;
    std::string ShortDateFormat() const override;
    std::string LongDateFormat() const override;
    std::string LongTimeFormat() const override;

private:
    QLocale m_locale;
};

// The toolkit's date format in the symbols of common/DateFormat.h. A time zone is left out.
std::string PictureFormat(const QString& format);

}
