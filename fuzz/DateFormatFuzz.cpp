#include "Require.h"
#include "common/DateFormat.h"
#include "platform/Failure.h"
#include <algorithm>
#include <cstdint>
#include <string>

namespace {

// A locale that answers everything with the same text, also as a format that may name itself.
class CHostileLocale final : public platform::ILocale {
public:
    explicit CHostileLocale(std::string text) : m_text(std::move(text)) {}
    std::string MonthName(int, bool) const override { return m_text; }
    std::string WeekdayName(int, bool) const override { return m_text; }
    std::string AmText() const override { return m_text; }
    std::string PmText() const override { return m_text; }
    std::string ShortDateFormat() const override { return m_text; }
    std::string LongDateFormat() const override { return m_text; }
    std::string LongTimeFormat() const override { return m_text; }

private:
    std::string m_text;
};

// Bytes of the input, one after the other; 0 behind the end.
class CInput {
public:
    CInput(const std::uint8_t* data, std::size_t size) : m_text(data, data + size) {}
    int Number(int limit)
    {
        const int number = m_text.empty() ? 0 : static_cast<unsigned char>(m_text.front()) % limit;
        Text(1);
        return number;
    }
    std::string Text(std::size_t size)
    {
        std::string text = m_text.substr(0, size);
        m_text.erase(0, size);
        return text;
    }

private:
    std::string m_text;
};

bool IsCopied(char letter)
{
    const bool isLetter = (letter | 0x20) >= 'a' && (letter | 0x20) <= 'z';
    return !isLetter && letter != '"' && letter != '\\';
}

}

// Seven bytes for the time, one for the size of the locale's text, that text, the format. Some times do not exist.
extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size)
{
    CInput input(data, size);
    platform::LocalTime time;
    time.year = input.Number(256) * 45;
    time.month = input.Number(14);
    time.day = input.Number(33);
    time.hour = input.Number(26) - 1;
    time.minute = input.Number(62) - 1;
    time.second = input.Number(62) - 1;
    time.weekday = input.Number(9) - 1;
    // Texts inside texts inside texts: each of them is short.
    const CHostileLocale locale(input.Text(static_cast<std::size_t>(input.Number(24))));
    const std::string format = input.Text(std::string::npos);
    try {
        const std::string written = common::FormatDate(time, format, locale);
        Require(written.size() <= (format.size() + 1) * 64 * 24);
        Require(!std::all_of(format.begin(), format.end(), IsCopied) || written == format);
    } catch (const platform::CFailure& failure) {
        Require(failure.Number() == 5);
    }
    return 0;
}
