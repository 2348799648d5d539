#pragma once
#include "platform/windows/Win32.h"
#include "ui/layout/FormLayout.h"
#include <string>
#include <utility>

namespace appwindows {

using Rectangle = ui::layout::Rectangle;  // In this folder mostly in pixels.

struct Message {
    UINT code = 0;
    WPARAM w = 0;
    LPARAM l = 0;
};

// A native window of a class of our own. Failures of its procedure are reported to the user; none leaves it.
class CWindow {
public:
    CWindow() = default;
    virtual ~CWindow();  // Destroys the native window.
    CWindow(const CWindow&) = delete;
    CWindow& operator=(const CWindow&) = delete;
    HWND Native() const { return m_native; }

protected:
    struct Plan {
        const wchar_t* className;
        std::wstring title;
        DWORD style = 0;
        DWORD exStyle = 0;
        HWND parent = nullptr;
        int id = 0;  // Of a child.
        Rectangle place = {CW_USEDEFAULT, CW_USEDEFAULT, 100, 100};
    };
    // Makes the native window. Throws CFailure 7 when the system refuses.
    void Create(const Plan& plan);
    virtual LRESULT Handle(const Message& message);
    // What the system does with a message that nobody wants.
    LRESULT Default(const Message& message) const { return DefWindowProcW(m_native, message.code, message.w, message.l); }

private:
    static LRESULT CALLBACK Procedure(HWND window, UINT code, WPARAM w, LPARAM l);
    static void Register(const wchar_t* className);
    HWND m_native = nullptr;
};

inline HINSTANCE ProgramInstance() { return GetModuleHandleW(nullptr); }

// A child window of one of the system's classes. Throws CFailure 7 when the system refuses.
HWND MakeChild(HWND parent, const wchar_t* className, DWORD style, int id, DWORD exStyle = 0);

std::string TextOf(HWND window);
void SetTextOf(HWND window, const std::string& text);  // Only when it changes: no flicker.

Rectangle PlaceOf(HWND child);  // From its parent's inside.
void MoveTo(HWND child, const Rectangle& place);
SIZE InsideOf(HWND window);
bool Holds(HWND window, HWND inner);  // Whether `inner` is the window or below it.

template <class Result = LRESULT> Result Send(HWND window, UINT code, WPARAM w = 0, LPARAM l = 0)
{
    return static_cast<Result>(SendMessageW(window, code, w, l));
}
template <class Pointer> LPARAM ToParam(Pointer* pointer) { return reinterpret_cast<LPARAM>(pointer); }

}
