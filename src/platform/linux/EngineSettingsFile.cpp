#include "platform/linux/EngineSettingsFile.h"
#include "platform/linux/UserFolders.h"
#include "platform/linux/WholeFile.h"
#include <filesystem>

namespace platform::linuxdesktop {

std::string CEngineSettingsFile::Read() const
{
    int error = 0;
    return ReadWhole(m_file, error).value_or("");
}

bool CEngineSettingsFile::Write(const std::string& text)
{
    return MakeUserFolders(std::filesystem::path(m_file).parent_path().string()) &&
           ReplaceWhole(m_file, text, Survives::PowerLoss) == 0;
}

}
