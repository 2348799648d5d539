#include "engine/files/CharacterFolders.h"
#include "base/text/Case.h"
#include "engine/files/AcsFormat.h"
#include "engine/files/AcsReader.h"
#include "platform/CharacterEngine.h"
#include "platform/Failure.h"
#include <algorithm>
#include <fstream>
#include <map>
#include <system_error>

namespace engine {
namespace {

namespace fs = std::filesystem;
namespace engineError = platform::engineError;

constexpr std::string_view CharacterExtension = ".acs";  // Its letter case folded.

fs::path PathOf(std::string_view utf8) { return {std::u8string(utf8.begin(), utf8.end())}; }

// Names that cannot be written as UTF-8 have no text.
std::string TextOf(const fs::path& path)
{
    try {
        const std::u8string text = path.u8string();
        return {text.begin(), text.end()};
    } catch (const std::exception&) {
        return {};
    }
}

platform::CFailure FileNotFound(const std::string& file)
{
    return {engineError::FileNotFound, "The character file \"" + file + "\" cannot be found."};
}

std::vector<fs::path> EntriesOf(const fs::path& folder)
{
    std::vector<fs::path> entries;
    std::error_code error;
    for (fs::directory_iterator entry(folder, error); !error && entry != fs::directory_iterator(); entry.increment(error))
        entries.push_back(entry->path());
    return entries;
}

bool IsFile(const fs::path& path)
{
    std::error_code error;
    return fs::is_regular_file(path, error);
}

// The entry of that name, or else the first one (in the order of names) that differs in letter case only; empty if there
// is none.
fs::path EntryOfName(const fs::path& folder, std::string_view name)
{
    const std::string folded = text::FoldCase(name);
    fs::path found;
    for (const fs::path& entry : EntriesOf(folder)) {
        const std::string entryName = TextOf(entry.filename());
        if (entryName == name)
            return entry;
        if (text::FoldCase(entryName) == folded && (found.empty() || entry < found))
            found = entry;
    }
    return found;
}

std::vector<std::string_view> PartsOf(std::string_view path)
{
    std::vector<std::string_view> parts;
    while (!path.empty()) {
        const std::size_t end = std::min(path.find_first_of("/\\"), path.size());
        if (end > 0 && path.substr(0, end) != ".")
            parts.push_back(path.substr(0, end));
        path.remove_prefix(std::min(end + 1, path.size()));
    }
    return parts;
}

// The file below a folder, or an empty path. ".." is no entry of any folder, so nothing leads out.
fs::path FileBelow(fs::path folder, const std::vector<std::string_view>& parts)
{
    for (const std::string_view part : parts) {
        folder = EntryOfName(folder, part);
        if (folder.empty())
            return {};
    }
    return IsFile(folder) ? folder : fs::path();
}

CharacterRef ReadFile(const fs::path& path)
{
    std::error_code error;
    const std::uintmax_t size = fs::file_size(path, error);
    std::ifstream stream(path, std::ios::binary);
    if (error || !stream)
        throw FileNotFound(TextOf(path));
    if (size > files::MaximumFileSize)
        throw platform::CFailure(engineError::InvalidData, "The character file is too large.");
    const auto bytes = std::make_shared<std::vector<std::uint8_t>>(static_cast<std::size_t>(size));
    stream.read(reinterpret_cast<char*>(bytes->data()), static_cast<std::streamsize>(size));
    if (stream.gcount() != static_cast<std::streamsize>(size))
        throw platform::CFailure(engineError::InvalidData, "The character file cannot be read to its end.");
    return ReadCharacterFile(bytes);
}

// Null when it cannot be loaded.
template <class Procedure> CharacterRef OrNull(Procedure&& load)
{
    try {
        return load();
    } catch (const platform::CFailure&) {
        return nullptr;
    }
}

}

CCharacterFolders::CCharacterFolders(const std::vector<std::string>& folders, std::string defaultName)
    : m_defaultName(std::move(defaultName))
{
    for (const std::string& folder : folders)
        m_folders.push_back(PathOf(folder));
}

CharacterRef CCharacterFolders::Load(const std::string& file)
{
    const fs::path path = FindOrEmpty(file);
    if (path.empty())
        throw FileNotFound(file);
    return ReadFile(path);
}

CharacterRef CCharacterFolders::LoadDefault()
{
    CharacterRef first = m_defaultName.empty() ? nullptr : OrNull([&] { return Load(m_defaultName); });
    if (first)
        return first;
    for (const fs::path& path : AllFiles()) {
        const CharacterRef character = OrNull([&] { return ReadFile(path); });
        if (character && character->hasStandardSet)
            return character;
        first = first ? first : character;
    }
    if (!first)
        throw platform::CFailure(engineError::NoStandardCharacter, "No character is installed.");
    return first;
}

std::vector<std::string> CCharacterFolders::Installed()
{
    std::vector<std::string> names;
    for (const fs::path& path : AllFiles())
        names.push_back(TextOf(path.filename()));
    return names;
}

// A text that is no path of this system names no file.
fs::path CCharacterFolders::FindOrEmpty(const std::string& file) const
{
    try {
        return file.find('\0') == std::string::npos ? Find(file) : fs::path();
    } catch (const std::system_error&) {
        return {};
    }
}

fs::path CCharacterFolders::Find(const std::string& file) const
{
    const fs::path path = PathOf(file);
    if (path.has_root_path())
        return IsFile(path) ? path : fs::path();
    const std::vector<std::string_view> parts = PartsOf(file);
    for (const fs::path& folder : m_folders) {
        fs::path found = parts.empty() ? fs::path() : FileBelow(folder, parts);
        if (!found.empty())
            return found;
    }
    return {};
}

// In the order of names; of equal names that of the first folder only, as Load would find it.
std::vector<fs::path> CCharacterFolders::AllFiles() const
{
    std::map<std::string, fs::path> byName;
    for (const fs::path& folder : m_folders) {
        for (const fs::path& entry : EntriesOf(folder)) {
            const std::string name = text::FoldCase(TextOf(entry.filename()));
            if (name.ends_with(CharacterExtension) && IsFile(entry))
                byName.try_emplace(name, entry);
        }
    }
    std::vector<fs::path> paths;
    for (const auto& [name, path] : byName)
        paths.push_back(path);
    return paths;
}

}
