#pragma once

#include "platform/drawing/OdCmColor.h"

#include <cstdint>
#include <optional>

namespace tv::dwg {

// A colour as one number: the method in bits 24-31, red, green and blue or the index below.
inline std::int64_t packColor(const OdCmColor& color) {
    std::uint32_t out = static_cast<std::uint32_t>(color.colorMethod()) << 24;
    if (color.isByColor())
        out |= static_cast<std::uint32_t>(color.red() << 16 | color.green() << 8 | color.blue());
    else if (color.isByACI())
        out |= static_cast<std::uint32_t>(color.colorIndex());
    return static_cast<std::int32_t>(out);
}

// Nothing for by layer, by block and what is no colour.
inline std::optional<OdCmColor> unpackColor(std::int64_t value) {
    const auto bits = static_cast<std::uint32_t>(value);
    switch (bits >> 24) {
    case OdCmColor::kByACI:
        if (const int index = static_cast<int>(bits & 0xFFFF); index >= 1 && index <= 255)
            return OdCmColor::byIndex(index);
        return std::nullopt;
    case OdCmColor::kByColor:
    case 0: // true colours are found without a method too
        return OdCmColor::byRgb(static_cast<std::uint8_t>(bits >> 16), static_cast<std::uint8_t>(bits >> 8),
                                static_cast<std::uint8_t>(bits));
    default:
        return std::nullopt;
    }
}

} // namespace tv::dwg
