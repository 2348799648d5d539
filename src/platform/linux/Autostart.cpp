#include "platform/linux/Autostart.h"
#include "platform/linux/UserFolders.h"
#include "platform/linux/WholeFile.h"
#include "platform/text/DesktopEntry.h"
#include <filesystem>

namespace platform::linuxdesktop {

bool CAutostart::IsOn() const
{
    int error = 0;
    const auto entry = ReadWhole(m_file, error);
    return entry && text::IsAutostartOn(*entry);
}

bool CAutostart::IsSwitchedOffByUser() const
{
    int error = 0;
    const auto entry = ReadWhole(m_file, error);
    return entry && !text::IsAutostartOn(*entry);
}

void CAutostart::FollowProgram()
{
    int error = 0;
    const auto entry = ReadWhole(m_file, error);
    const auto started = entry ? text::AutostartProgram(*entry) : std::nullopt;
    std::error_code ignored;
    if (started && *started != m_program && !std::filesystem::exists(*started, ignored))
        ReplaceWhole(m_file, text::WithAutostartProgram(*entry, m_program), Survives::PowerLoss);
}

bool CAutostart::SwitchOn()
{
    return MakeUserFolders(std::filesystem::path(m_file).parent_path().string()) &&
           ReplaceWhole(m_file, text::AutostartEntry(m_program), Survives::PowerLoss) == 0;
}

bool CAutostart::SwitchOff() { return IsSwitchedOffByUser() || RemoveFile(m_file) == 0; }

}
