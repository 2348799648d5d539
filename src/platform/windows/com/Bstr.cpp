#include "platform/windows/com/Bstr.h"
#include "platform/Failure.h"
#include "platform/windows/Text.h"

namespace platform::windowsdesktop::com {

CBstr::CBstr(std::string_view text) : CBstr(std::wstring_view(ToWide(text))) {}

CBstr::CBstr(std::wstring_view text) : m_text(SysAllocStringLen(text.data(), static_cast<UINT>(text.size())))
{
    if (!m_text)
        throw failure::OutOfMemory();
}

BSTR* CBstr::Receive()
{
    SysFreeString(Forget());
    return &m_text;
}

std::wstring_view CBstr::Wide() const { return {m_text ? m_text : L"", SysStringLen(m_text)}; }

std::string TextOf(BSTR text) { return text ? FromWide({text, SysStringLen(text)}) : std::string(); }

}
