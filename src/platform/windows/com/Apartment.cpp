#include "platform/windows/com/Apartment.h"
#include "platform/windows/com/Failures.h"
#include "platform/windows/com/Interface.h"
#include "platform/windows/com/MessageFilter.h"
#include "platform/windows/com/MessageWindow.h"
#include <memory>

namespace platform::windowsdesktop {
namespace com {
namespace {

bool running = true;

class CCallWatch final : public IMessageReceiver {
public:
    CCallWatch() : m_window(*this) { WatchCalls(m_window.Handle()); }
    ~CCallWatch() override { WatchCalls(nullptr); }
    bool Receive(UINT message, WPARAM wParam) override
    {
        if (message != WM_TIMER || wParam != CallTimer)
            return false;
        CallTimerTicked();
        return true;
    }

private:
    CMessageWindow m_window;
};

std::unique_ptr<CCallWatch> watch;
CMessageFilter filter;

}

bool Running() { return running; }

void SetRunning(bool isRunning) { running = isRunning; }

}

CComApartment::CComApartment()
{
    com::Check(OleInitialize(nullptr));
    com::SetRunning(true);
    com::watch = std::make_unique<com::CCallWatch>();
    CoRegisterMessageFilter(&com::filter, nullptr);
}

CComApartment::~CComApartment()
{
    CoRegisterMessageFilter(nullptr, nullptr);
    com::watch.reset();
    com::SetRunning(false);
    OleUninitialize();
}

}
