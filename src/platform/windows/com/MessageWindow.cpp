#include "platform/windows/com/MessageWindow.h"
#include "platform/windows/com/Failures.h"

namespace platform::windowsdesktop::com {
namespace {

constexpr wchar_t ClassName[] = L"ParluneMessages";

LRESULT CALLBACK WindowProcedure(HWND window, UINT message, WPARAM wParam, LPARAM lParam)
{
    auto* receiver = reinterpret_cast<IMessageReceiver*>(GetWindowLongPtrW(window, GWLP_USERDATA));
    try {
        if (receiver && receiver->Receive(message, wParam))
            return 0;
    } catch (...) {
        return 0;
    }
    return DefWindowProcW(window, message, wParam, lParam);
}

void RegisterOnce()
{
    WNDCLASSEXW description{};
    description.cbSize = sizeof description;
    description.lpfnWndProc = WindowProcedure;
    description.hInstance = GetModuleHandleW(nullptr);
    description.lpszClassName = ClassName;
    static const ATOM Registered = RegisterClassExW(&description);
    static_cast<void>(Registered);
}

}

CMessageWindow::CMessageWindow(IMessageReceiver& receiver)
{
    RegisterOnce();
    m_window = CreateWindowExW(0, ClassName, L"", 0, 0, 0, 0, 0, HWND_MESSAGE, nullptr, GetModuleHandleW(nullptr), nullptr);
    if (!m_window)
        throw FailureOf(HRESULT_FROM_WIN32(GetLastError()));
    SetWindowLongPtrW(m_window, GWLP_USERDATA, reinterpret_cast<LONG_PTR>(&receiver));
}

CMessageWindow::~CMessageWindow()
{
    SetWindowLongPtrW(m_window, GWLP_USERDATA, 0);
    DestroyWindow(m_window);
}

}
