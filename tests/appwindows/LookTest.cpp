#include "FilledForm.h"
#include "app/windows/window/SplashPeer.h"
#include <cstdlib>

namespace {

// Keeps a picture of what is on the screen there, when PARLUNE_PICTURES names a folder.
void Keep(HWND window, const std::string& name)
{
    const char* folder = std::getenv("PARLUNE_PICTURES");
    if (!folder)
        return;
    for (int turn = 0; turn < 3; ++turn)
        RedrawWindow(window, nullptr, nullptr, RDW_UPDATENOW | RDW_ALLCHILDREN);
    GdiFlush();
    RECT place = {};
    GetWindowRect(window, &place);
    const int width = static_cast<int>(place.right - place.left), height = static_cast<int>(place.bottom - place.top);
    HDC screen = GetDC(nullptr);
    HDC dc = CreateCompatibleDC(screen);
    BITMAPINFO info = {};
    info.bmiHeader.biSize = sizeof info.bmiHeader;
    info.bmiHeader.biWidth = width;
    info.bmiHeader.biHeight = -height;
    info.bmiHeader.biPlanes = 1;
    info.bmiHeader.biBitCount = 32;
    void* pixels = nullptr;
    HBITMAP bitmap = CreateDIBSection(nullptr, &info, DIB_RGB_COLORS, &pixels, nullptr, 0);
    HGDIOBJ former = SelectObject(dc, bitmap);
    BitBlt(dc, 0, 0, width, height, screen, static_cast<int>(place.left), static_cast<int>(place.top), SRCCOPY);
    BITMAPFILEHEADER header = {};
    header.bfType = 0x4D42;
    header.bfOffBits = sizeof header + sizeof info.bmiHeader;
    header.bfSize = header.bfOffBits + static_cast<DWORD>(width * height * 4);
    if (std::FILE* out = std::fopen((std::string(folder) + "\\" + name + ".bmp").c_str(), "wb")) {
        std::fwrite(&header, sizeof header, 1, out);
        std::fwrite(&info.bmiHeader, sizeof info.bmiHeader, 1, out);
        std::fwrite(pixels, 4, static_cast<std::size_t>(width) * static_cast<std::size_t>(height), out);
        std::fclose(out);
    }
    SelectObject(dc, former);
    DeleteObject(bitmap);
    DeleteDC(dc);
    ReleaseDC(nullptr, screen);
}

}

TEST(Look, EveryPage_IsKept)
{
    ShownWindow shown;
    for (int tab = 0; tab < 7; ++tab) {
        shown.Visit(tab);
        Keep(shown.window.Native(), "tab" + std::to_string(tab));
    }
    shown.form.tabTTS.Select(1);
    shown.Visit(2);
    Keep(shown.window.Native(), "modifiers");
}
