#include "engine/speech/SpeechTags.h"
#include "platform/CharacterEngine.h"
#include <chrono>
#include <gtest/gtest.h>

using engine::ChooseAlternative;
using engine::ParseSpeech;
using engine::ShownWord;
using engine::SpeechBookmark;
using engine::SpokenText;
using engine::TextPlace;

namespace {

std::vector<std::string> SpokenTexts(const SpokenText& text)
{
    std::vector<std::string> texts;
    for (const engine::SpeechSegment& segment : text.segments)
        texts.push_back(segment.text);
    return texts;
}

using Texts = std::vector<std::string>;

}

TEST(ParseSpeech, PlainText_IsSpokenAndShownAsItIs)
{
    const SpokenText text = ParseSpeech("Hello there");
    EXPECT_EQ(SpokenTexts(text), Texts{"Hello there"});
    EXPECT_EQ(text.shown, "Hello there");
    EXPECT_EQ(text.words, (std::vector<ShownWord>{{0, 5, {0, 0}}, {6, 11, {0, 6}}}));
}

TEST(ParseSpeech, EmptyText_HasNothing)
{
    const SpokenText text = ParseSpeech("");
    EXPECT_TRUE(text.segments.empty());
    EXPECT_TRUE(text.words.empty());
}

TEST(ParseSpeech, Vol_SetsTheVolume)
{
    const SpokenText text = ParseSpeech("\\Vol=20000\\Hi");
    EXPECT_EQ(text.segments.at(0).volume, 20000);
    EXPECT_EQ(text.shown, "Hi");
}

TEST(ParseSpeech, Vol_BeyondTheScale_IsFullVolume)
{
    EXPECT_EQ(ParseSpeech("\\Vol=70000\\Hi").segments.at(0).volume, 65535);
}

TEST(ParseSpeech, Pit_SetsThePitch) { EXPECT_EQ(ParseSpeech("\\Pit=150\\Hi").segments.at(0).pitchHertz, 150); }

TEST(ParseSpeech, Pit_BelowTheScale_IsTheLowestPitch)
{
    EXPECT_EQ(ParseSpeech("\\Pit=-7\\Hi").segments.at(0).pitchHertz, 50);
}

TEST(ParseSpeech, Spd_SetsThePace) { EXPECT_EQ(ParseSpeech("\\Spd=170\\Hi").segments.at(0).wordsPerMinute, 170); }

TEST(ParseSpeech, Spd_OfAHugeNumber_IsTheHighestPace)
{
    EXPECT_EQ(ParseSpeech("\\Spd=99999999999999999999999\\Hi").segments.at(0).wordsPerMinute, 250);
}

TEST(ParseSpeech, TagNames_IgnoreLetterCase) { EXPECT_EQ(ParseSpeech("\\sPD=170\\Hi").segments.at(0).wordsPerMinute, 170); }

TEST(ParseSpeech, AdjacentTags_AllApply)
{
    const SpokenText text = ParseSpeech("\\Vol=65535\\\\Pit=150\\\\Chr=\"Whisper\"\\Hello");
    EXPECT_EQ(text.shown, "Hello");
    ASSERT_EQ(text.segments.size(), 1u);
    EXPECT_EQ(text.segments[0].pitchHertz, 150);
    EXPECT_TRUE(text.segments[0].whisper);
}

TEST(ParseSpeech, Chr_Monotone_SpeaksWithoutMelody)
{
    EXPECT_TRUE(ParseSpeech("\\Chr=\"Monotone\"\\Hi").segments.at(0).monotone);
}

TEST(ParseSpeech, Chr_Normal_EndsAWhisper)
{
    const SpokenText text = ParseSpeech("\\Chr=\"Whisper\"\\One \\Chr=\"Normal\"\\two");
    ASSERT_EQ(text.segments.size(), 2u);
    EXPECT_TRUE(text.segments[0].whisper);
    EXPECT_FALSE(text.segments[1].whisper);
}

TEST(ParseSpeech, Chr_WithAContextName_HasNoEffect)
{
    const SpokenText text = ParseSpeech("\\Chr=\"Whisper\"\\One \\Chr=\"Email\"\\two");
    ASSERT_EQ(text.segments.size(), 1u);
    EXPECT_TRUE(text.segments[0].whisper);
}

TEST(ParseSpeech, Ctx_IsRemovedFromTheText)
{
    const SpokenText text = ParseSpeech("\\Ctx=\"Address\"\\Main St.");
    EXPECT_EQ(text.shown, "Main St.");
    EXPECT_EQ(SpokenTexts(text), Texts{"Main St."});
}

