#include "platform/text/DesktopEntry.h"
#include "base/text/Case.h"
#include "platform/text/ProfileText.h"

namespace platform::text {
namespace {
constexpr std::string_view Group = "Desktop Entry";

// An argument in quotes as the Exec key wants it: quoted characters get a backslash, which the key's own text form
// doubles, and "%" would start a field code.
std::string ExecArgument(std::string_view argument)
{
    std::string quoted = "\"";
    for (const char c : argument) {
        if (c == '"' || c == '`' || c == '$')
            quoted += "\\\\";
        if (c == '\\')
            quoted += "\\\\\\";
        if (c == '%')
            quoted += '%';
        quoted += c;
    }
    return quoted + '"';
}

bool Says(std::string_view entry, std::string_view key, std::string_view word)
{
    const auto value = ReadProfileValue(entry, Group, key);
    return value && ::text::EqualIgnoringCase(*value, word);
}
}

std::string AutostartEntry(std::string_view program)
{
    return "[Desktop Entry]\nType=Application\nVersion=1.0\nName=Parlune\n"
           "Comment=A desktop companion that reads text aloud\nExec=" +
           ExecArgument(program) + "\nTerminal=false\nCategories=Utility;\n";
}

std::optional<std::string> AutostartProgram(std::string_view entry)
{
    const auto value = ReadProfileValue(entry, Group, "Exec");  // Without its quotes.
    if (!value || !value->starts_with('/'))
        return std::nullopt;
    std::string program;
    for (std::size_t at = 0; at < value->size(); ++at) {
        const char c = (*value)[at];
        if (c == '"')
            return std::nullopt;  // More than one argument.
        if (c == '\\') {
            at += value->compare(at, 4, R"(\\\\)") == 0 ? std::size_t{3} : std::size_t{2};
            if (at >= value->size())
                return std::nullopt;
        } else if (c == '%' && value->compare(at, 2, "%%") == 0)
            ++at;
        program += (*value)[at];
    }
    // Without the quotes a blank would end the program's name, and arguments follow.
    return entry.find(ExecArgument(program)) != std::string_view::npos ? std::optional(program) : std::nullopt;
}

std::string WithAutostartProgram(std::string_view entry, std::string_view program)
{
    return text::WithProfileValue(entry, Group, "Exec", ExecArgument(program)).value_or(std::string(entry));
}

bool IsAutostartOn(std::string_view entry)
{
    return ReadProfileValue(entry, Group, "Exec") && !Says(entry, "Hidden", "true") &&
           !Says(entry, "X-GNOME-Autostart-enabled", "false");
}

}
