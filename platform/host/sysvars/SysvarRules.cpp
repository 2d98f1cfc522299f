#include "platform/host/sysvars/SysvarRules.h"

#include "platform/host/sysvars/SysvarColor.h"
#include "platform/text/Numbers.h"
#include "platform/text/Unicode.h"

#include <algorithm>
#include <cmath>
#include <numbers>
#include <vector>

namespace tv::host {

namespace {

using enum TavoSysvarType;

bool isWhole(TavoSysvarType type) { return type == kInt16 || type == kInt32; }
bool isReal(TavoSysvarType type) { return type == kReal || type == kAngle; }
bool isDegreesGroup(int group) { return group >= 50 && group <= 58; }

std::optional<double> numberOf(const SysvarValue& value) {
    if (const auto* whole = std::get_if<std::int64_t>(&value)) return static_cast<double>(*whole);
    if (const auto* real = std::get_if<double>(&value)) return *real;
    return std::nullopt;
}

std::optional<std::int64_t> wholeOf(const SysvarValue& value) {
    if (const auto* whole = std::get_if<std::int64_t>(&value)) return *whole;
    if (const auto* real = std::get_if<double>(&value))
        if (*real == std::floor(*real) && std::fabs(*real) <= 1e15) return static_cast<std::int64_t>(*real);
    return std::nullopt;
}

std::optional<OdGePoint3d> pointOf(const SysvarValue& value) {
    if (const auto* p = std::get_if<OdGePoint3d>(&value)) return *p;
    if (const auto* p = std::get_if<OdGePoint2d>(&value)) return OdGePoint3d{p->x, p->y, 0};
    return std::nullopt;
}

bool isFinite(const OdGePoint3d& p) { return std::isfinite(p.x) && std::isfinite(p.y) && std::isfinite(p.z); }

template <class T>
bool assign(SysvarValue& value, const std::optional<T>& converted) {
    if (converted) value = *converted;
    return converted.has_value();
}

std::optional<std::int64_t> colorOf(const SysvarValue& value) {
    if (const auto* text = std::get_if<OdString>(&value)) return colorOfText(text->view());
    const auto number = wholeOf(value);
    return number ? colorOfNumber(*number) : std::nullopt;
}

std::vector<std::wstring_view> partsOf(std::wstring_view text) {
    std::vector<std::wstring_view> parts;
    for (auto comma = text.find(L','); comma != std::wstring_view::npos; comma = text.find(L',')) {
        parts.push_back(text.substr(0, comma));
        text.remove_prefix(comma + 1);
    }
    parts.push_back(text);
    return parts;
}

std::optional<SysvarValue> pointOfText(TavoSysvarType type, std::wstring_view text) {
    double coordinates[3] = {0, 0, 0};
    const auto parts = partsOf(text);
    if (parts.size() < 2 || parts.size() > (type == kPoint2d ? 2u : 3u)) return std::nullopt;
    for (std::size_t i = 0; i < parts.size(); ++i) {
        const auto number = text::parseReal(parts[i]);
        if (!number) return std::nullopt;
        coordinates[i] = *number;
    }
    if (type == kPoint2d) return OdGePoint2d{coordinates[0], coordinates[1]};
    return OdGePoint3d{coordinates[0], coordinates[1], coordinates[2]};
}

} // namespace

SysvarValue defaultValue(const SysvarInfo& info) {
    const SysvarDefault& d = info.initial;
    switch (info.type) {
    case kInt16:
    case kInt32:
        return static_cast<std::int64_t>(d.x);
    case kReal:
    case kAngle:
        return d.x;
    case kPoint2d:
        return OdGePoint2d{d.x, d.y};
    case kPoint3d:
        return OdGePoint3d{d.x, d.y, d.z};
    case kColor:
        return colorOfText(d.text).value_or(kColorByLayer);
    default:
        return OdString(d.text);
    }
}

SysvarHome homeIn(const SysvarInfo& info, const OdDbDatabase* database) {
    const bool toProfile = info.home == SysvarHome::kHeaderOrProfile;
    if (!toProfile && info.home != SysvarHome::kHeaderOrDrawing) return info.home;
    const SysvarHome other = toProfile ? SysvarHome::kProfile : SysvarHome::kDrawing;
    if (!database) return other;
    if (database->headerVar(info.name)) return SysvarHome::kHeader;
    const auto* format = dwg::headerVarInfo(info.name);
    const auto version = database->version();
    return format && version >= format->first && version <= format->last ? SysvarHome::kHeader : other;
}

bool needsDrawing(SysvarHome home) {
    return home != SysvarHome::kProfile && home != SysvarHome::kSession;
}

bool toType(const SysvarInfo& info, SysvarValue& value) {
    switch (info.type) {
    case kInt16:
    case kInt32:
        return assign(value, wholeOf(value));
    case kReal:
    case kAngle: {
        const auto number = numberOf(value);
        return number && std::isfinite(*number) && assign(value, number);
    }
    case kColor:
        return assign(value, colorOf(value));
    case kPoint2d: {
        const auto point = pointOf(value);
        if (!point || !isFinite(*point) || point->z != 0) return false;
        value = OdGePoint2d{point->x, point->y};
        return true;
    }
    case kPoint3d: {
        const auto point = pointOf(value);
        return point && isFinite(*point) && assign(value, point);
    }
    case kText:
    case kObjectId:
        if (const auto* handle = std::get_if<OdDbHandle>(&value)) value = OdString(handle->text());
        return std::holds_alternative<OdString>(value);
    case kNone:
        break;
    }
    return false;
}

bool isAllowed(const SysvarInfo& info, const SysvarValue& value) {
    const auto number = numberOf(value);
    if (!number) return true;
    switch (info.limit) {
    case SysvarLimit::kRange:
        return *number >= info.minimum && *number <= info.maximum;
    case SysvarLimit::kOneOf:
        return std::ranges::any_of(info.allowed, [&](std::int16_t allowed) { return allowed == *number; });
    case SysvarLimit::kPositive:
        return *number > 0;
    case SysvarLimit::kNotNegative:
        return *number >= 0;
    case SysvarLimit::kNone:
        break;
    }
    return info.type != kInt32 || (*number >= INT32_MIN && *number <= INT32_MAX);
}

bool isSame(const SysvarInfo& info, const SysvarValue& a, const SysvarValue& b) {
    if (info.type != kObjectId) return a == b;
    const auto* left = std::get_if<OdString>(&a);
    const auto* right = std::get_if<OdString>(&b);
    return left && right && text::equalNoCase(left->view(), right->view());
}

std::wstring textOf(const SysvarInfo& info, const SysvarValue& value) {
    if (const auto* whole = std::get_if<std::int64_t>(&value))
        return info.type == kColor && colorOfNumber(*whole) ? textOfColor(*whole) : text::printInt(*whole);
    if (const auto* real = std::get_if<double>(&value)) return text::printReal(*real);
    if (const auto* text = std::get_if<OdString>(&value)) return text->wstr();
    if (const auto* handle = std::get_if<OdDbHandle>(&value)) return OdString(handle->text()).wstr();
    if (const auto* p = std::get_if<OdGePoint2d>(&value))
        return text::printReal(p->x) + L"," + text::printReal(p->y);
    if (const auto* p = std::get_if<OdGePoint3d>(&value))
        return text::printReal(p->x) + L"," + text::printReal(p->y) + L"," + text::printReal(p->z);
    return {};
}

std::optional<SysvarValue> valueOf(const SysvarInfo& info, std::wstring_view text) {
    if (isWhole(info.type)) return text::parseInt(text);
    if (isReal(info.type)) return text::parseReal(text);
    if (info.type == kColor) return colorOfText(text);
    if (info.type == kPoint2d || info.type == kPoint3d) return pointOfText(info.type, text);
    return OdString(text);
}

std::optional<SysvarValue> fromHeader(const SysvarInfo& info, const dwg::HeaderValue& header) {
    SysvarValue value = header.value;
    // Old drawings give some plane points a height, which means nothing.
    if (info.type == kPoint2d)
        if (const auto* p = std::get_if<OdGePoint3d>(&value)) value = OdGePoint2d{p->x, p->y};
    if (!toType(info, value)) return std::nullopt;
    if (info.type == kAngle && isDegreesGroup(header.group)) value = radiansOf(std::get<double>(value));
    return value;
}

std::optional<dwg::HeaderValue> toHeader(const SysvarInfo& info, const SysvarValue& value, int group) {
    if (info.type == kColor) {
        const auto index = indexOfColor(std::get<std::int64_t>(value));
        if (!index) return std::nullopt;
        return dwg::HeaderValue::integer(*index);
    }
    if (info.type == kAngle && isDegreesGroup(group))
        return dwg::HeaderValue::real(degreesOf(std::get<double>(value)));
    return dwg::HeaderValue{0, value};
}

double radiansOf(double degrees) { return degrees * std::numbers::pi / 180; }

double degreesOf(double radians) {
    const double degrees = radians * 180 / std::numbers::pi;
    for (int decimals = 0; decimals <= 14; ++decimals) {
        const double scale = std::pow(10.0, decimals);
        const double rounded = std::round(degrees * scale) / scale;
        if (radiansOf(rounded) == radians) return rounded;
    }
    return degrees;
}

} // namespace tv::host
