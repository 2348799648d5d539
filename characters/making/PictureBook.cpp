#include "PictureBook.h"
#include "../drawing/Palette.h"
#include "Pieces.h"
#include <algorithm>

namespace making {

using drawing::Picture;

namespace {

constexpr std::size_t PaletteSize = 256;
constexpr engine::Color KeyColor{255, 0, 255};
constexpr std::size_t ColorLimit = 160;  // More look no better and pack worse.
constexpr int UsesWorthSharing = 3;
constexpr int LongestGap = 4;

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

// Makes single rows of the patch whole again: short gaps cost more than they save.
void CloseGaps(Picture& patch, const Picture& whole)
{
    for (int y = 0; y < patch.height; ++y)
        for (int x = 1, last = -LongestGap; x < patch.width; ++x) {
            if (patch.At(x, y) == 0)
                continue;
            for (int gap = x - 1; x - last <= LongestGap && gap > last; --gap)
                patch.Put(gap, y, whole.At(gap, y));
            last = x;
        }
}

// What must be laid over `base`, of which no pixel is missing in `whole`, to get `whole`.
Picture PatchOver(const Picture& base, const Picture& whole)
{
    Picture patch = whole;
    for (std::size_t i = 0; i < whole.pixels.size(); ++i)
        if (base.pixels[i] == whole.pixels[i])
            patch.pixels[i] = 0;
    CloseGaps(patch, whole);
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

Picture CPictureBook::Draw(const nibbin::Pose& pose) const { return drawing::HardEdged(nibbin::DrawFigure(pose)); }

std::vector<engine::PlacedPicture> CPictureBook::Place(const nibbin::Pose& pose)
{
    const Picture whole = Draw(pose);
    const engine::Rect box = SolidBox(whole);
    if (box.width == 0)
        return {};
    const auto uses = m_trunkUses.find(nibbin::TrunkKey(pose));
    if (uses == m_trunkUses.end() || uses->second < UsesWorthSharing)
        return {Keep(whole, box)};
    const Picture& trunk = TrunkOf(pose);
    std::vector<engine::PlacedPicture> placed;
    for (const Picture& piece : PiecesOf(PatchOver(trunk, whole)))
        placed.push_back(Keep(piece, SolidBox(piece)));
    placed.push_back(Keep(trunk, SolidBox(trunk)));
    return placed;
}

const Picture& CPictureBook::TrunkOf(const nibbin::Pose& pose)
{
    Picture& trunk = m_trunks[nibbin::TrunkKey(pose)];
    if (trunk.pixels.empty())
        trunk = drawing::HardEdged(nibbin::DrawTrunk(pose));
    return trunk;
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
    const std::vector<std::uint32_t> colors = drawing::ChooseColors(histogram, ColorLimit);
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
