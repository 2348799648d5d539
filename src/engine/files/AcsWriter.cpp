#include "engine/files/AcsWriter.h"
#include "engine/files/AcsChecks.h"
#include "engine/files/ByteWriter.h"
#include "engine/files/Crc32.h"
#include "engine/files/Region.h"
#include <algorithm>
#include <limits>

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
        m_writer.PatchPlace(4, WriteBlock());
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
        m_writer.String(UpperCase(animation.name));
        m_writer.U8(static_cast<std::uint8_t>(animation.transition));
        m_writer.String(UpperCase(animation.returnAnimation));
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

    Locator WriteBlock()
    {
        const std::uint32_t start = m_writer.Offset();
        m_writer.U16(MinorVersion);
        m_writer.U16(MajorVersion);
        m_writer.Place({});  // Of the names, patched below.
        m_writer.Bytes(m_character.id);
        WriteLook();
        if (m_character.voice)
            WriteVoice(*m_character.voice);
        if (m_character.balloon)
            WriteBalloon(*m_character.balloon);
        WritePalette();
        m_writer.U8(0);  // No tray icon.
        WriteStates();
        m_writer.PatchPlace(start + 4, WriteNames());
        return m_writer.Since(start);
    }

    void WriteLook()
    {
        m_writer.U16(static_cast<std::uint16_t>(m_character.frameSize.width));
        m_writer.U16(static_cast<std::uint16_t>(m_character.frameSize.height));
        m_writer.U8(m_character.transparentIndex);
        m_writer.U32(Flags());
        m_writer.U16(2);  // Version of the animation set: 2.0.
        m_writer.U16(0);
    }

    std::uint32_t Flags() const
    {
        std::uint32_t flags = m_character.voice ? VoiceFlag : NoVoiceFlag;
        flags |= m_character.balloon ? BalloonFlag : NoBalloonFlag;
        flags |= m_character.hasStandardSet ? StandardSetFlag : 0;
        if (!m_character.balloon)
            return flags;
        flags |= m_character.balloon->sizeToText ? SizeToTextFlag : 0;
        flags |= m_character.balloon->autoHide ? 0 : NoAutoHideFlag;
        flags |= m_character.balloon->autoPace ? 0 : NoAutoPaceFlag;
        return flags;
    }

    void WriteVoice(const VoiceHints& voice)
    {
        m_writer.Bytes(voice.engineId);
        m_writer.Bytes(voice.modeId);
        m_writer.U32(voice.wordsPerMinute.value_or(EngineDefaultSpeed));
        m_writer.U16(voice.pitch.value_or(EngineDefaultPitch));
        m_writer.U8(1);  // The language and the kind of voice follow.
        m_writer.U16(voice.languageId);
        m_writer.String("");  // Dialect.
        m_writer.U16(voice.gender);
        m_writer.U16(voice.age);
        m_writer.String("");  // Style.
    }

    void WriteBalloon(const BalloonLook& balloon)
    {
        m_writer.U8(balloon.lines);
        m_writer.U8(balloon.charsPerLine);
        for (const Color& color : {balloon.text, balloon.background, balloon.border})
            m_writer.Bytes(std::array<std::uint8_t, 4>{color.red, color.green, color.blue, 0});
        m_writer.String(balloon.fontName);
        m_writer.I32(balloon.fontHeight);
        m_writer.U32(balloon.bold ? BoldWeight : NormalWeight);
        m_writer.U8(balloon.italic ? 1 : 0);
        m_writer.U8(0);
    }

    // Unlike the colours of the balloon these start with blue.
    void WritePalette()
    {
        m_writer.U32(static_cast<std::uint32_t>(m_character.palette.size()));
        for (const Color& color : m_character.palette)
            m_writer.Bytes(std::array<std::uint8_t, 4>{color.blue, color.green, color.red, 0});
    }

    void WriteStates()
    {
        Count16(m_character.states);
        for (const State& state : m_character.states) {
            m_writer.String(UpperCase(state.name));
            Count16(state.animations);
            for (const std::string& animation : state.animations)
                m_writer.String(UpperCase(animation));
        }
    }

    Locator WriteNames()
    {
        const std::uint32_t start = m_writer.Offset();
        std::vector<LocalizedName> names = m_character.names;
        if (std::none_of(names.begin(), names.end(), [](const LocalizedName& n) { return n.languageId == EnglishId; })) {
            names.push_back(names.front());
            names.back().languageId = EnglishId;
        }
        Count16(names);
        for (const LocalizedName& name : names) {
            m_writer.U16(name.languageId);
            m_writer.String(name.name);
            m_writer.String(name.description);
            m_writer.String(name.extraData);
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
