#pragma once
#include "platform/windows/Win32.h"
#include <cstdint>
#include <string>
#include <string_view>
#include <utility>

// Values and references as COM passes them. Text is UTF-8 inside. The stand-ins share no code with what they test.
namespace standins {

std::wstring Wide(std::string_view text);
std::string Narrow(std::wstring_view text);
bool SameName(std::string_view left, std::string_view right);  // Without regard to the case of ASCII letters.

// A counted reference to a COM object.
template <class Interface> class CRef {
public:
    CRef() = default;
    CRef(const CRef& other) : m_object(other.m_object) { Hold(); }
    CRef(CRef&& other) noexcept : m_object(std::exchange(other.m_object, nullptr)) {}
    ~CRef() { Reset(); }
    CRef& operator=(CRef other) noexcept
    {
        std::swap(m_object, other.m_object);
        return *this;
    }
    static CRef Adopt(Interface* object)  // Takes over the caller's reference.
    {
        CRef ref;
        ref.m_object = object;
        return ref;
    }
    static CRef Share(Interface* object)  // Takes a reference of its own.
    {
        CRef ref = Adopt(object);
        ref.Hold();
        return ref;
    }
    void Reset()
    {
        if (Interface* object = std::exchange(m_object, nullptr))
            object->Release();
    }
    Interface* Get() const { return m_object; }
    Interface* operator->() const { return m_object; }
    explicit operator bool() const { return m_object != nullptr; }
    Interface* Detach() { return std::exchange(m_object, nullptr); }
    Interface** Receive()  // For calls that hand out a reference.
    {
        Reset();
        return &m_object;
    }

private:
    void Hold()
    {
        if (m_object)
            m_object->AddRef();
    }
    Interface* m_object = nullptr;
};

// A VARIANT that frees itself.
class CValue {
public:
    CValue() { VariantInit(&m_value); }
    explicit CValue(bool value);
    explicit CValue(std::int16_t value);
    explicit CValue(std::int32_t value);
    explicit CValue(double value);
    explicit CValue(const std::string& text);
    explicit CValue(const char* text) : CValue(std::string(text)) {}
    explicit CValue(IDispatch* object);  // Takes a reference of its own.
    CValue(const CValue& other);
    CValue(CValue&& other) noexcept;
    ~CValue() { VariantClear(&m_value); }
    CValue& operator=(CValue other) noexcept;

    static CValue Omitted();  // VT_ERROR with DISP_E_PARAMNOTFOUND.
    static CValue Copy(const VARIANT& value);

    const VARIANT& Get() const { return m_value; }
    VARIANT& Raw() { return m_value; }
    VARIANT Detach();
    bool IsOmitted() const;
    // The value as another type. Gives the system's code when it cannot be.
    HRESULT ConvertTo(VARTYPE type);

    std::string Text() const;
    std::int32_t Number() const;
    bool Truth() const;
    IDispatch* Object() const;  // Borrowed; null for anything else.

private:
    VARIANT m_value;
};

// A value as a call log shows it: its type and its text, "-" for an omitted one.
std::string Describe(const VARIANT& value);
// Text in double quotes on one line: \" \\ \r \n \t, \xNN for the other control characters.
std::string Quoted(std::string_view text);
std::string HexCode(HRESULT code);  // 0x8004200B

}
