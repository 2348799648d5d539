#include "engine/hosts/qt/EngineWindows.h"
#include "engine/hosts/qt/DefaultCharacterWindow.h"
#include "engine/hosts/qt/PropertySheet.h"

namespace engine {
namespace {

void BringForward(QDialog& window)
{
    window.show();
    window.raise();
    window.activateWindow();
}

class CEngineWindows final : public IEngineWindows {
public:
    CEngineWindows(CUserSettings& settings, ICharacterSource& source, ITimers& timers)
        : m_settings(settings), m_source(source), m_timers(timers)
    {
    }
    void ShowPropertySheet(bool visible) override
    {
        if (!m_propertySheet && !visible)
            return;
        if (!m_propertySheet)
            m_propertySheet = std::make_unique<CPropertySheet>(m_settings);
        if (visible)
            BringForward(*m_propertySheet);
        else
            m_propertySheet->hide();
    }
    void ShowDefaultCharacter() override
    {
        if (!m_defaultCharacter)
            m_defaultCharacter = std::make_unique<CDefaultCharacterWindow>(m_settings, m_source, m_timers);
        BringForward(*m_defaultCharacter);
    }

private:
    CUserSettings& m_settings;
    ICharacterSource& m_source;
    ITimers& m_timers;
    // Made when they are needed and kept: a window comes back where it was last.
    std::unique_ptr<CPropertySheet> m_propertySheet;
    std::unique_ptr<CDefaultCharacterWindow> m_defaultCharacter;
};

}

std::unique_ptr<IEngineWindows> CreateEngineWindows(CUserSettings& settings, ICharacterSource& source, ITimers& timers)
{
    return std::make_unique<CEngineWindows>(settings, source, timers);
}

}
