#pragma once
#include <string>

// Entries of HKEY_CLASSES_ROOT. The registry must be that of a test's prefix.
namespace standins {

bool SetClassesDefault(const std::wstring& key,
                       const std::wstring& text);  // The default value of a key, made where missing.
void DeleteClassesKey(const std::wstring& key);    // With all below it.

}
