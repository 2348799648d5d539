#include "driver/Registry.h"
#include "platform/windows/Text.h"
#include <sddl.h>

using platform::windowsdesktop::FromWide;
using platform::windowsdesktop::ToWide;

namespace driver::registry {
namespace {

// A key, closed at the end.
class CKey {
public:
    CKey(HKEY root, const std::string& path, REGSAM access)
    {
        if (RegOpenKeyExW(root, ToWide(path).c_str(), 0, access, &m_key) != ERROR_SUCCESS)
            m_key = nullptr;
    }
    CKey(HKEY root, const std::string& path)
    {
        RegCreateKeyExW(root, ToWide(path).c_str(), 0, nullptr, 0, KEY_ALL_ACCESS, nullptr, &m_key, nullptr);
    }
    ~CKey()
    {
        if (m_key)
            RegCloseKey(m_key);
    }
    CKey(const CKey&) = delete;
    CKey& operator=(const CKey&) = delete;
    HKEY Get() const { return m_key; }
    explicit operator bool() const { return m_key != nullptr; }

private:
    HKEY m_key = nullptr;
};

std::string BytesOf(const std::wstring& text)
{
    return {reinterpret_cast<const char*>(text.c_str()), (text.size() + 1) * sizeof(wchar_t)};
}

// The access control list in the system's words: D: denials and grants to "WD", everybody.
void SetAccess(HKEY root, const std::string& key, const wchar_t* list)
{
    PSECURITY_DESCRIPTOR descriptor = nullptr;
    ConvertStringSecurityDescriptorToSecurityDescriptorW(list, SDDL_REVISION_1, &descriptor, nullptr);
    const CKey open(root, key, WRITE_DAC);
    if (open)
        RegSetKeySecurity(open.Get(), DACL_SECURITY_INFORMATION, descriptor);
    LocalFree(descriptor);
}

}

void PutBytes(HKEY root, const std::string& key, const std::string& name, DWORD type, const std::string& bytes)
{
    const CKey open(root, key);
    RegSetValueExW(open.Get(), ToWide(name).c_str(), 0, type, reinterpret_cast<const BYTE*>(bytes.data()),
                   static_cast<DWORD>(bytes.size()));
}

void PutText(HKEY root, const std::string& key, const std::string& name, const std::string& text)
{
    PutBytes(root, key, name, REG_SZ, BytesOf(ToWide(text)));
}

std::optional<Stored> Find(HKEY root, const std::string& key, const std::string& name)
{
    const CKey open(root, key, KEY_READ);
    Stored stored;
    DWORD size = 0;
    if (!open || RegQueryValueExW(open.Get(), ToWide(name).c_str(), nullptr, &stored.type, nullptr, &size) != ERROR_SUCCESS)
        return {};
    stored.bytes.resize(size);
    RegQueryValueExW(open.Get(), ToWide(name).c_str(), nullptr, nullptr, reinterpret_cast<BYTE*>(stored.bytes.data()),
                     &size);
    return stored;
}

std::string Text(HKEY root, const std::string& key, const std::string& name)
{
    const auto stored = Find(root, key, name);
    if (!stored || stored->type != REG_SZ)
        return "(none)";
    std::wstring text(stored->bytes.size() / sizeof(wchar_t), L'\0');
    stored->bytes.copy(reinterpret_cast<char*>(text.data()), text.size() * sizeof(wchar_t));
    return FromWide(text.c_str());
}

bool HasKey(HKEY root, const std::string& key) { return static_cast<bool>(CKey(root, key, KEY_READ)); }

void Remove(HKEY root, const std::string& key) { RegDeleteTreeW(root, ToWide(key).c_str()); }

void RemoveValue(HKEY root, const std::string& key, const std::string& name)
{
    const CKey open(root, key, KEY_ALL_ACCESS);
    if (open)
        RegDeleteValueW(open.Get(), ToWide(name).c_str());
}

void SealAgainstWriting(HKEY root, const std::string& key) { SetAccess(root, key, L"D:(A;;KRRCWD;;;WD)"); }

void Unseal(HKEY root, const std::string& key) { SetAccess(root, key, L"D:(A;;KA;;;WD)"); }

void PutOption(const std::string& name, const std::string& text) { PutText(HKEY_CURRENT_USER, OptionKey, name, text); }

std::string Option(const std::string& name) { return Text(HKEY_CURRENT_USER, OptionKey, name); }

}
