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

constexpr UINT LookAfterCalls = WM_APP;

// What the message is for has happened when it arrives.
class CWatchWindow final : public IMessageReceiver {
public:
    bool Receive(UINT message, WPARAM) override { return message == LookAfterCalls; }

private:
    CMessageWindow m_window{*this};
    CCallWatch m_watch{m_window.Handle(), LookAfterCalls};
};

std::unique_ptr<CWatchWindow> watchWindow;
CMessageFilter filter;

}

bool Running() { return running; }

void SetRunning(bool isRunning) { running = isRunning; }

}

CComApartment::CComApartment()
{
    com::Check(OleInitialize(nullptr));
    com::SetRunning(true);
    com::watchWindow = std::make_unique<com::CWatchWindow>();
    CoRegisterMessageFilter(&com::filter, nullptr);
}

CComApartment::~CComApartment()
{
    CoRegisterMessageFilter(nullptr, nullptr);
    com::watchWindow.reset();
    com::SetRunning(false);
    OleUninitialize();
}

}
