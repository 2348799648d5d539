#pragma once
#include "platform/text/RegistryTree.h"
#include <cstddef>
#include <string>
#include <string_view>

// The text form of the registry, made to be read and mended by people:
//
//     # Parlune registry 1
//     [CurrentUser\Software\Tarrowind\Parlune]
//     @ = "the default value"
//     "Greeting1" = "Good {TimeOfDay}!"
//     "Contexts" = 17
//     # end
//
// In quotes "\" and """ are written "\\" and "\"", control characters as "\r", "\n", "\t" or "\x1F"; in a key line control
// characters and "%" are written "%1F". Empty lines and other lines starting with "#" are ignored.
namespace platform::text {

std::string WriteRegistryText(const CRegistryTree& tree);

struct RegistryText {
    CRegistryTree tree;            // All that could be understood.
    bool begins = false;           // The first line is there ...
    bool ends = false;             // ... and the last one: nothing is missing.
    std::size_t damagedLines = 0;  // Lines that could not be understood.

    bool Sound() const { return begins && ends && damagedLines == 0; }
};

// Reads any bytes.
RegistryText ReadRegistryText(std::string_view text);

}
