#pragma once
#include "platform/windows/com/Interface.h"
#include <cstdint>
#include <optional>
#include <string>

namespace platform::windowsdesktop::com {

// Owns a value on its way to or from a COM server. What comes from there is of any type: the readers convert, or throw
// CFailure 13 (type) or 6 (size).
class CVariant {
public:
    CVariant() { VariantInit(&m_value); }
    CVariant(const std::string& text);
    CVariant(bool truth);
    CVariant(std::int16_t number);
    CVariant(std::int32_t number);
    CVariant(const CInterface<IDispatch>& object);
    // No value: an omitted argument.
    template <class T> CVariant(const std::optional<T>& value) : CVariant(value ? CVariant(*value) : Omitted()) {}
    // Nothing else becomes a value by chance.
    template <class T> CVariant(T) = delete;

    CVariant(const CVariant& other);
    CVariant(CVariant&& other) noexcept;
    CVariant& operator=(CVariant other) noexcept;
    ~CVariant();
    static CVariant Omitted();
    // A copy of a borrowed value; what it refers to is looked up.
    static CVariant Copy(const VARIANT& value);

    VARIANT& Raw() { return m_value; }
    const VARIANT& Raw() const { return m_value; }
    bool IsOmitted() const;
    bool IsEmpty() const;   // No value, or one that says that there is none.
    bool IsObject() const;  // Also one that refers to no object.

    std::string Text() const;
    bool Truth() const;
    std::int16_t Short() const;
    std::int32_t Long() const;
    // The object; throws CFailure 13 when it is none or cannot be called by name, 91 when it refers to none.
    CInterface<IDispatch> Object() const;

private:
    CVariant ChangedTo(VARTYPE type) const;
    VARIANT m_value;
};

}
