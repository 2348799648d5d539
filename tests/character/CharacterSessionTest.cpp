#include "character/CharacterSession.h"
#include "character/CharacterEvents.h"
#include "character/bParlune.h"
#include "support/CharacterProgram.h"

using character::CharLoad;
using character::State;
using platform::engineError::AlreadyLoaded;
using platform::engineError::NoStandardCharacter;
using Texts = std::vector<std::string>;

class CharacterSession : public CharacterProgram {
protected:
    const platform::headless::EngineCharacter& Loaded() const { return *desktop.engine.loaded; }
    Texts Loads() const { return desktop.journal.CallsOf("Characters.Load"); }
    // The calls that change the character, in order.
    Texts Changes() const
    {
        Texts changes;
        for (const std::string& call : desktop.journal.Calls())
            for (const char* beginning :
                 {"Characters.", "Character.Set", "Character.MoveTo", "Character.Show", "Character.StopAll",
                  "Character.AnimationNames", "Balloon.Set", "Commands.RemoveAll", "Events."})
                if (call.starts_with(beginning))
                    changes.push_back(call);
        return changes;
    }
    void Store(const std::string& section, const std::string& key, const std::string& value)
    {
        desktop.profile.Put(SettingsFile, section, key, value);
    }
};

TEST_F(CharacterSession, CharLoad_OfAName_LoadsTheFileOfThatName)
{
    EXPECT_TRUE(CharLoad("Merlin", true));
    EXPECT_EQ(Loads(), Texts{"Characters.Load Bot Merlin.acs"});
    EXPECT_EQ(Loaded().name, "Merlin");
    EXPECT_EQ(State().currentID, "Merlin");
    EXPECT_TRUE(State().loaded);
    EXPECT_TRUE(Reports().empty());
}

TEST_F(CharacterSession, CharLoad_OfAPath_PassesItOnUnchanged)
{
    EXPECT_TRUE(CharLoad("D:\\Chars\\Bob.ACS", true));
    EXPECT_EQ(Loads(), Texts{"Characters.Load Bot D:\\Chars\\Bob.ACS"});
    EXPECT_EQ(Loaded().name, "D:\\Chars\\Bob.ACS");
    EXPECT_EQ(State().currentID, "D:\\Chars\\Bob.ACS");
}

TEST_F(CharacterSession, CharLoad_OfAMissingFile_QuietlyLoadsTheDefaultCharacter)
{
    desktop.engine.missingFiles = {"Nobody.acs"};
    desktop.engine.character.name = "Peedy";
    EXPECT_TRUE(CharLoad("Nobody", true));
    EXPECT_EQ(Loads(), (Texts{"Characters.Load Bot Nobody.acs", "Characters.Load Bot -"}));
    EXPECT_EQ(State().currentID, "");
    EXPECT_EQ(Loaded().name, "Peedy");
    EXPECT_TRUE(Reports().empty());
}

TEST_F(CharacterSession, CharLoad_OfTheDefaultCharacter_LoadsWithoutFileAndNamesIt)
{
    EXPECT_TRUE(CharLoad("(Default Character)", true));
    EXPECT_EQ(Loads(), Texts{"Characters.Load Bot -"});
    EXPECT_EQ(Loaded().name, "(Default Character)");
    EXPECT_EQ(State().currentID, "(Default Character)");
}

TEST_F(CharacterSession, CharLoad_OfNothing_LoadsTheDefaultCharacterUnderItsOwnName)
{
    EXPECT_TRUE(CharLoad("", true));
    EXPECT_EQ(Loads(), Texts{"Characters.Load Bot -"});
    EXPECT_EQ(desktop.journal.Count("Character.SetName"), 0U);
    EXPECT_EQ(State().currentID, "");
}

TEST_F(CharacterSession, CharLoad_RemembersTheCharacterAsOption)
{
    CharLoad("Genie", true);
    EXPECT_EQ(settings::Options().Character, "Genie");
}

