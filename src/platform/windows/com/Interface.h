#pragma once
#include "platform/windows/com/OutgoingCalls.h"
#include <cstddef>
#include <utility>

namespace platform::windowsdesktop::com {

// Whether COM can still be called. False after the program's apartment has ended: what is released later, by the end of the
// process, would reach into libraries that are gone.
bool Running();
void SetRunning(bool running);

// Owns one reference to a COM object, or none.
template <class T> class CInterface {
public:
    CInterface() = default;
    // Adds a reference of its own.
    explicit CInterface(T* object) : m_object(object)
    {
        if (m_object)
            m_object->AddRef();
    }
    CInterface(const CInterface& other) : CInterface(other.m_object) {}
    CInterface(CInterface&& other) noexcept : m_object(std::exchange(other.m_object, nullptr)) {}
    CInterface& operator=(CInterface other) noexcept
    {
        std::swap(m_object, other.m_object);
        return *this;
    }
    ~CInterface() { Release(); }

    // Takes over the caller's reference.
    static CInterface Adopt(T* object)
    {
        CInterface owner;
        owner.m_object = object;
        return owner;
    }

    T* operator->() const { return m_object; }
    T& operator*() const { return *m_object; }
    T* Raw() const { return m_object; }
    explicit operator bool() const { return m_object != nullptr; }

    // Where a function of the system puts a reference for us; drops the former one.
    T** Receive()
    {
        Release();
        return &m_object;
    }
    void** ReceiveAny() { return reinterpret_cast<void**>(Receive()); }

    // Another interface of the object; none when it has no such one.
    template <class U> CInterface<U> As() const { return As<U>(__uuidof(U)); }
    template <class U> CInterface<U> As(const IID& id) const
    {
        const COutgoingCall call;
        CInterface<U> other;
        if (m_object && FAILED(m_object->QueryInterface(id, other.ReceiveAny())))
            other.Forget();
        return other;
    }

    // Gives the reference up without releasing it: it belongs to somebody else, or was never given.
    T* Forget() { return std::exchange(m_object, nullptr); }

private:
    void Release()
    {
        T* object = Forget();
        if (!object || !Running())
            return;
        const COutgoingCall call;
        object->Release();
    }

    T* m_object = nullptr;
};

// Whether both are the same object, whatever their interfaces.
template <class T, class U> bool SameObject(const CInterface<T>& one, const CInterface<U>& other)
{
    return one.template As<IUnknown>().Raw() == other.template As<IUnknown>().Raw();
}

}
