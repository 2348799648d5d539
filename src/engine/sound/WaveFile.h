#pragma once
#include <cstdint>
#include <optional>
#include <vector>

namespace engine {

struct WaveSound {
    std::int32_t sampleRate = 0;
    std::vector<std::int16_t> samples;  // Mono.
    std::int32_t Milliseconds() const
    {
        return static_cast<std::int32_t>(static_cast<std::int64_t>(samples.size()) * 1000 / sampleRate);
    }
};

// The sound of a RIFF/WAVE file of any bytes: PCM of 8 or 16 bits, channels mixed into one. Nothing when the file is
// damaged or of another encoding.
std::optional<WaveSound> DecodeWave(const std::vector<std::uint8_t>& file);

}
