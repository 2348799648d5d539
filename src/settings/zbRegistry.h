#pragma once
#include "platform/Registry.h"
#include <cstdint>
#include <string>

// Values of the registry, as text. The value name "*" stands for a key's default value. A refusal by the store gives the
// default or false; any other failure is reported as bRegistry under the operation's name.
namespace zbRegistry {

using platform::Root;

// A value's data without its last byte (a text's terminator); `defaultValue` when key or value is missing.
std::string GetReg(Root root, const std::string& path, const std::string& valueName, const std::string& defaultValue);
// Writes a text or a 32-bit number, creating the key path; true when it was written.
bool SetReg(Root root, const std::string& path, const std::string& valueName, const std::string& value);
bool SetReg(Root root, const std::string& path, const std::string& valueName, std::int32_t value);
// Deletes a value, or with an empty name the key itself; true when it was deleted.
bool DelReg(Root root, const std::string& path, const std::string& valueName);

}
