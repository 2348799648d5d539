// office.exe: a Word and an Excel that run. /regserver and /unregserver write the registry. Otherwise both are in the
// running-object table from the start, until it is told "quit" or that one of them is gone.
#include "windows/standins/Office.h"
#include "windows/standins/Outside.h"
#include <string_view>

using namespace standins;

namespace {

void Run()
{
    const auto scene = NewOutsideScene(L"office");
    SetWordRunning(*scene, true);
    SetExcelRunning(*scene, true);
    ServeUntilQuit(*scene, /*endsAlone*/ false);
    SetWordRunning(*scene, false);
    SetExcelRunning(*scene, false);
}

}

int WINAPI WinMain(HINSTANCE, HINSTANCE, LPSTR arguments, int)
{
    const std::string_view order(arguments);
    if (order == "/regserver")
        return RegisterOffice() ? 0 : 1;
    if (order == "/unregserver") {
        UnregisterOffice();
        return 0;
    }
    CoInitialize(nullptr);
    Run();
    CoUninitialize();
    return 0;
}
