#pragma once
#include <string>

namespace platform::text {

// The bytes of a text file as text in UTF-8, its lines ended by "\r\n". A byte-order mark (UTF-8, UTF-16) decides the
// encoding and is not text; without one the bytes are UTF-8 or, when they are not well-formed UTF-8, Windows-1252. NUL
// characters are left out. Takes the bytes over, so that a large file that needs no change is not copied.
std::string TextOfBytes(std::string bytes);

// The text with every line end (CR LF, CR, LF) made "\r\n".
std::string WithCrLf(std::string text);

// The text with every "\r\n" and every other line end made "\n".
std::string WithLf(std::string text);

}
