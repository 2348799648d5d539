#pragma once
#include <cstdint>
#include <functional>
#include <string>

namespace platform {

// What the mouse does to the icon. Systems report other messages too, to be ignored.
namespace mouseMessage {
inline constexpr std::int32_t LeftDoubleClick = 515;
inline constexpr std::int32_t RightButtonUp = 517;
}

// The program's icon in the notification area.
class ITrayIcon {
public:
    virtual ~ITrayIcon() = default;
    // `mouse` is called from the event loop with what the mouse does to the icon: at least with LeftDoubleClick, and with
    // RightButtonUp where the system leaves the menu to the program. A refusal is not reported.
    virtual void Add(const std::string& tip, std::function<void(std::int32_t message)> mouse) = 0;
    virtual void Delete() = 0;
};

}
