#include "settings/zbProfile.h"
#include "support/FailEachCall.h"
#include <gtest/gtest.h>

namespace {

using zbProfile::GetProfile;
using zbProfile::SetProfile;

constexpr char File[] = "C:\\Data\\Parlune.ini";

void PutFont(CHeadlessDesktop& desktop)
{
    desktop.profile.Put(File, "Robby", "FontName", "Arial");
    desktop.profile.Put(File, "Robby", "FontSize", "12");
}

}

TEST(zbProfile, GetProfile_AValue_IsReturned)
{
    CHeadlessDesktop desktop;
    PutFont(desktop);
    EXPECT_EQ(GetProfile(File, "Robby", "FontName", "x"), "Arial");
}

TEST(zbProfile, GetProfile_AMissingKey_GivesTheDefault)
{
    CHeadlessDesktop desktop;
    PutFont(desktop);
    EXPECT_EQ(GetProfile(File, "Robby", "BalloonStyle", "x"), "x");
}

TEST(zbProfile, GetProfile_AMissingKeyWithAnEmptyDefault_IsEmpty)
{
    CHeadlessDesktop desktop;
    PutFont(desktop);
    EXPECT_EQ(GetProfile(File, "Robby", "BalloonStyle", ""), "");
}

TEST(zbProfile, GetProfile_NoDefault_IsTakenAsEmpty)
{
    CHeadlessDesktop desktop;
    EXPECT_EQ(GetProfile(File, "Robby", "BalloonStyle", std::nullopt), "");
}

TEST(zbProfile, GetProfile_NoKey_GivesTheKeyNamesEachEndedByANul)
{
    CHeadlessDesktop desktop;
    PutFont(desktop);
    EXPECT_EQ(GetProfile(File, "Robby", std::nullopt, ""), std::string("FontName\0FontSize\0", 18));
}

TEST(zbProfile, GetProfile_NoKeyOfAMissingSection_IsEmpty)
{
    CHeadlessDesktop desktop;
    EXPECT_EQ(GetProfile(File, "Robby", std::nullopt, ""), "");
}

TEST(zbProfile, GetProfile_ALongValue_IsCutTo4095Bytes)
{
    CHeadlessDesktop desktop;
    desktop.profile.Put(File, "Robby", "Text", std::string(5000, 'x'));
    EXPECT_EQ(GetProfile(File, "Robby", "Text", ""), std::string(4095, 'x'));
}

TEST(zbProfile, GetProfile_WhenTheStoreRaises_ReportsItselfAndGivesTheDefault)
{
    std::string value;
    support::FailEachCall(
        PutFont, [&](CHeadlessDesktop&) { value = GetProfile(File, "Robby", "FontName", "x"); },
        [&](const support::FailedRun& run) {
            support::ExpectReport(run, {{"", "bProfile:GetProfile"}});
            EXPECT_EQ(value, "x");
        });
}

TEST(zbProfile, SetProfile_AValue_IsWritten)
{
    CHeadlessDesktop desktop;
    EXPECT_TRUE(SetProfile(File, "Robby", "FontName", "Arial"));
    EXPECT_EQ(desktop.profile.Value(File, "Robby", "FontName"), "Arial");
}

TEST(zbProfile, SetProfile_AnEmptyOrNoValue_RemovesTheKey)
{
    for (const zbProfile::OptionalText& value : {zbProfile::OptionalText(""), zbProfile::OptionalText()}) {
        CHeadlessDesktop desktop;
        PutFont(desktop);
        EXPECT_TRUE(SetProfile(File, "Robby", "FontName", value));
        EXPECT_FALSE(desktop.profile.Value(File, "Robby", "FontName").has_value());
        EXPECT_EQ(desktop.profile.Value(File, "Robby", "FontSize"), "12");
    }
}

TEST(zbProfile, SetProfile_AnEmptyOrNoKey_RemovesTheWholeSection)
{
    for (const zbProfile::OptionalText& key : {zbProfile::OptionalText(""), zbProfile::OptionalText()}) {
        CHeadlessDesktop desktop;
        PutFont(desktop);
        EXPECT_TRUE(SetProfile(File, "Robby", key, "ignored"));
        EXPECT_FALSE(desktop.profile.HasSection(File, "Robby"));
    }
}

TEST(zbProfile, SetProfile_TheSection_IsRemovedWithoutAValue)
{
    CHeadlessDesktop desktop;
    SetProfile(File, "Robby", "", "ignored");
    EXPECT_EQ(desktop.journal.Calls(), std::vector<std::string>{"Profile.Write C:\\Data\\Parlune.ini [Robby] *=*"});
}

TEST(zbProfile, SetProfile_ARefusal_IsFalseWithoutAReport)
{
    CHeadlessDesktop desktop;
    desktop.profile.RefuseToWrite(true);
    EXPECT_FALSE(SetProfile(File, "Robby", "FontName", "Arial"));
    EXPECT_TRUE(desktop.messageBoxes.shown.empty());
}

TEST(zbProfile, SetProfile_WhenTheStoreRaises_ReportsItselfAndIsFalse)
{
    bool written = true;
    support::FailEachCall([](CHeadlessDesktop&) {},
                          [&](CHeadlessDesktop&) { written = SetProfile(File, "Robby", "FontName", "Arial"); },
                          [&](const support::FailedRun& run) {
                              support::ExpectReport(run, {{"", "bProfile:SetProfile"}});
                              EXPECT_FALSE(written);
                          });
}
