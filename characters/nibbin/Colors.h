#pragma once
#include "../drawing/Paint.h"

// The colours of the figure in one place.
namespace nibbin::colors {

using drawing::Hex;
using drawing::Rgba;

inline constexpr double LineWidth = 1.45;
inline constexpr Rgba Line = Hex(0x4A2A26);
inline constexpr Rgba SoftLine = Hex(0x8C5230);

inline constexpr Rgba SkinLight = Hex(0xF8BE6B);
inline constexpr Rgba Skin = Hex(0xEB9B49);
inline constexpr Rgba SkinDark = Hex(0xC96B33);
inline constexpr Rgba Face = Hex(0xFFE9C2);
inline constexpr Rgba Cheek = Hex(0xF08A66);

inline constexpr Rgba HuskLight = Hex(0x93BE63);
inline constexpr Rgba Husk = Hex(0x6B9F52);
inline constexpr Rgba HuskDark = Hex(0x3F7048);

inline constexpr Rgba QuillLight = Hex(0x63C2B0);
inline constexpr Rgba Quill = Hex(0x2F8F93);
inline constexpr Rgba QuillDark = Hex(0x22586F);
inline constexpr Rgba QuillVein = Hex(0xD8F0DA);

inline constexpr Rgba Shoe = Hex(0x8C3F58);
inline constexpr Rgba ShoeLight = Hex(0xB75F73);

inline constexpr Rgba White = Hex(0xFFFDF6);
inline constexpr Rgba EyeShade = Hex(0xDCD5D6);
inline constexpr Rgba Pupil = Hex(0x33201F);
inline constexpr Rgba Iris = Hex(0x70422B);
inline constexpr Rgba MouthInside = Hex(0x6E1F2B);
inline constexpr Rgba Tongue = Hex(0xE07A70);

inline constexpr Rgba Cover = Hex(0x46569E);
inline constexpr Rgba CoverDark = Hex(0x303A73);
inline constexpr Rgba Gold = Hex(0xF2C14E);
inline constexpr Rgba Paper = Hex(0xFFF8E4);
inline constexpr Rgba PaperShade = Hex(0xD9CCAE);
inline constexpr Rgba Metal = Hex(0xB8C4CF);
inline constexpr Rgba Rim = Hex(0x5B3A5E);
inline constexpr Rgba Sky = Hex(0xCFEAF2);

}
