#pragma once
#include <optional>
#include <string>
#include <string_view>

namespace platform::text {

// The desktop entry that starts a program with the session. `program` is its full path.
std::string AutostartEntry(std::string_view program);

// Whether an autostart entry starts anything: the user's desktop writes "Hidden=true" or
// "X-GNOME-Autostart-enabled=false" into one that was switched off.
bool IsAutostartOn(std::string_view entry);

// The program that an entry starts, where its Exec key is nothing but one quoted program, as AutostartEntry writes it.
// Nothing for a command line of the user's own.
std::optional<std::string> AutostartProgram(std::string_view entry);

// The entry with another program in its Exec key and everything else as it was.
std::string WithAutostartProgram(std::string_view entry, std::string_view program);

}
