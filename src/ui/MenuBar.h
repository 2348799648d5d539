#pragma once

// The menu bar's entries, but for those of the text editor. Failures: reported as Parlune under the procedure's name.
namespace menuBar {

void mnuDownloadCharacters_Click();
void mnuDownloadTTSEngines_Click();
void frmHelpAbout_Click();  // Selects the About tab.

// Asks, then forgets all options and ends the program, which writes none at its end. Failures after the question are
// ignored.
void mnuFileResetDefaults_Click();

}
