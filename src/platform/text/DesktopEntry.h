#pragma once
#include <string>
#include <string_view>

namespace platform::text {

// The desktop entry that starts a program with the session. `program` is its full path.
std::string AutostartEntry(std::string_view program);

// Whether an autostart entry starts anything: the user's desktop writes "Hidden=true" or
// "X-GNOME-Autostart-enabled=false" into one that was switched off.
bool IsAutostartOn(std::string_view entry);

}
