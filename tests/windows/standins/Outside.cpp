#include "windows/standins/Outside.h"
#include <array>
#include <fstream>
#include <string>

namespace standins {
namespace {

constexpr unsigned LookEveryMilliseconds = 200;

std::wstring Environment(const wchar_t* name)
{
    std::array<wchar_t, 1024> value{};
    const DWORD count = GetEnvironmentVariableW(name, value.data(), static_cast<DWORD>(value.size()));
    return count < value.size() ? std::wstring(value.data(), count) : std::wstring();
}

void ObeyFile(CScene& scene, const std::wstring& file)
{
    std::ifstream lines(file.c_str(), std::ios::binary);
    for (std::string line; std::getline(lines, line);) {
        if (!line.empty() && line.back() == '\r')
            line.pop_back();
        if (!line.empty() && line.front() != '#')
            scene.Tell(line);
    }
}

// Nobody needs the server any more when two looks in a row find nothing: a client may be between two objects.
void LookWhetherNeeded(CScene& scene, bool wasIdle)
{
    const bool idle = scene.objectsEver > 0 && scene.livingObjects == 0;
    if (idle && wasIdle)
        return scene.quit();
    scene.loop.After(LookEveryMilliseconds, [&scene, idle] { LookWhetherNeeded(scene, idle); });
}

}

std::shared_ptr<CScene> NewOutsideScene(const std::wstring& title)
{
    auto scene = std::make_shared<CScene>();
    scene->log.AppendTo(Environment(L"PARLUNE_STANDIN_LOG"));
    scene->log.Write("serving " + Narrow(title));
    ObeyFile(*scene, Environment(L"PARLUNE_STANDIN_SETUP"));
    scene->loop.Listen(title, [scene = scene.get()](const std::string& command) { return scene->Tell(command); });
    return scene;
}

void ServeUntilQuit(CScene& scene, bool endsAlone)
{
    bool over = false;
    scene.quit = [&over] { over = true; };
    if (endsAlone)
        LookWhetherNeeded(scene, false);
    MSG message;
    while (!over && GetMessageW(&message, nullptr, 0, 0) > 0) {
        TranslateMessage(&message);
        DispatchMessageW(&message);
    }
    scene.quit = nullptr;
    scene.log.Write("leaving");
}

}
