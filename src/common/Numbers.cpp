#include "common/Numbers.h"
#include "base/text/Case.h"
#include "base/text/Text.h"
#include "platform/Failure.h"
#include <algorithm>
#include <charconv>
#include <cmath>
#include <limits>
#include <system_error>

namespace text {
namespace {

constexpr double Infinite = std::numeric_limits<double>::infinity();

// A number at the start of a text. No number: size 0.
struct Scan {
    double value = 0;
    std::size_t size = 0;
};

bool IsDigit(char letter) { return letter >= '0' && letter <= '9'; }

std::size_t DigitsAt(std::string_view text, std::size_t offset)
{
    std::size_t count = 0;
    while (offset + count < text.size() && IsDigit(text[offset + count]))
        ++count;
    return count;
}

bool IsSignAt(std::string_view text, std::size_t offset)
{
    return offset < text.size() && (text[offset] == '+' || text[offset] == '-');
}

// The size of an exponent with at least one digit, else 0.
std::size_t ExponentSize(std::string_view text, std::size_t offset)
{
    constexpr std::string_view marks = "eEdD";
    if (offset >= text.size() || marks.find(text[offset]) == std::string_view::npos)
        return 0;
    const std::size_t sign = IsSignAt(text, offset + 1) ? 1 : 0;
    const std::size_t digits = DigitsAt(text, offset + 1 + sign);
    return digits == 0 ? 0 : 1 + sign + digits;
}

// A number that no double can hold is infinite when it is large and 0 when it is tiny: its first digit that counts decides.
double BeyondDouble(std::string_view mantissa, std::string_view exponent)
{
    const std::size_t point = std::min(mantissa.find('.'), mantissa.size());
    const std::size_t first = mantissa.find_first_of("123456789");
    double power = 0;
    for (const char letter : exponent)
        power = IsDigit(letter) ? power * 10 + (letter - '0') : power;
    if (exponent.find('-') != std::string_view::npos)
        power = -power;
    return static_cast<double>(point) - static_cast<double>(first) + power > 0 ? Infinite : 0;
}

// `number` has digits, at most one point, and perhaps an exponent of `exponentSize` bytes.
double ValueOf(std::string_view number, std::size_t exponentSize)
{
    std::string classic(number);
    const std::size_t mantissaSize = number.size() - exponentSize;
    if (exponentSize > 0)
        classic[mantissaSize] = 'e';
    double value = 0;
    const auto result = std::from_chars(classic.data(), classic.data() + classic.size(), value);
    if (result.ec == std::errc::result_out_of_range)
        return BeyondDouble(number.substr(0, mantissaSize), number.substr(mantissaSize));
    return value;
}

Scan ScanDecimal(std::string_view text)
{
    const std::size_t sign = IsSignAt(text, 0) ? 1 : 0;
    const std::size_t whole = DigitsAt(text, sign);
    std::size_t end = sign + whole;
    std::size_t fraction = 0;
    if (end < text.size() && text[end] == '.') {
        fraction = DigitsAt(text, end + 1);
        end += 1 + fraction;
    }
    if (whole + fraction == 0)
        return {};
    const std::size_t exponent = ExponentSize(text, end);
    end += exponent;
    const double value = ValueOf(text.substr(sign, end - sign), exponent);
    return {text.front() == '-' ? -value : value, end};
}

unsigned DigitValue(char letter)
{
    if (IsDigit(letter))
        return static_cast<unsigned>(letter - '0');
    const char lower = static_cast<char>(letter | 0x20);
    return lower >= 'a' && lower <= 'f' ? static_cast<unsigned>(lower - 'a') + 10U : 99U;
}

// "&H" or "&O" and digits: the bits of a signed 32-bit number.
Scan ScanRadix(std::string_view text)
{
    const unsigned bitsPerDigit = EqualIgnoringCase(text.substr(0, 2), "&H") ? 4 : 3;
    std::uint64_t bits = 0;
    std::size_t end = 2;
    for (; end < text.size() && DigitValue(text[end]) < (1U << bitsPerDigit); ++end)
        bits = std::min<std::uint64_t>(bits << bitsPerDigit | DigitValue(text[end]), 0x100000000U);
    if (end == 2)
        return {};
    if (bits > 0xFFFFFFFFU)
        return {Infinite, end};
    return {static_cast<double>(static_cast<std::int32_t>(static_cast<std::uint32_t>(bits))), end};
}

Scan ScanNumber(std::string_view text)
{
    const std::string_view mark = text.substr(0, 2);
    return EqualIgnoringCase(mark, "&H") || EqualIgnoringCase(mark, "&O") ? ScanRadix(text) : ScanDecimal(text);
}

std::string WithoutBlanks(std::string_view text)
{
    std::string packed;
    for (const char letter : text)
        if (letter != ' ' && letter != '\t' && letter != '\r' && letter != '\n')
            packed += letter;
    return packed;
}

template <class Integer> Integer Rounded(double number)
{
    const double rounded = std::nearbyint(number);
    if (!(rounded >= std::numeric_limits<Integer>::min() && rounded <= std::numeric_limits<Integer>::max()))
        throw platform::failure::Overflow();
    return static_cast<Integer>(rounded);
}

}

double LeadingNumber(std::string_view text) { return ScanNumber(WithoutBlanks(text)).value; }

double WholeNumberText(std::string_view text)
{
    const std::string_view number = Trim(text);
    const Scan scan = ScanNumber(number);
    if (scan.size == 0 || scan.size != number.size())
        throw platform::failure::TypeMismatch();
    return scan.value;
}

std::int32_t ToInt32(double number) { return Rounded<std::int32_t>(number); }
std::int16_t ToInt16(double number) { return Rounded<std::int16_t>(number); }
std::int32_t ToInt32(std::string_view text) { return ToInt32(WholeNumberText(text)); }
std::int16_t ToInt16(std::string_view text) { return ToInt16(WholeNumberText(text)); }

}
