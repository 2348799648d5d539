#include "character/CTTSEngines.h"
#include "character/bParlune.h"
#include "support/CharacterProgram.h"

class SpeechModes : public CharacterProgram {
protected:
    void ListVoices(const std::vector<std::string>& modeIDs)
    {
        for (std::int32_t voice = 1; voice <= static_cast<std::int32_t>(modeIDs.size()); ++voice) {
            SpeechCatalogue().AddEngine(4, modeIDs[static_cast<std::size_t>(voice - 1)], "Voice", 0x0409);
            window.lstTTS.Add("Voice", voice);
        }
    }
    void LoadMerlinWithVoice(const std::string& modeID)
    {
        desktop.engine.character.ttsModeID = modeID;
        LoadMerlin();
    }
};

TEST_F(SpeechModes, GetSelectedTTSModeID_WithoutSelection_IsEmpty)
{
    ListVoices({"{AA}"});
    EXPECT_EQ(bParlune::GetSelectedTTSModeID(), "");
}

TEST_F(SpeechModes, GetSelectedTTSModeID_ReadsTheCatalogueAtTheEntrysNumber)
{
    ListVoices({"{AA}", "{BB}"});
    window.lstTTS.Add("Ann again", 1);
    window.lstTTS.SetIndex(2);
    EXPECT_EQ(bParlune::GetSelectedTTSModeID(), "{AA}");
}

TEST_F(SpeechModes, GetSelectedTTSModeID_WithANumberOutsideTheCatalogue_IsReported)
{
    window.lstTTS.Add("Nobody", 7);
    window.lstTTS.SetIndex(0);
    EXPECT_EQ(bParlune::GetSelectedTTSModeID(), "");
    EXPECT_EQ(Reports(), std::vector<std::string>{"bParlune:GetSelectedTTSModeID"});
}

TEST_F(SpeechModes, SetTTSModeID_SelectsTheCharactersVoice)
{
    ListVoices({"{AA}", "{BB}", "{CC}"});
    LoadMerlinWithVoice("{BB}");
    bParlune::SetTTSModeID();
    EXPECT_EQ(window.lstTTS.Index(), 1);
}

TEST_F(SpeechModes, SetTTSModeID_IgnoresBracesAndLetterCase)
{
    ListVoices({"{aa}", "CA141FD0-AC7F"});
    LoadMerlinWithVoice("{ca141fd0-ac7f}");
    bParlune::SetTTSModeID();
    EXPECT_EQ(window.lstTTS.Index(), 1);
}

TEST_F(SpeechModes, SetTTSModeID_OfSeveralMatches_SelectsTheLast)
{
    ListVoices({"{BB}", "{AA}", "{bb}", "{CC}"});
    LoadMerlinWithVoice("{BB}");
    bParlune::SetTTSModeID();
    EXPECT_EQ(window.lstTTS.Index(), 2);
}

TEST_F(SpeechModes, SetTTSModeID_WithoutMatch_SelectsTheFirst)
{
    ListVoices({"{AA}", "{BB}"});
    LoadMerlinWithVoice("{ZZ}");
    bParlune::SetTTSModeID();
    EXPECT_EQ(window.lstTTS.Index(), 0);
}

TEST_F(SpeechModes, SetTTSModeID_WithoutMatch_KeepsAnEarlierSelection)
{
    ListVoices({"{AA}", "{BB}"});
    window.lstTTS.SetIndex(1);
    LoadMerlinWithVoice("{ZZ}");
    bParlune::SetTTSModeID();
    EXPECT_EQ(window.lstTTS.Index(), 1);
}

TEST_F(SpeechModes, SetTTSModeID_WithAnEmptyList_SelectsNothing)
{
    LoadMerlinWithVoice("{AA}");
    bParlune::SetTTSModeID();
    EXPECT_EQ(window.lstTTS.Index(), -1);
    EXPECT_TRUE(Reports().empty());
}

TEST_F(SpeechModes, SetTTSModeID_LetsEventsRunOnceAtTheEnd)
{
    ListVoices({"{AA}", "{BB}"});
    LoadMerlinWithVoice("{BB}");
    desktop.events.AtYield(1, [this] { EXPECT_EQ(window.lstTTS.Index(), 1); });
    bParlune::SetTTSModeID();
    EXPECT_EQ(desktop.journal.Count("Events.RunPendingEvents"), 1U);
}

TEST_F(SpeechModes, SetTTSModeID_WithoutCharacter_IsReported)
{
    bParlune::SetTTSModeID();
    EXPECT_EQ(Reports(), std::vector<std::string>{"bParlune:SetTTSModeID"});
}

TEST_F(SpeechModes, CharSetTTSModeID_GivesTheCharacterTheVoice)
{
    LoadMerlin();
    bParlune::CharSetTTSModeID("{BB}");
    EXPECT_EQ(desktop.engine.loaded->ttsModeID, "{BB}");
}

TEST_F(SpeechModes, CharSetTTSModeID_WhenTheEngineRefuses_IsSilent)
{
    LoadMerlin();
    desktop.journal.FailNext("Character.SetTTSModeID", failure);
    bParlune::CharSetTTSModeID("{BB}");
    EXPECT_TRUE(Reports().empty());
}
