#include "engine/files/AcsWriter.h"
#include "base/text/Case.h"
#include "engine/files/AcsBlockWriter.h"
#include "engine/files/AcsChecks.h"
#include "engine/files/ByteWriter.h"
#include "engine/files/Crc32.h"
#include "engine/files/Region.h"
#include <algorithm>

namespace engine {
namespace {

using namespace files;

struct Listed {
    Locator place;
    std::uint32_t checksum = 0;
};

std::uint32_t ChecksumOf(std::span<const std::uint8_t> bytes)
{
    return std::max(1U, Crc32(bytes));  // Zero is never used.
}

// Rows from the bottom up, each padded.
std::vector<std::uint8_t> PlainPixels(const IndexedPicture& picture, std::uint8_t padding)
{
    const auto width = static_cast<std::ptrdiff_t>(picture.size.width);
    std::vector<std::uint8_t> plain(PlainSize(picture.size), padding);
    auto target = plain.begin();
    for (auto row = picture.pixels.end(); row != picture.pixels.begin();
         target += static_cast<std::ptrdiff_t>(PaddedWidth(picture.size.width))) {
        row -= width;
        std::copy(row, row + width, target);
    }
    return plain;
}

class CAcsWriter {
public:
    CAcsWriter(const Character& character, lz::Effort effort) : m_character(character), m_effort(effort) {}

    std::vector<std::uint8_t> Run()
    {
        WriteHeader();
        for (const Animation& animation : m_character.animations)
            m_animations.push_back(WriteAnimation(animation));
        for (std::uint32_t i = 0; i < m_character.pictures->Count(); ++i)
            m_pictures.push_back(WritePicture(m_character.pictures->Picture(i)));
        for (const auto& sound : m_character.sounds)
            m_sounds.push_back(WriteSound(*sound));
        m_writer.PatchPlace(12, WriteAnimationList());
        m_writer.PatchPlace(20, WriteList(m_pictures));
        m_writer.PatchPlace(28, WriteList(m_sounds));
        m_writer.PatchPlace(4, WriteBlock(m_character, m_writer));
        return m_writer.Take();
    }

private:
    void WriteHeader()
    {
        m_writer.U32(Signature);
        for (int i = 0; i < 4; ++i)
            m_writer.Place({});  // Patched when the places are known.
    }

    template <class List> void Count16(const List& list) { m_writer.U16(static_cast<std::uint16_t>(list.size())); }
    template <class List> void Count8(const List& list) { m_writer.U8(static_cast<std::uint8_t>(list.size())); }

    void Offset(Point offset)
    {
        m_writer.I16(static_cast<std::int16_t>(offset.x));
        m_writer.I16(static_cast<std::int16_t>(offset.y));
    }

    Locator WriteAnimation(const Animation& animation)
    {
        const std::uint32_t start = m_writer.Offset();
        const bool hasExits = std::any_of(animation.frames.begin(), animation.frames.end(),
                                          [](const Frame& frame) { return frame.exitFrame.has_value(); });
        m_writer.String(text::Upper(animation.name));
        m_writer.U8(static_cast<std::uint8_t>(animation.transition));
        m_writer.String(text::Upper(animation.returnAnimation));
        Count16(animation.frames);
        for (const Frame& frame : animation.frames)
            WriteFrame(frame, hasExits);
        return m_writer.Since(start);
    }

    // "No exit" is -1 in an animation without any exits, else -2.
    void WriteFrame(const Frame& frame, bool hasExits)
    {
        Count16(frame.pictures);
        for (const PlacedPicture& placed : frame.pictures) {
            m_writer.U32(placed.picture);
            Offset(placed.offset);
        }
        m_writer.U16(frame.sound.value_or(NoSound));
        m_writer.U16(frame.duration);
        m_writer.I16(static_cast<std::int16_t>(frame.exitFrame ? *frame.exitFrame : hasExits ? -2 : -1));
        Count8(frame.branches);
        for (const Branch& branch : frame.branches) {
            m_writer.U16(branch.target);
            m_writer.U16(branch.percent);
        }
        WriteMouths(frame.mouths);
    }

