#include "platform/text/RegistryText.h"
#include <algorithm>
#include <charconv>
#include <cstdint>
#include <utility>

namespace platform::text {
namespace {
constexpr std::string_view FirstLine = "# Parlune registry 1";
constexpr std::string_view LastLine = "# end";
constexpr std::string_view ByteOrderMark = "\xEF\xBB\xBF";
constexpr std::pair<Root, std::string_view> RootNames[] = {{Root::ClassesRoot, "ClassesRoot"},
                                                           {Root::CurrentUser, "CurrentUser"}};

bool IsControl(char c) { return static_cast<std::uint8_t>(c) < 0x20 || c == 0x7F; }

std::string HexByte(char c)
{
    constexpr char Digits[] = "0123456789ABCDEF";
    const auto byte = static_cast<std::uint8_t>(c);
    return {Digits[byte >> 4], Digits[byte & 0xF]};
}

std::optional<char> ByteOfHex(std::string_view digits)
{
    unsigned value = 0;
    const char* end = digits.data() + digits.size();
    const auto result = std::from_chars(digits.data(), end, value, 16);
    if (digits.size() != 2 || result.ec != std::errc() || result.ptr != end)
        return std::nullopt;
    return static_cast<char>(static_cast<std::uint8_t>(value));
}

// Writing.

std::string Escaped(char c)
{
    switch (c) {
    case '\\':
        return "\\\\";
    case '"':
        return "\\\"";
    case '\r':
        return "\\r";
    case '\n':
        return "\\n";
    case '\t':
        return "\\t";
    default:
        return IsControl(c) ? "\\x" + HexByte(c) : std::string(1, c);
    }
}

std::string InQuotes(std::string_view text)
{
    std::string quoted = "\"";
    for (const char c : text)
        quoted += Escaped(c);
    return quoted + '"';
}

std::string KeyLine(std::string_view root, std::string_view path)
{
    std::string line = "[" + std::string(root) + (path.empty() ? "" : "\\");
    for (const char c : path)
        line += IsControl(c) || c == '%' ? '%' + HexByte(c) : std::string(1, c);
    return line + "]\n";
}

std::string ValueLine(const RegistryValue& value)
{
    const std::string name = value.name.empty() ? "@" : InQuotes(value.name);
    const auto* text = std::get_if<std::string>(&value.data);
    return name + " = " + (text ? InQuotes(*text) : std::to_string(std::get<std::int32_t>(value.data))) + "\n";
}

// Reading. Each of these takes what it reads from the start of `rest`.

std::optional<char> TakeEscape(std::string_view& rest)
{
    constexpr std::string_view Letters = "\\\"rnt";
    constexpr std::string_view Meanings = "\\\"\r\n\t";
    if (rest.empty())
        return std::nullopt;
    const char letter = rest[0];
    rest.remove_prefix(1);
    if (const std::size_t at = Letters.find(letter); at != std::string_view::npos)
        return Meanings[at];
    const auto byte = letter == 'x' ? ByteOfHex(rest.substr(0, 2)) : std::nullopt;
    if (byte)
        rest.remove_prefix(2);
    return byte;
}

std::optional<std::string> TakeQuoted(std::string_view& rest)
{
    if (!rest.starts_with('"'))
        return std::nullopt;
    rest.remove_prefix(1);
    std::string text;
    while (!rest.empty()) {
        const char c = rest[0];
        rest.remove_prefix(1);
        if (c == '"')
            return text;
        const auto meant = c == '\\' ? TakeEscape(rest) : c;
        if (!meant)
            return std::nullopt;
        text += *meant;
    }
    return std::nullopt;
}

std::optional<std::string> TakeName(std::string_view& rest)
{
    if (!rest.starts_with('@'))
        return TakeQuoted(rest);
    rest.remove_prefix(1);
    return "";
}

void SkipBlanks(std::string_view& rest) { rest.remove_prefix(std::min(rest.find_first_not_of(" \t"), rest.size())); }

std::optional<RegistryData> TakeData(std::string_view& rest)
{
    if (rest.starts_with('"'))
        return TakeQuoted(rest);
    std::int32_t number = 0;
    const auto result = std::from_chars(rest.data(), rest.data() + rest.size(), number);
    if (result.ec != std::errc())
        return std::nullopt;
    rest.remove_prefix(static_cast<std::size_t>(result.ptr - rest.data()));
    return number;
}

std::optional<RegistryValue> ValueOfLine(std::string_view line)
{
    auto name = TakeName(line);
    SkipBlanks(line);
    if (!name || !line.starts_with('='))
        return std::nullopt;
    line.remove_prefix(1);
    SkipBlanks(line);
    auto data = TakeData(line);
    if (!data || !line.empty())
        return std::nullopt;
    return RegistryValue{std::move(*name), std::move(*data)};
}

std::optional<std::string> PathOfText(std::string_view text)
{
    std::string path;
    for (std::size_t i = 0; i < text.size(); ++i) {
        const auto byte = text[i] == '%' ? ByteOfHex(text.substr(i + 1, 2)) : text[i];
        if (!byte)
            return std::nullopt;
        path += *byte;
        i += text[i] == '%' ? 2u : 0u;
    }
    return path;
}

struct Place {
    Root root;
    std::string path;
};

std::optional<Place> PlaceOfLine(std::string_view line)
{
    line = line.substr(1, line.size() - 2);
    for (const auto& [root, name] : RootNames) {
        const bool isRoot = line == name;
        if (!isRoot && !line.starts_with(std::string(name) + '\\'))
            continue;
        auto path = PathOfText(line.substr(isRoot ? name.size() : name.size() + 1));
        return path ? std::optional(Place{root, std::move(*path)}) : std::nullopt;
    }
    return std::nullopt;
}

class CReader {
public:
    void Line(std::string_view line)
    {
        if (std::exchange(m_first, false))
            m_result.begins = line == FirstLine;
        m_result.ends = line == LastLine || (m_result.ends && line.empty());
        if (line.empty() || line[0] == '#')
            return;
        const bool understood = line[0] == '[' ? KeyLine(line) : ValueLine(line);
        m_result.damagedLines += understood ? 0u : 1u;
    }
    RegistryText Result() && { return std::move(m_result); }

private:
    bool KeyLine(std::string_view line)
    {
        m_place = line.size() > 1 && line.back() == ']' ? PlaceOfLine(line) : std::nullopt;
        return m_place && m_result.tree.CreateKey(m_place->root, m_place->path);
    }
    bool ValueLine(std::string_view line)
    {
        auto value = ValueOfLine(line);
        return value && m_place && m_result.tree.Set(m_place->root, m_place->path, value->name, std::move(value->data));
    }

