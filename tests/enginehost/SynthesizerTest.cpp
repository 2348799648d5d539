#include "Support.h"
#include "engine/hosts/qt/EspeakSynthesizer.h"
#include <algorithm>
#include <set>

using namespace engine;

namespace {

// What came of an utterance.
struct Result {
    std::vector<std::int16_t> samples;
    std::vector<SpeechMark> marks;
    std::vector<std::int64_t> segmentStarts;
    int chunks = 0;
    bool last = false;
    bool failed = false;
};

class Synthesizer : public testing::Test {
protected:
    Synthesizer() { support::NeedEventLoop(); }

    std::string ModeIdOf(const std::string& key)
    {
        for (const Voice& voice : m_synthesizer.Voices())
            if (voice.key == key)
                return voice.modeId;
        return "";
    }
    UtteranceID Start(std::vector<SpeechSegment> segments, Result& result, const std::string& key = "gmw/en-US")
    {
        return m_synthesizer.Synthesize(ModeIdOf(key), std::move(segments), [&result](const SpeechChunk& chunk) {
            ++result.chunks;
            result.samples.insert(result.samples.end(), chunk.samples.begin(), chunk.samples.end());
            result.marks.insert(result.marks.end(), chunk.marks.begin(), chunk.marks.end());
            result.segmentStarts.insert(result.segmentStarts.end(), chunk.segmentStarts.begin(), chunk.segmentStarts.end());
            result.last = chunk.last;
            result.failed = chunk.failed;
        });
    }
    Result Make(std::vector<SpeechSegment> segments, const std::string& key = "gmw/en-US")
    {
        Result result;
        Start(std::move(segments), result, key);
        EXPECT_TRUE(support::RunLoopUntil([&] { return result.last; }));
        return result;
    }
    Result Make(const std::string& text) { return Make(std::vector<SpeechSegment>{Segment(text)}); }
    static SpeechSegment Segment(const std::string& text)
    {
        SpeechSegment segment;
        segment.text = text;
        return segment;
    }
    static std::vector<std::size_t> WordsOf(const Result& result)
    {
        std::vector<std::size_t> words;
        for (const SpeechMark& mark : result.marks)
            if (mark.kind == SpeechMarkKind::Word)
                words.push_back(mark.textPosition);
        return words;
    }
    static int LoudestOf(const Result& result)
    {
        int loudest = 0;
        for (const std::int16_t sample : result.samples)
            loudest = std::max(loudest, std::abs(int{sample}));
        return loudest;
    }

    CEspeakSynthesizer m_synthesizer;
};

}

TEST_F(Synthesizer, Voices_OfTheLibrary_HaveTheirOwnIdentities)
{
    const std::vector<Voice> voices = m_synthesizer.Voices();
    std::set<std::string> ids;
    for (const Voice& voice : voices)
        ids.insert(voice.modeId);

    EXPECT_GT(voices.size(), 100U);
    EXPECT_EQ(ids.size(), voices.size());
}

TEST_F(Synthesizer, Voices_AmericanEnglish_IsDescribed)
{
    const std::vector<Voice> voices = m_synthesizer.Voices();
    const auto voice = std::find_if(voices.begin(), voices.end(), [](const Voice& each) { return each.key == "gmw/en-US"; });

    ASSERT_NE(voice, voices.end());
    EXPECT_EQ(voice->modeId, "{AF9164BD-77C8-522D-93D6-4FEA8793FE04}");
    EXPECT_EQ(voice->name, "English (America)");
    EXPECT_EQ(voice->languageId, 0x0409);
    EXPECT_EQ(voice->gender, 2);
}

TEST_F(Synthesizer, Voices_OfAnotherProgram_AreLeftOut)
{
    for (const Voice& voice : m_synthesizer.Voices())
        EXPECT_NE(voice.key.substr(0, 3), "mb/");
}

TEST_F(Synthesizer, Voices_EachOne_Speaks)
{
    for (const Voice& voice : m_synthesizer.Voices()) {
        const Result result = Make({Segment("1")}, voice.key);
        EXPECT_FALSE(result.failed) << voice.key;
        EXPECT_GT(result.samples.size(), 1000U) << voice.key;
    }
}

