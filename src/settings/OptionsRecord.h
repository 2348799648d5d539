#pragma once
#include <cstdint>
#include <string>

namespace settings {

// The options that no control holds. Field names are the options' keys.
struct OptionsRecord {
    bool FirstTime = false;    // True until the options were saved once.
    std::string Character;     // What was asked for last: "" or "(Default Character)", a name, or a file.
    std::int32_t CharTop = 0;  // Screen position in pixels; -1 in both: none remembered.
    std::int32_t CharLeft = 0;
    std::int32_t CharWidth = 0;  // Custom size in pixels.
    std::int32_t CharHeight = 0;
    std::string LastFolder;
    std::string LastCharFolder;
    bool Reset = false;  // The options were reset in this run: nothing is written at the end.
};

OptionsRecord& Options();

}
