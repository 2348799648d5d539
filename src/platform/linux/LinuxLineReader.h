#pragma once
#include "platform/Files.h"
#include "platform/linux/Descriptor.h"
#include "platform/text/LineCutter.h"

namespace platform::linuxdesktop {

// Reads a regular file in pieces and cuts them into lines. A file in UTF-16 is read as a whole, for its bytes tell no lines.
class CLinuxLineReader final : public ILineReader {
public:
    // Throws CFailure when the file cannot be opened or is no regular file.
    explicit CLinuxLineReader(std::string path);
    bool AppendLine(std::string& lines) override { return m_lines.AppendLine(lines); }
    std::string Text(std::string lines) const override;

private:
    void ReadPiece(std::string& piece) const;
    std::string m_path;
    CDescriptor m_file;
    text::CLineCutter m_lines;
    bool m_readAtOnce = false;
};

}
