#include "engine/files/AcsBlock.h"
#include "base/text/Case.h"
#include "engine/files/ByteReader.h"
#include "platform/CharacterEngine.h"
#include "platform/Failure.h"
#include <algorithm>

namespace engine::files {
namespace {

// The fewest bytes that an entry takes.
constexpr std::size_t ColorSize = 4;
constexpr std::size_t SmallestState = 6;
constexpr std::size_t SmallestString = 4;
constexpr std::size_t SmallestLocalizedName = 14;

constexpr std::size_t UsablePaletteSize = 256;  // A pixel is one byte.

std::array<std::uint8_t, 16> ReadId(CByteReader& reader)
{
    std::array<std::uint8_t, 16> id{};
    std::ranges::copy(reader.Take(id.size()), id.begin());
    return id;
}

template <class Number> std::optional<Number> UnlessDefault(Number value, Number defaultValue)
{
    return value == defaultValue ? std::nullopt : std::optional(value);
}

void ReadVoiceExtra(CByteReader& reader, VoiceHints& voice)
{
    voice.languageId = reader.U16();
    reader.String();  // Dialect.
    voice.gender = reader.U16();
    voice.age = reader.U16();
    reader.String();  // Style.
}

VoiceHints ReadVoice(CByteReader& reader)
{
    VoiceHints voice;
    voice.engineId = ReadId(reader);
    voice.modeId = ReadId(reader);
    voice.wordsPerMinute = UnlessDefault(reader.U32(), EngineDefaultSpeed);
    voice.pitch = UnlessDefault(reader.U16(), EngineDefaultPitch);
    if (reader.U8() != 0)
        ReadVoiceExtra(reader, voice);
    return voice;
}

Color ReadBalloonColor(CByteReader& reader)
{
    const auto bytes = reader.Take(ColorSize);
    return {bytes[0], bytes[1], bytes[2]};
}

// Unlike the colours of the balloon these start with blue.
Color ReadPaletteColor(CByteReader& reader)
{
    const auto bytes = reader.Take(ColorSize);
    return {bytes[2], bytes[1], bytes[0]};
}

void ReadFont(CByteReader& reader, BalloonLook& balloon)
{
    balloon.fontName = reader.String();
    balloon.fontHeight = std::clamp(reader.I32(), -MaximumSide, MaximumSide);
    balloon.bold = (reader.U32() & 0xFFFF) >= (NormalWeight + BoldWeight) / 2;
    balloon.italic = reader.U8() != 0;
    reader.Skip(1);
}

BalloonLook ReadBalloon(CByteReader& reader, std::uint32_t flags)
{
    BalloonLook balloon;
    balloon.lines = reader.U8();
    balloon.charsPerLine = reader.U8();
    balloon.text = ReadBalloonColor(reader);
    balloon.background = ReadBalloonColor(reader);
    balloon.border = ReadBalloonColor(reader);
    ReadFont(reader, balloon);
    balloon.sizeToText = (flags & SizeToTextFlag) != 0;
    balloon.autoHide = (flags & NoAutoHideFlag) == 0;
    balloon.autoPace = (flags & NoAutoPaceFlag) == 0;
    return balloon;
}

std::vector<Color> ReadPalette(CByteReader& reader)
{
    const std::size_t count = reader.Count32(ColorSize, MaximumFileSize);
    std::vector<Color> palette;
    for (std::size_t i = 0; i < std::min(count, UsablePaletteSize); ++i)
        palette.push_back(ReadPaletteColor(reader));
    reader.Skip((count - palette.size()) * ColorSize);
    return palette;
}

void SkipTrayIcon(CByteReader& reader)
{
    if (reader.U8() == 0)
        return;
    reader.Blob();  // Its outline.
    reader.Blob();  // Its colours.
}

State ReadState(CByteReader& reader, const NameSet& animationNames)
{
    State state;
    state.name = reader.String();
    const std::size_t count = reader.Count16(SmallestString, MaximumAnimations);
    for (std::size_t i = 0; i < count; ++i) {
        std::string animation = reader.String();
        if (animationNames.count(text::FoldCase(animation)) == 1)
            state.animations.push_back(std::move(animation));
    }
    return state;
}

LocalizedName ReadLocalizedName(CByteReader& reader)
{
    LocalizedName name;
    name.languageId = reader.U16();
    name.name = reader.String();
    name.description = reader.String();
    name.extraData = reader.String();
    return name;
}

std::vector<LocalizedName> ReadNames(CByteReader reader)
{
    std::vector<LocalizedName> names;
    const std::size_t count = reader.Count16(SmallestLocalizedName);
    RequireIntact(count > 0, "the character has no name");
    for (std::size_t i = 0; i < count; ++i)
        names.push_back(ReadLocalizedName(reader));
    return names;
}

void ReadFrameSize(CByteReader& reader, Character& character)
{
    character.frameSize.width = reader.U16();
    character.frameSize.height = reader.U16();
    const auto [smaller, larger] = std::minmax(character.frameSize.width, character.frameSize.height);
    RequireIntact(smaller >= 1 && larger <= MaximumSide, "the size of its frame is out of range");
}

void ReadLook(CByteReader& reader, Character& character)
{
    character.id = ReadId(reader);
    ReadFrameSize(reader, character);
    character.transparentIndex = reader.U8();
    const std::uint32_t flags = reader.U32();
    character.hasStandardSet = (flags & StandardSetFlag) != 0;
    reader.Skip(4);  // The version of the animation set.
    if (flags & VoiceFlag)
        character.voice = ReadVoice(reader);
    if (flags & BalloonFlag)
        character.balloon = ReadBalloon(reader, flags);
    character.palette = ReadPalette(reader);
}

}

void RequireKnownVersion(std::span<const std::uint8_t> file, Locator block)
{
    CByteReader reader(RecordAt(file, block));
    reader.U16();  // All minor versions have the same layout.
    const std::uint16_t version = reader.U16();
    if (version < MajorVersion)
        throw platform::CFailure(platform::engineError::TooOld, "The character was made for an older engine.");
    if (version > MajorVersion)
        throw platform::CFailure(platform::engineError::TooNew, "The character was made for a newer engine.");
}

void ReadBlock(std::span<const std::uint8_t> file, Locator block, const NameSet& animationNames, Character& character)
{
    CByteReader reader(RecordAt(file, block));
    reader.Skip(4);  // The version.
    const Locator names = reader.Place();
    ReadLook(reader, character);
    SkipTrayIcon(reader);
    const std::size_t states = reader.Count16(SmallestState, MaximumStates);
    for (std::size_t i = 0; i < states; ++i)
        character.states.push_back(ReadState(reader, animationNames));
    character.names = ReadNames(CByteReader(RecordAt(file, names)));
}

}
