#pragma once
#include "platform/windows/Win32.h"
#include <utility>

namespace platform::windowsdesktop {

// A handle of the system's, closed by its owner. Takes both values with which the system says that there is none.
class CHandle {
public:
    explicit CHandle(HANDLE handle = nullptr) : m_handle(handle) {}
    ~CHandle() { Close(); }
    CHandle(CHandle&& other) noexcept : m_handle(std::exchange(other.m_handle, nullptr)) {}
    CHandle& operator=(CHandle&& other) noexcept
    {
        std::swap(m_handle, other.m_handle);
        return *this;
    }
    CHandle(const CHandle&) = delete;
    CHandle& operator=(const CHandle&) = delete;
    bool Open() const { return m_handle != nullptr && m_handle != INVALID_HANDLE_VALUE; }
    HANDLE Get() const { return m_handle; }
    bool Close()
    {
        const HANDLE handle = std::exchange(m_handle, nullptr);
        return handle == nullptr || handle == INVALID_HANDLE_VALUE || CloseHandle(handle) != 0;
    }

private:
    HANDLE m_handle;
};

}
