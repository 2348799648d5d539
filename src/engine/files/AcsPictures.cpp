#include "engine/files/AcsPictures.h"
#include "engine/files/ByteReader.h"
#include "engine/files/Lz.h"
#include <algorithm>

namespace engine::files {
namespace {

constexpr std::size_t ListEntrySize = 12;

void SkipRegion(CByteReader& reader)
{
    const std::uint32_t packedSize = reader.U32();
    const std::uint32_t plainSize = reader.U32();
    reader.Skip(packedSize != 0 ? packedSize : plainSize);  // The pixels tell the same.
}

StoredPicture ReadPictureRecord(std::span<const std::uint8_t> record)
{
    CByteReader reader(record);
    StoredPicture stored;
    if (reader.U8() == 0)
        return stored;
    stored.size.width = reader.U16();
    stored.size.height = reader.U16();
    RequireIntact(std::max(stored.size.width, stored.size.height) <= MaximumSide, "a picture is too large");
    stored.isPacked = reader.U8() != 0;
    stored.pixels = reader.Blob();
    RequireIntact(stored.isPacked || stored.pixels.size() == PlainSize(stored.size), "a picture has the wrong length");
    SkipRegion(reader);
    return stored;
}

// From rows bottom up and padded to rows top down without padding.
std::vector<std::uint8_t> Unpadded(std::span<const std::uint8_t> plain, Size size)
{
    const std::size_t paddedWidth = PaddedWidth(size.width);
    std::vector<std::uint8_t> pixels;
    pixels.reserve(static_cast<std::size_t>(size.width) * static_cast<std::size_t>(size.height));
    for (auto y = static_cast<std::size_t>(size.height); y-- > 0;) {
        const auto row = plain.subspan(y * paddedWidth, static_cast<std::size_t>(size.width));
        pixels.insert(pixels.end(), row.begin(), row.end());
    }
    return pixels;
}

PictureRef Decode(const StoredPicture& stored)
{
    if (stored.size.width == 0 || stored.size.height == 0)
        return nullptr;
    if (!stored.isPacked)
        return std::make_shared<const IndexedPicture>(IndexedPicture{stored.size, Unpadded(stored.pixels, stored.size)});
    const auto plain = lz::Decompress(stored.pixels, PlainSize(stored.size));
    if (!plain)
        return nullptr;
    return std::make_shared<const IndexedPicture>(IndexedPicture{stored.size, Unpadded(*plain, stored.size)});
}

}

std::vector<StoredPicture> ReadPictureList(std::span<const std::uint8_t> file, Locator list)
{
    CByteReader reader(RecordAt(file, list));
    const std::size_t count = reader.Count32(ListEntrySize, MaximumPictures);
    std::vector<StoredPicture> pictures;
    pictures.reserve(count);
    std::uint64_t pixels = 0;
    for (std::size_t i = 0; i < count; ++i) {
        pictures.push_back(ReadPictureRecord(RecordAt(file, reader.Place())));
        reader.U32();  // A check sum over nothing that the file holds.
        pixels += PlainSize(pictures.back().size);
    }
    RequireIntact(pixels <= MaximumPixels, "its pictures are too large");
    return pictures;
}

CAcsPictures::CAcsPictures(FileBytes file, std::vector<StoredPicture> pictures, std::size_t cacheBytes)
    : m_file(std::move(file)), m_pictures(std::move(pictures)), m_cacheBytes(cacheBytes)
{
}

PictureRef CAcsPictures::Picture(std::uint32_t index) const
{
    if (index >= m_pictures.size())
        return nullptr;
    if (const auto place = m_places.find(index); place != m_places.end()) {
        m_kept.splice(m_kept.begin(), m_kept, place->second);
        return m_kept.front().picture;
    }
    const PictureRef picture = Decode(m_pictures[index]);
    Keep(index, picture);
    return picture;
}

// Damaged pictures are kept too (as nothing), so that they are not tried again and again.
void CAcsPictures::Keep(std::uint32_t index, const PictureRef& picture) const
{
    m_kept.push_front({index, picture});
    m_places[index] = m_kept.begin();
    m_keptBytes += picture ? picture->pixels.size() : 0;
    while (m_keptBytes > m_cacheBytes && m_kept.size() > 1)
        DropOldest();
}

void CAcsPictures::DropOldest() const
{
    const Kept& oldest = m_kept.back();
    m_keptBytes -= oldest.picture ? oldest.picture->pixels.size() : 0;
    m_places.erase(oldest.index);
    m_kept.pop_back();
}

}
