#include "EngineTest.h"

using namespace testing_character;

class BalloonTest : public EngineTest {
protected:
    void LoadStyled(std::int32_t style)
    {
        LoadShown();
        bot->Balloon()->SetStyle(style);
    }
    static constexpr std::int32_t On = 0x1, SizeToText = 0x2, AutoHide = 0x4, AutoPace = 0x8;
    static constexpr std::int32_t TwoLinesOfTen = 0x020A0000;
};

TEST_F(BalloonTest, ACharacterWithoutBalloon_FailsOnAccess)
{
    engine::Character character = Make();
    character.balloon.reset();
    Load(character);
    EXPECT_EQ(FailureOf([&] { bot->Balloon(); }), code::NoBalloon);
}

TEST_F(BalloonTest, ACharacterWithoutBalloon_StillSpeaks)
{
    engine::Character character = Make();
    character.balloon.reset();
    LoadShown(character);
    const RequestRef speech = Say("Hello");
    host.RunUntilIdle();
    EXPECT_EQ(StatusOf(speech), 0);
    EXPECT_TRUE(host.balloons.empty());
}

TEST_F(BalloonTest, TheCharactersFile_GivesTheFirstValues)
{
    Load();
    const auto balloon = bot->Balloon();
    EXPECT_EQ(balloon->Style(), 0x0220000F);
    EXPECT_EQ(balloon->CharsPerLine(), 32);
    EXPECT_EQ(balloon->NumberOfLines(), 2);
    EXPECT_EQ(balloon->FontName(), "Sans");
    EXPECT_EQ(balloon->FontSize(), 10);
    EXPECT_FALSE(balloon->FontBold());
    EXPECT_TRUE(balloon->Enabled());
}

TEST_F(BalloonTest, SetStyle_OutOfRange_FailsAndKeepsTheOld)
{
    Load();
    EXPECT_EQ(FailureOf([&] { bot->Balloon()->SetStyle(7); }), code::InvalidArgument);
    EXPECT_EQ(bot->Balloon()->Style(), 0x0220000F);
}

TEST_F(BalloonTest, SetFontSize_OutOfRange_Fails)
{
    Load();
    EXPECT_EQ(FailureOf([&] { bot->Balloon()->SetFontSize(0); }), code::InvalidArgument);
    EXPECT_EQ(FailureOf([&] { bot->Balloon()->SetFontSize(2161); }), code::InvalidArgument);
    EXPECT_EQ(bot->Balloon()->FontSize(), 10);
}

TEST_F(BalloonTest, TheFont_IsUsed)
{
    LoadShown();
    bot->Balloon()->SetFontName("Serif");
    bot->Balloon()->SetFontSize(14);
    Say("Hello");
    host.Advance(50);
    EXPECT_EQ(host.Balloon().picture.font, (engine::Font{"Serif", 14, false, false}));
}

TEST_F(BalloonTest, BalloonsOff_ShowsNone)
{
    host.settingsFile.text = "Balloons=0\n";
    LoadShown();
    EXPECT_FALSE(bot->Balloon()->Enabled());
    bot->Balloon()->SetStyle(0x02200001);
    const RequestRef speech = Say("Hello");
    host.RunUntilIdle();
    EXPECT_TRUE(host.balloons.empty());
    EXPECT_EQ(StatusOf(speech), 0);
}

TEST_F(BalloonTest, StyleWithoutBalloon_ShowsNone)
{
    LoadStyled(TwoLinesOfTen);
    Say("Hello");
    host.RunUntilIdle();
    EXPECT_TRUE(host.balloons.empty());
}

TEST_F(BalloonTest, SwitchingTheBalloonOff_HidesIt)
{
    LoadStyled(TwoLinesOfTen | On);
    Say("Hello");
    host.RunUntilIdle();
    EXPECT_TRUE(bot->Balloon()->Visible());
    bot->Balloon()->SetStyle(TwoLinesOfTen);
    EXPECT_FALSE(host.Balloon().shown);
}

