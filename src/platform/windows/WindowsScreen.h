#pragma once
#include "platform/Screen.h"

namespace platform::windowsdesktop {

// Units are 1/1440 inch at the density that the system reports: 15 a pixel for the usual one.
class CWindowsScreen final : public IScreen {
public:
    std::int32_t WidthInUnits() const override;
    std::int32_t HeightInUnits() const override;
    std::int32_t UnitsPerPixelX() const override;
    std::int32_t UnitsPerPixelY() const override;
    void SetPointer(Pointer pointer) override;

    Pointer CurrentPointer() const { return m_pointer; }
    // For WM_SETCURSOR of every window: shows the hourglass and returns true while it is set; otherwise the window's own
    // pointer counts.
    bool ShowPointer() const;

private:
    Pointer m_pointer = Pointer::Default;
};

// Whole units for a pixel at so many pixels an inch, 1 or more.
std::int32_t UnitsAt(std::int32_t pixelsPerInch);

}
