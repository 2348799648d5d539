#pragma once
#include "platform/windows/Win32.h"
#include <string>

namespace comtest {

// A program of the folder in which the tests are. It is ended with this.
class CProgram {
public:
    CProgram(const std::wstring& name, const std::wstring& arguments)
    {
        std::wstring line = Folder() + name + L" " + arguments;
        STARTUPINFOW start{};
        start.cb = sizeof start;
        CreateProcessW(nullptr, line.data(), nullptr, nullptr, FALSE, 0, nullptr, nullptr, &start, &m_process);
    }
    ~CProgram()
    {
        TerminateProcess(m_process.hProcess, 0);
        Wait();
        CloseHandle(m_process.hThread);
        CloseHandle(m_process.hProcess);
    }
    CProgram(const CProgram&) = delete;
    CProgram& operator=(const CProgram&) = delete;
    void Wait() const { WaitForSingleObject(m_process.hProcess, 20000); }
    static std::wstring Folder()
    {
        wchar_t file[MAX_PATH];
        GetModuleFileNameW(nullptr, file, MAX_PATH);
        const std::wstring path = file;
        return path.substr(0, path.rfind(L'\\') + 1);
    }

private:
    PROCESS_INFORMATION m_process{};
};

}
