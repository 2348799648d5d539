#include "app/windows/editor/RichText.h"
#include "app/windows/window/TextUnits.h"
#include "app/windows/window/Window.h"
#include "platform/windows/Text.h"
#include <algorithm>
#include <cstring>

namespace appwindows::richText {
namespace {

constexpr bool EndsLine(wchar_t unit) { return unit == L'\r' || unit == L'\v'; }

std::wstring Units(HWND box, LONG from, LONG to)
{
    std::wstring units(static_cast<std::size_t>(std::max(0L, to - from)) + 1, L'\0');
    TEXTRANGEW range = {};
    range.chrg = {from, to};
    range.lpstrText = units.data();
    units.resize(from < to ? Send<std::size_t>(box, EM_GETTEXTRANGE, 0, ToParam(&range)) : 0);
    return units;
}

// The box takes a "\r\n" for two line ends when it is handed over in two pieces.
std::wstring WithOwnLineEnds(std::wstring text)
{
    text.erase(std::remove(text.begin(), text.end(), L'\n'), text.end());
    return text;
}

// What the box has not yet taken.
struct Rest {
    const char* at;
    std::size_t bytes;
};

DWORD CALLBACK HandOver(DWORD_PTR cookie, LPBYTE buffer, LONG wanted, LONG* given)
{
    auto& rest = *reinterpret_cast<Rest*>(cookie);
    const std::size_t count = std::min(rest.bytes, static_cast<std::size_t>(wanted) & ~std::size_t{1});
    std::memcpy(buffer, rest.at, count);
    rest.at += count;
    rest.bytes -= count;
    *given = static_cast<LONG>(count);
    return 0;
}

}

void Put(HWND box, const std::string& text)
{
    const std::wstring wide = WithOwnLineEnds(platform::windowsdesktop::ToWide(text));
    Rest rest{reinterpret_cast<const char*>(wide.data()), wide.size() * sizeof(wchar_t)};
    EDITSTREAM stream = {};
    stream.dwCookie = reinterpret_cast<DWORD_PTR>(&rest);
    stream.pfnCallback = HandOver;
    Send(box, WM_SETREDRAW, FALSE);
    Send(box, EM_STREAMIN, SF_TEXT | SF_UNICODE, ToParam(&stream));
    Send(box, EM_EMPTYUNDOBUFFER);
    CHARRANGE start = {0, 0};
    Send(box, EM_EXSETSEL, 0, ToParam(&start));
    Send(box, WM_SETREDRAW, TRUE);
    InvalidateRect(box, nullptr, TRUE);
}

LONG UnitCount(HWND box)
{
    GETTEXTLENGTHEX asked = {};
    asked.flags = GTL_NUMCHARS | GTL_PRECISE;
    asked.codepage = 1200;
    return Send<LONG>(box, EM_GETTEXTLENGTHEX, reinterpret_cast<WPARAM>(&asked));
}

std::string Part(HWND box, LONG from, LONG to)
{
    const std::wstring units = Units(box, from, to);
    std::wstring text;
    text.reserve(units.size() + units.size() / 16);
    for (const wchar_t unit : units)
        if (EndsLine(unit))
            text += L"\r\n";
        else
            text += unit;
    return platform::windowsdesktop::FromWide(text);
}

LONG UnitOfCharacter(HWND box, std::int32_t character)
{
    const std::wstring units =
        Units(box, 0, std::min(UnitCount(box), static_cast<LONG>(std::min(character, 0x3FFFFFFF) * 2)));
    std::size_t at = 0;
    for (std::int32_t left = character; left > 0 && at < units.size();) {
        left -= EndsLine(units[at]) ? 2 : 1;
        at += UnitsAt(units, at);
    }
    return static_cast<LONG>(at);
}

std::int32_t CharacterOfUnit(HWND box, LONG unit)
{
    const std::wstring units = Units(box, 0, unit);
    return CharactersIn(units) + static_cast<std::int32_t>(std::count_if(units.begin(), units.end(), EndsLine));
}

}
