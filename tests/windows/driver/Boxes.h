#pragma once
#include "platform/windows/Win32.h"
#include <string>
#include <vector>

namespace driver {

// A message box of the program, as it stands on the screen.
struct Box {
    HWND window = nullptr;
    std::string title, text;
    std::vector<int> buttons;  // IDOK, IDCANCEL ... in their order.
    int standard = 0;          // The button of the Return key.
    explicit operator bool() const { return window != nullptr; }
};

enum class Sign { None, Stop, Question, Warning, Information };

Box FindBox(DWORD process);               // The one that waits for an answer; no window when there is none.
Box WaitForBox(DWORD process);            // The same; waits until there is one.
Sign SignOf(const Box& box);              // By the picture that is seen.
void Answer(const Box& box, int button);  // Presses the button and waits until the box has gone.

// A file dialog of the program with this title; null when none comes.
HWND WaitForFileDialog(DWORD process, const std::string& title);
void GiveFile(HWND dialog, const std::string& path);  // Types a path and confirms; the dialog need not go.
void CancelDialog(HWND dialog);

}
