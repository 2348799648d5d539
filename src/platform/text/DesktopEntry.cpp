#include "platform/text/DesktopEntry.h"
#include "platform/text/ProfileText.h"
#include "platform/text/Utf8.h"

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
    return value && SameName(*value, word);
}
}

std::string AutostartEntry(std::string_view program)
{
    return "[Desktop Entry]\nType=Application\nVersion=1.0\nName=Parlune\n"
           "Comment=A desktop companion that reads text aloud\nExec=" +
           ExecArgument(program) + "\nTerminal=false\nCategories=Utility;\n";
}

bool IsAutostartOn(std::string_view entry)
{
    return ReadProfileValue(entry, Group, "Exec") && !Says(entry, "Hidden", "true") &&
           !Says(entry, "X-GNOME-Autostart-enabled", "false");
}

}
