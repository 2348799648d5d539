#pragma once
#include <cstdint>

namespace platform {

enum class Pointer { Default = 0, Hourglass = 11 };

class IScreen {
public:
    virtual ~IScreen() = default;
    // The screen's size in the system's logical units, and those units per pixel (1 or more).
    virtual std::int32_t WidthInUnits() const = 0;
    virtual std::int32_t HeightInUnits() const = 0;
    virtual std::int32_t UnitsPerPixelX() const = 0;
    virtual std::int32_t UnitsPerPixelY() const = 0;
    virtual void SetPointer(Pointer pointer) = 0;  // For all windows of the program.
};

}