TEST_F(BalloonTest, WithoutAutoPace_TheWholeTextShowsAtOnce)
{
    LoadStyled(TwoLinesOfTen | On);
    Say("One two three four");
    EXPECT_EQ(host.Balloon().Text(), "One two/three four");
}

TEST_F(BalloonTest, MoreTextThanLines_ScrollsWithTheWords)
{
    LoadStyled(TwoLinesOfTen | On | AutoPace);
    Say("aaaa bbbb cccc dddd eeee ffff");
    host.Advance(5 + 29 * 60 + 400);
    EXPECT_EQ(host.Balloon().Text(), "cccc dddd/eeee ffff");
}

TEST_F(BalloonTest, ABalloonOfOneLine_ShowsTheLineThatIsSpoken)
{
    LoadStyled(0x010A0000 | On | AutoPace);
    Say("aaaa bbbb cccc dddd");
    host.Advance(5 + 9 * 60);
    EXPECT_EQ(host.Balloon().Text(), "aaaa bbbb");
    host.RunUntilIdle();
    EXPECT_EQ(host.Balloon().Text(), "cccc dddd");
}

TEST_F(BalloonTest, WithoutAutoPace_MoreTextScrollsToo)
{
    LoadStyled(TwoLinesOfTen | On);
    Say("aaaa bbbb cccc dddd eeee ffff");
    EXPECT_EQ(host.Balloon().Text(), "aaaa bbbb/cccc dddd");
    host.RunUntilIdle();
    EXPECT_EQ(host.Balloon().Text(), "cccc dddd/eeee ffff");
}

TEST_F(BalloonTest, Scrolling_IsSmoothAndClipped)
{
    LoadStyled(TwoLinesOfTen | On | AutoPace);
    Say("aaaa bbbb cccc dddd eeee ffff");
    host.Advance(5 + 20 * 60 + 60);
    const engine::BalloonPicture& picture = host.Balloon().picture;
    EXPECT_EQ(picture.lines.size(), 3u);
    EXPECT_LT(picture.lines[0].at.y, picture.textArea.top + 12);
    EXPECT_GT(picture.lines[0].at.y, picture.textArea.top + 12 - 16);
}

TEST_F(BalloonTest, AFixedSize_IsItsLines)
{
    LoadStyled(TwoLinesOfTen | On);
    Say("One");
    EXPECT_EQ(host.Balloon().picture.textArea.width, 80);
    EXPECT_EQ(host.Balloon().picture.textArea.height, 32);
}

TEST_F(BalloonTest, SizeToText_FollowsTheText)
{
    LoadStyled(TwoLinesOfTen | On | SizeToText);
    Say("aaaa bbbb cccc dddd eeee ffff");
    EXPECT_EQ(host.Balloon().picture.textArea.height, 48);
    EXPECT_EQ(host.Balloon().Lines().size(), 3u);
}

TEST_F(BalloonTest, SizeToText_OfOneLine_IsAsNarrowAsTheText)
{
    LoadStyled(TwoLinesOfTen | On | SizeToText);
    Say("Hello");
    EXPECT_EQ(host.Balloon().picture.textArea.width, 40);
}

TEST_F(BalloonTest, SizeToText_OfAHugeText_StaysInsideTheWorkArea)
{
    LoadStyled(TwoLinesOfTen | On | SizeToText);
    Say(std::string(100000, 'x'));
    const engine::Rect place = host.Balloon().picture.place;
    EXPECT_GE(place.top, 0);
    EXPECT_LE(place.Bottom(), 768);
}

TEST_F(BalloonTest, AMegabyteWithoutABlank_IsShownWithoutMeasuringItAll)
{
    LoadStyled(TwoLinesOfTen | On | AutoPace);
    Say(std::string(1'000'000, 'x'));
    host.Advance(100);
    EXPECT_TRUE(host.Balloon().shown);
    EXPECT_LT(host.text.Measured(), 200'000'000u);
}