TEST(ParseSpeech, Pau_PutsSilenceBeforeWhatFollows)
{
    const SpokenText text = ParseSpeech("One \\Pau=500\\two");
    ASSERT_EQ(text.segments.size(), 2u);
    EXPECT_EQ(text.segments[1].pauseMilliseconds, 500);
    EXPECT_EQ(text.segments[1].text, "two");
}

TEST(ParseSpeech, Pau_AtTheEnd_IsAPureSilence)
{
    const SpokenText text = ParseSpeech("One\\Pau=500\\");
    ASSERT_EQ(text.segments.size(), 2u);
    EXPECT_EQ(text.segments[1].text, "");
    EXPECT_EQ(text.segments[1].pauseMilliseconds, 500);
}

TEST(ParseSpeech, Emp_StressesTheWordThatFollows)
{
    const SpokenText text = ParseSpeech("It is \\Emp\\very good");
    ASSERT_EQ(text.segments.size(), 2u);
    EXPECT_FALSE(text.segments[0].emphasis);
    EXPECT_TRUE(text.segments[1].emphasis);
    EXPECT_EQ(text.segments[1].text, "very good");
}

TEST(ParseSpeech, Mrk_IsABookmarkAtItsPlace)
{
    const SpokenText text = ParseSpeech("One \\Mrk=7\\two");
    EXPECT_EQ(text.bookmarks, (std::vector<SpeechBookmark>{{7, {0, 4}}}));
    EXPECT_EQ(SpokenTexts(text), Texts{"One two"});
}

TEST(ParseSpeech, Mrk_OfZero_IsABadBookmark)
{
    const SpokenText text = ParseSpeech("\\Mrk=0\\Hi");
    EXPECT_EQ(text.error, platform::engineError::BadBookmark);
    EXPECT_TRUE(text.segments.empty());
}

TEST(ParseSpeech, Mrk_OfAReservedNumber_IsABadBookmark)
{
    EXPECT_EQ(ParseSpeech("\\Mrk=2147483646\\Hi").error, platform::engineError::BadBookmark);
    EXPECT_EQ(ParseSpeech("\\Mrk=2147483645\\Hi").error, 0);
}

TEST(ParseSpeech, Mrk_InsideAWord_LeavesTheWordWhole)
{
    EXPECT_EQ(ParseSpeech("on\\Mrk=1\\ly").words, (std::vector<ShownWord>{{0, 4, {0, 0}}}));
}

TEST(ParseSpeech, Map_SpeaksOneAndShowsTheOther)
{
    const SpokenText text = ParseSpeech("Call \\Map=\"one two three\"=\"123\"\\ now");
    EXPECT_EQ(SpokenTexts(text), Texts{"Call one two three now"});
    EXPECT_EQ(text.shown, "Call 123 now");
}

TEST(ParseSpeech, Map_CountsAsOneWord)
{
    const SpokenText text = ParseSpeech("\\Map=\"x\"=\"a b c\"\\ end");
    EXPECT_EQ(text.words, (std::vector<ShownWord>{{0, 5, {0, 0}}, {6, 9, {0, 2}}}));
}

TEST(ParseSpeech, Map_WithNothingShown_SpeaksOnly)
{
    const SpokenText text = ParseSpeech("\\Map=\"psst\"=\"\"\\Hi");
    EXPECT_EQ(SpokenTexts(text), Texts{"psstHi"});
    EXPECT_EQ(text.shown, "Hi");
}

TEST(ParseSpeech, Map_WithADoubledBackslash_HasASingleOne)
{
    EXPECT_EQ(ParseSpeech("\\Map=\"folder\"=\"C:\\\\Temp\"\\").shown, "C:\\Temp");
}

TEST(ParseSpeech, Map_WithQuotesInside_KeepsThem)
{
    EXPECT_EQ(ParseSpeech("\\Map=\"said\"=\"he \"said\" so\"\\").shown, "he \"said\" so");
}

TEST(ParseSpeech, Map_WithOneStringOnly_IsRemoved)
{
    const SpokenText text = ParseSpeech("\\Map=\"spoken\"\\Hi");
    EXPECT_EQ(text.shown, "Hi");
    EXPECT_EQ(SpokenTexts(text), Texts{"Hi"});
}

TEST(ParseSpeech, Rst_BringsTheDefaultsBack)
{
    const SpokenText text = ParseSpeech("\\Pit=300\\One \\Rst\\two", {120, 150});
    ASSERT_EQ(text.segments.size(), 2u);
    EXPECT_EQ(text.segments[0].pitchHertz, 300);
    EXPECT_EQ(text.segments[1].pitchHertz, 120);
    EXPECT_EQ(text.segments[1].wordsPerMinute, 150);
}

TEST(ParseSpeech, Lst_Alone_RepeatsTheLast) { EXPECT_TRUE(ParseSpeech(" \\Lst\\ ").repeatsLast); }

