#pragma once
#include "app/windows/window/Look.h"
#include <string_view>

// The program's own pictures, drawn at any size.
namespace appwindows::pictures {

// A bitmap of 32 bits a pixel with premultiplied alpha, rows from the top. The picture is as large as fits, in the middle;
// `ink` (0x00BBGGRR) is for the parts that follow the text's colour. Empty where there is no picture of that name.
Gdi<HBITMAP> Draw(std::string_view name, SIZE size, COLORREF ink);

// The pictures of the tool bar's buttons side by side, from the program's resources, for text in that colour. Empty where
// the resources have none of that height or colour.
Gdi<HBITMAP> ToolBarStrip(int pixels, COLORREF ink);

// Lays such a bitmap over what is there.
void Lay(HDC dc, HBITMAP bitmap, const Rectangle& place);

// The program's icon: from the program's resources when it has one, else drawn. The caller destroys it.
HICON ProgramIcon(int pixels);

}
