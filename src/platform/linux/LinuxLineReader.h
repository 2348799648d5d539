#pragma once
#include "platform/Files.h"
#include "platform/linux/Descriptor.h"
#include "platform/text/FileForm.h"
#include "platform/text/LineCutter.h"
#include <functional>

namespace platform::linuxdesktop {

// Reads a regular file in pieces and cuts them into lines. A file in UTF-16 is read as a whole, for its bytes tell no lines.
class CLinuxLineReader final : public ILineReader {
public:
    // Throws CFailure when the file cannot be opened or is no regular file. `readAs` is told the form of the file when all
    // of its text is asked for.
    explicit CLinuxLineReader(std::string path, std::function<void(const text::FileForm& form)> readAs = {});
    bool AppendLine(std::string& lines) override { return m_lines.AppendLine(lines); }
    std::string Text(std::string lines) const override;

private:
    void ReadPiece(std::string& piece) const;
    void ReadAtOnce();
    void Tell(text::Encoding encoding, bool mark) const;
    std::string m_path;
    CDescriptor m_file;
    text::CLineCutter m_lines;
    std::function<void(const text::FileForm& form)> m_readAs;
    std::optional<text::Encoding> m_readAtOnce;  // Set when the file is in UTF-16: its text is decoded already.
};

}
