#include "platform/text/ProfileText.h"
#include "base/text/Case.h"
#include "base/text/Text.h"
#include <algorithm>
#include <vector>

namespace platform::text {
namespace {
constexpr std::string_view Blanks = " \t\v\f\r";
constexpr std::string_view ByteOrderMark = "\xEF\xBB\xBF";
constexpr std::string_view CrLf = "\r\n";

std::string_view Trimmed(std::string_view text) { return ::text::Trim(text, Blanks); }

std::string_view Unquoted(std::string_view value)
{
    const bool quoted = value.size() >= 2 && (value[0] == '"' || value[0] == '\'') && value.back() == value[0];
    return quoted ? value.substr(1, value.size() - 2) : value;
}

// One line of the text, as places in it.
struct Line {
    std::size_t start = 0;
    std::size_t end = 0;  // After its line end.
    enum class Kind { Other, Section, Key } kind = Kind::Other;
    std::string_view name;   // Of the section or key, without blanks around it.
    std::string_view value;  // As written, blanks included, without the line end.
};

std::string_view LineEndOf(std::string_view line)
{
    const std::size_t last = line.find_last_not_of("\r\n");
    return line.substr(last == std::string_view::npos ? 0 : last + 1);
}

void Understand(Line& line, std::string_view written)
{
    const std::string_view content = Trimmed(written);
    if (content.starts_with('[') && content.find(']') != std::string_view::npos) {
        line.kind = Line::Kind::Section;
        line.name = Trimmed(content.substr(1, content.rfind(']') - 1));
        return;
    }
    const std::size_t equals = content.find('=');
    if (content.starts_with(';') || equals == std::string_view::npos || equals == 0)
        return;
    line.kind = Line::Kind::Key;
    line.name = Trimmed(content.substr(0, equals));
    line.value = written.substr(written.find('=') + 1);
}

std::vector<Line> LinesOf(std::string_view text)
{
    std::vector<Line> lines;
    for (std::size_t start = text.starts_with(ByteOrderMark) ? ByteOrderMark.size() : 0; start < text.size();) {
        Line line;
        line.start = start;
        const std::size_t feed = text.find('\n', start);
        line.end = feed == std::string_view::npos ? text.size() : feed + 1;
        const std::string_view whole = text.substr(start, line.end - start);
        Understand(line, whole.substr(0, whole.size() - LineEndOf(whole).size()));
        lines.push_back(line);
        start = line.end;
    }
    return lines;
}

using LineIterator = std::vector<Line>::const_iterator;

// A section: its heading and the lines up to the next heading. `heading` is `end` when there is no such section.
struct Section {
    LineIterator heading;
    LineIterator end;
};

bool IsHeading(const Line& line) { return line.kind == Line::Kind::Section; }

Section FindSection(LineIterator from, LineIterator end, std::string_view name)
{
    const auto isIt = [&](const Line& line) {
        return IsHeading(line) && ::text::EqualIgnoringCase(line.name, Trimmed(name));
    };
    const LineIterator heading = std::find_if(from, end, isIt);
    return {heading, heading == end ? end : std::find_if(heading + 1, end, IsHeading)};
}

LineIterator FindKey(const Section& section, std::string_view name)
{
    return std::find_if(section.heading, section.end, [&](const Line& line) {
        return line.kind == Line::Kind::Key && ::text::EqualIgnoringCase(line.name, Trimmed(name));
    });
}

// New lines end as the first line of the text does.
std::string_view NewLineEnd(std::string_view text)
{
    const std::size_t feed = text.find('\n');
    return feed == std::string_view::npos || (feed > 0 && text[feed - 1] == '\r') ? CrLf : CrLf.substr(1);
}

// The place after the section's last line that is not blank: blank lines stay between sections.
std::size_t EndOfContent(const Section& section, std::string_view text)
{
    LineIterator last = section.end - 1;
    while (last != section.heading &&
           Trimmed(text.substr(last->start, last->end - last->start)).find_first_not_of('\n') == std::string_view::npos)
        --last;
    return last->end;
}

// Puts a line of its own at a place between two lines; a last line without an end gets one.
std::string Inserted(std::string_view text, std::size_t at, const std::string& line)
{
    const std::string lineEnd(NewLineEnd(text));
    const std::string_view before = text.substr(0, at);
    const bool lineIsOpen = !before.empty() && before != ByteOrderMark && before.back() != '\n';
    return std::string(before) + (lineIsOpen ? lineEnd : "") + line + lineEnd + std::string(text.substr(at));
}

bool CanBeKept(std::string_view section, std::string_view key, std::string_view value)
{
    constexpr std::string_view Never("\r\n\0", 3);
    for (const std::string_view part : {section, key, value})
        if (part.find_first_of(Never) != std::string_view::npos)
            return false;
    const std::string_view name = Trimmed(key);
    return !name.empty() && name.find('=') == std::string_view::npos && name[0] != ';' && name[0] != '[';
}

std::string WithLineReplaced(std::string_view text, const Line& line, std::string_view value)
{
    const std::string_view whole = text.substr(line.start, line.end - line.start);
    return std::string(text.substr(0, line.start)) + std::string(line.name) + "=" + std::string(value) +
           std::string(LineEndOf(whole)) + std::string(text.substr(line.end));
}
}

std::optional<std::string> ReadProfileValue(std::string_view text, std::string_view section, std::string_view key)
{
    const std::vector<Line> lines = LinesOf(text);
    const Section found = FindSection(lines.begin(), lines.end(), section);
    const LineIterator line = FindKey(found, key);
    if (line == found.end)
        return std::nullopt;
    return std::string(Unquoted(Trimmed(line->value)));
}

std::string ReadProfileKeys(std::string_view text, std::string_view section)
{
    const std::vector<Line> lines = LinesOf(text);
    const Section found = FindSection(lines.begin(), lines.end(), section);
    std::string names;
    for (LineIterator line = found.heading; line != found.end; ++line)
        if (line->kind == Line::Kind::Key)
            names += std::string(line->name) + '\0';
    return names;
}

std::optional<std::string> WithProfileValue(std::string_view text, std::string_view section, std::string_view key,
                                            std::string_view value)
{
    if (!CanBeKept(section, key, value))
        return std::nullopt;
    const std::vector<Line> lines = LinesOf(text);
    const Section found = FindSection(lines.begin(), lines.end(), section);
    const std::string newLine = std::string(Trimmed(key)) + "=" + std::string(value);
    if (found.heading == found.end) {
        const std::string heading = "[" + std::string(Trimmed(section)) + "]";
        return Inserted(text, text.size(), heading + std::string(NewLineEnd(text)) + newLine);
    }
    const LineIterator line = FindKey(found, key);
    if (line == found.end)
        return Inserted(text, EndOfContent(found, text), newLine);
    return WithLineReplaced(text, *line, value);
}

std::string WithoutProfileKey(std::string_view text, std::string_view section, std::string_view key)
{
    const std::vector<Line> lines = LinesOf(text);
    const Section found = FindSection(lines.begin(), lines.end(), section);
    std::string kept(text.substr(0, lines.empty() ? text.size() : lines.front().start));
    for (LineIterator line = lines.begin(); line != lines.end(); ++line) {
        const bool goes = line >= found.heading && line < found.end && line->kind == Line::Kind::Key &&
                          ::text::EqualIgnoringCase(line->name, Trimmed(key));
        if (!goes)
            kept += text.substr(line->start, line->end - line->start);
    }
    return kept;
}

std::string WithoutProfileSection(std::string_view text, std::string_view section)
{
    const std::vector<Line> lines = LinesOf(text);
    std::string kept(text.substr(0, lines.empty() ? text.size() : lines.front().start));
    bool goes = false;
    for (const Line& line : lines) {
        if (IsHeading(line))
            goes = ::text::EqualIgnoringCase(line.name, Trimmed(section));
        if (!goes)
            kept += text.substr(line.start, line.end - line.start);
    }
    return kept;
}

}