TEST_F(Synthesizer, Synthesize_Text_AnnouncesItsWordsInOrder)
{
    const Result result = Make("The quick brown fox paid 3.14 dollars at 10:35, didn't it?");

    EXPECT_EQ(WordsOf(result), (std::vector<std::size_t>{0, 4, 10, 16, 20, 25, 30, 38, 41, 48, 55}));
    EXPECT_GT(result.samples.size(), 22050U);
}

TEST_F(Synthesizer, Synthesize_Text_HasMarksInOrderWithinItsSamples)
{
    const Result result = Make("Papa bought many moons for you and me.");
    std::set<Mouth> mouths;
    std::int64_t before = 0;
    for (const SpeechMark& mark : result.marks) {
        EXPECT_GE(mark.sample, before);
        EXPECT_LE(mark.sample, static_cast<std::int64_t>(result.samples.size()));
        before = mark.sample;
        if (mark.kind == SpeechMarkKind::Mouth)
            mouths.insert(mark.mouth);
    }

    EXPECT_GE(mouths.size(), 5U);
    EXPECT_EQ(result.marks.back().mouth, Mouth::Closed);
}

TEST_F(Synthesizer, Synthesize_Segments_StartWhereThePauseEnds)
{
    SpeechSegment second = Segment("Second.");
    second.pauseMilliseconds = 1000;
    const Result result = Make({Segment("First."), second});

    ASSERT_EQ(result.segmentStarts.size(), 2U);
    EXPECT_EQ(result.segmentStarts[0], 0);
    ASSERT_EQ(WordsOf(result).size(), 2U);
    const SpeechMark& word = *std::find_if(result.marks.begin(), result.marks.end(), [](const SpeechMark& mark) {
        return mark.kind == SpeechMarkKind::Word && mark.segment == 1;
    });
    EXPECT_EQ(word.sample, result.segmentStarts[1] + 22050);
    for (std::int64_t sample = result.segmentStarts[1]; sample < word.sample; ++sample)
        ASSERT_EQ(result.samples[static_cast<std::size_t>(sample)], 0);
}

TEST_F(Synthesizer, Synthesize_PurePause_IsSilenceOfItsLength)
{
    SpeechSegment pause;
    pause.pauseMilliseconds = 500;
    const Result result = Make({pause});

    EXPECT_EQ(result.samples.size(), 11025U);
    EXPECT_EQ(LoudestOf(result), 0);
    EXPECT_FALSE(result.failed);
}

TEST_F(Synthesizer, Synthesize_NothingToSay_EndsWithoutFailure)
{
    EXPECT_FALSE(Make(std::vector<SpeechSegment>{}).failed);
    EXPECT_FALSE(Make(" \n").failed);
}

TEST_F(Synthesizer, Synthesize_Volume_ScalesTheSound)
{
    SpeechSegment quiet = Segment("Mary had a little lamb");
    quiet.volume = 16384;
    SpeechSegment silent = quiet;
    silent.volume = 0;
    const int full = LoudestOf(Make("Mary had a little lamb"));

    EXPECT_LT(LoudestOf(Make({quiet})), full / 3);
    EXPECT_EQ(LoudestOf(Make({silent})), 0);
}

TEST_F(Synthesizer, Synthesize_Speed_ShortensTheSpeech)
{
    SpeechSegment fast = Segment("Mary had a little lamb and we are all well");
    fast.wordsPerMinute = 350;

    EXPECT_LT(Make({fast}).samples.size(), Make(fast.text).samples.size() * 2 / 3);
}

TEST_F(Synthesizer, Synthesize_Whisper_SoundsDifferent)
{
    SpeechSegment whisper = Segment("Nobody may hear this");
    whisper.whisper = true;

    EXPECT_NE(Make({whisper}).samples, Make(whisper.text).samples);
    EXPECT_GT(LoudestOf(Make({whisper})), 1000);
}

TEST_F(Synthesizer, Synthesize_Emphasis_KeepsWordsAndRaisesTheFirst)
{
    SpeechSegment emphasis = Segment("big dogs run");
    emphasis.emphasis = true;
    const Result result = Make({emphasis});
    const Result plain = Make("big dogs run");

    EXPECT_EQ(WordsOf(result), (std::vector<std::size_t>{0, 4, 9}));
    EXPECT_GT(LoudestOf(result), LoudestOf(plain));
}

