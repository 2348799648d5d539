#include "settings/zbRegistry.h"
#include "common/zbErrorTrap.h"
#include "platform/Platform.h"
#include <functional>
#include <memory>
#include <optional>

namespace zbRegistry {
namespace {

using platform::Current;
using platform::IRegistryKey;
using zbErrorTrap::CGuard;

constexpr char Module[] = "bRegistry";

// "*" and "" both stand for the key's default value; only DelReg gives "" a meaning of its own.
platform::ValueName NameOf(const std::string& valueName)
{
    return valueName.empty() || valueName == "*" ? std::nullopt : std::optional(valueName);
}

bool WriteValue(Root root, const std::string& path, const std::function<bool(IRegistryKey&)>& write)
{
    const CGuard guard(Module, "SetReg");
    std::unique_ptr<IRegistryKey> key;
    bool written = false;

    guard([&] { key = Current().registry.Create(root, path); });
    if (key)
        guard([&] { written = write(*key); });
    return written;
}

}

std::string GetReg(Root root, const std::string& path, const std::string& valueName, const std::string& defaultValue)
{
    const CGuard guard(Module, "GetReg");
    std::string result = defaultValue;
    std::unique_ptr<IRegistryKey> key;
    std::optional<std::size_t> size;
    std::optional<std::string> data;

    guard([&] { key = Current().registry.Open(root, path); });
    if (!key)
        return result;
    guard([&] { size = key->ValueSize(NameOf(valueName)); });
    if (size.value_or(0) < 1)
        return result;
    guard([&] { data = key->Value(NameOf(valueName), *size); });
    if (data)
        guard([&] { result = data->substr(0, *size - 1); });
    return result;
}

bool SetReg(Root root, const std::string& path, const std::string& valueName, const std::string& value)
{
    return WriteValue(root, path, [&](IRegistryKey& key) { return key.SetText(NameOf(valueName), value); });
}

bool SetReg(Root root, const std::string& path, const std::string& valueName, std::int32_t value)
{
    return WriteValue(root, path, [&](IRegistryKey& key) { return key.SetNumber(NameOf(valueName), value); });
}

bool DelReg(Root root, const std::string& path, const std::string& valueName)
{
    const CGuard guard(Module, "DelReg");
    std::unique_ptr<IRegistryKey> key;
    bool deleted = false;

    if (valueName.empty()) {
        guard([&] { deleted = Current().registry.DeleteKey(root, path); });
        return deleted;
    }
    guard([&] { key = Current().registry.Open(root, path); });
    if (key)
        guard([&] { deleted = key->DeleteValue(NameOf(valueName)); });
    return deleted;
}

}
