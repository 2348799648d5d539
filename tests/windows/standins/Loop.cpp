#include "windows/standins/Loop.h"
#include <exception>

namespace standins {
namespace {

constexpr wchar_t WindowClass[] = L"ParluneStandIn";
constexpr UINT RunPostedMessage = WM_APP + 1;

HINSTANCE OwnModule()
{
    HMODULE module = nullptr;
    const DWORD flags = GET_MODULE_HANDLE_EX_FLAG_FROM_ADDRESS | GET_MODULE_HANDLE_EX_FLAG_UNCHANGED_REFCOUNT;
    GetModuleHandleExW(flags, reinterpret_cast<LPCWSTR>(&OwnModule), &module);
    return module;
}

void RegisterOnce(WNDPROC procedure)
{
    WNDCLASSW description{};
    description.lpfnWndProc = procedure;
    description.hInstance = OwnModule();
    description.lpszClassName = WindowClass;
    RegisterClassW(&description);  // Fails harmlessly the second time.
}

std::string TextOf(const COPYDATASTRUCT* data)
{
    const char* bytes = static_cast<const char*>(data->lpData);
    return bytes ? std::string(bytes, data->cbData) : std::string();
}

}

CLoop::CLoop()
{
    RegisterOnce(&CLoop::Procedure);
    m_window =
        CreateWindowExW(WS_EX_TOOLWINDOW, WindowClass, L"", WS_POPUP, 0, 0, 0, 0, nullptr, nullptr, OwnModule(), nullptr);
    SetWindowLongPtrW(m_window, GWLP_USERDATA, reinterpret_cast<LONG_PTR>(this));
}

CLoop::~CLoop()
{
    SetWindowLongPtrW(m_window, GWLP_USERDATA, 0);
    DestroyWindow(m_window);
}

void CLoop::Post(std::function<void()> work)
{
    m_posted.push_back(std::move(work));
    PostMessageW(m_window, RunPostedMessage, 0, 0);
}

void CLoop::After(unsigned milliseconds, std::function<void()> work)
{
    if (milliseconds == 0)
        return Post(std::move(work));
    m_timers[++m_lastTimer] = std::move(work);
    SetTimer(m_window, m_lastTimer, milliseconds, nullptr);
}

void CLoop::Listen(const std::wstring& title, Command command)
{
    SetWindowTextW(m_window, title.c_str());
    m_command = std::move(command);
}

LRESULT CALLBACK CLoop::Procedure(HWND window, UINT message, WPARAM word, LPARAM data)
{
    const bool ours = message == RunPostedMessage || message == WM_TIMER || message == WM_COPYDATA;
    auto* loop = reinterpret_cast<CLoop*>(GetWindowLongPtrW(window, GWLP_USERDATA));
    if (!ours || !loop)
        return DefWindowProcW(window, message, word, data);
    try {
        return loop->Answer(message, word, data);
    } catch (...) {
        return 0;
    }
}

LRESULT CLoop::Answer(UINT message, WPARAM word, LPARAM data)
{
    if (message == RunPostedMessage)
        RunPosted();
    else if (message == WM_TIMER)
        RunTimer(word);
    else if (m_command)
        return m_command(TextOf(reinterpret_cast<const COPYDATASTRUCT*>(data))) ? 1 : 0;
    return 0;
}

void CLoop::RunPosted()
{
    if (m_posted.empty())
        return;
    const auto work = std::move(m_posted.front());
    m_posted.pop_front();
    work();
}

void CLoop::RunTimer(UINT_PTR timer)
{
    KillTimer(m_window, timer);
    const auto found = m_timers.find(timer);
    if (found == m_timers.end())
        return;
    const auto work = std::move(found->second);
    m_timers.erase(found);
    work();
}

void PumpMessages()
{
    MSG message;
    while (PeekMessageW(&message, nullptr, 0, 0, PM_REMOVE)) {
        TranslateMessage(&message);
        DispatchMessageW(&message);
    }
}

bool PumpUntil(const std::function<bool()>& condition, unsigned milliseconds)
{
    const ULONGLONG end = GetTickCount64() + milliseconds;
    for (PumpMessages(); !condition(); PumpMessages()) {
        const ULONGLONG now = GetTickCount64();
        if (now >= end)
            return false;
        MsgWaitForMultipleObjects(0, nullptr, FALSE, 5, QS_ALLINPUT);
    }
    return true;
}

}
