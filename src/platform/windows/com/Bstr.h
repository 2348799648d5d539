#pragma once
#include "platform/windows/Win32.h"
#include <string>
#include <string_view>
#include <utility>

namespace platform::windowsdesktop::com {

// Owns a text as COM passes it: UTF-16 with a length of its own, so that NUL characters are part of it. Without text: null.
class CBstr {
public:
    CBstr() = default;
    // Throws CFailure 7 when there is no memory.
    explicit CBstr(std::string_view text);
    explicit CBstr(std::wstring_view text);
    CBstr(const CBstr&) = delete;
    CBstr(CBstr&& other) noexcept : m_text(other.Forget()) {}
    CBstr& operator=(CBstr other) noexcept
    {
        std::swap(m_text, other.m_text);
        return *this;
    }
    ~CBstr() { SysFreeString(m_text); }

    BSTR Raw() const { return m_text; }
    BSTR* Receive();
    BSTR Forget() { return std::exchange(m_text, nullptr); }
    std::wstring_view Wide() const;

private:
    BSTR m_text = nullptr;
};

// The text of a borrowed one as UTF-8; "" for null.
std::string TextOf(BSTR text);

}
