#pragma once
#include <string>

// The user's folders as the desktop's conventions place them. Nothing is created by asking.
namespace platform::linuxdesktop {

std::string ConfigurationFolder();  // $XDG_CONFIG_HOME, or .config in the home folder. No separator at the end.
std::string DataFolder();           // $XDG_DATA_HOME, or .local/share in the home folder.
// Parlune's own folder for what a run leaves to the next: in $XDG_STATE_HOME, or .local/state in the home folder.
std::string StateFolder();
// $XDG_RUNTIME_DIR when it is a folder, else "".
std::string RuntimeFolder();

// Creates a folder and every missing one above it, for this user alone. True when it is there afterwards.
bool MakeUserFolders(const std::string& path);

std::string ProgramFile();  // The full path of the running program.

}
