#include "engine/speech/SpeechFeed.h"
#include "base/text/Text.h"
#include "base/text/Utf8.h"
#include "engine/base/Constants.h"
#include <algorithm>

namespace engine {

namespace {

struct TextCut {
    std::size_t bytes = 0;
    std::size_t characters = 0;
};

// How much of a text fits into `limit` characters: all of it, or up to the last end of a sentence, else the last blank.
TextCut CutText(std::string_view text, std::size_t limit)
{
    TextCut all;
    TextCut blank;
    TextCut sentence;
    bool afterStop = false;
    while (all.bytes < text.size() && all.characters < limit) {
        const text::Character character = text::CharacterAt(text, all.bytes);
        all.bytes += character.size;
        ++all.characters;
        const bool white = text::IsWhiteSpace(character.code);
        if (white)
            blank = all;
        if (white && afterStop)
            sentence = all;
        afterStop = character.code == '.' || character.code == '!' || character.code == '?';
    }
    if (all.bytes == text.size())
        return all;
    if (sentence.characters > limit / 2)
        return sentence;
    return blank.characters > limit / 2 ? blank : all;
}

}

CSpeechFeed::CSpeechFeed(ISynthesizer& synthesizer, std::string modeId, std::int32_t speedPercent,
                         const std::vector<SpeechSegment>& segments)
    : m_synthesizer(synthesizer), m_modeId(std::move(modeId)), m_speedPercent(speedPercent), m_segments(segments)
{
    OrderNext();
}

CSpeechFeed::~CSpeechFeed()
{
    if (m_utterance != 0 && !m_pieceDone)
        m_synthesizer.Cancel(m_utterance);
}

bool CSpeechFeed::Take(FeedPart& part)
{
    if (m_parts.empty())
        return false;
    part = std::move(m_parts.front());
    m_parts.pop_front();
    return true;
}

void CSpeechFeed::OrderNext()
{
    m_base = m_received;
    m_begun = 0;
    m_pieceDone = false;
    m_origins.clear();
    std::vector<SpeechSegment> piece = CutPiece();
    m_utterance =
        m_synthesizer.Synthesize(m_modeId, std::move(piece), [this](SpeechChunk chunk) { Receive(std::move(chunk)); });
}

std::vector<SpeechSegment> CSpeechFeed::CutPiece()
{
    std::vector<SpeechSegment> piece;
    std::size_t room = constants::SpeechPieceCharacters;
    while (MorePieces() && room > 0) {
        const SpeechSegment& whole = m_segments[m_segment];
        const TextCut cut = CutText(std::string_view(whole.text).substr(m_byte), room);
        m_origins.push_back({{m_segment, m_position}, m_byte == 0});
        SpeechSegment part = whole;
        part.speedPercent = m_speedPercent;
        part.text = whole.text.substr(m_byte, cut.bytes);
        part.pauseMilliseconds = m_byte == 0 ? whole.pauseMilliseconds : 0;
        part.emphasis = whole.emphasis && m_byte == 0;
        piece.push_back(std::move(part));
        room -= std::min(room, cut.characters + 1);
        m_byte += cut.bytes;
        m_position += cut.characters;
        if (m_byte < whole.text.size())
            break;
        ++m_segment;
        m_byte = 0;
        m_position = 0;
    }
    return piece;
}

void CSpeechFeed::Receive(SpeechChunk chunk)
{
    FeedPart part;
    for (const std::int64_t start : chunk.segmentStarts) {
        if (m_begun < m_origins.size() && m_origins[m_begun].begins)
            part.marks.push_back({FeedMarkKind::SegmentStart, m_base + start, m_origins[m_begun].place, Mouth::Closed});
        ++m_begun;
    }
    for (const SpeechMark& mark : chunk.marks)
        AddMark(part, mark);
    std::stable_sort(part.marks.begin(), part.marks.end(),
                     [](const FeedMark& left, const FeedMark& right) { return left.sample < right.sample; });
    m_received += static_cast<std::int64_t>(chunk.samples.size());
    part.samples = std::move(chunk.samples);
    m_parts.push_back(std::move(part));
    m_failed = m_failed || chunk.failed;
    m_pieceDone = m_pieceDone || chunk.last || chunk.failed;
    if (m_receiver)
        m_receiver();
}

void CSpeechFeed::AddMark(FeedPart& part, const SpeechMark& mark) const
{
    if (mark.kind == SpeechMarkKind::Mouth) {
        part.marks.push_back({FeedMarkKind::Mouth, m_base + mark.sample, {}, mark.mouth});
        return;
    }
    if (mark.segment >= m_origins.size())
        return;
    TextPlace place = m_origins[mark.segment].place;
    place.position += mark.textPosition;
    part.marks.push_back({FeedMarkKind::Word, m_base + mark.sample, place, Mouth::Closed});
}

}
