#include "engine/hosts/qt/PulseServer.h"
#include "engine/hosts/qt/SteadyClock.h"
#include <algorithm>
#include <cstdio>
#include <new>
#include <pulse/pulseaudio.h>

namespace engine {
namespace {

constexpr std::int64_t LongestWaitMicroseconds = 300000;

}

CPulseServer::CLock::CLock(const CPulseServer& server) : m_loop(server.m_loop) { pa_threaded_mainloop_lock(m_loop); }

CPulseServer::CLock::~CLock() { pa_threaded_mainloop_unlock(m_loop); }

CPulseServer::CPulseServer() : m_loop(pa_threaded_mainloop_new()) { pa_threaded_mainloop_start(m_loop); }

CPulseServer::~CPulseServer()
{
    {
        const CLock lock(*this);
        DropContext();
    }
    pa_threaded_mainloop_stop(m_loop);
    pa_threaded_mainloop_free(m_loop);
}

void CPulseServer::Connect()
{
    if (CurrentState() != State::Off)
        return;
    const CLock lock(*this);
    DropContext();
    m_askedAt = SteadyMicroseconds();
    m_context = pa_context_new(pa_threaded_mainloop_get_api(m_loop), "Parlune");
    pa_context_set_state_callback(m_context, &ContextChanged, this);
    // A failure, even one at once, comes to ContextChanged.
    pa_context_connect(m_context, nullptr, PA_CONTEXT_NOAUTOSPAWN, nullptr);
}

CPulseServer::State CPulseServer::CurrentState() const
{
    const CLock lock(*this);
    const pa_context_state_t state = m_context ? pa_context_get_state(m_context) : PA_CONTEXT_UNCONNECTED;
    if (state == PA_CONTEXT_READY)
        return State::Ready;
    return PA_CONTEXT_IS_GOOD(state) ? State::Connecting : State::Off;
}

bool CPulseServer::TakesLong() const { return SteadyMicroseconds() - m_askedAt > LongestWaitMicroseconds; }

void CPulseServer::Add(IListener& listener)
{
    const CLock lock(*this);
    m_listeners.push_back(&listener);
}

void CPulseServer::Remove(IListener& listener)
{
    const CLock lock(*this);
    m_listeners.erase(std::remove(m_listeners.begin(), m_listeners.end(), &listener), m_listeners.end());
}

void CPulseServer::SayNoSound(const char* reason)
{
    if (!m_said)
        std::fprintf(stderr, "Parlune: no sound server (%s); time passes without sound.\n", reason);
    m_said = true;
}

// No exception may pass through libpulse. A listener without memory for its stream goes on by the clock.
void CPulseServer::ContextChanged(pa_context*, void* server)
{
    try {
        static_cast<CPulseServer*>(server)->Changed();
    } catch (const std::bad_alloc&) {
        static_cast<CPulseServer*>(server)->SayNoSound("there is no memory for it");
    }
}

void CPulseServer::Changed()
{
    const pa_context_state_t state = pa_context_get_state(m_context);
    if (state == PA_CONTEXT_FAILED)
        SayNoSound(pa_strerror(pa_context_errno(m_context)));
    if (state != PA_CONTEXT_READY)
        return;
    m_said = false;
    for (IListener* listener : m_listeners)
        listener->ServerReady();
}

void CPulseServer::DropContext()
{
    if (!m_context)
        return;
    pa_context_set_state_callback(m_context, nullptr, nullptr);
    pa_context_disconnect(m_context);
    pa_context_unref(m_context);
    m_context = nullptr;
}

}
