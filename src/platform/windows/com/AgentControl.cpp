#include "platform/windows/com/AgentControl.h"
#include "platform/Failure.h"
#include "platform/windows/com/AgentEngine.h"

namespace platform::windowsdesktop {
namespace {

constexpr wchar_t ControlName[] = L"Agent.Control.2";
constexpr char ControlFile[] = "agentctl.dll";

// None when it cannot be created, for whatever reason.
com::CInterface<IDispatch> NewControl()
{
    const com::COutgoingCall call;
    CLSID id;
    com::CInterface<IDispatch> control;
    if (FAILED(CLSIDFromProgID(ControlName, &id)) ||
        FAILED(CoCreateInstance(id, nullptr, CLSCTX_ALL, IID_IDispatch, control.ReceiveAny())))
        control.Forget();
    return control;
}

}

std::shared_ptr<ICharacterEngine> CAgentFactory::Create()
{
    const com::CInterface<IDispatch> control = NewControl();
    if (!control)
        throw failure::CannotCreateObject();
    return std::make_shared<com::CAgentEngine>(control);
}

void CAgentFactory::RequireForMainWindow()
{
    if (!NewControl())
        throw failure::ComponentNotRegistered(ControlFile);
}

}
