#pragma once
#include "platform/windows/Win32.h"
#include <deque>
#include <functional>
#include <map>
#include <string>

namespace standins {

// Work for later on the thread's message loop, and the window by which other programs give commands.
class CLoop {
public:
    // Gives whether the command was understood.
    using Command = std::function<bool(const std::string&)>;

    CLoop();
    CLoop(const CLoop&) = delete;
    CLoop& operator=(const CLoop&) = delete;
    ~CLoop();
    void Post(std::function<void()> work);
    void After(unsigned milliseconds, std::function<void()> work);
    void Rename(const std::wstring& title) { SetWindowTextW(m_window, title.c_str()); }
    // Lets other programs find the window, class "ParluneStandIn", under a title. One command a message: WM_COPYDATA, UTF-8.
    void Listen(const std::wstring& title, Command command);

private:
    static LRESULT CALLBACK Procedure(HWND window, UINT message, WPARAM word, LPARAM data);
    LRESULT Answer(UINT message, WPARAM word, LPARAM data);
    void RunPosted();
    void RunTimer(UINT_PTR timer);

    HWND m_window = nullptr;
    std::deque<std::function<void()>> m_posted;
    std::map<UINT_PTR, std::function<void()>> m_timers;
    UINT_PTR m_lastTimer = 0;
    Command m_command;
};

void PumpMessages();  // Those that wait.
// Pumps until the condition holds; gives whether it did in time.
bool PumpUntil(const std::function<bool()>& condition, unsigned milliseconds = 60000);

}
