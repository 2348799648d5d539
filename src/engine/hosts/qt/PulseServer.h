#pragma once
#include <cstdint>
#include <vector>

struct pa_context;
struct pa_threaded_mainloop;

namespace engine {

// The connection to the sound server, shared by the outputs: made without waiting, never starting a server, and made
// anew when it is asked for after a loss. The thread of libpulse sleeps while nothing plays.
class CPulseServer {
public:
    enum class State { Off, Connecting, Ready };

    // Hears of the connection on the thread of libpulse, with the lock held.
    class IListener {
    public:
        virtual ~IListener() = default;
        virtual void ServerReady() = 0;
    };

    // Keeps the thread of libpulse out, for all calls into libpulse.
    class CLock {
    public:
        explicit CLock(const CPulseServer& server);
        ~CLock();
        CLock(const CLock&) = delete;
        CLock& operator=(const CLock&) = delete;

    private:
        pa_threaded_mainloop* m_loop;
    };

    CPulseServer();
    ~CPulseServer();
    CPulseServer(const CPulseServer&) = delete;
    CPulseServer& operator=(const CPulseServer&) = delete;

    // Tries to connect unless it is connected or connecting. The listeners hear of the success.
    void Connect();
    State CurrentState() const;
    // Whether an attempt to connect has taken longer than a sound should wait.
    bool TakesLong() const;
    void Add(IListener& listener);
    void Remove(IListener& listener);
    pa_context* Context() const { return m_context; }
    // Says on the standard error output why there is no sound; once until the server is there again.
    void SayNoSound(const char* reason);

private:
    static void ContextChanged(pa_context* context, void* server);
    void Changed();
    void DropContext();

    pa_threaded_mainloop* m_loop = nullptr;
    pa_context* m_context = nullptr;
    std::int64_t m_askedAt = 0;
    std::vector<IListener*> m_listeners;
    bool m_said = false;
};

}
