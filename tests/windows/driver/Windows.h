#pragma once
#include "platform/windows/Win32.h"
#include <string>
#include <vector>

// Windows of other processes, as they are found and read.
namespace driver {

// The windows of a process that stand on the screen by themselves, seen or not.
std::vector<HWND> WindowsOf(DWORD process);
HWND WindowOf(DWORD process, const wchar_t* className);      // Null when there is none.
HWND SeenWindowOf(DWORD process, const std::string& title);  // Visible and not disabled.
HWND Inside(HWND window, int id);                            // At any depth; null when there is none.
HWND InsideByClass(HWND window, const wchar_t* className);   // The first at any depth.
bool IsOfClass(HWND window, const wchar_t* className);
DWORD ProcessOf(HWND window);

// The text of a window or control of another process; line ends as the control gives them.
std::string TextOf(HWND window);
RECT PlaceOf(HWND window);  // On the screen.

// Asks a window of another process and waits for the answer; 0 when it does not answer.
LRESULT Ask(HWND window, UINT message, WPARAM wParam = 0, LPARAM lParam = 0);
RECT PlaceOfButton(HWND toolBar, int button);  // On the screen; counted from 0.
bool Answers(HWND window);                     // Whether its process takes messages.

// Whether the thread of the window has a menu open.
bool MenuIsOpen(HWND window);

// Writes what is seen of the window, or of the whole screen, to build/logs/windows/NAME.bmp.
void TakePicture(HWND window, const std::string& name);

void Keep(const std::string& file, const std::string& name);  // Copies a file to the same folder.

// The colours of a part of the screen, row by row from the top.
struct Picture {
    int width = 0, height = 0;
    std::vector<DWORD> pixels;
};
Picture PictureOf(const RECT& place);

}
