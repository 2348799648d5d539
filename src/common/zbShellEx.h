#pragma once
#include <cstdint>
#include <string>

namespace zbShellEx {

// Starts a program, or opens a document or address as the desktop would; a name with blanks stands in double quotes,
// parameters follow. Returns 0 when the target was started as a program, else the desktop's code (a refusal is not
// reported). A failure to ask the desktop is told to the user.
std::int32_t ShellEx(const std::string& target);

}
