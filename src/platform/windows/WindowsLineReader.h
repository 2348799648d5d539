#pragma once
#include "platform/Files.h"
#include "platform/windows/Handle.h"

namespace platform::windowsdesktop {

// Reads a file on a disk in pieces and cuts them into lines. A file in UTF-16 is read as a whole, for its bytes tell no
// lines.
class CWindowsLineReader final : public ILineReader {
public:
    // Throws CFailure when the file cannot be opened or lies on no disk.
    explicit CWindowsLineReader(const std::string& path);
    bool AppendLine(std::string& lines) override;
    std::string Text(std::string lines) const override;

private:
    bool Fill();
    bool HasMore();
    std::size_t EndOfLine();
    CHandle m_file;
    std::string m_piece;
    std::size_t m_at = 0;        // What comes next in the piece.
    std::size_t m_lineFeed = 0;  // The first line feed of the piece from m_at on.
    bool m_afterReturn = false;  // A line feed that comes next belongs to the carriage return before it.
    bool m_atEnd = false;
    bool m_readAtOnce = false;
};

}
