#pragma once

// The program's icon in the notification area. The system tells of the mouse on it by mouse moves of the icon's owner, the
// invisible tray window, with the mouse message, in pixels, for the horizontal place.
namespace zbSysTray {

void AddTrayIcon();  // Its owner is the invisible tray window, made on the way. A refusal is not reported.
void DeleteTrayIcon();

// Takes a mouse move for the message that it stands for: a double click shows or hides the main window, the release of the
// right button opens the popup menu, anything else is ignored. `x` is in screen units. Failures reach the caller.
void MouseMove(int button, int shift, float x, float y);

// The tray window's procedures: it takes the main window's icon for its own. Failures are ignored.
void frmSysTray_Load();
void frmSysTray_MouseMove(int button, int shift, float x, float y);
// Deliberate: moves over the main window's bare surface count too. Failures: reported as Parlune:Form_MouseMove.
void frmParlune_MouseMove(int button, int shift, float x, float y);

}
