#include "platform/host/sysvars/SysvarBuffer.h"

#include "platform/host/sysvars/SysvarColor.h"

namespace tv::host {

int restypeOf(TavoSysvarType type) {
    switch (type) {
    case TavoSysvarType::kInt16:
        return OdResBuf::kRtInt16;
    case TavoSysvarType::kInt32:
    case TavoSysvarType::kColor:
        return OdResBuf::kRtInt32;
    case TavoSysvarType::kReal:
    case TavoSysvarType::kAngle:
        return OdResBuf::kRtDouble;
    case TavoSysvarType::kPoint2d:
        return OdResBuf::kRtPoint2d;
    case TavoSysvarType::kPoint3d:
        return OdResBuf::kRtPoint3d;
    case TavoSysvarType::kText:
    case TavoSysvarType::kObjectId:
        return OdResBuf::kRtString;
    case TavoSysvarType::kNone:
        break;
    }
    return OdResBuf::kRtNone;
}

void toBuffer(const SysvarInfo& info, const SysvarValue& value, OdResBuf& buffer) {
    buffer = OdResBuf(restypeOf(info.type), value);
}

SysvarValue fromBuffer(const OdResBuf& buffer) { return buffer.value(); }

std::int64_t codeOfColor(const OdCmColor& color) {
    if (color.isByColor()) return kColorRgb | color.red() << 16 | color.green() << 8 | color.blue();
    return colorOfIndex(color.colorIndex()).value_or(kColorByLayer);
}

std::optional<OdCmColor> colorOfCode(std::int64_t code) {
    const auto color = colorOfNumber(code);
    if (!color) return std::nullopt;
    if (const auto index = indexOfColor(*color)) return OdCmColor::byIndex(*index);
    return OdCmColor::byRgb(static_cast<std::uint8_t>(*color >> 16), static_cast<std::uint8_t>(*color >> 8),
                            static_cast<std::uint8_t>(*color));
}

} // namespace tv::host
