#include "character/Greeting.h"
#include "character/OptionListHandlers.h"
#include "support/CharacterProgram.h"

using character::State;
using Texts = std::vector<std::string>;

class Greeting : public CharacterProgram {
protected:
    Texts Selected() const
    {
        Texts selected;
        for (const ui::CComboBox& list : window.cboAnim)
            selected.push_back(list.Index() < 0 ? "-" : list.Item(list.Index()));
        return selected;
    }
    Texts Entries(int greeting) const
    {
        Texts entries;
        for (std::int32_t index = 0; index < window.cboAnim[greeting].Count(); ++index)
            entries.push_back(window.cboAnim[greeting].Item(index));
        return entries;
    }
    void Store(int number, const std::string& animation)
    {
        desktop.registry.Put(platform::Root::CurrentUser, "Software\\Tarrowind\\Parlune",
                             "GreetingAnimation" + std::to_string(number), animation);
    }
    void LoadWithAnimations(Texts animations)
    {
        desktop.engine.character.animations = std::move(animations);
        LoadMerlin();
    }
};

TEST_F(Greeting, FillGreetingLists_OffersTheAnimationsInTheEnginesOrder)
{
    LoadWithAnimations({"Wave", "Greet", "Blink"});
    for (int greeting = 0; greeting < 5; ++greeting)
        EXPECT_EQ(Entries(greeting), (Texts{"Wave", "Greet", "Blink"}));
    EXPECT_EQ(State().animationNames, (Texts{"Wave", "Greet", "Blink"}));
}

TEST_F(Greeting, FillGreetingLists_ASecondTime_ReplacesTheEntries)
{
    LoadWithAnimations({"Wave", "Greet"});
    character::FillGreetingLists();
    EXPECT_EQ(Entries(0), (Texts{"Wave", "Greet"}));
    EXPECT_EQ(State().animationNames, (Texts{"Wave", "Greet"}));
}

TEST_F(Greeting, FillGreetingLists_WithoutStoredAnimations_SelectsGreet)
{
    LoadWithAnimations({"Wave", "Greet"});
    EXPECT_EQ(Selected(), (Texts{"Greet", "Greet", "Greet", "Greet", "Greet"}));
}

TEST_F(Greeting, FillGreetingLists_SelectsEachStoredAnimation)
{
    Store(1, "Wave");
    Store(3, "Announce");
    Store(5, "RestPose");
    LoadMerlin();
    EXPECT_EQ(Selected(), (Texts{"Wave", "Greet", "Announce", "Greet", "RestPose"}));
}

TEST_F(Greeting, FillGreetingLists_OfTheAppearance_SelectsGreetInstead)
{
    Store(2, "Show");
    LoadMerlin();
    EXPECT_EQ(Selected(), (Texts{"Greet", "Greet", "Greet", "Greet", "Greet"}));
}

TEST_F(Greeting, FillGreetingLists_OfAnUnknownAnimation_SelectsGreetInstead)
{
    Store(1, "Wave");
    Store(4, "Juggle");
    LoadMerlin();
    EXPECT_EQ(Selected(), (Texts{"Wave", "Greet", "Greet", "Greet", "Greet"}));
}

TEST_F(Greeting, FillGreetingLists_WithoutGreet_SelectsAnnounceEverywhere)
{
    Store(1, "Wave");
    LoadWithAnimations({"Wave", "Announce"});
    EXPECT_EQ(Selected(), (Texts{"Announce", "Announce", "Announce", "Announce", "Announce"}));
}

TEST_F(Greeting, FillGreetingLists_WithoutGreetButWithAllStored_KeepsThem)
{
    for (int number = 1; number <= 5; ++number)
        Store(number, "Wave");
    LoadWithAnimations({"Announce", "Wave"});
    EXPECT_EQ(Selected(), (Texts{"Wave", "Wave", "Wave", "Wave", "Wave"}));
}

