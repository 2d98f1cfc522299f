#include "platform/drawing/OdCmColor.h"

OdCmColor OdCmColor::byIndex(int index) {
    OdCmColor color;
    color.setColorIndex(index);
    return color;
}

OdCmColor OdCmColor::byRgb(std::uint8_t red, std::uint8_t green, std::uint8_t blue) {
    OdCmColor color;
    color.setRGB(red, green, blue);
    return color;
}

int OdCmColor::colorIndex() const {
    switch (m_method) {
    case kByBlock:
        return kACIbyBlock;
    case kByACI:
        return m_index;
    case kByColor:
        return tv::dwg::nearestPaletteIndex(m_rgb);
    case kByLayer:
        break;
    }
    return kACIbyLayer;
}

tv::dwg::Rgb OdCmColor::rgb() const { return m_method == kByACI ? tv::dwg::paletteColor(m_index) : m_rgb; }

void OdCmColor::setColorIndex(int index) {
    *this = OdCmColor();
    if (index == kACIbyLayer) return;
    m_method = index == kACIbyBlock ? kByBlock : kByACI;
    if (m_method == kByACI) m_index = static_cast<std::uint8_t>(index >= 1 && index <= 255 ? index : 7);
}

void OdCmColor::setRGB(std::uint8_t red, std::uint8_t green, std::uint8_t blue) {
    *this = OdCmColor();
    m_method = kByColor;
    m_rgb = {red, green, blue};
}

OdCmColor OdCmColor::fromDxf(std::optional<int> code62, std::optional<int> code420) {
    if (code420)
        return byRgb(static_cast<std::uint8_t>(*code420 >> 16), static_cast<std::uint8_t>(*code420 >> 8),
                     static_cast<std::uint8_t>(*code420));
    if (!code62) return {};
    return byIndex(*code62 < 0 && *code62 >= -256 ? -*code62 : *code62);
}

std::optional<int> OdCmColor::dxf420() const {
    if (m_method != kByColor) return std::nullopt;
    return m_rgb.red << 16 | m_rgb.green << 8 | m_rgb.blue;
}
