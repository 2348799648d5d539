#pragma once
#include "engine/speech/SpeechTags.h"
#include <deque>
#include <functional>
#include <string>
#include <vector>

namespace engine {

enum class FeedMarkKind { SegmentStart, Word, Mouth };

// Something that happens at a sample, counted from the first sample of the whole text.
struct FeedMark {
    FeedMarkKind kind = FeedMarkKind::Word;
    std::int64_t sample = 0;
    TextPlace place;  // Of SegmentStart and Word.
    Mouth mouth = Mouth::Closed;
};

struct FeedPart {
    std::vector<std::int16_t> samples;
    std::vector<FeedMark> marks;
};

// The synthesis of one text. A long text is ordered piece by piece, so that its sound never lies in memory as a whole.
class CSpeechFeed {
public:
    // Borrows the segments for its lifetime. Orders the first piece.
    CSpeechFeed(ISynthesizer& synthesizer, std::string modeId, std::int32_t speedPercent,
                const std::vector<SpeechSegment>& segments);
    ~CSpeechFeed();
    CSpeechFeed(const CSpeechFeed&) = delete;
    CSpeechFeed& operator=(const CSpeechFeed&) = delete;

    // Called when something has arrived. The receiver must not destroy this feed.
    void SetReceiver(std::function<void()> receiver) { m_receiver = std::move(receiver); }
    // Takes the oldest part that has arrived; false when there is none.
    bool Take(FeedPart& part);
    bool Failed() const { return m_failed; }
    bool Complete() const { return m_pieceDone && !MorePieces(); }  // Everything has arrived.
    bool CanOrder() const { return m_pieceDone && !m_failed && MorePieces(); }
    void OrderNext();

private:
    struct Origin {
        TextPlace place;  // Of the first character of a segment of the piece.
        bool begins = true;
    };
    bool MorePieces() const { return m_segment < m_segments.size(); }
    std::vector<SpeechSegment> CutPiece();
    void Receive(SpeechChunk chunk);
    void AddMark(FeedPart& part, const SpeechMark& mark) const;

    ISynthesizer& m_synthesizer;
    std::string m_modeId;
    std::int32_t m_speedPercent;
    const std::vector<SpeechSegment>& m_segments;
    // The first character that is not ordered yet.
    std::size_t m_segment = 0;
    std::size_t m_byte = 0;
    std::size_t m_position = 0;
    // The piece that is being made.
    UtteranceID m_utterance = 0;
    std::vector<Origin> m_origins;
    std::size_t m_begun = 0;  // Its segments whose start has arrived.
    bool m_pieceDone = false;
    bool m_failed = false;
    std::int64_t m_base = 0;      // Samples before it.
    std::int64_t m_received = 0;  // Samples so far, of all pieces.
    std::deque<FeedPart> m_parts;
    std::function<void()> m_receiver;
};

}