TEST_F(BalloonTest, AutoHide_HidesTwoSecondsAfterTheEnd)
{
    LoadStyled(TwoLinesOfTen | On | AutoHide);
    const RequestRef speech = Say("Hello");
    host.Advance(330);
    EXPECT_EQ(StatusOf(speech), 0);
    host.Advance(1950);
    EXPECT_TRUE(host.Balloon().shown);
    host.Advance(60);
    EXPECT_FALSE(host.Balloon().shown);
    EXPECT_EQ(journal.Of("Balloon"), (Lines{"BalloonShow Bot", "BalloonHide Bot"}));
}

TEST_F(BalloonTest, AutoHide_IsCancelledByTheNextSpeak)
{
    LoadStyled(TwoLinesOfTen | On | AutoHide);
    Say("Hello");
    host.Advance(1500);
    Say("This goes on and on and on and on");
    host.Advance(1500);
    EXPECT_TRUE(host.Balloon().shown);
    EXPECT_EQ(journal.Count("BalloonHide"), 0u);
}

TEST_F(BalloonTest, WithoutAutoHide_TheBalloonStays)
{
    LoadStyled(TwoLinesOfTen | On);
    Say("Hello");
    host.Advance(60000);
    EXPECT_TRUE(bot->Balloon()->Visible());
}

TEST_F(BalloonTest, TheNextSpeak_ReplacesTheText)
{
    LoadStyled(TwoLinesOfTen | On);
    Say("Hello");
    Say("World");
    host.RunUntilIdle();
    EXPECT_EQ(host.Balloon().Text(), "World");
    EXPECT_EQ(journal.Count("BalloonShow"), 1u);
}

TEST_F(BalloonTest, AnEmptySpeak_TakesTheOldTextAway)
{
    LoadStyled(TwoLinesOfTen | On);
    Say("Hello");
    Say(" ");
    host.RunUntilIdle();
    EXPECT_FALSE(host.Balloon().shown);
}

TEST_F(BalloonTest, StopAll_StartsTheAutoHide)
{
    LoadStyled(TwoLinesOfTen | On | AutoHide);
    Say("Hello there");
    host.Advance(100);
    bot->StopAll(std::nullopt);
    host.Advance(2000);
    EXPECT_FALSE(host.Balloon().shown);
}

TEST_F(BalloonTest, TheBalloon_MovesWithTheCharacter)
{
    LoadStyled(TwoLinesOfTen | On);
    Say("Hello");
    const engine::Rect before = host.Balloon().picture.place;
    bot->SetLeft(450);
    EXPECT_EQ(host.Balloon().picture.place.left, before.left + 50);
}

TEST_F(BalloonTest, AtTheTopOfTheScreen_TheBalloonStandsBelow)
{
    LoadStyled(TwoLinesOfTen | On);
    bot->SetTop(0);
    Say("Hello");
    EXPECT_EQ(host.Balloon().picture.place.top, 4);
}

TEST_F(BalloonTest, Colors_ComeFromTheCharacter)
{
    LoadStyled(TwoLinesOfTen | On);
    Say("Hello");
    EXPECT_EQ(host.Balloon().picture.background, (engine::Color{255, 255, 231}));
}

TEST_F(BalloonTest, LinesOutOfRangeInTheFile_AreBroughtIntoRange)
{
    engine::Character character = Make();
    character.balloon->lines = 0;
    character.balloon->charsPerLine = 3;
    Load(character);
    EXPECT_EQ(bot->Balloon()->NumberOfLines(), 1);
    EXPECT_EQ(bot->Balloon()->CharsPerLine(), 8);
}

TEST_F(BalloonTest, AMappedText_AppearsAsOneWord)
{
    LoadStyled(0x02200000 | On | AutoPace);
    Say("Dial \\Map=\"one two three\"=\"1 2 3\"\\ now");
    host.Advance(5 + 6 * 60);
    EXPECT_EQ(host.Balloon().Text(), "Dial 1 2 3");
}

