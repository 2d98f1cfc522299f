#include "platform/host/sysvars/SysvarColor.h"

#include "platform/text/Format.h"
#include "platform/text/Numbers.h"
#include "platform/text/Unicode.h"

namespace tv::host {

namespace {

constexpr std::int64_t kMethod = 0xFF000000;
constexpr std::wstring_view kNames[] = {L"RED", L"YELLOW", L"GREEN", L"CYAN", L"BLUE", L"MAGENTA", L"WHITE"};

std::optional<std::int64_t> colorOfParts(std::wstring_view text) {
    std::int64_t color = 0;
    for (int i = 0; i < 3; ++i) {
        const auto comma = text.find(L',');
        if ((comma == std::wstring_view::npos) != (i == 2)) return std::nullopt;
        const auto part = text::parseInt(text.substr(0, comma));
        if (!part || *part < 0 || *part > 255) return std::nullopt;
        color = color << 8 | *part;
        if (i < 2) text.remove_prefix(comma + 1);
    }
    return kColorRgb | color;
}

} // namespace

std::optional<std::int64_t> colorOfIndex(std::int64_t index) {
    if (index == 0) return kColorByBlock;
    if (index == 256) return kColorByLayer;
    if (index < 0 || index > 256) return std::nullopt;
    return kColorIndex | index;
}

std::optional<int> indexOfColor(std::int64_t color) {
    switch (color & kMethod) {
    case kColorByLayer:
        return 256;
    case kColorByBlock:
        return 0;
    case kColorIndex:
        return static_cast<int>(color & 0xFF);
    default:
        return std::nullopt;
    }
}

std::optional<std::int64_t> colorOfNumber(std::int64_t number) {
    if (const auto color = colorOfIndex(number)) return color;
    const std::int64_t bits = number < 0 && number >= INT32_MIN ? number + (std::int64_t{1} << 32) : number;
    if (bits < kColorByLayer || bits > (kColorIndex | 0xFFFFFF)) return std::nullopt;
    switch (bits & kMethod) {
    case kColorByLayer:
        return kColorByLayer;
    case kColorByBlock:
        return kColorByBlock;
    case kColorRgb:
        return bits;
    default:
        return bits > kColorIndex && bits <= (kColorIndex | 0xFF) ? std::optional(bits) : std::nullopt;
    }
}

std::optional<std::int64_t> colorOfText(std::wstring_view text) {
    const std::wstring upper = text::toUpper(text);
    if (upper == L"BYLAYER") return kColorByLayer;
    if (upper == L"BYBLOCK") return kColorByBlock;
    for (std::int64_t i = 0; i < std::ssize(kNames); ++i)
        if (upper == kNames[i]) return colorOfIndex(i + 1);
    if (const auto index = text::parseInt(upper)) return colorOfIndex(*index);
    std::wstring_view parts = upper;
    if (parts.starts_with(L"RGB:")) parts.remove_prefix(4);
    return colorOfParts(parts);
}

std::wstring textOfColor(std::int64_t color) {
    switch (color & kMethod) {
    case kColorByLayer:
        return L"BYLAYER";
    case kColorByBlock:
        return L"BYBLOCK";
    case kColorIndex:
        return text::printInt(color & 0xFF);
    default:
        return text::format(L"%d,%d,%d", (color >> 16) & 0xFF, (color >> 8) & 0xFF, color & 0xFF);
    }
}

} // namespace tv::host
