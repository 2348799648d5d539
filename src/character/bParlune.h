#pragma once
#include <cstdint>
#include <string>

// What every part of the program asks of the loaded character: speak, play, show, hide, unload; and the two values that
// the options window makes into character settings.
namespace bParlune {

// Speaks a text, one request per line, template tokens expanded and voice-modifier tags in front; a sound file goes with
// the first line. Keeps the last request: as test request with `isTest`, else as speech request and skip target.
// Failures: reported as bParlune:CharSpeak, then it returns.
void CharSpeak(const std::string& text, const std::string& soundFile = "", bool isTest = false);

// The tags that the voice modifiers stand for, "" when none is on. Failures: reported, then "".
std::string GetAdvSpeakTags();

// The balloon style word of the Balloon tab as "&H" and eight digits. Failures: reported, then "".
std::string GetBalloonStyle();
std::string FormatBalloonStyle(std::int32_t style);

// The mode identifier of the voice selected in the list; "" when none is.
std::string GetSelectedTTSModeID();
// Selects the current character's voice in the list, else the first one.
void SetTTSModeID();
// Gives the character a voice; a failure is ignored.
void CharSetTTSModeID(const std::string& modeID);

void CharPlay(const std::string& animation);  // Only while a character is loaded; a failure ends it quietly.
void CharStop();                              // Failures of these three are ignored statement by statement.
void CharHide();
void CharShow();     // Loads the character again when showing fails.
bool CharVisible();  // False also on a failure.
// Stops and unloads; with `waitForHide` a visible character hides first, for at most 5 seconds. Failures: reported as
// bParlune:CharUnload, then it returns.
void CharUnload(bool waitForHide);

}
