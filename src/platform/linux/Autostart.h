#pragma once
#include <string>

namespace platform::linuxdesktop {

// The desktop entry by which the session starts the program.
class CAutostart {
public:
    // `file` is the entry's path, `program` the full path of what it starts.
    CAutostart(std::string file, std::string program) : m_file(std::move(file)), m_program(std::move(program)) {}
    bool IsOn() const;  // False also when the user switched the entry off in the desktop's settings.
    // Whether there is an entry that the user switched off in the desktop's settings.
    bool IsSwitchedOffByUser() const;
    // Has an entry of ours whose program has gone start this program instead: it was moved. Whether the entry is on stays.
    void FollowProgram();
    bool SwitchOn();   // Writes the entry; false when that is refused.
    bool SwitchOff();  // Removes it, unless the user switched it off; true when nothing is started afterwards.

private:
    std::string m_file;
    std::string m_program;
};

}
