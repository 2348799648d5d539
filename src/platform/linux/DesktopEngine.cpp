#include "platform/linux/DesktopEngine.h"
#include "platform/Failure.h"

namespace platform::linuxdesktop {
namespace {
class CNoEngine final : public IDesktopEngine, public ICharacterEngineFactory, public ISpeechEngines {
public:
    ICharacterEngineFactory& Factory() override { return *this; }
    ISpeechEngines& Voices() override { return *this; }
    std::shared_ptr<ICharacterEngine> Create() override { throw failure::CannotCreateObject(); }
    void RequireForMainWindow() override {}
    bool Installed() override { return false; }
    std::unique_ptr<ISpeechEngineList> Open() override { throw failure::CannotCreateObject(); }
};
}

std::unique_ptr<IDesktopEngine> CreateDesktopEngine(const std::string&, const std::string&)
{
    return std::make_unique<CNoEngine>();
}

}
