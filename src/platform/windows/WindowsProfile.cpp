#include "platform/windows/WindowsProfile.h"
#include "base/text/Case.h"
#include "base/text/Text.h"
#include "base/text/Utf8.h"
#include "platform/text/ProfileText.h"
#include "platform/windows/SystemPaths.h"
#include "platform/windows/Text.h"
#include "platform/windows/WholeFile.h"
#include "platform/windows/Win32.h"
#include <algorithm>
#include <limits>
#include <set>

namespace platform::windowsdesktop {
namespace {
// One change, in the code page of the process, as the file has it.
struct Change {
    std::string section;
    std::optional<std::string> key;
    std::optional<std::string> value;
};

std::optional<std::string> Ansi(const std::optional<std::string>& text)
{
    return text ? std::optional(ToAnsi(*text)) : std::nullopt;
}

const char* OrNull(const std::optional<std::string>& text) { return text ? text->c_str() : nullptr; }

// What the file must hold afterwards, in our own spelling; nothing when it cannot hold the change.
std::optional<std::string> Changed(const std::string& text, const Change& change)
{
    if (!change.key)
        return text::WithoutProfileSection(text, change.section);
    return change.value ? text::WithProfileValue(text, change.section, *change.key, *change.value)
                        : text::WithoutProfileKey(text, change.section, *change.key);
}

bool IsWholeInCodePage(const std::string& bytes)
{
    const auto count = static_cast<int>(bytes.size());
    return count == 0 || MultiByteToWideChar(CP_ACP, MB_ERR_INVALID_CHARS, bytes.data(), count, nullptr, 0) != 0;
}

// The service cuts between two bytes. Nothing is left out of bytes that are wrong anyway.
std::string WithoutHalfCharacter(const std::string& bytes)
{
    for (std::size_t less = 0; less < 4 && less <= bytes.size(); ++less)
        if (std::string shorter = bytes.substr(0, bytes.size() - less); IsWholeInCodePage(shorter))
            return shorter;
    return bytes;
}

constexpr std::string_view Blanks = " \t\v\f\r\n";

std::string_view Trimmed(std::string_view text) { return ::text::Trim(text, Blanks); }

// A line in the one form that stands for all its spellings.
std::string Meaning(std::string_view line)
{
    const std::size_t equals = line.find('=');
    if (equals == std::string_view::npos)
        return ::text::FoldCase(Trimmed(line));
    const std::string name(Trimmed(line.substr(0, equals)));
    return ::text::FoldCase(name) + '=' + std::string(Trimmed(line.substr(equals + 1)));
}

std::multiset<std::string> MeaningOfLines(std::string_view text)
{
    std::multiset<std::string> lines;
    while (!text.empty()) {
        const std::size_t end = std::min(text.find('\n'), text.size() - 1);
        if (std::string line = Meaning(text.substr(0, end + 1)); !line.empty())
            lines.insert(std::move(line));
        text.remove_prefix(end + 1);
    }
    return lines;
}

// Whether a file that the service has written holds all that it must: on a full disk it reports success, too.
bool HoldsAll(std::string_view written, std::string_view expected)
{
    const auto has = MeaningOfLines(written), must = MeaningOfLines(expected);
    return std::includes(has.begin(), has.end(), must.begin(), must.end());
}

// The service keeps the encoding of such a file.
bool IsMarked(std::string_view bytes)
{
    return bytes.starts_with("\xEF\xBB\xBF") || bytes.starts_with("\xFF\xFE") || bytes.starts_with("\xFE\xFF");
}

// Makes the change in a file; false when the service refuses.
bool Apply(const Change& change, const std::wstring& path)
{
    const std::string file = AnsiPath(path);
    const bool done =
        WritePrivateProfileStringA(change.section.c_str(), OrNull(change.key), OrNull(change.value), file.c_str()) != 0;
    WritePrivateProfileStringA(nullptr, nullptr, nullptr, file.c_str());  // Nothing of it stays in the service's memory.
    return done;
}

// The path of the file; one that no file can have when the system cannot have it.
std::string PathForService(const std::string& file)
{
    try {
        return AnsiPath(AbsolutePath(file));
    } catch (const CFailure&) {
        return "\\\\?\\";
    }
}

// `question` holds the default in the place of the value.
std::string AskService(const std::string& path, const Change& question, std::size_t limit)
{
    const auto room = static_cast<DWORD>(std::min<std::size_t>(limit, std::numeric_limits<std::int32_t>::max()));
    std::string bytes(std::size_t{room} + 1, '\0');
    const DWORD count = GetPrivateProfileStringA(question.section.c_str(), OrNull(question.key), OrNull(question.value),
                                                 bytes.data(), room, path.c_str());
    bytes.resize(std::min(count, room));
    const bool mayBeCut = std::size_t{count} + 2 >= room;
    return FromAnsi(mayBeCut ? WithoutHalfCharacter(bytes) : bytes);
}

// The content of the file; "" when there is none yet.
std::string Former(const std::wstring& path)
{
    std::uint32_t error = 0;
    const auto bytes = ReadWhole(path, error);
    if (!bytes && error != ERROR_FILE_NOT_FOUND)
        throw FailureOfError(error);
    return bytes.value_or("");
}

// The service works on a copy, so that the file has its former content until the new one is complete.
void Replace(const std::wstring& path, const std::string& former, const Change& change, const std::string& expected)
{
    CReplacement file(path);
    file.Write(former);
    std::uint32_t error = 0;
    const bool applied = Apply(change, file.Path());
    const std::string written = ReadWhole(file.Path(), error).value_or("");
    const bool complete = applied && (IsMarked(former) ? !written.empty() : HoldsAll(written, expected));
    file.Write(complete ? written : expected);
    file.Put();
}
}

std::string CWindowsProfile::Read(const std::string& file, const std::string& section, const std::optional<std::string>& key,
                                  const std::string& defaultValue, std::size_t limit) const
{
    const std::string text = AskService(PathForService(file), {ToAnsi(section), Ansi(key), ToAnsi(defaultValue)}, limit);
    return std::string(::text::CutBetweenCharacters(text, limit == 0 ? 0 : limit - 1));
}

bool CWindowsProfile::Write(const std::string& file, const std::string& section, const std::optional<std::string>& key,
                            const std::optional<std::string>& value)
{
    const Change change{ToAnsi(section), Ansi(key), Ansi(value)};
    try {
        const std::wstring path = AbsolutePath(file);
        const std::string former = Former(path);
        const auto expected = Changed(former, change);
        if (expected && *expected != former)
            Replace(path, former, change, *expected);
        return expected.has_value();
    } catch (const CFailure&) {
        return false;
    }
}

}
