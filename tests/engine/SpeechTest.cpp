#include "EngineTest.h"
#include <cstdio>
#include <ctime>
#include <filesystem>
#include <fstream>

using namespace testing_character;

// The voice of the headless host takes 60 milliseconds a character and answers after 5.
class SpeechTest : public EngineTest {
protected:
    std::string WriteSound(const std::vector<std::uint8_t>& bytes)
    {
        const std::filesystem::path path =
            std::filesystem::temp_directory_path() /
            ("engine-" + std::string(::testing::UnitTest::GetInstance()->current_test_info()->name()) + ".wav");
        std::ofstream(path, std::ios::binary)
            .write(reinterpret_cast<const char*>(bytes.data()), static_cast<std::streamsize>(bytes.size()));
        m_files.push_back(path);
        return path.string();
    }
    ~SpeechTest() override
    {
        std::error_code error;
        for (const std::filesystem::path& path : m_files)
            std::filesystem::remove(path, error);
    }

private:
    std::vector<std::filesystem::path> m_files;
};

TEST_F(SpeechTest, Speak_LastsAsLongAsItsSound)
{
    LoadShown();
    const RequestRef speech = Say("Hello");
    host.Advance(5 + 299);
    EXPECT_EQ(StatusOf(speech), 4);
    host.Advance(21);
    EXPECT_EQ(StatusOf(speech), 0);
    EXPECT_EQ(host.sound.streams.at(0).written, 3000);
    EXPECT_TRUE(host.sound.streams.at(0).ended);
}

TEST_F(SpeechTest, Speak_FromASpeakingPose_OrdersTheVoiceInsideTheCall)
{
    LoadShown();
    Say("Hello");
    host.RunUntilIdle();
    Say("Again");
    EXPECT_EQ(host.synthesizer.Orders().size(), 2u);
}

TEST_F(SpeechTest, TheFirstSample_IsWrittenAsSoonAsTheVoiceAnswers)
{
    LoadShown();
    const std::int64_t asked = host.time.NowMilliseconds();
    Say("Hello");
    host.Advance(100);
    EXPECT_EQ(host.sound.streams.at(0).begunAt - asked, 5);
}

TEST_F(SpeechTest, QueuedTexts_FollowEachOtherWithoutAGap)
{
    LoadShown();
    Say("Hello");
    Say("World");
    host.RunUntilIdle();
    const std::int64_t gap = host.sound.streams.at(1).begunAt - host.sound.streams.at(0).begunAt - 300;
    EXPECT_GE(gap, 0);
    EXPECT_LE(gap, 20);
}

TEST_F(SpeechTest, Words_AppearWhenTheyAreHeard)
{
    LoadShown();
    Say("One two three");
    host.Advance(5);
    EXPECT_EQ(host.Balloon().Text(), "One");
    host.Advance(220);
    EXPECT_EQ(host.Balloon().Text(), "One");
    host.Advance(40);
    EXPECT_EQ(host.Balloon().Text(), "One two");
    host.Advance(240);
    EXPECT_EQ(host.Balloon().Text(), "One two three");
}

TEST_F(SpeechTest, Words_FollowALateLoudspeaker)
{
    LoadShown();
    host.sound.latency = 200;
    Say("One two");
    host.Advance(5 + 200 + 220);
    EXPECT_EQ(host.Balloon().Text(), "One");
    host.Advance(60);
    EXPECT_EQ(host.Balloon().Text(), "One two");
}

TEST_F(SpeechTest, TheMouth_FollowsTheVoiceAndRestsAfterwards)
{
    LoadShown();
    Say("One two");
    host.Advance(10);
    EXPECT_EQ(Pixel(1, 2), White);
    host.Advance(195);
    EXPECT_EQ(Pixel(1, 2), Black);
    host.Advance(60);
    EXPECT_EQ(Pixel(1, 2), White);
    host.RunUntilIdle();
    EXPECT_EQ(Pixel(1, 2), Red);
}

