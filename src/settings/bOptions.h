#pragma once
#include <cstdint>
#include <string>
#include <string_view>

// The program's options, kept as text: user-wide ones in the registry key, those of one character in its section of
// the settings file. Truth values are "1" and "0". User-interface thread only.
namespace bOptions {

inline constexpr char OptionKey[] = "Software\\Tarrowind\\Parlune";  // The registry key, under the current user.

// Reads an option; `name` may carry a sub-path up to its last "\". Returns `defaultValue` when the option is missing
// or, with `validate`, is neither "0" nor "1". Failures: reported as bOptions:GetOption, then the text held so far.
std::string GetOption(std::string_view name, std::string_view defaultValue, bool validate = false);

// Writes an option as text, only when it differs from what is stored. Failures: reported as bOptions:SetOption.
void SetOption(std::string_view name, std::string_view value);
void SetOption(std::string_view name, std::int32_t value);

// Reads or writes an option of the loaded character, which must exist; an empty value removes it. Failures: not guarded,
// they reach the caller's guard.
std::string GetCharOption(std::string_view name, std::string_view defaultValue);
void SetCharOption(std::string_view name, std::string_view value);

// Loads every option into the record and the main window's controls; writes them all back, unless the options were reset.
// A step that fails is reported as bOptions:GetOptions or bOptions:SetOptions, then the next one runs.
void GetOptions();
void SetOptions();

// Opens a text file in the editor; asks for one when `fileName` is empty. Asks whether to go on when it takes more than half
// a minute, and to try again when the file may not be accessed (failure 75); whoever declines keeps the former text. Other
// failures: reported as bOptions:OpenFile; the editor then keeps its text.
void OpenFile(const std::string& fileName);

}
