#pragma once

#include "kxgui/Export.h"
#include "platform/drawing/AciPalette.h"

#include <array>
#include <optional>
#include <string>
#include <string_view>

// How a true colour is described, as rules without controls.
namespace kx::frame {

using tv::dwg::Rgb;

// Hue in degrees [0, 360), saturation and luminance from 0 to 1. Greys have hue 0 and saturation 0.
struct Hsl {
    double hue = 0, saturation = 0, luminance = 0;
};

// The usual double-cone conversion; toRgb(toHsl(c)) is c for every colour. toRgb takes any hue (it is periodic)
// and brings the other two into their range.
KXGUI_EXPORT Hsl toHsl(Rgb color);
KXGUI_EXPORT Rgb toRgb(const Hsl& color);

enum class ColorModel { rgb, hsl };

// The whole numbers a person sees: red, green, blue from 0 to 255, or hue 0 to 360 degrees, saturation and
// luminance 0 to 100 per cent.
using ColorParts = std::array<int, 3>;
KXGUI_EXPORT int highestPart(ColorModel model, std::size_t part);
KXGUI_EXPORT ColorParts partsOf(ColorModel model, Rgb color);
KXGUI_EXPORT Rgb colorOfParts(ColorModel model, const ColorParts& parts);

// "#RRGGBB" in upper case.
KXGUI_EXPORT std::wstring hexText(Rgb color);
// Six hexadecimal digits in any case, with or without the hash sign, blanks around; nothing for anything else.
KXGUI_EXPORT std::optional<Rgb> colorOfHex(std::wstring_view text);

} // namespace kx::frame
