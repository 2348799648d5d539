#include "platform/windows/WindowsRegistry.h"
#include "platform/text/RegistryTree.h"
#include "platform/windows/Text.h"
#include "platform/windows/Win32.h"

namespace platform::windowsdesktop {
namespace {
constexpr int ReadingsTried = 5;

HKEY KeyOf(Root root) { return root == Root::CurrentUser ? HKEY_CURRENT_USER : HKEY_CLASSES_ROOT; }

bool HasNul(std::string_view text) { return text.find('\0') != std::string_view::npos; }

// The path for the system; nothing when the system would understand another one.
std::optional<std::string> SystemsPath(std::string_view path)
{
    const auto normal = HasNul(path) ? std::nullopt : text::NormalPath(path);
    return normal ? std::optional(ToAnsi(*normal)) : std::nullopt;
}

bool IsText(DWORD type) { return type == REG_SZ || type == REG_EXPAND_SZ || type == REG_MULTI_SZ; }

// The name of a value for the system: null for the key's default value.
class CSystemsName {
public:
    explicit CSystemsName(const ValueName& name) : m_unnamed(!name), m_name(ToAnsi(name.value_or(""))) {}
    bool IsPossible() const { return !HasNul(m_name); }
    const char* Get() const { return m_unnamed ? nullptr : m_name.c_str(); }

private:
    bool m_unnamed;
    std::string m_name;
};

class CWindowsKey final : public IRegistryKey {
public:
    explicit CWindowsKey(HKEY key) : m_key(key) {}
    ~CWindowsKey() override { RegCloseKey(m_key); }
    CWindowsKey(const CWindowsKey&) = delete;
    CWindowsKey& operator=(const CWindowsKey&) = delete;

    std::optional<std::size_t> ValueSize(const ValueName& name) const override;
    std::optional<std::string> Value(const ValueName& name, std::size_t size) const override;
    bool SetText(const ValueName& name, const std::string& text) override;
    bool SetNumber(const ValueName& name, std::int32_t number) override;
    bool DeleteValue(const ValueName& name) override;

private:
    std::optional<std::string> Read(const ValueName& name) const;
    bool Set(const ValueName& name, DWORD type, const void* data, std::size_t size);
    HKEY m_key;
};

// Asks for the size first, then for the data; once more when the value has grown meanwhile.
std::optional<std::string> CWindowsKey::Read(const ValueName& name) const
{
    const CSystemsName systemsName(name);
    for (int tried = 0; systemsName.IsPossible() && tried < ReadingsTried; ++tried) {
        DWORD type = 0, size = 0;
        if (RegQueryValueExA(m_key, systemsName.Get(), nullptr, &type, nullptr, &size) != ERROR_SUCCESS)
            return std::nullopt;
        std::string data(size + 1, '\0');
        const LSTATUS status =
            RegQueryValueExA(m_key, systemsName.Get(), nullptr, &type, reinterpret_cast<BYTE*>(data.data()), &size);
        if (status == ERROR_SUCCESS) {
            data.resize(size);
            return IsText(type) ? FromAnsi(data) : data;
        }
        if (status != ERROR_MORE_DATA)
            return std::nullopt;
    }
    return std::nullopt;
}

// The size in UTF-8, which is what the caller will get.
std::optional<std::size_t> CWindowsKey::ValueSize(const ValueName& name) const
{
    const auto data = Read(name);
    return data ? std::optional(data->size()) : std::nullopt;
}

std::optional<std::string> CWindowsKey::Value(const ValueName& name, std::size_t size) const
{
    auto data = Read(name);
    return data && data->size() <= size ? std::move(data) : std::nullopt;
}

bool CWindowsKey::Set(const ValueName& name, DWORD type, const void* data, std::size_t size)
{
    const CSystemsName systemsName(name);
    return systemsName.IsPossible() && RegSetValueExA(m_key, systemsName.Get(), 0, type, static_cast<const BYTE*>(data),
                                                      static_cast<DWORD>(size)) == ERROR_SUCCESS;
}

// The terminator is not counted, but it stands behind the text: the system then stores it. An empty text would be stored
// without one, as no data at all, which reads as a missing value: there it is counted.
bool CWindowsKey::SetText(const ValueName& name, const std::string& text)
{
    const std::string bytes = ToAnsi(text);
    return Set(name, REG_SZ, bytes.c_str(), bytes.empty() ? 1 : bytes.size());
}

bool CWindowsKey::SetNumber(const ValueName& name, std::int32_t number)
{
    return Set(name, REG_DWORD, &number, sizeof number);
}

bool CWindowsKey::DeleteValue(const ValueName& name)
{
    const CSystemsName systemsName(name);
    return systemsName.IsPossible() && RegDeleteValueA(m_key, systemsName.Get()) == ERROR_SUCCESS;
}
}

std::unique_ptr<IRegistryKey> CWindowsRegistry::Open(Root root, std::string_view path)
{
    const auto name = SystemsPath(path);
    HKEY key = nullptr;
    if (!name || RegOpenKeyExA(KeyOf(root), name->c_str(), 0, KEY_ALL_ACCESS, &key) != ERROR_SUCCESS)
        return nullptr;
    return std::make_unique<CWindowsKey>(key);
}

std::unique_ptr<IRegistryKey> CWindowsRegistry::Create(Root root, std::string_view path)
{
    const auto name = SystemsPath(path);
    HKEY key = nullptr;
    if (!name || RegCreateKeyExA(KeyOf(root), name->c_str(), 0, nullptr, REG_OPTION_NON_VOLATILE, KEY_ALL_ACCESS, nullptr,
                                 &key, nullptr) != ERROR_SUCCESS)
        return nullptr;
    return std::make_unique<CWindowsKey>(key);
}

// An empty path would be the root itself.
bool CWindowsRegistry::DeleteKey(Root root, std::string_view path)
{
    const auto name = SystemsPath(path);
    return name && !name->empty() && RegDeleteKeyA(KeyOf(root), name->c_str()) == ERROR_SUCCESS;
}

}
