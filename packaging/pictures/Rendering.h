#pragma once
#include "drawing/Canvas.h"
#include "ui/pictures/Picture.h"

// Draws the program's pictures into memory, for whoever has no toolkit that does it.
namespace ui::pictures {

// The picture as large as it fits, in the middle of a canvas of so many pixels. `ink` is the colour of the text around it.
drawing::CCanvas Render(const Picture& picture, int width, int height, const drawing::Rgba& ink);

}
