#include "common/bGlobal.h"
#include "common/zbErrorTrap.h"
#include "platform/Files.h"
#include "platform/Platform.h"

namespace {

using platform::Current;
using platform::EntryKind;
using platform::IFiles;
using zbErrorTrap::CGuard;

constexpr char Module[] = "bGlobal";
constexpr std::size_t FolderLimit = 255;

// Unlike AddSlash, also for a folder that the system did not tell: the answer always ends in a separator.
std::string WithSeparator(std::string folder)
{
    const char separator = Current().files.Separator();
    if (!folder.ends_with(separator))
        folder += separator;
    return folder;
}

std::string SystemsFolder(const char* section, std::string (IFiles::*query)(std::size_t) const)
{
    const CGuard guard(Module, section);
    std::string folder;
    guard([&] { folder = (Current().files.*query)(FolderLimit); });
    guard([&] { folder = WithSeparator(folder); });
    return folder;
}

// The byte behind the last separator; 0 when there is none.
std::size_t NameOffset(const std::string& path)
{
    const std::size_t last = path.rfind(Current().files.Separator());
    return last == std::string::npos ? 0 : last + 1;
}

}

std::string bGlobal::AddSlash(const std::string& path)
{
    const CGuard guard(Module, "AddSlash");
    std::string result = path;
    guard([&] { result = path.empty() ? path : WithSeparator(path); });
    return result;
}

std::string bGlobal::GetWinDir() { return SystemsFolder("GetWinDir", &IFiles::WindowsFolder); }

std::string bGlobal::GetWinSysDir() { return SystemsFolder("GetWinSysDir", &IFiles::SystemFolder); }

std::string bGlobal::GetTempDir() { return SystemsFolder("GetTempDir", &IFiles::TemporaryFolder); }

bool bGlobal::FileExists(const std::string& path)
{
    const CGuard guard(Module, "FileExists");
    bool exists = false;
    guard([&] { exists = !path.empty() && Current().files.Kind(path) == EntryKind::File; });
    return exists;
}

bool bGlobal::FolderExists(const std::string& path)
{
    const CGuard guard(Module, "FolderExists");
    bool exists = false;
    guard([&] { exists = !path.empty() && Current().files.Kind(AddSlash(path)) == EntryKind::Folder; });
    return exists;
}

std::string bGlobal::FileNamePart(const std::string& path) { return path.substr(NameOffset(path)); }

std::string bGlobal::FolderPart(const std::string& path) { return path.substr(0, NameOffset(path)); }

bool bGlobal::MakeFolder(const std::string& path)
{
    return zbErrorTrap::IgnoreFailure([&] { Current().files.MakeFolder(path); });
}
