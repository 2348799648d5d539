#pragma once
#include "engine/character/CharacterData.h"
#include <cstdint>

// What the reader and the writer of character files share.
namespace engine::files {

inline constexpr std::uint32_t Signature = 0xABCDABC3;
inline constexpr std::uint32_t WebSignature = 0xABCDABC4;  // The variant of many files.
inline constexpr std::uint32_t CompoundSignature = 0xE011CFD0;
inline constexpr std::size_t HeaderSize = 36;

inline constexpr std::uint16_t MinorVersion = 1;
inline constexpr std::uint16_t MajorVersion = 2;

// Flags of the character block.
inline constexpr std::uint32_t NoVoiceFlag = 1U << 4;
inline constexpr std::uint32_t VoiceFlag = 1U << 5;
inline constexpr std::uint32_t NoBalloonFlag = 1U << 8;
inline constexpr std::uint32_t BalloonFlag = 1U << 9;
inline constexpr std::uint32_t SizeToTextFlag = 1U << 16;
inline constexpr std::uint32_t NoAutoHideFlag = 1U << 17;
inline constexpr std::uint32_t NoAutoPaceFlag = 1U << 18;
inline constexpr std::uint32_t StandardSetFlag = 1U << 20;

inline constexpr std::uint32_t EngineDefaultSpeed = 0xFFFFFFFF;
inline constexpr std::uint16_t EngineDefaultPitch = 0xFFFF;
inline constexpr std::uint16_t NoSound = 0xFFFF;
inline constexpr std::uint16_t EnglishId = 0x0009;
inline constexpr std::uint32_t NormalWeight = 400;
inline constexpr std::uint32_t BoldWeight = 700;

// The largest that are read and written, all far above what characters hold.
inline constexpr std::size_t MaximumFileSize = 64U << 20;
inline constexpr std::size_t MaximumAnimations = 4096;
inline constexpr std::size_t MaximumFrames = 16384;  // Of one animation.
inline constexpr std::size_t MaximumFramesOfFile = 262144;
inline constexpr std::size_t MaximumPicturesOfFrame = 256;
inline constexpr std::size_t MaximumPictures = 65535;
inline constexpr std::size_t MaximumSounds = 4096;
inline constexpr std::size_t MaximumSoundSize = 16U << 20;
inline constexpr std::size_t MaximumStates = 256;
inline constexpr std::size_t MaximumStringUnits = 65536;
inline constexpr std::int32_t MaximumSide = 4096;           // Of the frame and of pictures, in pixels.
inline constexpr std::uint64_t MaximumPixels = 512U << 20;  // Of all pictures, rows padded.

// The place of a record in the file.
struct Locator {
    std::uint32_t offset = 0;
    std::uint32_t size = 0;
    friend bool operator==(const Locator&, const Locator&) = default;
};

// Rows of pixels are padded to whole groups of four bytes.
constexpr std::size_t PaddedWidth(std::int32_t width) { return (static_cast<std::size_t>(width) + 3) & ~std::size_t{3}; }
constexpr std::size_t PlainSize(Size size) { return PaddedWidth(size.width) * static_cast<std::size_t>(size.height); }

}
