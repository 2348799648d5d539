#include "startup/Splash.h"
#include "base/text/Case.h"
#include "common/Version.h"
#include "common/WebAddresses.h"
#include "common/zbErrorTrap.h"
#include "common/zbShellEx.h"
#include "platform/CharacterEngine.h"
#include "platform/Environment.h"
#include "platform/EventPump.h"
#include "platform/MessageBoxes.h"
#include "platform/Platform.h"
#include "platform/Program.h"
#include "platform/SpeechEngines.h"
#include "settings/OptionsJournal.h"
#include "settings/bOptions.h"
#include "settings/zbRegistry.h"
#include "ui/frmParlune.h"
#include "ui/frmSplash.h"

namespace splash {
namespace {

constexpr char EngineMissing[] = "Microsoft Agent 2.0 does not appear to be properly setup on your computer.\r\n"
                                 "\r\n"
                                 "Click 'OK' to visit the Parlune website for setup instructions.\r\n"
                                 "Click 'Cancel' to try and start Parlune anyways.";
constexpr char SpeechMissing[] = "The 'Speech Control Panel' does not appear to be installed properly on your computer.\r\n"
                                 "\r\n"
                                 "Click 'OK' to visit the Parlune website for setup instructions.\r\n"
                                 "Click 'Cancel' to try and start Parlune anyways.";
constexpr char ComponentMissing[] = "Microsoft Agent 2.0 does not appear to be properly setup on your computer.\r\n"
                                    "\r\n"
                                    "Click 'OK' to visit the Parlune website for setup instructions.\r\n"
                                    "Click 'Cancel' to Close Parlune.";

constexpr std::int32_t ComponentNotRegistered = 339;

void Yield() { platform::Current().events.RunPendingEvents(); }

bool AnsweredOk(const char* message)
{
    return platform::Current().messageBoxes.Show({.text = message,
                                                  .title = version::Title,
                                                  .buttons = platform::BoxButtons::OkCancel,
                                                  .icon = platform::BoxIcon::Exclamation}) == platform::BoxAnswer::Ok;
}

void HideAndVisit(const char* address)
{
    SplashWindow().SetVisible(false);
    Yield();
    zbShellEx::ShellEx(address);
}

bool IsMissingEngineComponent(const zbErrorTrap::CurrentError& error)
{
    return error.number == ComponentNotRegistered &&
           text::Lower(error.description).find("agentctl.dll") != std::string::npos;
}

// The load procedure's error handler: a statement that fails ends the program when the engine's component is missing; any
// other failure is reported and the next statement runs.
class CStartUpGuard {
public:
    template <class Statement> void operator()(Statement&& statement) const
    {
        try {
            statement();
        } catch (const platform::CProgramEnded&) {
            throw;
        } catch (...) {
            zbErrorTrap::SetCurrentError();
            Handle();
            zbErrorTrap::ClearCurrentError();
        }
    }

private:
    static void Handle()
    {
        if (!IsMissingEngineComponent(zbErrorTrap::LastError())) {
            zbErrorTrap::ErrorTrap("frmSplash", "Form_Load");
            return;
        }
        if (AnsweredOk(ComponentMissing))
            HideAndVisit(web::Setup);
        platform::Current().program.End();
    }
};

// The start may be over while events run in its middle: the session ends, or the user has closed the main window again.
class CStart {
public:
    template <class Statement> void operator()(Statement&& statement) const
    {
        if (!IsOver())
            m_guard(std::forward<Statement>(statement));
    }
    bool IsOver() const { return m_closedAgain || SplashWindow().SessionEnded(); }
    void LoadMainWindow()
    {
        (*this)([this] {
            MainWindow().Load();
            m_closedAgain = !MainWindow().Loaded();
        });
    }

private:
    CStartUpGuard m_guard;
    bool m_closedAgain = false;
};

void AskAboutMissingPart(CStart& step, const char* message)
{
    bool visit = false;
    bool answered = false;
    step([&] {
        visit = AnsweredOk(message);
        answered = true;
    });
    if (visit)
        step([] {
            HideAndVisit(web::Home);
            SplashWindow().Unload();
        });
    else if (answered)
        step.LoadMainWindow();
}

bool FindSpeechPanel()
{
    if (bOptions::GetOption("DSSInstalled", "0", /*validate*/ true) == "1")
        return true;
    if (!IsDSSInstalled())
        return false;
    bOptions::SetOption("DSSInstalled", "1");
    return true;
}

bool FindEngine() { return bOptions::GetOption("SkipAgentDetect", "0") == "1" || IsAgentInstalled(); }

void DetectAndLoad(CStart& step)
{
    bool speechPanelFound = false;
    bool engineFound = false;

    step([&] {
        if (bOptions::GetOption("ShowSplash", "0") == "1") {
            SplashWindow().SetVisible(true);
            Yield();
        }
    });
    step([&] { speechPanelFound = FindSpeechPanel(); });
    step([&] { engineFound = FindEngine(); });
    if (engineFound && speechPanelFound)
        step.LoadMainWindow();
    if (!engineFound)
        AskAboutMissingPart(step, EngineMissing);
    if (!speechPanelFound)
        AskAboutMissingPart(step, SpeechMissing);
}

}

void Form_Load()
{
    CStart step;
    bool skipDetection = false;

    step([] { optionsJournal::TakeOver(); });
    step([] {
        SplashWindow().lblVersion.SetCaption("Version " + std::to_string(version::Major) + "." +
                                             std::to_string(version::Minor));
    });
    step([] { Yield(); });
    step([&] { skipDetection = text::Upper(platform::Current().environment.CommandLine()) == "/NODETECT"; });
    if (skipDetection)
        step.LoadMainWindow();
    else
        DetectAndLoad(step);
}

void Form_Click() { SplashWindow().Unload(); }

void imgAbout_Click() { SplashWindow().Unload(); }

bool IsAgentInstalled()
{
    bool installed = false;
    zbErrorTrap::IgnoreFailure([&] {
        if (!zbRegistry::GetReg(zbRegistry::Root::ClassesRoot, "Agent.Control.2\\CLSID", "", "").empty()) {
            installed = true;
        } else if (IsAgentCreatable()) {
            bOptions::SetOption("SkipAgentDetect", "1");
            installed = true;
        }
    });
    return installed;
}

bool IsAgentCreatable()
{
    bool creatable = false;
    zbErrorTrap::IgnoreFailure([&] { creatable = platform::Current().characterEngines.Create() != nullptr; });
    return creatable;
}

bool IsDSSInstalled()
{
    bool installed = false;
    zbErrorTrap::IgnoreFailure([&] { installed = platform::Current().speechEngines.Installed(); });
    return installed;
}

}
