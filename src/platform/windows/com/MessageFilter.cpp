#include "platform/windows/com/MessageFilter.h"

namespace platform::windowsdesktop::com {
namespace {

constexpr DWORD GiveUp = static_cast<DWORD>(-1);

}

HRESULT CMessageFilter::QueryInterface(REFIID id, void** object)
{
    if (!object)
        return E_POINTER;
    const bool known = IsEqualIID(id, IID_IUnknown) || IsEqualIID(id, IID_IMessageFilter);
    *object = known ? this : nullptr;
    return known ? S_OK : E_NOINTERFACE;
}

DWORD CMessageFilter::HandleInComingCall(DWORD, HTASK, DWORD, LPINTERFACEINFO) { return SERVERCALL_ISHANDLED; }

DWORD CMessageFilter::RetryRejectedCall(HTASK, DWORD milliseconds, DWORD reason)
{
    return reason == SERVERCALL_RETRYLATER && milliseconds < m_busyMilliseconds ? RetryMilliseconds : GiveUp;
}

DWORD CMessageFilter::MessagePending(HTASK, DWORD milliseconds, DWORD)
{
    return milliseconds < m_silentMilliseconds ? PENDINGMSG_WAITDEFPROCESS : PENDINGMSG_CANCELCALL;
}

}
