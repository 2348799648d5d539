#pragma once
#include "platform/windows/com/Variant.h"
#include <string>

namespace platform::windowsdesktop::com {

// The arguments of an event, counted from 0 in the order of its parameters. Borrowed. An argument that is missing or of a
// type that does not fit throws CFailure.
class CEventArguments {
public:
    explicit CEventArguments(const DISPPARAMS* parameters) : m_parameters(parameters) {}
    std::string Text(UINT index) const { return Value(index).Text(); }
    std::int16_t Short(UINT index) const { return Value(index).Short(); }
    std::int32_t Long(UINT index) const { return Value(index).Long(); }
    CInterface<IDispatch> Object(UINT index) const { return Value(index).Object(); }

private:
    CVariant Value(UINT index) const;
    const DISPPARAMS* m_parameters;
};

}
