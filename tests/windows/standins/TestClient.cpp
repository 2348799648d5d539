#include "windows/standins/TestClient.h"
#include "windows/standins/Commands.h"

namespace standins {

CCaller::~CCaller() { ForgetException(); }

void CCaller::ForgetException()
{
    SysFreeString(exception.bstrSource);
    SysFreeString(exception.bstrDescription);
    SysFreeString(exception.bstrHelpFile);
    exception = EXCEPINFO{};
}

DISPID CCaller::ID(const char* name)
{
    DISPID id = DISPID_UNKNOWN;
    std::wstring wide = Wide(name);
    LPOLESTR names = wide.data();
    lastResult = m_object->GetIDsOfNames(IID_NULL, &names, 1, LOCALE_USER_DEFAULT, &id);
    return id;
}

CValue CCaller::Invoke(const char* name, WORD flags, std::vector<CValue> arguments, DISPID* named)
{
    const DISPID id = ID(name);
    if (FAILED(lastResult))
        return CValue();
    std::vector<VARIANT> reversed;
    for (auto value = arguments.rbegin(); value != arguments.rend(); ++value)
        reversed.push_back(value->Get());
    DISPPARAMS parameters{reversed.data(), named, static_cast<UINT>(reversed.size()), named ? 1U : 0U};
    CValue result;
    ForgetException();
    lastResult = m_object->Invoke(id, IID_NULL, LOCALE_USER_DEFAULT, flags, &parameters, &result.Raw(), &exception, nullptr);
    return result;
}

CValue CCaller::Call(const char* name, std::vector<CValue> arguments)
{
    return Invoke(name, DISPATCH_METHOD, std::move(arguments), nullptr);
}

CValue CCaller::Get(const char* name, std::vector<CValue> arguments)
{
    const WORD flags = arguments.empty() ? DISPATCH_PROPERTYGET : DISPATCH_PROPERTYGET | DISPATCH_METHOD;
    return Invoke(name, flags, std::move(arguments), nullptr);
}

void CCaller::Put(const char* name, CValue value)
{
    DISPID put = DISPID_PROPERTYPUT;
    Invoke(name, DISPATCH_PROPERTYPUT, {std::move(value)}, &put);
}

CCaller CCaller::Object(const char* name, std::vector<CValue> arguments)
{
    return CCaller(CRef<IDispatch>::Share(Get(name, std::move(arguments)).Object()));
}

CRef<IDispatch> CCaller::Hold(const char* name, std::vector<CValue> arguments)
{
    return CRef<IDispatch>::Share(Call(name, std::move(arguments)).Object());
}

std::string CCaller::Description() const { return exception.bstrDescription ? Narrow(exception.bstrDescription) : ""; }

STDMETHODIMP CSink::QueryInterface(REFIID id, void** object)
{
    const bool known = id == IID_IUnknown || id == IID_IDispatch || id == m_events;
    *object = known ? this : nullptr;
    return known ? S_OK : E_NOINTERFACE;
}

STDMETHODIMP CSink::Invoke(DISPID id, REFIID, LCID, WORD, DISPPARAMS* arguments, VARIANT*, EXCEPINFO*, UINT*)
{
    std::string line = std::to_string(id);
    for (UINT index = arguments->cArgs; index > 0; --index)
        line += " " + Describe(arguments->rgvarg[index - 1]);
    heard.push_back(line);
    return answer;
}

CRef<IConnectionPoint> PointOf(CCaller& control, REFIID events)
{
    CRef<IConnectionPointContainer> container;
    CRef<IConnectionPoint> point;
    control.Raw()->QueryInterface(IID_IConnectionPointContainer, reinterpret_cast<void**>(container.Receive()));
    if (container)
        container->FindConnectionPoint(events, point.Receive());
    return point;
}

void ReadEventNames(ITypeInfo& events, std::vector<std::string>& names)
{
    TYPEATTR* attributes = nullptr;
    events.GetTypeAttr(&attributes);
    for (UINT index = 0; index < attributes->cFuncs; ++index) {
        FUNCDESC* function = nullptr;
        BSTR name = nullptr;
        UINT count = 0;
        ASSERT_EQ(events.GetFuncDesc(index, &function), S_OK) << index;
        events.GetNames(function->memid, &name, 1, &count);
        names.push_back(std::to_string(function->memid) + " " + Narrow(name));
        SysFreeString(name);
        events.ReleaseFuncDesc(function);
    }
    events.ReleaseTypeAttr(attributes);
}

CCaller CEngineTest::Connected()
{
    if (!control)
        control = NewControl(scene);
    CCaller caller(control);
    caller.Put("Connected", CValue(true));
    return caller;
}

CCaller CEngineTest::Characters() { return Connected().Object("Characters"); }

CCaller CEngineTest::LoadDefault()
{
    CCaller characters = Characters();
    characters.Call("Load", {CValue("Bot")});
    CCaller character(characters.Hold("Character", {CValue("Bot")}));
    PumpMessages();
    scene->log.Forget();
    return character;
}

CSink& CEngineTest::Listening(DWORD* cookie)
{
    DWORD unused = 0;
    CCaller caller = Connected();
    CSink& sink = sinks.emplace_back(EventInterface(*scene));
    PointOf(caller, EventInterface(*scene))->Advise(&sink, cookie ? cookie : &unused);
    return sink;
}

std::vector<std::string> CEngineTest::Calls() const { return OnlyCalls(scene->log.Lines()); }

}
