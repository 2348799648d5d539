#include "Require.h"
#include "engine/files/ByteWriter.h"
#include "engine/sound/WaveFile.h"
#include "engine/speech/SoundFileMarks.h"

// Any bytes are a sound that is not larger than they are, or none. The marks of a text that it accompanies lie inside it and
// in order, and written anew as the plainest of such files it is the same sound.
namespace {

using engine::WaveSound;

void WriteName(engine::files::CByteWriter& file, std::string_view name)
{
    for (const char letter : name)
        file.U8(static_cast<std::uint8_t>(letter));
}

std::vector<std::uint8_t> FileOf(const WaveSound& sound)
{
    const auto dataBytes = static_cast<std::uint32_t>(2 * sound.samples.size());
    const auto rate = static_cast<std::uint32_t>(sound.sampleRate);
    engine::files::CByteWriter file;
    WriteName(file, "RIFF");
    file.U32(36 + dataBytes);
    WriteName(file, "WAVEfmt ");
    file.U32(16);
    file.U16(1);
    file.U16(1);
    file.U32(rate);
    file.U32(2 * rate);
    file.U16(2);
    file.U16(16);
    WriteName(file, "data");
    file.U32(dataBytes);
    for (const std::int16_t sample : sound.samples)
        file.I16(sample);
    return file.Take();
}

void RequireMarks(const WaveSound& sound)
{
    static const engine::SpokenText text = engine::ParseSpeech("One, two \\Map=\"three\"=\"3\"\\ and x.");
    std::int64_t before = 0;
    std::size_t words = 0;
    for (const engine::FeedMark& mark : engine::MarksOfSound(sound, text)) {
        Require(mark.sample >= before && mark.sample <= static_cast<std::int64_t>(sound.samples.size()));
        before = mark.sample;
        words += mark.kind == engine::FeedMarkKind::Word ? 1 : 0;
    }
    Require(words == text.words.size());
}

}

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size)
{
    const auto sound = engine::DecodeWave({data, data + size});
    if (!sound)
        return 0;
    Require(sound->sampleRate >= 1000 && sound->sampleRate <= 192000 && sound->samples.size() <= size);
    Require(sound->Milliseconds() >= 0);
    RequireMarks(*sound);
    const auto again = engine::DecodeWave(FileOf(*sound));
    Require(again && again->sampleRate == sound->sampleRate && again->samples == sound->samples);
    return 0;
}
