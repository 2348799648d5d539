#include "app/linux/Application.h"
#include "app/linux/ProgramOptions.h"
#include "app/linux/ProgramRun.h"
#include "engine/hosts/qt/QtHost.h"
#include "platform/linux/EndSignals.h"
#include "platform/linux/LinuxDesktop.h"
#include "platform/linux/SingleInstance.h"
#include "platform/linux/UserFolders.h"
#include <cstdio>

namespace {
using platform::linuxdesktop::CSingleInstance;

constexpr int AnswerWithinMilliseconds = 5000;

// The lock lies with the settings that it guards; the socket where the session cleans up.
CSingleInstance OfThisUser()
{
    const std::string settings = platform::linuxdesktop::ConfigurationFolder() + "/parlune";
    platform::linuxdesktop::MakeUserFolders(settings);
    const std::string runtime = platform::linuxdesktop::RuntimeFolder();
    return {settings + "/instance.lock", (runtime.empty() ? settings : runtime) + "/parlune.socket"};
}

int Fail(const char* message)
{
    std::fprintf(stderr, "%s\n", message);
    return 1;
}

// `running` is the run while it lasts.
int RunOn(const ProgramOptions& options, CSingleInstance& instance, CProgramRun*& running)
{
    platform::linuxdesktop::CLinuxDesktop desktop({.commandLine = options.commandLine, .sound = options.sound});
    const platform::CPlatformInUse inUse(desktop.Platform());
    CProgramRun run(desktop);
    running = &run;
    const CDisplayLoss displayLoss([&] { run.SaveWithoutDisplay(); });
    instance.OnAsked([&] { run.BringToFront(); });
    const int code = run.Run();
    instance.OnAsked({});
    running = nullptr;
    return code;
}
}

int main(int argc, char** argv)
{
    const ProgramOptions options = ReadProgramOptions({argv + 1, argv + argc});
    if (options.answer)
        return std::fputs(options.answer->c_str(), stdout) < 0 ? 1 : 0;
    if (const auto trouble = engine::PrepareQtPlatform())
        return Fail(trouble->c_str());
    ReportSuddenEnds();
    CApplication application(argc, argv);
    QApplication::setQuitOnLastWindowClosed(false);
    // From here on a signal waits for the event loop: nothing is left half done.
    CProgramRun* running = nullptr;
    const platform::linuxdesktop::CEndSignals endSignals([&] {
        if (running)
            running->EndSession();
    });
    CSingleInstance instance = OfThisUser();
    switch (instance.Claim(AnswerWithinMilliseconds)) {
    case CSingleInstance::Outcome::Asked:
        return 0;
    case CSingleInstance::Outcome::NoAnswer:
        return Fail("Parlune is running already, but it does not answer.");
    case CSingleInstance::Outcome::First:
        break;
    }
    return RunOn(options, instance, running);
}
