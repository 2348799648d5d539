#include "common/zbGetFiles.h"
#include "support/FailEachCall.h"
#include <gtest/gtest.h>

namespace {

using Names = std::vector<std::string>;

struct Listing {
    Names names{"left over"};
    std::int32_t count = 99;

    void Fill(const std::string& pattern) { zbGetFiles::GetFiles(pattern, names, count); }
};

void PutThree(CHeadlessDesktop& desktop)
{
    for (const char* name : {"Robby.acs", "Genie.acs", "merlin.ACS", "readme.txt"})
        desktop.files.PutFile(std::string("C:\\Chars\\") + name);
}

}

TEST(zbGetFiles, GetFiles_SeveralMatches_AreSortedWithoutCase)
{
    CHeadlessDesktop desktop;
    PutThree(desktop);
    Listing listing;

    listing.Fill("C:\\Chars\\*.acs");

    EXPECT_EQ(listing.names, (Names{"Genie.acs", "merlin.ACS", "Robby.acs"}));
    EXPECT_EQ(listing.count, 3);
}

TEST(zbGetFiles, GetFiles_OneMatch_IsTheList)
{
    CHeadlessDesktop desktop;
    PutThree(desktop);
    Listing listing;

    listing.Fill("C:\\Chars\\*.txt");

    EXPECT_EQ(listing.names, Names{"readme.txt"});
    EXPECT_EQ(listing.count, 1);
}

TEST(zbGetFiles, GetFiles_NoMatch_LeavesCountZeroAndTheListEmpty)
{
    CHeadlessDesktop desktop;
    PutThree(desktop);
    Listing listing;

    listing.Fill("C:\\Chars\\*.doc");

    EXPECT_TRUE(listing.names.empty());
    EXPECT_EQ(listing.count, 0);
}

TEST(zbGetFiles, GetFiles_AnEmptyPattern_ReturnsAtOnceWithAnEmptyList)
{
    CHeadlessDesktop desktop;
    Listing listing;

    listing.Fill("");

    EXPECT_TRUE(listing.names.empty());
    EXPECT_EQ(listing.count, 0);
    EXPECT_TRUE(desktop.journal.Calls().empty());
}

TEST(zbGetFiles, GetFiles_TheFolderAndItsParent_AreSkippedWithoutAYield)
{
    CHeadlessDesktop desktop;
    desktop.files.PutFile("C:\\Chars\\.");
    desktop.files.PutFile("C:\\Chars\\..");
    desktop.files.PutFile("C:\\Chars\\.hidden");
    Listing listing;

    listing.Fill("C:\\Chars\\*");

    EXPECT_EQ(listing.names, Names{".hidden"});
    EXPECT_EQ(listing.count, 1);
    EXPECT_EQ(desktop.events.Yields(), 1U);
}

TEST(zbGetFiles, GetFiles_EachName_LetsPendingEventsRunBeforeItIsListed)
{
    CHeadlessDesktop desktop;
    PutThree(desktop);
    Listing listing;
    std::vector<std::size_t> listedAtYield;
    desktop.events.onYield = [&] { listedAtYield.push_back(listing.names.size()); };

    listing.Fill("C:\\Chars\\*.acs");

    EXPECT_EQ(listedAtYield, (std::vector<std::size_t>{0, 1, 2}));
}

TEST(zbGetFiles, GetFiles_WhenACallFails_IsReportedAndTheRestIsListed)
{
    Listing listing;
    support::FailEachCall(
        PutThree, [&](CHeadlessDesktop&) { listing.Fill("C:\\Chars\\*.acs"); },
        [&](const support::FailedRun& run) {
            support::ExpectReport(run, {{"", "bGetFiles:GetFiles"}});
            EXPECT_EQ(listing.count, run.FailedIn("Files.Match") ? 0 : 3);
        });
}
