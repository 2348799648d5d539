#include "EngineTest.h"
#include "engine/speech/SpeechTags.h"
#include <random>

using namespace testing_character;

namespace {

// Numbers that are the same on every machine.
class CDice {
public:
    explicit CDice(std::uint32_t seed) : m_numbers(seed) {}
    std::uint32_t Below(std::uint32_t limit) { return static_cast<std::uint32_t>(m_numbers()) % limit; }
    bool OneIn(std::uint32_t number) { return Below(number) == 0; }

private:
    std::mt19937 m_numbers;
};

engine::Frame WildFrame(CDice& dice)
{
    engine::Frame frame = dice.OneIn(4) ? EmptyFrame() : MakeFrame(dice.Below(8), static_cast<std::uint16_t>(dice.Below(5)));
    if (dice.OneIn(3))
        frame.branches.push_back({static_cast<std::uint16_t>(dice.Below(8)), static_cast<std::uint16_t>(dice.Below(150))});
    if (dice.OneIn(3))
        frame.exitFrame = static_cast<std::uint16_t>(dice.Below(8));
    if (dice.OneIn(5))
        frame.sound = static_cast<std::uint16_t>(dice.Below(3));
    if (dice.OneIn(3))
        frame.mouths.push_back({engine::Mouth::Wide2, dice.OneIn(2), {dice.Below(8), {1, 2}}});
    return frame;
}

// A character whose animations are made of chance.
engine::Character WildCharacter(CDice& dice)
{
    engine::Character character = Make();
    for (engine::Animation& animation : character.animations) {
        animation.frames.clear();
        for (std::uint32_t count = dice.Below(7); count > 0; --count)
            animation.frames.push_back(WildFrame(dice));
        animation.transition = static_cast<engine::Transition>(dice.Below(3));
        animation.returnAnimation = character.animations[dice.Below(16)].name;
    }
    return character;
}

constexpr const char* Texts[] = {"Hello",
                                 "",
                                 "One|Two \\Mrk=1\\|Three",
                                 "\\Pau=100\\\\Map=\"a\"=\"b c\"\\ \\Emp\\x",
                                 "\\Lst\\",
                                 "\\Mrk=0\\",
                                 "a b c d e f g h i j k l m n o p q r s t u v w x y z",
                                 "\xFF\xFE\\\"=|"};

}

class StressTest : public EngineTest, public ::testing::WithParamInterface<std::uint32_t> {
protected:
    void Act(CDice& dice);
};

void StressTest::Act(CDice& dice)
{
    const auto at = [&] { return static_cast<std::int16_t>(dice.Below(2000)); };
    switch (dice.Below(15)) {
    case 0:
        Keep(bot->Show(dice.OneIn(2)));
        break;
    case 1:
        Keep(bot->Hide(dice.OneIn(2)));
        break;
    case 2:
    case 3:
        Keep(bot->Play(bot->AnimationNames()[dice.Below(16)]));
        break;
    case 4:
    case 5:
    case 6:
        Keep(Say(Texts[dice.Below(8)]));
        break;
    case 7:
        Keep(bot->MoveTo(at(), at(), static_cast<std::int32_t>(dice.Below(3) * 300)));
        break;
    case 8:
        bot->StopAll(dice.OneIn(2) ? std::nullopt : std::optional<std::string>("Play, Speak"));
        break;
    case 9:
        bot->Stop(nullptr);
        break;
    case 10:
        FailureOf([&] { bot->Stop(kept.at(dice.Below(static_cast<std::uint32_t>(kept.size())))); });
        break;
    case 11:
        if (!host.windows.empty() && host.Window().shown)
            dice.OneIn(2) ? host.Window().Click(1, 0, {at(), at()}) : host.Window().Drag({at(), at()}, {at(), at()});
        break;
    case 12:
        bot->SetIdleOn(dice.OneIn(2));
        break;
    case 13:
        bot->Balloon()->SetStyle(0x020A0000 | static_cast<std::int32_t>(dice.Below(16)));
        break;
    default:
        bot->SetWidth(static_cast<std::int16_t>(1 + dice.Below(300)));
        break;
    }
}

TEST_P(StressTest, RandomWork_EndsInOrderAndLeavesNothing)
{
    CDice dice(GetParam());
    Load(WildCharacter(dice));
    kept.push_back(bot->Show(std::nullopt));
    host.sound.broken = dice.OneIn(8);
    host.synthesizer.failAfterChunks = dice.OneIn(8) ? 0 : -1;
    for (int action = 0; action < 400; ++action) {
        host.randomFractions.assign(1, dice.Below(1000) / 1000.0);
        Act(dice);
        host.Advance(dice.Below(4) == 0 ? dice.Below(3000) : 0);
    }
    bot->StopAll(std::nullopt);
    bot->Hide(true);
    host.Advance(0);
    EXPECT_FALSE(bot->Visible());
    EXPECT_EQ(host.time.Waiting(), 0u);
    for (const RequestRef& request : kept)
        EXPECT_TRUE(StatusOf(request) == 0 || StatusOf(request) == 1 || StatusOf(request) == 3);
    EXPECT_EQ(journal.Count("RequestComplete"), kept.size());
    control->Characters()->Unload("Bot");
    EXPECT_EQ(host.time.Waiting(), 0u);
}

INSTANTIATE_TEST_SUITE_P(Seeds, StressTest, ::testing::Range(1u, 101u));

TEST(ParseSpeech, RandomBytesOfTagLetters_KeepsItsPlacesInOrder)
{
    CDice dice(7);
    constexpr std::string_view Letters = "\\\\\\\"\"==|MapmrkLstPau159 x\xC3\xA4\xFF";
    for (int round = 0; round < 3000; ++round) {
        std::string text;
        for (std::uint32_t length = dice.Below(60); length > 0; --length)
            text += Letters[dice.Below(static_cast<std::uint32_t>(Letters.size()))];
        const engine::SpokenText parsed = engine::ParseSpeech(engine::ChooseAlternative(text, 0.5));
        for (std::size_t word = 1; word < parsed.words.size(); ++word) {
            ASSERT_LE(parsed.words[word - 1].end, parsed.words[word].begin) << text;
            ASSERT_LE(parsed.words[word - 1].spoken, parsed.words[word].spoken) << text;
        }
        for (const engine::ShownWord& word : parsed.words)
            ASSERT_LT(word.spoken.segment, std::max<std::size_t>(1, parsed.segments.size())) << text;
    }
}
