#include "PictureBook.h"
#include "../drawing/Palette.h"
#include "../nibbin/Figure.h"
#include <algorithm>

namespace making {

using drawing::Picture;

namespace {

constexpr std::size_t PaletteSize = 256;
constexpr engine::Color KeyColor{255, 0, 255};

template <class Wanted> engine::Rect BoxOf(int width, int height, const Wanted& wanted)
{
    int left = width, top = height, right = 0, bottom = 0;
    for (int y = 0; y < height; ++y)
        for (int x = 0; x < width; ++x)
            if (wanted(x, y)) {
                left = std::min(left, x);
                top = std::min(top, y);
                right = std::max(right, x + 1);
                bottom = std::max(bottom, y + 1);
            }
    return right == 0 ? engine::Rect{} : engine::Rect{left, top, right - left, bottom - top};
}

engine::Rect SolidBox(const Picture& picture)
{
    return BoxOf(picture.width, picture.height, [&](int x, int y) { return picture.At(x, y) != 0; });
}

Picture Cut(const Picture& whole, const engine::Rect& box)
{
    Picture part{box.width, box.height, {}};
    for (int y = box.top; y < box.Bottom(); ++y)
        for (int x = box.left; x < box.Right(); ++x)
            part.pixels.push_back(whole.At(x, y));
    return part;
}

// What must be laid over `base` to get `whole`; nothing when pixels would have to vanish.
std::optional<Picture> PatchOver(const Picture& base, const Picture& whole)
{
    Picture patch = whole;
    for (std::size_t i = 0; i < whole.pixels.size(); ++i) {
        if (base.pixels[i] != 0 && whole.pixels[i] == 0)
            return std::nullopt;
        if (base.pixels[i] == whole.pixels[i])
            patch.pixels[i] = 0;
    }
    return patch;
}

engine::IndexedPicture Indexed(const Picture& picture, drawing::CNearest& nearest)
{
    engine::IndexedPicture indexed{{picture.width, picture.height}, {}};
    for (const std::uint32_t pixel : picture.pixels)
        indexed.pixels.push_back(pixel == 0 ? std::uint8_t{0}
                                            : static_cast<std::uint8_t>(1 + nearest.IndexOf(pixel & 0xFFFFFFU)));
    return indexed;
}

}

engine::Rect DifferenceOf(const std::vector<Picture>& pictures)
{
    const Picture& first = pictures.front();
    return BoxOf(first.width, first.height, [&](int x, int y) {
        return std::any_of(pictures.begin(), pictures.end(), [&](const Picture& p) { return p.At(x, y) != first.At(x, y); });
    });
}

CPictureBook::CPictureBook() : m_rest(Draw({})) {}

Picture CPictureBook::Draw(const nibbin::Pose& pose) const { return drawing::HardEdged(nibbin::DrawFigure(pose)); }

std::vector<engine::PlacedPicture> CPictureBook::Place(const Picture& whole)
{
    const engine::Rect box = SolidBox(whole);
    if (box.width == 0)
        return {};
    if (whole == m_rest)
        return {Keep(whole, box)};
    if (const std::optional<Picture> patch = PatchOver(m_rest, whole)) {
        const engine::Rect patchBox = SolidBox(*patch);
        if (patchBox.width * patchBox.height * 2 < box.width * box.height)
            return {Keep(*patch, patchBox), Keep(m_rest, SolidBox(m_rest))};
    }
    return {Keep(whole, box)};
}

engine::PlacedPicture CPictureBook::Keep(const Picture& whole, const engine::Rect& box)
{
    Picture part = Cut(whole, box);
    std::vector<std::uint32_t> key = part.pixels;
    key.push_back(static_cast<std::uint32_t>(part.width));
    const auto [place, isNew] = m_known.try_emplace(std::move(key), static_cast<std::uint32_t>(m_pictures.size()));
    if (isNew)
        m_pictures.push_back(std::move(part));
    return {place->second, {box.left, box.top}};
}

void CPictureBook::Finish(engine::Character& character) const
{
    drawing::Histogram histogram;
    for (const Picture& picture : m_pictures)
        drawing::Count(picture, histogram);
    const std::vector<std::uint32_t> colors = drawing::ChooseColors(histogram, PaletteSize - 1);
    character.transparentIndex = 0;
    character.palette = {KeyColor};
    for (const std::uint32_t color : colors)
        character.palette.push_back({static_cast<std::uint8_t>(color >> 16), static_cast<std::uint8_t>(color >> 8),
                                     static_cast<std::uint8_t>(color)});
    character.palette.resize(PaletteSize);
    drawing::CNearest nearest(colors);
    auto pictures = std::make_shared<engine::CPictureList>();
    for (const Picture& picture : m_pictures)
        pictures->Add(Indexed(picture, nearest));
    character.pictures = pictures;
}

}
