#pragma once
#include "platform/windows/Win32.h"
#include <map>
#include <optional>
#include <string>

namespace driver {

using Environment = std::map<std::string, std::optional<std::string>>;  // Without a value the variable is taken away.

// Another program, ended by force when this object goes.
class CProcess {
public:
    CProcess() = default;
    ~CProcess();
    CProcess(const CProcess&) = delete;
    CProcess& operator=(const CProcess&) = delete;

    // The command line begins with the program. Its variables are ours with some changed. `output` takes what it writes, if
    // given, and is handed on to the program. Throws std::runtime_error when there is no such program.
    void Start(const std::string& commandLine, const std::string& folder, const Environment& changed = {},
               HANDLE output = nullptr);

    bool IsRunning() const;
    bool WaitForEnd() const;  // False when it does not end.
    DWORD ExitCode() const;
    void Kill();
    DWORD Id() const { return m_id; }
    HANDLE Handle() const { return m_process; }

private:
    HANDLE m_process = nullptr;
    DWORD m_id = 0;
};

// What a program of the system writes, once it has ended.
std::string OutputOf(const std::string& commandLine);

std::string ProgramFolder();  // Of the test program, with a backslash at its end.

}
