#include "platform/windows/FileEncoding.h"
#include "base/text/Utf8.h"
#include "platform/Failure.h"
#include "platform/text/Encoding.h"
#include "platform/windows/Text.h"
#include "platform/windows/Win32.h"
#include <algorithm>
#include <string_view>

namespace platform::windowsdesktop {
namespace {
constexpr std::string_view Utf8Mark = "\xEF\xBB\xBF";
constexpr UINT WesternEuropean = 1252;
constexpr std::size_t LongestForTheSystem = 500'000'000;

bool IsMarked(std::string_view bytes)
{
    return bytes.starts_with(Utf8Mark) || bytes.starts_with("\xFF\xFE") || bytes.starts_with("\xFE\xFF");
}

// The code page of programs that know no UTF-8, whatever this process has.
UINT LegacyCodePage()
{
    if (GetACP() != CP_UTF8)
        return GetACP();
    UINT codePage = 0;
    GetLocaleInfoW(LOCALE_SYSTEM_DEFAULT, LOCALE_IDEFAULTANSICODEPAGE | LOCALE_RETURN_NUMBER,
                   reinterpret_cast<wchar_t*>(&codePage), sizeof codePage / sizeof(wchar_t));
    return codePage == 0 || codePage == CP_UTF8 ? WesternEuropean : codePage;
}

std::string FromLegacy(std::string_view bytes)
{
    if (bytes.size() > LongestForTheSystem)
        throw failure::OutOfMemory();
    const auto count = static_cast<int>(bytes.size());
    std::wstring wide(bytes.size(), L'\0');
    const int units = MultiByteToWideChar(LegacyCodePage(), 0, bytes.data(), count, wide.data(), count);
    return FromWide(std::wstring_view(wide).substr(0, static_cast<std::size_t>(std::max(units, 0))));
}

bool IsPlain(std::string_view bytes)
{
    return std::all_of(bytes.begin(), bytes.end(), [](char byte) { return static_cast<unsigned char>(byte) < 0x80; });
}
}

std::string TextOfFile(std::string bytes)
{
    if (!IsMarked(bytes) && !::text::IsUtf8(bytes))
        bytes = FromLegacy(bytes);
    return text::TextOfBytes(std::move(bytes));
}

std::string BytesForFile(const std::string& text)
{
    if (GetACP() == CP_UTF8 || IsPlain(text))
        return text;
    std::string bytes = ToAnsi(text);
    const bool readsAsItself = FromAnsi(bytes) == text && !IsMarked(bytes) && !::text::IsUtf8(bytes);
    return readsAsItself ? std::move(bytes) : std::string(Utf8Mark) + text;
}

}
