#pragma once
#include <optional>
#include <string>
#include <vector>

// The command line of the program.
struct ProgramOptions {
    std::string commandLine;            // What the program proper gets to see: everything but the options below.
    std::string sound = "auto";         // --sound=auto|clock|wav:FILE, see engine/hosts/qt/QtHost.h.
    std::optional<std::string> answer;  // What --help or --version prints; the program then ends.
};

// `words`: the command line without the program's name.
ProgramOptions ReadProgramOptions(const std::vector<std::string>& words);
