#include "faults/calls/SystemCalls.h"
#include <cstdio>
#include <cstdlib>
#include <memory>
#include <string>

// Loaded before a whole program (LD_PRELOAD), lets one of its system calls fail. The environment says which:
//   PARLUNE_FAULT_FOLDER  the folder below which calls count
//   PARLUNE_FAULT         "NUMBER ERRNO", "NUMBER ERRNO stays" or "NUMBER short"; without it none fails
//   PARLUNE_FAULT_LOG     a file elsewhere for the calls, one line each
namespace {
faults::Fault FaultOf(const std::string& text)
{
    faults::Fault fault;
    char how[16] = "";
    unsigned long number = 0;
    if (std::sscanf(text.c_str(), "%lu %15s", &number, how) == 2 && std::string(how) == "short")
        return {.number = number, .shortWrite = true};
    std::sscanf(text.c_str(), "%lu %d %15s", &number, &fault.error, how);
    fault.number = number;
    fault.stays = std::string(how) == "stays";
    return fault;
}

std::string Variable(const char* name)
{
    const char* value = std::getenv(name);
    return value ? value : "";
}

__attribute__((constructor)) void Begin()
{
    const std::string folder = Variable("PARLUNE_FAULT_FOLDER");
    if (folder.empty())
        return;
    // Until the end of the process.
    static std::FILE* const log = std::fopen(Variable("PARLUNE_FAULT_LOG").c_str(), "w");
    static const auto* const watch =
        new faults::CWatch(folder, FaultOf(Variable("PARLUNE_FAULT")), [](const faults::Call& call) {
            if (log &&
                std::fprintf(log, "%s%s %s\n", call.name.c_str(), call.failed ? " failed" : "", call.path.c_str()) > 0)
                std::fflush(log);
        });
    static_cast<void>(watch);
}
}
