#include "platform/windows/com/EventArguments.h"
#include "platform/Failure.h"

namespace platform::windowsdesktop::com {

CVariant CEventArguments::Value(UINT index) const
{
    if (!m_parameters || !m_parameters->rgvarg || index >= m_parameters->cArgs)
        throw failure::TypeMismatch();
    return CVariant::Copy(m_parameters->rgvarg[m_parameters->cArgs - 1 - index]);
}

}
