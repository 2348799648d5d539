#include "settings/Paths.h"
#include "startup/bInit.h"
#include "support/FailEachCall.h"
#include "ui/frmParlune.h"
#include <gtest/gtest.h>

namespace {

using Names = std::vector<std::string>;

constexpr char CharacterFolder[] = "C:\\WINDOWS\\MSAgent\\Chars\\";

void PutCharacters(CHeadlessDesktop& desktop, const Names& files)
{
    settings::Paths().characterFolder = CharacterFolder;
    for (const std::string& file : files)
        desktop.files.PutFile(CharacterFolder + file);
}

Names Listed()
{
    Names names;
    for (std::int32_t index = 0; index < MainWindow().cboChar.Count(); ++index)
        names.push_back(MainWindow().cboChar.Item(index));
    return names;
}

Names ListedOf(const Names& files)
{
    CHeadlessDesktop desktop;
    PutCharacters(desktop, files);
    bInit::InitCharacters();
    return Listed();
}

}

TEST(InitCharacters, InitCharacters_TheFilesFound_FollowTheDefaultCharacterInTheirOrder)
{
    EXPECT_EQ(ListedOf({"robby.acs", "Genie.acs", "merlin.acs"}),
              (Names{"(Default Character)", "Genie", "Merlin", "Robby"}));
}

TEST(InitCharacters, InitCharacters_AnExtensionInCapitals_IsCutOff)
{
    EXPECT_EQ(ListedOf({"Robby.ACS"}), (Names{"(Default Character)", "Robby"}));
}

TEST(InitCharacters, InitCharacters_SeveralExtensions_AreCutAtTheFirst)
{
    EXPECT_EQ(ListedOf({"my.acs.backup.acs"}), (Names{"(Default Character)", "My"}));
}

TEST(InitCharacters, InitCharacters_AFileNamedOnlyByItsExtension_AddsNothing)
{
    EXPECT_EQ(ListedOf({".acs", "Robby.acs"}), (Names{"(Default Character)", "Robby"}));
}

TEST(InitCharacters, InitCharacters_SeveralWords_BeginWithCapitals)
{
    EXPECT_EQ(ListedOf({"MY OLD robot.acs"}), (Names{"(Default Character)", "My Old Robot"}));
}

TEST(InitCharacters, InitCharacters_OtherFiles_AreNotListed)
{
    EXPECT_EQ(ListedOf({"Robby.acs", "readme.txt"}), (Names{"(Default Character)", "Robby"}));
}

TEST(InitCharacters, InitCharacters_OnlyAFileWithoutAName_IsNoReasonForTheMessage)
{
    CHeadlessDesktop desktop;
    PutCharacters(desktop, {".acs"});
    bInit::InitCharacters();
    EXPECT_TRUE(desktop.messageBoxes.shown.empty());
}

TEST(InitCharacters, InitCharacters_NoFile_ShowsTheMessageAndListsTheDefaultCharacter)
{
    CHeadlessDesktop desktop;
    PutCharacters(desktop, {});

    bInit::InitCharacters();

    ASSERT_EQ(desktop.messageBoxes.shown.size(), 1U);
    EXPECT_EQ(desktop.messageBoxes.Last().text, "Parlune is unable to find any .ACS character files in your\r\n"
                                                "C:\\WINDOWS\\MSAgent\\Chars\\ character folder.");
    EXPECT_EQ(desktop.messageBoxes.Last().title, "Parlune");
    EXPECT_EQ(desktop.messageBoxes.Last().icon, platform::BoxIcon::Exclamation);
    EXPECT_EQ(desktop.messageBoxes.Last().buttons, platform::BoxButtons::Ok);
    EXPECT_EQ(Listed(), Names{"(Default Character)"});
}

TEST(InitCharacters, InitCharacters_EachFile_LetsPendingEventsRunOnceMoreAndOnceAtTheEnd)
{
    CHeadlessDesktop desktop;
    PutCharacters(desktop, {"Robby.acs", "Genie.acs"});
    bInit::InitCharacters();
    EXPECT_EQ(desktop.events.Yields(), 5U);  // Two while listing, two while adding, one at the end.
}

TEST(InitCharacters, InitCharacters_WhenACallFails_IsReportedAndTheListIsFilled)
{
    const auto prepare = [](CHeadlessDesktop& desktop) { PutCharacters(desktop, {"Robby.acs", "Genie.acs"}); };
    int yields = 0;
    support::FailEachCall(
        prepare, [](CHeadlessDesktop&) { bInit::InitCharacters(); },
        [&](const support::FailedRun& run) {
            const bool whileListing = run.FailedIn("Files.Match") || ++yields <= 2;
            support::ExpectReport(run, {{"", whileListing ? "bGetFiles:GetFiles" : "bInit:InitCharacters"}});
            EXPECT_EQ(Listed().size(), run.FailedIn("Files.Match") ? 1U : 3U);
        });
}

TEST(InitCharacters, InitCharacters_WhenTheMessageFails_IsReportedAndStartUpGoesOn)
{
    CHeadlessDesktop desktop;
    PutCharacters(desktop, {});
    desktop.journal.FailNext("MessageBoxes.Show", platform::failure::OutOfMemory());

    bInit::InitCharacters();

    EXPECT_EQ(desktop.messageBoxes.Last().Line(1), "Section: bInit:InitCharacters");
    EXPECT_EQ(desktop.events.Yields(), 1U);
}
