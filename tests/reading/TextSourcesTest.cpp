#include "reading/bRead.h"
#include "support/CharacterProgram.h"

using settings::Options;
using Texts = std::vector<std::string>;

class ReadTextFile : public CharacterProgram {
protected:
    ReadTextFile()
    {
        LoadMerlin();
        window.chkPlayReadAnimation.SetValue(0);
        desktop.files.PutFile("C:\\Texts\\a.txt", "Hello");
    }
};

TEST_F(ReadTextFile, OfAPath_ReadsThatFileWithoutAsking)
{
    bRead::ReadTextFile("C:\\Texts\\a.txt");
    EXPECT_EQ(desktop.engine.Spoken(), Texts{"Hello"});
    EXPECT_TRUE(desktop.fileDialogs.asked.empty());
}

TEST_F(ReadTextFile, OfAPath_RemembersItsFolder)
{
    bRead::ReadTextFile("C:\\Texts\\a.txt");
    EXPECT_EQ(Options().LastFolder, "C:\\Texts\\");
}

TEST_F(ReadTextFile, WithoutPath_AsksForATextFile)
{
    Options().LastFolder = "C:\\Books\\";
    bRead::ReadTextFile("");
    ASSERT_EQ(desktop.fileDialogs.asked.size(), 1U);
    const platform::FileDialog& asked = desktop.fileDialogs.asked[0];
    EXPECT_EQ(asked.mode, platform::FileDialog::Mode::Open);
    EXPECT_EQ(asked.filter, std::string("Text Documents (*.txt)\0*.txt\0All Files\0*.*", 42));
    EXPECT_EQ(asked.filterIndex, 2);
    EXPECT_EQ(asked.initialFolder, "C:\\Books\\");
    EXPECT_EQ(asked.initialFile, "");
    EXPECT_EQ(asked.defaultExtension, "TXT");
    EXPECT_EQ(asked.title, "Read Text File");
}

TEST_F(ReadTextFile, WithoutPath_ReadsTheChosenFileAndRemembersItsFolder)
{
    desktop.fileDialogs.answers = {"C:\\Texts\\a.txt"};
    bRead::ReadTextFile("");
    EXPECT_EQ(desktop.engine.Spoken(), Texts{"Hello"});
    EXPECT_EQ(Options().LastFolder, "C:\\Texts\\");
}

TEST_F(ReadTextFile, TheFirstTime_StartsInTheCurrentFolder)
{
    bRead::ReadTextFile("");
    EXPECT_EQ(desktop.fileDialogs.asked.at(0).initialFolder, "C:\\Users\\Ann\\Documents");
}

TEST_F(ReadTextFile, Cancelled_KeepsTheLastFolder)
{
    Options().LastFolder = "C:\\Books\\";
    bRead::ReadTextFile("");
    EXPECT_EQ(Options().LastFolder, "C:\\Books\\");
    EXPECT_TRUE(desktop.engine.Spoken().empty());
}

TEST_F(ReadTextFile, CancelledTheFirstTime_LeavesTheCurrentFolder)
{
    bRead::ReadTextFile("");
    EXPECT_EQ(Options().LastFolder, "C:\\Users\\Ann\\Documents");
}

TEST_F(ReadTextFile, LetsEventsRunBetweenFileAndSpeech)
{
    desktop.events.AtYield(1, [this] { EXPECT_TRUE(desktop.engine.Spoken().empty()); });
    bRead::ReadTextFile("C:\\Texts\\a.txt");
    EXPECT_EQ(desktop.journal.Calls(),
              (Texts{"Files.ReadText C:\\Texts\\a.txt", "Events.RunPendingEvents", "Character.Speak Hello | -"}));
}

TEST_F(ReadTextFile, OfAnEmptyFile_ReadsNothing)
{
    window.chkPlayReadAnimation.SetValue(1);
    desktop.files.PutFile("C:\\Texts\\empty.txt", "");
    bRead::ReadTextFile("C:\\Texts\\empty.txt");
    EXPECT_EQ(desktop.journal.Count("Character."), 0U);
}

