#pragma once
#include "engine/Host.h"
#include <string>

namespace platform::linuxdesktop {

// The character engine's settings in a file that is replaced as a whole.
class CEngineSettingsFile final : public engine::ISettingsFile {
public:
    explicit CEngineSettingsFile(std::string file) : m_file(std::move(file)) {}
    std::string Read() const override;
    bool Write(const std::string& text) override;

private:
    std::string m_file;
};

}
