#pragma once

#include "platform/Export.h"

#include <cstdint>

// The standard palette of the 255 indexed colours.
namespace tv::dwg {

struct Rgb {
    std::uint8_t red = 0, green = 0, blue = 0;
    friend constexpr bool operator==(const Rgb&, const Rgb&) = default;
};

// Colour of an index 1..255; black for anything else. Index 7 is white here and black on light backgrounds.
KXPLATFORM_EXPORT Rgb paletteColor(int index);
// The index whose colour lies nearest (smallest sum of squared differences, the lowest index of several).
KXPLATFORM_EXPORT int nearestPaletteIndex(Rgb color);

} // namespace tv::dwg
