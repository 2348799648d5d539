#include "engine/files/ByteReader.h"
#include "base/text/Utf8.h"
#include "platform/CharacterEngine.h"
#include "platform/Failure.h"

namespace engine::files {

void RequireIntact(bool holds, const char* fault)
{
    if (!holds)
        throw platform::CFailure(platform::engineError::InvalidData,
                                 std::string("The character file is damaged: ") + fault + ".");
}

std::span<const std::uint8_t> CByteReader::Take(std::size_t count)
{
    RequireIntact(count <= m_left.size(), "a record ends too early");
    const auto taken = m_left.first(count);
    m_left = m_left.subspan(count);
    return taken;
}

std::string CByteReader::String()
{
    const std::size_t count = U32();
    if (count == 0)
        return {};
    RequireIntact(count <= MaximumStringUnits, "a text is too long");
    CByteReader units(Take(2 * count));
    std::u16string text;
    text.reserve(count);
    for (std::size_t i = 0; i < count; ++i)
        text += static_cast<char16_t>(units.U16());
    RequireIntact(U16() == 0, "a text does not end");
    return text::ToUtf8(text);
}

Locator CByteReader::Place()
{
    const std::uint32_t offset = U32();
    return {offset, U32()};
}

std::size_t CByteReader::Checked(std::size_t count, std::size_t smallest, std::size_t maximum) const
{
    RequireIntact(count <= maximum, "a list is too long");
    RequireIntact(count <= m_left.size() / smallest, "a list is longer than its record");
    return count;
}

std::span<const std::uint8_t> RecordAt(std::span<const std::uint8_t> file, Locator place)
{
    RequireIntact(std::uint64_t{place.offset} + place.size <= file.size(), "a record lies outside the file");
    return file.subspan(place.offset, place.size);
}

}
