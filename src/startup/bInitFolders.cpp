#include "common/bGlobal.h"
#include "common/zbErrorTrap.h"
#include "platform/Environment.h"
#include "platform/Files.h"
#include "platform/Platform.h"
#include "settings/Paths.h"
#include "startup/bInit.h"

namespace {

using platform::Current;

// `name` below a folder that ends in a separator; the result ends in one, too.
std::string Below(const std::string& folder, const std::string& name) { return folder + name + Current().files.Separator(); }

std::string OwnDataFolder(const std::string& userFolder, const std::string& programFolder)
{
    const std::string makerFolder = Below(userFolder, "Tarrowind");
    const std::string ownFolder = Below(makerFolder, "Parlune");
    if (!bGlobal::FolderExists(ownFolder)) {
        bGlobal::MakeFolder(makerFolder);
        bGlobal::MakeFolder(ownFolder);
    }
    return bGlobal::FolderExists(ownFolder) ? ownFolder : programFolder;
}

// "" stands for the current folder.
std::string DataFolder(const std::string& programFolder)
{
    const std::string variable = Current().environment.Variable("APPDATA");
    if (variable.empty())
        return "";
    const std::string userFolder = bGlobal::AddSlash(variable);
    return bGlobal::FolderExists(userFolder) ? OwnDataFolder(userFolder, programFolder) : userFolder;
}

}

void bInit::SetUpFolders()
{
    const zbErrorTrap::CGuard guard("bInit", "SetUpFolders");
    settings::ProgramPaths& paths = settings::Paths();
    std::string dataFolder;

    guard([&] { paths.windowsFolder = bGlobal::GetWinDir(); });
    guard([&] { paths.systemFolder = bGlobal::GetWinSysDir(); });
    guard([&] { paths.programFolder = bGlobal::AddSlash(Current().files.ProgramFolder()); });
    guard([&] { paths.temporaryFolder = bGlobal::AddSlash(bGlobal::GetTempDir()); });
    guard([&] { paths.characterFolder = Below(Below(paths.windowsFolder, "MSAgent"), "Chars"); });
    guard([&] { dataFolder = DataFolder(paths.programFolder); });
    guard([&] { paths.settingsFile = dataFolder + "Parlune.ini"; });
    guard([&] { paths.helpFile = paths.programFolder + "Parlune.chm"; });
}