TEST_F(SpeechTest, Speak_InASpeakingPose_KeepsThePose)
{
    LoadShown();
    bot->Play("Greet");
    Say("Hello");
    host.Advance(300);
    EXPECT_EQ(Pixel(0, 0), Blue);
    EXPECT_EQ(Pixel(1, 2), White);
}

TEST_F(SpeechTest, Speak_InTheReadingPose_PlaysNoReturn)
{
    LoadShown();
    bot->Play("Read");
    Say("Hello");
    host.Advance(300);
    EXPECT_EQ(Pixel(0, 0), Green);
}

TEST_F(SpeechTest, Speak_InAPoseWithoutMouth_TakesTheSpeakingPose)
{
    LoadShown();
    bot->Play("Wave");
    Say("Hello");
    host.Advance(400);
    EXPECT_EQ(Pixel(0, 0), Red);
    EXPECT_EQ(Pixel(1, 2), White);
}

TEST_F(SpeechTest, ACharacterThatCannotMoveItsMouth_StillSpeaks)
{
    engine::Character character = Make();
    for (engine::Animation& animation : character.animations)
        for (engine::Frame& frame : animation.frames)
            frame.mouths.clear();
    LoadShown(character);
    const RequestRef speech = Say("Hello");
    host.RunUntilIdle();
    EXPECT_EQ(StatusOf(speech), 0);
}

TEST_F(SpeechTest, TheCharactersVoice_GivesPitchAndPace)
{
    LoadShown();
    Say("Hello");
    const engine::SpeechSegment& segment = host.synthesizer.Orders().at(0).segments.at(0);
    EXPECT_EQ(segment.pitchHertz, 120);
    EXPECT_EQ(segment.wordsPerMinute, 150);
}

TEST_F(SpeechTest, ACharacterWithoutPitchAndPace_SpeaksAsTheVoiceDoes)
{
    engine::Character character = Make();
    character.voice->pitch.reset();
    character.voice->wordsPerMinute.reset();
    LoadShown(std::move(character));
    Say("Hello");
    const engine::SpeechSegment& segment = host.synthesizer.Orders().at(0).segments.at(0);
    EXPECT_EQ(segment.pitchHertz, 0);
    EXPECT_EQ(segment.wordsPerMinute, 0);
}

TEST_F(SpeechTest, Tags_ReachTheVoiceAndNotTheBalloon)
{
    LoadShown();
    Say("\\Spd=200\\\\Pit=90\\Hello");
    host.RunUntilIdle();
    const engine::SpeechSegment& segment = host.synthesizer.Orders().at(0).segments.at(0);
    EXPECT_EQ(segment.text, "Hello");
    EXPECT_EQ(segment.wordsPerMinute, 200);
    EXPECT_EQ(segment.pitchHertz, 90);
    EXPECT_EQ(host.Balloon().Text(), "Hello");
}

TEST_F(SpeechTest, Tags_EndWithTheirText)
{
    LoadShown();
    Say("\\Pit=90\\One");
    Say("Two");
    host.RunUntilIdle();
    EXPECT_EQ(host.synthesizer.Orders().at(1).segments.at(0).pitchHertz, 120);
}

TEST_F(SpeechTest, Tags_LeavePitchAndSpeedAlone)
{
    LoadShown();
    Say("\\Pit=90\\\\Spd=90\\One");
    host.RunUntilIdle();
    EXPECT_EQ(bot->Pitch(), 120);
    EXPECT_EQ(bot->Speed(), 150);
}

TEST_F(SpeechTest, Alternatives_AreChosenAtRandom)
{
    LoadShown();
    host.randomFractions = {0.5};
    Say("Hello|Good day");
    host.RunUntilIdle();
    EXPECT_EQ(host.Balloon().Text(), "Good day");
}

