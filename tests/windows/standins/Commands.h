#pragma once
#include <cstdint>
#include <string>
#include <vector>

// For tests that run beside the stand-ins, in another process. Telling.h has the commands, the README the lines of the log.
namespace standins {

enum class Answer { Understood = 0, NotUnderstood = 1, NobodyThere = 2, NoAnswer = 3 };

// Sends one command to the stand-in with that window title: "engine", or "office". With a process id, to the one in that
// process; else to one in any process but the caller's.
Answer AskStandIn(const std::string& command, const std::string& title = "engine", std::uint32_t processID = 0);
bool SendCommand(const std::string& command, const std::string& title = "engine");  // Whether it was understood.
bool StandInIsThere(const std::string& title = "engine");
// Whether such a window appears in time.
bool WaitForStandIn(unsigned milliseconds, const std::string& title = "engine");

// The lines of a log; none while there is no file. The last line is left out while it is not written to its end.
std::vector<std::string> ReadLog(const std::wstring& file);
std::vector<std::string> ReadLog();  // Of the file that PARLUNE_STANDIN_LOG names.
// Those that begin with one of the words call, get, put, putref: what the client asked, and no more.
std::vector<std::string> OnlyCalls(const std::vector<std::string>& lines);

}
