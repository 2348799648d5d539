#pragma once
#include <condition_variable>
#include <functional>
#include <mutex>
#include <optional>
#include <string>
#include <thread>

namespace platform {

// Writes contents of one file on a thread of its own, for a disk may take its time. While one is being written, only the
// newest of those that follow waits. All procedures but the writing one belong to one thread.
class CLatestWriter {
public:
    // `write` is never run twice at a time; its failures are its own affair.
    explicit CLatestWriter(std::function<void(const std::string& content)> write) : m_write(std::move(write)) {}
    ~CLatestWriter();  // Writes what waits.
    CLatestWriter(const CLatestWriter&) = delete;
    CLatestWriter& operator=(const CLatestWriter&) = delete;

    void Write(std::string content);
    void Finish();  // Returns when all is written.

private:
    bool Start();
    void Run();
    std::function<void(const std::string& content)> m_write;
    std::thread m_thread;  // From the first content on.
    std::mutex m_mutex;
    std::condition_variable m_changed;
    std::optional<std::string> m_waiting;
    bool m_writing = false;
    bool m_ending = false;
};

}