TEST_F(SpeechTest, ABookmark_IsRaisedWhenItIsReached)
{
    LoadShown();
    const std::int64_t asked = host.time.NowMilliseconds();
    Say("One \\Mrk=7\\two");
    host.RunUntilIdle();
    EXPECT_EQ(journal.Of("Bookmark"), Lines{"Bookmark 7"});
    const std::int64_t heard = journal.TimeOf("Bookmark") - asked - 5;
    EXPECT_GE(heard, 240);
    EXPECT_LE(heard, 260);
}

TEST_F(SpeechTest, ABookmarkBeforeAPause_IsRaisedBeforeThePause)
{
    LoadShown();
    const std::int64_t asked = host.time.NowMilliseconds();
    Say("One \\Mrk=7\\\\Pau=1000\\two");
    host.RunUntilIdle();
    EXPECT_LE(journal.TimeOf("Bookmark") - asked, 300);
}

TEST_F(SpeechTest, ABookmarkAtTheEnd_IsRaisedBeforeTheCompletion)
{
    LoadShown();
    Keep(Say("One\\Mrk=3\\"));
    host.RunUntilIdle();
    EXPECT_EQ(journal.lines, (Lines{"RequestStart 3 status 4", "BalloonShow Bot", "Bookmark 3", "RequestComplete 3 status 0",
                                    "BalloonHide Bot"}));
}

TEST_F(SpeechTest, BookmarksOnly_AreRaisedInOrder)
{
    LoadShown();
    Say("\\Mrk=1\\\\Mrk=2\\");
    host.RunUntilIdle();
    EXPECT_EQ(journal.lines, (Lines{"Bookmark 1", "Bookmark 2"}));
}

TEST_F(SpeechTest, ABadBookmark_FailsTheRequest)
{
    LoadShown();
    const RequestRef speech = Say("\\Mrk=0\\One");
    host.RunUntilIdle();
    EXPECT_EQ(StatusOf(speech), 1);
    EXPECT_EQ(speech->Number(), code::BadBookmark);
}

TEST_F(SpeechTest, Lst_RepeatsTheLastStatementWithoutBookmarks)
{
    LoadShown();
    Say("\\Pit=90\\One \\Mrk=1\\two");
    Say("\\Lst\\");
    host.RunUntilIdle();
    ASSERT_EQ(host.synthesizer.Orders().size(), 2u);
    EXPECT_EQ(host.synthesizer.Orders()[1].segments.at(0).text, "One two");
    EXPECT_EQ(host.synthesizer.Orders()[1].segments.at(0).pitchHertz, 90);
    EXPECT_EQ(journal.Count("Bookmark"), 1u);
}

TEST_F(SpeechTest, Lst_BesideText_FailsTheRequest)
{
    LoadShown();
    const RequestRef speech = Say("x \\Lst\\");
    host.RunUntilIdle();
    EXPECT_EQ(speech->Number(), code::LastTagNotAlone);
}

TEST_F(SpeechTest, AnEmptyText_CompletesSilently)
{
    LoadShown();
    const RequestRef speech = Say("");
    host.RunUntilIdle();
    EXPECT_EQ(StatusOf(speech), 0);
    EXPECT_TRUE(host.synthesizer.Orders().empty());
    EXPECT_TRUE(host.balloons.empty());
}

TEST_F(SpeechTest, StopAll_SilencesAtOnce)
{
    LoadShown();
    const RequestRef speech = Say("Hello there");
    host.Advance(100);
    bot->StopAll(std::nullopt);
    EXPECT_TRUE(host.sound.streams.at(0).stopped);
    EXPECT_EQ(StatusOf(speech), 3);
    EXPECT_EQ(Pixel(1, 2), Red);
}

TEST_F(SpeechTest, StopAll_CancelsTheVoice)
{
    LoadShown();
    host.synthesizer.charactersPerChunk = 1;
    Say("Hello there, this is a long text");
    host.Advance(6);
    bot->StopAll(std::nullopt);
    EXPECT_TRUE(host.synthesizer.Orders().at(0).cancelled);
}

