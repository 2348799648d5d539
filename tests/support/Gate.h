#pragma once
#include <condition_variable>
#include <mutex>

namespace support {

// Threads wait at it until another opens it. The library's latch loses its opening on Windows: g++ 12 looks at its number,
// and waits only then.
class CGate {
public:
    void Open()
    {
        const std::lock_guard lock(m_mutex);
        m_open = true;
        m_opened.notify_all();
    }
    void Wait()
    {
        std::unique_lock lock(m_mutex);
        m_opened.wait(lock, [this] { return m_open; });
    }

private:
    std::mutex m_mutex;
    std::condition_variable m_opened;
    bool m_open = false;
};

}
