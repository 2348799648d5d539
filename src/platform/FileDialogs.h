#pragma once
#include <cstddef>
#include <string>

namespace platform {

struct FileDialog {
    enum class Mode { Open, Save };
    Mode mode = Mode::Open;
    std::string filter;         // Pairs of description and pattern, separated by NUL; no NUL at the end.
    int filterIndex = 1;        // Counted from 1; beyond the last pair means the last one.
    std::string initialFolder;  // "" leaves the choice to the system.
    std::string initialFile;
    std::size_t fileLimit = 256;   // Longest path, in characters, that the dialog may return.
    std::string defaultExtension;  // Appended when the user types a name without one that is not there.
    std::string title;
    bool fileMustExist = false;
    bool pathMustExist = false;
    bool confirmOverwrite = false;
};

class IFileDialogs {
public:
    virtual ~IFileDialogs() = default;
    // The chosen path; "" when the user cancelled. Throws CFailure 52 for a path that is too long.
    virtual std::string Ask(const FileDialog& dialog) = 0;
};

}
