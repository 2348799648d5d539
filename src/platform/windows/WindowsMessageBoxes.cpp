#include "platform/windows/WindowsMessageBoxes.h"
#include "platform/windows/OwnerWindow.h"
#include "platform/windows/Text.h"
#include "platform/windows/Win32.h"
#include <algorithm>

namespace platform::windowsdesktop {
namespace {
UINT StyleOf(BoxButtons buttons)
{
    switch (buttons) {
    case BoxButtons::OkCancel:
        return MB_OKCANCEL;
    case BoxButtons::YesNo:
        return MB_YESNO;
    case BoxButtons::Ok:
        break;
    }
    return MB_OK;
}

UINT StyleOf(BoxIcon icon)
{
    switch (icon) {
    case BoxIcon::Critical:
        return MB_ICONERROR;
    case BoxIcon::Question:
        return MB_ICONQUESTION;
    case BoxIcon::Exclamation:
        return MB_ICONWARNING;
    case BoxIcon::Information:
        break;
    }
    return MB_ICONINFORMATION;
}

// Without an owner all windows of the program wait, and the box comes to the front by itself.
UINT StyleOf(HWND owner) { return owner != nullptr ? MB_APPLMODAL : MB_TASKMODAL | MB_SETFOREGROUND; }

BoxAnswer AnswerByClosing(BoxButtons buttons)
{
    switch (buttons) {
    case BoxButtons::OkCancel:
        return BoxAnswer::Cancel;
    case BoxButtons::YesNo:
        return BoxAnswer::No;
    case BoxButtons::Ok:
        break;
    }
    return BoxAnswer::Ok;
}

// No button at all means that no box could be shown.
BoxAnswer AnswerOf(int button, BoxButtons buttons)
{
    switch (button) {
    case IDOK:
        return BoxAnswer::Ok;
    case IDYES:
        return BoxAnswer::Yes;
    case IDNO:
        return BoxAnswer::No;
    default:
        return AnswerByClosing(buttons);
    }
}

// The system would stop at a NUL.
std::wstring Shown(std::string text)
{
    std::replace(text.begin(), text.end(), '\0', ' ');
    return ToWide(text);
}
}

BoxAnswer CWindowsMessageBoxes::Show(const MessageBox& box)
{
    const HWND owner = OwnerForModalWindow();
    const UINT defaultButton = box.secondButtonIsDefault ? MB_DEFBUTTON2 : MB_DEFBUTTON1;
    const UINT style = StyleOf(box.buttons) | StyleOf(box.icon) | StyleOf(owner) | defaultButton;
    return AnswerOf(MessageBoxW(owner, Shown(box.text).c_str(), Shown(box.title).c_str(), style), box.buttons);
}

}
