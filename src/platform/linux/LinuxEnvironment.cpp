#include "platform/linux/LinuxEnvironment.h"
#include "platform/linux/UserFolders.h"
#include <cstdlib>

namespace platform::linuxdesktop {

std::string CLinuxEnvironment::Variable(const std::string& name) const
{
    if (name == "APPDATA")
        return ConfigurationFolder();
    const char* value = std::getenv(name.c_str());
    return value ? value : "";
}

}
