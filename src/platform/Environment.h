#pragma once
#include <string>

namespace platform {

class IEnvironment {
public:
    virtual ~IEnvironment() = default;
    // An environment variable; "" when it is not set. "APPDATA" answers with the user's configuration folder on every
    // system.
    virtual std::string Variable(const std::string& name) const = 0;
    // Everything after the program's name on the command line, as typed.
    virtual std::string CommandLine() const = 0;
};

}
