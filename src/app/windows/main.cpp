#include "app/windows/ProgramRun.h"
#include "platform/Failure.h"
#include "platform/FirstStart.h"
#include "platform/windows/Text.h"
#include <exception>

namespace {

void UseCommonControls()
{
    INITCOMMONCONTROLSEX controls = {};
    controls.dwSize = sizeof controls;
    controls.dwICC = ICC_WIN95_CLASSES | ICC_STANDARD_CLASSES;
    InitCommonControlsEx(&controls);
}

int Run()
{
    UseCommonControls();
    platform::windowsdesktop::CWindowsDesktop desktop;
    const platform::CPlatformInUse inUse(desktop.Platform());
    platform::PrepareOptions(desktop.Platform().registry);
    appwindows::CProgramRun run(desktop);
    return run.Run();
}

int Fail(const char* description)
{
    const std::wstring text = platform::windowsdesktop::ToWide(std::string("Parlune cannot start: ") + description);
    MessageBoxW(nullptr, text.c_str(), L"Parlune", MB_OK | MB_ICONERROR);
    return 1;
}

}

int WINAPI WinMain(HINSTANCE, HINSTANCE, LPSTR, int)
{
    try {
        return Run();
    } catch (const platform::CProgramEnded&) {
        return 0;
    } catch (const std::exception& failure) {
        return Fail(failure.what());
    }
}
