#include "EngineTest.h"
#include "engine/session/CommandList.h"
#include "engine/speech/VoiceChoice.h"

using namespace testing_character;
using PropertiesTest = EngineTest;

namespace {

constexpr const char* Ann = "{00000000-0000-0000-0000-000000000001}";
constexpr const char* Bob = "{00000000-0000-0000-0000-000000000002}";
constexpr const char* Claire = "{00000000-0000-0000-0000-00000000ABCD}";

std::int32_t Hex(std::uint32_t number) { return static_cast<std::int32_t>(number); }

}

TEST_F(PropertiesTest, Name_IsTheOneOfTheUsersLanguage)
{
    engine::EngineSettings settings;
    settings.languageId = 0x0807;
    Load(Make(), settings);
    EXPECT_EQ(bot->Name(), "Pruefer");
}

TEST_F(PropertiesTest, Name_InAnotherLanguage_IsTheEnglishOne)
{
    engine::EngineSettings settings;
    settings.languageId = 0x0411;
    Load(Make(), settings);
    EXPECT_EQ(bot->Name(), "Tester");
}

TEST_F(PropertiesTest, SetName_LastsUntilTheNextLoad)
{
    Load();
    bot->SetName("Fred");
    EXPECT_EQ(bot->Name(), "Fred");
    control->Characters()->Unload("Bot");
    control->Characters()->Load("Bot", "test.acs");
    EXPECT_EQ(control->Characters()->Character("Bot")->Name(), "Tester");
}

TEST_F(PropertiesTest, TwoObjectsOfOneCharacter_AreOneCharacter)
{
    Load();
    control->Characters()->Character("Bot")->SetName("Fred");
    EXPECT_EQ(bot->Name(), "Fred");
}

TEST_F(PropertiesTest, AnimationNames_AreThoseOfTheFileInOrder)
{
    engine::Character character = Make();
    character.animations.resize(3);
    Load(character);
    EXPECT_EQ(bot->AnimationNames(), (Lines{"Show", "Hide", "RestPose"}));
}

TEST_F(PropertiesTest, HasOtherClients_IsFalse)
{
    Load();
    EXPECT_FALSE(bot->HasOtherClients());
}

TEST_F(PropertiesTest, NamedNumber_OfVolume_IsNoMember)
{
    Load();
    EXPECT_EQ(FailureOf([&] { bot->NamedNumber("Volume"); }), 438);
}

TEST_F(PropertiesTest, NamedNumber_OfAMember_IsItsValue)
{
    Load();
    EXPECT_EQ(bot->NamedNumber("pitch"), 120);
    EXPECT_EQ(bot->NamedNumber("Width"), 4);
}

TEST_F(PropertiesTest, Pitch_WithoutAVoice_IsZero)
{
    host.synthesizer.available = false;
    Load();
    EXPECT_EQ(bot->Pitch(), 0);
}

TEST_F(PropertiesTest, Pitch_WithoutAValueInTheFile_IsMinusOne)
{
    engine::Character character = Make();
    character.voice->pitch.reset();
    Load(character);
    EXPECT_EQ(bot->Pitch(), -1);
}

TEST_F(PropertiesTest, Speed_WithoutAVoice_IsTheReadingPace)
{
    host.synthesizer.available = false;
    Load();
    EXPECT_EQ(bot->Speed(), 170);
}

TEST_F(PropertiesTest, TTSModeID_IsTheBestMatchByGender)
{
    Load();
    EXPECT_EQ(bot->TTSModeID(), Bob);
}

TEST_F(PropertiesTest, TTSModeID_PrefersTheUsersLanguage)
{
    engine::EngineSettings settings;
    settings.languageId = 0x040C;
    Load(Make(), settings);
    EXPECT_EQ(bot->TTSModeID(), Claire);
}

TEST_F(PropertiesTest, TTSModeID_PrefersTheFilesOwnVoice)
{
    engine::Character character = Make();
    character.voice->modeId[14] = 0xAB;
    character.voice->modeId[15] = 0xCD;
    Load(character);
    EXPECT_EQ(bot->TTSModeID(), Claire);
}

TEST_F(PropertiesTest, TTSModeID_WithoutAnyVoice_IsEmpty)
{
    host.synthesizer.available = false;
    Load();
    EXPECT_EQ(bot->TTSModeID(), "");
}

TEST_F(PropertiesTest, TTSModeID_OfASynthesizerWithoutVoices_IsEmpty)
{
    host.synthesizer.voices.clear();
    Load();
    EXPECT_EQ(bot->TTSModeID(), "");
}

TEST_F(PropertiesTest, SetTTSModeID_IgnoresBracesAndLetterCase)
{
    Load();
    bot->SetTTSModeID("00000000-0000-0000-0000-00000000abcd");
    EXPECT_EQ(bot->TTSModeID(), Claire);
}

TEST_F(PropertiesTest, SetTTSModeID_TakesAVoicesName)
{
    Load();
    bot->SetTTSModeID("ann");
    EXPECT_EQ(bot->TTSModeID(), Ann);
}

TEST_F(PropertiesTest, SetTTSModeID_OfNothing_LetsTheCharacterChooseItself)
{
    Load();
    bot->SetTTSModeID(Claire);
    bot->SetTTSModeID("");
    EXPECT_EQ(bot->TTSModeID(), Bob);
}

