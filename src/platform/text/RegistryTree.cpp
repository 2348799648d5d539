#include "platform/text/RegistryTree.h"
#include "base/text/Case.h"
#include <algorithm>

namespace platform::text {
namespace {
constexpr char Separator = '\\';
constexpr std::ptrdiff_t DeepestKey = 32;
constexpr std::size_t LongestPath = 2048;

std::string BytesOfNumber(std::int32_t number)
{
    std::string bytes;
    for (int shift = 0; shift < 32; shift += 8)
        bytes += static_cast<char>(static_cast<std::uint8_t>(static_cast<std::uint32_t>(number) >> shift));
    return bytes;
}
}

std::string BytesOf(const RegistryData& data)
{
    if (const auto* text = std::get_if<std::string>(&data))
        return *text + '\0';
    return BytesOfNumber(std::get<std::int32_t>(data));
}

std::optional<std::string> NormalPath(std::string_view path)
{
    std::string normal;
    for (const char c : path) {
        const bool extraSeparator = c == Separator && (normal.empty() || normal.back() == Separator);
        if (!extraSeparator)
            normal += c;
    }
    if (!normal.empty() && normal.back() == Separator)
        normal.pop_back();
    if (normal.size() > LongestPath || std::count(normal.begin(), normal.end(), Separator) >= DeepestKey)
        return std::nullopt;
    return normal;
}

const RegistryKeyNode* CRegistryTree::Node(Root root, std::string_view path) const
{
    const auto normal = NormalPath(path);
    if (!normal)
        return nullptr;
    const auto node = KeysBelow(root).find(::text::FoldCase(*normal));
    return node == KeysBelow(root).end() ? nullptr : &node->second;
}

bool CRegistryTree::HasKey(Root root, std::string_view path) const
{
    return NormalPath(path) == "" || Node(root, path) != nullptr;
}

bool CRegistryTree::CreateKey(Root root, std::string_view path)
{
    const auto normal = NormalPath(path);
    if (!normal)
        return false;
    for (std::size_t end = 0; end != std::string::npos;) {
        end = normal->find(Separator, end == 0 ? 0 : end + 1);
        const std::string upTo = normal->substr(0, end);
        KeysBelow(root).try_emplace(::text::FoldCase(upTo), RegistryKeyNode{upTo, {}});
    }
    return true;
}

bool CRegistryTree::DeleteKey(Root root, std::string_view path)
{
    const auto normal = NormalPath(path);
    if (!normal || normal->empty())
        return false;
    const std::string key = ::text::FoldCase(*normal);
    const auto below = KeysBelow(root).lower_bound(key + Separator);
    if (below != KeysBelow(root).end() && below->first.starts_with(key + Separator))
        return false;
    return KeysBelow(root).erase(key) != 0;
}

const RegistryData* CRegistryTree::Find(Root root, std::string_view path, std::string_view name) const
{
    const RegistryKeyNode* node = Node(root, path);
    if (!node)
        return nullptr;
    const auto value = node->values.find(::text::FoldCase(name));
    return value == node->values.end() ? nullptr : &value->second.data;
}

bool CRegistryTree::Set(Root root, std::string_view path, std::string_view name, RegistryData data)
{
    const auto normal = NormalPath(path);
    if (!normal || !HasKey(root, *normal))
        return false;
    auto& values = KeysBelow(root).try_emplace(::text::FoldCase(*normal), RegistryKeyNode{*normal, {}}).first->second.values;
    values.try_emplace(::text::FoldCase(name), RegistryValue{std::string(name), {}}).first->second.data = std::move(data);
    return true;
}

bool CRegistryTree::Delete(Root root, std::string_view path, std::string_view name)
{
    const auto normal = NormalPath(path);
    if (!normal)
        return false;
    const auto node = KeysBelow(root).find(::text::FoldCase(*normal));
    return node != KeysBelow(root).end() && node->second.values.erase(::text::FoldCase(name)) != 0;
}

void CRegistryTree::Add(const CRegistryTree& other)
{
    for (const Root root : {Root::ClassesRoot, Root::CurrentUser}) {
        for (const auto& [folded, node] : other.KeysBelow(root)) {
            CreateKey(root, node.path);
            for (const auto& [foldedName, value] : node.values)
                Set(root, node.path, value.name, value.data);
        }
    }
}

}
