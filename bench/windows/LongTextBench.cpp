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

constexpr double LongestReading = 120'000, LookEvery = 200, BusyShare = 0.3;
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

// Until the program comes to rest: from then on its processor time hardly grows.
Reading Watch(const bench::CProgram& program, HWND window)
{
    Reading reading;
    const double began = bench::Milliseconds();
    double looked = began, worked = program.ProcessorMilliseconds();
    while (bench::Milliseconds() - began < LongestReading) {
        reading.longestAnswer = std::max(reading.longestAnswer, Answer(window));
        Sleep(1);
        const double now = bench::Milliseconds();
        if (now - looked < LookEvery)
            continue;
        const double workedNow = program.ProcessorMilliseconds();
        if (workedNow - worked < BusyShare * (now - looked))
            break;
        reading.took = now - began;
        looked = now;
        worked = workedNow;
    }
    return reading;
}

}

int main(int argc, char** argv)
{
    if (argc != 3)
        return std::fputs("Usage: bench_WindowsLongText PROGRAM KILOBYTES\n", stderr), 1;
    const bench::CProgram program(argv[1]);
    const HWND window = program.Started() ? program.WaitForWindow() : nullptr;
    if (!window || !PutOnClipboard(std::strtoul(argv[2], nullptr, 10) * 1024))
        return std::fputs("The program showed no window, or the clipboard is locked.\n", stderr), 1;
    Sleep(3000);  // It greets.
    PostMessageA(window, WM_COMMAND, static_cast<WPARAM>(appwindows::CommandOf(MainWindow(), "mnuPopReadClipboard")), 0);
    const Reading reading = Watch(program, window);
    std::printf("%.0f %.0f\n", reading.longestAnswer, reading.took);
    return 0;
}
