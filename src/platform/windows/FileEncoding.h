#pragma once
#include <string>

// How the texts of files are kept: in the code page of the process. Where that cannot hold a text, or would hold it in bytes
// that read as another text, the text is kept in UTF-8 with its mark.
namespace platform::windowsdesktop {

// The bytes of a text file as text, lines ended by "\r\n", without NUL characters. A mark (UTF-8, UTF-16) decides; without
// one the bytes are UTF-8 or, when they are not, of the system's code page.
std::string TextOfFile(std::string bytes);

// The bytes that keep a text in a file.
std::string BytesForFile(const std::string& text);

}
