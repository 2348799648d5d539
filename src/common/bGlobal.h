#pragma once
#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

// Small services of the whole program: folders, names, sorting, chance, and the words for the present date and time.
// Failures are reported as bGlobal under the procedure's own name; then the procedure returns what it holds.
namespace bGlobal {

// The path with the platform's separator at its end; "" stays "".
std::string AddSlash(const std::string& path);
// First letter of every word in upper case, the rest in lower case. A word begins after a blank, tab, line end or NUL.
std::string ProperCase(const std::string& text);
// The text between two double quotes.
std::string Quote(const std::string& text);

// Folders of the system; each ends in the platform's separator.
std::string GetWinDir();
std::string GetWinSysDir();
std::string GetTempDir();

bool FileExists(const std::string& path);           // False for "", for a folder and for what does not exist.
bool FolderExists(const std::string& path);         // False for "".
std::string FileNamePart(const std::string& path);  // After the last separator; the whole path without one.
std::string FolderPart(const std::string& path);    // Up to and including the last separator; "" without one.
bool MakeFolder(const std::string& path);  // Creates one level; true when that raised no failure. Nothing is reported.

std::int32_t ScreenWidth();  // Pixels.
std::int32_t ScreenHeight();

// Sorts ascending, in place, from index `low` to `high` (from 0, both included; all when omitted).
void QuickSort(std::vector<std::string>& texts, bool caseSensitive = false, std::optional<std::int32_t> low = {},
               std::optional<std::int32_t> high = {});
// A random number from low to high, both included.
std::int16_t RandRange(std::int16_t low, std::int16_t high);

// "November 15th, 2026", "Sunday", the time in a format of common/DateFormat.h, and "Morning", "Afternoon" or "Evening".
std::string GetDate();
std::string GetDay();
std::string GetTime(const std::string& format);
std::string GetTimeOfDay();

}
