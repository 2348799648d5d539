#include "common/bGlobal.h"
#include "support/FailEachCall.h"
#include <gtest/gtest.h>

namespace {

constexpr auto Nothing = [](CHeadlessDesktop&) {};

}

TEST(bGlobal, AddSlash_AnEmptyPath_StaysEmpty)
{
    CHeadlessDesktop desktop;
    EXPECT_EQ(bGlobal::AddSlash(""), "");
}

TEST(bGlobal, AddSlash_APathWithASeparatorAtItsEnd_StaysAsItIs)
{
    CHeadlessDesktop desktop;
    EXPECT_EQ(bGlobal::AddSlash("C:\\"), "C:\\");
}

TEST(bGlobal, AddSlash_AnyOtherPath_GetsASeparator)
{
    CHeadlessDesktop desktop;
    EXPECT_EQ(bGlobal::AddSlash("C:\\Temp"), "C:\\Temp\\");
}

TEST(bGlobal, ProperCase_EveryWord_BeginsWithACapital)
{
    CHeadlessDesktop desktop;
    EXPECT_EQ(bGlobal::ProperCase("my oLD ROBOT"), "My Old Robot");
}

TEST(bGlobal, ProperCase_TabsLineEndsAndNuls_BeginWords)
{
    CHeadlessDesktop desktop;
    EXPECT_EQ(bGlobal::ProperCase(std::string("a\tb\rc\nd\0e\vf\fg", 13)), std::string("A\tB\rC\nD\0E\vF\fG", 13));
}

TEST(bGlobal, ProperCase_PointsDigitsAndHyphens_BeginNoWord)
{
    CHeadlessDesktop desktop;
    EXPECT_EQ(bGlobal::ProperCase("MY.ROBOT-2B o'NEIL"), "My.robot-2b O'neil");
}

TEST(bGlobal, ProperCase_LettersOutsideAscii_AreMappedToo)
{
    CHeadlessDesktop desktop;
    EXPECT_EQ(bGlobal::ProperCase("éMILE ÄRGER жУК"), "Émile Ärger Жук");
}

TEST(bGlobal, ProperCase_AnEmptyText_StaysEmpty)
{
    CHeadlessDesktop desktop;
    EXPECT_EQ(bGlobal::ProperCase(""), "");
}

TEST(bGlobal, Quote_AText_StandsBetweenDoubleQuotes)
{
    CHeadlessDesktop desktop;
    EXPECT_EQ(bGlobal::Quote("a b"), "\x22"
                                     "a b\x22");
}

TEST(bGlobal, Quote_AnEmptyText_GivesTwoQuotes)
{
    CHeadlessDesktop desktop;
    EXPECT_EQ(bGlobal::Quote(""), "\"\"");
}

TEST(bGlobal, ScreenWidth_InPixels_IsUnitsDividedByUnitsPerPixel)
{
    CHeadlessDesktop desktop;
    desktop.screen.width = 1280;
    desktop.screen.height = 800;
    EXPECT_EQ(bGlobal::ScreenWidth(), 1280);
    EXPECT_EQ(bGlobal::ScreenHeight(), 800);
}

namespace {

// A screen whose size is no whole number of pixels, or that names no units.
class COddScreen final : public platform::IScreen {
public:
    explicit COddScreen(std::int32_t unitsPerPixel) : m_unitsPerPixel(unitsPerPixel) {}
    std::int32_t WidthInUnits() const override { return 1039; }
    std::int32_t HeightInUnits() const override { return 779; }
    std::int32_t UnitsPerPixelX() const override { return m_unitsPerPixel; }
    std::int32_t UnitsPerPixelY() const override { return m_unitsPerPixel; }
    void SetPointer(platform::Pointer) override {}

private:
    std::int32_t m_unitsPerPixel;
};

// The platform in use, with another screen.
platform::CPlatform WithScreen(platform::IScreen& screen)
{
    const platform::CPlatform& now = platform::Current();
    return {now.characterEngines, now.clipboard, now.clock,   now.environment,   now.events,
            now.fileDialogs,      now.files,     now.fonts,   now.keptTexts,     now.locale,
            now.messageBoxes,     now.office,    now.profile, now.program,       now.random,
            now.registry,         screen,        now.shell,   now.speechEngines, now.stateFile,
            now.trayIcon};
}

}

TEST(bGlobal, ScreenWidth_APartOfAPixel_IsDropped)
{
    CHeadlessDesktop desktop;
    COddScreen screen(15);
    const platform::CPlatform platform = WithScreen(screen);
    const platform::CPlatformInUse inUse(platform);

    EXPECT_EQ(bGlobal::ScreenWidth(), 69);
    EXPECT_EQ(bGlobal::ScreenHeight(), 51);
}

