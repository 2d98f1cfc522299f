#pragma once

#include "platform/drawing/Geometry.h"
#include "platform/drawing/OdDbHandle.h"
#include "platform/text/OdString.h"

#include <cstdint>
#include <string_view>
#include <variant>
#include <vector>

namespace tv::dwg {

using Binary = std::vector<std::uint8_t>;

// One value of a drawing file, decoded. Whole numbers of every width are one alternative; the group code or
// result type beside the value says how wide it is written.
using Value =
    std::variant<std::monostate, std::int64_t, double, OdString, OdGePoint2d, OdGePoint3d, OdDbHandle, Binary>;

// How the value of a group code is written.
enum class ValueKind : std::uint8_t {
    kText,
    kReal,
    kPoint,
    kInt8,
    kInt16,
    kInt32,
    kInt64,
    kBool,
    kBinary,
    kHandle
};

// By the ranges of the file format. kPoint is answered for the first coordinate of a point only (10-18,
// 110-112, 210, 1010-1013); its further coordinates, and elevations and the like, are kReal.
constexpr ValueKind valueKind(int group) {
    if (group < 0) return ValueKind::kText;
    if (group == 5 || group == 105) return ValueKind::kHandle;
    if (group < 10) return ValueKind::kText;
    if (group <= 18) return ValueKind::kPoint;
    if (group < 60) return ValueKind::kReal;
    if (group < 80) return ValueKind::kInt16;
    if (group < 90) return ValueKind::kText;
    if (group < 100) return ValueKind::kInt32;
    if (group < 110) return ValueKind::kText;
    if (group <= 112) return ValueKind::kPoint;
    if (group < 150) return ValueKind::kReal;
    if (group < 160) return ValueKind::kText;
    if (group < 170) return ValueKind::kInt64;
    if (group < 180) return ValueKind::kInt16;
    if (group < 210) return ValueKind::kText;
    if (group == 210) return ValueKind::kPoint;
    if (group < 240) return ValueKind::kReal;
    if (group < 270) return ValueKind::kText;
    if (group < 290) return group < 280 ? ValueKind::kInt16 : ValueKind::kInt8;
    if (group < 300) return ValueKind::kBool;
    if (group < 310) return ValueKind::kText;
    if (group < 320) return ValueKind::kBinary;
    if (group < 370) return ValueKind::kHandle;
    if (group < 390) return ValueKind::kInt16;
    if (group < 400) return ValueKind::kHandle;
    if (group < 410) return ValueKind::kInt16;
    if (group < 420) return ValueKind::kText;
    if (group < 430) return ValueKind::kInt32;
    if (group < 440) return ValueKind::kText;
    if (group < 460) return ValueKind::kInt32;
    if (group < 470) return ValueKind::kReal;
    if (group < 480) return ValueKind::kText;
    if (group < 482) return ValueKind::kHandle;
    if (group == 1004) return ValueKind::kBinary;
    if (group == 1005) return ValueKind::kHandle;
    if (group < 1010) return ValueKind::kText;
    if (group <= 1013) return ValueKind::kPoint;
    if (group < 1060) return ValueKind::kReal;
    if (group <= 1070) return ValueKind::kInt16;
    if (group == 1071) return ValueKind::kInt32;
    return ValueKind::kText;
}

} // namespace tv::dwg
