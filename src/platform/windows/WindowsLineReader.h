#pragma once
#include "platform/Files.h"
#include "platform/text/LineCutter.h"
#include "platform/windows/Handle.h"

namespace platform::windowsdesktop {

// Reads a file on a disk in pieces and cuts them into lines. A file in UTF-16 is read as a whole, for its bytes tell no
// lines.
class CWindowsLineReader final : public ILineReader {
public:
    // Throws CFailure when the file cannot be opened or lies on no disk.
    explicit CWindowsLineReader(const std::string& path);
    bool AppendLine(std::string& lines) override { return m_lines.AppendLine(lines); }
    std::string Text(std::string lines) const override;

private:
    void ReadPiece(std::string& piece) const;
    CHandle m_file;
    text::CLineCutter m_lines;
    bool m_readAtOnce = false;
};

}
