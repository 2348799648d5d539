#include "engine/TestCharacter.h"
#include "engine/files/AcsWriter.h"
#include "engine/files/ByteWriter.h"
#include "engine/files/Pip.h"
#include "engine/files/Rich.h"
#include <filesystem>
#include <fstream>
#include <iostream>

// make_seeds FOLDER: the seeds that are no text, as files FOLDER/<target>/<name>.
namespace {

using Bytes = std::vector<std::uint8_t>;

class CSeeds {
public:
    CSeeds(const std::filesystem::path& folder, const char* target) : m_folder(folder / target)
    {
        std::filesystem::create_directories(m_folder);
    }
    void Put(const char* name, const Bytes& bytes) const
    {
        std::ofstream file(m_folder / name, std::ios::binary);
        file.write(reinterpret_cast<const char*>(bytes.data()), static_cast<std::streamsize>(bytes.size()));
        file.close();
        if (!file)
            throw std::runtime_error("cannot write " + (m_folder / name).string());
    }

private:
    std::filesystem::path m_folder;
};

std::shared_ptr<const Bytes> Shared(Bytes bytes) { return std::make_shared<const Bytes>(std::move(bytes)); }

// As large as a fuzzer can still handle: many animations and languages, real sounds, pictures that compress well.
engine::Character Large()
{
    engine::Character large = files_test::Rich();
    for (const auto language : std::initializer_list<std::uint16_t>{0x040C, 0x0410, 0x0411, 0x0C0A})
        large.names.push_back({language, "R\xC3\xADsh \xE6\x97\xA5", "", "a~~b^^c~~d"});
    for (int number = 0; number < 12; ++number) {
        engine::Animation animation = large.animations[static_cast<std::size_t>(number % 2)];
        animation.name += std::to_string(number);
        large.animations.push_back(animation);
    }
    large.sounds = {Shared(testing_character::MakeWave(40)), Shared(testing_character::MakeWave(5))};
    auto pictures = files_test::RichPictures();
    pictures->Add(testing_character::Filled({64, 48}, 1));
    large.pictures = pictures;
    return large;
}

// Neither voice nor balloon, and all 256 colours.
engine::Character Plain()
{
    engine::Character plain = files_test::Rich();
    plain.voice.reset();
    plain.balloon.reset();
    plain.palette.resize(256);
    plain.sounds.clear();
    for (engine::Animation& animation : plain.animations)
        for (engine::Frame& frame : animation.frames)
            frame.sound.reset();
    return plain;
}

void PutCharacters(const CSeeds& seeds)
{
    seeds.Put("pip.acs", {files_test::PipFile.begin(), files_test::PipFile.end()});
    seeds.Put("rich.acs", engine::WriteCharacterFile(files_test::Rich()));
    seeds.Put("quick.acs", engine::WriteCharacterFile(files_test::Rich(), engine::lz::Effort::Quick));
    seeds.Put("plain.acs", engine::WriteCharacterFile(Plain()));
    seeds.Put("large.acs", engine::WriteCharacterFile(Large()));
    seeds.Put("bot.acs", engine::WriteCharacterFile(testing_character::Make()));
}

Bytes Changed(Bytes wave, std::size_t at, std::uint8_t value)
{
    wave.at(at) = value;
    return wave;
}

// A format of 40 bytes, as files with more than two channels have it.
Bytes Extensible()
{
    Bytes wave = Changed(Changed(testing_character::MakeWave(6), 20, 0xFE), 21, 0xFF);
    wave[16] = 40;
    const Bytes extension{22, 0, 16, 0, 4, 0, 0, 0, 1, 0, 0, 0, 0, 0, 16, 0, 0x80, 0, 0, 0xAA, 0, 0x38, 0x9B, 0x71};
    wave.insert(wave.begin() + 36, extension.begin(), extension.end());
    return wave;
}

void PutSounds(const CSeeds& seeds)
{
    const Bytes wave = testing_character::MakeWave(12);
    seeds.Put("sixteen-bits.wav", wave);
    seeds.Put("eight-bits.wav", Changed(wave, 34, 8));
    seeds.Put("stereo.wav", Changed(wave, 22, 2));
    seeds.Put("eight-channels.wav", Changed(wave, 22, 8));
    seeds.Put("extensible.wav", Extensible());
}

}

int main(int count, char** arguments)
{
    if (count != 2) {
        std::cerr << "Usage: make_seeds FOLDER\n";
        return 2;
    }
    PutCharacters({arguments[1], "CharacterFileFuzz"});
    PutCharacters({arguments[1], "CharacterPlayFuzz"});
    PutSounds({arguments[1], "WaveSoundFuzz"});
    return 0;
}
