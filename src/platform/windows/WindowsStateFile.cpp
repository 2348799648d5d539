#include "platform/windows/WindowsStateFile.h"
#include "base/text/Case.h"
#include "base/text/CheckSum.h"
#include "platform/windows/SystemPaths.h"
#include "platform/windows/Text.h"
#include "platform/windows/WholeFile.h"

namespace platform::windowsdesktop {
namespace {
constexpr int MostFiles = 8;
constexpr LONGLONG LargestFile = 64 << 20;

void Replace(const std::string& path, const std::string& content)
{
    CReplacement file(AbsolutePath(path));
    file.Write(content);
    file.Put();
}

bool IsSmall(const std::wstring& path)
{
    WIN32_FILE_ATTRIBUTE_DATA data = {};
    const bool there = GetFileAttributesExW(path.c_str(), GetFileExInfoStandard, &data) != 0;
    return there && data.nFileSizeHigh == 0 && LONGLONG{data.nFileSizeLow} <= LargestFile;
}

std::optional<std::string> ReadBounded(const std::string& path)
{
    std::uint32_t error = 0;
    const std::wstring wide = ToWide(path);
    return IsSmall(wide) ? ReadWhole(wide, error) : std::nullopt;
}

// What the system still holds back of the registry goes to the disk first.
void RemoveFile(const std::string& path)
{
    const std::wstring wide = ToWide(path);
    if (IsSmall(wide) && RegFlushKey(HKEY_CURRENT_USER) == ERROR_SUCCESS)
        DeleteFileW(wide.c_str());
}
}

CWindowsStateFile::CWindowsStateFile(std::string folder)
    : m_folder(std::move(folder)), m_writer([this](const std::string& content) {
          if (MakeFolders(ToWide(m_folder)))
              Replace(FileOf(m_number), content);
      })
{
    for (int number = 1; !m_claim.Open() && !m_folder.empty() && number <= MostFiles; ++number) {
        m_claim = Claim(number);
        m_number = m_claim.Open() ? number : 0;
    }
}

std::string CWindowsStateFile::FileOf(int number) const
{
    return m_folder + "\\Options" + (number == 1 ? "" : "-" + std::to_string(number)) + ".journal";
}

// No handle when a program that runs has the file.
CHandle CWindowsStateFile::Claim(int number) const
{
    const std::string sum = ::text::Hexadecimal(::text::CheckSum(::text::FoldCase(FileOf(number))));
    const std::wstring name = ToWide("Global\\Parlune-" + sum);
    CHandle claim(CreateMutexW(nullptr, FALSE, name.c_str()));
    return claim.Open() && GetLastError() != ERROR_ALREADY_EXISTS ? std::move(claim) : CHandle();
}

void CWindowsStateFile::TakeOver(const std::function<bool(const std::string& content)>& take)
{
    for (int number = 1; !m_folder.empty() && number <= MostFiles; ++number)
        TakeOverFile(number, take);
}

void CWindowsStateFile::TakeOverFile(int number, const std::function<bool(const std::string& content)>& take) const
{
    const CHandle claim = number == m_number ? CHandle() : Claim(number);
    if (number != m_number && !claim.Open())
        return;
    const auto content = ReadBounded(FileOf(number));
    if (content && take(*content))
        RemoveFile(FileOf(number));
}

void CWindowsStateFile::Keep(std::string content)
{
    if (m_number != 0)
        m_writer.Write(std::move(content));
}

void CWindowsStateFile::Remove()
{
    m_writer.Finish();
    if (m_number != 0)
        RemoveFile(FileOf(m_number));
}

}
