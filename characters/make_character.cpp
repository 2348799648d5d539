#include "engine/files/AcsWriter.h"
#include "making/MakeCharacter.h"
#include "making/Preview.h"
#include "motion/Poses.h"
#include <exception>
#include <fstream>
#include <iostream>
#include <stdexcept>

// make_character FILE            writes the character file
// make_character --preview DIR   writes a sheet of frames for every animation, to look at
namespace {

void WriteFile(const std::string& fileName, const std::vector<std::uint8_t>& bytes)
{
    std::ofstream file(fileName, std::ios::binary);
    file.write(reinterpret_cast<const char*>(bytes.data()), static_cast<std::streamsize>(bytes.size()));
    if (!file.flush())
        throw std::runtime_error("Cannot write " + fileName);
}

int Run(const std::vector<std::string>& arguments)
{
    if (arguments.size() == 1 && arguments[0] != "--preview") {
        WriteFile(arguments[0], engine::WriteCharacterFile(making::MakeCharacter(motion::AllScripts())));
        return 0;
    }
    if (arguments.size() == 2 && arguments[0] == "--preview") {
        making::WritePreviews(making::MakeCharacter(motion::AllScripts()), arguments[1], 1);
        return 0;
    }
    std::cerr << "Usage: make_character FILE | make_character --preview DIR\n";
    return 2;
}

}

int main(int argc, char** argv)
{
    try {
        return Run({argv + 1, argv + argc});
    } catch (const std::exception& failure) {
        std::cerr << "make_character: " << failure.what() << "\n";
        return 1;
    }
}
