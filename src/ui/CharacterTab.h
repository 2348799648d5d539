#pragma once

// What the boxes and buttons of the Character tab do at once; its size boxes are CharacterSize's. Failures: reported as
// Parlune under the procedure's own name, where nothing else is said.
namespace characterTab {

// Shows the loaded character in the list, without folder; adds it when the list does not offer it. Nothing while none is
// loaded. Failures: not guarded, they reach the caller's guard.
void ShowLoadedCharacter();

// Loads and shows the character that the list shows. The default character, when it is loaded already, opens the window
// in which the user chooses which one that is.
void cmdLoadChar_Click();
// Asks for a character file; loads and shows it.
void cboBrowseChar_Click();

// Remembers where the character stands, at once. Nothing while none is loaded.
void cmdSaveCurrentPos_Click();
// A fixed position can be saved only while the last one is not remembered.
void chkSavePosOnClose_Click();

// Failures of these four are ignored.
void chkIdleOn_Click();
void chkSoundEffectsOn_Click();
void cmdCharacterOptions_Click();  // Opens the engine's own options.
void cmdSetDefault_Click();        // Opens the engine's choice of the default character.

}
