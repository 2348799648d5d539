#include "platform/linux/LinuxLocale.h"

namespace platform::linuxdesktop {
namespace {
QString Or(const QString& text, const QString& otherwise) { return text.isEmpty() ? otherwise : text; }

QLocale::FormatType Length(bool abbreviated) { return abbreviated ? QLocale::ShortFormat : QLocale::LongFormat; }

int FromMonday(int weekday) { return weekday == 0 ? 7 : weekday; }

// Takes what is between two quotes, or the doubled quote that stands for one, from the place of the first quote.
QString TakeQuoted(const QString& format, qsizetype& at)
{
    if (format.mid(at, 2) == QLatin1String("''")) {
        at += 2;
        return QStringLiteral("'");
    }
    const qsizetype end = format.indexOf(QLatin1Char('\''), at + 1);
    const QString text = format.mid(at + 1, end < 0 ? -1 : end - at - 1);
    at = end < 0 ? format.size() : end + 1;
    return QLatin1Char('"') + text + QLatin1Char('"');
}

QString SymbolFor(QChar letter)
{
    switch (letter.unicode()) {
    case 'M':
        return QStringLiteral("m");
    case 'm':
        return QStringLiteral("n");
    case 'H':
        return QStringLiteral("h");
    case 't':
    case 'z':
        return {};
    default:
        return letter;
    }
}
}

std::string PictureFormat(const QString& format)
{
    QString picture;
    for (qsizetype at = 0; at < format.size();) {
        if (format[at] == QLatin1Char('\'')) {
            picture += TakeQuoted(format, at);
        } else if (format[at].toUpper() == QLatin1Char('A')) {
            picture += QLatin1String("AM/PM");
            at += format.mid(at + 1, 1).toUpper() == QLatin1String("P") ? 2 : 1;
        } else {
            picture += SymbolFor(format[at++]);
        }
    }
    return picture.trimmed().toStdString();
}

std::string CLinuxLocale::MonthName(int month, bool abbreviated) const
{
    const QString name = m_locale.monthName(month, Length(abbreviated));
    return Or(name, QLocale::c().monthName(month, Length(abbreviated))).toStdString();
}

std::string CLinuxLocale::WeekdayName(int weekday, bool abbreviated) const
{
    const QString name = m_locale.dayName(FromMonday(weekday), Length(abbreviated));
    return Or(name, QLocale::c().dayName(FromMonday(weekday), Length(abbreviated))).toStdString();
}

std::string CLinuxLocale::AmText() const { return Or(m_locale.amText(), QStringLiteral("AM")).toStdString(); }

std::string CLinuxLocale::PmText() const { return Or(m_locale.pmText(), QStringLiteral("PM")).toStdString(); }

std::string CLinuxLocale::ShortDateFormat() const { return PictureFormat(m_locale.dateFormat(QLocale::ShortFormat)); }

std::string CLinuxLocale::LongDateFormat() const { return PictureFormat(m_locale.dateFormat(QLocale::LongFormat)); }

std::string CLinuxLocale::LongTimeFormat() const { return PictureFormat(m_locale.timeFormat(QLocale::LongFormat)); }

}