TEST(ParseSpeech, Lst_BesideText_IsAnError)
{
    const SpokenText text = ParseSpeech("Again: \\Lst\\");
    EXPECT_FALSE(text.repeatsLast);
    EXPECT_EQ(text.error, platform::engineError::LastTagNotAlone);
}

TEST(ParseSpeech, UnknownWellFormedTags_AreRemoved)
{
    EXPECT_EQ(ParseSpeech("a \\Xyz\\b\\Unknown=5\\c\\Foo=\"bar\"\\d").shown, "a bcd");
}

TEST(ParseSpeech, KnownTagsWithUnusableValues_AreRemoved)
{
    const SpokenText text = ParseSpeech("\\Spd=fast\\\\Pit\\Hi");
    EXPECT_EQ(text.shown, "Hi");
    EXPECT_EQ(text.segments.at(0).wordsPerMinute, 0);
}

TEST(ParseSpeech, APath_StaysText) { EXPECT_EQ(ParseSpeech("C:\\Users\\Ann\\a.txt").shown, "C:\\Users\\Ann\\a.txt"); }

TEST(ParseSpeech, ATagWithBlanks_StaysText) { EXPECT_EQ(ParseSpeech("\\Spd = 5\\").shown, "\\Spd = 5\\"); }

TEST(ParseSpeech, AnUnclosedTag_StaysText) { EXPECT_EQ(ParseSpeech("\\Spd=150 Hi").shown, "\\Spd=150 Hi"); }

TEST(ParseSpeech, AnUnclosedString_StaysText) { EXPECT_EQ(ParseSpeech("\\Chr=\"Whisper Hi").shown, "\\Chr=\"Whisper Hi"); }

TEST(ParseSpeech, ALoneBackslashInAString_MakesItText)
{
    EXPECT_EQ(ParseSpeech("\\Chr=\"a\\b\"\\").shown, "\\Chr=\"a\\b\"\\");
}

TEST(ParseSpeech, ABackslashAtTheEnd_StaysText) { EXPECT_EQ(ParseSpeech("end\\").shown, "end\\"); }

TEST(ParseSpeech, StrayBytes_BecomeReplacementCharacters)
{
    EXPECT_EQ(ParseSpeech("a\xFF\xC3z").shown, "a\xEF\xBF\xBD\xEF\xBF\xBDz");
}

TEST(ParseSpeech, ZeroBytes_BecomeBlanks) { EXPECT_EQ(ParseSpeech(std::string_view("a\0b", 3)).words.size(), 2u); }

TEST(ParseSpeech, Positions_CountCharacters)
{
    const SpokenText text = ParseSpeech("\xC3\xA4\xF0\x9F\x98\x80 x");
    EXPECT_EQ(text.words.at(1).spoken, (TextPlace{0, 3}));
}

TEST(ParseSpeech, AMegabyteOfTagStarts_TakesLinearTime)
{
    std::string text;
    while (text.size() < 1'000'000)
        text += "\\Map=\"a\\";
    const auto begin = std::chrono::steady_clock::now();
    const SpokenText parsed = ParseSpeech(text);
    EXPECT_EQ(parsed.shown.size(), text.size());
    EXPECT_LT(std::chrono::steady_clock::now() - begin, std::chrono::seconds(10));
}

TEST(WordsBegunAt, APlaceInsideAWord_CountsThatWord)
{
    EXPECT_EQ(engine::WordsBegunAt(ParseSpeech("one two three"), {0, 5}), 2u);
}

TEST(ChooseAlternative, WithoutBars_IsTheWholeText) { EXPECT_EQ(ChooseAlternative("Hello", 0.9), "Hello"); }

TEST(ChooseAlternative, Fractions_PickInOrder)
{
    EXPECT_EQ(ChooseAlternative("a|b|c", 0.0), "a");
    EXPECT_EQ(ChooseAlternative("a|b|c", 0.34), "b");
    EXPECT_EQ(ChooseAlternative("a|b|c", 0.99), "c");
}

TEST(ChooseAlternative, TagsBeforeTheFirstBar_BelongToTheFirst)
{
    EXPECT_EQ(ChooseAlternative("\\Spd=200\\A|\\Spd=200\\B", 0.5), "\\Spd=200\\B");
}

TEST(ChooseAlternative, ABarInsideATag_SeparatesNothing)
{
    EXPECT_EQ(ChooseAlternative("\\Map=\"a\"=\"x|y\"\\z|w", 0.0), "\\Map=\"a\"=\"x|y\"\\z");
}

TEST(ChooseAlternative, AnEmptyAlternative_CanBePicked) { EXPECT_EQ(ChooseAlternative("a|", 0.9), ""); }
