#include "engine/balloon/BalloonPlace.h"
#include "engine/balloon/BalloonStyle.h"
#include "engine/balloon/LineBreaker.h"
#include "engine/hosts/headless/HeadlessHost.h"
#include <gtest/gtest.h>

using engine::BalloonPlace;
using engine::BalloonStyle;
using engine::ParseBalloonStyle;
using engine::Rect;

namespace {

std::int32_t Word(std::uint32_t bits) { return static_cast<std::int32_t>(bits); }

// The lines of a text in a balloon of so many characters, joined by "/".
std::string Broken(const std::string& text, std::int32_t characters)
{
    const engine::CFixedTextMeasure measure;
    engine::CLineBreaker breaker(measure, {}, characters * 8, text);
    std::string lines;
    for (engine::TextLine line; breaker.Next(line);) {
        if (!lines.empty())
            lines += '/';
        lines.append(text, line.begin, line.end - line.begin);
    }
    return lines;
}

constexpr Rect Screen{0, 0, 1024, 768};

}

TEST(ParseBalloonStyle, OnAndAutoPaceWith32CharactersAnd2Lines_IsTakenApart)
{
    EXPECT_EQ(ParseBalloonStyle(0x02200009), (BalloonStyle{true, false, false, true, 32, 2}));
}

TEST(ParseBalloonStyle, SevenCharacters_IsRefused) { EXPECT_EQ(ParseBalloonStyle(0x02070001), std::nullopt); }
TEST(ParseBalloonStyle, EightCharacters_IsAccepted) { EXPECT_EQ(ParseBalloonStyle(0x02080001)->charsPerLine, 8); }
TEST(ParseBalloonStyle, MostCharacters_IsAccepted) { EXPECT_EQ(ParseBalloonStyle(0x02FF0001)->charsPerLine, 255); }
TEST(ParseBalloonStyle, NoLines_IsRefused) { EXPECT_EQ(ParseBalloonStyle(0x00200001), std::nullopt); }
TEST(ParseBalloonStyle, MostLines_IsAccepted) { EXPECT_EQ(ParseBalloonStyle(Word(0x80200001u))->lines, 128); }
TEST(ParseBalloonStyle, OneLineMore_IsRefused) { EXPECT_EQ(ParseBalloonStyle(Word(0x81200001u)), std::nullopt); }
TEST(ParseBalloonStyle, FlagsAlone_IsRefused) { EXPECT_EQ(ParseBalloonStyle(7), std::nullopt); }
TEST(ParseBalloonStyle, BitsBetween_AreIgnored) { EXPECT_EQ(ParseBalloonStyle(0x0220FFF9), ParseBalloonStyle(0x02200009)); }

TEST(BalloonStyleWord, OfAParsedWord_IsThatWord)
{
    EXPECT_EQ(engine::BalloonStyleWord(*ParseBalloonStyle(0x0A280006)), 0x0A280006);
}

TEST(BalloonStyleWord, Of128Lines_IsNegative)
{
    EXPECT_EQ(engine::BalloonStyleWord({true, false, false, false, 32, 128}), Word(0x80200001u));
}

TEST(LineBreaker, TextThatFits_IsOneLine) { EXPECT_EQ(Broken("one two", 10), "one two"); }
TEST(LineBreaker, TextThatDoesNotFit_BreaksAtTheBlank) { EXPECT_EQ(Broken("one two three", 8), "one two/three"); }
TEST(LineBreaker, AWordThatFillsALine_StandsAlone) { EXPECT_EQ(Broken("abcdefgh ij", 8), "abcdefgh/ij"); }
TEST(LineBreaker, ATooLongWord_IsCut) { EXPECT_EQ(Broken("abcdefghijklmnopqrs", 8), "abcdefgh/ijklmnop/qrs"); }
TEST(LineBreaker, ATooLongWordAfterAnother_BeginsANewLine) { EXPECT_EQ(Broken("ab cdefghijklmn", 8), "ab/cdefghij/klmn"); }
TEST(LineBreaker, BlanksAtTheEnds_AreLeftOut) { EXPECT_EQ(Broken("  one   two  ", 20), "one   two"); }
TEST(LineBreaker, LineEnds_AreWhiteSpace) { EXPECT_EQ(Broken("one\r\ntwo", 5), "one/two"); }
TEST(LineBreaker, OnlyBlanks_GiveNoLine) { EXPECT_EQ(Broken("   ", 8), ""); }

