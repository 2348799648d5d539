// agentstandin.dll: the engine and the speech service inside the client's process.
#include "windows/standins/Engine.h"
#include "windows/standins/Outside.h"
#include <array>

using namespace standins;

namespace {

HMODULE OwnModule()
{
    HMODULE module = nullptr;
    // Pinned: its window and its timers outlive the last object.
    GetModuleHandleExW(GET_MODULE_HANDLE_EX_FLAG_FROM_ADDRESS | GET_MODULE_HANDLE_EX_FLAG_PIN,
                       reinterpret_cast<LPCWSTR>(&OwnModule), &module);
    return module;
}

// Lives as long as the process: nothing may be destroyed while the library is detached.
const std::shared_ptr<CScene>& TheScene()
{
    static const auto* scene = new std::shared_ptr<CScene>((OwnModule(), NewOutsideScene(L"speech")));
    return *scene;
}

CRef<IDispatch> NewEngine()
{
    TheScene()->loop.Rename(L"engine");  // Where the engine is a program of its own, that one alone is called so.
    return NewControl(TheScene());
}

Maker MakerOf(REFCLSID id)
{
    if (id == EngineClass)
        return NewEngine;
    if (id == SpeechClass)
        return [] { return NewSpeech(TheScene()); };
    return {};
}

}

extern "C" {

__declspec(dllexport) HRESULT STDAPICALLTYPE DllGetClassObject(REFCLSID id, REFIID interfaceID, void** object)
try {
    *object = nullptr;
    Maker make = MakerOf(id);
    return make ? NewFactory(std::move(make))->QueryInterface(interfaceID, object) : CLASS_E_CLASSNOTAVAILABLE;
} catch (...) {
    return E_UNEXPECTED;
}

__declspec(dllexport) HRESULT STDAPICALLTYPE DllCanUnloadNow() { return TheScene()->livingObjects == 0 ? S_OK : S_FALSE; }

__declspec(dllexport) HRESULT STDAPICALLTYPE DllRegisterServer()
{
    std::array<wchar_t, MAX_PATH> file{};
    GetModuleFileNameW(OwnModule(), file.data(), static_cast<DWORD>(file.size()));
    return Register("InprocServer32", file.data()) ? S_OK : SELFREG_E_CLASS;
}

__declspec(dllexport) HRESULT STDAPICALLTYPE DllUnregisterServer()
{
    Unregister();
    return S_OK;
}
}
