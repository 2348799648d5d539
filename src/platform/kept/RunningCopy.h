#pragma once
#include "platform/KeptTexts.h"
#include "platform/kept/KeptTextStore.h"
#include <condition_variable>
#include <mutex>
#include <thread>

namespace platform::kept {

// Makes and removes the copy of the text that is being edited, on a thread of its own that begins with the first copy. The
// last order counts; what was ordered before and is not begun yet is left out.
class CRunningCopy {
public:
    // The store is borrowed; nobody else may use its copy. `bytesOfText` tells how a text is written, on the other thread.
    CRunningCopy(CKeptTextStore& store, std::function<std::string(std::string text)> bytesOfText)
        : m_store(store), m_bytesOfText(std::move(bytesOfText))
    {
    }
    ~CRunningCopy();  // After the last order is done.
    CRunningCopy(const CRunningCopy&) = delete;
    CRunningCopy& operator=(const CRunningCopy&) = delete;

    void Make(EditedText text);
    void Remove();
    // Waits until the last order is done. Whether there is a copy then.
    bool Wait();

private:
    struct Order {
        std::optional<EditedText> text;  // Nothing: remove.
    };
    void Give(Order order);
    void Run();
    void Do(Order order);
    CKeptTextStore& m_store;
    const std::function<std::string(std::string text)> m_bytesOfText;
    std::mutex m_mutex;
    std::condition_variable m_changed;
    std::optional<Order> m_next;
    bool m_busy = false;
    bool m_ending = false;
    bool m_made = false;  // There is a copy, and it is the one ordered last.
    std::thread m_thread;
};

}
