#include "platform/text/Encoding.h"
#include "base/text/Utf8.h"
#include <algorithm>
#include <cstdint>

namespace platform::text {
namespace {
constexpr std::string_view Utf8Mark = "\xEF\xBB\xBF";
constexpr std::string_view Utf16LittleMark = "\xFF\xFE";
constexpr std::string_view Utf16BigMark = "\xFE\xFF";

// Windows-1252 from 0x80 to 0x9F. The five bytes without a character keep their number, as the system's own tables do.
constexpr char32_t Windows1252[32] = {0x20AC, 0x81,   0x201A, 0x0192, 0x201E, 0x2026, 0x2020, 0x2021, 0x02C6, 0x2030, 0x0160,
                                      0x2039, 0x0152, 0x8D,   0x017D, 0x8F,   0x90,   0x2018, 0x2019, 0x201C, 0x201D, 0x2022,
                                      0x2013, 0x2014, 0x02DC, 0x2122, 0x0161, 0x203A, 0x0153, 0x9D,   0x017E, 0x0178};

std::string FromWindows1252(std::string_view bytes)
{
    std::string text;
    text.reserve(bytes.size() + bytes.size() / 8);
    for (const char byte : bytes) {
        const auto code = static_cast<std::uint8_t>(byte);
        ::text::AppendCharacter(text, code >= 0x80 && code <= 0x9F ? Windows1252[code - 0x80] : code);
    }
    return text;
}

// An odd byte at the end is left out.
std::string FromUtf16(std::string_view bytes, bool bigEndian)
{
    std::u16string units;
    units.reserve(bytes.size() / 2);
    for (std::size_t i = 0; i + 1 < bytes.size(); i += 2) {
        const auto first = static_cast<std::uint8_t>(bytes[i]);
        const auto second = static_cast<std::uint8_t>(bytes[i + 1]);
        units += static_cast<char16_t>(bigEndian ? first << 8 | second : second << 8 | first);
    }
    return ::text::ToUtf8(units);
}

// Nothing for a character that it does not have.
std::optional<char> InWindows1252(char32_t code)
{
    if (code < 0x80 || (code >= 0xA0 && code <= 0xFF))
        return static_cast<char>(code);
    const auto* const found = std::find(std::begin(Windows1252), std::end(Windows1252), code);
    if (found == std::end(Windows1252))
        return std::nullopt;
    return static_cast<char>(0x80 + (found - std::begin(Windows1252)));
}

std::optional<std::string> ToWindows1252(std::string_view text)
{
    std::string bytes;
    bytes.reserve(text.size());
    while (!text.empty()) {
        const ::text::Character character = ::text::CharacterAt(text, 0);
        const auto byte = InWindows1252(character.code);
        if (!character.IsValid() || !byte)
            return std::nullopt;
        bytes += *byte;
        text.remove_prefix(character.size);
    }
    return bytes;
}

std::string ToUtf16(std::string_view text, bool bigEndian)
{
    std::string bytes;
    bytes.reserve(text.size() * 2);
    for (const char16_t unit : ::text::ToUtf16(text)) {
        const char high = static_cast<char>(unit >> 8), low = static_cast<char>(unit & 0xFF);
        bytes += bigEndian ? high : low;
        bytes += bigEndian ? low : high;
    }
    return bytes;
}

std::string WithoutNul(std::string text)
{
    if (text.find('\0') != std::string::npos)
        text.erase(std::remove(text.begin(), text.end(), '\0'), text.end());
    return text;
}

// The text with every line end replaced by `lineEnd`.
std::string WithLineEnds(std::string_view text, std::string_view lineEnd)
{
    std::string result;
    result.reserve(text.size() + text.size() / 32);
    while (true) {
        const std::size_t end = text.find_first_of("\r\n");
        result.append(text.substr(0, end));
        if (end == std::string_view::npos)
            return result;
        result.append(lineEnd);
        text.remove_prefix(end + (text.substr(end).starts_with("\r\n") ? 2 : 1));
    }
}

bool HasOnlyCrLf(std::string_view text)
{
    std::size_t behind = 0;
    for (std::size_t at = text.find('\n'); at != std::string_view::npos; at = text.find('\n', behind)) {
        if (at == behind || text.substr(behind, at - behind).find('\r') != at - behind - 1)
            return false;
        behind = at + 1;
    }
    return text.find('\r', behind) == std::string_view::npos;
}
}

std::string WithCrLf(std::string text) { return HasOnlyCrLf(text) ? std::move(text) : WithLineEnds(text, "\r\n"); }

std::string WithLf(std::string text)
{
    return text.find('\r') == std::string::npos ? std::move(text) : WithLineEnds(text, "\n");
}

bool HasMark(std::string_view bytes)
{
    return bytes.starts_with(Utf8Mark) || bytes.starts_with(Utf16LittleMark) || bytes.starts_with(Utf16BigMark);
}

Encoding EncodingOf(std::string_view bytes)
{
    if (bytes.starts_with(Utf16LittleMark))
        return Encoding::Utf16Little;
    if (bytes.starts_with(Utf16BigMark))
        return Encoding::Utf16Big;
    if (bytes.starts_with(Utf8Mark))
        bytes.remove_prefix(Utf8Mark.size());
    return ::text::IsUtf8(bytes) ? Encoding::Utf8 : Encoding::Windows1252;
}

std::string_view MarkOf(Encoding encoding)
{
    if (encoding == Encoding::Utf16Little)
        return Utf16LittleMark;
    return encoding == Encoding::Utf16Big ? Utf16BigMark : Utf8Mark;
}

std::string Decoded(std::string bytes, Encoding encoding)
{
    if (bytes.starts_with(MarkOf(encoding)))
        bytes.erase(0, MarkOf(encoding).size());
    switch (encoding) {
    case Encoding::Utf16Little:
    case Encoding::Utf16Big:
        return WithoutNul(FromUtf16(bytes, encoding == Encoding::Utf16Big));
    case Encoding::Windows1252:
        return WithoutNul(FromWindows1252(bytes));
    case Encoding::Utf8:
        break;
    }
    return WithoutNul(std::move(bytes));
}

std::optional<std::string> Encoded(std::string_view text, Encoding encoding)
{
    switch (encoding) {
    case Encoding::Utf16Little:
    case Encoding::Utf16Big:
        return ToUtf16(text, encoding == Encoding::Utf16Big);
    case Encoding::Windows1252:
        return ToWindows1252(text);
    case Encoding::Utf8:
        break;
    }
    return std::string(text);
}

std::string TextOfBytes(std::string bytes)
{
    const Encoding encoding = EncodingOf(bytes);
    return WithCrLf(Decoded(std::move(bytes), encoding));
}

}
