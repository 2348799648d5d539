#pragma once
#include <string>

// The name that a document's new content has beside it until it is complete: hidden, and telling which process writes it.
namespace platform::linuxdesktop {

// A name that no file has had in this process.
std::string NameBeside(const std::string& place);

// Removes what processes that run no more have left under such names beside this place. A file that another process, maybe
// of another machine, has locked stays, and one that is not this user's to open.
void RemoveLeftBeside(const std::string& place);

}
