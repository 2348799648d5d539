#pragma once
#include <cstdint>
#include <functional>
#include <string_view>

namespace platform {

class IFonts {
public:
    virtual ~IFonts() = default;
    // Calls `family` once per installed font family with its face-name field: the name, ended by a NUL when the field
    // is longer than the name. Stops when `family` returns 0.
    virtual void EnumerateFamilies(const std::function<std::int32_t(std::string_view faceName)>& family) const = 0;
};

}
