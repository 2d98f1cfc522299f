#include "tavocad/window/ReadableColor.h"

#include <algorithm>
#include <cmath>

namespace {

double luminance(const QColor& color) {
    auto linear = [](double part) {
        return part <= 0.04045 ? part / 12.92 : std::pow((part + 0.055) / 1.055, 2.4);
    };
    return 0.2126 * linear(color.redF()) + 0.7152 * linear(color.greenF()) + 0.0722 * linear(color.blueF());
}

} // namespace

double contrast(const QColor& a, const QColor& b) {
    const double one = luminance(a), other = luminance(b);
    return (std::max(one, other) + 0.05) / (std::min(one, other) + 0.05);
}

QColor readableOn(const QColor& color, const QColor& background) {
    if (contrast(color, background) >= leastLineContrast) return color;
    // Away from the background, to the side on which there is room.
    const float target = luminance(background) < 0.18 ? 1.0F : 0.0F;
    float hue = 0, saturation = 0, lightness = 0, alpha = 1;
    color.getHslF(&hue, &saturation, &lightness, &alpha);
    auto moved = [&](float by) {
        return QColor::fromHslF(std::max(hue, 0.0F), saturation, lightness + (target - lightness) * by, alpha);
    };
    float low = 0, high = 1;
    for (int step = 0; step < 8; ++step) {
        const float middle = (low + high) / 2;
        (contrast(moved(middle), background) < leastLineContrast ? low : high) = middle;
    }
    return moved(high);
}