TEST_F(SpeechTest, StoppingAQueuedText_CancelsItsPrefetch)
{
    LoadShown();
    Say("Hello there");
    const RequestRef second = Say("Another text");
    EXPECT_EQ(host.synthesizer.Orders().size(), 2u);
    bot->Stop(second);
    EXPECT_TRUE(host.synthesizer.Orders().at(1).cancelled);
}

TEST_F(SpeechTest, WithoutAVoice_TheBalloonReadsAtItsPace)
{
    engine::EngineSettings settings;
    settings.readingWordsPerMinute = 60;
    host.synthesizer.available = false;
    LoadShown(Make(), settings);
    const RequestRef speech = Say("One two");
    EXPECT_EQ(host.Balloon().Text(), "One");
    host.Advance(999);
    EXPECT_EQ(host.Balloon().Text(), "One");
    host.Advance(1);
    EXPECT_EQ(host.Balloon().Text(), "One two");
    host.Advance(1000);
    EXPECT_EQ(StatusOf(speech), 0);
    EXPECT_TRUE(host.sound.streams.empty());
}

TEST_F(SpeechTest, WithoutAVoice_BookmarksAreStillRaised)
{
    host.synthesizer.available = false;
    LoadShown();
    Say("One \\Mrk=4\\two");
    host.RunUntilIdle();
    EXPECT_EQ(journal.Of("Bookmark"), Lines{"Bookmark 4"});
}

TEST_F(SpeechTest, WithoutAVoice_AVeryLongWordTakesTheTimeOfSeveral)
{
    engine::EngineSettings settings;
    settings.readingWordsPerMinute = 60;
    host.synthesizer.available = false;
    LoadShown(Make(), settings);
    const RequestRef speech = Say("abcdefghijklmnopqrstuvwxyz");
    host.Advance(2999);
    EXPECT_EQ(StatusOf(speech), 4);
    host.Advance(1);
    EXPECT_EQ(StatusOf(speech), 0);
}

TEST_F(SpeechTest, NoVoices_ReadsSilentlyToo)
{
    host.synthesizer.voices.clear();
    LoadShown();
    const RequestRef speech = Say("Hello");
    host.RunUntilIdle();
    EXPECT_EQ(StatusOf(speech), 0);
    EXPECT_EQ(host.Balloon().Text(), "Hello");
}

TEST_F(SpeechTest, SpeechSwitchedOff_ReadsSilently)
{
    engine::EngineSettings settings;
    settings.speechOn = false;
    LoadShown(Make(), settings);
    const RequestRef speech = Say("Hello");
    host.RunUntilIdle();
    EXPECT_EQ(StatusOf(speech), 0);
    EXPECT_TRUE(host.synthesizer.Orders().empty());
}

TEST_F(SpeechTest, AFailingVoice_LetsTheBalloonReadOn)
{
    host.synthesizer.failAfterChunks = 0;
    LoadShown();
    const RequestRef speech = Say("One two");
    host.RunUntilIdle();
    EXPECT_EQ(StatusOf(speech), 0);
    EXPECT_EQ(host.Balloon().Text(), "One two");
}

TEST_F(SpeechTest, AVoiceThatFailsMidway_LetsTheBalloonReadOn)
{
    host.synthesizer.charactersPerChunk = 4;
    host.synthesizer.failAfterChunks = 1;
    LoadShown();
    const RequestRef speech = Say("One two three");
    host.RunUntilIdle();
    EXPECT_EQ(StatusOf(speech), 0);
    EXPECT_EQ(host.Balloon().Text(), "One two three");
}

TEST_F(SpeechTest, AVoiceThatNeverAnswers_IsGivenUp)
{
    host.synthesizer.silent = true;
    LoadShown();
    const RequestRef speech = Say("One two");
    host.RunUntilIdle();
    EXPECT_EQ(StatusOf(speech), 0);
}

