#pragma once
#include "platform/windows/com/Interface.h"
#include <map>
#include <string>

namespace platform::windowsdesktop::com {

// The interface through which the control raises its events.
struct EventInterface {
    IID id{};
    std::map<DISPID, std::wstring> names;  // Of its events; empty when the control's type library cannot be read.
};

// As the control declares it; else as its registered type library does, else the library behind its own type; else the
// interface that the engine is known to have.
EventInterface FindEventInterface(const CInterface<IDispatch>& control);

// The one that the engine is known to have, without names.
EventInterface KnownEventInterface();

}
