#pragma once
#include "platform/windows/com/AgentRequests.h"
#include "platform/windows/com/EventArguments.h"
#include "platform/windows/com/EventQueue.h"
#include <string_view>

namespace platform::windowsdesktop::com {

// The number under which the engine is known to raise an event, and the name of the event. Names are compared without regard
// to case.
std::wstring_view EventName(DISPID id);  // "" for an unknown one.
bool IsEventName(std::wstring_view name);

// What delivers the event of that name; empty for one that nobody wants. What the event carries is read now, while the
// engine tells of it, by calls that may let other events in. Throws CFailure when the arguments do not fit.
Delivery DeliveryOf(std::wstring_view name, const CEventArguments& arguments, const RequestsRef& requests);

}
