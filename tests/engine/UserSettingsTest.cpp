#include "EngineTest.h"

using namespace testing_character;
using engine::ReadUserSettings;
using engine::UserSettings;
using engine::WriteUserSettings;

namespace {

// The engine with the settings that all its controls share.
class UserSettingsTest : public EngineTest {
protected:
    void Share()
    {
        user = std::make_shared<engine::CUserSettings>(host.settingsFile);
        settings.user = user;
    }
    void LoadShownSharing()
    {
        Share();
        LoadShown(Make(), settings);
    }
    void Change(const std::function<void(UserSettings&)>& change)
    {
        UserSettings wanted = user->Now();
        change(wanted);
        user->Change(wanted);
    }
    std::shared_ptr<engine::CUserSettings> user;
    engine::EngineSettings settings;
};

}

TEST(UserSettingsText, Write_OfEverything_IsOneLineEach)
{
    UserSettings settings;
    settings.balloonsOn = false;
    settings.speedPercent = 150;
    settings.defaultCharacter = "Nibbin.acs";
    EXPECT_EQ(WriteUserSettings(settings), "Balloons=0\nSoundEffects=1\nSpeedPercent=150\nDefaultCharacter=Nibbin.acs\n");
}

TEST(UserSettingsText, Write_OfTheDefaults_SaysEachOfThem)
{
    EXPECT_EQ(WriteUserSettings(UserSettings()), "Balloons=1\nSoundEffects=1\nSpeedPercent=100\nDefaultCharacter=\n");
}

TEST(UserSettingsText, Read_OfWhatWasWritten_IsTheSame)
{
    UserSettings settings;
    settings.soundEffectsOn = false;
    settings.speedPercent = 50;
    settings.defaultCharacter = "sub/Köbold = 1.acs";
    EXPECT_EQ(ReadUserSettings(WriteUserSettings(settings)), settings);
}

TEST(UserSettingsText, Read_OfNothing_IsTheDefaults)
{
    const UserSettings settings = ReadUserSettings("");
    EXPECT_TRUE(settings.balloonsOn);
    EXPECT_TRUE(settings.soundEffectsOn);
    EXPECT_EQ(settings.speedPercent, 100);
    EXPECT_EQ(settings.defaultCharacter, "");
}

TEST(UserSettingsText, Read_OfLinesEndedByCrLf_IsTheSame)
{
    EXPECT_FALSE(ReadUserSettings("Balloons=0\r\nDefaultCharacter=a.acs\r\n").balloonsOn);
    EXPECT_EQ(ReadUserSettings("Balloons=0\r\nDefaultCharacter=a.acs\r\n").defaultCharacter, "a.acs");
}

TEST(UserSettingsText, Read_OfNonsense_IsTheDefaults)
{
    EXPECT_EQ(ReadUserSettings("Balloons=2\nSoundEffects=\nSpeedPercent=90000000000\n\n=\nHello"), UserSettings{});
    EXPECT_EQ(ReadUserSettings(std::string(3, '\0')), UserSettings{});
}

TEST(UserSettingsText, Read_OfALineTwice_TakesTheLast)
{
    EXPECT_TRUE(ReadUserSettings("Balloons=0\nBalloons=1\n").balloonsOn);
    EXPECT_FALSE(ReadUserSettings("Balloons=1\nBalloons=0\n").balloonsOn);
}

TEST(UserSettingsText, Read_OfASpeedOutOfRange_IsTheDefault)
{
    EXPECT_EQ(ReadUserSettings("SpeedPercent=49").speedPercent, 100);
    EXPECT_EQ(ReadUserSettings("SpeedPercent=201").speedPercent, 100);
    EXPECT_EQ(ReadUserSettings("SpeedPercent=12x").speedPercent, 100);
    EXPECT_EQ(ReadUserSettings("SpeedPercent=200").speedPercent, 200);
}

TEST(UserSettingsText, Write_OfAFileNameWithALineEnd_LeavesItOut)
{
    UserSettings settings;
    settings.defaultCharacter = "a\nBalloons=0";
    EXPECT_EQ(ReadUserSettings(WriteUserSettings(settings)), UserSettings{});
}

TEST_F(UserSettingsTest, Change_KeepsTheSettingsInTheFile)
{
    Share();
    Change([](UserSettings& wanted) { wanted.speedPercent = 120; });
    EXPECT_EQ(engine::CUserSettings(host.settingsFile).Now().speedPercent, 120);
}

TEST_F(UserSettingsTest, Change_WhenTheFileRefuses_HoldsAndSaysSo)
{
    Share();
    host.settingsFile.refuses = true;
    UserSettings wanted;
    wanted.speedPercent = 120;
    EXPECT_FALSE(user->Change(wanted));
    EXPECT_EQ(user->Now().speedPercent, 120);
}

TEST_F(UserSettingsTest, Change_ToASpeedOutOfRange_TakesTheNearest)
{
    Share();
    Change([](UserSettings& wanted) { wanted.speedPercent = 1000; });
    EXPECT_EQ(user->Now().speedPercent, 200);
}

TEST_F(UserSettingsTest, Change_OfNothing_TellsNobody)
{
    Share();
    int told = 0;
    user->Watch(this, [&](const UserSettings&) { ++told; });
    user->Change(user->Now());
    EXPECT_EQ(told, 0);
}

TEST_F(UserSettingsTest, Unwatch_WhileBeingTold_IsToldNoMore)
{
    Share();
    int told = 0;
    const int first = 0, second = 0;
    const auto tell = [&](const UserSettings&) {
        ++told;
        user->Unwatch(&first);
        user->Unwatch(&second);
    };
    user->Watch(&first, tell);
    user->Watch(&second, tell);
    Change([](UserSettings& wanted) { wanted.speedPercent = 120; });
    EXPECT_EQ(told, 1);
}

