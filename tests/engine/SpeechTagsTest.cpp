#include "engine/speech/SpeechTags.h"
#include "platform/CharacterEngine.h"
#include <ctime>
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
    const std::clock_t begin = std::clock();  // The processor's time: the machine may have much else to do.
    const SpokenText parsed = ParseSpeech(text);
    EXPECT_EQ(parsed.shown.size(), text.size());
    EXPECT_LT(std::clock() - begin, 10 * CLOCKS_PER_SEC);
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

TEST(ParseSpeech, Vol_BelowTheScale_IsSilent) { EXPECT_EQ(ParseSpeech("\\Vol=-1\\Hi").segments.at(0).volume, 0); }

TEST(ParseSpeech, Pit_AboveTheScale_IsTheHighestPitch)
{
    EXPECT_EQ(ParseSpeech("\\Pit=401\\Hi").segments.at(0).pitchHertz, 400);
}

TEST(ParseSpeech, Spd_BelowTheScale_IsTheLowestPace)
{
    EXPECT_EQ(ParseSpeech("\\Spd=49\\Hi").segments.at(0).wordsPerMinute, 50);
}

TEST(ParseSpeech, Pau_Twice_AddsUp)
{
    const SpokenText text = ParseSpeech("\\Pau=100\\\\Pau=250\\Hi");
    ASSERT_EQ(text.segments.size(), 1u);
    EXPECT_EQ(text.segments[0].pauseMilliseconds, 350);
}

TEST(ParseSpeech, Pau_OfMoreThanAMinute_IsAMinute)
{
    EXPECT_EQ(ParseSpeech("\\Pau=60001\\Hi").segments.at(0).pauseMilliseconds, 60000);
    EXPECT_EQ(ParseSpeech("\\Pau=40000\\\\Pau=40000\\Hi").segments.at(0).pauseMilliseconds, 60000);
}

TEST(ParseSpeech, Pau_OfLessThanNothing_IsNone)
{
    EXPECT_EQ(ParseSpeech("\\Pau=-5\\Hi").segments.at(0).pauseMilliseconds, 0);
}

TEST(ParseSpeech, Pau_HoldsForOnePlaceOnly)
{
    const SpokenText text = ParseSpeech("\\Pau=100\\One \\Emp\\two");
    ASSERT_EQ(text.segments.size(), 2u);
    EXPECT_EQ(text.segments[1].pauseMilliseconds, 0);
}

TEST(ParseSpeech, Emp_Twice_StressesBothWords)
{
    const SpokenText text = ParseSpeech("\\Emp\\one \\Emp\\two");
    ASSERT_EQ(text.segments.size(), 2u);
    EXPECT_TRUE(text.segments[0].emphasis);
    EXPECT_TRUE(text.segments[1].emphasis);
}

TEST(ParseSpeech, EachSetting_BeginsASegment)
{
    EXPECT_EQ(ParseSpeech("a\\Vol=1\\b").segments.size(), 2u);
    EXPECT_EQ(ParseSpeech("a\\Pit=100\\b").segments.size(), 2u);
    EXPECT_EQ(ParseSpeech("a\\Spd=100\\b").segments.size(), 2u);
    EXPECT_EQ(ParseSpeech("a\\Chr=\"Monotone\"\\b").segments.size(), 2u);
    EXPECT_EQ(ParseSpeech("a\\Chr=\"Whisper\"\\b").segments.size(), 2u);
}

TEST(ParseSpeech, TheSameSettingAgain_BeginsNone) { EXPECT_EQ(ParseSpeech("\\Pit=100\\a\\Pit=100\\b").segments.size(), 1u); }

TEST(ParseSpeech, Chr_Monotone_EndsAWhisper)
{
    const SpokenText text = ParseSpeech("\\Chr=\"Whisper\"\\a\\Chr=\"Monotone\"\\b");
    EXPECT_FALSE(text.segments.at(1).whisper);
    EXPECT_TRUE(text.segments.at(1).monotone);
}

TEST(ParseSpeech, Rst_BringsFullVolumeBack)
{
    const SpokenText text = ParseSpeech("\\Vol=5\\a\\Rst\\b");
    EXPECT_EQ(text.segments.at(1).volume, 65535);
}

TEST(ParseSpeech, ANumberWithLettersBehind_ChangesNothing)
{
    EXPECT_EQ(ParseSpeech("\\Pit=100a\\Hi").segments.at(0).pitchHertz, 0);
}

TEST(ParseSpeech, AQuotedNumber_IsOneOnlyIfItHoldsNothingElse)
{
    EXPECT_EQ(ParseSpeech("\\Pit=\"150\"\\Hi").segments.at(0).pitchHertz, 150);
    for (const char* other : {"15:", "15/", "15 ", "1 5"})
        EXPECT_EQ(ParseSpeech("\\Pit=\"" + std::string(other) + "\"\\Hi").segments.at(0).pitchHertz, 0) << other;
}

TEST(ParseSpeech, ASignAlone_ChangesNothing) { EXPECT_EQ(ParseSpeech("\\Pit=-\\Hi").segments.at(0).pitchHertz, 0); }

TEST(ParseSpeech, AllDigits_AreDigits)
{
    EXPECT_EQ(ParseSpeech("\\Pit=109\\Hi").segments.at(0).pitchHertz, 109);
    EXPECT_EQ(ParseSpeech("\\Pit=290\\Hi").segments.at(0).pitchHertz, 290);
}

