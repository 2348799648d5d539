#include "platform/windows/WindowsShell.h"
#include "platform/windows/Handle.h"
#include "platform/windows/SystemPaths.h"
#include "platform/windows/Text.h"
#include "platform/windows/Win32.h"

namespace platform::windowsdesktop {
namespace {
// A file under a name that the code page holds, anything else as it stands.
std::string AnsiTarget(const std::string& target)
{
    const std::wstring wide = ToWide(target);
    return GetFileAttributesW(wide.c_str()) == INVALID_FILE_ATTRIBUTES ? ToAnsi(target) : AnsiPath(wide);
}

bool HasNul(const std::string& text) { return text.find('\0') != std::string::npos; }
}

void CWindowsShell::StartProgram(const std::string& commandLine)
{
    if (commandLine.empty() || HasNul(commandLine))
        throw failure::FileNotFound();
    std::wstring command = ToWide(commandLine);  // The system writes into it.
    STARTUPINFOW start = {};
    start.cb = sizeof start;
    start.dwFlags = STARTF_USESHOWWINDOW;
    start.wShowWindow = SW_SHOWNORMAL;
    PROCESS_INFORMATION started = {};
    if (CreateProcessW(nullptr, command.data(), nullptr, nullptr, FALSE, 0, nullptr, nullptr, &start, &started) == 0)
        throw FailureOfError(GetLastError());
    const CHandle process(started.hProcess), thread(started.hThread);
}

std::int32_t CWindowsShell::Open(const std::string& file, const std::string& parameters)
{
    if (HasNul(file) || HasNul(parameters))
        throw failure::BadFileName();
    const std::string target = AnsiTarget(file), arguments = ToAnsi(parameters);
    const HINSTANCE code = ShellExecuteA(nullptr, nullptr, target.c_str(), arguments.c_str(), nullptr, SW_SHOWNORMAL);
    return static_cast<std::int32_t>(reinterpret_cast<std::intptr_t>(code));
}

}