    void WriteMouths(const std::vector<MouthOverlay>& mouths)
    {
        Count8(mouths);
        if (mouths.empty())
            return;
        const Point middle = MiddleOf(mouths.front().placed.picture);
        for (const MouthOverlay& mouth : mouths) {
            m_writer.U8(static_cast<std::uint8_t>(mouth.mouth));
            m_writer.U8(mouth.replacesTopPicture ? 1 : 0);
            m_writer.U16(static_cast<std::uint16_t>(mouth.placed.picture));
            m_writer.U8(0);
            m_writer.U8(0);  // No region data.
            Offset(mouth.placed.offset);
            Offset(middle);
        }
    }

    // The middle of the opaque part of a picture.
    Point MiddleOf(std::uint32_t index) const
    {
        const PictureRef picture = m_character.pictures->Picture(index);
        if (!picture)
            return {};
        const Rect box = BoundsOf(RegionOf(*picture, m_character.transparentIndex));
        return {(box.left + box.Right()) / 2, (box.top + box.Bottom()) / 2};
    }

    Listed WritePicture(const PictureRef& picture)
    {
        const std::uint32_t start = m_writer.Offset();
        m_writer.U8(picture ? 1 : 0);
        if (!picture)
            return {m_writer.Since(start), 1};
        const std::vector<std::uint8_t> plain = PlainPixels(*picture, m_character.transparentIndex);
        m_writer.U16(static_cast<std::uint16_t>(picture->size.width));
        m_writer.U16(static_cast<std::uint16_t>(picture->size.height));
        m_writer.U8(1);  // Compressed.
        m_writer.Blob(lz::Compress(plain, m_effort));
        WriteRegion(RegionBytes(RegionOf(*picture, m_character.transparentIndex)));
        return {m_writer.Since(start), ChecksumOf(plain)};
    }

    void WriteRegion(const std::vector<std::uint8_t>& plain)
    {
        const std::vector<std::uint8_t> packed = lz::Compress(plain, m_effort);
        m_writer.U32(static_cast<std::uint32_t>(packed.size()));
        m_writer.U32(static_cast<std::uint32_t>(plain.size()));
        m_writer.Bytes(packed);
    }

    Listed WriteSound(const std::vector<std::uint8_t>& sound)
    {
        const std::uint32_t start = m_writer.Offset();
        m_writer.Bytes(sound);
        return {m_writer.Since(start), ChecksumOf(sound)};
    }

    Locator WriteAnimationList()
    {
        const std::uint32_t start = m_writer.Offset();
        m_writer.U32(static_cast<std::uint32_t>(m_animations.size()));
        for (std::size_t i = 0; i < m_animations.size(); ++i) {
            m_writer.String(m_character.animations[i].name);
            m_writer.Place(m_animations[i]);
        }
        return m_writer.Since(start);
    }

    Locator WriteList(const std::vector<Listed>& list)
    {
        const std::uint32_t start = m_writer.Offset();
        m_writer.U32(static_cast<std::uint32_t>(list.size()));
        for (const Listed& listed : list) {
            m_writer.Place(listed.place);
            m_writer.U32(listed.checksum);
        }
        return m_writer.Since(start);
    }

    const Character& m_character;
    lz::Effort m_effort;
    CByteWriter m_writer;
    std::vector<Locator> m_animations;
    std::vector<Listed> m_pictures, m_sounds;
};

}

std::vector<std::uint8_t> WriteCharacterFile(const Character& character, lz::Effort effort)
{
    RequireWritable(character);
    std::vector<std::uint8_t> bytes = CAcsWriter(character, effort).Run();
    Require(bytes.size() <= MaximumFileSize, "the file is too large");
    return bytes;
}

}