TEST(ParseSpeech, Mrk_OfOne_IsTheFirstBookmark)
{
    EXPECT_EQ(ParseSpeech("\\Mrk=1\\Hi").bookmarks, (std::vector<SpeechBookmark>{{1, {0, 0}}}));
}

TEST(ParseSpeech, Lst_WithAnErrorBeside_RepeatsNothing) { EXPECT_FALSE(ParseSpeech("\\Mrk=0\\\\Lst\\").repeatsLast); }

TEST(ParseSpeech, Map_SpeakingNothing_ShowsOnly)
{
    const SpokenText text = ParseSpeech("a \\Map=\"\"=\"b\"\\");
    EXPECT_EQ(text.shown, "a b");
    EXPECT_EQ(SpokenTexts(text), Texts{"a "});
    EXPECT_EQ(text.words, (std::vector<ShownWord>{{0, 1, {0, 0}}, {2, 3, {0, 2}}}));
}

TEST(ParseSpeech, Map_WithThreeStrings_StaysText)
{
    EXPECT_EQ(ParseSpeech("\\Map=\"a\"=\"b\"=\"c\"\\").shown, "\\Map=\"a\"=\"b\"=\"c\"\\");
}

TEST(ParseSpeech, Map_SpokenTextOfLettersOfSeveralBytes_CountsCharacters)
{
    const SpokenText text = ParseSpeech("\\Map=\"\xC3\xA4\xC3\xB6\"=\"b\"\\ c");
    EXPECT_EQ(text.words.at(1).spoken, (TextPlace{0, 3}));
}

TEST(ParseSpeech, ATagNameOfTheLargestLength_IsATag) { EXPECT_EQ(ParseSpeech("\\Abcdefghijklmnop=1\\Hi").shown, "Hi"); }

TEST(ParseSpeech, ALongerTagName_StaysText)
{
    EXPECT_EQ(ParseSpeech("\\Abcdefghijklmnopq=1\\Hi").shown, "\\Abcdefghijklmnopq=1\\Hi");
}

TEST(ParseSpeech, AValueOfTheLargestLength_IsAValue)
{
    EXPECT_EQ(ParseSpeech("\\Xyz=" + std::string(64, '1') + "\\Hi").shown, "Hi");
}

TEST(ParseSpeech, ALongerValue_StaysText)
{
    const std::string text = "\\Xyz=" + std::string(65, '1') + "\\Hi";
    EXPECT_EQ(ParseSpeech(text).shown, text);
}

TEST(ParseSpeech, AStringOfTheLargestLength_IsAString)
{
    const std::string spoken(2046, 'a');
    EXPECT_EQ(ParseSpeech("\\Map=\"" + spoken + "\"=\"b\"\\").shown, "b");
}

TEST(ParseSpeech, ALongerString_StaysText)
{
    const std::string text = "\\Map=\"" + std::string(2047, 'a') + "\"=\"b\"\\";
    EXPECT_EQ(ParseSpeech(text).shown, text);
}

TEST(ParseSpeech, AValueOfNothing_StaysText) { EXPECT_EQ(ParseSpeech("\\Pit=\\Hi").shown, "\\Pit=\\Hi"); }

TEST(ParseSpeech, AValueOfDigitsAndSigns_IsAValue) { EXPECT_EQ(ParseSpeech("\\Xyz=aZ09-+.,_\\Hi").shown, "Hi"); }

TEST(ParseSpeech, AnUnknownNameWithoutValue_IsATagOnlyWhereNoPathCouldBe)
{
    EXPECT_EQ(ParseSpeech("\\Xyz\\a").shown, "a");
    EXPECT_EQ(ParseSpeech("b|\\Xyz\\a").shown, "b|a");
    EXPECT_EQ(ParseSpeech("C:\\Xyz\\a").shown, "C:\\Xyz\\a");
    EXPECT_EQ(ParseSpeech("b\\Xyz\\a").shown, "b\\Xyz\\a");
}

TEST(ParseSpeech, AnUnknownNameOfFourLettersWithoutValue_StaysText)
{
    EXPECT_EQ(ParseSpeech(" \\Wxyz\\a").shown, " \\Wxyz\\a");
}

TEST(ParseSpeech, KnownNamesWithoutValue_AreTagsBehindLettersToo)
{
    EXPECT_EQ(ParseSpeech("a\\Emp\\b").shown, "ab");
    EXPECT_EQ(ParseSpeech("a\\Rst\\b").shown, "ab");
}

TEST(WordsBegunAt, TheFirstCharacterOfAWord_CountsIt)
{
    EXPECT_EQ(engine::WordsBegunAt(ParseSpeech("one two"), {0, 4}), 2u);
}

TEST(WordsBegunAt, TheBlankBefore_DoesNot) { EXPECT_EQ(engine::WordsBegunAt(ParseSpeech("one two"), {0, 3}), 1u); }

TEST(ChooseAlternative, FractionsOutsideTheRange_PickTheEnds)
{
    EXPECT_EQ(ChooseAlternative("a|b|c", -0.5), "a");
    EXPECT_EQ(ChooseAlternative("a|b|c", 1.0), "c");
    EXPECT_EQ(ChooseAlternative("a|b|c", 7.0), "c");
}