TEST_F(PropertiesTest, SetTTSModeID_OfAnUnknownVoice_FailsAndChoosesItself)
{
    Load();
    bot->SetTTSModeID(Claire);
    EXPECT_EQ(FailureOf([&] { bot->SetTTSModeID("{CA141FD0-AC7F-11D1-97A3-006008273002}"); }), code::SpeechEngineNotFound);
    EXPECT_EQ(bot->TTSModeID(), Bob);
}

TEST_F(PropertiesTest, SetTTSModeID_WithoutSpeech_Fails)
{
    host.synthesizer.available = false;
    Load();
    EXPECT_EQ(FailureOf([&] { bot->SetTTSModeID(Ann); }), code::SpeechEngineNotFound);
}

TEST_F(PropertiesTest, SetTTSModeID_IsTheVoiceThatSpeaks)
{
    LoadShown();
    bot->SetTTSModeID(Claire);
    Say("Hello");
    EXPECT_EQ(host.synthesizer.Orders().back().modeId, Claire);
}

TEST_F(PropertiesTest, SetTTSModeID_WhileATextWaits_ChangesItsVoice)
{
    LoadShown();
    Say("Hello");
    Say("World");
    bot->SetTTSModeID(Claire);
    host.RunUntilIdle();
    EXPECT_EQ(host.synthesizer.Orders().back().modeId, Claire);
    EXPECT_EQ(host.synthesizer.Orders().back().segments.at(0).text, "World");
}

TEST_F(PropertiesTest, Commands_TakeTheProgramsVoiceTexts)
{
    Load();
    const auto commands = bot->Commands();
    commands->RemoveAll();
    commands->SetCaption("Parlune");
    commands->Add("ReadTextFile", "&Read Text File", "Read [Text] File", std::nullopt, std::nullopt);
    EXPECT_EQ(FailureOf([&] {
                  commands->Add("ExitParlune", "E&xit Parlune", "(Exit|Close) Parlune", std::nullopt, std::nullopt);
              }),
              0);
}

TEST_F(PropertiesTest, Commands_OfAKnownName_Fail)
{
    Load();
    bot->Commands()->Add("Stop", std::nullopt, std::nullopt, std::nullopt, std::nullopt);
    EXPECT_EQ(FailureOf([&] { bot->Commands()->Add("stop", std::nullopt, std::nullopt, std::nullopt, std::nullopt); }),
              code::CommandExists);
}

TEST_F(PropertiesTest, Commands_AfterRemoveAll_MayUseTheNameAgain)
{
    Load();
    bot->Commands()->Add("Stop", std::nullopt, std::nullopt, std::nullopt, std::nullopt);
    bot->Commands()->RemoveAll();
    EXPECT_EQ(FailureOf([&] { bot->Commands()->Add("Stop", std::nullopt, std::nullopt, std::nullopt, std::nullopt); }), 0);
}

TEST(VoiceTextFault, MissingBrackets_HaveTheirCodes)
{
    EXPECT_EQ(engine::VoiceTextFault("(a | b) c"), 0);
    EXPECT_EQ(engine::VoiceTextFault("(a | b c"), Hex(0x80042305));
    EXPECT_EQ(engine::VoiceTextFault("[a b"), Hex(0x80042306));
    EXPECT_EQ(engine::VoiceTextFault("a) b"), Hex(0x80042307));
    EXPECT_EQ(engine::VoiceTextFault("a] b"), Hex(0x80042308));
    EXPECT_EQ(engine::VoiceTextFault("a | b"), Hex(0x80042309));
}

TEST(ModeIdText, OfBytes_IsTheUsualForm)
{
    EXPECT_EQ(
        engine::ModeIdText({0xD0, 0x1F, 0x14, 0xCA, 0x7F, 0xAC, 0xD1, 0x11, 0x97, 0xA3, 0x00, 0x60, 0x08, 0x27, 0x30, 0x02}),
        "{CA141FD0-AC7F-11D1-97A3-006008273002}");
}

TEST(VoiceTextFault, BracketsThatCross_MissTheRightOneOfTheInner)
{
    EXPECT_EQ(engine::VoiceTextFault("[(a]"), Hex(0x80042305));
    EXPECT_EQ(engine::VoiceTextFault("([a)"), Hex(0x80042306));
}

TEST(VoiceTextFault, ABracketThatOnlyAnotherKindOpened_MissesItsLeftOne)
{
    EXPECT_EQ(engine::VoiceTextFault("(a]"), Hex(0x80042308));
    EXPECT_EQ(engine::VoiceTextFault("[a)"), Hex(0x80042307));
}

TEST(VoiceTextFault, BracketsInside_AreClosedFromTheInside)
{
    EXPECT_EQ(engine::VoiceTextFault("(a [b | c] d)"), 0);
    EXPECT_EQ(engine::VoiceTextFault("([a]"), Hex(0x80042305));
    EXPECT_EQ(engine::VoiceTextFault("[(a)"), Hex(0x80042306));
}

TEST(VoiceTextFault, AlternativesBehindAClosedBracket_AreNotBracketed)
{
    EXPECT_EQ(engine::VoiceTextFault("(a) | b"), Hex(0x80042309));
}

TEST_F(PropertiesTest, Commands_WithBracketsThatDoNotMatch_AreNotAdded)
{
    Load();
    EXPECT_EQ(FailureOf([&] { bot->Commands()->Add("Go", std::nullopt, "(go", std::nullopt, std::nullopt); }),
              Hex(0x80042305));
    EXPECT_EQ(FailureOf([&] { bot->Commands()->Add("Go", std::nullopt, "go", std::nullopt, std::nullopt); }), 0);
}
