#include "driver/Process.h"
#include "driver/Waiting.h"
#include "platform/windows/Text.h"
#include <stdexcept>
#include <vector>

using platform::windowsdesktop::FromWide;
using platform::windowsdesktop::ToWide;

namespace driver {
namespace {

using Variables = std::map<std::wstring, std::wstring>;

Variables OwnVariables()
{
    Variables variables;
    wchar_t* const block = GetEnvironmentStringsW();
    for (const wchar_t* entry = block; *entry; entry += std::wstring(entry).size() + 1) {
        const std::wstring text = entry;
        const auto equals = text.find(L'=', 1);
        if (equals != std::wstring::npos)
            variables[text.substr(0, equals)] = text.substr(equals + 1);
    }
    FreeEnvironmentStringsW(block);
    return variables;
}

std::wstring BlockOf(const Environment& changed)
{
    Variables variables = OwnVariables();
    for (const auto& [name, value] : changed) {
        variables.erase(ToWide(name));
        if (value)
            variables[ToWide(name)] = ToWide(*value);
    }
    std::wstring block;
    for (const auto& [name, value] : variables)
        block += name + L"=" + value + L'\0';
    return block + L'\0';
}

}

CProcess::~CProcess()
{
    if (IsRunning())
        Kill();
    if (m_process)
        CloseHandle(m_process);
}

void CProcess::Start(const std::string& commandLine, const std::string& folder, const Environment& changed, HANDLE output)
{
    STARTUPINFOW startup{};
    startup.cb = sizeof startup;
    if (output) {
        startup.dwFlags = STARTF_USESTDHANDLES;
        startup.hStdOutput = startup.hStdError = output;
    }
    std::wstring line = ToWide(commandLine), block = BlockOf(changed);
    PROCESS_INFORMATION started{};
    if (!CreateProcessW(nullptr, line.data(), nullptr, nullptr, output != nullptr, CREATE_UNICODE_ENVIRONMENT, block.data(),
                        folder.empty() ? nullptr : ToWide(folder).c_str(), &startup, &started))
        throw std::runtime_error("cannot start " + commandLine);
    CloseHandle(started.hThread);
    if (m_process)
        CloseHandle(m_process);
    m_process = started.hProcess;
    m_id = started.dwProcessId;
}

bool CProcess::IsRunning() const { return m_process && WaitForSingleObject(m_process, 0) == WAIT_TIMEOUT; }

bool CProcess::WaitForEnd() const
{
    return !m_process || WaitForSingleObject(m_process, PatienceMilliseconds) == WAIT_OBJECT_0;
}

DWORD CProcess::ExitCode() const
{
    DWORD code = STILL_ACTIVE;
    GetExitCodeProcess(m_process, &code);
    return code;
}

void CProcess::Kill()
{
    TerminateProcess(m_process, 99);
    WaitForEnd();
}

std::string OutputOf(const std::string& commandLine)
{
    SECURITY_ATTRIBUTES inherited{sizeof inherited, nullptr, TRUE};
    HANDLE reading = nullptr, writing = nullptr;
    CreatePipe(&reading, &writing, &inherited, 0);
    SetHandleInformation(reading, HANDLE_FLAG_INHERIT, 0);
    CProcess process;
    process.Start(commandLine, {}, {}, writing);
    CloseHandle(writing);
    std::string output;
    char part[4096];
    for (DWORD count = 0; ReadFile(reading, part, sizeof part, &count, nullptr) && count > 0;)
        output.append(part, count);
    CloseHandle(reading);
    process.WaitForEnd();
    return output;
}

std::string ProgramFolder()
{
    std::vector<wchar_t> path(32768);
    const DWORD length = GetModuleFileNameW(nullptr, path.data(), static_cast<DWORD>(path.size()));
    const std::string name = FromWide({path.data(), length});
    return name.substr(0, name.rfind('\\') + 1);
}

}
