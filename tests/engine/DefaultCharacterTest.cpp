#include "EngineTest.h"

using namespace testing_character;
using engine::UserSettings;

namespace {

// A control that has loaded the default character "first.acs" (red) and could have "second.acs" (blue).
class DefaultCharacterTest : public EngineTest {
protected:
    DefaultCharacterTest()
    {
        host.settingsFile.text = "DefaultCharacter=first.acs\n";
        user = std::make_shared<engine::CUserSettings>(host.settingsFile);
        settings.user = user;
        source.files["first.acs"] = std::make_shared<engine::Character>(Make(1));
        source.files["second.acs"] = std::make_shared<engine::Character>(Second());
        source.standard = std::make_shared<engine::Character>(Make(9));
    }
    static engine::Character Second()
    {
        engine::Character second = Make(2);
        second.names = {{0x0409, "Second", "", ""}};
        for (engine::Animation& animation : second.animations)
            for (engine::Frame& frame : animation.frames)
                frame.pictures = {{2, {0, 0}}};
        return second;
    }
    void LoadDefault()
    {
        Connect(settings);
        control->Characters()->Load("Bot", std::nullopt);
        bot = control->Characters()->Character("Bot");
        bot->SetIdleOn(false);
    }
    void ShowDefault()
    {
        LoadDefault();
        bot->Show(true);
        host.RunUntilIdle();
        bot->Play("RestPose");
        host.RunUntilIdle();
        journal.Clear();
    }
    void Choose(const std::string& file)
    {
        UserSettings wanted = user->Now();
        wanted.defaultCharacter = file;
        user->Change(wanted);
        host.Advance(1);
    }
    std::shared_ptr<engine::CUserSettings> user;
    engine::EngineSettings settings;
};

constexpr const char* Changed = "DefaultCharacterChange {00000002-0000-0000-0000-000000000000}";

}

TEST_F(DefaultCharacterTest, Load_OfTheDefault_TakesTheUsersChoice)
{
    host.settingsFile.text = "DefaultCharacter=second.acs\n";
    settings.user = std::make_shared<engine::CUserSettings>(host.settingsFile);
    LoadDefault();
    EXPECT_EQ(bot->Name(), "Second");
}

TEST_F(DefaultCharacterTest, Load_OfAChoiceThatHasGone_TakesTheFirstOne)
{
    source.files.erase("first.acs");
    source.standard = std::make_shared<engine::Character>(Second());
    LoadDefault();
    EXPECT_EQ(bot->Name(), "Second");
}

TEST_F(DefaultCharacterTest, Load_WithoutAChoice_TakesTheFirstOne)
{
    host.settingsFile.text = "";
    settings.user = nullptr;
    source.standard = std::make_shared<engine::Character>(Second());
    LoadDefault();
    EXPECT_EQ(bot->Name(), "Second");
}

TEST_F(DefaultCharacterTest, Choice_OfAnother_TellsTheControlThatLoadedTheDefault)
{
    ShowDefault();
    Choose("second.acs");
    EXPECT_EQ(journal.lines, (Lines{Changed}));
}

TEST_F(DefaultCharacterTest, Choice_OfAnother_ReplacesThePictureAtTheSamePlace)
{
    ShowDefault();
    bot->SetLeft(300);
    bot->SetTop(200);
    ASSERT_EQ(Pixel(), Red);
    Choose("second.acs");
    EXPECT_EQ(Pixel(), Blue);
    EXPECT_TRUE(host.Window().shown);
    EXPECT_EQ(host.Window().place, (engine::Rect{300, 200, 4, 4}));
    EXPECT_TRUE(host.windows.front().destroyed);
}

TEST_F(DefaultCharacterTest, Choice_OfAnother_KeepsTheSizeThatTheProgramHasSet)
{
    ShowDefault();
    bot->SetWidth(40);
    bot->SetHeight(60);
    Choose("second.acs");
    EXPECT_EQ(bot->Width(), 40);
    EXPECT_EQ(bot->Height(), 60);
}

TEST_F(DefaultCharacterTest, Choice_OfAnother_LeavesTheProgramsObjectsInForce)
{
    ShowDefault();
    const auto balloon = bot->Balloon();
    Choose("second.acs");
    EXPECT_EQ(bot->Name(), "Second");
    EXPECT_TRUE(bot->Visible());
    EXPECT_TRUE(balloon->Enabled());
}

TEST_F(DefaultCharacterTest, Choice_OfAnother_KeepsWhatTheProgramHasSet)
{
    ShowDefault();
    bot->SetAutoPopupMenu(false);
    bot->SetSoundEffectsOn(false);
    bot->Balloon()->SetFontSize(20);
    bot->Commands()->Add("read", "Read", "read", std::nullopt, std::nullopt);
    Choose("second.acs");
    EXPECT_FALSE(bot->AutoPopupMenu());
    EXPECT_FALSE(bot->IdleOn());
    EXPECT_FALSE(bot->SoundEffectsOn());
    EXPECT_EQ(bot->Balloon()->FontSize(), 20);
    EXPECT_EQ(host.speechInput.Offered(), (Lines{"read: read"}));
}

