#pragma once
#include <optional>
#include <string>
#include <string_view>

namespace platform::text {

enum class Encoding { Utf8, Windows1252, Utf16Little, Utf16Big };

bool HasMark(std::string_view bytes);  // Of UTF-8 or UTF-16, at the start.
Encoding EncodingOf(std::string_view bytes);
// The text in UTF-8, without its mark and without NUL characters, its line ends as they are.
std::string Decoded(std::string bytes, Encoding encoding);
// The bytes of a text in UTF-8, without a mark. Nothing when the encoding cannot hold a character of it.
std::optional<std::string> Encoded(std::string_view text, Encoding encoding);
std::string_view MarkOf(Encoding encoding);  // The mark of UTF-8 for Windows-1252, which has none of its own.

// The bytes of a text file as text in UTF-8, its lines ended by "\r\n". A byte-order mark (UTF-8, UTF-16) decides the
// encoding and is not text; without one the bytes are UTF-8 or, when they are not well-formed UTF-8, Windows-1252. NUL
// characters are left out. Takes the bytes over, so that a large file that needs no change is not copied.
std::string TextOfBytes(std::string bytes);

// The text with every line end (CR LF, CR, LF) made "\r\n".
std::string WithCrLf(std::string text);

// The text with every "\r\n" and every other line end made "\n".
std::string WithLf(std::string text);

}
