#include "engine/speech/SoundFileMarks.h"
#include <algorithm>
#include <cstdlib>

namespace engine {

namespace {

constexpr std::int64_t MouthsPerSecond = 20;

Mouth MouthOfLoudness(std::int64_t mean)
{
    constexpr std::int64_t Steps[] = {300, 1200, 2500, 4500};
    constexpr Mouth Mouths[] = {Mouth::Closed, Mouth::Wide1, Mouth::Wide2, Mouth::Wide3, Mouth::Wide4};
    return Mouths[std::upper_bound(std::begin(Steps), std::end(Steps), mean) - std::begin(Steps)];
}

void AddMouths(std::vector<FeedMark>& marks, const WaveSound& sound)
{
    const std::size_t stretch = std::max<std::size_t>(1, static_cast<std::size_t>(sound.sampleRate / MouthsPerSecond));
    for (std::size_t begin = 0; begin < sound.samples.size(); begin += stretch) {
        const std::size_t end = std::min(begin + stretch, sound.samples.size());
        std::int64_t sum = 0;
        for (std::size_t index = begin; index < end; ++index)
            sum += std::abs(std::int32_t{sound.samples[index]});
        const Mouth mouth = MouthOfLoudness(sum / static_cast<std::int64_t>(end - begin));
        marks.push_back({FeedMarkKind::Mouth, static_cast<std::int64_t>(begin), {}, mouth});
    }
}

void AddWords(std::vector<FeedMark>& marks, const WaveSound& sound, const SpokenText& text)
{
    const auto length = [](const ShownWord& word) { return static_cast<std::int64_t>(word.end - word.begin) + 1; };
    std::int64_t total = 0;
    for (const ShownWord& word : text.words)
        total += length(word);
    std::int64_t before = 0;
    for (const ShownWord& word : text.words) {
        const std::int64_t sample = static_cast<std::int64_t>(sound.samples.size()) * before / total;
        marks.push_back({FeedMarkKind::Word, sample, word.spoken, Mouth::Closed});
        before += length(word);
    }
}

}

std::vector<FeedMark> MarksOfSound(const WaveSound& sound, const SpokenText& text)
{
    std::vector<FeedMark> marks;
    AddWords(marks, sound, text);
    AddMouths(marks, sound);
    std::stable_sort(marks.begin(), marks.end(),
                     [](const FeedMark& left, const FeedMark& right) { return left.sample < right.sample; });
    return marks;
}

}