TEST_F(ReadTextFile, OfAMissingFile_IsReportedAndReadsNothing)
{
    bRead::ReadTextFile("C:\\Elsewhere\\b.txt");
    EXPECT_EQ(Reports(), Texts{"bReadTextFile:ReadTextFile"});
    EXPECT_EQ(desktop.messageBoxes.Last().Line(3), "Error Code: 53");
    EXPECT_EQ(desktop.journal.Count("Character."), 0U);
}

TEST_F(ReadTextFile, OfAMissingFile_HasAlreadyRememberedTheFolder)
{
    bRead::ReadTextFile("C:\\Elsewhere\\b.txt");
    EXPECT_EQ(Options().LastFolder, "C:\\Elsewhere\\");
}

class ReadWord : public CharacterProgram {
protected:
    void Open(const std::string& document, const std::string& selection = "")
    {
        desktop.office.word = {document, selection};
    }
};

TEST_F(ReadWord, Document_WithoutWord_IsTheSentenceThatSaysSo)
{
    EXPECT_EQ(bRead::ReadWordDocument(), "Microsoft Word is not currently open.");
}

TEST_F(ReadWord, Document_WhenAttachingFails_IsTheSentenceToo)
{
    Open("Hello");
    desktop.journal.FailNext("Office.RunningWord", failure);
    EXPECT_EQ(bRead::ReadWordDocument(), "Microsoft Word is not currently open.");
    EXPECT_TRUE(Reports().empty());
}

TEST_F(ReadWord, Document_WithCarriageReturnsOnly_HasOneLinePerParagraph)
{
    Open("First\rSecond\rThird");
    EXPECT_EQ(bRead::ReadWordDocument(), "First\r\nSecond\r\nThird");
}

TEST_F(ReadWord, Document_WithEmptyParagraphsAtItsEnd_LosesThem)
{
    Open("First\r\rSecond\r\r\r");
    EXPECT_EQ(bRead::ReadWordDocument(), "First\r\n\r\nSecond");
}

TEST_F(ReadWord, Document_OfEmptyParagraphsOnly_IsEmpty)
{
    Open("\r\r");
    EXPECT_EQ(bRead::ReadWordDocument(), "");
}

TEST_F(ReadWord, Document_WithACompleteLineBreakAnywhere_KeepsItsCarriageReturns)
{
    Open("First\rSecond\r\nThird\r\n");
    EXPECT_EQ(bRead::ReadWordDocument(), "First\rSecond\r\nThird");
}

TEST_F(ReadWord, Document_WithTypographicQuotationMarks_GetsPlainOnes)
{
    Open("\xE2\x80\x9CHello\xE2\x80\x9D, \xE2\x80\x98"
         "she\xE2\x80\x99 said");
    EXPECT_EQ(bRead::ReadWordDocument(), "\"Hello\", \xE2\x80\x98"
                                         "she\xE2\x80\x99 said");
}

TEST_F(ReadWord, Document_OfOneCharacter_IsRead)
{
    Open("A");
    EXPECT_EQ(bRead::ReadWordDocument(), "A");
}

TEST_F(ReadWord, Document_ThatCannotBeRead_IsQuietlyEmpty)
{
    Open("Hello");
    desktop.journal.FailNext("Word.DocumentText", failure);
    EXPECT_EQ(bRead::ReadWordDocument(), "");
    EXPECT_TRUE(Reports().empty());
}

TEST_F(ReadWord, Selection_WithoutWord_IsTheSentenceThatSaysSo)
{
    EXPECT_EQ(bRead::ReadWordSelection(), "Microsoft Word is not currently open.");
}

TEST_F(ReadWord, Selection_IsCleanedLikeADocument)
{
    Open("", "\xE2\x80\x9C"
             "First\xE2\x80\x9D\rSecond\r");
    EXPECT_EQ(bRead::ReadWordSelection(), "\"First\"\r\nSecond");
}

