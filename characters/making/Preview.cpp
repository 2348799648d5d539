#include "Preview.h"
#include "../drawing/Picture.h"
#include <array>

namespace making {

using drawing::Picture;

namespace {

constexpr int Columns = 10;
constexpr std::array<std::uint32_t, 3> Grounds{0xFFF4F4F4U, 0xFF3A6EA5U, 0xFF1A1A1FU};

void Lay(Picture& frame, const engine::Character& character, const engine::PlacedPicture& placed)
{
    const engine::PictureRef picture = character.pictures->Picture(placed.picture);
    for (int y = 0; y < picture->size.height; ++y)
        for (int x = 0; x < picture->size.width; ++x) {
            const std::uint8_t index = picture->pixels[static_cast<std::size_t>(y * picture->size.width + x)];
            const engine::Color color = character.palette[index];
            if (index != character.transparentIndex)
                frame.Put(placed.offset.x + x, placed.offset.y + y,
                          0xFF000000U | static_cast<std::uint32_t>(color.red << 16 | color.green << 8 | color.blue));
        }
}

Picture FramePicture(const engine::Character& character, const engine::Frame& frame)
{
    const int width = character.frameSize.width, height = character.frameSize.height;
    Picture picture{width, height, std::vector<std::uint32_t>(static_cast<std::size_t>(width * height))};
    for (auto placed = frame.pictures.rbegin(); placed != frame.pictures.rend(); ++placed)
        Lay(picture, character, *placed);
    return picture;
}

std::vector<Picture> PicturesOf(const engine::Character& character, const engine::Animation& animation)
{
    std::vector<Picture> pictures;
    for (const engine::Frame& frame : animation.frames) {
        pictures.push_back(FramePicture(character, frame));
        for (const engine::MouthOverlay& mouth : frame.mouths) {
            pictures.push_back(FramePicture(character, frame));
            Lay(pictures.back(), character, mouth.placed);
        }
    }
    return pictures;
}

void Paint(Picture& sheet, const Picture& picture, int left, int top, std::uint32_t ground, int zoom)
{
    for (int y = 0; y < picture.height * zoom; ++y)
        for (int x = 0; x < picture.width * zoom; ++x) {
            const std::uint32_t pixel = picture.At(x / zoom, y / zoom);
            sheet.Put(left + x, top + y, pixel != 0 ? pixel : ground);
        }
}

// Rows of pictures; the ground changes from row to row.
Picture Sheet(const std::vector<Picture>& pictures, int side, int zoom)
{
    const int rows = (static_cast<int>(pictures.size()) + Columns - 1) / Columns;
    Picture sheet{Columns * side * zoom, rows * side * zoom, {}};
    sheet.pixels.assign(static_cast<std::size_t>(sheet.width * sheet.height), 0xFFFFFFFFU);
    for (int i = 0; i < static_cast<int>(pictures.size()); ++i)
        Paint(sheet, pictures[static_cast<std::size_t>(i)], i % Columns * side * zoom, i / Columns * side * zoom,
              Grounds[static_cast<std::size_t>(i / Columns) % Grounds.size()], zoom);
    return sheet;
}

}

void WritePreviews(const engine::Character& character, const std::string& folder, int zoom)
{
    for (const engine::Animation& animation : character.animations)
        drawing::WritePng(Sheet(PicturesOf(character, animation), character.frameSize.width, zoom),
                          folder + "/" + animation.name + ".png");
}

}
