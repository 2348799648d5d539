#pragma once
#include "ui/controls/CControl.h"

// The main window's start and end.
namespace mainWindow {

// What the window needs before it exists. Throws CFailure 339 when the character-engine component is missing.
void Create();
// Failures of a step: reported as Parlune:Parlune Startup, then the next step runs. Ends at once when the window is closed
// while events run in its middle.
void Form_Load();
void Form_Resize();
// Returns whether the window may close. Failures after the question is settled are ignored.
bool Form_QueryUnload(ui::UnloadMode mode);
void Form_Unload();

// Exit, from whichever menu.
void Exit();
// Shows the window in its normal state.
void ShowOptions();

}
