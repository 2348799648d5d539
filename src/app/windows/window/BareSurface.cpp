#include "app/windows/window/BareSurface.h"
#include "platform/Platform.h"
#include "platform/Screen.h"

namespace appwindows {
namespace {

int ButtonsOf(WPARAM keys)
{
    return ((keys & MK_LBUTTON) ? 1 : 0) + ((keys & MK_RBUTTON) ? 2 : 0) + ((keys & MK_MBUTTON) ? 4 : 0);
}

int ShiftOf(WPARAM keys)
{
    return ((keys & MK_SHIFT) ? 1 : 0) + ((keys & MK_CONTROL) ? 2 : 0) + (GetKeyState(VK_MENU) < 0 ? 4 : 0);
}

}

void TellMouseMove(ui::CForm& form, WPARAM keys, POINT place)
{
    const platform::IScreen& screen = platform::Current().screen;
    form.MouseMove(ButtonsOf(keys), ShiftOf(keys), static_cast<float>(place.x * screen.UnitsPerPixelX()),
                   static_cast<float>(place.y * screen.UnitsPerPixelY()));
}

}