// With 96 dots an inch a pixel is three quarters of a point; a character is 8 pixels wide, a line 16 high.
TEST_F(BalloonTest, AShortTextInABalloonOfItsSize_KeepsTheSmallestWidth)
{
    LoadStyled(On | SizeToText | AutoPace | TwoLinesOfTen);
    Say("Hi");
    host.RunUntilIdle();
    EXPECT_EQ(host.Balloon().picture.textArea.width, 32);
    EXPECT_EQ(host.Balloon().picture.textArea.height, 16);
    EXPECT_EQ(host.Balloon().picture.body.width, 32 + 2 * 9);
}

TEST_F(BalloonTest, ALineInABalloonOfItsSize_IsAsWideAsItself)
{
    LoadStyled(On | SizeToText | AutoPace | TwoLinesOfTen);
    Say("Hello");
    host.RunUntilIdle();
    EXPECT_EQ(host.Balloon().picture.textArea.width, 40);
}

TEST_F(BalloonTest, TwoLinesInABalloonOfItsSize_HaveTheFullWidth)
{
    LoadStyled(On | SizeToText | AutoPace | TwoLinesOfTen);
    Say("Hello there you");
    host.RunUntilIdle();
    EXPECT_EQ(host.Balloon().picture.textArea.width, 80);
    EXPECT_EQ(host.Balloon().picture.textArea.height, 32);
}

TEST_F(BalloonTest, ALineInABalloonOfFixedSize_HasTheFullWidthAndHeight)
{
    LoadStyled(On | AutoPace | TwoLinesOfTen);
    Say("Hi");
    host.RunUntilIdle();
    EXPECT_EQ(host.Balloon().picture.textArea.width, 80);
    EXPECT_EQ(host.Balloon().picture.textArea.height, 32);
}

TEST_F(BalloonTest, AutoHide_LeavesTheBalloonForTwoSeconds)
{
    LoadStyled(On | AutoHide | TwoLinesOfTen);
    const RequestRef speech = Say("Hi");
    while (StatusOf(speech) != 0)
        host.Advance(1);
    host.Advance(1999);
    EXPECT_TRUE(host.Balloon().shown);
    host.Advance(1);
    EXPECT_FALSE(host.Balloon().shown);
}

TEST_F(BalloonTest, AutoHide_WhenTheNextTextBegins_DoesNotHideThatOne)
{
    LoadStyled(On | AutoHide | TwoLinesOfTen);
    Say("Hi");
    host.Advance(1500);
    Say("A text that takes longer");
    host.Advance(1400);
    EXPECT_TRUE(host.Balloon().shown);
}

TEST_F(BalloonTest, TheFontOfTheFile_IsInPoints)
{
    engine::Character character = Make();
    character.balloon->fontHeight = -16;
    Load(character);
    EXPECT_EQ(bot->Balloon()->FontSize(), 12);
}

TEST_F(BalloonTest, TheFontOfTheFile_IsAtLeastFourPixelsHigh)
{
    engine::Character character = Make();
    for (const std::int32_t height : {-4, -2, 0, 2, 4}) {
        character.balloon->fontHeight = height;
        Load(character);
        EXPECT_EQ(bot->Balloon()->FontSize(), 3) << height;
        bot.reset();
        control.reset();
    }
}

TEST_F(BalloonTest, TheText_LiesInTheMiddleOfTheBody)
{
    LoadStyled(TwoLinesOfTen | On);
    Say("Hello");
    const engine::BalloonPicture& picture = host.Balloon().picture;
    EXPECT_EQ(picture.textArea.left - picture.body.left, picture.body.Right() - picture.textArea.Right());
    EXPECT_EQ(picture.textArea.top - picture.body.top, picture.body.Bottom() - picture.textArea.Bottom());
}

TEST_F(BalloonTest, SetFontSize_AtTheEdgesOfItsRange_IsTaken)
{
    Load();
    for (const std::int32_t points : {1, 2160}) {
        bot->Balloon()->SetFontSize(points);
        EXPECT_EQ(bot->Balloon()->FontSize(), points);
    }
}
