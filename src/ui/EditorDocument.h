#pragma once
#include <string>

namespace ui {

// The text in the editor, apart from its characters.
struct EditorDocument {
    std::string currentFile;  // "" for a new text.
    bool modified = false;    // Since the last open, save, new or close.
};

EditorDocument& Document();

// The editor shows this file, unmodified: state and window title. For a text without a file `file` is "" and the title is
// `title`.
void ShowUnmodified(const std::string& file, const std::string& title);
void ShowUnmodifiedFile(const std::string& file);

}
