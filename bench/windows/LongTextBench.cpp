#include "Programs.h"
#include "app/windows/ControlIds.h"
#include "ui/frmParlune.h"
#include <algorithm>
#include <cstdio>
#include <cstdlib>
#include <cstring>

// bench_WindowsLongText PROGRAM KILOBYTES: starts the program, puts so much text on the clipboard, has it read, and prints
// the longest time that the program's main window took to answer meanwhile and the time until all was handed over, in
// milliseconds.
namespace {

constexpr double LongestReading = 120'000, Rest = 700;
constexpr char CallLog[] = "C:\\parlune-calls.txt";
constexpr char Sentence[] = "The quick brown fox jumps over the lazy dog near the bank.\r\n";

bool PutOnClipboard(std::size_t bytes)
{
    std::string text;
    while (text.size() < bytes)
        text += Sentence;
    HGLOBAL block = GlobalAlloc(GMEM_MOVEABLE, text.size() + 1);
    std::memcpy(GlobalLock(block), text.c_str(), text.size() + 1);
    GlobalUnlock(block);
    if (OpenClipboard(nullptr) == 0)
        return false;
    EmptyClipboard();
    const bool put = SetClipboardData(CF_TEXT, block) != nullptr;
    CloseClipboard();
    return put;
}

// How long the window takes to answer a message that asks for nothing.
double Answer(HWND window)
{
    const double began = bench::Milliseconds();
    DWORD_PTR answer = 0;
    SendMessageTimeoutA(window, WM_NULL, 0, 0, SMTO_NORMAL, 10'000, &answer);
    return bench::Milliseconds() - began;
}

struct Reading {
    double longestAnswer = 0, took = 0;
};

// What the engine that stands in has written down so far, in bytes.
DWORD WrittenDown()
{
    WIN32_FILE_ATTRIBUTE_DATA data = {};
    GetFileAttributesExA(CallLog, GetFileExInfoStandard, &data);
    return data.nFileSizeLow;
}

// Until nothing more is handed to the engine.
Reading Watch(HWND window)
{
    Reading reading;
    const double began = bench::Milliseconds();
    double changed = began;
    DWORD written = WrittenDown();
    for (double now = began; now - changed < Rest && now - began < LongestReading; now = bench::Milliseconds()) {
        reading.longestAnswer = std::max(reading.longestAnswer, Answer(window));
        Sleep(1);
        if (const DWORD size = WrittenDown(); size != written) {
            written = size;
            changed = bench::Milliseconds();
            reading.took = changed - began;
        }
    }
    return reading;
}

}

int main(int argc, char** argv)
{
    if (argc != 3)
        return std::fputs("Usage: bench_WindowsLongText PROGRAM KILOBYTES\n", stderr), 1;
    DeleteFileA(CallLog);
    SetEnvironmentVariableA("PARLUNE_STANDIN_LOG", CallLog);
    const bench::CProgram program(argv[1]);
    const HWND window = program.Started() ? program.WaitForWindow() : nullptr;
    if (!window || !PutOnClipboard(std::strtoul(argv[2], nullptr, 10) * 1024))
        return std::fputs("The program showed no window, or the clipboard is locked.\n", stderr), 1;
    Sleep(3000);  // It greets.
    PostMessageA(window, WM_COMMAND, static_cast<WPARAM>(appwindows::CommandOf(MainWindow(), "mnuPopReadClipboard")), 0);
    const Reading reading = Watch(window);
    std::printf("%.0f %.0f\n", reading.longestAnswer, reading.took);
    return 0;
}
