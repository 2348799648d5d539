#include "faults/calls/Saves.h"
#include "platform/Failure.h"
#include "platform/linux/Autostart.h"
#include "platform/linux/EngineSettingsFile.h"
#include "platform/linux/LinuxFiles.h"
#include "platform/linux/LinuxProfile.h"
#include "platform/linux/LinuxRegistry.h"
#include "platform/linux/LinuxStateFile.h"
#include <cstdio>
#include <sys/stat.h>
#include <utility>

namespace faults {
namespace {
using namespace platform::linuxdesktop;
using platform::Root;

constexpr char OptionKey[] = "Software\\Tarrowind\\Parlune";
constexpr char RunKey[] = "Software\\Microsoft\\Windows\\CurrentVersion\\Run";
constexpr char FormerSettings[] =
    "; of the user\r\n[Robby]\r\nFontSize=9\r\nFontName=Sans\r\n\r\n[Merlin]\r\nFontSize=12\r\n";

// Long enough for more than one write of a small buffer.
std::string LongText(char letter) { return std::string(20'000, letter) + "\r\nGr\xC3\xBC\xC3\x9F\x65"; }

template <class Store> class CSave final : public ISave {
public:
    CSave(std::unique_ptr<Store> store, std::function<bool(Store&)> act) : m_store(std::move(store)), m_act(std::move(act))
    {
    }
    bool Act() override { return m_act(*m_store); }

private:
    std::unique_ptr<Store> m_store;
    std::function<bool(Store&)> m_act;
};

template <class Store> std::unique_ptr<ISave> Save(std::unique_ptr<Store> store, std::function<bool(Store&)> act)
{
    return std::make_unique<CSave<Store>>(std::move(store), std::move(act));
}

void MakePrivate(const CTemporaryFolder& folder, const std::string& name) { ::chmod(folder.Path(name).c_str(), 0600); }

CAutostart AutostartIn(const CTemporaryFolder& folder) { return {folder.Path("autostart/parlune.desktop"), "/opt/parlune"}; }

std::unique_ptr<CLinuxRegistry> RegistryIn(const CTemporaryFolder& folder)
{
    return std::make_unique<CLinuxRegistry>(folder.Path("parlune/registry.txt"), AutostartIn(folder));
}

// With some options stored and safely on the disk.
std::unique_ptr<CLinuxRegistry> UsedRegistryIn(const CTemporaryFolder& folder)
{
    auto registry = RegistryIn(folder);
    const auto key = registry->Create(Root::CurrentUser, OptionKey);
    key->SetText("UserName", "Ann");
    key->SetText("Greeting1", LongText('g'));
    registry->Flush();
    MakePrivate(folder, "parlune/registry.txt");
    return registry;
}

bool SetOption(CLinuxRegistry& registry, const char* path, const char* name, const std::string& text)
{
    const auto key = registry.Open(Root::CurrentUser, path);
    return key && key->SetText(name, text);
}

// By calls that the C library makes inside of itself.
std::string ReadUnwatched(const std::string& path)
{
    char bytes[4096] = "";
    if (std::FILE* const file = std::fopen(path.c_str(), "rb")) {
        bytes[std::fread(bytes, 1, sizeof bytes - 1, file)] = '\0';
        std::fclose(file);
    }
    return bytes;
}

std::unique_ptr<ISave> FirstKey(const CTemporaryFolder& folder)
{
    return Save<CLinuxRegistry>(RegistryIn(folder), [](CLinuxRegistry& registry) {
        const bool created = registry.Create(Root::CurrentUser, OptionKey) != nullptr;
        return registry.Flush() && created;
    });
}

std::unique_ptr<ISave> ChangedOption(const CTemporaryFolder& folder)
{
    return Save<CLinuxRegistry>(UsedRegistryIn(folder), [](CLinuxRegistry& registry) {
        const bool set = SetOption(registry, OptionKey, "UserName", "Bob");
        return registry.Flush() && set;
    });
}

std::unique_ptr<ISave> DeletedOptions(const CTemporaryFolder& folder)
{
    return Save<CLinuxRegistry>(UsedRegistryIn(folder), [](CLinuxRegistry& registry) {
        const bool deleted = registry.DeleteKey(Root::CurrentUser, OptionKey);
        return registry.Flush() && deleted;
    });
}

std::unique_ptr<ISave> AutostartOn(const CTemporaryFolder& folder)
{
    auto registry = UsedRegistryIn(folder);
    registry->Create(Root::CurrentUser, RunKey);
    registry->Flush();
    return Save<CLinuxRegistry>(std::move(registry), [](CLinuxRegistry& used) {
        const bool set = SetOption(used, RunKey, "Parlune", "/opt/parlune");
        return used.Flush() && set;
    });
}

std::unique_ptr<ISave> AutostartOff(const CTemporaryFolder& folder)
{
    auto registry = UsedRegistryIn(folder);
    registry->Create(Root::CurrentUser, RunKey)->SetText("Parlune", "/opt/parlune");
    registry->Flush();
    return Save<CLinuxRegistry>(std::move(registry), [](CLinuxRegistry& used) {
        const auto key = used.Open(Root::CurrentUser, RunKey);
        const bool deleted = key && key->DeleteValue("Parlune");
        return used.Flush() && deleted;
    });
}

std::unique_ptr<ISave> AutostartMoved(const CTemporaryFolder& folder)
{
    CAutostart(folder.Path("autostart/parlune.desktop"), "/gone/parlune").SwitchOn();
    // Nobody is told: the next start tries again.
    return Save<CAutostart>(std::make_unique<CAutostart>(AutostartIn(folder)), [&folder](CAutostart& autostart) {
        autostart.FollowProgram();
        return ReadUnwatched(folder.Path("autostart/parlune.desktop")).find("/opt/parlune") != std::string::npos;
    });
}

std::unique_ptr<ISave> FirstSetting(const CTemporaryFolder& folder)
{
    return Save<CLinuxProfile>(std::make_unique<CLinuxProfile>(),
                               [file = folder.Path("Parlune.ini")](CLinuxProfile& profile) {
                                   return profile.Write(file, "Robby", "FontSize", "10");
                               });
}

std::unique_ptr<ISave> ChangedSetting(const CTemporaryFolder& folder)
{
    folder.Write("Parlune.ini", FormerSettings);
    MakePrivate(folder, "Parlune.ini");
    return FirstSetting(folder);
}

std::unique_ptr<ISave> RemovedSettings(const CTemporaryFolder& folder)
{
    folder.Write("Parlune.ini", FormerSettings);
    return Save<CLinuxProfile>(std::make_unique<CLinuxProfile>(),
                               [file = folder.Path("Parlune.ini")](CLinuxProfile& profile) {
                                   return profile.Write(file, "Robby", std::nullopt, std::nullopt);
                               });
}

std::unique_ptr<ISave> SaveText(const std::string& file)
{
    return Save<CLinuxFiles>(std::make_unique<CLinuxFiles>(), [file](CLinuxFiles& files) {
        try {
            files.WriteLine(file, LongText('n'));
        } catch (const platform::CFailure&) {
            return false;
        }
        return true;
    });
}

std::unique_ptr<ISave> NewText(const CTemporaryFolder& folder) { return SaveText(folder.Path("letter.txt")); }

std::unique_ptr<ISave> ChangedText(const CTemporaryFolder& folder)
{
    folder.Write("letter.txt", LongText('f'));
    MakePrivate(folder, "letter.txt");
    return SaveText(folder.Path("letter.txt"));
}

std::unique_ptr<ISave> LinkedText(const CTemporaryFolder& folder)
{
    folder.Write("real/letter.txt", LongText('f'));
    std::filesystem::create_symlink("real/letter.txt", folder.Path("letter.txt"));
    return SaveText(folder.Path("letter.txt"));
}

std::unique_ptr<ISave> KeepChoices(const CTemporaryFolder& folder)
{
    const std::string file = folder.Path("state/options.journal");
    return Save<CLinuxStateFile>(std::make_unique<CLinuxStateFile>(file, [] { return true; }),
                                 [file](CLinuxStateFile& state) {
                                     state.Keep("the user's choices");
                                     state.Finish();
                                     return ReadUnwatched(file) == "the user's choices";
                                 });
}

std::unique_ptr<ISave> KeepOtherChoices(const CTemporaryFolder& folder)
{
    folder.Write("state/options.journal", "what was chosen before");
    MakePrivate(folder, "state/options.journal");
    return KeepChoices(folder);
}

std::unique_ptr<ISave> SaveEngineOptions(const CTemporaryFolder& folder)
{
    return Save<CEngineSettingsFile>(std::make_unique<CEngineSettingsFile>(folder.Path("parlune/character-engine.txt")),
                                     [](CEngineSettingsFile& file) { return file.Write("SpeakingSpeed=5\n"); });
}

std::unique_ptr<ISave> ChangedEngineOptions(const CTemporaryFolder& folder)
{
    folder.Write("parlune/character-engine.txt", "SpeakingSpeed=7\nBalloonOn=1\n");
    return SaveEngineOptions(folder);
}
}

const std::vector<SaveKind>& AllSaves()
{
    static const std::vector<SaveKind> saves = {
        {"FirstKey", FirstKey},
        {"ChangedOption", ChangedOption},
        {"DeletedOptions", DeletedOptions},
        {"AutostartOn", AutostartOn},
        {"AutostartOff", AutostartOff},
        {"AutostartMoved", AutostartMoved},
        {"FirstSetting", FirstSetting},
        {"ChangedSetting", ChangedSetting},
        {"RemovedSettings", RemovedSettings},
        {"NewText", NewText},
        {"ChangedText", ChangedText},
        {"LinkedText", LinkedText},
        {"FirstChoices", KeepChoices},
        {"OtherChoices", KeepOtherChoices},
        {"FirstEngineOptions", SaveEngineOptions},
        {"ChangedEngineOptions", ChangedEngineOptions},
    };
    return saves;
}

Snapshot TakeSnapshot(const std::string& folder)
{
    Snapshot snapshot;
    for (const auto& entry : std::filesystem::recursive_directory_iterator(folder)) {
        if (!entry.is_regular_file() || entry.is_symlink())
            continue;
        std::ifstream file(entry.path(), std::ios::binary);
        snapshot[std::filesystem::relative(entry.path(), folder).string()] = {
            std::string(std::istreambuf_iterator<char>(file), {}), static_cast<unsigned>(entry.status().permissions())};
    }
    return snapshot;
}

std::optional<FileState> In(const Snapshot& snapshot, const std::string& path)
{
    const auto found = snapshot.find(path);
    return found == snapshot.end() ? std::nullopt : std::optional(found->second);
}

}
