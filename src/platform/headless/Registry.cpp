#include "platform/headless/Registry.h"
#include "base/text/Case.h"
#include <array>

namespace platform::headless {
namespace {

std::string RootName(Root root) { return root == Root::CurrentUser ? "CurrentUser" : "ClassesRoot"; }

std::string Shown(const ValueName& name) { return name ? *name : "*"; }

std::string Stored(const ValueName& name) { return name ? ::text::FoldCase(*name) : std::string(); }

}

class CKey final : public IRegistryKey {
public:
    CKey(CRegistry& registry, std::string key) : m_registry(registry), m_key(std::move(key)) {}

    std::optional<std::size_t> ValueSize(const ValueName& name) const override
    {
        m_registry.m_journal.Enter("Registry.ValueSize " + Shown(name));
        const std::string* data = Find(name);
        return data == nullptr ? std::nullopt : std::optional(data->size());
    }

    std::optional<std::string> Value(const ValueName& name, std::size_t size) const override
    {
        m_registry.m_journal.Enter("Registry.Value " + Shown(name));
        const std::string* data = Find(name);
        return data == nullptr || data->size() > size ? std::nullopt : std::optional(*data);
    }

    bool SetText(const ValueName& name, const std::string& text) override
    {
        m_registry.m_journal.Enter("Registry.SetText " + Shown(name) + " " + text);
        return Put(name, text + '\0');
    }

    bool SetNumber(const ValueName& name, std::int32_t number) override
    {
        m_registry.m_journal.Enter("Registry.SetNumber " + Shown(name) + " " + std::to_string(number));
        std::string data;
        for (int byte = 0; byte < 4; ++byte)
            data += static_cast<char>(static_cast<std::uint32_t>(number) >> (8 * byte) & 0xFFU);
        return Put(name, data);
    }

    bool DeleteValue(const ValueName& name) override
    {
        m_registry.m_journal.Enter("Registry.DeleteValue " + Shown(name));
        const auto key = m_registry.m_keys.find(m_key);
        return !m_registry.m_refuseToWrite && key != m_registry.m_keys.end() && key->second.erase(Stored(name)) == 1;
    }

private:
    const std::string* Find(const ValueName& name) const
    {
        const auto key = m_registry.m_keys.find(m_key);
        if (key == m_registry.m_keys.end())
            return nullptr;
        const auto value = key->second.find(Stored(name));
        return value == key->second.end() ? nullptr : &value->second;
    }

    bool Put(const ValueName& name, const std::string& data)
    {
        if (m_registry.m_refuseToWrite)
            return false;
        m_registry.m_keys[m_key][Stored(name)] = data;
        return true;
    }

    CRegistry& m_registry;
    std::string m_key;
};

std::string CRegistry::KeyOf(Root root, std::string_view path)
{
    std::string key = RootName(root);
    std::string part;
    for (const char letter : std::string(path) + '\\') {
        if (letter != '\\') {
            part += letter;
            continue;
        }
        if (!part.empty())
            key += '\\' + ::text::FoldCase(part);
        part.clear();
    }
    return key;
}

std::unique_ptr<IRegistryKey> CRegistry::Open(Root root, std::string_view path)
{
    m_journal.Enter("Registry.Open " + RootName(root) + " " + std::string(path));
    if (m_refuseToOpen || !HasKey(root, path))
        return nullptr;
    return std::make_unique<CKey>(*this, KeyOf(root, path));
}

std::unique_ptr<IRegistryKey> CRegistry::Create(Root root, std::string_view path)
{
    m_journal.Enter("Registry.Create " + RootName(root) + " " + std::string(path));
    if (m_refuseToOpen || m_refuseToWrite)
        return nullptr;
    const std::string key = KeyOf(root, path);
    for (std::size_t end = key.find('\\'); end != std::string::npos; end = key.find('\\', end + 1))
        m_keys.try_emplace(key.substr(0, end));
    m_keys.try_emplace(key);
    return std::make_unique<CKey>(*this, key);
}

bool CRegistry::DeleteKey(Root root, std::string_view path)
{
    m_journal.Enter("Registry.DeleteKey " + RootName(root) + " " + std::string(path));
    const std::string key = KeyOf(root, path);
    const auto below = m_keys.upper_bound(key + '\\');
    const bool hasKeysBelow = below != m_keys.end() && below->first.starts_with(key + '\\');
    return !m_refuseToWrite && !hasKeysBelow && m_keys.erase(key) == 1;
}

void CRegistry::Put(Root root, std::string_view path, const std::string& name, const std::string& text)
{
    PutBytes(root, path, name, text + '\0');
}

void CRegistry::PutBytes(Root root, std::string_view path, const std::string& name, const std::string& data)
{
    m_keys[KeyOf(root, path)][::text::FoldCase(name)] = data;
}

std::optional<std::string> CRegistry::Text(Root root, std::string_view path, const std::string& name) const
{
    const auto key = m_keys.find(KeyOf(root, path));
    if (key == m_keys.end())
        return std::nullopt;
    const auto value = key->second.find(::text::FoldCase(name));
    if (value == key->second.end())
        return std::nullopt;
    std::string text = value->second;
    if (!text.empty() && text.back() == '\0')
        text.pop_back();
    return text;
}

bool CRegistry::HasKey(Root root, std::string_view path) const { return m_keys.contains(KeyOf(root, path)); }

void CRegistry::FailNextCall(std::int32_t number, const std::string& description)
{
    m_journal.FailNext("Registry.", CFailure(number, description));
}

}
