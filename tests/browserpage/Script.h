#pragma once
#include <string>

// Runs the script of Parlune.htm, which lies beside the test program, in the system's script engine. `browser` is script
// that sets `menuArguments`, the window from which the browser's menu was opened. Answers with what the page put on the
// clipboard, or "(nothing)".
std::string ClipboardAfterPage(const std::string& browser);
