#include "engine/hosts/qt/PulseOutput.h"
#include "Support.h"
#include "engine/hosts/qt/SteadyClock.h"
#include <algorithm>
#include <array>
#include <csignal>
#include <cstdlib>
#include <new>

using namespace engine;
using namespace std::chrono_literals;

namespace {

constexpr std::int64_t SamplesPerMillisecond = 22;

// A sound that is never silent and whose samples tell where they belong: 1 to 30000, again and again.
std::vector<std::int16_t> Ramp(std::size_t count)
{
    std::vector<std::int16_t> samples(count);
    for (std::size_t index = 0; index < count; ++index)
        samples[index] = static_cast<std::int16_t>(index % 30000 + 1);
    return samples;
}

// The recording from its first to its last sample that is not silent.
std::vector<std::int16_t> WithoutSilence(const std::vector<std::int16_t>& recording)
{
    const auto sounds = [](std::int16_t sample) { return sample != 0; };
    const auto first = std::find_if(recording.begin(), recording.end(), sounds);
    const auto last = std::find_if(recording.rbegin(), recording.rend(), sounds).base();
    return first < last ? std::vector<std::int16_t>(first, last) : std::vector<std::int16_t>();
}

// Whether a recording holds a sound, which has no silent sample, whole and in order. A busy machine may leave short gaps.
testing::AssertionResult Holds(std::vector<std::int16_t> recording, const std::vector<std::int16_t>& sound)
{
    const auto silent = std::count(recording.begin(), recording.end(), std::int16_t{0});
    recording.erase(std::remove(recording.begin(), recording.end(), std::int16_t{0}), recording.end());
    const auto [one, other] = std::mismatch(recording.begin(), recording.end(), sound.begin(), sound.end());
    const bool whole = one == recording.end() && other == sound.end();
    if (whole && silent <= 150 * SamplesPerMillisecond)
        return testing::AssertionSuccess();
    return testing::AssertionFailure() << recording.size() << " samples instead of " << sound.size() << ", " << silent
                                       << " silent ones, different from number " << (one - recording.begin());
}

class PulseOutput : public testing::Test {
protected:
    PulseOutput() { support::NeedEventLoop(); }

    // The output with its server's connection, as the host makes it.
    void MakeOutput()
    {
        m_connection = std::make_shared<CPulseServer>();
        m_output = std::make_unique<CPulseOutput>(m_connection);
    }
    void MakeConnectedOutput()
    {
        m_server.Start();
        MakeOutput();
        ASSERT_TRUE(support::RunLoopUntil([&] { return m_connection->CurrentState() == CPulseServer::State::Ready; }));
        support::RunLoop(50ms);
    }
    CPulseStream* MakeStream(void* place)
    {
        const CPulseServer::CLock lock(*m_connection);
        auto* stream = new (place) CPulseStream(m_connection->Context(), 22050);
        stream->Add(Ramp(22050));
        return stream;
    }
    std::int64_t Heard(CPulseStream& stream) const
    {
        const CPulseServer::CLock lock(*m_connection);
        return stream.Heard();
    }
    void Destroy(CPulseStream* stream) const
    {
        const CPulseServer::CLock lock(*m_connection);
        stream->~CPulseStream();
    }
    void Play(const std::vector<std::int16_t>& samples)
    {
        m_output->Begin(22050);
        m_output->Write(samples);
        m_output->End();
    }
    bool PlayToEnd(const std::vector<std::int16_t>& samples)
    {
        Play(samples);
        return support::RunLoopUntil([&] { return m_output->Position() == static_cast<std::int64_t>(samples.size()); });
    }
    // How far the position strays from the wall clock, in milliseconds, once it moves; over a stretch of time.
    std::int64_t WorstStrayMilliseconds(std::chrono::milliseconds time)
    {
        EXPECT_TRUE(support::RunLoopUntil([&] { return m_output->Position() > 0; }));
        const std::int64_t position = m_output->Position();
        const std::int64_t begin = SteadyMicroseconds();
        std::int64_t worst = 0;
        support::RunLoopUntil(
            [&] {
                const std::int64_t expected = position + (SteadyMicroseconds() - begin) * 22050 / 1000000;
                worst = std::max(worst, std::abs(m_output->Position() - expected) / SamplesPerMillisecond);
                return false;
            },
            time);
        return worst;
    }

    support::CSoundServer m_server;
    std::shared_ptr<CPulseServer> m_connection;
    std::unique_ptr<CPulseOutput> m_output;
};

}

TEST_F(PulseOutput, Write_AWholeSound_IsHeardSampleBySample)
{
    MakeConnectedOutput();
    m_server.Record();
    const std::vector<std::int16_t> sound = Ramp(44100);

    EXPECT_TRUE(PlayToEnd(sound));
    EXPECT_TRUE(Holds(WithoutSilence(m_server.TakeRecording()), sound));
}

