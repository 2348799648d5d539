#pragma once
#include "platform/Registry.h"
#include <cstdint>
#include <map>
#include <optional>
#include <string>
#include <string_view>
#include <variant>

namespace platform::text {

// A text or a 32-bit number.
using RegistryData = std::variant<std::string, std::int32_t>;

// The data as bytes: a text with its terminating NUL, a number in four bytes, the lowest first.
std::string BytesOf(const RegistryData& data);

// A path below a root in its one form: no doubled, leading or trailing separator. Nothing when it is deeper or longer
// than a store accepts.
std::optional<std::string> NormalPath(std::string_view path);

struct RegistryValue {
    std::string name;  // As written first; "" for the default value.
    RegistryData data;
};

struct RegistryKeyNode {
    std::string path;                             // As written first, below its root.
    std::map<std::string, RegistryValue> values;  // By folded name; the default value by "".
};

// Keys and values below the roots, in memory. Names ignore case and keep the spelling in which they were written first.
// An empty name and an absent one both stand for the default value.
class CRegistryTree {
public:
    // True for every root itself.
    bool HasKey(Root root, std::string_view path) const;
    // Creates a key and every missing one above it. False when the path is too deep or too long.
    bool CreateKey(Root root, std::string_view path);
    // False when the key does not exist, is a root or has keys below it.
    bool DeleteKey(Root root, std::string_view path);

    // Null when key or value is missing. Borrowed until the next change.
    const RegistryData* Find(Root root, std::string_view path, std::string_view name) const;
    // False when the key does not exist.
    bool Set(Root root, std::string_view path, std::string_view name, RegistryData data);
    bool Delete(Root root, std::string_view path, std::string_view name);

    // Adds everything of another tree; its values win.
    void Add(const CRegistryTree& other);

    using Keys = std::map<std::string, RegistryKeyNode>;  // By folded path.
    const Keys& KeysBelow(Root root) const { return root == Root::CurrentUser ? m_currentUser : m_classesRoot; }

private:
    Keys& KeysBelow(Root root) { return root == Root::CurrentUser ? m_currentUser : m_classesRoot; }
    const RegistryKeyNode* Node(Root root, std::string_view path) const;

    Keys m_currentUser;
    Keys m_classesRoot;
};

}
