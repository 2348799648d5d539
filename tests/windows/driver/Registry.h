#pragma once
#include "platform/windows/Win32.h"
#include <optional>
#include <string>

// The registry as the tests prepare and read it: not by the program's own way.
namespace driver::registry {

inline constexpr char OptionKey[] = "Software\\Tarrowind\\Parlune";
inline constexpr char RunKey[] = "Software\\Microsoft\\Windows\\CurrentVersion\\Run";
inline constexpr char BrowserKey[] = "Software\\Microsoft\\Internet Explorer\\MenuExt\\Read with Parlune";

void PutText(HKEY root, const std::string& key, const std::string& name, const std::string& text);
void PutBytes(HKEY root, const std::string& key, const std::string& name, DWORD type, const std::string& bytes);

// The bytes as they are stored; no value when there is no such thing.
struct Stored {
    DWORD type = 0;
    std::string bytes;  // Of a text: the UTF-16 form as it comes from the wide functions.
};
std::optional<Stored> Find(HKEY root, const std::string& key, const std::string& name);
std::string Text(HKEY root, const std::string& key, const std::string& name);  // "(none)" when there is no text.
bool HasKey(HKEY root, const std::string& key);
void Remove(HKEY root, const std::string& key);              // With all that is below it. Nothing there is well, too.
void SealAgainstWriting(HKEY root, const std::string& key);  // For everybody.
void Unseal(HKEY root, const std::string& key);
void RemoveValue(HKEY root, const std::string& key, const std::string& name);

// An option of the program.
void PutOption(const std::string& name, const std::string& text);
std::string Option(const std::string& name);

}