TEST_F(PulseOutput, Write_InManyPieces_IsHeardWithoutAGap)
{
    MakeConnectedOutput();
    m_server.Record();
    const std::vector<std::int16_t> sound = Ramp(22050);
    m_output->Begin(22050);
    for (std::size_t first = 0; first < sound.size(); first += 1050) {
        m_output->Write(
            {sound.begin() + static_cast<std::ptrdiff_t>(first), sound.begin() + static_cast<std::ptrdiff_t>(first + 1050)});
        support::RunLoop(5ms);
    }
    m_output->End();

    EXPECT_TRUE(support::RunLoopUntil([&] { return m_output->Position() == 22050; }));
    EXPECT_TRUE(Holds(WithoutSilence(m_server.TakeRecording()), sound));
}

TEST_F(PulseOutput, Write_AfterRunningDry_LosesNothing)
{
    MakeConnectedOutput();
    m_server.Record();
    const std::vector<std::int16_t> sound = Ramp(4410);
    m_output->Begin(22050);
    m_output->Write(sound);
    EXPECT_TRUE(support::RunLoopUntil([&] { return m_output->Position() == 4410; }));
    support::RunLoop(300ms);
    EXPECT_EQ(m_output->Position(), 4410);
    m_output->Write(sound);
    m_output->End();
    EXPECT_LE(m_output->Position(), 4410 + 20 * SamplesPerMillisecond);

    EXPECT_TRUE(support::RunLoopUntil([&] { return m_output->Position() == 8820; }));
    std::vector<std::int16_t> heard = m_server.TakeRecording();
    heard.erase(std::remove(heard.begin(), heard.end(), std::int16_t{0}), heard.end());
    std::vector<std::int16_t> expected = sound;
    expected.insert(expected.end(), sound.begin(), sound.end());
    EXPECT_EQ(heard, expected);
}

TEST_F(PulseOutput, Write_TwoOutputs_BothAreHeard)
{
    MakeConnectedOutput();
    CPulseOutput other(m_connection);
    m_server.Record();
    other.Begin(22050);
    other.Write(std::vector<std::int16_t>(11025, 5000));
    other.End();
    Play(std::vector<std::int16_t>(11025, 7000));

    EXPECT_TRUE(support::RunLoopUntil([&] { return m_output->Position() == 11025 && other.Position() == 11025; }));
    const std::vector<std::int16_t> heard = m_server.TakeRecording();
    EXPECT_GT(std::count(heard.begin(), heard.end(), std::int16_t{12000}), 8000);
}

TEST_F(PulseOutput, Position_WhilePlaying_KeepsToTheWallClock)
{
    MakeConnectedOutput();
    Play(Ramp(66150));

    EXPECT_LE(WorstStrayMilliseconds(2000ms), 15);
}

TEST_F(PulseOutput, Position_WhilePlaying_NeverGoesBackOrBeyond)
{
    MakeConnectedOutput();
    Play(Ramp(22050));
    std::int64_t before = 0;

    EXPECT_TRUE(support::RunLoopUntil([&] {
        const std::int64_t position = m_output->Position();
        EXPECT_GE(position, before);
        EXPECT_LE(position, 22050);
        before = position;
        return position == 22050;
    }));
}

TEST_F(PulseOutput, Begin_WarmServer_IsHeardSoon)
{
    MakeConnectedOutput();
    const std::int64_t begin = SteadyMicroseconds();
    Play(Ramp(22050));
    const bool heard = support::RunLoopUntil([&] { return m_output->Position() > 0; });
    const std::int64_t firstHeardAt = SteadyMicroseconds() - m_output->Position() * 1000000 / 22050;

    EXPECT_TRUE(heard);
    EXPECT_LE((firstHeardAt - begin) / 1000, 100);
    RecordProperty("FirstSampleMilliseconds", static_cast<int>((firstHeardAt - begin) / 1000));
}

TEST_F(PulseOutput, Begin_AgainInMidSound_ReplacesTheFirst)
{
    MakeConnectedOutput();
    m_server.Record();
    Play(std::vector<std::int16_t>(44100, 3000));
    support::RunLoop(200ms);
    Play(std::vector<std::int16_t>(4410, 9000));

    EXPECT_TRUE(support::RunLoopUntil([&] { return m_output->Position() == 4410; }));
    const std::vector<std::int16_t> heard = m_server.TakeRecording();
    EXPECT_LT(std::count(heard.begin(), heard.end(), std::int16_t{3000}), 260 * SamplesPerMillisecond);
    EXPECT_EQ(std::count(heard.begin(), heard.end(), std::int16_t{9000}), 4410);
}

TEST_F(PulseOutput, Stop_InMidSound_IsSilentWithinFiftyMilliseconds)
{
    MakeConnectedOutput();
    m_server.Record();
    Play(Ramp(66150));
    support::RunLoop(700ms);
    m_output->Stop();
    const std::int64_t position = m_output->Position();
    support::RunLoop(200ms);

    EXPECT_EQ(m_output->Position(), position);
    const std::vector<std::int16_t> heard = WithoutSilence(m_server.TakeRecording());
    EXPECT_LE(static_cast<std::int64_t>(heard.size()), position + 50 * SamplesPerMillisecond);
    EXPECT_GT(heard.size(), 5000U);
}

