#pragma once
#include "platform/LatestWriter.h"
#include "platform/StateFile.h"

namespace platform::linuxdesktop {

// One file, replaced as a whole. One process at a time.
class CLinuxStateFile final : public IStateFile {
public:
    // `flushStores` writes to the disk what the other stores still hold back; true when it could.
    CLinuxStateFile(std::string file, std::function<bool()> flushStores);
    void TakeOver(const std::function<bool(const std::string& content)>& take) override;
    void Keep(std::string content) override { m_writer.Write(std::move(content)); }
    void Remove() override;

    void Finish() { m_writer.Finish(); }  // Returns when the last content is on the disk.

private:
    std::string m_file;
    std::function<bool()> m_flushStores;
    CLatestWriter m_writer;  // The last member: its thread uses the others.
};

}
