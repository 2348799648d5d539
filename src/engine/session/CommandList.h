#pragma once
#include <cstdint>
#include <string>
#include <vector>

namespace engine {

struct Command {
    std::string name;
    std::string caption;
    std::string voice;
    bool enabled = true;
    bool visible = true;
};

// The commands of a character. They stand in no menu of the engine: they are for the voice.
struct CommandList {
    std::string caption;
    std::vector<Command> commands;

    // Throws CommandExists for a name that is there already (letter case aside), and the code of a bracket fault in a voice
    // text.
    void Add(Command command);
};

// The error code of the first bracket fault in a voice text, 0 for none.
std::int32_t VoiceTextFault(const std::string& voice);

}
