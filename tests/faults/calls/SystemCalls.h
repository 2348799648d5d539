#pragma once
#include <cstddef>
#include <functional>
#include <string>
#include <vector>

// The system calls of this process on the files below one folder: noted, counted, and made to fail one at a time. The
// program defines the calls itself (SystemCalls.cpp), so that every library of the process comes through here. What is
// watched is not really flushed to the disk: nobody pulls the plug here.
namespace faults {

// What becomes of the call of a number.
struct Fault {
    std::size_t number = 0;   // Counted from 1; 0 fails none.
    int error = 0;            // The `errno` that it leaves behind; 0 fails none.
    bool shortWrite = false;  // A write puts only half of its bytes in the file, and says so. No other call fails.
    bool stays = false;       // Every later call that would change something fails as well.
};

// A call that was made. One that failed changed nothing, except that `close` closes in any case.
struct Call {
    std::string name = {};   // "open", "create", "write", "fsync", "rename" ...
    std::string path = {};   // Full path.
    std::string other = {};  // The second path of "rename" and "link".
    std::string bytes = {};  // What was written.
    int descriptor = -1;
    bool truncates = false;  // "create" of a file that loses its content.
    bool failed = false;
};

// Watches from now until its end. One at a time; the calls of all threads are taken.
class CWatch {
public:
    using Tell = std::function<void(const Call&)>;
    explicit CWatch(const std::string& folder, const Fault& fault = {});
    CWatch(const std::string& folder, const Fault& fault, Tell tell);
    ~CWatch();
    CWatch(const CWatch&) = delete;
    CWatch& operator=(const CWatch&) = delete;
    const std::vector<Call>& Calls() const { return m_calls; }

private:
    std::vector<Call> m_calls;
};

}
