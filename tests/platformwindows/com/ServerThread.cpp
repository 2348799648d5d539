#include "platformwindows/com/ServerThread.h"

namespace comtest {

CServerThread::CServerThread(Maker make)
{
    const HANDLE ready = CreateEventW(nullptr, TRUE, FALSE, nullptr);
    m_thread = std::thread([this, make = std::move(make), ready] { Serve(make, ready); });
    WaitForSingleObject(ready, INFINITE);
    CloseHandle(ready);
    CoGetInterfaceAndReleaseStream(m_marshalled, IID_IDispatch, m_proxy.ReceiveAny());
}

void CServerThread::Serve(const Maker& make, HANDLE ready)
{
    CoInitializeEx(nullptr, COINIT_APARTMENTTHREADED);
    m_threadID = GetCurrentThreadId();
    TestRef object = make();
    CoMarshalInterThreadInterfaceInStream(IID_IDispatch, object.Raw(), &m_marshalled);
    SetEvent(ready);
    MSG message;
    while (GetMessageW(&message, nullptr, 0, 0) > 0)
        DispatchMessageW(&message);
    CoDisconnectObject(object.Raw(), 0);
    object->answers.clear();
    object = {};
    CoUninitialize();
}

void CServerThread::Die()
{
    if (!m_thread.joinable())
        return;
    PostThreadMessageW(m_threadID, WM_QUIT, 0, 0);
    m_thread.join();
}

CServerThread::~CServerThread()
{
    ForgetProxy();
    Die();
}

}
