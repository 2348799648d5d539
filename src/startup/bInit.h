#pragma once

namespace bInit {

// First thing of the main window's load: folders, options, character list, menus, fixed lists.
void Initialize();
// Settles where the program's files live (settings/Paths.h).
void SetUpFolders();
// Fills the character list from the character folder. Failures: reported as bInit:InitCharacters.
void InitCharacters();
// Fills the balloon font lists, once. Failures: reported as bInit:InitBalloonFonts.
void InitBalloonFonts();
// Fills the voice list. Failures: reported as bInit:InitTTS.
void InitTTS();

}