TEST(LineBreaker, AZeroWidthSpace_IsAPlaceToBreak)
{
    EXPECT_EQ(Broken("abcdef\xE2\x80\x8Bghijkl", 8), "abcdef\xE2\x80\x8B/ghijkl");
}

TEST(LineBreaker, MultiByteCharacters_AreNeverCutApart)
{
    EXPECT_EQ(Broken("\xC3\xA4\xC3\xB6\xC3\xBC\xC3\x9F", 2), "\xC3\xA4\xC3\xB6/\xC3\xBC\xC3\x9F");
}

TEST(LineBreaker, ALineNarrowerThanACharacter_HoldsOne) { EXPECT_EQ(Broken("abc", 0), "a/b/c"); }

TEST(LineBreaker, AMegabyteWithoutABlank_MeasuresLinearly)
{
    const std::string text(1'000'000, 'x');
    const engine::CFixedTextMeasure measure;
    engine::CLineBreaker breaker(measure, {}, 32 * 8, text);
    std::size_t lines = 0;
    for (engine::TextLine line; breaker.Next(line);)
        ++lines;
    EXPECT_EQ(lines, 31250u);
    EXPECT_LT(measure.Measured(), 100'000'000u);
}

TEST(PlaceBalloon, WithRoomAbove_StandsCentredAboveTheHead)
{
    const BalloonPlace place = engine::PlaceBalloon({400, 400, 100, 100}, {200, 50}, Screen);
    EXPECT_EQ(place.window, (Rect{350, 336, 200, 64}));
    EXPECT_EQ(place.body, (Rect{0, 0, 200, 50}));
    EXPECT_EQ(place.tail, (engine::Point{100, 63}));
}

TEST(PlaceBalloon, WithoutRoomAbove_StandsBelow)
{
    const BalloonPlace place = engine::PlaceBalloon({400, 10, 100, 100}, {200, 50}, Screen);
    EXPECT_EQ(place.window, (Rect{350, 110, 200, 64}));
    EXPECT_EQ(place.body, (Rect{0, 14, 200, 50}));
    EXPECT_EQ(place.tail, (engine::Point{100, 0}));
}

TEST(PlaceBalloon, AtTheLeftEdge_StaysInsideWithItsTailToTheHead)
{
    const BalloonPlace place = engine::PlaceBalloon({-20, 400, 100, 100}, {200, 50}, Screen);
    EXPECT_EQ(place.window.left, 0);
    EXPECT_EQ(place.tail.x, 30);
}

TEST(PlaceBalloon, AtTheRightEdge_StaysInside)
{
    const BalloonPlace place = engine::PlaceBalloon({1000, 400, 100, 100}, {200, 50}, Screen);
    EXPECT_EQ(place.window.left, 824);
    EXPECT_EQ(place.tail.x, 184);
}

TEST(PlaceBalloon, WithoutRoomAboveAndBelow_StandsOnTheLeft)
{
    const BalloonPlace place = engine::PlaceBalloon({400, 40, 100, 690}, {200, 60}, Screen);
    EXPECT_EQ(place.window, (Rect{186, 182, 214, 60}));
    EXPECT_EQ(place.body, (Rect{0, 0, 200, 60}));
    EXPECT_EQ(place.tail, (engine::Point{213, 30}));
}

TEST(PlaceBalloon, WithRoomOnTheRightOnly_StandsThere)
{
    const BalloonPlace place = engine::PlaceBalloon({10, 40, 100, 690}, {200, 60}, Screen);
    EXPECT_EQ(place.window.left, 110);
    EXPECT_EQ(place.tail.x, 0);
}

TEST(PlaceBalloon, OutsideTheScreenAndTooWideForItsSide_StaysInsideTheWorkArea)
{
    const BalloonPlace place = engine::PlaceBalloon({3000, 40, 100, 690}, {1020, 60}, Screen);
    EXPECT_EQ(place.window, (Rect{4, 0, 1020, 74}));
}

TEST(PlaceBalloon, WithoutRoomAnywhere_StaysInsideTheWorkArea)
{
    const BalloonPlace place = engine::PlaceBalloon({0, 0, 1024, 768}, {200, 50}, Screen);
    EXPECT_EQ(place.window.top, 0);
    EXPECT_EQ(place.window.left, 412);
}