TEST_F(UserSettingsTest, BalloonsOff_WhileOneShows_HidesItAtOnce)
{
    LoadShownSharing();
    Say("Hello there");
    host.Advance(50);
    ASSERT_TRUE(host.Balloon().shown);
    Change([](UserSettings& wanted) { wanted.balloonsOn = false; });
    EXPECT_FALSE(host.Balloon().shown);
    EXPECT_FALSE(bot->Balloon()->Enabled());
    EXPECT_FALSE(bot->Balloon()->Visible());
}

TEST_F(UserSettingsTest, BalloonsOnAgain_ShowTheNextWords)
{
    host.settingsFile.text = "Balloons=0\n";
    LoadShownSharing();
    Say("Hello there everybody");
    host.Advance(50);
    Change([](UserSettings& wanted) { wanted.balloonsOn = true; });
    host.Advance(1000);
    EXPECT_TRUE(host.Balloon().shown);
    EXPECT_TRUE(bot->Balloon()->Enabled());
}

TEST_F(UserSettingsTest, BalloonsOff_ReachEveryControl)
{
    LoadShownSharing();
    const auto other = engine::CreateEngine(host, source, settings);
    other->SetConnected(true);
    other->Characters()->Load("Other", "test.acs");
    Change([](UserSettings& wanted) { wanted.balloonsOn = false; });
    EXPECT_FALSE(bot->Balloon()->Enabled());
    EXPECT_FALSE(other->Characters()->Character("Other")->Balloon()->Enabled());
}

TEST_F(UserSettingsTest, Change_AfterAControlHasGone_ReachesTheOthers)
{
    LoadShownSharing();
    auto other = engine::CreateEngine(host, source, settings);
    other->SetConnected(true);
    other->Characters()->Load("Other", "test.acs");
    other.reset();
    Change([](UserSettings& wanted) { wanted.balloonsOn = false; });
    EXPECT_FALSE(bot->Balloon()->Enabled());
}

TEST_F(UserSettingsTest, SoundEffectsOff_WhileOneSounds_SilencesItAtOnce)
{
    LoadShownSharing();
    bot->Play("Noisy");
    host.Advance(50);
    ASSERT_EQ(host.sound.streams.size(), 1u);
    Change([](UserSettings& wanted) { wanted.soundEffectsOn = false; });
    EXPECT_TRUE(host.sound.streams.back().stopped);
}

TEST_F(UserSettingsTest, SoundEffectsOff_WhileSpeechWaitsForOne_LetsItBegin)
{
    LoadShownSharing();
    bot->Play("Noisy");
    const RequestRef speech = Say("Hello");
    host.Advance(250);
    ASSERT_TRUE(host.balloons.empty());
    Change([](UserSettings& wanted) { wanted.soundEffectsOn = false; });
    host.Advance(50);
    EXPECT_EQ(StatusOf(speech), 4);
    EXPECT_TRUE(host.Balloon().shown);
}

TEST_F(UserSettingsTest, SoundEffectsOff_PlaysNone_ThoughTheCharacterHasThemOn)
{
    host.settingsFile.text = "SoundEffects=0\n";
    LoadShownSharing();
    EXPECT_TRUE(bot->SoundEffectsOn());
    bot->Play("Noisy");
    host.RunUntilIdle();
    EXPECT_TRUE(host.sound.streams.empty());
}

TEST_F(UserSettingsTest, SoundEffectsOn_PlayNone_WhenTheCharacterHasThemOff)
{
    LoadShownSharing();
    bot->SetSoundEffectsOn(false);
    Change([](UserSettings& wanted) { wanted.soundEffectsOn = false; });
    Change([](UserSettings& wanted) { wanted.soundEffectsOn = true; });
    bot->Play("Noisy");
    host.RunUntilIdle();
    EXPECT_TRUE(host.sound.streams.empty());
}

TEST_F(UserSettingsTest, Speed_GoesToTheVoice)
{
    LoadShownSharing();
    Change([](UserSettings& wanted) { wanted.speedPercent = 150; });
    Say("Hello");
    host.RunUntilIdle();
    EXPECT_EQ(host.synthesizer.Orders().back().segments[0].speedPercent, 150);
    EXPECT_EQ(host.synthesizer.Orders().back().segments[0].wordsPerMinute, 150);
}

TEST_F(UserSettingsTest, Speed_ChangedWhileATextWaits_HoldsForThatText)
{
    LoadShownSharing();
    Say("The first text");
    Say("The second one");
    host.Advance(50);
    Change([](UserSettings& wanted) { wanted.speedPercent = 200; });
    host.RunUntilIdle();
    const auto& last = host.synthesizer.Orders().back();
    EXPECT_EQ(last.segments[0].text, "The second one");
    EXPECT_EQ(last.segments[0].speedPercent, 200);
}

TEST_F(UserSettingsTest, Speed_WithoutAVoice_IsThatOfTheBalloon)
{
    host.synthesizer.available = false;
    LoadShownSharing();
    EXPECT_EQ(bot->Speed(), 170);
    Change([](UserSettings& wanted) { wanted.speedPercent = 50; });
    EXPECT_EQ(bot->Speed(), 85);
}

TEST_F(UserSettingsTest, Speed_OfACharacterWithAVoice_IsItsOwn)
{
    LoadShownSharing();
    Change([](UserSettings& wanted) { wanted.speedPercent = 200; });
    EXPECT_EQ(bot->Speed(), 150);
}
