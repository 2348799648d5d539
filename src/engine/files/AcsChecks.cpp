#include "engine/files/AcsChecks.h"
#include "base/text/Case.h"
#include "base/text/Utf8.h"
#include "engine/files/AcsFormat.h"
#include "platform/CharacterEngine.h"
#include "platform/Failure.h"
#include <set>

namespace engine::files {
namespace {

void RequireString(const std::string& text)
{
    const std::u16string units = text::ToUtf16(text);
    Require(units.size() <= MaximumStringUnits, "a text is too long");
    Require(units.find(u'\0') == std::u16string::npos, "a text holds a zero character");
}

void RequireName(const std::string& name)
{
    Require(!name.empty(), "a name is empty");
    RequireString(name);
}

bool IsSide(std::int32_t pixels) { return pixels >= 1 && pixels <= MaximumSide; }
bool IsOffset(std::int32_t pixels) { return pixels >= -32768 && pixels <= 32767; }

std::uint64_t RequirePicture(const PictureRef& picture)
{
    if (!picture)
        return 0;
    const Size size = picture->size;
    Require(IsSide(size.width) && IsSide(size.height), "the size of a picture is out of range");
    Require(picture->pixels.size() == static_cast<std::size_t>(size.width) * static_cast<std::size_t>(size.height),
            "a picture has more or fewer pixels than its size says");
    return PlainSize(size);
}

void RequirePictures(const IPictures& pictures)
{
    Require(pictures.Count() <= MaximumPictures, "there are too many pictures");
    std::uint64_t pixels = 0;
    for (std::uint32_t i = 0; i < pictures.Count(); ++i)
        pixels += RequirePicture(pictures.Picture(i));
    Require(pixels <= MaximumPixels, "the pictures have too many pixels");
}

void RequirePlaced(const PlacedPicture& placed, const Character& character)
{
    Require(placed.picture < character.pictures->Count(), "a frame names a picture that does not exist");
    Require(IsOffset(placed.offset.x) && IsOffset(placed.offset.y), "a picture lies too far from its frame");
}

void RequireBranches(const std::vector<Branch>& branches, std::size_t frames)
{
    Require(branches.size() <= 255, "a frame has too many branches");
    unsigned percent = 0;
    for (const Branch& branch : branches) {
        Require(branch.target < frames, "a branch leads to a frame that does not exist");
        Require(branch.percent >= 1, "a branch is never taken");
        percent += branch.percent;
    }
    Require(percent <= 100, "the branches of a frame exceed 100 percent");
}

void RequireMouths(const std::vector<MouthOverlay>& mouths, const Character& character)
{
    Require(mouths.size() <= 255, "a frame has too many mouths");
    for (const MouthOverlay& mouth : mouths) {
        Require(static_cast<int>(mouth.mouth) < MouthCount, "a mouth is of no known kind");
        RequirePlaced(mouth.placed, character);
    }
}

void RequireFrame(const Frame& frame, const Animation& animation, const Character& character)
{
    Require(frame.pictures.size() <= MaximumPicturesOfFrame, "a frame has too many pictures");
    for (const PlacedPicture& placed : frame.pictures)
        RequirePlaced(placed, character);
    Require(!frame.sound || *frame.sound < character.sounds.size(), "a frame names a sound that does not exist");
    Require(!frame.exitFrame || *frame.exitFrame < animation.frames.size(), "an exit leads to a frame that does not exist");
    RequireBranches(frame.branches, animation.frames.size());
    RequireMouths(frame.mouths, character);
}

using Names = std::set<std::string>;  // In capitals.

void RequireTransition(const Animation& animation, const Names& names)
{
    const bool hasReturn = animation.transition == Transition::ReturnAnimation;
    Require(animation.transition <= Transition::None, "a transition is of no known kind");
    Require(hasReturn != animation.returnAnimation.empty(), "a return animation does not fit the transition");
    Require(!hasReturn || names.count(text::FoldCase(animation.returnAnimation)) == 1, "a return animation does not exist");
}

void RequireAnimation(const Animation& animation, const Character& character, const Names& names)
{
    RequireTransition(animation, names);
    Require(animation.frames.size() <= MaximumFrames, "an animation has too many frames");
    for (const Frame& frame : animation.frames)
        RequireFrame(frame, animation, character);
}

Names RequireAnimationNames(const Character& character)
{
    Require(character.animations.size() <= MaximumAnimations, "there are too many animations");
    Names names;
    for (const Animation& animation : character.animations) {
        RequireName(animation.name);
        Require(names.insert(text::FoldCase(animation.name)).second, "two animations have the same name");
    }
    return names;
}

void RequireAnimations(const Character& character, const Names& names)
{
    std::size_t frames = 0;
    for (const Animation& animation : character.animations) {
        RequireAnimation(animation, character, names);
        frames += animation.frames.size();
    }
    Require(frames <= MaximumFramesOfFile, "there are too many frames");
}

void RequireStates(const Character& character, const Names& names)
{
    Require(character.states.size() <= MaximumStates, "there are too many states");
    for (const State& state : character.states) {
        RequireName(state.name);
        Require(state.animations.size() <= MaximumAnimations, "a state has too many animations");
        for (const std::string& animation : state.animations)
            Require(names.count(text::FoldCase(animation)) == 1, "a state names an animation that does not exist");
    }
}

void RequireNames(const std::vector<LocalizedName>& names)
{
    Require(!names.empty() && names.size() < 65535, "the character has no name or too many");
    for (const LocalizedName& name : names) {
        RequireName(name.name);
        RequireString(name.description);
        RequireString(name.extraData);
    }
}

void RequireSounds(const Character& character)
{
    Require(character.sounds.size() <= MaximumSounds, "there are too many sounds");
    for (const auto& sound : character.sounds)
        Require(sound && sound->size() <= MaximumSoundSize, "a sound is missing or too large");
}

}

void Require(bool holds, const char* fault)
{
    if (!holds)
        throw platform::CFailure(platform::engineError::InvalidArgument,
                                 std::string("The character cannot be written: ") + fault + ".");
}

void RequireWritable(const Character& character)
{
    Require(character.pictures != nullptr, "it has no pictures");
    Require(IsSide(character.frameSize.width) && IsSide(character.frameSize.height),
            "the size of its frame is out of range");
    Require(!character.palette.empty() && character.palette.size() <= 256, "the palette must have 1 to 256 colours");
    Require(character.transparentIndex < character.palette.size(), "the transparent colour is not in the palette");
    RequireNames(character.names);
    RequireSounds(character);
    RequirePictures(*character.pictures);
    const Names names = RequireAnimationNames(character);
    RequireAnimations(character, names);
    RequireStates(character, names);
    if (character.balloon)
        RequireString(character.balloon->fontName);
}

}
