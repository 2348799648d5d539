#pragma once
#include <cstddef>
#include <cstdint>
#include <optional>
#include <span>
#include <vector>

// The compression of pictures and regions in character files: literals and copies from what was written before, in a
// stream of bits, least significant bit first.
namespace engine::lz {

// Unpacks a stream that holds exactly `size` bytes. No value for a stream that is damaged, ends early, or holds more or
// fewer bytes. Memory is taken only when the stream is long enough to hold that much.
std::optional<std::vector<std::uint8_t>> Decompress(std::span<const std::uint8_t> packed, std::size_t size);

// Quick takes the longest copy at every place; Thorough weighs the bits of what follows, which takes some times as long
// and comes out smaller.
enum class Effort { Quick, Thorough };

// Packs bytes, always with the same outcome for the same bytes. Tiny inputs may grow.
std::vector<std::uint8_t> Compress(std::span<const std::uint8_t> plain, Effort effort = Effort::Thorough);

}
