#pragma once

// The character's look and voice, kept over a voice test. Failures are reported as Parlune:SaveCharProperties and
// Parlune:RestoreCharProperties.
namespace character {

// Keeps size, balloon font, balloon style and voice; the first call of a run only.
void SaveCharProperties();
// Gives the character back what was kept. It stays kept: every test of a run returns to the state before the first one.
void RestoreCharProperties();

}
