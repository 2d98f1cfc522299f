#include "platform/drawing/AciPalette.h"

#include <array>

namespace tv::dwg {
namespace {

constexpr std::array<Rgb, 10> kNamed = {{{0, 0, 0},
                                         {255, 0, 0},
                                         {255, 255, 0},
                                         {0, 255, 0},
                                         {0, 255, 255},
                                         {0, 0, 255},
                                         {255, 0, 255},
                                         {255, 255, 255},
                                         {128, 128, 128},
                                         {192, 192, 192}}};

// 250 to 255: greys.
constexpr std::array<std::uint8_t, 6> kGreys = {51, 80, 105, 130, 190, 255};

// 10 to 249 are 24 hues of 15 degrees, ten shades each: five brightnesses, even numbers full, odd ones a third
// saturated. Whole numbers throughout, so that every machine has the same palette.
constexpr std::array<int, 5> kBrightness = {255, 189, 129, 104, 79};
// The same in halves, for the pale shades: two of them are rounded up there.
constexpr std::array<int, 5> kPaleBrightness = {511, 378, 258, 208, 159};

// A channel of the pure hue in 1020ths, by the quarters it is on the way from none to full. The first quarter
// is cut to a whole number before it is scaled.
constexpr std::array<int, 5> kFull = {0, 252, 510, 765, 1020};
constexpr std::array<int, 5> kPale = {680, 765, 850, 935, 1020};

// `steps` of 15 degrees lie between the hue and the channel's own.
constexpr std::size_t quarters(int steps) {
    const int distance = steps <= 12 ? steps : 24 - steps;
    return static_cast<std::size_t>(distance <= 4 ? 4 : distance >= 8 ? 0 : 8 - distance);
}

constexpr Rgb ruled(int index) {
    const int hue = index / 10 - 1;
    const auto shade = static_cast<std::size_t>(index % 10 / 2);
    const auto channel = [&](int own) {
        const std::size_t part = quarters((hue - own + 24) % 24);
        return static_cast<std::uint8_t>(index % 2 == 0 ? kBrightness[shade] * kFull[part] / 1020
                                                        : kPaleBrightness[shade] * kPale[part] / 2040);
    };
    return {channel(0), channel(8), channel(16)};
}

} // namespace

Rgb paletteColor(int index) {
    if (index < 1 || index > 255) return {};
    if (index < 10) return kNamed[static_cast<std::size_t>(index)];
    if (index < 250) return ruled(index);
    const std::uint8_t grey = kGreys[static_cast<std::size_t>(index - 250)];
    return {grey, grey, grey};
}

int nearestPaletteIndex(Rgb color) {
    int best = 1;
    int bestDistance = 3 * 256 * 256;
    for (int index = 1; index <= 255; ++index) {
        const Rgb candidate = paletteColor(index);
        const int r = candidate.red - color.red;
        const int g = candidate.green - color.green;
        const int b = candidate.blue - color.blue;
        if (const int distance = r * r + g * g + b * b; distance < bestDistance) {
            best = index;
            bestDistance = distance;
        }
    }
    return best;
}

} // namespace tv::dwg
