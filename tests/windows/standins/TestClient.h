#pragma once
#include "windows/standins/Client.h"
#include "windows/standins/Engine.h"
#include "windows/standins/Loop.h"
#include <deque>
#include <gtest/gtest.h>

// What a client of the engine does, by hand, for the tests of the stand-ins.
namespace standins {

// One object: names, arguments, results.
class CCaller {
public:
    explicit CCaller(CRef<IDispatch> object) : m_object(std::move(object)) {}
    ~CCaller();
    CCaller(const CCaller& other) : m_object(other.m_object) {}
    CCaller& operator=(const CCaller&) = delete;

    DISPID ID(const char* name);
    CValue Call(const char* name, std::vector<CValue> arguments = {});
    CValue Get(const char* name, std::vector<CValue> arguments = {});
    void Put(const char* name, CValue value);
    CCaller Object(const char* name, std::vector<CValue> arguments = {});        // Of a property.
    CRef<IDispatch> Hold(const char* name, std::vector<CValue> arguments = {});  // What a method gives.
    IDispatch* Raw() const { return m_object.Get(); }
    std::string Description() const;  // Of the last exception.

    HRESULT lastResult = S_OK;
    EXCEPINFO exception{};

private:
    CValue Invoke(const char* name, WORD flags, std::vector<CValue> arguments, DISPID* named);
    void ForgetException();
    CRef<IDispatch> m_object;
};

// A receiver of events that writes down what it gets, by number and arguments. Owned by the test.
class CSink final : public IDispatch {
public:
    explicit CSink(IID events) : m_events(events) {}
    virtual ~CSink() = default;
    STDMETHODIMP QueryInterface(REFIID id, void** object) override;
    STDMETHODIMP_(ULONG) AddRef() override { return 2; }
    STDMETHODIMP_(ULONG) Release() override { return 1; }
    STDMETHODIMP GetTypeInfoCount(UINT*) override { return E_NOTIMPL; }
    STDMETHODIMP GetTypeInfo(UINT, LCID, ITypeInfo**) override { return E_NOTIMPL; }
    STDMETHODIMP GetIDsOfNames(REFIID, LPOLESTR*, UINT, LCID, DISPID*) override { return E_NOTIMPL; }
    STDMETHODIMP Invoke(DISPID id, REFIID, LCID, WORD, DISPPARAMS* arguments, VARIANT*, EXCEPINFO*, UINT*) override;
    std::vector<std::string> heard;
    HRESULT answer = S_OK;

private:
    IID m_events;
};

CRef<IConnectionPoint> PointOf(CCaller& control, REFIID events);  // Null when there is none.

// The name of each event by its number, as the event interface's type information tells; behind those that it inherits.
void ReadEventNames(ITypeInfo& events, std::vector<std::string>& names);

class CApartmentTest : public testing::Test {
protected:
    CApartmentTest() { CoInitialize(nullptr); }
    ~CApartmentTest() override { CoUninitialize(); }
};

// With an engine in the test's own process.
class CEngineTest : public CApartmentTest {
protected:
    CCaller Connected();
    CCaller LoadDefault();  // Under the id "Bot".
    CCaller Characters();
    CSink& Listening(DWORD* cookie = nullptr);  // A new receiver of the control's events.
    void Tell(const char* command) { EXPECT_TRUE(scene->Tell(command)) << command; }
    std::vector<std::string> Calls() const;
    std::shared_ptr<CScene> scene = std::make_shared<CScene>();
    std::deque<CSink> sinks;  // Outlive the control, which holds them.
    CRef<IDispatch> control;
};

}
