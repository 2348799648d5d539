#include "platform/LatestWriter.h"
#include <system_error>
#include <utility>

namespace platform {

CLatestWriter::~CLatestWriter()
{
    {
        const std::lock_guard lock(m_mutex);
        m_ending = true;
    }
    m_changed.notify_all();
    if (m_thread.joinable())
        m_thread.join();
}

bool CLatestWriter::Start()
{
    if (m_thread.joinable())
        return true;
    try {
        m_thread = std::thread([this] { Run(); });
        return true;
    } catch (const std::system_error&) {
        return false;
    }
}

// A system that has no thread to give makes the caller wait for its disk.
void CLatestWriter::Write(std::string content)
{
    if (!Start())
        return m_write(content);
    {
        const std::lock_guard lock(m_mutex);
        m_waiting = std::move(content);
    }
    m_changed.notify_all();
}

void CLatestWriter::Finish()
{
    std::unique_lock lock(m_mutex);
    m_changed.wait(lock, [this] { return !m_waiting && !m_writing; });
}

void CLatestWriter::Run()
{
    std::unique_lock lock(m_mutex);
    while (true) {
        m_changed.wait(lock, [this] { return m_waiting || m_ending; });
        if (!m_waiting)
            return;
        const std::string content = std::move(*m_waiting);
        m_waiting.reset();
        m_writing = true;
        lock.unlock();
        try {
            m_write(content);
        } catch (...) {  // Nobody waits for an answer.
        }
        lock.lock();
        m_writing = false;
        m_changed.notify_all();
    }
}

}
