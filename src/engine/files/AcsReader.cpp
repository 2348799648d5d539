#include "engine/files/AcsReader.h"
#include "engine/files/AcsAnimations.h"
#include "engine/files/AcsBlock.h"
#include "engine/files/AcsPictures.h"
#include "engine/files/ByteReader.h"
#include "platform/CharacterEngine.h"
#include "platform/Failure.h"
#include <map>

namespace engine {
namespace {

using namespace files;
namespace engineError = platform::engineError;

struct Header {
    Locator block, animations, pictures, sounds;
};

void RequireSignature(std::span<const std::uint8_t> file)
{
    const std::uint32_t signature = file.size() < 4 ? 0 : CByteReader(file).U32();
    if (signature == CompoundSignature)
        throw platform::CFailure(engineError::TooOld, "The character was made for version 1 of the engine.");
    if (signature == WebSignature)
        throw platform::CFailure(engineError::NotACharacterFile,
                                 "This is a character in many files for the web. Only characters in one file can be used.");
    if (signature != Signature)
        throw platform::CFailure(engineError::NotACharacterFile, "This is not a character file.");
}

Header ReadHeader(std::span<const std::uint8_t> file)
{
    RequireSignature(file);
    RequireIntact(file.size() <= MaximumFileSize, "it is too large");
    CByteReader reader(file);
    reader.Skip(4);
    Header header;
    for (Locator* place : {&header.block, &header.animations, &header.pictures, &header.sounds})
        *place = reader.Place();
    return header;
}

class CSoundReader {
public:
    explicit CSoundReader(std::span<const std::uint8_t> file) : m_file(file) {}

    std::vector<FileBytes> Run(Locator list)
    {
        CByteReader reader(RecordAt(m_file, list));
        std::vector<FileBytes> sounds(reader.Count32(/*smallest*/ 12, MaximumSounds));
        for (FileBytes& sound : sounds) {
            sound = SoundAt(reader.Place());
            reader.U32();  // A check sum over nothing that the file holds.
        }
        return sounds;
    }

private:
    // Entries of the same place share one copy; all copies together are not larger than the file.
    FileBytes SoundAt(Locator place)
    {
        FileBytes& sound = m_sounds[{place.offset, place.size}];
        if (sound)
            return sound;
        const auto record = RecordAt(m_file, place);
        m_copiedBytes += record.size();
        RequireIntact(record.size() <= MaximumSoundSize && m_copiedBytes <= m_file.size(), "its sounds are too large");
        sound = std::make_shared<const std::vector<std::uint8_t>>(record.begin(), record.end());
        return sound;
    }

    std::span<const std::uint8_t> m_file;
    std::map<std::pair<std::uint32_t, std::uint32_t>, FileBytes> m_sounds;
    std::size_t m_copiedBytes = 0;
};

}

CharacterRef ReadCharacterFile(std::shared_ptr<const std::vector<std::uint8_t>> bytes)
{
    const auto file = bytes ? std::span<const std::uint8_t>(*bytes) : std::span<const std::uint8_t>();
    const Header header = ReadHeader(file);
    RequireKnownVersion(file, header.block);

    const auto character = std::make_shared<Character>();
    character->sounds = CSoundReader(file).Run(header.sounds);
    std::vector<StoredPicture> pictures = ReadPictureList(file, header.pictures);
    character->animations = ReadAnimations(file, header.animations, {pictures.size(), character->sounds.size()});
    ReadBlock(file, header.block, NamesOf(character->animations), *character);
    character->pictures = std::make_shared<CAcsPictures>(std::move(bytes), std::move(pictures));
    return character;
}

}
