#pragma once
#include <cstddef>
#include <cstdint>
#include <memory>
#include <optional>
#include <string>
#include <string_view>

namespace platform {

enum class Root { ClassesRoot, CurrentUser };

// The name of a value of a key; no name stands for the key's default (unnamed) value.
using ValueName = std::optional<std::string>;

// One open key. Released by its owner; nothing is cached, every call reaches the store.
class IRegistryKey {
public:
    virtual ~IRegistryKey() = default;
    // Bytes of the value's data, a text's terminating NUL included; nothing when the value does not exist.
    virtual std::optional<std::size_t> ValueSize(const ValueName& name) const = 0;
    // The value's data, at most `size` bytes; nothing when the value is missing or longer than `size`.
    virtual std::optional<std::string> Value(const ValueName& name, std::size_t size) const = 0;
    // Writes a text (stored with its terminator) or a 32-bit number; false when the store refuses.
    virtual bool SetText(const ValueName& name, const std::string& text) = 0;
    virtual bool SetNumber(const ValueName& name, std::int32_t number) = 0;
    // False when the value does not exist or the store refuses.
    virtual bool DeleteValue(const ValueName& name) = 0;
};

// Keys and values below two roots. Paths are separated by "\" on every system; case does not matter; doubled and
// trailing separators are ignored.
class IRegistry {
public:
    virtual ~IRegistry() = default;
    // Opens an existing key for reading and writing; null when it does not exist or is refused.
    virtual std::unique_ptr<IRegistryKey> Open(Root root, std::string_view path) = 0;
    // Opens a key, creating every missing one on the way; null when the store refuses.
    virtual std::unique_ptr<IRegistryKey> Create(Root root, std::string_view path) = 0;
    // Deletes a key and its values; false when it does not exist, still has keys below it, or the store refuses.
    virtual bool DeleteKey(Root root, std::string_view path) = 0;
};

}