TEST_F(CharacterSession, CharLoad_OfTheOptionItself_LoadsIt)
{
    settings::Options().Character = "Genie";
    desktop.engine.missingFiles = {"Genie.acs"};
    EXPECT_TRUE(CharLoad(settings::Options().Character, true));
    EXPECT_EQ(Loads(), (Texts{"Characters.Load Bot Genie.acs", "Characters.Load Bot -"}));
}

TEST_F(CharacterSession, CharLoad_WhenTheDefaultCharacterFails_ReturnsFalseSilently)
{
    desktop.journal.FailNext("Characters.Load Bot -", {NoStandardCharacter, "No character"});
    EXPECT_FALSE(CharLoad("", true));
    EXPECT_TRUE(Reports().empty());
    EXPECT_FALSE(State().loaded);
    EXPECT_EQ(desktop.journal.Calls().back(), "Characters.Load Bot -");
}

TEST_F(CharacterSession, CharLoad_WhenFileAndDefaultCharacterFail_ReturnsFalseSilently)
{
    desktop.journal.FailAlways("Characters.Load", {NoStandardCharacter, "No character"});
    EXPECT_FALSE(CharLoad("Merlin", true));
    EXPECT_TRUE(Reports().empty());
    EXPECT_FALSE(State().loaded);
}

TEST_F(CharacterSession, CharLoad_WhenTheReplacementFails_HasNoCharacter)
{
    LoadMerlin();
    desktop.journal.FailAlways("Characters.Load", {NoStandardCharacter, "No character"});
    EXPECT_FALSE(CharLoad("Genie", true));
    EXPECT_EQ(State().current, nullptr);
    EXPECT_FALSE(State().loaded);
}

TEST_F(CharacterSession, CharLoad_WhenTheDefaultCharacterIsLoadedAlready_GoesOn)
{
    CharLoad("", false);
    State().loaded = false;
    desktop.journal.Clear();
    EXPECT_TRUE(CharLoad("", true));
    EXPECT_EQ(desktop.journal.Count("Characters.Character Bot"), 1U);
    EXPECT_TRUE(State().loaded);
    EXPECT_TRUE(Reports().empty());
}

TEST_F(CharacterSession, CharLoad_WhenTheFailedFileIsStillHeld_TakesWhatIsThere)
{
    CharLoad("Merlin", false);
    State().loaded = false;
    desktop.journal.FailNext("Characters.Load Bot -", {AlreadyLoaded, "Already loaded"});
    EXPECT_TRUE(CharLoad("Genie", true));
    EXPECT_EQ(State().currentID, "");
}

TEST_F(CharacterSession, CharLoad_TheFirstTime_CreatesAndConnectsTheEngine)
{
    CharLoad("Merlin", true);
    const Texts calls = desktop.journal.Calls();
    EXPECT_EQ(Texts(calls.begin(), calls.begin() + 3),
              (Texts{"Engine.Create", "Engine.SetConnected true", "Engine.SetEvents"}));
    EXPECT_EQ(desktop.engine.events, &character::EventReceiver());
}

TEST_F(CharacterSession, CharLoad_TheSecondTime_KeepsTheEngine)
{
    LoadMerlin();
    CharLoad("Genie", true);
    EXPECT_EQ(desktop.journal.Count("Engine.Create"), 0U);
}

TEST_F(CharacterSession, CharLoad_WithoutEngine_ReportsAndReturnsFalse)
{
    desktop.engine.installed = false;
    EXPECT_FALSE(CharLoad("Merlin", true));
    EXPECT_EQ(Reports(), Texts{"Parlune:CharLoad"});
    EXPECT_EQ(desktop.messageBoxes.Last().Line(3), "Error Code: 429");
    EXPECT_FALSE(State().loaded);
}

