#include "engine/speech/SpeechFeed.h"
#include "engine/hosts/headless/HeadlessSynthesizer.h"
#include "engine/hosts/headless/VirtualTime.h"
#include <gtest/gtest.h>

using engine::CSpeechFeed;
using engine::FeedMark;
using engine::FeedMarkKind;
using engine::FeedPart;
using engine::SpeechSegment;

// A text is ordered in pieces of 1500 characters at most; the voice needs 600 samples for each.
class SpeechFeedTest : public ::testing::Test {
protected:
    SpeechFeedTest() : synthesizer(time) {}

    // The texts of all segments that were ordered, piece by piece.
    std::vector<std::vector<std::string>> PiecesOf(const std::vector<std::string>& texts)
    {
        for (const std::string& text : texts) {
            segments.emplace_back();
            segments.back().text = text;
        }
        OrderAll();
        std::vector<std::vector<std::string>> pieces;
        for (const auto& order : synthesizer.Orders()) {
            pieces.emplace_back();
            for (const SpeechSegment& segment : order.segments)
                pieces.back().push_back(segment.text);
        }
        return pieces;
    }
    void OrderAll()
    {
        CSpeechFeed feed(synthesizer, "voice", 100, segments);
        time.RunUntilIdle(60000);
        while (feed.CanOrder()) {
            feed.OrderNext();
            time.RunUntilIdle(60000);
        }
        EXPECT_TRUE(feed.Complete());
        for (FeedPart part; feed.Take(part);)
            marks.insert(marks.end(), part.marks.begin(), part.marks.end());
    }
    std::size_t FirstPieceOf(const std::string& text) { return PiecesOf({text}).at(0).at(0).size(); }
    std::vector<FeedMark> MarksOf(FeedMarkKind kind) const
    {
        std::vector<FeedMark> found;
        for (const FeedMark& mark : marks)
            if (mark.kind == kind)
                found.push_back(mark);
        return found;
    }

    engine::CVirtualTime time;
    engine::CHeadlessSynthesizer synthesizer;
    std::vector<SpeechSegment> segments;
    std::vector<FeedMark> marks;
};

namespace {

std::string Letters(std::size_t count) { return std::string(count, 'x'); }

}

TEST_F(SpeechFeedTest, ATextOfTheLargestLength_IsOnePiece) { EXPECT_EQ(PiecesOf({Letters(1500)}).size(), 1u); }

TEST_F(SpeechFeedTest, OneCharacterMore_IsASecondPiece)
{
    const auto pieces = PiecesOf({Letters(1501)});
    ASSERT_EQ(pieces.size(), 2u);
    EXPECT_EQ(pieces[0].at(0).size(), 1500u);
    EXPECT_EQ(pieces[1].at(0), "x");
}

TEST_F(SpeechFeedTest, CharactersOfSeveralBytes_CountOnce)
{
    std::string text;
    for (int count = 0; count < 1501; ++count)
        text += "\xC3\xA4";
    EXPECT_EQ(FirstPieceOf(text), 3000u);
}

TEST_F(SpeechFeedTest, ASentenceEndInTheSecondHalf_EndsThePiece)
{
    EXPECT_EQ(FirstPieceOf(Letters(749) + ". " + Letters(400) + " " + Letters(1000)), 751u);
}

TEST_F(SpeechFeedTest, ASentenceEndInTheFirstHalf_EndsNoPiece)
{
    EXPECT_EQ(FirstPieceOf(Letters(748) + ". " + Letters(400) + " " + Letters(1000)), 1151u);
}

TEST_F(SpeechFeedTest, ABlankInTheFirstHalfOnly_EndsNoPiece)
{
    EXPECT_EQ(FirstPieceOf(Letters(749) + " " + Letters(1000)), 1500u);
}

TEST_F(SpeechFeedTest, ABlankInTheSecondHalf_EndsThePiece)
{
    EXPECT_EQ(FirstPieceOf(Letters(750) + " " + Letters(1000)), 751u);
}

TEST_F(SpeechFeedTest, TheLastSentenceEnd_EndsThePiece)
{
    EXPECT_EQ(FirstPieceOf(Letters(800) + ". " + Letters(100) + "! " + Letters(100) + "? " + Letters(1000)), 1006u);
}

TEST_F(SpeechFeedTest, ExclamationMarks_EndSentences)
{
    EXPECT_EQ(FirstPieceOf(Letters(800) + "! " + Letters(100) + " " + Letters(1000)), 802u);
}

TEST_F(SpeechFeedTest, APointInsideANumber_EndsNoSentence)
{
    EXPECT_EQ(FirstPieceOf(Letters(800) + "3.14 " + Letters(1000)), 805u);
}

