#include "driver/Boxes.h"
#include "driver/Waiting.h"
#include "driver/Windows.h"
#include "platform/windows/Text.h"

using platform::windowsdesktop::ToWide;

namespace driver {
namespace {

constexpr int TextId = 65535, FileNameId = 1148;
constexpr wchar_t DialogClass[] = L"#32770";

bool WaitsForAnswer(HWND window)
{
    return IsWindowVisible(window) && IsWindowEnabled(window) && IsOfClass(window, DialogClass);
}

std::vector<int> ButtonsOf(HWND window)
{
    std::vector<int> buttons;
    for (int id : {IDOK, IDABORT, IDYES, IDRETRY, IDNO, IDIGNORE, IDCANCEL})
        if (HWND button = GetDlgItem(window, id); button && IsWindowVisible(button))
            buttons.push_back(id);
    return buttons;
}

// The one with the thick border.
int StandardButton(HWND window)
{
    for (int id : ButtonsOf(window))
        if ((GetWindowLongW(GetDlgItem(window, id), GWL_STYLE) & BS_TYPEMASK) == BS_DEFPUSHBUTTON)
            return id;
    return 0;
}

// The icon's place in the box. A box without one keeps the control, hidden or empty.
HWND IconOf(HWND box)
{
    for (HWND inner = GetWindow(box, GW_CHILD); inner; inner = GetWindow(inner, GW_HWNDNEXT))
        if (IsWindowVisible(inner) && (GetWindowLongW(inner, GWL_STYLE) & SS_TYPEMASK) == SS_ICON &&
            IsOfClass(inner, L"Static"))
            return inner;
    return nullptr;
}

// The pixels that a system icon has on this background.
std::vector<DWORD> PixelsOfIcon(const wchar_t* name, int width, int height)
{
    const HDC screen = GetDC(nullptr), device = CreateCompatibleDC(screen);
    BITMAPINFO info{};
    info.bmiHeader = {sizeof info.bmiHeader, width, -height, 1, 32, BI_RGB, 0, 0, 0, 0, 0};
    void* bits = nullptr;
    const HBITMAP bitmap = CreateDIBSection(screen, &info, DIB_RGB_COLORS, &bits, nullptr, 0);
    const HGDIOBJ before = SelectObject(device, bitmap);
    const RECT all{0, 0, width, height};
    FillRect(device, &all, GetSysColorBrush(COLOR_BTNFACE));
    DrawIconEx(device, 0, 0, LoadIconW(nullptr, name), width, height, 0, nullptr, DI_NORMAL);
    GdiFlush();
    const auto* first = static_cast<const DWORD*>(bits);
    std::vector<DWORD> pixels(first, first + width * height);
    SelectObject(device, before);
    DeleteObject(bitmap);
    DeleteDC(device);
    ReleaseDC(nullptr, screen);
    return pixels;
}

long long Difference(const std::vector<DWORD>& left, const std::vector<DWORD>& right)
{
    long long sum = 0;
    for (std::size_t i = 0; i < left.size() && i < right.size(); ++i)
        for (int shift : {0, 8, 16})
            sum += std::abs(static_cast<int>(left[i] >> shift & 255) - static_cast<int>(right[i] >> shift & 255));
    return sum;
}

Sign SignSeenOn(HWND icon)
{
    const Picture seen = PictureOf(PlaceOf(icon));
    const std::pair<Sign, const wchar_t*> signs[] = {{Sign::Stop, reinterpret_cast<const wchar_t*>(IDI_HAND)},
                                                     {Sign::Question, reinterpret_cast<const wchar_t*>(IDI_QUESTION)},
                                                     {Sign::Warning, reinterpret_cast<const wchar_t*>(IDI_EXCLAMATION)},
                                                     {Sign::Information, reinterpret_cast<const wchar_t*>(IDI_ASTERISK)}};
    Sign nearest = Sign::None;
    long long least = 32LL * 32 * 3 * 8;  // Hardly any difference at all.
    for (const auto& [sign, name] : signs) {
        const long long difference = Difference(seen.pixels, PixelsOfIcon(name, seen.width, seen.height));
        if (difference < least) {
            least = difference;
            nearest = sign;
        }
    }
    return nearest;
}

}

Box FindBox(DWORD process)
{
    for (HWND window : WindowsOf(process)) {
        if (!WaitsForAnswer(window) || !GetDlgItem(window, TextId) || GetDlgItem(window, FileNameId))
            continue;
        const Box box{window, TextOf(window), TextOf(GetDlgItem(window, TextId)), ButtonsOf(window), StandardButton(window)};
        if (!box.text.empty())  // It is still being made.
            return box;
    }
    return {};
}

Box WaitForBox(DWORD process)
{
    Box box;
    Eventually([&] { return static_cast<bool>(box = FindBox(process)); });
    return box;
}

Sign SignOf(const Box& box)
{
    Sign sign = Sign::None;
    if (const HWND icon = IconOf(box.window))  // It may not be drawn yet.
        Eventually([&] { return (sign = SignSeenOn(icon)) != Sign::None; });
    return sign;
}

void Answer(const Box& box, int button)
{
    PostMessageW(box.window, WM_COMMAND, static_cast<WPARAM>(button), 0);
    Eventually([&] { return !IsWindow(box.window); });
}

HWND WaitForFileDialog(DWORD process, const std::string& title)
{
    HWND dialog = nullptr;
    Eventually([&] {
        dialog = SeenWindowOf(process, title);
        return dialog && IsOfClass(dialog, DialogClass) && GetDlgItem(dialog, FileNameId);
    });
    return dialog;
}

void GiveFile(HWND dialog, const std::string& path)
{
    const HWND edit = InsideByClass(GetDlgItem(dialog, FileNameId), L"Edit");
    Ask(edit, WM_SETTEXT, 0, reinterpret_cast<LPARAM>(ToWide(path).c_str()));
    PostMessageW(dialog, WM_COMMAND, IDOK, 0);
}

void CancelDialog(HWND dialog)
{
    PostMessageW(dialog, WM_COMMAND, IDCANCEL, 0);
    Eventually([&] { return !IsWindow(dialog); });
}

}
