#include "engine/speech/VoiceChoice.h"
#include <gtest/gtest.h>

using engine::ChooseVoice;
using engine::FindVoice;
using engine::Voice;
using engine::VoiceHints;

namespace {

constexpr std::uint16_t American = 0x0409;
constexpr std::uint16_t British = 0x0809;
constexpr std::uint16_t French = 0x040C;
constexpr std::uint16_t German = 0x0407;
constexpr std::uint16_t Swiss = 0x0807;

Voice MakeVoice(const std::string& name, std::uint16_t language, std::uint16_t gender = 0, std::uint16_t age = 30)
{
    return {"{00000000-0000-0000-0000-0000000000" + name.substr(0, 1) + "0}", name, "", language, gender, age};
}

VoiceHints Hints(std::uint16_t gender, std::uint16_t age)
{
    VoiceHints hints;
    hints.gender = gender;
    hints.age = age;
    return hints;
}

// The name of the voice that is chosen.
std::string Chosen(const std::vector<Voice>& voices, const VoiceHints& hints, std::uint16_t language)
{
    const Voice* voice = ChooseVoice(voices, hints, language);
    return voice != nullptr ? voice->name : "";
}

}

TEST(ChooseVoice, TheVeryLanguage_GoesBeforeGenderAndAge)
{
    EXPECT_EQ(Chosen({MakeVoice("A", Swiss, 1, 30), MakeVoice("B", German, 2, 99)}, Hints(1, 30), German), "B");
}

TEST(ChooseVoice, AKinOfTheLanguage_GoesBeforeEnglishOfTheRightGender)
{
    EXPECT_EQ(Chosen({MakeVoice("A", American, 1), MakeVoice("B", Swiss, 2)}, Hints(1, 30), German), "B");
}

TEST(ChooseVoice, English_GoesBeforeOthersOfTheRightGender)
{
    EXPECT_EQ(Chosen({MakeVoice("A", French, 1), MakeVoice("B", British, 2)}, Hints(1, 30), German), "B");
}

TEST(ChooseVoice, TheGender_GoesBeforeTheAge)
{
    EXPECT_EQ(Chosen({MakeVoice("A", American, 1, 30), MakeVoice("B", American, 2, 99)}, Hints(2, 30), American), "B");
}

TEST(ChooseVoice, TheNearestAge_DecidesAmongEquals)
{
    EXPECT_EQ(Chosen({MakeVoice("A", American, 2, 20), MakeVoice("B", American, 2, 36)}, Hints(2, 30), American), "B");
}

TEST(ChooseVoice, OfEqualOnes_IsTheFirst)
{
    EXPECT_EQ(Chosen({MakeVoice("A", American), MakeVoice("B", American)}, Hints(0, 30), American), "A");
}

TEST(ChooseVoice, WithoutAGender_TakesAnyGender)
{
    EXPECT_EQ(Chosen({MakeVoice("A", American, 1, 40), MakeVoice("B", American, 2, 30)}, Hints(0, 30), American), "B");
}

TEST(ChooseVoice, WithoutAGender_PrefersNoVoiceWithoutOne)
{
    EXPECT_EQ(Chosen({MakeVoice("A", American, 0, 40), MakeVoice("B", American, 2, 30)}, Hints(0, 30), American), "B");
}

TEST(ChooseVoice, OfEachGender_TakesAVoiceOfIt)
{
    const std::vector<Voice> voices{MakeVoice("A", American, 1, 99), MakeVoice("B", American, 2, 99),
                                    MakeVoice("C", American, 0, 30)};
    EXPECT_EQ(Chosen(voices, Hints(1, 30), American), "A");
    EXPECT_EQ(Chosen(voices, Hints(2, 30), American), "B");
}

TEST(ChooseVoice, AnAbsurdAge_DoesNotOutweighTheGender)
{
    EXPECT_EQ(Chosen({MakeVoice("A", American, 1, 30), MakeVoice("B", American, 2, 60000)}, Hints(2, 30), American), "B");
}

TEST(ChooseVoice, AgesFarAway_AreAllAlike)
{
    EXPECT_EQ(Chosen({MakeVoice("A", American, 2, 900), MakeVoice("B", American, 2, 230)}, Hints(2, 30), American), "A");
    EXPECT_EQ(Chosen({MakeVoice("A", American, 2, 900), MakeVoice("B", American, 2, 229)}, Hints(2, 30), American), "B");
}

TEST(ChooseVoice, WithoutALanguage_IsAmericanEnglish)
{
    EXPECT_EQ(Chosen({MakeVoice("A", British), MakeVoice("B", American)}, Hints(0, 30), 0), "B");
}

TEST(ChooseVoice, WithoutHints_IsOneOfTheLanguage)
{
    const std::vector<Voice> voices{MakeVoice("A", American), MakeVoice("B", French)};
    EXPECT_EQ(ChooseVoice(voices, std::nullopt, French)->name, "B");
}

TEST(ChooseVoice, OfNone_IsNone) { EXPECT_EQ(ChooseVoice({}, std::nullopt, American), nullptr); }

TEST(FindVoice, BracesAtOneEndOnly_AreLeftOut)
{
    const std::vector<Voice> voices{MakeVoice("A", American), MakeVoice("B", American)};
    EXPECT_EQ(FindVoice(voices, "{00000000-0000-0000-0000-0000000000B0"), &voices[1]);
    EXPECT_EQ(FindVoice(voices, "00000000-0000-0000-0000-0000000000B0}"), &voices[1]);
}

TEST(FindVoice, NoText_NamesNoVoice)
{
    const std::vector<Voice> voices{{"", "", "", American, 0, 0}};
    EXPECT_EQ(FindVoice(voices, ""), nullptr);
}

TEST(FindVoice, AnUnknownName_NamesNoVoice) { EXPECT_EQ(FindVoice({MakeVoice("A", American)}, "B"), nullptr); }
