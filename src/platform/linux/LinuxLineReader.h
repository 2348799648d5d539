#pragma once
#include "platform/Files.h"
#include "platform/linux/Descriptor.h"

namespace platform::linuxdesktop {

// Reads a regular file in pieces and cuts them into lines. A file in UTF-16 is read as a whole, for its bytes tell no lines.
class CLinuxLineReader final : public ILineReader {
public:
    // Throws CFailure when the file cannot be opened or is no regular file.
    explicit CLinuxLineReader(std::string path);
    bool AppendLine(std::string& lines) override;
    std::string Text(std::string lines) const override;

private:
    bool Fill();
    bool HasMore();
    std::size_t EndOfLine();
    std::string m_path;
    CDescriptor m_file;
    std::string m_piece;
    std::size_t m_at = 0;        // What comes next in the piece.
    std::size_t m_lineFeed = 0;  // The first line feed of the piece from m_at on.
    bool m_afterReturn = false;  // A line feed that comes next belongs to the carriage return before it.
    bool m_atEnd = false;
    bool m_readAtOnce = false;
};

}
