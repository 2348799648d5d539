#pragma once
#include "engine/files/AcsReader.h"
#include "engine/files/ByteWriter.h"
#include "engine/files/Pip.h"
#include "platform/CharacterEngine.h"
#include "platform/Failure.h"
#include <functional>
#include <gtest/gtest.h>

// Puts together character files out of single records, so that every one of them can be wrong.
namespace files_test {

using Bytes = std::vector<std::uint8_t>;
using Writer = engine::files::CByteWriter;

// The bytes that `write` writes.
inline Bytes Made(const std::function<void(Writer&)>& write)
{
    Writer writer;
    write(writer);
    return writer.Take();
}

inline Bytes PipPart(std::size_t offset, std::size_t size)
{
    return {PipFile.begin() + static_cast<std::ptrdiff_t>(offset),
            PipFile.begin() + static_cast<std::ptrdiff_t>(offset + size)};
}

struct FrameParts {
    Bytes pictures{0, 0};
    std::uint16_t sound = 0xFFFF;
    std::int16_t exit = -1;
    Bytes branches{0};
    Bytes mouths{0};

    Bytes Make() const
    {
        return Made([&](Writer& w) {
            w.Bytes(pictures);
            w.U16(sound);
            w.U16(10);
            w.I16(exit);
            w.Bytes(branches);
            w.Bytes(mouths);
        });
    }
};

struct AnimationParts {
    std::string name = "SHOW";
    std::uint8_t transition = 2;
    std::string returnAnimation;
    std::vector<FrameParts> frames{{}};

    Bytes Make() const
    {
        return Made([&](Writer& w) {
            w.String(name);
            w.U8(transition);
            w.String(returnAnimation);
            w.U16(static_cast<std::uint16_t>(frames.size()));
            for (const FrameParts& frame : frames)
                w.Bytes(frame.Make());
        });
    }
};

struct PictureParts {
    std::uint16_t width = 5;
    std::uint16_t height = 3;
    bool isPacked = true;
    Bytes pixels = PipPart(0x55, 19);
    std::uint32_t packedRegionSize = 45;
    std::uint32_t plainRegionSize = 96;
    Bytes region = PipPart(0x70, 45);

    Bytes Make() const
    {
        return Made([&](Writer& w) {
            w.U8(1);
            w.U16(width);
            w.U16(height);
            w.U8(isPacked ? 1 : 0);
            w.Blob(pixels);
            w.U32(packedRegionSize);
            w.U32(plainRegionSize);
            w.Bytes(region);
        });
    }
};

struct BlockParts {
    std::uint16_t majorVersion = 2;
    std::uint16_t width = 5;
    std::uint16_t height = 3;
    std::uint8_t transparentIndex = 0;
    std::uint32_t flags = 0x110;
    Bytes voiceAndBalloon;
    Bytes palette = PipPart(0xF4, 12);
    Bytes trayIcon{0};
    Bytes states = PipPart(0x101, 38);

    Bytes Make() const
    {
        return Made([&](Writer& w) {
            w.U16(1);
            w.U16(majorVersion);
            w.Place({});
            w.Bytes(PipPart(0xD7, 16));
            w.U16(width);
            w.U16(height);
            w.U8(transparentIndex);
            w.U32(flags);
            w.U32(2);
            w.Bytes(voiceAndBalloon);
            w.Bytes(palette);
            w.Bytes(trayIcon);
            w.Bytes(states);
        });
    }
};

// The parts of a whole file; those of Pip's until replaced.
struct FileParts {
    using Locator = engine::files::Locator;

    std::vector<Bytes> animations{PipPart(0x24, 0x27)};
    std::vector<Bytes> pictures{PipPart(0x4B, 0x52)};
    std::vector<Bytes> sounds;
    Bytes block = BlockParts().Make();
    Bytes names = PipPart(0x127, 24);
    std::string animationName = "Show";
    // Called with the places before they are written.
    std::function<void(std::vector<Locator>&)> changeAnimationPlaces, changePicturePlaces, changeSoundPlaces;
    std::function<void(Locator&)> changeNamesPlace;

    Bytes Make() const
    {
        Writer w;
        w.U32(0xABCDABC3);
        w.Bytes(Bytes(32));
        auto animationPlaces = Records(w, animations, changeAnimationPlaces);
        auto picturePlaces = Records(w, pictures, changePicturePlaces);
        auto soundPlaces = Records(w, sounds, changeSoundPlaces);
        w.PatchPlace(12, List(w, animationPlaces, /*named*/ true));
        w.PatchPlace(20, List(w, picturePlaces, /*named*/ false));
        w.PatchPlace(28, List(w, soundPlaces, /*named*/ false));
        w.PatchPlace(4, Block(w));
        return w.Take();
    }

private:
    static std::vector<Locator> Records(Writer& w, const std::vector<Bytes>& records,
                                        const std::function<void(std::vector<Locator>&)>& change)
    {
        std::vector<Locator> places;
        for (const Bytes& record : records) {
            const std::uint32_t start = w.Offset();
            w.Bytes(record);
            places.push_back(w.Since(start));
        }
        if (change)
            change(places);
        return places;
    }

    Locator List(Writer& w, const std::vector<Locator>& places, bool named) const
    {
        const std::uint32_t start = w.Offset();
        w.U32(static_cast<std::uint32_t>(places.size()));
        for (const Locator& place : places) {
            if (named)
                w.String(animationName);
            w.Place(place);
            if (!named)
                w.U32(1);
        }
        return w.Since(start);
    }

    Locator Block(Writer& w) const
    {
        const std::uint32_t start = w.Offset();
        w.Bytes(block);
        const std::uint32_t namesStart = w.Offset();
        w.Bytes(names);
        Locator namesPlace = w.Since(namesStart);
        if (changeNamesPlace)
            changeNamesPlace(namesPlace);
        w.PatchPlace(start + 4, namesPlace);
        return w.Since(start);
    }
};

inline engine::CharacterRef Read(Bytes bytes)
{
    return engine::ReadCharacterFile(std::make_shared<const Bytes>(std::move(bytes)));
}

// The number of the refusal, 0 when the bytes are read.
inline std::int32_t RefusalOf(Bytes bytes)
{
    try {
        Read(std::move(bytes));
        return 0;
    } catch (const platform::CFailure& failure) {
        return failure.Number();
    }
}

// Pip's file with some bytes overwritten.
inline Bytes PipWith(std::size_t offset, const Bytes& bytes)
{
    Bytes file(PipFile.begin(), PipFile.end());
    std::copy(bytes.begin(), bytes.end(), file.begin() + static_cast<std::ptrdiff_t>(offset));
    return file;
}

}