TEST_F(Greeting, FillGreetingLists_WithoutGreetAndAnnounce_SelectsTheFirst)
{
    LoadWithAnimations({"Wave", "Blink"});
    EXPECT_EQ(Selected(), (Texts{"Wave", "Wave", "Wave", "Wave", "Wave"}));
}

TEST_F(Greeting, FillGreetingLists_WithoutAnimations_SelectsNothing)
{
    LoadWithAnimations({});
    EXPECT_EQ(Selected(), (Texts{"-", "-", "-", "-", "-"}));
    EXPECT_TRUE(Reports().empty());
}

TEST_F(Greeting, FillGreetingLists_PlaysNoPreview)
{
    window.cboAnim[0].onClick = [] { character::cboAnim_Click(0); };
    LoadMerlin();
    EXPECT_EQ(desktop.journal.Count("Character.Play"), 0U);
    EXPECT_EQ(State().fillingGreetingLists, "False");
}

TEST_F(Greeting, FillGreetingLists_SaysSoWhileItSelects)
{
    std::string filling;
    window.cboAnim[4].onClick = [&] { filling = State().fillingGreetingLists; };
    LoadMerlin();
    EXPECT_EQ(filling, "True");
}

TEST_F(Greeting, FillGreetingLists_WhenTheNamesFail_EmptiesTheListsSilently)
{
    LoadMerlin();
    desktop.journal.FailNext("Character.AnimationNames", failure);
    character::FillGreetingLists();
    EXPECT_TRUE(Entries(0).empty());
    EXPECT_TRUE(State().animationNames.empty());
    EXPECT_TRUE(Reports().empty());
    EXPECT_EQ(State().fillingGreetingLists, "False");
}

TEST_F(Greeting, Greet_PlaysSpeaksAndRests)
{
    Store(3, "Wave");
    LoadMerlin();
    window.txtGreeting[2].SetText("Hello");
    character::Greet(2, true);
    EXPECT_EQ(desktop.journal.CallsOf("Character."),
              (Texts{"Character.Play Wave", "Character.Speak Hello | -", "Character.Play RestPose"}));
}

TEST_F(Greeting, Greet_ExpandsTokens)
{
    LoadMerlin();
    window.txtUserName.SetText("Ann");
    window.txtGreeting[0].SetText("Good {TimeOfDay}, {UserName}!");
    character::Greet(0, true);
    EXPECT_EQ(desktop.engine.Spoken(), Texts{"Good Afternoon, Ann!"});
}

TEST_F(Greeting, Greet_WithoutSelection_SpeaksWithoutAnimation)
{
    LoadMerlin();
    window.cboAnim[1].SetIndex(-1);
    window.txtGreeting[1].SetText("Hello");
    character::Greet(1, true);
    EXPECT_EQ(desktop.journal.CallsOf("Character."), (Texts{"Character.Speak Hello | -", "Character.Play RestPose"}));
}

TEST_F(Greeting, Greet_CheckedAndSwitchedOff_DoesNothing)
{
    LoadMerlin();
    window.chkReadGreeting.SetValue(0);
    window.txtGreeting[0].SetText("Hello");
    character::Greet(0, true);
    EXPECT_TRUE(desktop.journal.Calls().empty());
}

TEST_F(Greeting, Greet_UncheckedAndSwitchedOff_Speaks)
{
    LoadMerlin();
    window.chkReadGreeting.SetValue(0);
    window.txtGreeting[0].SetText("Hello");
    character::Greet(0, false);
    EXPECT_EQ(desktop.engine.Spoken(), Texts{"Hello"});
}

TEST_F(Greeting, Greet_WithoutCharacter_DoesNothing)
{
    window.txtGreeting[0].SetText("Hello");
    character::Greet(0, false);
    character::Greet(0, true);
    EXPECT_TRUE(desktop.journal.Calls().empty());
}

TEST_F(Greeting, Greet_OutsideTheFive_DoesNothing)
{
    LoadMerlin();
    character::Greet(-1, false);
    character::Greet(5, false);
    EXPECT_TRUE(desktop.journal.Calls().empty());
}
