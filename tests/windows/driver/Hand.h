#pragma once
#include "platform/windows/Win32.h"
#include <initializer_list>
#include <string>

// A hand on keyboard and mouse: what it does reaches whatever window is there.
namespace driver::hand {

void Front(HWND window);                       // Brings a window to the front and waits until it stays there.
void Press(std::initializer_list<WORD> keys);  // All down in their order, then up: {VK_CONTROL, 'A'}.
void Type(const std::string& text);

void PointAt(POINT place);
void PointAt(HWND window);  // Its middle.
void Click(POINT place);
void Click(HWND window);
void DoubleClick(POINT place);
void RightClick(POINT place);

}
