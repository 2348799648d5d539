#pragma once
#include <string>

namespace platform {

// The program's icon in the notification area.
class ITrayIcon {
public:
    virtual ~ITrayIcon() = default;
    virtual void Add(const std::string& tip) = 0;  // A refusal is not reported.
    virtual void Delete() = 0;
};

}