TEST_F(PulseOutput, End_AfterTheLastSample_GivesTheLoudspeakerBack)
{
    MakeConnectedOutput();
    EXPECT_TRUE(PlayToEnd(Ramp(4410)));

    EXPECT_TRUE(support::RunLoopUntil([&] { return m_server.PlayingStreams() == 0; }));
}

TEST_F(PulseOutput, Position_NoServer_FollowsTheClock)
{
    MakeOutput();
    Play(Ramp(44100));

    EXPECT_LE(WorstStrayMilliseconds(500ms), 2);
    EXPECT_TRUE(support::RunLoopUntil([&] { return m_output->Position() == 44100; }));
}

TEST_F(PulseOutput, Position_ServerDiesInMidSound_GoesOnByTheClock)
{
    MakeConnectedOutput();
    Play(Ramp(44100));
    ASSERT_TRUE(support::RunLoopUntil([&] { return m_output->Position() > 8000; }));
    m_server.Kill();

    EXPECT_LE(WorstStrayMilliseconds(500ms), 60);
    EXPECT_TRUE(support::RunLoopUntil([&] { return m_output->Position() == 44100; }));
}

TEST_F(PulseOutput, Begin_AfterTheServerDied_FollowsTheClock)
{
    MakeConnectedOutput();
    m_server.Kill();
    support::RunLoop(50ms);

    EXPECT_TRUE(PlayToEnd(Ramp(4410)));
}

TEST_F(PulseOutput, Begin_ServerAppearsLater_IsHeard)
{
    MakeOutput();
    EXPECT_TRUE(PlayToEnd(Ramp(2205)));
    m_server.Start();
    m_server.Record();
    const std::vector<std::int16_t> sound = Ramp(11025);

    EXPECT_TRUE(PlayToEnd(sound));
    EXPECT_TRUE(Holds(WithoutSilence(m_server.TakeRecording()), sound));
}

TEST_F(PulseOutput, Begin_AfterTheServerCameBack_IsHeard)
{
    MakeConnectedOutput();
    m_server.Kill();
    EXPECT_TRUE(PlayToEnd(Ramp(2205)));
    m_server.Start();
    m_server.Record();
    const std::vector<std::int16_t> sound = Ramp(11025);

    EXPECT_TRUE(PlayToEnd(sound));
    EXPECT_TRUE(Holds(WithoutSilence(m_server.TakeRecording()), sound));
}

TEST_F(PulseOutput, Position_ServerStopsAnswering_GoesOnByTheClock)
{
    MakeConnectedOutput();
    Play(Ramp(22050));
    ASSERT_TRUE(support::RunLoopUntil([&] { return m_output->Position() > 4000; }));
    m_server.Signal(SIGSTOP);

    EXPECT_TRUE(support::RunLoopUntil([&] { return m_output->Position() == 22050; }, 20s));
    m_server.Signal(SIGCONT);
}

// The server's answer would be written to where the stream was.
TEST_F(PulseOutput, Stream_GoneWhileItsAnswersAreAwaited_IsNotTouchedAnyMore)
{
    MakeConnectedOutput();
    alignas(CPulseStream) std::array<unsigned char, sizeof(CPulseStream)> place;
    auto* stream = MakeStream(place.data());
    ASSERT_TRUE(support::RunLoopUntil([&] { return Heard(*stream) > 2000; }));
    m_server.Signal(SIGSTOP);
    support::RunLoop(60ms);  // It asks no more often than that.
    Heard(*stream);
    Destroy(stream);
    place.fill(0xAA);
    m_server.Signal(SIGCONT);

    EXPECT_TRUE(PlayToEnd(Ramp(2205)));  // Answers come in order.
    EXPECT_EQ(std::count(place.begin(), place.end(), 0xAA), static_cast<std::ptrdiff_t>(place.size()));
}

TEST_F(PulseOutput, Begin_ServerThatNeverAnswers_FollowsTheClockAfterAMoment)
{
    m_server.Start();
    m_server.Signal(SIGSTOP);
    MakeOutput();
    Play(Ramp(4410));

    EXPECT_TRUE(support::RunLoopUntil([&] { return m_output->Position() == 4410; }, 2s));
    m_server.Signal(SIGCONT);
}

TEST_F(PulseOutput, Stop_BeforeBegin_IsHarmless)
{
    MakeOutput();
    m_output->Write(Ramp(10));
    m_output->End();
    m_output->Stop();

    EXPECT_EQ(m_output->Position(), 0);
}

TEST_F(PulseOutput, Begin_OddSampleRate_IsPlayed)
{
    MakeConnectedOutput();
    m_output->Begin(8000);
    m_output->Write(Ramp(1600));
    m_output->End();

    EXPECT_TRUE(support::RunLoopUntil([&] { return m_output->Position() == 1600; }));
}
