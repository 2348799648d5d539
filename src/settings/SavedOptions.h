#pragma once
#include "settings/bOptionsControls.h"
#include <functional>
#include <string>
#include <variant>

namespace settings {

// An option that the options' writer writes at the end of a run.
struct SavedOption {
    const char* key;
    std::variant<OptionControl, std::string (*)()> source;
    bool (*isWritten)() = [] { return true; };

    std::string Value() const;                      // As it would be written now.
    bool IsTruthValue() const;                      // "1" or "0".
    bool IsWritten() const { return isWritten(); }  // False: what is stored stays, for now.
};

// Goes through all of them in the order in which they are written.
void VisitSavedOptions(const std::function<void(const SavedOption& option)>& visit);

}
