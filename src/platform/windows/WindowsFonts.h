#pragma once
#include "platform/Fonts.h"

namespace platform::windowsdesktop {

class CWindowsFonts final : public IFonts {
public:
    void EnumerateFamilies(const std::function<std::int32_t(std::string_view faceName)>& family) const override;
};

// The text of a face-name field: its bytes up to the first NUL, and that NUL. A full field has none.
std::string FaceNameOf(std::string_view field);

}
