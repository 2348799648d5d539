#include "character/CTTSEngines.h"
#include "character/CharacterSession.h"
#include "startup/StartedProgram.h"
#include "startup/bInit.h"
#include "startup/zbFontsCallBack.h"

namespace {

using platform::BoxAnswer;
using platform::CFailure;
using platform::Pointer;

class BalloonFonts : public testing::Test, public StartedProgram {};

TEST_F(BalloonFonts, InitBalloonFonts_FirstTime_ListsTheFamiliesInTheirOrder)
{
    desktop.fonts.faceNames = {"Tahoma", "Arial"};
    bInit::InitBalloonFonts();
    ASSERT_EQ(MainWindow().cboFontName.Count(), 2);
    EXPECT_EQ(MainWindow().cboFontName.Item(0), "Tahoma");
    EXPECT_EQ(MainWindow().cboFontName.Item(1), "Arial");
}

TEST_F(BalloonFonts, InitBalloonFonts_SecondTime_EnumeratesNothing)
{
    desktop.fonts.faceNames = {"Tahoma"};
    bInit::InitBalloonFonts();
    bInit::InitBalloonFonts();
    EXPECT_EQ(desktop.journal.Count("Fonts.EnumerateFamilies"), 1U);
    EXPECT_EQ(MainWindow().cboFontName.Count(), 1);
}

TEST_F(BalloonFonts, InitBalloonFonts_Always_OffersSixteenSizes)
{
    bInit::InitBalloonFonts();
    std::vector<std::string> sizes;
    for (std::int32_t index = 0; index < MainWindow().cboFontSize.Count(); ++index)
        sizes.push_back(MainWindow().cboFontSize.Item(index));
    EXPECT_EQ(sizes, (std::vector<std::string>{"8", "9", "10", "11", "12", "14", "16", "18", "20", "22", "24", "26", "28",
                                               "36", "48", "72"}));
}

TEST_F(BalloonFonts, InitBalloonFonts_Always_ShowsTheHourglassMeanwhile)
{
    bInit::InitBalloonFonts();
    EXPECT_EQ(desktop.screen.pointers, (std::vector<Pointer>{Pointer::Hourglass, Pointer::Default}));
}

TEST_F(BalloonFonts, InitBalloonFonts_EnumerationFails_IsReportedAndTheSizesAreListed)
{
    desktop.journal.FailNext("Fonts.", CFailure(5, "Invalid procedure call or argument"));
    bInit::InitBalloonFonts();
    EXPECT_EQ(desktop.messageBoxes.Last().Line(1), "Section: bInit:InitBalloonFonts");
    EXPECT_EQ(MainWindow().cboFontSize.Count(), 16);
    EXPECT_EQ(desktop.screen.pointers.back(), Pointer::Default);
}

TEST_F(BalloonFonts, EnumFontFamProc_FieldWithNul_CutsThere)
{
    EXPECT_EQ(zbFontsCallBack::EnumFontFamProc(std::string_view("Arial\0rubbish", 13), MainWindow().cboFontName), 1);
    EXPECT_EQ(MainWindow().cboFontName.Item(0), "Arial");
}

TEST_F(BalloonFonts, EnumFontFamProc_FieldOf32BytesWithoutNul_AddsTheWholeName)
{
    zbFontsCallBack::EnumFontFamProc("ABCDEFGHIJKLMNOPQRSTUVWXYZ012345", MainWindow().cboFontName);
    EXPECT_EQ(MainWindow().cboFontName.Item(0), "ABCDEFGHIJKLMNOPQRSTUVWXYZ012345");
}

class Voices : public testing::Test, public StartedProgram {};

TEST_F(Voices, InitTTS_WithVoices_ListsTheirNamesWithTheirIndexes)
{
    desktop.speechEngines.engines = {{"{AA}", "Mary"}, {"BB", "Mike"}};
    bInit::InitTTS();
    ASSERT_EQ(MainWindow().lstTTS.Count(), 2);
    EXPECT_EQ(MainWindow().lstTTS.Item(1), "Mike");
    EXPECT_EQ(MainWindow().lstTTS.ItemData(1), 2);
    EXPECT_EQ(SpeechCatalogue().ModeID(MainWindow().lstTTS.ItemData(1)), "{BB}");
}

TEST_F(Voices, InitTTS_WhileFilling_ShowsProgressBarAndLabel)
{
    desktop.speechEngines.engines = {{"{AA}", "Mary"}};
    bool barSeen = false;
    bool labelSeen = false;
    desktop.events.onYield = [&] {
        barSeen = barSeen || MainWindow().pbrTTSEngines.Visible();
        labelSeen = labelSeen || MainWindow().lblTTSEngines.Visible();
    };
    bInit::InitTTS();
    EXPECT_TRUE(barSeen);
    EXPECT_TRUE(labelSeen);
    EXPECT_FALSE(MainWindow().pbrTTSEngines.Visible());
    EXPECT_FALSE(MainWindow().lblTTSEngines.Visible());
}

TEST_F(Voices, InitTTS_CharacterLoaded_MarksItsVoice)
{
    desktop.engine.character.ttsModeID = "{bb}";
    character::CharLoad("", /*show*/ false);
    desktop.speechEngines.engines = {{"{AA}", "Mary"}, {"{BB}", "Mike"}};
    bInit::InitTTS();
    EXPECT_EQ(MainWindow().lstTTS.Index(), 1);
}

TEST_F(Voices, InitTTS_TheBarOfProgress_EndsAtItsEnd)
{
    desktop.speechEngines.engines = {{"{AA}", "Mary"}, {"{BB}", "Mike"}, {"{CC}", "Sam"}};
    bInit::InitTTS();
    EXPECT_EQ(MainWindow().pbrTTSEngines.Maximum(), 3);
    EXPECT_EQ(MainWindow().pbrTTSEngines.Value(), 3);
}

TEST_F(Voices, InitTTS_NoVoices_TellsOfTheProblem)
{
    bInit::InitTTS();
    ASSERT_EQ(desktop.messageBoxes.shown.size(), 1U);
    EXPECT_EQ(desktop.messageBoxes.Last().text,
              "There appears to be a problem accessing the Text-to-Speech Engines\r\non your computer.\r\n"
              "Please make sure you have installed a TTS engine and the Microsoft Speech Control Panel.");
    EXPECT_EQ(desktop.messageBoxes.Last().title, "Parlune");
}

TEST_F(Voices, InitTTS_EnumerationFails_TellsOfTheProblem)
{
    desktop.speechEngines.engines = {{"{AA}", "Mary"}};
    desktop.journal.FailNext("SpeechEngines.ModeID", CFailure(5, "Invalid procedure call or argument"));
    bInit::InitTTS();
    EXPECT_EQ(desktop.messageBoxes.Last().Line(2), "on your computer.");
    EXPECT_EQ(MainWindow().lstTTS.Count(), 0);
}

TEST_F(Voices, InitTTS_ServiceMissingAnsweredOk_OpensTheSetupPage)
{
    desktop.speechEngines.installed = false;
    desktop.messageBoxes.answers = {BoxAnswer::Ok};
    bInit::InitTTS();
    EXPECT_EQ(desktop.messageBoxes.Last().text, "Parlune requires the Microsoft Speech Control Panel to be installed.\r\n"
                                                "Please, click OK to go to the Parlune Setup page to intall it.");
    ASSERT_EQ(desktop.shell.opened.size(), 1U);
    EXPECT_EQ(desktop.shell.opened[0].file, "https://parlune.example/setup");
}

TEST_F(Voices, InitTTS_ServiceMissingAnsweredCancel_OpensNothing)
{
    desktop.speechEngines.installed = false;
    desktop.messageBoxes.answers = {BoxAnswer::Cancel};
    bInit::InitTTS();
    EXPECT_TRUE(desktop.shell.opened.empty());
}

TEST_F(Voices, InitTTS_UnexpectedFailure_IsReported)
{
    desktop.speechEngines.engines = {{"{AA}", "Mary"}};
    desktop.journal.FailNext("Events.RunPendingEvents", CFailure(5, "Invalid procedure call or argument"));
    bInit::InitTTS();
    EXPECT_EQ(desktop.messageBoxes.Last().Line(1), "Section: bInit:InitTTS");
    EXPECT_EQ(MainWindow().lstTTS.Count(), 1);
}

}
