#include "common/bGlobal.h"
#include "base/text/Case.h"
#include "base/text/Text.h"
#include "common/Numbers.h"
#include "common/zbErrorTrap.h"
#include "platform/Clock.h"
#include "platform/Platform.h"
#include "platform/RandomNumbers.h"
#include "platform/Screen.h"
#include <cmath>

namespace {

using platform::Current;
using zbErrorTrap::CGuard;

constexpr char Module[] = "bGlobal";

bool BeginsWord(char former) { return std::string_view(" \t\n\v\f\r\0", 7).find(former) != std::string_view::npos; }

std::string ProperCased(std::string_view text)
{
    std::string result;
    for (char former = ' '; !text.empty();) {
        const std::string_view character = text::Left(text, 1);
        result += BeginsWord(former) ? text::Upper(character) : text::Lower(character);
        former = character.front();
        text.remove_prefix(character.size());
    }
    return result;
}

double SecondOfDay(const platform::LocalTime& now) { return (now.hour * 60 + now.minute) * 60 + now.second; }

std::int32_t WholePixels(std::int32_t units, std::int32_t unitsPerPixel)
{
    if (unitsPerPixel == 0)
        throw platform::failure::DivisionByZero();
    return units / unitsPerPixel;
}

}

std::string bGlobal::ProperCase(const std::string& text)
{
    const CGuard guard(Module, "ProperCase");
    std::string result;
    guard([&] { result = ProperCased(text); });
    return result;
}

std::string bGlobal::Quote(const std::string& text)
{
    const CGuard guard(Module, "Quote");
    std::string result;
    guard([&] { result = '"' + text + '"'; });
    return result;
}

std::int32_t bGlobal::ScreenWidth()
{
    const CGuard guard(Module, "ScreenWidth");
    const platform::IScreen& screen = Current().screen;
    std::int32_t width = 0;
    guard([&] { width = WholePixels(screen.WidthInUnits(), screen.UnitsPerPixelX()); });
    return width;
}

std::int32_t bGlobal::ScreenHeight()
{
    const CGuard guard(Module, "ScreenHeight");
    const platform::IScreen& screen = Current().screen;
    std::int32_t height = 0;
    guard([&] { height = WholePixels(screen.HeightInUnits(), screen.UnitsPerPixelY()); });
    return height;
}

std::int16_t bGlobal::RandRange(std::int16_t low, std::int16_t high)
{
    const CGuard guard(Module, "RandRange");
    platform::IRandomNumbers& random = Current().random;
    std::int16_t result = 0;
    guard([&] { random.Seed(SecondOfDay(Current().clock.Now()) * random.Next()); });
    guard([&] { result = text::ToInt16(std::floor((high - low + 1) * random.Next() + low)); });
    return result;
}
