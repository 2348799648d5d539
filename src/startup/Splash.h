#pragma once

// The splash window's procedures: the start-up decision, which looks for the character engine and the speech control
// panel, tells the user what is missing, and loads the main window.
namespace splash {

// Runs first, always. Failures: a missing engine component ends the program after a message; any other is reported as
// frmSplash:Form_Load, then the next step runs. Ends at once when the session ends, or the main window is closed again,
// while events run in its middle.
void Form_Load();
void Form_Click();  // A click on the window or its picture dismisses it.
void imgAbout_Click();

// Whether the character engine is registered, or else can be created (which is then remembered). False on a failure.
bool IsAgentInstalled();
bool IsAgentCreatable();
// Whether the speech service can be created. False on a failure.
bool IsDSSInstalled();

}
