#pragma once
#include <functional>
#include <memory>
#include <string>

namespace platform::linuxdesktop {

// Puts the bytes somewhere safe, as the future content of `path`, until what it answers is released.
using SafetyCopy = std::function<std::shared_ptr<void>(const std::string& path, const std::string& bytes)>;

// Creates a document of the user's, or gives it new content, as a whole: the new content is complete on the disk before it
// takes the place of the former one, under a name that no other file has. Mode and owner stay. A link is followed, also to
// where no file is yet.
// A file is written in place where it must stay the same file (it has other names, or an owner that a new one could not
// have) or where its folder takes no new one. Room for it is made sure of and the safety copy made before; it gets its
// former content back when the writing fails. A file that may not be written gets no new content. Returns 0 or the `errno`;
// the file then has its former content.
int WriteDocument(const std::string& path, const std::string& bytes, const SafetyCopy& safetyCopy);

}
