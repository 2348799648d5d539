#pragma once
#include <chrono>
#include <cstdint>

namespace engine {

// A clock that never jumps; any origin.
inline std::int64_t SteadyMicroseconds()
{
    return std::chrono::duration_cast<std::chrono::microseconds>(std::chrono::steady_clock::now().time_since_epoch())
        .count();
}

}
