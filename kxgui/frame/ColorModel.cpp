#include "kxgui/frame/ColorModel.h"

#include "platform/text/Format.h"

#include <algorithm>
#include <cmath>

namespace kx::frame {
namespace {

std::uint8_t channel(double value) {
    return static_cast<std::uint8_t>(std::lround(std::clamp(value, 0.0, 1.0) * 255));
}

int hexDigit(wchar_t c) {
    if (c >= L'0' && c <= L'9') return c - L'0';
    if (c >= L'A' && c <= L'F') return c - L'A' + 10;
    if (c >= L'a' && c <= L'f') return c - L'a' + 10;
    return -1;
}

} // namespace

Hsl toHsl(Rgb color) {
    const double r = color.red / 255.0, g = color.green / 255.0, b = color.blue / 255.0;
    const double high = std::max({r, g, b}), low = std::min({r, g, b}), chroma = high - low;
    Hsl out{0, 0, (high + low) / 2};
    if (chroma == 0) return out;
    out.saturation = chroma / (1 - std::abs(2 * out.luminance - 1));
    if (high == r)
        out.hue = 60 * (g - b) / chroma;
    else if (high == g)
        out.hue = 60 * (b - r) / chroma + 120;
    else
        out.hue = 60 * (r - g) / chroma + 240;
    if (out.hue < 0) out.hue += 360;
    return out;
}

Rgb toRgb(const Hsl& color) {
    const double saturation = std::clamp(color.saturation, 0.0, 1.0),
                 luminance = std::clamp(color.luminance, 0.0, 1.0);
    const double chroma = (1 - std::abs(2 * luminance - 1)) * saturation;
    double hue = std::fmod(color.hue, 360.0);
    if (hue < 0) hue += 360;
    const double sextant = hue / 60;
    const double middle = chroma * (1 - std::abs(std::fmod(sextant, 2.0) - 1)), low = luminance - chroma / 2;
    const auto make = [low](double r, double g, double b) {
        return Rgb{channel(r + low), channel(g + low), channel(b + low)};
    };
    switch (static_cast<int>(sextant)) {
    case 0:
        return make(chroma, middle, 0);
    case 1:
        return make(middle, chroma, 0);
    case 2:
        return make(0, chroma, middle);
    case 3:
        return make(0, middle, chroma);
    case 4:
        return make(middle, 0, chroma);
    default:
        return make(chroma, 0, middle);
    }
}

int highestPart(ColorModel model, std::size_t part) {
    if (model == ColorModel::rgb) return 255;
    return part == 0 ? 360 : 100;
}

ColorParts partsOf(ColorModel model, Rgb color) {
    if (model == ColorModel::rgb) return {color.red, color.green, color.blue};
    const Hsl hsl = toHsl(color);
    return {static_cast<int>(std::lround(hsl.hue)), static_cast<int>(std::lround(hsl.saturation * 100)),
            static_cast<int>(std::lround(hsl.luminance * 100))};
}

Rgb colorOfParts(ColorModel model, const ColorParts& parts) {
    if (model == ColorModel::hsl)
        return toRgb({static_cast<double>(parts[0]), parts[1] / 100.0, parts[2] / 100.0});
    return {static_cast<std::uint8_t>(parts[0]), static_cast<std::uint8_t>(parts[1]),
            static_cast<std::uint8_t>(parts[2])};
}

std::wstring hexText(Rgb color) {
    return tv::text::format(L"#%02X%02X%02X", int{color.red}, int{color.green}, int{color.blue});
}

std::optional<Rgb> colorOfHex(std::wstring_view text) {
    while (!text.empty() && text.front() == L' ')
        text.remove_prefix(1);
    while (!text.empty() && text.back() == L' ')
        text.remove_suffix(1);
    if (!text.empty() && text.front() == L'#') text.remove_prefix(1);
    if (text.size() != 6) return std::nullopt;
    std::array<std::uint8_t, 3> bytes{};
    for (std::size_t i = 0; i < 3; ++i) {
        const int high = hexDigit(text[2 * i]), low = hexDigit(text[2 * i + 1]);
        if (high < 0 || low < 0) return std::nullopt;
        bytes[i] = static_cast<std::uint8_t>(high * 16 + low);
    }
    return Rgb{bytes[0], bytes[1], bytes[2]};
}

} // namespace kx::frame
