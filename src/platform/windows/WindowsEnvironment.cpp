#include "platform/windows/WindowsEnvironment.h"
#include "platform/windows/Text.h"
#include "platform/windows/Win32.h"

namespace platform::windowsdesktop {

std::wstring_view WithoutProgramName(std::wstring_view commandLine)
{
    bool quoted = false;
    std::size_t end = 0;
    for (; end < commandLine.size(); ++end) {
        const wchar_t character = commandLine[end];
        if (character == L'"')
            quoted = !quoted;
        else if (!quoted && (character == L' ' || character == L'\t'))
            return commandLine.substr(end + 1);
    }
    return {};
}

// Another part of the program may change the variable between the two calls: then it is asked for again.
std::string CWindowsEnvironment::Variable(const std::string& name) const
{
    if (name.find('\0') != std::string::npos)
        return "";
    const std::wstring wideName = ToWide(name);
    for (DWORD room = 260;;) {
        std::wstring value(room, L'\0');
        const DWORD length = GetEnvironmentVariableW(wideName.c_str(), value.data(), room);
        if (length < room)
            return FromWide(value.substr(0, length));
        room = length;
    }
}

std::string CWindowsEnvironment::CommandLine() const { return FromWide(WithoutProgramName(GetCommandLineW())); }

}
