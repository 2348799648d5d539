#pragma once
#include "engine/character/CharacterData.h"
#include <memory>
#include <string_view>
#include <utility>

// A character small enough to reckon with: frames of 4 by 4 pixels, animations of some hundred milliseconds.
namespace testing_character {

// Pictures, each filled with one colour: index 0 is red, 1 green, 2 blue. Index 3 is a white mouth of 2 by 1 pixels, 4 a
// black one.
inline constexpr std::uint32_t Red = 0xFFFF0000u;
inline constexpr std::uint32_t Green = 0xFF00FF00u;
inline constexpr std::uint32_t Blue = 0xFF0000FFu;
inline constexpr std::uint32_t White = 0xFFFFFFFFu;
inline constexpr std::uint32_t Black = 0xFF000000u;

inline engine::IndexedPicture Filled(engine::Size size, std::uint8_t color)
{
    return {size, std::vector<std::uint8_t>(static_cast<std::size_t>(size.width * size.height), color)};
}

inline engine::Frame MakeFrame(std::uint32_t picture, std::uint16_t hundredths)
{
    engine::Frame frame;
    frame.pictures.push_back({picture, {0, 0}});
    frame.duration = hundredths;
    return frame;
}

inline engine::Frame SpeakingFrame(std::uint32_t picture, std::uint16_t hundredths)
{
    engine::Frame frame = MakeFrame(picture, hundredths);
    frame.mouths.push_back({engine::Mouth::Closed, false, {4, {1, 2}}});
    frame.mouths.push_back({engine::Mouth::Wide2, false, {3, {1, 2}}});
    return frame;
}

inline engine::Frame EmptyFrame() { return {}; }

inline engine::Animation MakeAnimation(std::string name, std::vector<engine::Frame> frames,
                                       engine::Transition transition = engine::Transition::None,
                                       std::string returnAnimation = "")
{
    return {std::move(name), transition, std::move(returnAnimation), std::move(frames)};
}

// A PCM file of 16 bits, mono, 1000 samples a second.
inline std::vector<std::uint8_t> MakeWave(std::uint32_t milliseconds, std::int16_t value = 8000)
{
    std::vector<std::uint8_t> file;
    const auto put = [&](std::uint32_t number, int bytes) {
        for (int index = 0; index < bytes; ++index)
            file.push_back(static_cast<std::uint8_t>(number >> (8 * index)));
    };
    const auto text = [&](std::string_view letters) {
        for (const char letter : letters)
            file.push_back(static_cast<std::uint8_t>(letter));
    };
    text("RIFF");
    put(36 + milliseconds * 2, 4);
    text("WAVE");
    text("fmt ");
    put(16, 4);
    put(1, 2);
    put(1, 2);
    put(1000, 4);
    put(2000, 4);
    put(2, 2);
    put(16, 2);
    text("data");
    put(milliseconds * 2, 4);
    for (std::uint32_t sample = 0; sample < milliseconds; ++sample)
        put(static_cast<std::uint16_t>(value), 2);
    return file;
}

inline std::vector<engine::Animation> StandardAnimations()
{
    using engine::Transition;
    std::vector<engine::Animation> animations;
    animations.push_back(MakeAnimation("Show", {MakeFrame(1, 10), MakeFrame(2, 10), MakeFrame(0, 10)}));
    animations.push_back(MakeAnimation("Hide", {MakeFrame(2, 10), MakeFrame(1, 10), EmptyFrame()}));
    animations.push_back(MakeAnimation("RestPose", {SpeakingFrame(0, 10)}));
    animations.push_back(MakeAnimation("Greet", {MakeFrame(1, 10), SpeakingFrame(2, 10)}));
    animations.push_back(MakeAnimation("Wave", {MakeFrame(1, 10), MakeFrame(2, 20)}));
    animations.push_back(
        MakeAnimation("Read", {MakeFrame(1, 10), SpeakingFrame(1, 10)}, Transition::ReturnAnimation, "ReadReturn"));
    animations.push_back(MakeAnimation("ReadReturn", {MakeFrame(2, 20), MakeFrame(0, 0)}));
    engine::Animation looping =
        MakeAnimation("Processing", {MakeFrame(1, 10), MakeFrame(2, 10), MakeFrame(0, 10)}, Transition::ExitBranches);
    looping.frames[1].branches.push_back({0, 100});
    looping.frames[0].exitFrame = 2;
    looping.frames[1].exitFrame = 2;
    animations.push_back(looping);
    for (const char* move : {"MoveUp", "MoveDown", "MoveLeft", "MoveRight"})
        animations.push_back(MakeAnimation(move, {MakeFrame(1, 10)}));
    for (const char* idle : {"Idle1_1", "Idle2_1", "Idle3_1"})
        animations.push_back(MakeAnimation(idle, {MakeFrame(1, 50), MakeFrame(0, 50)}));
    engine::Animation noisy = MakeAnimation("Noisy", {MakeFrame(1, 10), MakeFrame(2, 10)});
    noisy.frames[0].sound = 0;
    animations.push_back(noisy);
    animations.push_back(MakeAnimation("Nothing", {}));
    return animations;
}

inline std::vector<engine::State> StandardStates()
{
    return {{"SHOWING", {"Show"}},          {"HIDING", {"Hide"}},          {"SPEAKING", {"RestPose"}},
            {"MOVINGUP", {"MoveUp"}},       {"MOVINGDOWN", {"MoveDown"}},  {"MOVINGLEFT", {"MoveLeft"}},
            {"MOVINGRIGHT", {"MoveRight"}}, {"IDLINGLEVEL1", {"Idle1_1"}}, {"IDLINGLEVEL2", {"Idle2_1"}},
            {"IDLINGLEVEL3", {"Idle3_1"}}};
}

inline engine::Character Make(std::uint8_t id = 1)
{
    engine::Character character;
    character.id[0] = id;
    character.names = {{0x0409, "Tester", "A test character", ""}, {0x0407, "Pruefer", "", ""}};
    character.frameSize = {4, 4};
    character.palette = {{}, {255, 0, 0}, {0, 255, 0}, {0, 0, 255}, {255, 255, 255}, {0, 0, 0}};
    character.transparentIndex = 0;
    character.voice = engine::VoiceHints{};
    character.voice->pitch = 120;
    character.voice->wordsPerMinute = 150;
    character.voice->gender = 2;
    character.balloon = engine::BalloonLook{};
    character.states = StandardStates();
    character.animations = StandardAnimations();
    character.sounds.push_back(std::make_shared<const std::vector<std::uint8_t>>(MakeWave(500)));
    auto pictures = std::make_shared<engine::CPictureList>();
    for (std::uint8_t color = 1; color <= 3; ++color)
        pictures->Add(Filled({4, 4}, color));
    pictures->Add(Filled({2, 1}, 4));
    pictures->Add(Filled({2, 1}, 5));
    character.pictures = pictures;
    return character;
}

}