TEST_F(Synthesizer, Synthesize_AfterAnEmphasis_SoundsAsBefore)
{
    const Result before = Make("big dogs run");
    SpeechSegment emphasis = Segment("big");
    emphasis.emphasis = true;
    Make({emphasis});

    const Result after = Make("big dogs run");
    // The synthesiser never makes quite the same sound twice.
    EXPECT_NEAR(static_cast<double>(after.samples.size()), static_cast<double>(before.samples.size()), 200);
    EXPECT_NEAR(LoudestOf(after), LoudestOf(before), 1500);
}

TEST_F(Synthesizer, Synthesize_HostileText_IsHarmless)
{
    EXPECT_FALSE(Make("\xFF\xFE\xC0\x80 <speak> &#x41; [[h@l'oU]] \x01"
                      "300S \x1B \xF4\x90\x80\x80 end")
                     .failed);
    EXPECT_FALSE(Make(std::string(3000, 'x') + std::string(2000, '.')).failed);
}

TEST_F(Synthesizer, Synthesize_UnknownVoice_Fails)
{
    Result result;
    m_synthesizer.Synthesize("{00000000-0000-0000-0000-000000000000}", {Segment("Hello")}, [&](const SpeechChunk& chunk) {
        result.last = chunk.last;
        result.failed = chunk.failed;
    });

    EXPECT_TRUE(support::RunLoopUntil([&] { return result.last; }));
    EXPECT_TRUE(result.failed);
}

TEST_F(Synthesizer, Synthesize_LowerCaseModeId_IsTheSameVoice)
{
    Result result;
    m_synthesizer.Synthesize("{af9164bd-77c8-522d-93d6-4fea8793fe04}", {Segment("Hello")}, [&](const SpeechChunk& chunk) {
        result.last = chunk.last;
        result.failed = chunk.failed;
    });

    EXPECT_TRUE(support::RunLoopUntil([&] { return result.last; }));
    EXPECT_FALSE(result.failed);
}

TEST_F(Synthesizer, Synthesize_TwoUtterances_ComeOneAfterTheOther)
{
    Result first;
    Result second;
    Start({Segment("The first of two.")}, first);
    Start({Segment("The second of two.")}, second);

    EXPECT_TRUE(support::RunLoopUntil([&] {
        EXPECT_TRUE(second.chunks == 0 || first.last);
        return second.last;
    }));
}

TEST_F(Synthesizer, Cancel_RunningUtterance_NothingMoreComesAndTheNextSpeaks)
{
    std::string book;
    for (int line = 0; line < 3000; ++line)
        book += "All work and no play makes a dull day. ";
    Result cancelled;
    const UtteranceID utterance = Start({Segment(book)}, cancelled);
    ASSERT_TRUE(support::RunLoopUntil([&] { return cancelled.chunks > 0; }));
    m_synthesizer.Cancel(utterance);
    const int chunks = cancelled.chunks;
    const Result next = Make("Next");

    EXPECT_EQ(cancelled.chunks, chunks);
    EXPECT_FALSE(next.failed);
}

TEST_F(Synthesizer, Cancel_WaitingUtterance_NeverSpeaks)
{
    Result first;
    Result cancelled;
    Start({Segment("The first of three.")}, first);
    m_synthesizer.Cancel(Start({Segment("The second of three.")}, cancelled));

    EXPECT_FALSE(Make("The third of three.").failed);
    EXPECT_TRUE(first.last);
    EXPECT_EQ(cancelled.chunks, 0);
}

TEST_F(Synthesizer, Cancel_InsideTheReceiver_EndsTheUtterance)
{
    int chunks = 0;
    UtteranceID utterance = 0;
    utterance = m_synthesizer.Synthesize(
        ModeIdOf("gmw/en-US"), {Segment("A sentence that is long enough for several chunks.")}, [&](const SpeechChunk&) {
            ++chunks;
            m_synthesizer.Cancel(utterance);
        });

    EXPECT_FALSE(Make("Next").failed);
    EXPECT_EQ(chunks, 1);
}
