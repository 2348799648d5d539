#pragma once
#include <cstdint>

// What the Voice tab does at once: try a voice or the voice modifiers, keep them for the character, or take them back.
// Which of the two the buttons mean is what the inner tab strip shows.
namespace voiceTab {

// Shows the voice list or the voice modifiers. Failures: reported as Parlune:tabTTS_Click.
void tabTTS_Click();

// 0 "Test", 1 "Reset to Default", 2 "Set". Failures: reported as Parlune:cmdTestVoice_Click, then the next step runs;
// without a character that is one report, and nothing else happens.
void cmdTTSVoice_Click(std::int32_t index);
// Tests the voice that was double-clicked.
void lstTTS_DblClick();

// Shows the value of slider 0 to 2 in its label. Failures: reported as Parlune:sldAdvSpeak_Change.
void sldAdvSpeak_Change(std::int32_t index);

}
