#pragma once
#include "platform/Registry.h"
#include "platform/headless/Journal.h"
#include <map>
#include <memory>
#include <string>
#include <variant>

namespace platform::headless {

// Both roots in memory. Names ignore the case of ASCII letters and keep their first spelling.
class CRegistry final : public IRegistry {
public:
    explicit CRegistry(CJournal& journal) : m_journal(journal) {}

    std::unique_ptr<IRegistryKey> Open(Root root, std::string_view path) override;
    std::unique_ptr<IRegistryKey> Create(Root root, std::string_view path) override;
    bool DeleteKey(Root root, std::string_view path) override;

    // For tests. A missing text answers without value; the value name "" is the default value.
    void Put(Root root, std::string_view path, const std::string& name, const std::string& text);
    void PutBytes(Root root, std::string_view path, const std::string& name, const std::string& data);
    std::optional<std::string> Text(Root root, std::string_view path, const std::string& name) const;
    bool HasKey(Root root, std::string_view path) const;
    void RefuseToOpen(bool refuse) { m_refuseToOpen = refuse; }
    void RefuseToWrite(bool refuse) { m_refuseToWrite = refuse; }
    void FailNextCall(std::int32_t number, const std::string& description);  // Of any registry call.

private:
    friend class CKey;
    using Values = std::map<std::string, std::string>;  // Name, its letter case folded, to data; "" is the default value.
    static std::string KeyOf(Root root, std::string_view path);
    CJournal& m_journal;
    std::map<std::string, Values> m_keys;
    bool m_refuseToOpen = false;
    bool m_refuseToWrite = false;
};

}
