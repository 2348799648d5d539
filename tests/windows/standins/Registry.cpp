#include "windows/standins/Registry.h"
#include "platform/windows/Win32.h"

namespace standins {

bool SetClassesDefault(const std::wstring& key, const std::wstring& text)
{
    HKEY handle = nullptr;
    if (RegCreateKeyExW(HKEY_CLASSES_ROOT, key.c_str(), 0, nullptr, 0, KEY_SET_VALUE, nullptr, &handle, nullptr) !=
        ERROR_SUCCESS)
        return false;
    const DWORD bytes = static_cast<DWORD>((text.size() + 1) * sizeof(wchar_t));
    const bool done =
        RegSetValueExW(handle, nullptr, 0, REG_SZ, reinterpret_cast<const BYTE*>(text.c_str()), bytes) == ERROR_SUCCESS;
    RegCloseKey(handle);
    return done;
}

void DeleteClassesKey(const std::wstring& key) { RegDeleteTreeW(HKEY_CLASSES_ROOT, key.c_str()); }

}
