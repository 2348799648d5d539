#include "engine/sound/WaveFile.h"
#include <algorithm>
#include <cstddef>
#include <cstring>

namespace engine {

namespace {

constexpr std::uint16_t Pcm = 1;
constexpr std::uint16_t Extensible = 0xFFFE;
constexpr std::size_t ChunkHeader = 8;

struct Bytes {
    const std::uint8_t* data = nullptr;
    std::size_t size = 0;
    std::uint32_t Number(std::size_t at, std::size_t bytes) const
    {
        std::uint32_t value = 0;
        for (std::size_t index = 0; index < bytes; ++index)
            value |= static_cast<std::uint32_t>(data[at + index]) << (8 * index);
        return value;
    }
    bool Is(std::size_t at, const char* name) const { return std::memcmp(data + at, name, 4) == 0; }
};

// The chunk of a name. A length beyond the file's end is cut to what is there.
std::optional<Bytes> FindChunk(const Bytes& file, const char* name)
{
    for (std::size_t at = 12; at + ChunkHeader <= file.size;) {
        const std::size_t length = std::min<std::size_t>(file.Number(at + 4, 4), file.size - at - ChunkHeader);
        if (file.Is(at, name))
            return Bytes{file.data + at + ChunkHeader, length};
        at += ChunkHeader + length + (length & 1u);
    }
    return std::nullopt;
}

struct WaveFormat {
    std::uint32_t channels = 0;
    std::uint32_t rate = 0;
    std::uint32_t bits = 0;
};

std::optional<WaveFormat> ReadFormat(const Bytes& chunk)
{
    if (chunk.size < 16)
        return std::nullopt;
    std::uint32_t encoding = chunk.Number(0, 2);
    if (encoding == Extensible && chunk.size >= 26)
        encoding = chunk.Number(24, 2);
    const WaveFormat format{chunk.Number(2, 2), chunk.Number(4, 4), chunk.Number(14, 2)};
    const bool known = encoding == Pcm && (format.bits == 8 || format.bits == 16);
    const bool sensible = format.channels >= 1 && format.channels <= 8 && format.rate >= 1000 && format.rate <= 192000;
    return known && sensible ? std::optional(format) : std::nullopt;
}

std::int32_t Sample(const Bytes& data, std::size_t at, std::uint32_t bits)
{
    return bits == 8 ? (static_cast<std::int32_t>(data.data[at]) - 128) * 256
                     : static_cast<std::int16_t>(data.Number(at, 2));
}

std::vector<std::int16_t> Mix(const Bytes& data, const WaveFormat& format)
{
    const std::size_t sampleBytes = format.bits / 8;
    const std::size_t count = data.size / (sampleBytes * format.channels);
    std::vector<std::int16_t> samples(count);
    for (std::size_t index = 0; index < count; ++index) {
        std::int32_t sum = 0;
        for (std::size_t channel = 0; channel < format.channels; ++channel)
            sum += Sample(data, (index * format.channels + channel) * sampleBytes, format.bits);
        samples[index] = static_cast<std::int16_t>(sum / static_cast<std::int32_t>(format.channels));
    }
    return samples;
}

}

std::optional<WaveSound> DecodeWave(const std::vector<std::uint8_t>& bytes)
{
    const Bytes file{bytes.data(), bytes.size()};
    if (file.size < 12 || !file.Is(0, "RIFF") || !file.Is(8, "WAVE"))
        return std::nullopt;
    const std::optional<Bytes> formatChunk = FindChunk(file, "fmt ");
    const std::optional<Bytes> data = FindChunk(file, "data");
    const std::optional<WaveFormat> format = formatChunk ? ReadFormat(*formatChunk) : std::nullopt;
    if (!format || !data)
        return std::nullopt;
    return WaveSound{static_cast<std::int32_t>(format->rate), Mix(*data, *format)};
}

}
