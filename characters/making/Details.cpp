#include "../nibbin/Figure.h"
#include "MakeCharacter.h"

namespace making {

using namespace engine;

namespace {

constexpr std::array<std::uint8_t, 16> Id{0x6E, 0x1B, 0xB1, 0x4E, 0x27, 0x90, 0x5D, 0x4C,
                                          0x8A, 0x31, 0xC4, 0x0F, 0x72, 0xE6, 0x19, 0xD3};

std::vector<LocalizedName> Names()
{
    return {{0x0009, CharacterName,
             "A seed that grew fond of words. It keeps a book behind its back and its quill on its head, and reads to you "
             "whatever you hand it.",
             ""}};
}

BalloonLook Balloon()
{
    BalloonLook look;
    look.lines = 3;
    look.charsPerLine = 32;
    look.text = {58, 34, 30};
    look.background = {255, 248, 228};
    look.border = {110, 70, 55};
    look.fontName = "DejaVu Sans";
    return look;
}

VoiceHints Voice()
{
    VoiceHints voice;
    voice.wordsPerMinute = 165;
    voice.pitch = static_cast<std::uint16_t>(140);
    return voice;
}

std::vector<State> States()
{
    return {{"SHOWING", {"Show"}},
            {"HIDING", {"Hide"}},
            {"SPEAKING", {"RestPose"}},
            {"MOVINGUP", {"MoveUp"}},
            {"MOVINGDOWN", {"MoveDown"}},
            {"MOVINGLEFT", {"MoveLeft"}},
            {"MOVINGRIGHT", {"MoveRight"}},
            {"GESTURINGUP", {"GestureUp"}},
            {"GESTURINGDOWN", {"GestureDown"}},
            {"GESTURINGLEFT", {"GestureLeft"}},
            {"GESTURINGRIGHT", {"GestureRight"}},
            {"LISTENING", {"Alert"}},
            {"HEARING", {"Hearing1", "Hearing2"}},
            {"IDLINGLEVEL1", {"Blink", "Idle1_1", "Idle1_2"}},
            {"IDLINGLEVEL2", {"Blink", "Idle1_1", "Idle1_2", "Idle2_1", "Idle2_2"}},
            {"IDLINGLEVEL3", {"Idle3_1", "Idle3_2"}}};
}

}

Character WithoutPictures()
{
    Character character;
    character.id = Id;
    character.names = Names();
    character.frameSize = {nibbin::FrameSide, nibbin::FrameSide};
    character.hasStandardSet = true;
    character.balloon = Balloon();
    character.voice = Voice();
    character.states = States();
    return character;
}

}
