#include "platform/windows/Text.h"
#include "platform/windows/Win32.h"
#include <algorithm>
#include <limits>

namespace platform::windowsdesktop {
namespace {

// The system counts in int; what is longer than that is cut.
template <class View> int Count(View text)
{
    return static_cast<int>(std::min(text.size(), static_cast<std::size_t>(std::numeric_limits<int>::max()) / 4));
}

std::wstring Widen(UINT codePage, std::string_view bytes)
{
    const int count = Count(bytes);
    std::wstring wide(static_cast<std::size_t>(count), L'\0');  // No code page needs more units than bytes.
    const int written = count == 0 ? 0 : MultiByteToWideChar(codePage, 0, bytes.data(), count, wide.data(), count);
    wide.resize(static_cast<std::size_t>(written));
    return wide;
}

std::string Narrow(UINT codePage, std::wstring_view wide)
{
    const int count = Count(wide);
    if (count == 0)
        return {};
    const int needed = WideCharToMultiByte(codePage, 0, wide.data(), count, nullptr, 0, nullptr, nullptr);
    std::string bytes(static_cast<std::size_t>(needed), '\0');
    WideCharToMultiByte(codePage, 0, wide.data(), count, bytes.data(), needed, nullptr, nullptr);
    return bytes;
}

}

std::wstring ToWide(std::string_view text) { return Widen(CP_UTF8, text); }

std::string FromWide(std::wstring_view text) { return Narrow(CP_UTF8, text); }

std::string ToAnsi(std::string_view text)
{
    return GetACP() == CP_UTF8 ? std::string(text) : Narrow(CP_ACP, Widen(CP_UTF8, text));
}

std::string FromAnsi(std::string_view bytes) { return Narrow(CP_UTF8, Widen(CP_ACP, bytes)); }

}
