#include "windows/standins/Commands.h"
#include "windows/standins/Value.h"
#include <algorithm>
#include <array>
#include <fstream>
#include <iterator>

namespace standins {
namespace {

constexpr wchar_t WindowClass[] = L"ParluneStandIn";
constexpr UINT AnswerMilliseconds = 60000;

HWND FindWindowOf(const std::string& title, std::uint32_t processID)
{
    const std::wstring wide = Wide(title);
    HWND window = nullptr;
    while ((window = FindWindowExW(nullptr, window, WindowClass, wide.c_str())) != nullptr) {
        DWORD owner = 0;
        GetWindowThreadProcessId(window, &owner);
        const bool fits = processID == 0 ? owner != GetCurrentProcessId() : owner == processID;
        if (fits)
            return window;
    }
    return nullptr;
}

bool IsCall(const std::string& line)
{
    const std::string first = line.substr(0, line.find(' '));
    return first == "call" || first == "get" || first == "put" || first == "putref" || first == "call+get";
}

}

Answer AskStandIn(const std::string& command, const std::string& title, std::uint32_t processID)
{
    const HWND window = FindWindowOf(title, processID);
    if (!window)
        return Answer::NobodyThere;
    COPYDATASTRUCT data{0, static_cast<DWORD>(command.size()), const_cast<char*>(command.data())};
    DWORD_PTR understood = 0;
    const LRESULT answered = SendMessageTimeoutW(window, WM_COPYDATA, 0, reinterpret_cast<LPARAM>(&data), SMTO_NORMAL,
                                                 AnswerMilliseconds, &understood);
    return answered == 0 ? Answer::NoAnswer : understood == 1 ? Answer::Understood : Answer::NotUnderstood;
}

bool SendCommand(const std::string& command, const std::string& title)
{
    return AskStandIn(command, title) == Answer::Understood;
}

bool StandInIsThere(const std::string& title) { return FindWindowOf(title, 0) != nullptr; }

bool WaitForStandIn(unsigned milliseconds, const std::string& title)
{
    for (const ULONGLONG end = GetTickCount64() + milliseconds; !StandInIsThere(title); Sleep(10))
        if (GetTickCount64() >= end)
            return false;
    return true;
}

std::vector<std::string> ReadLog(const std::wstring& file)
{
    std::ifstream stream(file.c_str(), std::ios::binary);
    const std::string bytes((std::istreambuf_iterator<char>(stream)), std::istreambuf_iterator<char>());
    std::vector<std::string> lines;
    std::size_t begin = 0;
    for (std::size_t end = 0; (end = bytes.find('\n', begin)) != std::string::npos; begin = end + 1)
        lines.push_back(bytes.substr(begin, end - begin));
    return lines;
}

std::vector<std::string> ReadLog()
{
    std::array<wchar_t, 1024> file{};
    GetEnvironmentVariableW(L"PARLUNE_STANDIN_LOG", file.data(), static_cast<DWORD>(file.size()));
    return ReadLog(file.data());
}

std::vector<std::string> OnlyCalls(const std::vector<std::string>& lines)
{
    std::vector<std::string> calls;
    std::copy_if(lines.begin(), lines.end(), std::back_inserter(calls), IsCall);
    return calls;
}

}
