#include "platform/kept/KeptTextStore.h"
#include "base/text/Utf8.h"
#include <algorithm>
#include <cstdio>

namespace platform::kept {
namespace {
constexpr std::string_view Unsaved = "unsaved ";
constexpr std::string_view Form = "0000-00-00 00-00-00";  // A "0" stands for a digit.
constexpr std::size_t LongestName = 120;                  // Bytes; with its date a name stays below every disk's limit.
constexpr int MostInASecond = 99;

bool IsStamped(std::string_view name)
{
    if (name.size() <= Form.size())
        return false;
    return std::equal(Form.begin(), Form.end(), name.begin(),
                      [](char form, char c) { return form == '0' ? c >= '0' && c <= '9' : c == form; });
}

std::string Stamp(const LocalTime& time)
{
    char stamp[96];
    std::snprintf(stamp, sizeof stamp, "%04d-%02d-%02d %02d-%02d-%02d", time.year, time.month, time.day, time.hour,
                  time.minute, time.second);
    return stamp;
}

// The first of a second bears no number; names keep the order in which they were given.
std::string Numbered(const std::string& stamp, int number)
{
    char text[16] = "";
    if (number > 1)
        std::snprintf(text, sizeof text, ".%02d", number);
    return stamp + text + " ";
}

bool IsUsed(const std::vector<KeptFile>& files, const std::string& beginning)
{
    return std::any_of(files.begin(), files.end(), [&](const KeptFile& file) { return file.name.starts_with(beginning); });
}

bool MayBeInAName(char c)
{
    constexpr std::string_view Refused = "<>:\"|?*";
    return static_cast<unsigned char>(c) >= 0x20 && c != 0x7F && Refused.find(c) == std::string_view::npos;
}

// The end tells what kind of file it is: the middle is left out.
std::string Shortened(std::string_view name)
{
    if (name.size() <= LongestName)
        return std::string(name);
    const std::size_t dot = name.rfind('.');
    const std::string_view ending = dot == name.npos || name.size() - dot > 16 ? std::string_view() : name.substr(dot);
    return std::string(::text::CutBetweenCharacters(name, LongestName - ending.size())) + std::string(ending);
}

std::vector<KeptFile> NewestFirst(std::vector<KeptFile> files)
{
    std::sort(files.begin(), files.end(),
              [](const KeptFile& left, const KeptFile& right) { return left.name > right.name; });
    return files;
}
}

std::string CKeptTextStore::PlainName(std::string_view file)
{
    std::string name(file.substr(file.find_last_of("/\\") + 1));
    std::replace_if(
        name.begin(), name.end(), [](char c) { return !MayBeInAName(c); }, '_');
    while (name.ends_with(' ') || name.ends_with('.'))
        name.pop_back();
    return name.empty() ? "New File.txt" : Shortened(name);
}

std::string CKeptTextStore::FreeName(const std::string& stamp, const std::string& plainName) const
{
    const std::vector<KeptFile> files = m_folder.Files();
    int number = 1;
    while (number < MostInASecond && IsUsed(files, Numbered(stamp, number)))
        ++number;
    return Numbered(stamp, number) + plainName;
}

bool CKeptTextStore::Keep(std::string_view file, const std::string& bytes)
{
    if (bytes.empty())
        return false;
    const std::string name = FreeName(Stamp(m_now()), PlainName(file));
    if (!m_folder.Create(name, bytes, IKeptFolder::Hold::No))
        return false;
    RemoveOthersWith(bytes, name);
    Prune(name);
    return true;
}

void CKeptTextStore::RemoveOthersWith(const std::string& bytes, const std::string& name)
{
    for (const KeptFile& file : m_folder.Files())
        if (IsStamped(file.name) && file.name != name && file.size == bytes.size() && m_folder.Read(file.name) == bytes)
            m_folder.Remove(file.name);
}

// Files of the user's own that lie here are not touched. A newest one that is too large for all drives nothing out.
void CKeptTextStore::Prune(const std::string& newest)
{
    std::size_t count = 1;
    std::uint64_t total = 0;
    const std::vector<KeptFile> files = NewestFirst(m_folder.Files());
    for (const KeptFile& file : files)
        if (file.name == newest && file.size <= MostBytes)
            total = file.size;
    for (const KeptFile& file : files) {
        if (!IsStamped(file.name) || file.name == newest)
            continue;
        const bool fits = count < MostFiles && total + file.size <= MostBytes;
        if (!fits) {
            m_folder.Remove(file.name);
            continue;
        }
        ++count;
        total += file.size;
    }
}

bool CKeptTextStore::Copy(std::string_view file, const std::string& bytes)
{
    const std::string name = FreeName(std::string(Unsaved) + Stamp(m_now()), PlainName(file));
    if (!m_folder.Create(name, bytes, IKeptFolder::Hold::Yes))
        return false;
    RemoveCopy();
    m_copy = name;
    return true;
}

void CKeptTextStore::RemoveCopy()
{
    if (!m_copy.empty())
        m_folder.Remove(m_copy);
    m_copy.clear();
}

// The name of a copy without what tells that it is one; another number where a kept text has that name.
std::string CKeptTextStore::Take(const std::string& copy)
{
    const std::string name = copy.substr(Unsaved.size());
    if (!IsStamped(name))
        return "";
    const std::size_t behind = name.find(' ', Form.size());
    const std::string kept =
        FreeName(name.substr(0, Form.size()), name.substr(behind == name.npos ? Form.size() : behind + 1));
    return m_folder.Take(copy, kept) ? kept : "";
}

std::string CKeptTextStore::TakeLeftBehind()
{
    m_folder.Sweep();
    std::string newest;
    for (const KeptFile& file : m_folder.Files())
        if (file.name.starts_with(Unsaved))
            newest = std::max(newest, Take(file.name));
    if (newest.empty())
        return "";
    if (const auto bytes = m_folder.Read(newest))
        RemoveOthersWith(*bytes, newest);
    Prune(newest);
    return m_folder.PathOf(newest);
}

}
