#pragma once
#include <string>

namespace settings {

// Where the program's files live; every folder ends in the platform's separator. Filled once at start-up.
struct ProgramPaths {
    std::string windowsFolder;
    std::string systemFolder;
    std::string programFolder;
    std::string temporaryFolder;
    std::string characterFolder;
    std::string settingsFile;
    std::string helpFile;
};

ProgramPaths& Paths();

}