TEST_F(ReadWord, Selection_OfOneCharacter_IsEmpty)
{
    Open("", "A");
    EXPECT_EQ(bRead::ReadWordSelection(), "");
}

TEST_F(ReadWord, Selection_OfOneCharacterOfSeveralBytes_IsEmpty)
{
    Open("", "\xE2\x80\x9C");
    EXPECT_EQ(bRead::ReadWordSelection(), "");
}

TEST_F(ReadWord, Selection_OfTwoCharacters_IsRead)
{
    Open("", "AB");
    EXPECT_EQ(bRead::ReadWordSelection(), "AB");
}

TEST_F(ReadWord, Selection_ThatCannotBeRead_IsQuietlyEmpty)
{
    Open("", "Hello");
    desktop.journal.FailNext("Word.SelectionText", failure);
    EXPECT_EQ(bRead::ReadWordSelection(), "");
    EXPECT_TRUE(Reports().empty());
}

class ReadExcel : public CharacterProgram {
protected:
    void Select(std::vector<Texts> rows) { desktop.office.excel = {true, std::move(rows)}; }
};

TEST_F(ReadExcel, Selection_WithoutExcel_IsTheSentenceThatSaysSo)
{
    EXPECT_EQ(bRead::ReadExcelSelection(), "Microsoft Excel is not currently open.");
}

TEST_F(ReadExcel, Selection_WhenAttachingFails_IsTheSentenceToo)
{
    Select({{"A1"}});
    desktop.journal.FailNext("Office.RunningExcel", failure);
    EXPECT_EQ(bRead::ReadExcelSelection(), "Microsoft Excel is not currently open.");
}

TEST_F(ReadExcel, Selection_ThatIsNoObject_IsTheSentenceToo)
{
    desktop.office.excel = {false, {}};
    EXPECT_EQ(bRead::ReadExcelSelection(), "Microsoft Excel is not currently open.");
}

TEST_F(ReadExcel, Selection_OfTwoColumns_IsReadDownTheFirstThenDownTheSecond)
{
    Select({{"A1", "B1"}, {"A2", "B2"}, {"A3", "B3"}});
    EXPECT_EQ(bRead::ReadExcelSelection(), "A1\r\nA2\r\nA3\r\nB1\r\nB2\r\nB3");
}

TEST_F(ReadExcel, Selection_WithEmptyCells_KeepsThoseInTheMiddleOnly)
{
    Select({{"A1"}, {""}, {"A3"}, {""}, {""}});
    EXPECT_EQ(bRead::ReadExcelSelection(), "A1\r\n\r\nA3");
}

TEST_F(ReadExcel, Selection_OfEmptyCellsOnly_IsEmpty)
{
    Select({{""}, {""}});
    EXPECT_EQ(bRead::ReadExcelSelection(), "");
}

TEST_F(ReadExcel, Selection_KeepsTypographicQuotationMarks)
{
    Select({{"\xE2\x80\x9CHello\xE2\x80\x9D"}});
    EXPECT_EQ(bRead::ReadExcelSelection(), "\xE2\x80\x9CHello\xE2\x80\x9D");
}

TEST_F(ReadExcel, Selection_WhenACellFails_IsQuietlyTheTextSoFar)
{
    Select({{"A1"}, {"A2"}, {"A3"}});
    desktop.journal.FailNext("Excel.CellText 3 1", failure);
    EXPECT_EQ(bRead::ReadExcelSelection(), "A1\r\nA2");
    EXPECT_TRUE(Reports().empty());
}

TEST_F(ReadExcel, Selection_WhenItCannotBeTaken_IsQuietlyEmpty)
{
    Select({{"A1"}});
    desktop.journal.FailNext("Excel.Selection", failure);
    EXPECT_EQ(bRead::ReadExcelSelection(), "");
    EXPECT_TRUE(Reports().empty());
}
