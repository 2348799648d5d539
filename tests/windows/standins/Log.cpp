#include "windows/standins/Log.h"
#include "platform/windows/Win32.h"

namespace standins {
namespace {

void AppendLine(const std::wstring& file, const std::string& line)
{
    const HANDLE handle = CreateFileW(file.c_str(), FILE_APPEND_DATA, FILE_SHARE_READ | FILE_SHARE_WRITE, nullptr,
                                      OPEN_ALWAYS, FILE_ATTRIBUTE_NORMAL, nullptr);
    if (handle == INVALID_HANDLE_VALUE)
        return;
    const std::string bytes = line + "\n";
    DWORD written = 0;
    WriteFile(handle, bytes.data(), static_cast<DWORD>(bytes.size()), &written, nullptr);
    CloseHandle(handle);
}

}

void CLog::Write(const std::string& line)
{
    m_lines.push_back(line);
    if (!m_file.empty())
        AppendLine(m_file, line);
}

std::vector<std::string> CLog::LinesWith(const std::string& beginning) const
{
    std::vector<std::string> lines;
    for (const std::string& line : m_lines)
        if (line.compare(0, beginning.size(), beginning) == 0)
            lines.push_back(line);
    return lines;
}

}