TEST_F(CharacterSession, CharLoad_SwitchesTheEnginesOwnMenuOff)
{
    CharLoad("Merlin", true);
    EXPECT_FALSE(Loaded().autoPopupMenu);
}

TEST_F(CharacterSession, CharLoad_ChangesTheCharacterInOrder)
{
    Store("Merlin", "TTSModeID", "{BB}");
    Store("Merlin", "BalloonStyle", "&H0A280001");
    settings::Options().CharWidth = 64;
    settings::Options().CharHeight = 80;
    window.chkCustomSize.SetValue(1);
    CharLoad("Merlin", true);
    EXPECT_EQ(
        Changes(),
        (Texts{"Characters.Load Bot Merlin.acs", "Characters.Character Bot", "Character.SetAutoPopupMenu false",
               "Character.SetName Merlin", "Character.SetTTSModeID {BB}", "Balloon.SetFontName Arial",
               "Balloon.SetFontSize 10", "Balloon.SetStyle 170393601", "Commands.RemoveAll", "Character.SetWidth 64",
               "Character.SetHeight 80", "Character.MoveTo 0 0 -", "Character.AnimationNames", "Character.SetIdleOn true",
               "Character.SetSoundEffectsOn true", "Character.Show -", "Events.RunPendingEvents"}));
}

TEST_F(CharacterSession, CharLoad_WithoutShow_LeavesItHiddenAndYieldsToNobody)
{
    EXPECT_TRUE(CharLoad("Merlin", false));
    EXPECT_FALSE(Loaded().visible);
    EXPECT_EQ(desktop.journal.Count("Events."), 0U);
    EXPECT_TRUE(State().loaded);
}

TEST_F(CharacterSession, CharLoad_WithShow_LetsEventsRunOnceBeforeItReturns)
{
    int events = 0;
    desktop.events.AtYield(1, [&] { ++events; });
    CharLoad("Merlin", true);
    EXPECT_EQ(events, 1);
    EXPECT_EQ(desktop.journal.Count("Events.RunPendingEvents"), 1U);
}

TEST_F(CharacterSession, CharLoad_AppliesTheSwitchesOfTheOptions)
{
    window.chkIdleOn.SetValue(0);
    window.chkSoundEffectsOn.SetValue(0);
    CharLoad("Merlin", true);
    EXPECT_FALSE(Loaded().idleOn);
    EXPECT_FALSE(Loaded().soundEffectsOn);
}

TEST_F(CharacterSession, CharLoad_KeepsWhatTheCharacterBroughtWithIt)
{
    desktop.engine.character.ttsModeID = "{AA}";
    desktop.engine.character.fontName = "Verdana";
    desktop.engine.character.fontSize = 13;
    desktop.engine.character.fontItalic = true;
    desktop.engine.character.balloonStyle = 0x05280003;
    Store("Merlin", "TTSModeID", "{BB}");
    Store("Merlin", "FontName", "Courier");
    Store("Merlin", "BalloonStyle", "&H0A280001");
    CharLoad("Merlin", true);
    EXPECT_EQ(State().defaults.balloonStyle, 0x05280003);
    EXPECT_EQ(State().defaults.ttsModeID, "{AA}");
    EXPECT_EQ(State().defaults.fontName, "Verdana");
    EXPECT_EQ(State().defaults.fontSize, 13);
    EXPECT_TRUE(State().defaults.fontItalic);
    EXPECT_FALSE(State().defaults.fontBold);
}

TEST_F(CharacterSession, CharLoad_OfAReplacement_UnloadsTheFormerOneAtOnce)
{
    LoadMerlin();
    CharLoad("Genie", true);
    const Texts calls = desktop.journal.Calls();
    EXPECT_EQ(Texts(calls.begin(), calls.begin() + 9),
              (Texts{"Character.Left", "Character.Top", "Character.Width", "Character.Height", "Character.StopAll -",
                     "Engine.Characters", "Characters.Unload Bot", "Engine.Characters", "Characters.Load Bot Genie.acs"}));
    EXPECT_EQ(State().currentID, "Genie");
}