    RegistryText m_result;
    std::optional<Place> m_place;  // The key whose values follow; none after a damaged key line.
    bool m_first = true;
};

std::string_view WithoutBlanksAround(std::string_view line)
{
    const std::size_t last = line.find_last_not_of(" \t\r");
    line = line.substr(0, last == std::string_view::npos ? 0 : last + 1);
    SkipBlanks(line);
    return line;
}
}

std::string WriteRegistryText(const CRegistryTree& tree)
{
    std::string text = std::string(FirstLine) + '\n';
    for (const auto& [root, rootName] : RootNames) {
        for (const auto& [folded, node] : tree.KeysBelow(root)) {
            text += '\n' + KeyLine(rootName, node.path);
            for (const auto& [foldedName, value] : node.values)
                text += ValueLine(value);
        }
    }
    return text + '\n' + std::string(LastLine) + '\n';
}

RegistryText ReadRegistryText(std::string_view text)
{
    CReader reader;
    if (text.starts_with(ByteOrderMark))
        text.remove_prefix(ByteOrderMark.size());
    while (!text.empty()) {
        const std::size_t end = std::min(text.find('\n'), text.size());
        reader.Line(WithoutBlanksAround(text.substr(0, end)));
        text.remove_prefix(std::min(end + 1, text.size()));
    }
    return std::move(reader).Result();
}

}