TEST_F(DefaultCharacterTest, Choice_OfAnother_StopsAndEmptiesTheQueue)
{
    ShowDefault();
    const RequestRef running = Keep(Say("A text that takes its time"));
    const RequestRef waiting = Keep(Say("Another one"));
    host.Advance(100);
    Choose("second.acs");
    EXPECT_EQ(StatusOf(running), 3);
    EXPECT_EQ(StatusOf(waiting), 3);
    EXPECT_FALSE(host.Balloon().shown);
    EXPECT_EQ(Requests().size(), 3u);  // The start of the first, the end of both.
}

TEST_F(DefaultCharacterTest, Choice_OfAnother_TheNewOneSpeaks)
{
    ShowDefault();
    Choose("second.acs");
    const RequestRef speech = Say("Hello");
    host.RunUntilIdle();
    EXPECT_EQ(StatusOf(speech), 0);
}

TEST_F(DefaultCharacterTest, Choice_OfAnother_WhileHidden_LeavesItHidden)
{
    LoadDefault();
    Choose("second.acs");
    EXPECT_FALSE(bot->Visible());
    EXPECT_EQ(bot->Name(), "Second");
    EXPECT_TRUE(host.windows.empty());
}

TEST_F(DefaultCharacterTest, Choice_OfAnother_DoesNotTouchACharacterLoadedByName)
{
    Connect(settings);
    control->Characters()->Load("Bot", "first.acs");
    bot = control->Characters()->Character("Bot");
    host.RunUntilIdle();
    journal.Clear();
    Choose("second.acs");
    EXPECT_EQ(bot->Name(), "Tester");
    EXPECT_TRUE(journal.lines.empty());
}

TEST_F(DefaultCharacterTest, Choice_OfTheSameCharacterInAnotherFile_ChangesNothing)
{
    ShowDefault();
    source.files["copy.acs"] = source.files["first.acs"];
    Choose("copy.acs");
    EXPECT_TRUE(journal.lines.empty());
    EXPECT_EQ(host.windows.size(), 1u);
}

TEST_F(DefaultCharacterTest, Choice_OfAFileThatCannotBeLoaded_WithNoOther_KeepsTheOldOne)
{
    ShowDefault();
    source.standard = nullptr;
    Choose("missing.acs");
    EXPECT_EQ(bot->Name(), "Tester");
    EXPECT_TRUE(journal.lines.empty());
}

TEST_F(DefaultCharacterTest, Choice_OfOneWithoutABalloon_MakesItsBalloonFail)
{
    ShowDefault();
    const auto balloon = bot->Balloon();
    engine::Character mute = Make(2);
    mute.balloon.reset();
    source.files["second.acs"] = std::make_shared<engine::Character>(std::move(mute));
    Choose("second.acs");
    EXPECT_EQ(FailureOf([&] { balloon->Enabled(); }), code::NoBalloon);
}

TEST_F(DefaultCharacterTest, Unload_AfterAChoice_EndsTheNewOne)
{
    ShowDefault();
    Choose("second.acs");
    control->Characters()->Unload("Bot");
    EXPECT_EQ(FailureOf([&] { bot->Name(); }), code::BadCharacterID);
    EXPECT_TRUE(host.Window().destroyed);
}

TEST_F(DefaultCharacterTest, HasOtherClients_WhenAnotherProgramHasIt_IsTrue)
{
    LoadDefault();
    host.loadedCharacters.elsewhere = {"{00000001-0000-0000-0000-000000000000}"};
    EXPECT_TRUE(bot->HasOtherClients());
}

TEST_F(DefaultCharacterTest, HasOtherClients_WhenAnotherProgramHasAnotherOne_IsFalse)
{
    LoadDefault();
    host.loadedCharacters.elsewhere = {"{00000002-0000-0000-0000-000000000000}"};
    EXPECT_FALSE(bot->HasOtherClients());
}

TEST_F(DefaultCharacterTest, LoadedCharacters_AreThoseOfNow)
{
    LoadDefault();
    EXPECT_EQ(host.loadedCharacters.here, (Lines{"{00000001-0000-0000-0000-000000000000}"}));
    Choose("second.acs");
    EXPECT_EQ(host.loadedCharacters.here, (Lines{"{00000002-0000-0000-0000-000000000000}"}));
    control->Characters()->Unload("Bot");
    EXPECT_TRUE(host.loadedCharacters.here.empty());
}

TEST_F(DefaultCharacterTest, Guid_StandsInTheOrderOfItsGroups)
{
    engine::Character third = Make();
    third.id = {0x33, 0x22, 0x11, 0x00, 0x55, 0x44, 0x77, 0x66, 0x88, 0x99, 0xAA, 0xBB, 0xCC, 0xDD, 0xEE, 0xFF};
    source.files["first.acs"] = std::make_shared<engine::Character>(std::move(third));
    LoadDefault();
    EXPECT_EQ(host.loadedCharacters.here, (Lines{"{00112233-4455-6677-8899-AABBCCDDEEFF}"}));
}
