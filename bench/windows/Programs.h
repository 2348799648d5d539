#pragma once
#include "platform/windows/Win32.h"
#include <string>
#include <vector>

// Programs that are measured from outside.
namespace bench {

// A running program. It is ended by force at the end.
class CProgram {
public:
    explicit CProgram(const std::string& commandLine);
    ~CProgram();
    CProgram(const CProgram&) = delete;
    CProgram& operator=(const CProgram&) = delete;

    // Its first window that is seen and answers; null when there is none after 30 seconds.
    HWND WaitForWindow() const;
    bool Started() const { return m_process.hProcess != nullptr; }

private:
    PROCESS_INFORMATION m_process = {};
};

double Milliseconds();  // Of a clock that never jumps.
double Median(std::vector<double> values);

}