TEST_F(SpeechFeedTest, ShortSegments_ShareAPiece)
{
    EXPECT_EQ(PiecesOf({"one", "two"}), (std::vector<std::vector<std::string>>{{"one", "two"}}));
}

TEST_F(SpeechFeedTest, SegmentsThatFillAPiece_LeaveNoRoomForAnother)
{
    const auto pieces = PiecesOf({Letters(1499), "two"});
    ASSERT_EQ(pieces.size(), 2u);
    EXPECT_EQ(pieces[1], std::vector<std::string>{"two"});
}

TEST_F(SpeechFeedTest, ASegmentThatDoesNotFit_IsCutAtTheRoomThatIsLeft)
{
    const auto pieces = PiecesOf({Letters(1000), Letters(1000)});
    ASSERT_EQ(pieces.size(), 2u);
    EXPECT_EQ(pieces[0].at(1).size(), 499u);
    EXPECT_EQ(pieces[1].at(0).size(), 501u);
}

TEST_F(SpeechFeedTest, PausesAndEmphasis_BelongToTheFirstPartOfASegment)
{
    segments.emplace_back();
    segments.back().text = Letters(1600);
    segments.back().pauseMilliseconds = 300;
    segments.back().emphasis = true;
    OrderAll();
    const SpeechSegment& first = synthesizer.Orders().at(0).segments.at(0);
    const SpeechSegment& second = synthesizer.Orders().at(1).segments.at(0);
    EXPECT_EQ(first.pauseMilliseconds, 300);
    EXPECT_TRUE(first.emphasis);
    EXPECT_EQ(second.pauseMilliseconds, 0);
    EXPECT_FALSE(second.emphasis);
}

TEST_F(SpeechFeedTest, EachSegment_KeepsItsOwnPauseAndEmphasis)
{
    segments.resize(2);
    segments[0].text = "one";
    segments[1].text = "two";
    segments[1].pauseMilliseconds = 200;
    segments[1].emphasis = true;
    OrderAll();
    EXPECT_EQ(synthesizer.Orders().at(0).segments.at(0).pauseMilliseconds, 0);
    EXPECT_EQ(synthesizer.Orders().at(0).segments.at(1).pauseMilliseconds, 200);
    EXPECT_TRUE(synthesizer.Orders().at(0).segments.at(1).emphasis);
}

TEST_F(SpeechFeedTest, WordsOfALaterPiece_CountFromTheBeginningOfTheText)
{
    PiecesOf({Letters(1499) + " word"});
    const auto words = MarksOf(FeedMarkKind::Word);
    ASSERT_EQ(words.size(), 2u);
    EXPECT_EQ(words[1].place, (engine::TextPlace{0, 1500}));
    EXPECT_EQ(words[1].sample, 1500 * 600);
}

TEST_F(SpeechFeedTest, MouthsOfALaterPiece_CountFromTheBeginningOfTheSound)
{
    PiecesOf({Letters(1499) + " word"});
    EXPECT_EQ(MarksOf(FeedMarkKind::Mouth).back().sample, 1500 * 600);
}

TEST_F(SpeechFeedTest, ASegmentThatIsCut_StartsOnce)
{
    PiecesOf({Letters(1600), "two"});
    const auto starts = MarksOf(FeedMarkKind::SegmentStart);
    ASSERT_EQ(starts.size(), 2u);
    EXPECT_EQ(starts[1].place, (engine::TextPlace{1, 0}));
    EXPECT_EQ(starts[1].sample, 1600 * 600);
}

TEST_F(SpeechFeedTest, DestroyedWhileThePieceIsMade_CancelsIt)
{
    segments.emplace_back();
    segments.back().text = "one";
    {
        CSpeechFeed feed(synthesizer, "voice", 100, segments);
    }
    EXPECT_TRUE(synthesizer.Orders().at(0).cancelled);
}

TEST_F(SpeechFeedTest, DestroyedAfterThePieceIsMade_CancelsNothing)
{
    segments.emplace_back();
    segments.back().text = "one";
    {
        CSpeechFeed feed(synthesizer, "voice", 100, segments);
        time.RunUntilIdle(1000);
    }
    EXPECT_FALSE(synthesizer.Orders().at(0).cancelled);
}

TEST_F(SpeechFeedTest, AVoiceThatFails_IsAskedForNothingMore)
{
    synthesizer.failAfterChunks = 0;
    segments.emplace_back();
    segments.back().text = Letters(1600);
    CSpeechFeed feed(synthesizer, "voice", 100, segments);
    time.RunUntilIdle(1000);
    EXPECT_TRUE(feed.Failed());
    EXPECT_FALSE(feed.CanOrder());
}
