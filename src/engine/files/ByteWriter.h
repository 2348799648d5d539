#pragma once
#include "base/text/Utf8.h"
#include "engine/files/AcsFormat.h"
#include <cstdint>
#include <span>
#include <string_view>
#include <vector>

namespace engine::files {

// Collects the bytes of a file, low bytes first.
class CByteWriter {
public:
    void U8(std::uint8_t value) { m_bytes.push_back(value); }
    void U16(std::uint16_t value) { Number(value, 2); }
    void U32(std::uint32_t value) { Number(value, 4); }
    void I16(std::int16_t value) { U16(static_cast<std::uint16_t>(value)); }
    void I32(std::int32_t value) { U32(static_cast<std::uint32_t>(value)); }
    void Bytes(std::span<const std::uint8_t> bytes) { m_bytes.insert(m_bytes.end(), bytes.begin(), bytes.end()); }
    void Blob(std::span<const std::uint8_t> bytes)
    {
        U32(static_cast<std::uint32_t>(bytes.size()));
        Bytes(bytes);
    }
    // Its number of units, then the text with a zero behind it; an empty text is the number alone.
    void String(std::string_view utf8)
    {
        const std::u16string text = text::ToUtf16(utf8);
        U32(static_cast<std::uint32_t>(text.size()));
        for (const char16_t unit : text)
            U16(unit);
        if (!text.empty())
            U16(0);
    }
    void Place(Locator locator)
    {
        U32(locator.offset);
        U32(locator.size);
    }

    std::uint32_t Offset() const { return static_cast<std::uint32_t>(m_bytes.size()); }
    Locator Since(std::uint32_t offset) const { return {offset, Offset() - offset}; }
    // Overwrites eight bytes that were written before.
    void PatchPlace(std::size_t at, Locator locator)
    {
        for (unsigned i = 0; i < 4; ++i) {
            m_bytes[at + i] = static_cast<std::uint8_t>(locator.offset >> (8 * i));
            m_bytes[at + 4 + i] = static_cast<std::uint8_t>(locator.size >> (8 * i));
        }
    }
    std::vector<std::uint8_t> Take() { return std::move(m_bytes); }

private:
    void Number(std::uint32_t value, unsigned bytes)
    {
        for (unsigned i = 0; i < bytes; ++i)
            m_bytes.push_back(static_cast<std::uint8_t>(value >> (8 * i)));
    }

    std::vector<std::uint8_t> m_bytes;
};

}
