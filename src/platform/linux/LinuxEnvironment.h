#pragma once
#include "platform/Environment.h"

namespace platform::linuxdesktop {

class CLinuxEnvironment final : public IEnvironment {
public:
    explicit CLinuxEnvironment(std::string commandLine) : m_commandLine(std::move(commandLine)) {}
    std::string Variable(const std::string& name) const override;
    std::string CommandLine() const override { return m_commandLine; }

private:
    std::string m_commandLine;
};

}
