#include "windows/standins/Office.h"
#include "driver/Companion.h"
#include "windows/standins/Commands.h"

// Word and Excel, running and not.
using namespace driver;

namespace {

class Office : public CCompanion {
protected:
    void SetUp() override
    {
        CCompanion::SetUp();
        standins::RegisterOffice();
    }
    void TearDown() override
    {
        m_office.Kill();
        CCompanion::TearDown();
        standins::UnregisterOffice();
    }
    void StartOffice(const std::string& command)
    {
        m_office.Start(ProgramFolder() + "office.exe", ProgramFolder());
        ASSERT_TRUE(standins::WaitForStandIn(PatienceMilliseconds, "office"));
        Tell(command);
    }
    void Tell(const std::string& command) { ASSERT_TRUE(standins::SendCommand(command, "office")); }
    void BeginAndRead(const std::string& menuEntry)
    {
        Begin();
        agent.Forget();
        parlune.Choose(menuEntry);
    }

private:
    CProcess m_office;
};

TEST_F(Office, WordDocument_WordNotRunning_SpeaksThat)
{
    BeginAndRead("mnuPopReadWordDocument");

    EXPECT_TRUE(agent.Speaks("Microsoft Word is not currently open."));
}

TEST_F(Office, WordSelection_WordNotRunning_SpeaksThat)
{
    BeginAndRead("mnuPopReadWordSelection");

    EXPECT_TRUE(agent.Speaks("Microsoft Word is not currently open."));
}

TEST_F(Office, ExcelSelection_ExcelNotRunning_SpeaksThat)
{
    BeginAndRead("mnuPopReadExcelSelection");

    EXPECT_TRUE(agent.Speaks("Microsoft Excel is not currently open."));
}

TEST_F(Office, WordDocument_IsReadParagraphByParagraph)
{
    StartOffice("word here");
    Tell("word document \"First.\\rSecond \xE2\x80\x9Cquoted\xE2\x80\x9D.\\r\\r\"");
    BeginAndRead("mnuPopReadWordDocument");

    EXPECT_TRUE(agent.Speaks("Second \"quoted\"."));
    EXPECT_EQ(agent.Spoken().front(), "First.");
}

TEST_F(Office, WordSelection_IsRead)
{
    StartOffice("word here");
    Tell("word selection \"The chosen words\"");
    BeginAndRead("mnuPopReadWordSelection");

    EXPECT_TRUE(agent.Speaks("The chosen words"));
}

TEST_F(Office, WordSelection_OfOneCharacter_ReadsNothing)
{
    StartOffice("word here");
    Tell("word selection x");
    BeginAndRead("mnuPopReadWordSelection");
    agent.Click(1, 1);
    ASSERT_TRUE(agent.Sees("call Character[Bot].Play(\"RestPose\")"));

    EXPECT_TRUE(agent.Spoken().empty());
}

TEST_F(Office, ExcelSelection_IsReadColumnByColumn)
{
    StartOffice("excel here");
    Tell("excel size 2 2");
    Tell("excel cell 1 1 text Apples");
    Tell("excel cell 2 1 number 12.5");
    Tell("excel cell 1 2 truth 1");
    Tell("excel cell 2 2 short 7");
    BeginAndRead("mnuPopReadExcelSelection");

    EXPECT_TRUE(agent.Speaks("7"));
    EXPECT_EQ(agent.Spoken(), (std::vector<std::string>{"Apples", "12.5", "True", "7"}));
}

TEST_F(Office, ExcelSelection_OfAText_SpeaksThatItIsNotOpen)
{
    StartOffice("excel here");
    Tell("excel selection text");
    BeginAndRead("mnuPopReadExcelSelection");

    EXPECT_TRUE(agent.Speaks("Microsoft Excel is not currently open."));
}

TEST_F(Office, WordGone_AfterItWasRead_SpeaksThatItIsNotOpen)
{
    StartOffice("word here");
    Tell("word selection \"The chosen words\"");
    BeginAndRead("mnuPopReadWordSelection");
    ASSERT_TRUE(agent.Speaks("The chosen words"));
    Tell("word gone");
    parlune.Choose("mnuPopReadWordSelection");

    EXPECT_TRUE(agent.Speaks("Microsoft Word is not currently open."));
}

}
