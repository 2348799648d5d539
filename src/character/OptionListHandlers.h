#pragma once
#include <cstdint>

// What choosing an entry of an option list does at once.
namespace character {

// Plays the animation now selected for greeting 0 to 4, unless the lists are just being filled.
void cboAnim_Click(std::int32_t index);
// Choosing a speaking character or a context switches its voice modifier on.
void cboChr_Click();
void cboCtx_Click();
// Shows the chosen balloon font in the preview. Failures: reported as Parlune:cboFontName_Click and
// Parlune:cboFontSize_Click.
void cboFontName_Click();
void cboFontSize_Click();

}
