#include "startup/Splash.h"
#include "common/Text.h"
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

void AskAboutMissingPart(const char* message)
{
    if (!AnsweredOk(message)) {
        MainWindow().Load();
        return;
    }
    HideAndVisit(web::Home);
    SplashWindow().Unload();
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

void DetectAndLoad(const CStartUpGuard& guard)
{
    bool speechPanelFound = false;
    bool engineFound = false;

    guard([&] {
        if (bOptions::GetOption("ShowSplash", "0") == "1") {
            SplashWindow().SetVisible(true);
            Yield();
        }
    });
    guard([&] { speechPanelFound = FindSpeechPanel(); });
    guard([&] { engineFound = FindEngine(); });
    if (engineFound && speechPanelFound)
        guard([] { MainWindow().Load(); });
    if (!engineFound)
        guard([] { AskAboutMissingPart(EngineMissing); });
    if (!speechPanelFound)
        guard([] { AskAboutMissingPart(SpeechMissing); });
}

}

void Form_Load()
{
    const CStartUpGuard guard;
    bool skipDetection = false;

    guard([] {
        SplashWindow().lblVersion.SetCaption("Version " + std::to_string(version::Major) + "." +
                                             std::to_string(version::Minor));
    });
    guard([] { Yield(); });
    guard([&] { skipDetection = text::Upper(platform::Current().environment.CommandLine()) == "/NODETECT"; });
    if (skipDetection)
        guard([] { MainWindow().Load(); });
    else
        DetectAndLoad(guard);
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
