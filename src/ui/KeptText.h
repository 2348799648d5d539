#pragma once
#include <string>

// The safety net below the editor's commands: what one of them drops or overwrites is kept first, without a question. The
// status bar says so. Failures are ignored: no command ends otherwise because a text could not be kept.
namespace keptText {

// From now on a changed text is copied every half minute.
void Follow();

// To be called before the editor's text is replaced, or when it could not be saved: keeps it if it is changed.
void KeepChanged();
// To be called before a file gets this text: keeps what it holds.
void KeepFormer(const std::string& file, const std::string& text);
// The text is in its file.
void Saved();
// The program ends with this text: it is kept if it is changed, and the next start tells where.
void KeepForNextStart();

// Tells where the text is that a former run could not save, if there is one.
void TellWhatWasLeft();

// The file of the editor's text, "" when it has none. After a cancelled dialog the current file may be a folder.
std::string File();

}
