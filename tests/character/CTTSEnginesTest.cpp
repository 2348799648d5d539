#include "character/CTTSEngines.h"
#include "platform/headless/Desktop.h"

namespace {
CTTSEngines Empty() { return CTTSEngines(CTTSEngines::CEmpty{}); }

// Voices "{1}", "{2}" ... with the names "Voice 1", "Voice 2" ...
CTTSEngines WithVoices(int count)
{
    CTTSEngines engines = Empty();
    for (int voice = 1; voice <= count; ++voice) {
        const std::string number = std::to_string(voice);
        std::string modeID = "{";
        modeID.append(number).append("}");
        engines.AddEngine(4, modeID, std::string("Voice ").append(number), 0x0409);
    }
    return engines;
}
}

TEST(CTTSEngines, Create_ListsTheInstalledVoicesFromOne)
{
    CHeadlessDesktop desktop;
    desktop.speechEngines.engines = {{"{AA}", "Ann", 0x0409}, {"{BB}", "Bea", 0x0407}};
    const CTTSEngines engines;
    EXPECT_EQ(engines.TTSCount(), 2);
    EXPECT_EQ(engines.ModeID(1), "{AA}");
    EXPECT_EQ(engines.ModeName(1), "Ann");
    EXPECT_EQ(engines.LanguageID(1), 1033);
    EXPECT_EQ(engines.ModeID(2), "{BB}");
    EXPECT_EQ(engines.ModeName(2), "Bea");
    EXPECT_EQ(engines.LanguageID(2), 1031);
}

TEST(CTTSEngines, Create_GivesEveryVoiceSpeechInterfaceFour)
{
    CHeadlessDesktop desktop;
    desktop.speechEngines.engines = {{"{AA}", "Ann", 0x0409}};
    EXPECT_EQ(CTTSEngines().SAPIVersion(1), 4);
}

TEST(CTTSEngines, Create_WithoutBracesAroundTheIdentifier_AddsThem)
{
    CHeadlessDesktop desktop;
    desktop.speechEngines.engines = {{"ca141fd0-ac7f-11d1-97a3-006008273000", "Ann", 0x0409}};
    EXPECT_EQ(CTTSEngines().ModeID(1), "{ca141fd0-ac7f-11d1-97a3-006008273000}");
}

TEST(CTTSEngines, Create_WithoutVoices_IsEmpty)
{
    CHeadlessDesktop desktop;
    EXPECT_EQ(CTTSEngines().TTSCount(), 0);
}

TEST(CTTSEngines, Create_WithoutSpeechService_LeavesTheFailureToTheCreator)
{
    CHeadlessDesktop desktop;
    desktop.speechEngines.installed = false;
    EXPECT_THROW(CTTSEngines(), platform::CFailure);
}

TEST(CTTSEngines, Create_WhenAVoiceFails_LeavesTheFailureToTheCreator)
{
    CHeadlessDesktop desktop;
    desktop.speechEngines.engines = {{"{AA}", "Ann", 0x0409}};
    desktop.journal.FailNext("SpeechEngines.ModeName", {13, "Type mismatch"});
    EXPECT_THROW(CTTSEngines(), platform::CFailure);
}

TEST(CTTSEngines, AddEngine_TheFirst_MakesRoomForFifty)
{
    EXPECT_EQ(Empty().Capacity(), 0);
    EXPECT_EQ(WithVoices(1).Capacity(), 50);
}

TEST(CTTSEngines, AddEngine_TheFiftieth_StillFits)
{
    const CTTSEngines engines = WithVoices(50);
    EXPECT_EQ(engines.TTSCount(), 50);
    EXPECT_EQ(engines.Capacity(), 50);
}

TEST(CTTSEngines, AddEngine_TheFiftyFirst_GrowsToAHundredAndKeepsTheOthers)
{
    const CTTSEngines engines = WithVoices(51);
    EXPECT_EQ(engines.TTSCount(), 51);
    EXPECT_EQ(engines.Capacity(), 100);
    EXPECT_EQ(engines.ModeID(1), "{1}");
    EXPECT_EQ(engines.ModeName(50), "Voice 50");
    EXPECT_EQ(engines.ModeID(51), "{51}");
}

TEST(CTTSEngines, FindModeID_OfAStoredIdentifier_GivesItsPlace)
{
    CTTSEngines engines = WithVoices(3);
    engines.FindModeID("{2}");
    EXPECT_EQ(engines.FoundIndex(), 2);
}

TEST(CTTSEngines, FindModeID_OfTwoEqualOnes_GivesTheFirst)
{
    CTTSEngines engines = WithVoices(1);
    engines.AddEngine(4, "{1}", "Again", 0x0409);
    engines.FindModeID("{1}");
    EXPECT_EQ(engines.FoundIndex(), 1);
}

TEST(CTTSEngines, FindModeID_InAnotherLetterCase_Fails)
{
    CTTSEngines engines = Empty();
    engines.AddEngine(4, "{aa}", "Ann", 0x0409);
    engines.FindModeID("{AA}");
    EXPECT_EQ(engines.FoundIndex(), -1);
}

TEST(CTTSEngines, FindModeID_AfterAFailedSearch_IsMinusOne)
{
    CTTSEngines engines = WithVoices(3);
    engines.FindModeID("{2}");
    engines.FindModeID("{9}");
    EXPECT_EQ(engines.FoundIndex(), -1);
}

TEST(CTTSEngines, FindModeID_OfAnEmptyIdentifier_DoesNotFindTheUnusedPlaces)
{
    CTTSEngines engines = WithVoices(1);
    engines.FindModeID("");
    EXPECT_EQ(engines.FoundIndex(), -1);
}

TEST(CTTSEngines, FoundIndex_BeforeAnySearch_IsMinusOne) { EXPECT_EQ(Empty().FoundIndex(), -1); }

TEST(CTTSEngines, ModeID_OutsideTheArray_Fails)
{
    const CTTSEngines engines = WithVoices(1);
    EXPECT_THROW(engines.ModeID(0), platform::CFailure);
    EXPECT_THROW(engines.ModeID(51), platform::CFailure);
    EXPECT_THROW(Empty().ModeID(1), platform::CFailure);
}

TEST(CTTSEngines, SpeechCatalogue_BeforeTheListIsFilled_HasNoVoiceAndAsksNobody)
{
    CHeadlessDesktop desktop;
    desktop.speechEngines.engines = {{"{AA}", "Ann", 0x0409}};
    EXPECT_EQ(SpeechCatalogue().TTSCount(), 0);
    EXPECT_TRUE(desktop.journal.Calls().empty());
}
