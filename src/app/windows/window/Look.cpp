#include "app/windows/window/Look.h"
#include "platform/windows/Text.h"
#include <cmath>
#include <cstring>

namespace appwindows {
namespace {

using platform::windowsdesktop::ToWide;

// A function that older systems lack; null there.
template <class Function> Function Find(const wchar_t* library, const char* name)
{
    HMODULE module = GetModuleHandleW(library);
    if (!module)
        module = LoadLibraryW(library);
    return module ? reinterpret_cast<Function>(reinterpret_cast<void*>(GetProcAddress(module, name))) : nullptr;
}

using ThemeHandle = HANDLE;
struct Themes {
    using IsAppThemedFunction = BOOL(WINAPI*)();
    using OpenFunction = ThemeHandle(WINAPI*)(HWND, LPCWSTR);
    using CloseFunction = HRESULT(WINAPI*)(ThemeHandle);
    using DrawFunction = HRESULT(WINAPI*)(ThemeHandle, HDC, int, int, const RECT*, const RECT*);
    IsAppThemedFunction isAppThemed = Find<IsAppThemedFunction>(L"uxtheme.dll", "IsAppThemed");
    IsAppThemedFunction isThemeActive = Find<IsAppThemedFunction>(L"uxtheme.dll", "IsThemeActive");
    OpenFunction open = Find<OpenFunction>(L"uxtheme.dll", "OpenThemeData");
    CloseFunction close = Find<CloseFunction>(L"uxtheme.dll", "CloseThemeData");
    DrawFunction draw = Find<DrawFunction>(L"uxtheme.dll", "DrawThemeBackground");
    bool Complete() const { return isAppThemed && isThemeActive && open && close && draw; }
};
const Themes& TheThemes()
{
    static const Themes themes;
    return themes;
}

constexpr int TabBodyPart = 10;

int ScreenDpi()
{
    HDC screen = GetDC(nullptr);
    const int dpi = GetDeviceCaps(screen, LOGPIXELSY);
    ReleaseDC(nullptr, screen);
    return dpi;
}

}

int DpiOf(HWND window)
{
    static const auto ofWindow = Find<UINT(WINAPI*)(HWND)>(L"user32.dll", "GetDpiForWindow");
    const UINT dpi = ofWindow ? ofWindow(window) : 0;
    return dpi > 0 ? static_cast<int>(dpi) : ScreenDpi();
}

int SystemSize(int metric, int dpi)
{
    static const auto forDpi = Find<int(WINAPI*)(int, UINT)>(L"user32.dll", "GetSystemMetricsForDpi");
    if (forDpi)
        return forDpi(metric, static_cast<UINT>(dpi));
    return MulDiv(GetSystemMetrics(metric), dpi, ScreenDpi());
}

RECT FrameAround(HWND window, int dpi)
{
    static const auto forDpi =
        Find<BOOL(WINAPI*)(RECT*, DWORD, BOOL, DWORD, UINT)>(L"user32.dll", "AdjustWindowRectExForDpi");
    const auto style = static_cast<DWORD>(GetWindowLongPtrW(window, GWL_STYLE));
    const auto exStyle = static_cast<DWORD>(GetWindowLongPtrW(window, GWL_EXSTYLE));
    const BOOL hasMenu = GetMenu(window) != nullptr;
    RECT frame = {};
    if (!forDpi || !forDpi(&frame, style, hasMenu, exStyle, static_cast<UINT>(dpi)))
        AdjustWindowRectEx(&frame, style, hasMenu, exStyle);
    return frame;
}

Gdi<HFONT> DialogFont(int dpi)
{
    static const auto forDpi =
        Find<BOOL(WINAPI*)(UINT, UINT, void*, UINT, UINT)>(L"user32.dll", "SystemParametersInfoForDpi");
    NONCLIENTMETRICSW metrics = {};
    metrics.cbSize = sizeof metrics;
    LOGFONTW& font = metrics.lfMessageFont;
    if (!forDpi || !forDpi(SPI_GETNONCLIENTMETRICS, sizeof metrics, &metrics, 0, static_cast<UINT>(dpi))) {
        SystemParametersInfoW(SPI_GETNONCLIENTMETRICS, sizeof metrics, &metrics, 0);
        font.lfHeight = MulDiv(font.lfHeight, dpi, ScreenDpi());
    }
    return Gdi<HFONT>(CreateFontIndirectW(&font));
}

Gdi<HFONT> FontOf(const ui::TextStyle& style, int dpi)
{
    constexpr double PointsPerInch = 72;
    LOGFONTW font = {};
    font.lfHeight = -static_cast<LONG>(std::lround(static_cast<double>(style.fontSize) * dpi / PointsPerInch));
    font.lfWeight = style.bold ? FW_BOLD : FW_NORMAL;
    font.lfItalic = style.italic;
    font.lfUnderline = style.underline;
    font.lfStrikeOut = style.strikeThrough;
    font.lfCharSet = DEFAULT_CHARSET;
    font.lfQuality = CLEARTYPE_QUALITY;
    const std::wstring name = ToWide(style.fontName.empty() ? "MS Shell Dlg" : style.fontName);
    name.copy(font.lfFaceName, LF_FACESIZE - 1);
    return Gdi<HFONT>(CreateFontIndirectW(&font));
}

SIZE ExtentOf(HDC dc, const std::string& text)
{
    const std::wstring wide = ToWide(text);
    SIZE extent = {};
    GetTextExtentPoint32W(dc, wide.c_str(), static_cast<int>(wide.size()), &extent);
    return extent;
}

bool IsThemed()
{
    const Themes& themes = TheThemes();
    return themes.Complete() && themes.isThemeActive() && themes.isAppThemed() && !HighContrast();
}

bool DrawTabBody(HWND window, HDC dc, const RECT& place)
{
    const Themes& themes = TheThemes();
    if (!IsThemed())
        return false;
    ThemeHandle theme = themes.open(window, L"TAB");
    if (!theme)
        return false;
    const bool drawn = SUCCEEDED(themes.draw(theme, dc, TabBodyPart, 0, &place, nullptr));
    themes.close(theme);
    return drawn;
}

bool HighContrast()
{
    HIGHCONTRASTW contrast = {};
    contrast.cbSize = sizeof contrast;
    return SystemParametersInfoW(SPI_GETHIGHCONTRAST, sizeof contrast, &contrast, 0) &&
           (contrast.dwFlags & HCF_HIGHCONTRASTON);
}

void DrawThinBorder(HWND window)
{
    RECT border = {};
    GetWindowRect(window, &border);
    OffsetRect(&border, -static_cast<int>(border.left), -static_cast<int>(border.top));
    HDC dc = GetWindowDC(window);
    FrameRect(dc, &border, GetSysColorBrush(HighContrast() ? COLOR_WINDOWTEXT : COLOR_3DSHADOW));
    InflateRect(&border, -1, -1);
    FrameRect(dc, &border, GetSysColorBrush(COLOR_WINDOW));
    ReleaseDC(window, dc);
}

}
