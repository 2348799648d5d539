#include "driver/Companion.h"

// The Character page: which character, how large, where, and what it does by itself.
using namespace driver;

namespace {

class CharacterPage : public CCompanion {
protected:
    void BeginOnPage()
    {
        BeginShown();
        ShowPage(Page::Character);
        agent.Forget();
    }
    bool Shows(const std::string& control, const std::string& text)
    {
        return Eventually([&] { return parlune.Text(control) == text; });
    }
};

TEST_F(CharacterPage, Select_LoadsTheChosenCharacter)
{
    BeginOnPage();
    parlune.SetText("cboChar", "Genie");
    parlune.Click("cmdLoadChar");

    EXPECT_TRUE(agent.Sees("call Characters.Unload(\"Bot\")"));
    EXPECT_TRUE(agent.Sees("call Characters.Load(\"Bot\", \"Genie.acs\")"));
    EXPECT_TRUE(agent.Sees("put Character[Bot].Name(\"Genie\")"));
}

TEST_F(CharacterPage, Select_KeepsTheChoiceForTheNextStart)
{
    BeginOnPage();
    parlune.SetText("cboChar", "Genie");
    parlune.Click("cmdLoadChar");
    ASSERT_TRUE(Shows("staStatus", "Genie"));
    parlune.End();

    EXPECT_EQ(registry::Option("Character"), "Genie");
}

TEST_F(CharacterPage, Select_OfTheDefaultCharacterTwice_OpensTheChoiceOfTheDefault)
{
    registry::PutOption("Character", "Genie");
    BeginOnPage();
    parlune.SetText("cboChar", "(Default Character)");
    parlune.Click("cmdLoadChar");
    ASSERT_TRUE(agent.Sees("put Character[Bot].Name(\"(Default Character)\")"));
    // Until it is loaded, the button loads it once more.
    EXPECT_TRUE(Eventually([&] {
        agent.Rest();
        agent.Forget();
        parlune.Click("cmdLoadChar");
        agent.Rest();
        return !agent.LinesWith("call Control.ShowDefaultCharacterProperties").empty();
    }));
    EXPECT_TRUE(agent.LinesWith("call Characters.Load").empty());
}

TEST_F(CharacterPage, Select_OfAMissingFile_LoadsTheDefaultCharacter)
{
    agent.Prepare("half-made default");
    BeginOnPage();
    parlune.SetText("cboChar", "Nobody");
    parlune.Click("cmdLoadChar");

    EXPECT_TRUE(agent.Sees("call Characters.Load(\"Bot\", \"Nobody.acs\")"));
    EXPECT_TRUE(agent.Sees("call Character[Bot].Show"));
    EXPECT_FALSE(FindBox(parlune.Id()));
}

TEST_F(CharacterPage, Browse_LoadsTheChosenFileAndRemembersItsFolder)
{
    const std::string file = CParlune::DataFolder() + "other.acs";
    PutCharacter(file);
    BeginOnPage();
    parlune.Click("cboBrowseChar");
    GiveFile(WaitForFileDialog(parlune.Id(), "Select Agent Character"), file);

    EXPECT_TRUE(agent.Sees("call Characters.Load(\"Bot\", \"C:\\\\parlune\\\\data\\\\other.acs\")"));
    EXPECT_TRUE(Shows("cboChar", "other.acs"));
    parlune.End();
    EXPECT_EQ(registry::Option("LastCharFolder"), CParlune::DataFolder());
    EXPECT_EQ(registry::Option("Character"), file);
}

TEST_F(CharacterPage, Browse_Cancelled_ChangesNothing)
{
    BeginOnPage();
    parlune.Click("cboBrowseChar");
    CancelDialog(WaitForFileDialog(parlune.Id(), "Select Agent Character"));
    ASSERT_TRUE(Answers(parlune.Main()));

    EXPECT_TRUE(agent.LinesWith("call Characters.Load").empty());
}

TEST_F(CharacterPage, CustomSizeTyped_ResizesTheCharacter)
{
    BeginOnPage();
    parlune.Click("chkCustomSize");
    ASSERT_TRUE(Eventually([&] { return IsWindowEnabled(parlune.Control("txtSize(0)")) != FALSE; }));
    agent.Forget();
    hand::Front(parlune.Main());
    hand::Click(parlune.Control("txtSize(0)"));
    hand::Press({VK_CONTROL, 'A'});
    hand::Type("160");
    hand::Press({VK_TAB});
    hand::Type("200");
    hand::Press({VK_TAB});

    EXPECT_TRUE(agent.Sees("put Character[Bot].Width(160)"));
    EXPECT_TRUE(agent.Sees("put Character[Bot].Height(200)"));
    parlune.End();
    EXPECT_EQ(registry::Option("CharWidth"), "160");
    EXPECT_EQ(registry::Option("CharHeight"), "200");
    EXPECT_EQ(registry::Option("CharSize"), "1");
}

TEST_F(CharacterPage, CustomSizeCleared_GivesTheOriginalSizeBack)
{
    registry::PutOption("CharSize", "1");
    registry::PutOption("CharWidth", "300");
    registry::PutOption("CharHeight", "310");
    BeginOnPage();
    EXPECT_TRUE(Shows("txtSize(0)", "300"));
    parlune.Click("chkCustomSize");

    EXPECT_TRUE(Shows("txtSize(0)", "128"));
    EXPECT_TRUE(Shows("txtSize(1)", "128"));
    EXPECT_FALSE(IsWindowEnabled(parlune.Control("txtSize(0)")));
    EXPECT_FALSE(IsWindowEnabled(parlune.Control("chkProportional")));
}

TEST_F(CharacterPage, IdleCleared_StopsTheIdleAnimationsAtOnce)
{
    BeginOnPage();
    parlune.Click("chkIdleOn");

    EXPECT_TRUE(agent.Sees("put Character[Bot].IdleOn(False)"));
}

TEST_F(CharacterPage, SoundEffectsCleared_SilencesThemAtOnce)
{
    BeginOnPage();
    parlune.Click("chkSoundEffectsOn");

    EXPECT_TRUE(agent.Sees("put Character[Bot].SoundEffectsOn(False)"));
}

TEST_F(CharacterPage, SavePositionOnClose_DecidesWhetherTheButtonIsEnabled)
{
    BeginOnPage();
    EXPECT_FALSE(IsWindowEnabled(parlune.Control("cmdSaveCurrentPos")));
    parlune.Click("chkSavePosOnClose");

    EXPECT_TRUE(Eventually([&] { return IsWindowEnabled(parlune.Control("cmdSaveCurrentPos")) != FALSE; }));
}

TEST_F(CharacterPage, SaveCurrentPosition_StoresItAtOnce)
{
    registry::PutOption("SavePosOnClose", "0");
    BeginOnPage();
    parlune.Click("chkSavePosOnClose");
    parlune.Click("chkSavePosOnClose");
    ASSERT_TRUE(Eventually([&] { return IsWindowEnabled(parlune.Control("cmdSaveCurrentPos")) != FALSE; }));
    agent.Tell("set Bot Left 321");
    agent.Tell("set Bot Top 123");
    parlune.Click("cmdSaveCurrentPos");

    EXPECT_TRUE(Eventually([] { return registry::Option("CharTop") == "123"; }));
    EXPECT_EQ(registry::Option("CharLeft"), "321");
}

TEST_F(CharacterPage, StoredPosition_IsWhereTheCharacterGoes)
{
    registry::PutOption("CharLeft", "200");
    registry::PutOption("CharTop", "100");
    Begin();

    EXPECT_TRUE(agent.Sees("call Character[Bot].MoveTo(200, 100"));
}

TEST_F(CharacterPage, AgentOptions_OpensThePropertySheet)
{
    BeginOnPage();
    parlune.Click("cmdCharacterOptions");

    EXPECT_TRUE(agent.Sees("put PropertySheet.Visible(True)"));
}

TEST_F(CharacterPage, CharacterProperties_OpensTheChoiceOfTheDefault)
{
    BeginOnPage();
    parlune.Click("cmdSetDefault");

    EXPECT_TRUE(agent.Sees("call Control.ShowDefaultCharacterProperties"));
}

TEST_F(CharacterPage, ReadAnimation_FramesWhatIsRead)
{
    clipboard::CopyText("The copied text.");
    BeginOnPage();
    agent.DoubleClick(1);
    ASSERT_TRUE(agent.Sees("call Character[Bot].Play(\"ReadReturn\")"));

    EXPECT_TRUE(agent.Saw("call Character[Bot].Play(\"Read\")"));
}

TEST_F(CharacterPage, ReadAnimationCleared_PlaysNothing)
{
    clipboard::CopyText("The copied text.");
    BeginOnPage();
    parlune.Click("chkPlayReadAnimation");
    ASSERT_TRUE(Eventually([&] { return !parlune.IsTicked("chkPlayReadAnimation"); }));
    agent.DoubleClick(1);
    ASSERT_TRUE(agent.Speaks("The copied text."));

    EXPECT_TRUE(agent.LinesWith("call Character[Bot].Play").empty());
}

}
