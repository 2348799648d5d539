#include "engine/speech/SpeechPlayer.h"
#include "base/text/Text.h"
#include "engine/base/Constants.h"
#include "engine/speech/SoundFileMarks.h"
#include <algorithm>

namespace engine {

void CSpeechPlayer::Begin(std::unique_ptr<PreparedSpeech> speech, std::int32_t readingWordsPerMinute)
{
    Stop();
    m_speech = std::move(speech);
    m_readingPace = std::max(1, readingWordsPerMinute);
    m_marks.clear();
    m_written = 0;
    m_allWritten = false;
    m_wordsBegun = 0;
    m_bookmarksPassed = 0;
}

void CSpeechPlayer::Play(std::unique_ptr<PreparedSpeech> speech, std::int32_t readingWordsPerMinute)
{
    Begin(std::move(speech), readingWordsPerMinute);
    if (!m_speech->feed) {
        GoSilent();
        return;
    }
    // A voice that does not answer is given up like a sound output that stands still.
    m_timer.Start(constants::SoundStallLimit, [this] { GoSilent(); });
    m_speech->feed->SetReceiver([this] { Pump(); });
    Pump();
}

void CSpeechPlayer::PlaySound(std::unique_ptr<PreparedSpeech> speech, const WaveSound& sound,
                              std::int32_t readingWordsPerMinute)
{
    Begin(std::move(speech), readingWordsPerMinute);
    OpenOutput(sound.sampleRate);
    FeedPart part{sound.samples, MarksOfSound(sound, m_speech->spoken)};
    Write(part);
    m_allWritten = true;
    m_output->End();
    m_timer.Start(0, [this] { Poll(); });
}

void CSpeechPlayer::Stop()
{
    m_timer.Stop();
    if (std::exchange(m_sounding, false))
        m_output->Stop();
    m_speech.reset();
}

void CSpeechPlayer::OpenOutput(std::int32_t sampleRate)
{
    if (!m_output)
        m_output = m_host.CreateSoundOutput();
    m_sampleRate = std::max(1, sampleRate);
    m_output->Begin(m_sampleRate);
    m_sounding = true;
    m_lastPosition = 0;
    m_lastProgress = m_host.Timers().NowMilliseconds();
}

void CSpeechPlayer::Pump()
{
    const CSpeechFeed& feed = *m_speech->feed;
    FeedPart part;
    while (!m_allWritten && m_speech->feed->Take(part)) {
        const bool first = !m_sounding;
        if (first)
            OpenOutput(m_host.Synthesizer().SampleRate());
        Write(part);
        if (first)
            m_timer.Start(0, [this] { Poll(); });
    }
    if (m_allWritten || !(feed.Failed() || feed.Complete()))
        return;
    m_allWritten = true;
    if (feed.Failed())
        m_timer.Start(0, [this] { GoSilent(); });
    else
        m_output->End();
}

void CSpeechPlayer::Write(FeedPart& part)
{
    m_marks.insert(m_marks.end(), part.marks.begin(), part.marks.end());
    m_written += static_cast<std::int64_t>(part.samples.size());
    if (!part.samples.empty())
        m_output->Write(part.samples);
}

void CSpeechPlayer::Poll()
{
    const std::int64_t position = m_output->Position();
    PassMarks(position);
    if (m_allWritten && position >= m_written) {
        End();
        return;
    }
    CSpeechFeed* feed = m_speech->feed.get();
    if (feed != nullptr && feed->CanOrder() && (m_written - position) * 1000 / m_sampleRate < constants::SpeechPieceLead)
        feed->OrderNext();
    if (Stalled(position))
        GoSilent();
    else
        m_timer.Start(constants::SpeechPoll, [this] { Poll(); });
}

bool CSpeechPlayer::Stalled(std::int64_t position)
{
    const std::int64_t now = m_host.Timers().NowMilliseconds();
    if (position > m_lastPosition)
        m_lastProgress = now;
    m_lastPosition = position;
    return now - m_lastProgress > constants::SoundStallLimit;
}

void CSpeechPlayer::PassMarks(std::int64_t position)
{
    while (!m_marks.empty() && m_marks.front().sample <= position) {
        const FeedMark mark = m_marks.front();
        m_marks.pop_front();
        Pass(mark);
    }
}

void CSpeechPlayer::Pass(const FeedMark& mark)
{
    if (mark.kind == FeedMarkKind::Mouth) {
        m_listener.MouthTurned(mark.mouth);
        return;
    }
    PassBookmarks(mark.place, mark.kind == FeedMarkKind::SegmentStart);
    if (mark.kind == FeedMarkKind::SegmentStart)
        return;
    const std::size_t begun = WordsBegunAt(m_speech->spoken, mark.place);
    if (begun > m_wordsBegun) {
        m_wordsBegun = begun;
        m_listener.WordsBegun(begun);
    }
}

// At the start of a segment its pause is still to come: only what stands before the segment is reached.
void CSpeechPlayer::PassBookmarks(TextPlace place, bool startOfSegment)
{
    const std::vector<SpeechBookmark>& bookmarks = m_speech->spoken.bookmarks;
    const auto reached = [&](TextPlace at) { return startOfSegment ? at.segment < place.segment : at <= place; };
    while (m_bookmarksPassed < bookmarks.size() && reached(bookmarks[m_bookmarksPassed].at))
        m_listener.BookmarkReached(bookmarks[m_bookmarksPassed++].number);
}

void CSpeechPlayer::GoSilent()
{
    if (std::exchange(m_sounding, false))
        m_output->Stop();
    m_speech->feed.reset();
    m_listener.MouthTurned(std::nullopt);
    ReadOneWord();
}

void CSpeechPlayer::ReadOneWord()
{
    const std::vector<ShownWord>& words = m_speech->spoken.words;
    if (m_wordsBegun == words.size()) {
        End();
        return;
    }
    const ShownWord& word = words[m_wordsBegun++];
    PassBookmarks(word.spoken, /*startOfSegment*/ false);
    m_listener.WordsBegun(m_wordsBegun);
    const std::size_t characters =
        text::Length(std::string_view(m_speech->spoken.shown).substr(word.begin, word.end - word.begin));
    const std::int64_t units = static_cast<std::int64_t>((characters - 1) / constants::ReadingCharactersPerWord) + 1;
    m_timer.Start(static_cast<std::int32_t>(units * 60000 / m_readingPace), [this] { ReadOneWord(); });
}

void CSpeechPlayer::End()
{
    m_timer.Stop();
    m_sounding = false;
    const std::unique_ptr<PreparedSpeech> ended = std::move(m_speech);
    const std::vector<SpeechBookmark>& bookmarks = ended->spoken.bookmarks;
    if (!ended->spoken.words.empty() && m_wordsBegun < ended->spoken.words.size())
        m_listener.WordsBegun(ended->spoken.words.size());
    for (; m_bookmarksPassed < bookmarks.size(); ++m_bookmarksPassed)
        m_listener.BookmarkReached(bookmarks[m_bookmarksPassed].number);
    m_listener.MouthTurned(std::nullopt);
    m_listener.SpeechEnded();
}

}
