#pragma once
#include "platform/Failure.h"
#include <cstdint>
#include <string>

// Paths on their way to the system. Wide calls take every path that a user can choose; ANSI calls take what the code page
// holds, and for the rest the short name that the system keeps for it.
namespace platform::windowsdesktop {

// The failure for an error number of the system's (GetLastError) that a file operation left behind.
CFailure FailureOfError(std::uint32_t error);

// The full path, a relative one taken from the current folder. Throws 75 for an empty path and 52 for one that the system
// cannot have: with a NUL in it, or of 260 characters and more.
std::wstring AbsolutePath(const std::string& path);

// The same path in the form whose length the system does not limit. Takes an absolute path.
std::wstring WithoutLengthLimit(const std::wstring& absolute);

// The folder of an absolute path, with its separator at the end.
std::wstring FolderOf(const std::wstring& absolute);

// Creates a folder and every missing one above it. True when it is there afterwards; false for "".
bool MakeFolders(const std::wstring& path);

// Parlune's own folder for what a run leaves to the next, beside the settings. No separator at the end; "" where the system
// knows no such place.
std::string StateFolder();

// An existing path for an ANSI call.
std::string AnsiPath(const std::wstring& path);

}
