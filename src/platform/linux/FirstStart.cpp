#include "platform/linux/FirstStart.h"
#include "platform/linux/LinuxFiles.h"
#include "platform/linux/UserFolders.h"
#include "platform/linux/WholeFile.h"

namespace platform::linuxdesktop {
void PlaceCharacters(const std::string& from, const std::string& to)
{
    const CLinuxFiles files;
    const auto names = files.Match(from + "/*.acs");
    if (!MakeUserFolders(to))
        return;
    for (const std::string& name : names)
        if (files.Kind(to + "/" + name) == EntryKind::None)
            CopyToNewPlace(from + "/" + name, to + "/" + name);
}

}
