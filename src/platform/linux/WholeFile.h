#pragma once
#include "platform/Failure.h"
#include <optional>
#include <string>

// Files read and replaced as a whole.
namespace platform::linuxdesktop {

// What is survived with the old or the new content, never with a mixture: the end of this process at any moment, or the end
// of the whole computer.
enum class Survives { ProcessEnd, PowerLoss };

// The failure for an `errno` that a file operation on `path` left behind.
CFailure FailureOfError(int error, const std::string& path);

// The bytes of a regular file. Nothing, and `error` set to the `errno`, when it cannot be read; a file that shrinks while
// it is read yields what is there.
std::optional<std::string> ReadWhole(const std::string& path, int& error);

// Gives a file new content by way of a new file beside it ("NAME.new"), which takes its place when it is complete. Keeps
// the mode of the file; a link is followed. Returns 0 or the `errno`; the file then has its former content.
int ReplaceWhole(const std::string& path, const std::string& bytes, Survives survives);

// Copies a file to a place where there is none yet; the copy appears there complete. Returns 0 or the `errno`.
int CopyToNewPlace(const std::string& from, const std::string& to);

// Removes a file; what is not there needs no removing. Returns 0 or the `errno`. It stays away after a loss of power, too.
int RemoveFile(const std::string& path);

// Writes what the system still holds back of a file and of its folder to the disk. False when that fails.
bool FlushToDisk(const std::string& path);

}
