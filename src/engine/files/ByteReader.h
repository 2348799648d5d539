#pragma once
#include "engine/files/AcsFormat.h"
#include <cstdint>
#include <span>
#include <string>

namespace engine::files {

// Throws platform::CFailure (invalid data) with `fault` in its text unless `holds`.
void RequireIntact(bool holds, const char* fault);

// Reads the bytes of one record, low bytes first. Every call throws platform::CFailure (invalid data) instead of reading
// past the end of the record.
class CByteReader {
public:
    explicit CByteReader(std::span<const std::uint8_t> bytes) : m_left(bytes) {}

    std::uint8_t U8() { return Take(1)[0]; }
    std::uint16_t U16()
    {
        const auto bytes = Take(2);
        return static_cast<std::uint16_t>(bytes[0] | bytes[1] << 8);
    }
    std::uint32_t U32()
    {
        const auto bytes = Take(4);
        return bytes[0] | std::uint32_t{bytes[1]} << 8 | std::uint32_t{bytes[2]} << 16 | std::uint32_t{bytes[3]} << 24;
    }
    std::int16_t I16() { return static_cast<std::int16_t>(U16()); }
    std::int32_t I32() { return static_cast<std::int32_t>(U32()); }
    std::string String();
    Locator Place();

    // Borrowed from the file.
    std::span<const std::uint8_t> Take(std::size_t count);
    std::span<const std::uint8_t> Blob() { return Take(U32()); }
    void Skip(std::size_t count) { Take(count); }

    // A number of entries, each of at least `smallest` bytes: never more than fit in what is left, nor than `maximum`.
    std::size_t Count8(std::size_t smallest) { return Checked(U8(), smallest, 255); }
    std::size_t Count16(std::size_t smallest, std::size_t maximum = 65535) { return Checked(U16(), smallest, maximum); }
    std::size_t Count32(std::size_t smallest, std::size_t maximum) { return Checked(U32(), smallest, maximum); }

private:
    std::size_t Checked(std::size_t count, std::size_t smallest, std::size_t maximum) const;

    std::span<const std::uint8_t> m_left;
};

// The bytes of a record. Throws platform::CFailure (invalid data) when it does not lie in the file.
std::span<const std::uint8_t> RecordAt(std::span<const std::uint8_t> file, Locator place);

}