TEST_F(SpeechTest, ALoudspeakerThatStandsStill_IsGivenUp)
{
    host.sound.broken = true;
    LoadShown();
    const RequestRef speech = Say("One two three");
    host.RunUntilIdle();
    EXPECT_EQ(StatusOf(speech), 0);
    EXPECT_EQ(host.Balloon().Text(), "One two three");
}

TEST_F(SpeechTest, ASoundFile_PlaysWithTheText)
{
    LoadShown();
    const RequestRef speech = bot->Speak("One two", WriteSound(MakeWave(800)));
    host.Advance(0);
    EXPECT_EQ(host.sound.streams.at(0).written, 800);
    EXPECT_EQ(host.Balloon().Text(), "One");
    host.Advance(420);
    EXPECT_EQ(host.Balloon().Text(), "One two");
    EXPECT_EQ(StatusOf(speech), 4);
    host.Advance(400);
    EXPECT_EQ(StatusOf(speech), 0);
    EXPECT_TRUE(host.synthesizer.Orders().empty());
}

TEST_F(SpeechTest, ASoundFileWithoutText_ShowsNoBalloon)
{
    LoadShown();
    const RequestRef speech = bot->Speak(std::nullopt, WriteSound(MakeWave(300)));
    host.Advance(320);
    EXPECT_EQ(StatusOf(speech), 0);
    EXPECT_TRUE(host.balloons.empty());
}

TEST_F(SpeechTest, ALoudSoundFile_OpensTheMouth)
{
    LoadShown();
    bot->Speak(std::nullopt, WriteSound(MakeWave(300, 2000)));
    host.Advance(20);
    EXPECT_EQ(Pixel(1, 2), White);
}

TEST_F(SpeechTest, AMissingSoundFile_FailsTheRequest)
{
    LoadShown();
    const RequestRef speech = bot->Speak("One", "no such file.wav");
    host.RunUntilIdle();
    EXPECT_EQ(StatusOf(speech), 1);
    EXPECT_EQ(speech->Number(), code::FileNotFound);
}

TEST_F(SpeechTest, AFileThatIsNoSound_FailsTheRequest)
{
    LoadShown();
    const RequestRef speech = bot->Speak("One", WriteSound({1, 2, 3, 4}));
    host.RunUntilIdle();
    EXPECT_EQ(speech->Number(), code::NotASoundFile);
}

TEST_F(SpeechTest, InvalidBytes_AreSpoken)
{
    LoadShown();
    const RequestRef speech = Say("a\xFF\xFE b\xC3");
    host.RunUntilIdle();
    EXPECT_EQ(StatusOf(speech), 0);
}

TEST_F(SpeechTest, ALongText_IsOrderedPieceByPiece)
{
    LoadShown();
    std::string text;
    for (int sentence = 0; sentence < 200; ++sentence)
        text += "This is a sentence. ";
    Say(text);
    host.Advance(1000);
    EXPECT_EQ(host.synthesizer.Orders().size(), 1u);
    EXPECT_LE(host.synthesizer.Orders()[0].segments.at(0).text.size(), 1500u);
    EXPECT_EQ(host.synthesizer.Orders()[0].segments[0].text.substr(1480), "This is a sentence. ");
    host.RunUntilIdle();
    EXPECT_EQ(host.synthesizer.Orders().size(), 3u);
    EXPECT_EQ(host.sound.streams.at(0).written, 4000 * 600);
}

TEST_F(SpeechTest, ATenMinuteReading_TakesNoRealTimeAndKeepsItsWordsInTheSound)
{
    LoadShown();
    const std::clock_t begin = std::clock();  // The processor's time: the machine may have much else to do.
    RequestRef last;
    for (int line = 0; line < 100; ++line)
        last = Keep(
            Say("These are a hundred characters of text that some\\Mrk=9\\body reads aloud, word by word, to the end."));
    const std::int64_t asked = host.time.NowMilliseconds();
    host.RunUntilIdle();
    const std::int64_t spoken = host.time.NowMilliseconds() - asked;
    EXPECT_EQ(StatusOf(last), 0);
    EXPECT_EQ(journal.Count("Bookmark 9"), 100u);
    EXPECT_EQ(journal.Count("RequestComplete"), 100u);
    EXPECT_GT(spoken, 9 * 60 * 1000);
    EXPECT_LT(spoken, 11 * 60 * 1000);
    EXPECT_LT(std::clock() - begin, 5 * CLOCKS_PER_SEC);
}

