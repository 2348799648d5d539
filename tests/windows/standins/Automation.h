#pragma once
#include "windows/standins/Script.h"
#include <atomic>
#include <functional>
#include <memory>

// Objects that programs reach by name: what IDispatch asks for, by a table of members.
namespace standins {

class CScene;

// The arguments of one call, in the order of the parameters, converted to their types.
class CCall {
public:
    CCall(WORD flags, std::vector<CValue> arguments) : m_flags(flags), m_arguments(std::move(arguments)) {}
    WORD Flags() const { return m_flags; }
    bool Omitted(std::size_t index) const { return index >= m_arguments.size() || m_arguments[index].IsOmitted(); }
    const CValue& operator[](std::size_t index) const { return m_arguments.at(index); }
    std::string Text(std::size_t index) const { return Omitted(index) ? std::string() : m_arguments[index].Text(); }
    std::int32_t Number(std::size_t index, std::int32_t otherwise = 0) const;
    bool Truth(std::size_t index, bool otherwise) const;

private:
    WORD m_flags;
    std::vector<CValue> m_arguments;
};

// Types of values: 's' text, 'n' 16-bit and 'l' 32-bit number, 'b' truth value, 'd' object, 'u' IUnknown, 'v' anything, ' '
// nothing.
VARTYPE TypeOf(char letter);

struct CMember {
    std::string name;
    DISPID id = 0;
    char type = ' ';         // Of the property, or what the method gives.
    std::string parameters;  // One letter each. In upper case: may be omitted.
    std::function<CValue(const CCall&)> get, put, call;
};

// COM's interfaces have no virtual destructor: Release destroys the object.
#pragma GCC diagnostic push
#pragma GCC diagnostic ignored "-Wnon-virtual-dtor"
class CAutomationObject : public IDispatch {
public:
    // The path is how the log names the object: "Character[Bot].Balloon". Its class is the last word of it.
    CAutomationObject(std::shared_ptr<CScene> scene, std::string path);
    CAutomationObject(const CAutomationObject&) = delete;
    CAutomationObject& operator=(const CAutomationObject&) = delete;

    STDMETHODIMP QueryInterface(REFIID id, void** object) override;
    STDMETHODIMP_(ULONG) AddRef() override { return ++m_references; }
    STDMETHODIMP_(ULONG) Release() override;
    STDMETHODIMP GetTypeInfoCount(UINT* count) override;
    STDMETHODIMP GetTypeInfo(UINT index, LCID, ITypeInfo** info) override;
    STDMETHODIMP GetIDsOfNames(REFIID, LPOLESTR* names, UINT count, LCID, DISPID* ids) override;
    STDMETHODIMP Invoke(DISPID id, REFIID, LCID, WORD flags, DISPPARAMS* arguments, VARIANT* result, EXCEPINFO* exception,
                        UINT* badArgument) override;

    const std::vector<CMember>& Members() const { return m_members; }
    const std::string& Path() const { return m_path; }
    std::string ClassName() const;
    ULONG References() const { return m_references; }

protected:
    virtual ~CAutomationObject();
    virtual void* Interface(REFIID) { return nullptr; }  // A further interface of the object, not yet counted.
    virtual void BeforeCall(const CMember&) {}           // May refuse by throwing CComFailure.

    using Getter = std::function<CValue()>;
    using Putter = std::function<void(const CValue&)>;
    using Method = std::function<CValue(const CCall&)>;
    void ReadOnly(const char* name, DISPID id, char type, Getter get);
    void ReadWrite(const char* name, DISPID id, char type, Getter get, Putter put);
    void Callable(const char* name, DISPID id, const char* parameters, char type, Method method);
    void Indexed(const char* name, DISPID id, const char* parameters, char type, Method method);  // A call or a get.
    void Constant(const char* name, DISPID id, CValue value);
    void Variable(const char* name, DISPID id, char type, CValue& value);  // Kept in the owner's variable.

    void Forget(DISPID id);  // Takes a member away again.

    CScene& Scene() const { return *m_scene; }
    const std::shared_ptr<CScene>& SharedScene() const { return m_scene; }

private:
    const CMember* Find(DISPID id) const;
    HRESULT Answer(const CMember& member, WORD flags, const DISPPARAMS& arguments, VARIANT* result, UINT* badArgument);
    void Obey(const CRule& rule, CValue& result, bool& decided);
    void Record(const std::string& name, WORD flags, const DISPPARAMS& arguments) const;
    HRESULT Report(const CComFailure& failure, const std::string& member, EXCEPINFO* exception) const;

    std::shared_ptr<CScene> m_scene;
    std::string m_path;
    std::vector<CMember> m_members;
    std::atomic<ULONG> m_references{1};
};
#pragma GCC diagnostic pop

// Sets the parts of EXCEPINFO for a failure, at once or when the caller asks.
void FillIn(EXCEPINFO& exception, const CComFailure& failure);

}
