#include "platform/linux/UserFolders.h"
#include "platform/linux/WholeFile.h"
#include <cerrno>
#include <cstdlib>
#include <filesystem>
#include <pwd.h>
#include <sys/stat.h>
#include <unistd.h>

namespace platform::linuxdesktop {
namespace {
std::string Variable(const char* name)
{
    const char* value = std::getenv(name);
    return value ? value : "";
}

std::string WithoutEndSeparator(std::string path)
{
    while (path.size() > 1 && path.back() == '/')
        path.pop_back();
    return path;
}

std::string HomeFolder()
{
    const std::string home = Variable("HOME");
    if (home.starts_with('/'))
        return WithoutEndSeparator(home);
    const passwd* user = ::getpwuid(::getuid());
    return user && user->pw_dir ? WithoutEndSeparator(user->pw_dir) : "/";
}

// A relative path in these variables is to be ignored, as the conventions say.
std::string FolderOf(const char* variable, const std::string& belowHome)
{
    const std::string folder = Variable(variable);
    if (folder.starts_with('/'))
        return WithoutEndSeparator(folder);
    const std::string home = HomeFolder();
    return home + (home == "/" ? "" : "/") + belowHome;
}
}

std::string ConfigurationFolder() { return FolderOf("XDG_CONFIG_HOME", ".config"); }

std::string DataFolder() { return FolderOf("XDG_DATA_HOME", ".local/share"); }

std::string StateFolder() { return FolderOf("XDG_STATE_HOME", ".local/state") + "/parlune"; }

std::string RuntimeFolder()
{
    const std::string folder = Variable("XDG_RUNTIME_DIR");
    std::error_code ignored;
    return folder.starts_with('/') && std::filesystem::is_directory(folder, ignored) ? WithoutEndSeparator(folder) : "";
}

bool MakeUserFolders(const std::string& path)
{
    std::error_code ignored;
    if (path.empty() || std::filesystem::is_directory(path, ignored))
        return !path.empty();
    if (!MakeUserFolders(std::filesystem::path(path).parent_path().string()))
        return false;
    const bool made = ::mkdir(path.c_str(), 0700) == 0;
    if (made)
        FlushToDisk(path);  // What will be flushed in it is lost with it. Not every file system can flush folders.
    return made || errno == EEXIST;
}

std::string ProgramFile()
{
    std::error_code error;
    return std::filesystem::read_symlink("/proc/self/exe", error).string();
}

}
