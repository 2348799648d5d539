#pragma once
#include "platform/windows/Win32.h"
#include <cstdint>
#include <string>
#include <string_view>

// The text of a native rich-text box, as plain text with lines ended by "\r\n". Inside, the box ends a line by one unit of
// its own; its places count UTF-16 units, the program's count characters.
namespace appwindows::richText {

// Empties the undo list, too; the caret goes to the start.
void Put(HWND box, const std::string& text);
LONG UnitCount(HWND box);
std::string Part(HWND box, LONG from, LONG to);  // Between two places of the box.
// From the program's places to the box's and back.
LONG UnitOfCharacter(HWND box, std::int32_t character);
std::int32_t CharacterOfUnit(HWND box, LONG unit);

}
