#pragma once
#include "platform/windows/Win32.h"

namespace platform::windowsdesktop::com {

// How long a server may be busy, and how long it may stay silent, before a call to it fails.
inline constexpr DWORD BusyMilliseconds = 5000;
inline constexpr DWORD SilentMilliseconds = 30000;
inline constexpr DWORD RetryMilliseconds = 250;

#pragma GCC diagnostic push
#pragma GCC diagnostic ignored "-Wnon-virtual-dtor"  // No interface of COM has one: objects end themselves.

// What this thread's calls wait for. A static object: references are not counted.
class CMessageFilter final : public IMessageFilter {
public:
    explicit CMessageFilter(DWORD busyMilliseconds = BusyMilliseconds, DWORD silentMilliseconds = SilentMilliseconds)
        : m_busyMilliseconds(busyMilliseconds), m_silentMilliseconds(silentMilliseconds)
    {
    }
    virtual ~CMessageFilter() = default;
    HRESULT STDMETHODCALLTYPE QueryInterface(REFIID id, void** object) override;
    ULONG STDMETHODCALLTYPE AddRef() override { return 1; }
    ULONG STDMETHODCALLTYPE Release() override { return 1; }

    DWORD STDMETHODCALLTYPE HandleInComingCall(DWORD type, HTASK caller, DWORD milliseconds, LPINTERFACEINFO info) override;
    DWORD STDMETHODCALLTYPE RetryRejectedCall(HTASK server, DWORD milliseconds, DWORD reason) override;
    DWORD STDMETHODCALLTYPE MessagePending(HTASK server, DWORD milliseconds, DWORD pendingType) override;

private:
    DWORD m_busyMilliseconds;
    DWORD m_silentMilliseconds;
};
#pragma GCC diagnostic pop

}
