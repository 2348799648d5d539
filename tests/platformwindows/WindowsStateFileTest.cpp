#include "platform/windows/WindowsStateFile.h"
#include "Support.h"

namespace platform::windowsdesktop {
namespace {
using Contents = std::vector<std::string>;

struct StateFile : testing::Test {
    // What a run finds of those before it; it takes them or not.
    static Contents Offered(CWindowsStateFile& run, bool take)
    {
        Contents offered;
        run.TakeOver([&](const std::string& content) {
            offered.push_back(content);
            return take;
        });
        return offered;
    }
    static void Keep(CWindowsStateFile& run, const std::string& content)
    {
        run.Keep(content);
        run.Finish();
    }
    Contents Names() const { return below.Names(); }

    CTemporaryFolder below;
    const std::string folder = below.Path("state\\own");
    std::optional<CWindowsStateFile> first{folder};
};
}

TEST_F(StateFile, Keep_AContent_IsInTheFileInAFolderOfItsOwn)
{
    Keep(*first, "a\0b");
    EXPECT_EQ(below.Read("state\\own\\Options.journal"), "a");
    Keep(*first, std::string("a\0b", 3));
    EXPECT_EQ(below.Read("state\\own\\Options.journal"), std::string("a\0b", 3));
}

TEST_F(StateFile, Keep_WhereNoFolderCanBeMade_IsHarmless)
{
    below.Write("state", "a file");
    Keep(*first, "content");
    first->Remove();
    EXPECT_EQ(below.Read("state"), "a file");
}

TEST_F(StateFile, Keep_Nowhere_IsHarmless)
{
    CWindowsStateFile nowhere{std::string()};
    Keep(nowhere, "content");
    nowhere.Remove();
    EXPECT_TRUE(Offered(nowhere, /*take*/ true).empty());
}

TEST_F(StateFile, Remove_WhileAContentWaits_LeavesNoFile)
{
    first->Keep("content");
    first->Remove();
    EXPECT_EQ(below.Read("state\\own\\Options.journal"), "(no file)");
}

TEST_F(StateFile, TakeOver_WhatARunLeft_IsOfferedAndRemoved)
{
    Keep(*first, "left");
    first.reset();
    CWindowsStateFile next(folder);
    EXPECT_EQ(Offered(next, /*take*/ true), Contents{"left"});
    EXPECT_EQ(below.Read("state\\own\\Options.journal"), "(no file)");
}

TEST_F(StateFile, TakeOver_NotTaken_Stays)
{
    Keep(*first, "left");
    first.reset();
    CWindowsStateFile next(folder);
    EXPECT_EQ(Offered(next, /*take*/ false), Contents{"left"});
    EXPECT_EQ(below.Read("state\\own\\Options.journal"), "left");
}

TEST_F(StateFile, TakeOver_NothingLeft_OffersNothingAndMakesNoFolder)
{
    EXPECT_TRUE(Offered(*first, /*take*/ true).empty());
    EXPECT_TRUE(Names().empty());
}

TEST_F(StateFile, Keep_BesideARunThatGoesOn_HasAFileOfItsOwn)
{
    CWindowsStateFile second(folder);
    Keep(*first, "of the first");
    Keep(second, "of the second");
    EXPECT_EQ(below.Read("state\\own\\Options.journal"), "of the first");
    EXPECT_EQ(below.Read("state\\own\\Options-2.journal"), "of the second");
}

TEST_F(StateFile, TakeOver_OfARunThatGoesOn_OffersNothing)
{
    Keep(*first, "of the first");
    CWindowsStateFile second(folder);
    EXPECT_TRUE(Offered(second, /*take*/ true).empty());
    EXPECT_EQ(below.Read("state\\own\\Options.journal"), "of the first");
}

TEST_F(StateFile, TakeOver_OfTwoRunsThatAreOver_OffersBoth)
{
    {
        CWindowsStateFile second(folder);
        Keep(*first, "of the first");
        Keep(second, "of the second");
    }
    first.reset();
    CWindowsStateFile next(folder);
    EXPECT_EQ(Offered(next, /*take*/ true), (Contents{"of the first", "of the second"}));
    EXPECT_EQ(below.Read("state\\own\\Options-2.journal"), "(no file)");
}

TEST_F(StateFile, TakeOver_AnotherFolder_IsNoneOfOurs)
{
    Keep(*first, "of the first");
    CWindowsStateFile other(below.Path("other"));
    Keep(other, "of the other");
    EXPECT_EQ(below.Read("other\\Options.journal"), "of the other");
}

TEST_F(StateFile, TakeOver_WhatIsNoFile_IsLeftAlone)
{
    below.MakeFolder("state");
    below.MakeFolder("state\\own");
    below.MakeFolder("state\\own\\Options.journal");
    EXPECT_TRUE(Offered(*first, /*take*/ true).empty());
}
}
