#include "support/WiredTabs.h"

namespace {

using Texts = std::vector<std::string>;

class GreetingsTab : public WiredTabs {
protected:
    Texts VisibleOfGreetings() const
    {
        Texts names;
        for (int greeting = 0; greeting < 5; ++greeting) {
            if (window.lblGreeting[greeting].Visible())
                names.push_back(window.lblGreeting[greeting].Name());
            if (window.txtGreeting[greeting].Visible())
                names.push_back(window.txtGreeting[greeting].Name());
            if (window.cboAnim[greeting].Visible())
                names.push_back(window.cboAnim[greeting].Name());
        }
        return names;
    }
};

}

TEST_F(GreetingsTab, Tabs_AreNumbered)
{
    EXPECT_EQ(window.tabGreetings.Tabs(), (Texts{"Greeting 1", "Greeting 2", "Greeting 3", "Greeting 4", "Greeting 5"}));
}

TEST_F(GreetingsTab, tabGreetings_Click_ShowsThatGreetingOnly)
{
    window.tabGreetings.Select(3);
    EXPECT_EQ(VisibleOfGreetings(), (Texts{"lblGreeting(3)", "txtGreeting(3)", "cboAnim(3)"}));
    window.tabGreetings.Select(0);
    EXPECT_EQ(VisibleOfGreetings(), (Texts{"lblGreeting(0)", "txtGreeting(0)", "cboAnim(0)"}));
}

TEST_F(GreetingsTab, tabGreetings_Click_WhenAControlFails_IsReportedAndTheOthersFollow)
{
    window.txtGreeting[0].SetPeer([this] { throw failure; });
    window.tabGreetings.Select(4);
    EXPECT_EQ(Reports(), Texts{"Parlune:tabGreetings_Click"});
    EXPECT_EQ(VisibleOfGreetings(), (Texts{"lblGreeting(4)", "txtGreeting(4)", "cboAnim(4)"}));
}

TEST_F(GreetingsTab, cmdTestWelcome_Click_SpeaksTheGreetingThatIsShown)
{
    LoadMerlin();
    window.txtGreeting[1].SetText("second");
    window.txtGreeting[2].SetText("third");
    window.tabGreetings.Select(2);
    window.cmdTestWelcome.Click();
    EXPECT_EQ(desktop.journal.CallsOf("Character."),
              (Texts{"Character.Play Greet", "Character.Speak third | -", "Character.Play RestPose"}));
}

TEST_F(GreetingsTab, cmdTestWelcome_Click_WithGreetingsSwitchedOff_SpeaksAllTheSame)
{
    LoadMerlin();
    window.chkReadGreeting.SetValue(0);
    window.txtGreeting[0].SetText("Hello");
    window.cmdTestWelcome.Click();
    EXPECT_EQ(desktop.engine.Spoken(), Texts{"Hello"});
}

TEST_F(GreetingsTab, cmdTestWelcome_Click_WithoutACharacter_DoesNothing)
{
    window.txtGreeting[0].SetText("Hello");
    window.cmdTestWelcome.Click();
    EXPECT_TRUE(desktop.journal.Calls().empty());
}

TEST_F(GreetingsTab, cboAnim_Click_PlaysTheChosenAnimation)
{
    LoadMerlin();
    window.cboAnim[4].Select("Wave");
    EXPECT_EQ(desktop.journal.CallsOf("Character."), (Texts{"Character.StopAll -", "Character.Play Wave"}));
}
