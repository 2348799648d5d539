#include "Picture.h"
#include "Canvas.h"
#include <algorithm>
#include <cmath>

namespace drawing {

namespace {

constexpr double SolidFrom = 0.42;
constexpr Rgba EdgeTone = Hex(0x9A6A55);

std::uint32_t Byte(double part) { return static_cast<std::uint32_t>(std::lround(std::clamp(part, 0.0, 1.0) * 255)); }

std::uint32_t Solid(const Rgba& color)
{
    const double thin = std::clamp((0.9 - color.alpha) / (0.9 - SolidFrom), 0.0, 1.0);
    const Rgba tone = Mix(color, EdgeTone, thin * 0.5);
    return 0xFF000000U | Byte(tone.red) << 16 | Byte(tone.green) << 8 | Byte(tone.blue);
}

}

Picture HardEdged(const CCanvas& canvas)
{
    Picture picture{canvas.Width(), canvas.Height(), {}};
    for (int y = 0; y < canvas.Height(); ++y)
        for (int x = 0; x < canvas.Width(); ++x) {
            const Rgba color = canvas.At(x, y);
            picture.pixels.push_back(color.alpha < SolidFrom ? 0 : Solid(color));
        }
    return picture;
}

}
