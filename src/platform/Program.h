#pragma once

namespace platform {

class IProgram {
public:
    virtual ~IProgram() = default;
    // Ends the program at once, without any closing step.
    [[noreturn]] virtual void End() = 0;
};

}
