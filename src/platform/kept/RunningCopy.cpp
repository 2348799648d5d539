#include "platform/kept/RunningCopy.h"
#include <exception>
#include <utility>

namespace platform::kept {

CRunningCopy::~CRunningCopy()
{
    {
        const std::lock_guard lock(m_mutex);
        m_ending = true;
    }
    m_changed.notify_all();
    if (m_thread.joinable())
        m_thread.join();
}

void CRunningCopy::Make(EditedText text) { Give({std::move(text)}); }

void CRunningCopy::Remove()
{
    if (m_thread.joinable())
        Give({});
}

void CRunningCopy::Give(Order order)
{
    {
        const std::lock_guard lock(m_mutex);
        m_next = std::move(order);
    }
    if (!m_thread.joinable())
        m_thread = std::thread([this] { Run(); });
    m_changed.notify_all();
}

bool CRunningCopy::Wait()
{
    std::unique_lock lock(m_mutex);
    m_changed.wait(lock, [this] { return !m_next && !m_busy; });
    return m_made;
}

void CRunningCopy::Run()
{
    std::unique_lock lock(m_mutex);
    while (true) {
        m_changed.wait(lock, [this] { return m_next || m_ending; });
        if (!m_next)
            return;
        Order order = *std::exchange(m_next, std::nullopt);
        m_busy = true;
        lock.unlock();
        Do(std::move(order));
        lock.lock();
        m_busy = false;
        m_changed.notify_all();
    }
}

// No room in memory is as bad as none on the disk.
void CRunningCopy::Do(Order order)
{
    try {
        if (!order.text)
            m_store.RemoveCopy();
        m_made = order.text && m_store.Copy(order.text->file, m_bytesOfText(std::move(order.text->text)));
    } catch (const std::exception&) {
        m_made = false;
    }
}

}
