#include "driver/Windows.h"
#include "driver/Waiting.h"
#include "platform/windows/Text.h"
#include <cstdlib>
#include <fstream>

using platform::windowsdesktop::FromWide;
using platform::windowsdesktop::ToWide;

namespace driver {
namespace {

struct Search {
    DWORD process = 0;
    std::vector<HWND> found;
};

BOOL CALLBACK AddWindow(HWND window, LPARAM context)
{
    auto& search = *reinterpret_cast<Search*>(context);
    if (search.process == 0 || ProcessOf(window) == search.process)
        search.found.push_back(window);
    return TRUE;
}

std::vector<HWND> AllInside(HWND window)
{
    Search search;
    EnumChildWindows(window, AddWindow, reinterpret_cast<LPARAM>(&search));
    return search.found;
}

// A bitmap of 32 bits for each pixel and a device to draw into it.
class CCanvas {
public:
    CCanvas(int width, int height) : m_screen(GetDC(nullptr)), m_device(CreateCompatibleDC(m_screen))
    {
        BITMAPINFO info{};
        info.bmiHeader = {sizeof info.bmiHeader, width, -height, 1, 32, BI_RGB, 0, 0, 0, 0, 0};
        void* bits = nullptr;
        m_bitmap = CreateDIBSection(m_screen, &info, DIB_RGB_COLORS, &bits, nullptr, 0);
        m_bits = static_cast<DWORD*>(bits);
        m_before = SelectObject(m_device, m_bitmap);
    }
    ~CCanvas()
    {
        SelectObject(m_device, m_before);
        DeleteObject(m_bitmap);
        DeleteDC(m_device);
        ReleaseDC(nullptr, m_screen);
    }
    CCanvas(const CCanvas&) = delete;
    CCanvas& operator=(const CCanvas&) = delete;
    HDC Device() const { return m_device; }
    HDC Screen() const { return m_screen; }
    const DWORD* Bits() const { return m_bits; }

private:
    HDC m_screen, m_device;
    HBITMAP m_bitmap = nullptr;
    HGDIOBJ m_before = nullptr;
    DWORD* m_bits = nullptr;
};

void WriteBitmap(const Picture& picture, const std::string& path)
{
    const auto size = static_cast<DWORD>(picture.pixels.size() * sizeof(DWORD));
    BITMAPFILEHEADER file{};
    file.bfType = 0x4D42;
    file.bfOffBits = sizeof(BITMAPFILEHEADER) + sizeof(BITMAPINFOHEADER);
    file.bfSize = file.bfOffBits + size;
    const BITMAPINFOHEADER info{sizeof info, picture.width, -picture.height, 1, 32, BI_RGB, size, 0, 0, 0, 0};
    std::ofstream stream(path, std::ios::binary);
    stream.write(reinterpret_cast<const char*>(&file), sizeof file);
    stream.write(reinterpret_cast<const char*>(&info), sizeof info);
    stream.write(reinterpret_cast<const char*>(picture.pixels.data()), static_cast<std::streamsize>(size));
}

}

DWORD ProcessOf(HWND window)
{
    DWORD process = 0;
    GetWindowThreadProcessId(window, &process);
    return process;
}

std::vector<HWND> WindowsOf(DWORD process)
{
    Search search{process, {}};
    EnumWindows(AddWindow, reinterpret_cast<LPARAM>(&search));
    return search.found;
}

bool IsOfClass(HWND window, const wchar_t* className)
{
    wchar_t name[256] = {};
    GetClassNameW(window, name, 255);
    return lstrcmpiW(name, className) == 0;
}

HWND WindowOf(DWORD process, const wchar_t* className)
{
    for (HWND window : WindowsOf(process))
        if (IsOfClass(window, className))
            return window;
    return nullptr;
}

HWND SeenWindowOf(DWORD process, const std::string& title)
{
    for (HWND window : WindowsOf(process))
        if (IsWindowVisible(window) && IsWindowEnabled(window) && TextOf(window) == title)
            return window;
    return nullptr;
}

HWND Inside(HWND window, int id)
{
    for (HWND inner : AllInside(window))
        if (GetDlgCtrlID(inner) == id)
            return inner;
    return nullptr;
}

HWND InsideByClass(HWND window, const wchar_t* className)
{
    for (HWND inner : AllInside(window))
        if (IsOfClass(inner, className))
            return inner;
    return nullptr;
}

std::string TextOf(HWND window)
{
    const auto length = static_cast<std::size_t>(Ask(window, WM_GETTEXTLENGTH));
    std::wstring text(length + 1, L'\0');
    const auto count = Ask(window, WM_GETTEXT, text.size(), reinterpret_cast<LPARAM>(text.data()));
    text.resize(static_cast<std::size_t>(count));
    return FromWide(text);
}

RECT PlaceOf(HWND window)
{
    RECT place{};
    GetWindowRect(window, &place);
    return place;
}

LRESULT Ask(HWND window, UINT message, WPARAM wParam, LPARAM lParam)
{
    DWORD_PTR answer = 0;
    if (!SendMessageTimeoutW(window, message, wParam, lParam, SMTO_NORMAL, PatienceMilliseconds, &answer))
        return 0;
    return static_cast<LRESULT>(answer);
}

// The control writes into its own process, so the answer is fetched from there.
RECT PlaceOfButton(HWND toolBar, int button)
{
    RECT place{};
    const HANDLE process = OpenProcess(PROCESS_VM_OPERATION | PROCESS_VM_READ, FALSE, ProcessOf(toolBar));
    void* const there = VirtualAllocEx(process, nullptr, sizeof place, MEM_COMMIT, PAGE_READWRITE);
    Ask(toolBar, TB_GETITEMRECT, static_cast<WPARAM>(button), reinterpret_cast<LPARAM>(there));
    ReadProcessMemory(process, there, &place, sizeof place, nullptr);
    VirtualFreeEx(process, there, 0, MEM_RELEASE);
    CloseHandle(process);
    MapWindowPoints(toolBar, nullptr, reinterpret_cast<POINT*>(&place), 2);
    return place;
}

bool Answers(HWND window)
{
    DWORD_PTR answer = 0;
    return SendMessageTimeoutW(window, WM_NULL, 0, 0, SMTO_NORMAL, PatienceMilliseconds, &answer) != 0;
}

bool MenuIsOpen(HWND window)
{
    GUITHREADINFO info{};
    info.cbSize = sizeof info;
    return GetGUIThreadInfo(GetWindowThreadProcessId(window, nullptr), &info) && (info.flags & GUI_INMENUMODE);
}

Picture PictureOf(const RECT& place)
{
    Picture picture{place.right - place.left, place.bottom - place.top, {}};
    const CCanvas canvas(picture.width, picture.height);
    BitBlt(canvas.Device(), 0, 0, picture.width, picture.height, canvas.Screen(), place.left, place.top, SRCCOPY);
    GdiFlush();
    picture.pixels.assign(canvas.Bits(), canvas.Bits() + picture.width * picture.height);
    for (DWORD& pixel : picture.pixels)
        pixel &= 0xFFFFFF;
    return picture;
}

void Keep(const std::string& file, const std::string& name)
{
    if (const char* const folder = std::getenv("PARLUNE_KEPT"))
        CopyFileW(ToWide(file).c_str(), ToWide(std::string(folder) + "/" + name).c_str(), FALSE);
}

void TakePicture(HWND window, const std::string& name)
{
    const char* const folder = std::getenv("PARLUNE_KEPT");
    if (!folder)
        return;
    const RECT screen{0, 0, GetSystemMetrics(SM_CXSCREEN), GetSystemMetrics(SM_CYSCREEN)};
    WriteBitmap(PictureOf(window ? PlaceOf(window) : screen), std::string(folder) + "/" + name + ".bmp");
}

}
