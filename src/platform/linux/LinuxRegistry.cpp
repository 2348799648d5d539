#include "platform/linux/LinuxRegistry.h"
#include "base/text/Case.h"
#include "platform/linux/UserFolders.h"
#include "platform/linux/WholeFile.h"
#include "platform/text/RegistryText.h"
#include <cerrno>
#include <filesystem>
#include <sys/stat.h>
#include <unistd.h>
#include <utility>

namespace platform::linuxdesktop {
namespace {
constexpr char EngineClassKey[] = "Agent.Control.2\\CLSID";
constexpr char EngineClass[] = "{D45FD31B-5C6E-11D1-9EC1-00C04FD7081F}";
constexpr char RunKey[] = "Software\\Microsoft\\Windows\\CurrentVersion\\Run";
constexpr char RunValue[] = "Parlune";
constexpr char OptionKey[] = "Software\\Tarrowind\\Parlune";
constexpr char StartOption[] = "StartWithWindows";
constexpr int MostDamagedFiles = 20;

// The character engine is part of the program: its class answers as registered without being stored.
bool IsEngineClass(Root root, const std::string& path)
{
    return root == Root::ClassesRoot && ::text::EqualIgnoringCase(path, EngineClassKey);
}

bool IsRunValue(Root root, const std::string& path, const ValueName& name)
{
    return root == Root::CurrentUser && name && ::text::EqualIgnoringCase(*name, RunValue) &&
           ::text::EqualIgnoringCase(path, RunKey);
}

// The option that says whether the session starts the program.
bool IsStartOption(Root root, const std::string& path, const std::string& name)
{
    return root == Root::CurrentUser && ::text::EqualIgnoringCase(name, StartOption) &&
           ::text::EqualIgnoringCase(path, OptionKey);
}

class CKey final : public IRegistryKey {
public:
    CKey(CLinuxRegistry& registry, Root root, std::string path) : m_registry(registry), m_root(root), m_path(std::move(path))
    {
    }
    std::optional<std::size_t> ValueSize(const ValueName& name) const override
    {
        const auto bytes = m_registry.Bytes(m_root, m_path, name);
        return bytes ? std::optional(bytes->size()) : std::nullopt;
    }
    std::optional<std::string> Value(const ValueName& name, std::size_t size) const override
    {
        auto bytes = m_registry.Bytes(m_root, m_path, name);
        return bytes && bytes->size() <= size ? bytes : std::nullopt;
    }
    bool SetText(const ValueName& name, const std::string& text) override
    {
        return m_registry.Set(m_root, m_path, name, text);
    }
    bool SetNumber(const ValueName& name, std::int32_t number) override
    {
        return m_registry.Set(m_root, m_path, name, number);
    }
    bool DeleteValue(const ValueName& name) override { return m_registry.DeleteValue(m_root, m_path, name); }

private:
    CLinuxRegistry& m_registry;
    Root m_root;
    std::string m_path;
};

std::string BackupOf(const std::string& file) { return file + ".bak"; }
}

bool CLinuxRegistry::Stamp::operator==(const Stamp& other) const
{
    return node == other.node && size == other.size && changed.tv_sec == other.changed.tv_sec &&
           changed.tv_nsec == other.changed.tv_nsec;
}

CLinuxRegistry::CLinuxRegistry(std::string file, CAutostart autostart)
    : m_file(std::move(file)), m_autostart(std::move(autostart))
{
    Load();
}

CLinuxRegistry::~CLinuxRegistry() { Flush(); }

CLinuxRegistry::Stamp CLinuxRegistry::StampNow() const
{
    struct stat status = {};
    if (::stat(m_file.c_str(), &status) != 0)
        return {};
    return {status.st_ino, status.st_size, status.st_mtim};
}

void CLinuxRegistry::ReadAgainIfChanged()
{
    const bool mayHavePassed = !m_readable && !m_answeredBlind;
    if (mayHavePassed || !(StampNow() == m_stamp))
        Load();
    m_answeredBlind = !m_readable;
}

void CLinuxRegistry::Load()
{
    m_stamp = StampNow();
    m_tree = {};
    int error = 0;
    const auto bytes = ReadWhole(m_file, error);
    m_readable = bytes || error == ENOENT || error == ENOTDIR;
    if (!bytes)
        return;
    text::RegistryText read = text::ReadRegistryText(*bytes);
    m_tree = std::move(read.tree);
    if (!read.Sound())
        Mend(*bytes);
}

void CLinuxRegistry::Mend(const std::string& bytes)
{
    int error = 0;
    text::CRegistryTree completed;
    if (const auto backup = ReadWhole(BackupOf(m_file), error))
        completed = text::ReadRegistryText(*backup).tree;
    completed.Add(m_tree);
    m_tree = completed;
    KeepDamagedFile(bytes);
    Store(std::move(completed));
}

// Never over an earlier one. Beyond a great many, the oldest are the most likely to matter, so no more are kept.
void CLinuxRegistry::KeepDamagedFile(const std::string& bytes) const
{
    std::error_code ignored;
    for (int number = 1; number <= MostDamagedFiles; ++number) {
        const std::string name = m_file + ".damaged" + (number == 1 ? "" : "-" + std::to_string(number));
        if (std::filesystem::exists(std::filesystem::symlink_status(name, ignored)))
            continue;
        ReplaceWhole(name, bytes, Survives::PowerLoss);
        return;
    }
}

bool CLinuxRegistry::Store(text::CRegistryTree tree)
{
    const bool stored = m_readable && MakeUserFolders(std::filesystem::path(m_file).parent_path().string()) &&
                        ReplaceWhole(m_file, text::WriteRegistryText(tree), Survives::ProcessEnd) == 0;
    if (!stored)
        return false;
    m_tree = std::move(tree);
    m_stamp = StampNow();
    m_awaitsFlush = true;
    if (m_changed)
        m_changed();
    return true;
}

bool CLinuxRegistry::Flush()
{
    if (!m_awaitsFlush)
        return true;
    // What could not be flushed may be gone from the system's memory, and the next flush would not tell.
    if (m_flushFailed && !Store(m_tree))
        return false;
    m_flushFailed = !FlushToDisk(m_file);
    if (m_flushFailed)
        return false;
    int error = 0;
    const auto bytes = ReadWhole(m_file, error);
    m_awaitsFlush = !bytes || ReplaceWhole(BackupOf(m_file), *bytes, Survives::PowerLoss) != 0;
    return !m_awaitsFlush;
}

std::unique_ptr<IRegistryKey> CLinuxRegistry::Open(Root root, std::string_view path)
{
    ReadAgainIfChanged();
    const auto normal = text::NormalPath(path);
    if (!normal || !(IsEngineClass(root, *normal) || m_tree.HasKey(root, *normal) || m_assumed.HasKey(root, *normal)))
        return nullptr;
    return std::make_unique<CKey>(*this, root, *normal);
}

std::unique_ptr<IRegistryKey> CLinuxRegistry::Create(Root root, std::string_view path)
{
    if (auto existing = Open(root, path))
        return existing;
    text::CRegistryTree tree = m_tree;
    if (!tree.CreateKey(root, path) || !Store(std::move(tree)))
        return nullptr;
    return Open(root, path);
}

void CLinuxRegistry::Assume(Root root, std::string_view path, const std::string& name, std::string value)
{
    if (m_assumed.CreateKey(root, path))
        m_assumed.Set(root, path, name, std::move(value));
}

bool CLinuxRegistry::DeleteKey(Root root, std::string_view path)
{
    ReadAgainIfChanged();
    text::CRegistryTree tree = m_tree;
    if (!tree.DeleteKey(root, path))
        return false;
    const auto normal = text::NormalPath(path);
    const bool isRunKey = root == Root::CurrentUser && normal && ::text::EqualIgnoringCase(*normal, RunKey);
    return (!isRunKey || m_autostart.SwitchOff()) && Store(std::move(tree));
}

std::optional<std::string> CLinuxRegistry::Bytes(Root root, const std::string& path, const ValueName& name)
{
    ReadAgainIfChanged();
    const std::string valueName = name.value_or("");
    if (IsEngineClass(root, path) && valueName.empty())
        return text::BytesOf(std::string(EngineClass));
    // What the user chose in the desktop's settings holds, and the options window shows it.
    if (IsStartOption(root, path, valueName) && m_autostart.IsSwitchedOffByUser())
        return text::BytesOf(std::string("0"));
    const text::RegistryData* data = m_tree.Find(root, path, valueName);
    data = data ? data : m_assumed.Find(root, path, valueName);
    if (!data || (IsRunValue(root, path, name) && !m_autostart.IsOn()))
        return std::nullopt;
    return text::BytesOf(*data);
}

bool CLinuxRegistry::Set(Root root, const std::string& path, const ValueName& name, text::RegistryData data)
{
    ReadAgainIfChanged();
    text::CRegistryTree tree = m_tree;
    if (m_assumed.HasKey(root, path))
        tree.CreateKey(root, path);
    if (IsEngineClass(root, path) || !tree.Set(root, path, name.value_or(""), std::move(data)))
        return false;
    if (!IsRunValue(root, path, name))
        return Store(std::move(tree));
    const bool wasOn = m_autostart.IsOn();
    if (m_autostart.SwitchOn() && Store(std::move(tree)))
        return true;
    if (!wasOn)
        m_autostart.SwitchOff();
    return false;
}

bool CLinuxRegistry::DeleteValue(Root root, const std::string& path, const ValueName& name)
{
    ReadAgainIfChanged();
    text::CRegistryTree tree = m_tree;
    if (!tree.Delete(root, path, name.value_or("")))
        return false;
    return (!IsRunValue(root, path, name) || m_autostart.SwitchOff()) && Store(std::move(tree));
}

}
