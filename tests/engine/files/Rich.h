#pragma once
#include "engine/character/CharacterData.h"

// A character that uses every kind of record.
namespace files_test {

inline std::shared_ptr<const std::vector<std::uint8_t>> Sound(std::uint8_t value)
{
    return std::make_shared<const std::vector<std::uint8_t>>(
        std::vector<std::uint8_t>{'R', 'I', 'F', 'F', 6, 0, 0, 0, 'W', 'A', 'V', 'E', value, value});
}

inline std::shared_ptr<engine::CPictureList> RichPictures()
{
    auto pictures = std::make_shared<engine::CPictureList>();
    pictures->Add({{4, 4}, {2, 2, 2, 2, 2, 1, 1, 2, 2, 1, 1, 2, 2, 2, 2, 2}});
    pictures->Add({{1, 1}, {0}});
    pictures->Add({{7, 2}, {0, 1, 2, 0, 1, 2, 0, 2, 2, 2, 2, 2, 2, 2}});
    pictures->Add({{3, 5}, {2, 2, 2, 2, 2, 2, 2, 2, 2, 2, 2, 2, 2, 2, 2}});
    return pictures;
}

inline std::vector<engine::Animation> RichAnimations()
{
    using namespace engine;
    Frame first;
    first.pictures = {{0, {-126, 133}}, {2, {3, -4}}};
    first.sound = 1;
    first.duration = 655;
    first.exitFrame = 1;
    first.branches = {{1, 30}, {0, 70}};
    Frame second;
    second.pictures = {{3, {0, 0}}};
    second.mouths = {{Mouth::Closed, false, {0, {1, 2}}}, {Mouth::Narrow, true, {2, {-1, -2}}}};
    Frame nothing;
    return {{"Greet", Transition::ReturnAnimation, "GREETRETURN", {first, second, nothing}},
            {"GreetReturn", Transition::ExitBranches, "", {second}},
            {"Empty", Transition::None, "", {}}};
}

inline engine::Character Rich()
{
    engine::Character rich;
    rich.id = {1, 2, 3, 4, 5, 6, 7, 8, 9, 10, 11, 12, 13, 14, 15, 16};
    rich.names = {{0x0407, "Fr\xC3\xB6hlich", "Ein \xF0\x9F\x99\x82", ""}, {0x0009, "Rich", "Has it all", "Hello~~^^Bye"}};
    rich.frameSize = {128, 96};
    rich.palette = {{255, 0, 255}, {1, 2, 3}, {200, 100, 50}};
    rich.transparentIndex = 2;
    rich.hasStandardSet = true;
    rich.voice = engine::VoiceHints{{9, 8, 7}, {6, 5, 4}, 150, 220, 0x0409, 2, 40};
    rich.balloon =
        engine::BalloonLook{3, 40, {1, 2, 3}, {4, 5, 6}, {7, 8, 9}, "Arial", -13, true, true, false, false, false};
    rich.states = {{"SHOWING", {"GREET"}}, {"IDLINGLEVEL1", {"GREETRETURN", "EMPTY"}}, {"HIDING", {}}};
    rich.animations = RichAnimations();
    rich.sounds = {Sound(1), Sound(2)};
    rich.pictures = RichPictures();
    return rich;
}

}
