#pragma once

namespace version {
inline constexpr int Major = 2;
inline constexpr int Minor = 6;
inline constexpr int Revision = 3;
inline constexpr char Title[] = "Parlune";
}
