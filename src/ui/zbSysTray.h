#pragma once

// The program's icon in the notification area.
namespace zbSysTray {

void AddTrayIcon();  // Its owner is the invisible tray window, made on the way. A refusal is not reported.
void DeleteTrayIcon();

}
