#pragma once
#include <string>
#include <string_view>

// Text on its way between the program and the system. Inside, text is UTF-8; the system takes bytes in the code page of the
// process (ANSI calls) or UTF-16 (COM, windows). What the other side cannot hold becomes the system's replacement character.
namespace platform::windowsdesktop {

std::wstring ToWide(std::string_view text);
std::string FromWide(std::wstring_view text);  // Lone surrogates become U+FFFD.
std::string ToAnsi(std::string_view text);
std::string FromAnsi(std::string_view bytes);

}
