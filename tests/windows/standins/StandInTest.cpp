#include "windows/standins/Client.h"
#include "windows/standins/Engine.h"
#include <algorithm>
#include <gtest/gtest.h>

using namespace standins;

namespace {

// What a client of the engine does, by hand: names, arguments, results.
class CCaller {
public:
    explicit CCaller(CRef<IDispatch> object) : m_object(std::move(object)) {}
    DISPID ID(const char* name) const
    {
        DISPID id = DISPID_UNKNOWN;
        std::wstring wide = Wide(name);
        LPOLESTR names = wide.data();
        lastResult = m_object->GetIDsOfNames(IID_NULL, &names, 1, LOCALE_USER_DEFAULT, &id);
        return id;
    }
    CValue Call(const char* name, std::vector<CValue> arguments = {}) const
    {
        return Invoke(name, DISPATCH_METHOD, std::move(arguments), nullptr);
    }
    CValue Get(const char* name) const { return Invoke(name, DISPATCH_PROPERTYGET, {}, nullptr); }
    void Put(const char* name, CValue value) const
    {
        DISPID put = DISPID_PROPERTYPUT;
        Invoke(name, DISPATCH_PROPERTYPUT, {std::move(value)}, &put);
    }
    CCaller Object(const char* name) const { return CCaller(CRef<IDispatch>::Share(Get(name).Object())); }
    CRef<IDispatch> Hold(const char* name, std::vector<CValue> arguments = {}) const
    {
        return CRef<IDispatch>::Share(Call(name, std::move(arguments)).Object());
    }
    IDispatch* Raw() const { return m_object.Get(); }

    mutable HRESULT lastResult = S_OK;
    mutable EXCEPINFO exception{};

private:
    CValue Invoke(const char* name, WORD flags, std::vector<CValue> arguments, DISPID* named) const
    {
        std::vector<VARIANT> reversed;
        for (auto value = arguments.rbegin(); value != arguments.rend(); ++value)
            reversed.push_back(value->Get());
        DISPPARAMS parameters{reversed.data(), named, static_cast<UINT>(reversed.size()), named ? 1U : 0U};
        CValue result;
        exception = EXCEPINFO{};
        lastResult = m_object->Invoke(ID(name), IID_NULL, LOCALE_USER_DEFAULT, flags, &parameters, &result.Raw(), &exception,
                                      nullptr);
        return result;
    }
    CRef<IDispatch> m_object;
};

// A receiver of events that writes down what it gets.
class CSink final : public IDispatch {
public:
    explicit CSink(IID events) : m_events(events) {}
    virtual ~CSink() = default;
    STDMETHODIMP QueryInterface(REFIID id, void** object) override
    {
        const bool known = id == IID_IUnknown || id == IID_IDispatch || id == m_events;
        *object = known ? this : nullptr;
        return known ? S_OK : E_NOINTERFACE;
    }
    STDMETHODIMP_(ULONG) AddRef() override { return 2; }  // Lives on the test's stack.
    STDMETHODIMP_(ULONG) Release() override { return 1; }
    STDMETHODIMP GetTypeInfoCount(UINT*) override { return E_NOTIMPL; }
    STDMETHODIMP GetTypeInfo(UINT, LCID, ITypeInfo**) override { return E_NOTIMPL; }
    STDMETHODIMP GetIDsOfNames(REFIID, LPOLESTR*, UINT, LCID, DISPID*) override { return E_NOTIMPL; }
    STDMETHODIMP Invoke(DISPID id, REFIID, LCID, WORD, DISPPARAMS* arguments, VARIANT*, EXCEPINFO*, UINT*) override
    {
        std::string line = std::to_string(id);
        for (UINT index = arguments->cArgs; index > 0; --index)
            line += " " + Describe(arguments->rgvarg[index - 1]);
        heard.push_back(line);
        return S_OK;
    }
    std::vector<std::string> heard;

private:
    IID m_events;
};

CRef<IConnectionPoint> PointOf(const CCaller& control, REFIID events)
{
    CRef<IConnectionPointContainer> container;
    CRef<IConnectionPoint> point;
    control.Raw()->QueryInterface(IID_IConnectionPointContainer, reinterpret_cast<void**>(container.Receive()));
    container->FindConnectionPoint(events, point.Receive());
    return point;
}

class StandIn : public testing::Test {
protected:
    StandIn() : m_apartment(CoInitialize(nullptr)) {}
    ~StandIn() override { CoUninitialize(); }
    CCaller Connected()
    {
        CCaller control(NewControl(scene));
        control.Put("Connected", CValue(true));
        return control;
    }
    CCaller LoadDefault(const CCaller& control)
    {
        const CCaller characters = control.Object("Characters");
        characters.Call("Load", {CValue("Bot")});
        return CCaller(characters.Hold("Character", {CValue("Bot")}));
    }
    HRESULT m_apartment;
    std::shared_ptr<CScene> scene = std::make_shared<CScene>();
};

}

TEST_F(StandIn, GetIDsOfNames_OddCase_FindsTheDocumentedNumber)
{
    const CCaller control(NewControl(scene));

    EXPECT_EQ(control.ID("raiseREQUESTerrors"), 21);
}

TEST_F(StandIn, Invoke_ArgumentsOmittedAtTheEndAndInTheMiddle_AreRecordedApart)
{
    const CCaller character = LoadDefault(Connected());
    scene->log.Forget();

    character.Hold("Speak", {CValue::Omitted(), CValue("a.wav")});
    character.Hold("Speak", {CValue("Hello")});

    EXPECT_EQ(scene->log.LinesWith("call "), (std::vector<std::string>{"call Character[Bot].Speak(-, BSTR \"a.wav\")",
                                                                       "call Character[Bot].Speak(BSTR \"Hello\")"}));
}

TEST_F(StandIn, Raise_Click_ReachesTheReceiverWithItsArgumentsInOrder)
{
    const CCaller control = Connected();
    CSink sink(EventInterface(*scene));
    DWORD cookie = 0;
    PointOf(control, EventInterface(*scene))->Advise(&sink, &cookie);

    scene->Tell("event DblClick Bot 1 0 100 200");
    PumpMessages();

    EXPECT_EQ(sink.heard, std::vector<std::string>{"4 BSTR \"Bot\" I2 1 I2 0 I2 100 I2 200"});
}
