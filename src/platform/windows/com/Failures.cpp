#include "platform/windows/com/Failures.h"
#include "platform/windows/Text.h"
#include "platform/windows/com/OutgoingCalls.h"
#include <array>
#include <string_view>

namespace platform::windowsdesktop::com {
namespace {

constexpr char TextOfUnknownErrors[] = "Application-defined or object-defined error";

std::string SystemText(std::int32_t code)
{
    std::array<wchar_t, 1024> buffer{};
    const DWORD length =
        FormatMessageW(FORMAT_MESSAGE_FROM_SYSTEM | FORMAT_MESSAGE_IGNORE_INSERTS, nullptr, static_cast<DWORD>(code), 0,
                       buffer.data(), static_cast<DWORD>(buffer.size()), nullptr);
    const std::wstring_view text(buffer.data(), length);
    const std::size_t last = text.find_last_not_of(L"\r\n ");
    return last == std::wstring_view::npos ? TextOfUnknownErrors : FromWide(text.substr(0, last + 1));
}

}

CFailure FailureOf(HRESULT result)
{
    switch (result) {
    case DISP_E_UNKNOWNNAME:
    case DISP_E_MEMBERNOTFOUND:
        return failure::NoSuchMember();
    case DISP_E_TYPEMISMATCH:
    case DISP_E_BADVARTYPE:
        return failure::TypeMismatch();
    case DISP_E_OVERFLOW:
        return failure::Overflow();
    default:
        return {static_cast<std::int32_t>(result), SystemText(static_cast<std::int32_t>(result))};
    }
}

void Check(HRESULT result)
{
    if (FAILED(result))
        throw FailureOf(result);
}

CException::~CException()
{
    SysFreeString(m_info.bstrSource);
    SysFreeString(m_info.bstrDescription);
    SysFreeString(m_info.bstrHelpFile);
}

std::int32_t CException::Code() const
{
    if (m_info.scode != 0)
        return static_cast<std::int32_t>(m_info.scode);
    return m_info.wCode != 0 ? m_info.wCode : static_cast<std::int32_t>(DISP_E_EXCEPTION);
}

CFailure CException::Failure(bool serverIsInside)
{
    if (m_info.pfnDeferredFillIn && serverIsInside) {
        const COutgoingCall call;
        m_info.pfnDeferredFillIn(&m_info);
        m_info.pfnDeferredFillIn = nullptr;
    }
    const std::wstring_view description(m_info.bstrDescription ? m_info.bstrDescription : L"",
                                        SysStringLen(m_info.bstrDescription));
    return {Code(), description.empty() ? SystemText(Code()) : FromWide(description)};
}

}
