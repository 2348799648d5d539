#pragma once
#include "platform/Registry.h"
#include "platform/linux/Autostart.h"
#include "platform/text/RegistryTree.h"
#include <ctime>
#include <functional>
#include <memory>
#include <string>
#include <sys/types.h>

namespace platform::linuxdesktop {

// The registry in one text file (platform/text/RegistryText.h). Every change is in the file before its call returns, so that
// the end of the process at any moment loses nothing; Flush makes it survive a loss of power too. One process at a time.
//
// The state of the last Flush is kept beside the file as "NAME.bak". A file that is damaged or cut short is read as far as
// possible, completed from there, kept under a name of its own ("NAME.damaged") and written anew. A file that cannot be
// read at all is left alone: the registry then is empty and refuses every write. At the first question the reading is tried
// once more.
class CLinuxRegistry final : public IRegistry {
public:
    CLinuxRegistry(std::string file, CAutostart autostart);
    ~CLinuxRegistry() override;
    std::unique_ptr<IRegistryKey> Open(Root root, std::string_view path) override;
    std::unique_ptr<IRegistryKey> Create(Root root, std::string_view path) override;
    bool DeleteKey(Root root, std::string_view path) override;

    // A text that is read where none is stored; it never is stored itself.
    void Assume(Root root, std::string_view path, const std::string& name, std::string value);

    bool Flush();  // True when everything is safely on the disk.
    // Called after every change that awaits a Flush.
    void OnChange(std::function<void()> changed) { m_changed = std::move(changed); }

    // For the keys.
    std::optional<std::string> Bytes(Root root, const std::string& path, const ValueName& name);
    bool Set(Root root, const std::string& path, const ValueName& name, text::RegistryData data);
    bool DeleteValue(Root root, const std::string& path, const ValueName& name);

private:
    // What tells whether somebody else has written the file.
    struct Stamp {
        ino_t node = 0;
        off_t size = -1;  // No file.
        timespec changed = {};
        bool operator==(const Stamp& other) const;
    };
    Stamp StampNow() const;
    void ReadAgainIfChanged();
    void Load();
    void Mend(const std::string& bytes);
    void KeepDamagedFile(const std::string& bytes) const;
    bool Store(text::CRegistryTree tree);

    std::string m_file;
    CAutostart m_autostart;
    text::CRegistryTree m_tree;
    text::CRegistryTree m_assumed;
    Stamp m_stamp;
    bool m_readable = true;
    bool m_answeredBlind = false;  // Somebody was told that nothing is there while the file could not be read.
    bool m_awaitsFlush = false;
    bool m_flushFailed = false;
    std::function<void()> m_changed;
};

}
