#pragma once
#include "windows/standins/Scene.h"

// Stand-ins that are told from outside what to do.
namespace standins {

// A scene whose log goes to the file named by PARLUNE_STANDIN_LOG, which obeyed the lines of the file named by
// PARLUNE_STANDIN_SETUP, and that takes commands by its window of that title. Made on the thread that pumps messages.
std::shared_ptr<CScene> NewOutsideScene(const std::wstring& title);

// Pumps messages until the scene's quit is called, or, when `endsAlone`, until all objects that were made are gone.
void ServeUntilQuit(CScene& scene, bool endsAlone);

}
