#include "platform/linux/LinuxStateFile.h"
#include "platform/linux/UserFolders.h"
#include "platform/linux/WholeFile.h"
#include <cerrno>
#include <filesystem>
#include <unistd.h>

namespace platform::linuxdesktop {
namespace {
constexpr std::uintmax_t LargestFile = 64 << 20;

void Replace(const std::string& file, const std::string& content)
{
    if (MakeUserFolders(std::filesystem::path(file).parent_path().string()))
        ReplaceWhole(file, content, Survives::PowerLoss);
}

std::optional<std::string> ReadBounded(const std::string& file)
{
    std::error_code missing;
    const std::uintmax_t size = std::filesystem::file_size(file, missing);
    int error = 0;
    return !missing && size <= LargestFile ? ReadWhole(file, error) : std::nullopt;
}
}

CLinuxStateFile::CLinuxStateFile(std::string file, std::function<bool()> flushStores)
    : m_file(std::move(file)), m_flushStores(std::move(flushStores)),
      m_writer([this](const std::string& content) { Replace(m_file, content); })
{
}

void CLinuxStateFile::TakeOver(const std::function<bool(const std::string& content)>& take)
{
    const auto content = ReadBounded(m_file);
    if (content && take(*content))
        Remove();
}

void CLinuxStateFile::Remove()
{
    m_writer.Finish();
    if (::access(m_file.c_str(), F_OK) == 0 && m_flushStores())
        ::unlink(m_file.c_str());
}

}
