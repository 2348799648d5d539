#pragma once
#include "windows/standins/Automation.h"
#include "windows/standins/Scene.h"

// The character engine and the speech service that stand in for the system's own in tests.
namespace standins {

extern const CLSID EngineClass;  // That of "Agent.Control.2".
extern const CLSID SpeechClass;
extern const IID SpeechInterface;

CRef<IDispatch> NewControl(const std::shared_ptr<CScene>& scene);
CRef<IDispatch> NewSpeech(const std::shared_ptr<CScene>& scene);

// A class object that makes one of these with each call. `created` may be empty; else it decides, by its code, whether an
// object is made.
using Maker = std::function<CRef<IDispatch>()>;
CRef<IClassFactory> NewFactory(Maker make);

// For tests in one process: the classes are served by this process, and the registry names them, until the object goes. The
// registry must be that of a test's prefix.
class CInProcess {
public:
    explicit CInProcess(const std::shared_ptr<CScene>& scene, bool engine = true, bool speech = true);
    CInProcess(const CInProcess&) = delete;
    CInProcess& operator=(const CInProcess&) = delete;
    ~CInProcess();

private:
    DWORD m_engine = 0, m_speech = 0;
};

// Writes or removes what HKEY_CLASSES_ROOT must say of the classes. `server` is "InprocServer32" with agentstandin.dll or
// "LocalServer32" with agentstandin.exe; the speech service is in the DLL beside it in either case.
bool Register(const std::string& server, const std::wstring& file);
void Unregister();
// "Agent.Control.2" and its class alone.
bool RegisterProgramName();

// The first bytes of a character file, enough for the stand-in: a file without them is none.
bool WriteCharacterFile(const std::wstring& file);

}
