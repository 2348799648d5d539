#pragma once
#include <string>

namespace zbGetFileName {

// Asks for a file with the system's dialog. `mode` is "OPEN" or "SAVE" in any case; `filter` holds pairs of description
// and pattern separated by "|". Returns the path, "" when the user cancels or the mode is neither. Failures: reported as
// bGetFileName:GetFileName, then "".
std::string GetFileName(const std::string& mode, const std::string& filter, int filterIndex,
                        const std::string& initialFolder, const std::string& initialFile,
                        const std::string& defaultExtension, const std::string& title);

}
