// agentstandin.exe: the engine in a process of its own. /regserver and /unregserver write the
// registry; started by COM (-Embedding) it ends with its last object, started by hand it stays until it is told "quit".
#include "windows/standins/Engine.h"
#include "windows/standins/Outside.h"
#include <array>
#include <string_view>

using namespace standins;

namespace {

std::wstring OwnFile()
{
    std::array<wchar_t, MAX_PATH> file{};
    GetModuleFileNameW(nullptr, file.data(), static_cast<DWORD>(file.size()));
    return file.data();
}

DWORD Serve(REFCLSID id, Maker make)
{
    DWORD cookie = 0;
    const CRef<IClassFactory> factory = NewFactory(std::move(make));
    CoRegisterClassObject(id, factory.Get(), CLSCTX_LOCAL_SERVER, REGCLS_MULTIPLEUSE, &cookie);
    return cookie;
}

void Run(bool endsAlone)
{
    const auto scene = NewOutsideScene(L"engine");
    scene->plainReceivers = true;
    const DWORD cookie = Serve(EngineClass, [scene] { return NewControl(scene); });
    scene->revoke = [cookie] { CoRevokeClassObject(cookie); };
    ServeUntilQuit(*scene, endsAlone);
    scene->revoke();
    scene->revoke = nullptr;
}

}

int WINAPI WinMain(HINSTANCE, HINSTANCE, LPSTR arguments, int)
{
    const std::string_view order(arguments);
    if (order == "/regserver")
        return Register("LocalServer32", OwnFile()) ? 0 : 1;
    if (order == "/unregserver") {
        Unregister();
        return 0;
    }
    CoInitialize(nullptr);
    Run(/*endsAlone*/ order.find("Embedding") != std::string_view::npos);
    CoUninitialize();
    return 0;
}
