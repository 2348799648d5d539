#pragma once
#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

// Files read and replaced as a whole.
namespace platform::windowsdesktop {

// The bytes of a file on a disk. Nothing, and `error` set to the system's error number, when it cannot be read; a file
// that shrinks while it is read yields what is there.
std::optional<std::string> ReadWhole(const std::wstring& path, std::uint32_t& error);

// Writes to an open file. Returns 0 or the system's error number.
std::uint32_t WriteAllTo(void* file, std::string_view bytes);

// New content for a file, gathered in a new file beside it that takes its place when it is complete. Until then, and after
// every failure, the file has its former content. Attributes and access rights stay; a link is followed. Failures are thrown
// as CFailure.
class CReplacement {
public:
    // Takes an absolute path. Throws 75 or 70 when the file there may not be written.
    explicit CReplacement(const std::wstring& path);
    ~CReplacement();
    CReplacement(const CReplacement&) = delete;
    CReplacement& operator=(const CReplacement&) = delete;

    // The new file, empty at first. Its path has no limit of length.
    const std::wstring& Path() const { return m_temporary; }
    // Gives the new file its content, complete on the disk: `text` and `end`.
    void Write(std::string_view text, std::string_view end = {});
    // Puts the new file in the place of the former one. The last call.
    void Put();

private:
    bool Replace() const;
    std::wstring m_place;  // The file itself, behind links.
    std::wstring m_temporary;
    bool m_existed = false;
    bool m_put = false;
};

// Whether the file has other names, from which a replacement would part it.
bool HasTwins(const std::wstring& path);

// Gives a file that is there new content in its place, for one that cannot be replaced. Room for it is made sure of first.
// When the writing fails the file gets its former content back, and CFailure is thrown.
void WriteInPlace(const std::wstring& path, std::string_view bytes);

}
