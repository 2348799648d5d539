#pragma once
#include "platformwindows/com/TestObject.h"
#include <thread>

namespace comtest {

// An apartment of its own, whose objects are reached through proxies as those of another program are.
class CServerThread {
public:
    using Maker = std::function<TestRef()>;
    // The object is made on the thread.
    explicit CServerThread(Maker make);
    ~CServerThread();
    CServerThread(const CServerThread&) = delete;
    CServerThread& operator=(const CServerThread&) = delete;

    CInterface<IDispatch> Proxy() const { return m_proxy; }
    void ForgetProxy() { m_proxy = {}; }
    // Cuts the object off from its callers and ends the thread: what a server does that dies.
    void Die();

private:
    void Serve(const Maker& make, HANDLE ready);
    CInterface<IDispatch> m_proxy;
    IStream* m_marshalled = nullptr;
    DWORD m_threadID = 0;
    std::thread m_thread;
};

}
