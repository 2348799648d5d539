#pragma once
#include "platform/LatestWriter.h"
#include "platform/StateFile.h"
#include "platform/windows/Handle.h"

namespace platform::windowsdesktop {

// One of a few files in a folder: of programs that run at the same time each has another one. A mutex that ends with its
// program says which are taken.
class CWindowsStateFile final : public IStateFile {
public:
    // `folder` is made when it is needed; "" stands for nowhere.
    explicit CWindowsStateFile(std::string folder);
    void TakeOver(const std::function<bool(const std::string& content)>& take) override;
    void Keep(std::string content) override;
    void Remove() override;

    void Finish() { m_writer.Finish(); }  // Returns when the last content is on the disk.

private:
    std::string FileOf(int number) const;
    CHandle Claim(int number) const;
    void TakeOverFile(int number, const std::function<bool(const std::string& content)>& take) const;

    std::string m_folder;
    int m_number = 0;  // Of this run's file, from 1; 0: there is none left.
    CHandle m_claim;
    CLatestWriter m_writer;  // The last member: its thread uses the others.
};

}
