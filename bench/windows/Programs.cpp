#include "Programs.h"
#include <algorithm>

namespace bench {
namespace {

constexpr double LongestWait = 30'000;

struct Search {
    DWORD process;
    HWND found;
};

BOOL CALLBACK Look(HWND window, LPARAM parameter)
{
    auto& search = *reinterpret_cast<Search*>(parameter);
    DWORD process = 0;
    GetWindowThreadProcessId(window, &process);
    RECT place = {};
    GetWindowRect(window, &place);
    if (process != search.process || !IsWindowVisible(window) || IsRectEmpty(&place))
        return TRUE;
    search.found = window;
    return FALSE;
}

}

CProgram::CProgram(const std::string& commandLine)
{
    STARTUPINFOA start = {};
    start.cb = sizeof start;
    std::string line = commandLine;
    CreateProcessA(nullptr, line.data(), nullptr, nullptr, FALSE, 0, nullptr, nullptr, &start, &m_process);
}

CProgram::~CProgram()
{
    if (!Started())
        return;
    TerminateProcess(m_process.hProcess, 0);
    WaitForSingleObject(m_process.hProcess, INFINITE);
    CloseHandle(m_process.hThread);
    CloseHandle(m_process.hProcess);
}

HWND CProgram::WaitForWindow() const
{
    for (const double until = Milliseconds() + LongestWait; Milliseconds() < until; Sleep(1)) {
        Search search = {m_process.dwProcessId, nullptr};
        EnumWindows(Look, reinterpret_cast<LPARAM>(&search));
        DWORD_PTR answer = 0;
        if (search.found && SendMessageTimeoutA(search.found, WM_NULL, 0, 0, SMTO_NORMAL, 5000, &answer) != 0)
            return search.found;
    }
    return nullptr;
}

double Milliseconds()
{
    LARGE_INTEGER count = {}, second = {};
    QueryPerformanceCounter(&count);
    QueryPerformanceFrequency(&second);
    return 1000.0 * static_cast<double>(count.QuadPart) / static_cast<double>(second.QuadPart);
}

double Median(std::vector<double> values)
{
    if (values.empty())
        return 0;
    std::sort(values.begin(), values.end());
    const std::size_t half = values.size() / 2;
    return values.size() % 2 == 1 ? values[half] : (values[half - 1] + values[half]) / 2;
}

}
