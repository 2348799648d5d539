#pragma once
#include <functional>
#include <string>

namespace platform {

// A small file of this run's in the user's state folder: what the next run must know when this one does not end by itself.
// Every run has one of its own, also beside others. Contents are bytes.
class IStateFile {
public:
    virtual ~IStateFile() = default;
    // Hands the file of every run that is over to `take`. One that was taken (true) is removed, as soon as what the program
    // has written to its other stores is on the disk; the others stay. Files of runs that go on, those that cannot be read
    // and those beyond 64 MB are left alone. To be called before the first Keep, which may take the place of a file that
    // stayed.
    virtual void TakeOver(const std::function<bool(const std::string& content)>& take) = 0;
    // Gives this run's file a new content, as a whole and flushed to the disk. The caller does not wait for it; of contents
    // that follow each other fast the last one counts. A failure leaves the former content and is told to nobody.
    virtual void Keep(std::string content) = 0;
    // Removes this run's file, as soon as what the program has written to its other stores is on the disk. Waits for both;
    // the file stays when they fail.
    virtual void Remove() = 0;
};

}
