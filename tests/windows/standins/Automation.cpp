#include "windows/standins/Automation.h"
#include "windows/standins/Scene.h"
#include "windows/standins/TypeInformation.h"
#include <algorithm>

namespace standins {
namespace {

constexpr WORD PutFlags = DISPATCH_PROPERTYPUT | DISPATCH_PROPERTYPUTREF;

char LowerLetter(char letter) { return letter >= 'A' && letter <= 'Z' ? static_cast<char>(letter + ('a' - 'A')) : letter; }

std::string KindOf(WORD flags)
{
    std::string kind;
    const auto add = [&](WORD flag, const char* name) {
        if ((flags & flag) != 0)
            kind += (kind.empty() ? "" : "+") + std::string(name);
    };
    add(DISPATCH_METHOD, "call");
    add(DISPATCH_PROPERTYGET, "get");
    add(DISPATCH_PROPERTYPUT, "put");
    add(DISPATCH_PROPERTYPUTREF, "putref");
    return kind.empty() ? "none" : kind;
}

const std::function<CValue(const CCall&)>& HandlerOf(const CMember& member, WORD flags)
{
    static const std::function<CValue(const CCall&)> none;
    if ((flags & PutFlags) != 0)
        return member.put;
    if ((flags & DISPATCH_METHOD) != 0 && member.call)
        return member.call;
    return (flags & DISPATCH_PROPERTYGET) != 0 ? member.get : none;
}

// What the system's own dispatcher demands of named arguments: none but the value of a property.
HRESULT CheckNames(WORD flags, const DISPPARAMS& arguments)
{
    const bool put = (flags & PutFlags) != 0;
    if (!put)
        return arguments.cNamedArgs == 0 ? S_OK : DISP_E_NONAMEDARGS;
    const bool named = arguments.cNamedArgs == 1 && arguments.rgdispidNamedArgs[0] == DISPID_PROPERTYPUT;
    return named ? S_OK : DISP_E_PARAMNOTOPTIONAL;
}

std::string ParametersOf(const CMember& member, WORD flags)
{
    return (flags & PutFlags) != 0 ? member.parameters + member.type : member.parameters;
}

HRESULT CheckCount(const std::string& parameters, std::size_t given)
{
    std::size_t needed = 0;
    for (std::size_t index = 0; index < parameters.size(); ++index)
        if (LowerLetter(parameters[index]) == parameters[index])
            needed = index + 1;
    return given > parameters.size() ? DISP_E_BADPARAMCOUNT : given < needed ? DISP_E_PARAMNOTOPTIONAL : S_OK;
}

const VARIANT& ArgumentAt(const DISPPARAMS& arguments, std::size_t index)
{
    return arguments.rgvarg[arguments.cArgs - 1 - index];
}

HRESULT Convert(CValue& value, char letter)
{
    const VARTYPE type = TypeOf(LowerLetter(letter));
    const bool mayBeAnything = letter != LowerLetter(letter) || type == VT_VARIANT;
    if (mayBeAnything || value.Get().vt == type)
        return S_OK;
    return value.IsOmitted() ? DISP_E_PARAMNOTOPTIONAL : value.ConvertTo(type);
}

HRESULT ReadArguments(const CMember& member, WORD flags, const DISPPARAMS& given, std::vector<CValue>& values, UINT* bad)
{
    const std::string parameters = ParametersOf(member, flags);
    HRESULT result = CheckCount(parameters, given.cArgs);
    for (std::size_t index = 0; SUCCEEDED(result) && index < given.cArgs; ++index) {
        values.push_back(CValue::Copy(ArgumentAt(given, index)));
        result = Convert(values.back(), parameters[index]);
        if (FAILED(result) && bad)
            *bad = given.cArgs - 1 - static_cast<UINT>(index);
    }
    return result;
}

HRESULT __stdcall FillInLater(EXCEPINFO* exception)
{
    const std::unique_ptr<CComFailure> failure(static_cast<CComFailure*>(exception->pvReserved));
    exception->pvReserved = nullptr;
    exception->pfnDeferredFillIn = nullptr;
    if (failure)
        FillIn(*exception, *failure);
    return S_OK;
}

BSTR NewText(const std::string& text) { return text.empty() ? nullptr : SysAllocString(Wide(text).c_str()); }

}

std::int32_t CCall::Number(std::size_t index, std::int32_t otherwise) const
{
    return Omitted(index) ? otherwise : m_arguments[index].Number();
}

bool CCall::Truth(std::size_t index, bool otherwise) const
{
    return Omitted(index) ? otherwise : m_arguments[index].Truth();
}

VARTYPE TypeOf(char letter)
{
    switch (letter) {
    case 's':
        return VT_BSTR;
    case 'n':
        return VT_I2;
    case 'l':
        return VT_I4;
    case 'b':
        return VT_BOOL;
    case 'd':
        return VT_DISPATCH;
    case 'u':
        return VT_UNKNOWN;
    case 'v':
        return VT_VARIANT;
    default:
        return VT_EMPTY;
    }
}

void FillIn(EXCEPINFO& exception, const CComFailure& failure)
{
    exception.scode = failure.code;
    exception.bstrSource = NewText(failure.source);
    exception.bstrDescription = NewText(failure.description);
}

CAutomationObject::CAutomationObject(std::shared_ptr<CScene> scene, std::string path)
    : m_scene(std::move(scene)), m_path(std::move(path))
{
    m_scene->log.Write("made " + m_path);
    ++m_scene->livingObjects;
    ++m_scene->objectsEver;
}

CAutomationObject::~CAutomationObject()
{
    m_scene->log.Write("gone " + m_path);
    --m_scene->livingObjects;
}

STDMETHODIMP CAutomationObject::QueryInterface(REFIID id, void** object)
{
    if (!object)
        return E_POINTER;
    *object = id == IID_IUnknown || id == IID_IDispatch ? static_cast<IDispatch*>(this) : Interface(id);
    if (!*object)
        return E_NOINTERFACE;
    AddRef();
    return S_OK;
}

STDMETHODIMP_(ULONG) CAutomationObject::Release()
{
    const ULONG left = --m_references;
    if (left == 0)
        delete this;
    return left;
}

STDMETHODIMP CAutomationObject::GetTypeInfoCount(UINT* count)
{
    *count = Scene().classInfo == ClassInfo::None ? 0 : 1;
    return S_OK;
}

STDMETHODIMP CAutomationObject::GetTypeInfo(UINT index, LCID, ITypeInfo** info)
{
    *info = nullptr;
    if (index != 0)
        return DISP_E_BADINDEX;
    return Scene().classInfo == ClassInfo::None ? E_NOTIMPL : Scene().Types().OfObject(*this, info);
}

STDMETHODIMP CAutomationObject::GetIDsOfNames(REFIID, LPOLESTR* names, UINT count, LCID, DISPID* ids)
{
    if (Scene().disconnected)
        return RPC_E_DISCONNECTED;
    std::fill(ids, ids + count, DISPID_UNKNOWN);
    const std::string wanted = Narrow(names[0]);
    const auto found = std::find_if(m_members.begin(), m_members.end(),
                                    [&](const CMember& member) { return SameName(member.name, wanted); });
    if (found == m_members.end()) {
        Scene().log.Write("unknown " + m_path + "." + wanted);
        return DISP_E_UNKNOWNNAME;
    }
    ids[0] = found->id;
    return count == 1 ? S_OK : DISP_E_UNKNOWNNAME;
}

const CMember* CAutomationObject::Find(DISPID id) const
{
    const auto found =
        std::find_if(m_members.begin(), m_members.end(), [&](const CMember& member) { return member.id == id; });
    return found == m_members.end() ? nullptr : &*found;
}

STDMETHODIMP CAutomationObject::Invoke(DISPID id, REFIID, LCID, WORD flags, DISPPARAMS* arguments, VARIANT* result,
                                       EXCEPINFO* exception, UINT* badArgument)
{
    const CRef<IDispatch> alive = CRef<IDispatch>::Share(this);  // What runs inside the call may release the object.
    const DISPPARAMS none{};
    const CMember* member = Find(id);
    const std::string name = member ? member->name : "#" + std::to_string(id);
    if (Scene().disconnected)
        return RPC_E_DISCONNECTED;
    Record(name, flags, arguments ? *arguments : none);
    try {
        const HRESULT code =
            member ? Answer(*member, flags, arguments ? *arguments : none, result, badArgument) : DISP_E_MEMBERNOTFOUND;
        return SUCCEEDED(code) ? code : Report({code, /*asException*/ false}, name, exception);
    } catch (const CComFailure& failure) {
        return Report(failure, name, exception);
    } catch (...) {
        return E_UNEXPECTED;
    }
}

HRESULT CAutomationObject::Answer(const CMember& member, WORD flags, const DISPPARAMS& arguments, VARIANT* result,
                                  UINT* badArgument)
{
    const auto& handler = HandlerOf(member, flags);
    std::vector<CValue> values;
    if (!handler)
        return DISP_E_MEMBERNOTFOUND;
    if (const HRESULT code = CheckNames(flags, arguments); FAILED(code))
        return code;
    if (const HRESULT code = ReadArguments(member, flags, arguments, values, badArgument); FAILED(code))
        return code;
    CValue answer;
    bool decided = false;
    const std::vector<CRule> rules = Scene().script.Take(ClassName(), member.name, flags);
    for (const CRule& rule : rules)
        Obey(rule, answer, decided);
    if (!decided) {
        BeforeCall(member);
        answer = handler(CCall(flags, std::move(values)));
    }
    if (result)
        *result = answer.Detach();
    return S_OK;
}

void CAutomationObject::Obey(const CRule& rule, CValue& result, bool& decided)
{
    switch (rule.act) {
    case RuleAct::Fail:
        throw rule.failure;
    case RuleAct::Garbage:
        result = Garbage(rule.argument);
        decided = true;
        break;
    case RuleAct::Block:
        Sleep(rule.milliseconds);
        break;
    case RuleAct::During:
        Scene().RunInsideCall(rule.argument);
        break;
    }
    if (Scene().disconnected)
        throw CComFailure{RPC_E_DISCONNECTED, /*asException*/ false};
}

void CAutomationObject::Record(const std::string& name, WORD flags, const DISPPARAMS& arguments) const
{
    std::string line = KindOf(flags) + " " + m_path + "." + name;
    for (UINT index = 0; index < arguments.cArgs; ++index)
        line += (index == 0 ? "(" : ", ") + Describe(ArgumentAt(arguments, index));
    Scene().log.Write(arguments.cArgs == 0 ? line : line + ")");
}

HRESULT CAutomationObject::Report(const CComFailure& failure, const std::string& member, EXCEPINFO* exception) const
{
    Scene().log.Write("failed " + m_path + "." + member + " " + HexCode(failure.code));
    if (!failure.asException)
        return failure.code;
    if (!exception)
        return DISP_E_EXCEPTION;
    *exception = EXCEPINFO{};
    if (failure.deferred) {
        exception->pfnDeferredFillIn = FillInLater;
        exception->pvReserved = new CComFailure(failure);
    } else
        FillIn(*exception, failure);
    return DISP_E_EXCEPTION;
}

std::string CAutomationObject::ClassName() const
{
    const std::string last = m_path.substr(m_path.rfind('.') + 1);
    return last.substr(0, last.find('['));
}

void CAutomationObject::ReadOnly(const char* name, DISPID id, char type, Getter get)
{
    m_members.push_back({name, id, type, "", [get = std::move(get)](const CCall&) { return get(); }, {}, {}});
}

void CAutomationObject::ReadWrite(const char* name, DISPID id, char type, Getter get, Putter put)
{
    ReadOnly(name, id, type, std::move(get));
    m_members.back().put = [put = std::move(put)](const CCall& call) {
        put(call[0]);
        return CValue();
    };
}

void CAutomationObject::Callable(const char* name, DISPID id, const char* parameters, char type, Method method)
{
    m_members.push_back({name, id, type, parameters, {}, {}, std::move(method)});
}

void CAutomationObject::Indexed(const char* name, DISPID id, const char* parameters, char type, Method method)
{
    m_members.push_back({name, id, type, parameters, method, {}, method});
}

void CAutomationObject::Constant(const char* name, DISPID id, CValue value)
{
    ReadOnly(name, id, 'v', [value = std::move(value)] { return value; });
}

void CAutomationObject::Variable(const char* name, DISPID id, char type, CValue& value)
{
    ReadWrite(
        name, id, type, [&value] { return value; }, [&value](const CValue& written) { value = written; });
}

void CAutomationObject::Forget(DISPID id)
{
    m_members.erase(
        std::remove_if(m_members.begin(), m_members.end(), [&](const CMember& member) { return member.id == id; }),
        m_members.end());
}

}