TEST(PlaceBalloon, WithJustEnoughRoomAbove_StandsThere)
{
    EXPECT_EQ(engine::PlaceBalloon({400, 64, 100, 100}, {200, 50}, Screen).window.top, 0);
}

TEST(PlaceBalloon, WithOnePixelTooLittleAbove_StandsBelow)
{
    EXPECT_EQ(engine::PlaceBalloon({400, 63, 100, 100}, {200, 50}, Screen).window.top, 163);
}

TEST(PlaceBalloon, WithJustEnoughRoomBelow_StandsThere)
{
    EXPECT_EQ(engine::PlaceBalloon({400, 40, 100, 664}, {200, 50}, Screen).window, (Rect{350, 704, 200, 64}));
}

TEST(PlaceBalloon, WithOnePixelTooLittleBelow_StandsBeside)
{
    EXPECT_EQ(engine::PlaceBalloon({400, 40, 100, 665}, {200, 50}, Screen).window.left, 186);
}

TEST(PlaceBalloon, WithJustEnoughRoomOnTheLeft_StandsThere)
{
    EXPECT_EQ(engine::PlaceBalloon({214, 40, 100, 690}, {200, 60}, Screen).window.left, 0);
}

TEST(PlaceBalloon, WithOnePixelTooLittleOnTheLeft_StandsOnTheRight)
{
    EXPECT_EQ(engine::PlaceBalloon({213, 40, 100, 690}, {200, 60}, Screen).window.left, 313);
}

TEST(PlaceBalloon, WithJustEnoughRoomOnTheRight_StandsThere)
{
    EXPECT_EQ(engine::PlaceBalloon({100, 40, 710, 690}, {200, 60}, Screen).window, (Rect{810, 182, 214, 60}));
}

TEST(PlaceBalloon, WithOnePixelTooLittleOnTheRight_StandsAboveInsideTheWorkArea)
{
    EXPECT_EQ(engine::PlaceBalloon({100, 40, 711, 690}, {200, 60}, Screen).window, (Rect{355, 0, 200, 74}));
}

TEST(PlaceBalloon, BesideAHeadAtTheTop_StaysInsideAndPointsAtTheHead)
{
    const BalloonPlace place = engine::PlaceBalloon({400, 0, 100, 730}, {200, 500}, Screen);
    EXPECT_EQ(place.window, (Rect{186, 0, 214, 500}));
    EXPECT_EQ(place.tail, (engine::Point{213, 182}));
}

TEST(PlaceBalloon, ATailTowardsTheLeftCorner_KeepsItsDistance)
{
    EXPECT_EQ(engine::PlaceBalloon({-90, 400, 100, 100}, {200, 50}, Screen).tail.x, 16);
}

TEST(PlaceBalloon, ATailOfANarrowBalloon_IsInItsMiddle)
{
    EXPECT_EQ(engine::PlaceBalloon({-90, 400, 100, 100}, {20, 50}, Screen).tail.x, 10);
}

TEST(PlaceBalloon, OnAScreenFurtherRight_StaysInsideThatOne)
{
    const BalloonPlace place = engine::PlaceBalloon({1000, 400, 100, 100}, {200, 50}, {1024, 30, 800, 600});
    EXPECT_EQ(place.window, (Rect{1024, 336, 200, 64}));
}

TEST(PlaceBalloon, WiderThanTheWorkArea_BeginsAtItsLeft)
{
    EXPECT_EQ(engine::PlaceBalloon({400, 400, 100, 100}, {1100, 50}, Screen).window.left, 0);
}

TEST(PlaceBalloon, AsWideAsTheWorkAreaAllowsBeside_StandsBeside)
{
    EXPECT_EQ(engine::PlaceBalloon({1024, 40, 100, 690}, {1010, 60}, Screen).window.left, 0);
}

TEST(LineBreaker, ABlankBetweenWords_CountsForTheWidth) { EXPECT_EQ(Broken("abc defg", 8), "abc defg"); }
TEST(LineBreaker, ABlankTooMany_BreaksTheLine) { EXPECT_EQ(Broken("abc  defg", 8), "abc/defg"); }
TEST(LineBreaker, AWordBehindACutOne_SharesItsLastLine) { EXPECT_EQ(Broken("abcdefghij kl", 8), "abcdefgh/ij kl"); }
