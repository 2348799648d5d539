#include "CharacterFileMutator.h"
#include "engine/files/AcsReader.h"
#include "platform/Failure.h"
#include <cstdlib>

// Any bytes are a character whose parts fit together, or a refusal.
namespace {

void RequirePixels(const engine::IPictures& pictures)
{
    for (std::uint32_t i = 0; i < pictures.Count() && i < 64; ++i) {
        const engine::PictureRef picture = pictures.Picture(i);
        if (picture && picture->pixels.size() != static_cast<std::size_t>(picture->size.width * picture->size.height))
            std::abort();
    }
}

void RequireFrame(const engine::Frame& frame, const engine::Animation& animation, const engine::Character& character)
{
    unsigned percent = 0;
    for (const engine::PlacedPicture& placed : frame.pictures) {
        if (placed.picture >= character.pictures->Count())
            std::abort();
    }
    for (const engine::Branch& branch : frame.branches) {
        percent += branch.percent;
        if (branch.target >= animation.frames.size())
            std::abort();
    }
    if (percent > 100 || (frame.sound && *frame.sound >= character.sounds.size()) ||
        (frame.exitFrame && *frame.exitFrame >= animation.frames.size()))
        std::abort();
}

}

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size)
{
    try {
        const engine::CharacterRef character =
            engine::ReadCharacterFile(std::make_shared<const std::vector<std::uint8_t>>(data, data + size));
        RequirePixels(*character->pictures);
        for (const engine::Animation& animation : character->animations) {
            for (const engine::Frame& frame : animation.frames)
                RequireFrame(frame, animation, *character);
        }
    } catch (const platform::CFailure&) {
        return 0;  // Refused.
    }
    return 0;
}