TEST_F(CharacterSession, CharLoad_OfAReplacement_RebuildsTheAnimationNames)
{
    desktop.engine.characterOfFile["Genie.acs"].animations = {"Greet", "Fly"};
    LoadMerlin();
    CharLoad("Genie", true);
    EXPECT_EQ(State().animationNames, (Texts{"Greet", "Fly"}));
}

// The voice.

class StandardVoice : public CharacterSession, public testing::WithParamInterface<std::pair<const char*, const char*>> {};

TEST_P(StandardVoice, CharLoad_OnTheFirstRun_GivesAStandardCharacterItsVoice)
{
    settings::Options().FirstTime = true;
    CharLoad(GetParam().first, true);
    EXPECT_EQ(Loaded().ttsModeID, GetParam().second);
}

INSTANTIATE_TEST_SUITE_P(Standard, StandardVoice,
                         testing::Values(std::pair("Genie", "{ca141fd0-ac7f-11d1-97a3-006008273000}"),
                                         std::pair("Merlin", "{ca141fd0-ac7f-11d1-97a3-006008273002}"),
                                         std::pair("Robby", "{ca141fd0-ac7f-11d1-97a3-006008273006}"),
                                         std::pair("Peedy", "{ca141fd0-ac7f-11d1-97a3-006008273001}")));

TEST_F(CharacterSession, CharLoad_OnTheFirstRun_PrefersTheStoredVoice)
{
    settings::Options().FirstTime = true;
    Store("Merlin", "TTSModeID", "{BB}");
    CharLoad("Merlin", true);
    EXPECT_EQ(Loaded().ttsModeID, "{BB}");
}

TEST_F(CharacterSession, CharLoad_OnALaterRun_KeepsTheCharactersOwnVoice)
{
    desktop.engine.character.ttsModeID = "{AA}";
    CharLoad("Merlin", true);
    EXPECT_EQ(Loaded().ttsModeID, "{AA}");
    EXPECT_EQ(desktop.journal.Count("Character.SetTTSModeID"), 0U);
}

TEST_F(CharacterSession, CharLoad_OfAStandardNameInAnotherCase_KeepsTheCharactersOwnVoice)
{
    settings::Options().FirstTime = true;
    desktop.engine.character.ttsModeID = "{AA}";
    CharLoad("merlin", true);
    EXPECT_EQ(Loaded().ttsModeID, "{AA}");
}

TEST_F(CharacterSession, CharLoad_OfAnUnnamedStandardCharacter_GoesByTheNameOfTheEngine)
{
    settings::Options().FirstTime = true;
    desktop.engine.character.name = "Robby";
    CharLoad("", true);
    EXPECT_EQ(Loaded().ttsModeID, "{ca141fd0-ac7f-11d1-97a3-006008273006}");
}

TEST_F(CharacterSession, CharLoad_WithoutAnyVoice_SetsNone)
{
    desktop.engine.character.ttsModeID = "";
    CharLoad("Merlin", true);
    EXPECT_EQ(desktop.journal.Count("Character.SetTTSModeID"), 0U);
}

TEST_F(CharacterSession, CharLoad_WhenTheVoiceIsRefused_GoesOnSilently)
{
    Store("Merlin", "TTSModeID", "{BB}");
    desktop.journal.FailNext("Character.SetTTSModeID", failure);
    EXPECT_TRUE(CharLoad("Merlin", true));
    EXPECT_TRUE(Reports().empty());
}

TEST_F(CharacterSession, CharLoad_OfTheDefaultCharacter_HasASettingsSectionOfItsOwn)
{
    Store("(Default Character)", "TTSModeID", "{BB}");
    CharLoad("(Default Character)", true);
    EXPECT_EQ(Loaded().ttsModeID, "{BB}");
}