TEST_F(SpeechTest, TenThousandRequests_AreQueuedWithoutWork)
{
    LoadShown();
    Say("The first.");
    const std::size_t orders = host.synthesizer.Orders().size();
    RequestRef last;
    for (int line = 0; line < 10000; ++line)
        last = Say("This is a line of about a hundred characters, as they come when somebody reads a long text to you.");
    EXPECT_EQ(host.synthesizer.Orders().size(), orders + 1);
    bot->StopAll(std::nullopt);
    EXPECT_EQ(last->Number(), code::RemovedFromQueue);
}

TEST_F(SpeechTest, UnloadDuringAPrefetch_LeavesNothingBehind)
{
    LoadShown();
    Say("One two three");
    Say("Four five six");
    host.Advance(20);
    control->Characters()->Unload("Bot");
    EXPECT_TRUE(host.RunUntilIdle(10));
    EXPECT_TRUE(host.sound.streams.at(0).stopped);
}

// 75 sentences of 20 characters are a piece; it sounds for 90 seconds from the fifth millisecond on.
TEST_F(SpeechTest, TheNextPiece_IsOrderedWhenLessThanFiveSecondsAreLeft)
{
    LoadShown();
    std::string text;
    for (int sentence = 0; sentence < 100; ++sentence)
        text += "This is a sentence. ";
    Say(text);
    host.Advance(5 + 85000);
    EXPECT_EQ(host.synthesizer.Orders().size(), 1u);
    host.Advance(20);
    EXPECT_EQ(host.synthesizer.Orders().size(), 2u);
}

TEST_F(SpeechTest, WithoutAVoice_AWordOfTwelveLettersTakesTheTimeOfOne)
{
    engine::EngineSettings settings;
    settings.readingWordsPerMinute = 60;
    host.synthesizer.available = false;
    LoadShown(Make(), settings);
    const RequestRef speech = Say("abcdefghijkl");
    host.Advance(1000);
    EXPECT_EQ(StatusOf(speech), 0);
}

TEST_F(SpeechTest, WithoutAVoice_AWordOfThirteenLettersTakesTheTimeOfTwo)
{
    engine::EngineSettings settings;
    settings.readingWordsPerMinute = 60;
    host.synthesizer.available = false;
    LoadShown(Make(), settings);
    const RequestRef speech = Say("abcdefghijklm");
    host.Advance(1999);
    EXPECT_EQ(StatusOf(speech), 4);
    host.Advance(1);
    EXPECT_EQ(StatusOf(speech), 0);
}

TEST_F(SpeechTest, ALoudspeakerThatStandsStill_IsGivenUpAfterThreeSeconds)
{
    host.sound.broken = true;
    LoadShown();
    Say("One two three");
    host.Advance(5 + 3000);
    EXPECT_EQ(host.Balloon().Text(), "One");
    EXPECT_FALSE(host.sound.streams.at(0).stopped);
    host.Advance(20);
    EXPECT_EQ(host.Balloon().Text(), "One two");
    EXPECT_TRUE(host.sound.streams.at(0).stopped);
}

TEST_F(SpeechTest, AVoiceThatNeverAnswers_IsGivenUpAfterThreeSeconds)
{
    host.synthesizer.silent = true;
    LoadShown();
    Say("One two");
    host.Advance(2999);
    EXPECT_TRUE(host.balloons.empty());
    host.Advance(1);
    EXPECT_EQ(host.Balloon().Text(), "One");
}
