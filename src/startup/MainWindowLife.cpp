#include "startup/MainWindowLife.h"
#include "character/CharacterSession.h"
#include "character/Greeting.h"
#include "common/bGlobal.h"
#include "common/zbErrorTrap.h"
#include "platform/CharacterEngine.h"
#include "platform/EventPump.h"
#include "platform/Platform.h"
#include "reading/bClipboard.h"
#include "settings/OptionsJournal.h"
#include "settings/OptionsRecord.h"
#include "settings/bOptions.h"
#include "startup/bInit.h"
#include "ui/EditorDocument.h"
#include "ui/KeptText.h"
#include "ui/Menus.h"
#include "ui/TextEditor.h"
#include "ui/frmParlune.h"
#include "ui/frmSplash.h"
#include "ui/frmSysTray.h"
#include "ui/zbSysTray.h"

namespace mainWindow {
namespace {

void Yield() { platform::Current().events.RunPendingEvents(); }

// Runs the steps of the load procedure: a failure is reported and the next one runs. While events run in between, the user
// or the system may close the window; then there is nothing more to do.
class CStartUp {
public:
    template <class Statement> void operator()(Statement&& statement) const
    {
        if (MainWindow().Loaded())
            m_guard(std::forward<Statement>(statement));
    }

private:
    zbErrorTrap::CGuard m_guard{"Parlune", "Parlune Startup"};
};

void LoadAndGreet(const CStartUp& step)
{
    bool loaded = false;
    if (MainWindow().chkStartUpHideInTray.Ticked())
        step([] { ui::RefreshMenu(/*shown*/ false); });
    else
        step([&] { loaded = character::CharLoad(settings::Options().Character, /*show*/ true); });
    step([] { optionsJournal::Begin(); });  // What the start itself has changed is nobody's choice.
    if (!loaded)
        return;
    step([] { Yield(); });
    step([] { character::Greet(bGlobal::RandRange(0, 4), /*check*/ true); });
}

void ShowOrMinimize()
{
    if (settings::Options().FirstTime)
        MainWindow().SetVisible(true);
    else
        MainWindow().SetState(ui::WindowState::Minimized);
}

void UnloadOtherWindows()
{
    zbErrorTrap::IgnoreFailure([] { SplashWindow().Unload(); });
    zbErrorTrap::IgnoreFailure([] { TrayWindow().Unload(); });
}

// A session that ends waits for no answer: a text without a file is only kept then.
void SaveChanged(ui::UnloadMode mode)
{
    if (!ui::Document().modified || (mode == ui::UnloadMode::Session && keptText::File().empty()))
        return;
    textEditor::SaveFile(ui::Document().currentFile);
}

}

void Create() { platform::Current().characterEngines.RequireForMainWindow(); }

void Form_Load()
{
    const CStartUp step;

    step([] { bInit::Initialize(); });
    step([] { SplashWindow().Unload(); });
    step([] { Yield(); });
    step([] { MainWindow().tabMain.Select(0); });
    step([] { zbSysTray::AddTrayIcon(); });
    step([] { Yield(); });
    LoadAndGreet(step);
    step([] { ShowOrMinimize(); });
    step([] { Yield(); });
    step([] {
        if (MainWindow().chkMonitorClipboard.Ticked())
            bClipboard::SetClipboardMonitor(true);
    });
    step([] { MainWindow().tmrTimer.SetEnabled(MainWindow().chkSayTime.Ticked()); });
    step([] { keptText::TellWhatWasLeft(); });
}

void Form_Resize()
{
    switch (MainWindow().State()) {
    case ui::WindowState::Normal:
        MainWindow().SetVisible(true);
        break;
    case ui::WindowState::Minimized:
        MainWindow().SetVisible(false);
        break;
    case ui::WindowState::Maximized:
        break;
    }
}

bool Form_QueryUnload(ui::UnloadMode mode)
{
    if (mode == ui::UnloadMode::ControlMenu && MainWindow().chkMinimizeOnClose.Ticked()) {
        MainWindow().SetState(ui::WindowState::Minimized);
        return false;
    }
    const zbErrorTrap::CGuard guard("Parlune", "Form_QueryUnload");
    guard([] {
        if (bClipboard::Monitoring())
            bClipboard::SetClipboardMonitor(false);
    });
    UnloadOtherWindows();
    zbErrorTrap::IgnoreFailure([&] { SaveChanged(mode); });
    keptText::KeepForNextStart();
    return true;
}

void Form_Unload()
{
    bOptions::SetOptions();
    optionsJournal::Close();
    zbSysTray::DeleteTrayIcon();
}

void Exit()
{
    MainWindow().tmrTimer.SetEnabled(false);
    MainWindow().Unload(ui::UnloadMode::Code);
}

void ShowOptions()
{
    MainWindow().SetState(ui::WindowState::Normal);
    MainWindow().SetVisible(true);
}

}
