#include "Rendering.h"
#include <algorithm>
#include <array>
#include <cmath>
#include <cstdint>
#include <cstdio>
#include <exception>
#include <filesystem>
#include <fstream>
#include <stdexcept>
#include <string>
#include <vector>

// make_resources FOLDER: draws the program's icon (parlune.ico) and, for each height of a button's picture, the strip of the
// tool bar's pictures (toolbar-20.bmp ...).
namespace {

using Bytes = std::vector<std::uint8_t>;

constexpr int LargestSmallIcon = 24;  // Below that a simpler drawing is easier to recognise.
constexpr std::array IconSizes = {16, 20, 24, 32, 40, 48, 64, 256};
constexpr std::array StripHeights = {20, 25, 30, 40};
constexpr std::array StripPictures = {"new", "open", "save", "read", "stop"};
constexpr std::uint32_t FileHeader = 14, PictureHeader = 40;
constexpr drawing::Rgba Ink{0, 0, 0, 1};

void Add(Bytes& bytes, std::uint32_t value, int count)
{
    for (int at = 0; at < count; ++at)
        bytes.push_back(static_cast<std::uint8_t>(value >> (8 * at)));
}

std::uint32_t ByteOf(double part) { return static_cast<std::uint32_t>(std::lround(std::clamp(part, 0.0, 1.0) * 255)); }

void AddRow(Bytes& bytes, const drawing::CCanvas& canvas, int y)
{
    for (int x = 0; x < canvas.Width(); ++x) {
        const drawing::Rgba color = canvas.At(x, y);
        Add(bytes, ByteOf(color.alpha) << 24 | ByteOf(color.red) << 16 | ByteOf(color.green) << 8 | ByteOf(color.blue), 4);
    }
}

// `rows`: in an icon the picture and its mask count, twice the height.
void AddHeader(Bytes& bytes, int width, int rows)
{
    Add(bytes, PictureHeader, 4);
    Add(bytes, static_cast<std::uint32_t>(width), 4);
    Add(bytes, static_cast<std::uint32_t>(rows), 4);
    Add(bytes, 1, 2);
    Add(bytes, 32, 2);
    for (int field = 0; field < 6; ++field)
        Add(bytes, 0, 4);
}

const ui::pictures::Picture& PictureOf(const std::string& name)
{
    const ui::pictures::Picture* picture = ui::pictures::Find(name);
    if (!picture)
        throw std::runtime_error("There is no picture " + name);
    return *picture;
}

// The mask is empty: the pixels say themselves how much of them is there.
Bytes IconImage(int size)
{
    Bytes image;
    AddHeader(image, size, 2 * size);
    const auto canvas = ui::pictures::Render(PictureOf(size <= LargestSmallIcon ? "icon-small" : "icon"), size, size, Ink);
    for (int y = size - 1; y >= 0; --y)
        AddRow(image, canvas, y);
    image.insert(image.end(), static_cast<std::size_t>((size + 31) / 32 * 4 * size), 0);
    return image;
}

Bytes Icon()
{
    Bytes file, images;
    Add(file, 0x00010000, 4);
    Add(file, IconSizes.size(), 2);
    for (const int size : IconSizes) {
        const Bytes image = IconImage(size);
        Add(file, static_cast<std::uint32_t>(size % 256), 1);
        Add(file, static_cast<std::uint32_t>(size % 256), 1);
        Add(file, 0, 2);
        Add(file, 1, 2);
        Add(file, 32, 2);
        Add(file, static_cast<std::uint32_t>(image.size()), 4);
        Add(file, static_cast<std::uint32_t>(6 + 16 * IconSizes.size() + images.size()), 4);
        images.insert(images.end(), image.begin(), image.end());
    }
    file.insert(file.end(), images.begin(), images.end());
    return file;
}

// All pictures side by side.
Bytes StripFile(int height)
{
    std::vector<drawing::CCanvas> pictures;
    for (const char* name : StripPictures)
        pictures.push_back(ui::pictures::Render(PictureOf(name), height, height, Ink));
    Bytes image;
    AddHeader(image, height * static_cast<int>(pictures.size()), height);
    for (int y = height - 1; y >= 0; --y)
        for (const drawing::CCanvas& picture : pictures)
            AddRow(image, picture, y);
    Bytes file{'B', 'M'};
    Add(file, static_cast<std::uint32_t>(FileHeader + image.size()), 4);
    Add(file, 0, 4);
    Add(file, FileHeader + PictureHeader, 4);
    file.insert(file.end(), image.begin(), image.end());
    return file;
}

void Write(const std::filesystem::path& name, const Bytes& bytes)
{
    std::ofstream file(name, std::ios::binary);
    file.write(reinterpret_cast<const char*>(bytes.data()), static_cast<std::streamsize>(bytes.size()));
    if (!file.flush())
        throw std::runtime_error("Cannot write " + name.string());
}

}

int main(int argc, char** argv)
{
    if (argc != 2) {
        std::fputs("Usage: make_resources FOLDER\n", stderr);
        return 1;
    }
    try {
        const std::filesystem::path folder = argv[1];
        Write(folder / "parlune.ico", Icon());
        for (const int height : StripHeights)
            Write(folder / ("toolbar-" + std::to_string(height) + ".bmp"), StripFile(height));
        return 0;
    } catch (const std::exception& failure) {
        std::fprintf(stderr, "%s\n", failure.what());
        return 1;
    }
}
