#pragma once
#include "platform/Clock.h"

namespace platform::windowsdesktop {

class CWindowsClock final : public IClock {
public:
    LocalTime Now() const override;
    std::int64_t SteadyMilliseconds() const override;
};

}