TEST(bGlobal, ScreenWidth_WithoutUnits_IsReportedAndZero)
{
    CHeadlessDesktop desktop;
    COddScreen screen(0);
    const platform::CPlatform platform = WithScreen(screen);
    const platform::CPlatformInUse inUse(platform);

    EXPECT_EQ(bGlobal::ScreenWidth(), 0);
    EXPECT_EQ(desktop.messageBoxes.Last().Line(1), "Section: bGlobal:ScreenWidth");
    EXPECT_EQ(desktop.messageBoxes.Last().Line(3), "Error Code: 11");
}

TEST(bGlobal, ScreenWidth_WhenTheScreenFails_IsReportedAndZero)
{
    std::int32_t width = -1;
    support::FailEachCall(
        Nothing, [&](CHeadlessDesktop&) { width = bGlobal::ScreenWidth(); },
        [&](const support::FailedRun& run) {
            support::ExpectReport(run, {{"", "bGlobal:ScreenWidth"}});
            EXPECT_EQ(width, 0);
        });
}

TEST(bGlobal, ScreenHeight_WhenTheScreenFails_IsReported)
{
    support::FailEachCallAndExpect({{"", "bGlobal:ScreenHeight"}}, Nothing,
                                   [](CHeadlessDesktop&) { bGlobal::ScreenHeight(); });
}

TEST(bGlobal, RandRange_OneNumber_IsAlwaysThatNumber)
{
    CHeadlessDesktop desktop;
    desktop.random.fractions = {0.3, 0.0, 0.3, 0.999999};
    EXPECT_EQ(bGlobal::RandRange(1, 1), 1);
    EXPECT_EQ(bGlobal::RandRange(1, 1), 1);
}

TEST(bGlobal, RandRange_TheSmallestFraction_GivesTheLowBound)
{
    CHeadlessDesktop desktop;
    desktop.random.fractions = {0.5, 0.0};
    EXPECT_EQ(bGlobal::RandRange(0, 9), 0);
}

TEST(bGlobal, RandRange_TheLargestFraction_GivesTheHighBound)
{
    CHeadlessDesktop desktop;
    desktop.random.fractions = {0.5, 0.9999999};
    EXPECT_EQ(bGlobal::RandRange(0, 9), 9);
}

TEST(bGlobal, RandRange_NegativeBounds_AreReachedAndNotExceeded)
{
    CHeadlessDesktop desktop;
    desktop.random.fractions = {0.5, 0.0, 0.5, 0.1, 0.5, 0.9999999};
    EXPECT_EQ(bGlobal::RandRange(-5, -1), -5);
    EXPECT_EQ(bGlobal::RandRange(-5, -1), -5);
    EXPECT_EQ(bGlobal::RandRange(-5, -1), -1);
}

TEST(bGlobal, RandRange_TheWholeRange_DoesNotOverflow)
{
    CHeadlessDesktop desktop;
    desktop.random.fractions = {0.5, 0.9999999};
    EXPECT_EQ(bGlobal::RandRange(-32768, 32767), 32767);
    EXPECT_TRUE(desktop.messageBoxes.shown.empty());
}

TEST(bGlobal, RandRange_HighBelowLow_IsNotGuarded)
{
    CHeadlessDesktop desktop;
    desktop.random.fractions = {0.5, 0.5};
    EXPECT_EQ(bGlobal::RandRange(9, 0), 5);
}

TEST(bGlobal, RandRange_BeforeDrawing_SeedsWithTheSecondsOfTheDayTimesARandomNumber)
{
    CHeadlessDesktop desktop;
    desktop.clock.Set(2026, 11, 15, 14, 5, 9);
    desktop.random.fractions = {0.5, 0.0};

    bGlobal::RandRange(0, 4);

    EXPECT_EQ(desktop.random.seeds, std::vector<double>{25354.5});
}

TEST(bGlobal, RandRange_WhenACallFails_IsReported)
{
    support::FailEachCallAndExpect({{"", "bGlobal:RandRange"}}, Nothing,
                                   [](CHeadlessDesktop&) { bGlobal::RandRange(0, 9); });
}

TEST(bGlobal, RandRange_WhenSeedingFails_StillDraws)
{
    CHeadlessDesktop desktop;
    desktop.journal.FailNext("Clock.Now", platform::failure::DeviceError());

    EXPECT_EQ(bGlobal::RandRange(3, 3), 3);
}

TEST(bGlobal, RandRange_WhenTheDrawFails_IsZero)
{
    CHeadlessDesktop desktop;
    desktop.journal.FailNext("Random.Next", platform::failure::DeviceError(), /*passes*/ 1);

    EXPECT_EQ(bGlobal::RandRange(3, 3), 0);
}
