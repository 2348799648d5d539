#pragma once
#include <string>
#include <string_view>

// The main window's status bar: who the character is and what Parlune is doing.
namespace statusBar {

struct Activity {
    std::string character;  // "" while none is loaded.
    bool shown = false;
    bool reading = false;
    bool monitoring = false;  // Reads what is copied.
};

// One line, such as "Merlin - reading, monitoring the clipboard".
std::string TextFor(const Activity& activity);

// A character's name without the folder and the ending of a file that it may be named after.
std::string PlainName(std::string_view name);

// Shows a note before that, until the text is edited, at least for two seconds.
void Tell(const std::string& note);
void Edited();

// Shows what the program is doing now; to be called when that may have changed. Failures are ignored.
void Refresh();

}
