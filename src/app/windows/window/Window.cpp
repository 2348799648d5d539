#include "app/windows/window/Window.h"
#include "app/windows/window/Guarded.h"
#include "platform/Failure.h"
#include "platform/windows/Text.h"

namespace appwindows {

using platform::windowsdesktop::FromWide;
using platform::windowsdesktop::ToWide;

CWindow::~CWindow()
{
    if (!m_native)
        return;
    SetWindowLongPtrW(m_native, GWLP_USERDATA, 0);
    DestroyWindow(m_native);
}

void CWindow::Create(const Plan& plan)
{
    Register(plan.className);
    const Rectangle& place = plan.place;
    if (!CreateWindowExW(plan.exStyle, plan.className, plan.title.c_str(), plan.style, place.x, place.y, place.width,
                         place.height, plan.parent, reinterpret_cast<HMENU>(static_cast<INT_PTR>(plan.id)),
                         ProgramInstance(), this))
        throw platform::failure::OutOfMemory();
}

LRESULT CWindow::Handle(const Message& message) { return Default(message); }

void CWindow::Register(const wchar_t* className)
{
    WNDCLASSEXW known = {};
    known.cbSize = sizeof known;
    if (GetClassInfoExW(ProgramInstance(), className, &known))
        return;
    WNDCLASSEXW description = {};
    description.cbSize = sizeof description;
    description.style = CS_DBLCLKS;
    description.lpfnWndProc = Procedure;
    description.hInstance = ProgramInstance();
    description.hCursor = LoadCursorW(nullptr, MAKEINTRESOURCEW(32512));  // The arrow.
    description.lpszClassName = className;
    RegisterClassExW(&description);
}

LRESULT CALLBACK CWindow::Procedure(HWND window, UINT code, WPARAM w, LPARAM l)
{
    if (code == WM_NCCREATE) {
        auto* self = static_cast<CWindow*>(reinterpret_cast<const CREATESTRUCTW*>(l)->lpCreateParams);
        self->m_native = window;
        SetWindowLongPtrW(window, GWLP_USERDATA, reinterpret_cast<LONG_PTR>(self));
    }
    auto* self = reinterpret_cast<CWindow*>(GetWindowLongPtrW(window, GWLP_USERDATA));
    if (!self)
        return DefWindowProcW(window, code, w, l);
    if (code == WM_NCDESTROY) {
        self->m_native = nullptr;
        SetWindowLongPtrW(window, GWLP_USERDATA, 0);
        return DefWindowProcW(window, code, w, l);
    }
    LRESULT result = 0;
    RunGuarded([&] { result = self->Handle({code, w, l}); });
    return result;
}

HWND MakeChild(HWND parent, const wchar_t* className, DWORD style, int id, DWORD exStyle)
{
    HWND child = CreateWindowExW(exStyle, className, L"", style | WS_CHILD, 0, 0, 10, 10, parent,
                                 reinterpret_cast<HMENU>(static_cast<INT_PTR>(id)), ProgramInstance(), nullptr);
    if (!child)
        throw platform::failure::OutOfMemory();
    return child;
}

std::string TextOf(HWND window)
{
    std::wstring text(static_cast<std::size_t>(GetWindowTextLengthW(window)) + 1, L'\0');
    text.resize(static_cast<std::size_t>(GetWindowTextW(window, text.data(), static_cast<int>(text.size()))));
    return FromWide(text);
}

void SetTextOf(HWND window, const std::string& text)
{
    if (TextOf(window) != text)
        SetWindowTextW(window, ToWide(text).c_str());
}

Rectangle PlaceOf(HWND child)
{
    RECT place = {};
    GetWindowRect(child, &place);
    MapWindowPoints(nullptr, GetParent(child), reinterpret_cast<POINT*>(&place), 2);
    return {static_cast<int>(place.left), static_cast<int>(place.top), static_cast<int>(place.right - place.left),
            static_cast<int>(place.bottom - place.top)};
}

void MoveTo(HWND child, const Rectangle& place)
{
    SetWindowPos(child, nullptr, place.x, place.y, place.width, place.height, SWP_NOZORDER | SWP_NOACTIVATE);
}

SIZE InsideOf(HWND window)
{
    RECT inside = {};
    GetClientRect(window, &inside);
    return {inside.right, inside.bottom};
}

bool Holds(HWND window, HWND inner) { return inner && (window == inner || IsChild(window, inner)); }

}
