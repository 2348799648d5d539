#include "engine/session/SoundFile.h"
#include "engine/base/Constants.h"
#include "engine/requests/Request.h"
#include "platform/Failure.h"
#include <filesystem>
#include <fstream>

namespace engine {

namespace {

namespace engineError = platform::engineError;

std::vector<std::uint8_t> ReadBytes(const std::string& path)
{
    std::error_code error;
    const std::filesystem::path file = std::u8string(path.begin(), path.end());
    const bool regular = std::filesystem::is_regular_file(file, error);
    const std::uintmax_t size = regular ? std::filesystem::file_size(file, error) : 0;
    std::ifstream stream(file, std::ios::binary);
    if (!regular || error || !stream)
        throw platform::CFailure(engineError::FileNotFound, RequestDescription(engineError::FileNotFound));
    if (size > constants::SoundFileLimit)
        throw platform::CFailure(engineError::NotASoundFile, RequestDescription(engineError::NotASoundFile));
    std::vector<std::uint8_t> bytes(static_cast<std::size_t>(size));
    stream.read(reinterpret_cast<char*>(bytes.data()), static_cast<std::streamsize>(size));
    bytes.resize(static_cast<std::size_t>(stream.gcount()));
    return bytes;
}

}

WaveSound LoadSoundFile(const std::string& path)
{
    std::optional<WaveSound> sound = DecodeWave(ReadBytes(path));
    if (!sound)
        throw platform::CFailure(engineError::NotASoundFile, RequestDescription(engineError::NotASoundFile));
    return std::move(*sound);
}

}
