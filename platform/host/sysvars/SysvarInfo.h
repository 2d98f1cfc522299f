#pragma once

#include "platform/Export.h"
#include "platform/host/TavoSysvarManager.h"

#include <cstdint>
#include <limits>
#include <span>
#include <string_view>

namespace tv::host {

// Where a system variable's value lives.
enum class SysvarHome : std::uint8_t {
    kHeader,          // in the drawing's header; saved with it, undone with it
    kHeaderOrProfile, // in the header of the drawings whose version carries it, else in the user profile
    kHeaderOrDrawing, // the same, else with the open drawing
    kCurrentDimStyle, // with the drawing's current dimension style
    kComputed,        // made from other variables of the drawing
    kProfile,         // in the user's settings
    kDrawing,         // with the open drawing, until it is closed
    kSession,         // until the program ends
};

// What the name or handle in an object-id variable refers to.
enum class SysvarRecord : std::uint8_t {
    kNone,
    kLayer,
    kLinetype,
    kTextStyle,
    kDimStyle,
    kArrowBlock,
    kUcs,
    kHandle
};

enum class SysvarLimit : std::uint8_t { kNone, kRange, kOneOf, kPositive, kNotNegative };

// The value of a drawing or profile that lacks the variable. Numbers use x, points x, y, z, everything else the
// text.
struct SysvarDefault {
    double x = 0, y = 0, z = 0;
    const wchar_t* text = L"";
};

// One system variable. Rows are made by the functions below and read as a table.
struct SysvarInfo {
    const wchar_t* name; // upper case
    TavoSysvarType type = TavoSysvarType::kNone;
    SysvarDefault initial;
    SysvarHome home = SysvarHome::kHeader;
    SysvarRecord record = SysvarRecord::kNone;
    SysvarLimit limit = SysvarLimit::kNone;
    double minimum = 0, maximum = 0;
    std::span<const std::int16_t> allowed{};
    bool readOnly = false;

    constexpr SysvarInfo in(double low, double high) const {
        SysvarInfo v = *this;
        v.limit = SysvarLimit::kRange;
        v.minimum = low;
        v.maximum = high;
        return v;
    }
    constexpr SysvarInfo limited(SysvarLimit kind) const {
        SysvarInfo v = *this;
        v.limit = kind;
        return v;
    }
    constexpr SysvarInfo oneOf(std::span<const std::int16_t> values) const {
        SysvarInfo v = limited(SysvarLimit::kOneOf);
        v.allowed = values;
        return v;
    }
    constexpr SysvarInfo at(SysvarHome where) const {
        SysvarInfo v = *this;
        v.home = where;
        return v;
    }
    constexpr SysvarInfo fixed() const {
        SysvarInfo v = *this;
        v.readOnly = true;
        return v;
    }
};

// --- rows ---
constexpr SysvarInfo integer(const wchar_t* name, int initial, int low = -32768, int high = 32767) {
    return SysvarInfo{name, TavoSysvarType::kInt16, {static_cast<double>(initial)}}.in(low, high);
}
constexpr SysvarInfo flag(const wchar_t* name, int initial) { return integer(name, initial, 0, 1); }
constexpr SysvarInfo longInteger(const wchar_t* name, int initial) {
    return SysvarInfo{name, TavoSysvarType::kInt32, {static_cast<double>(initial)}};
}
constexpr SysvarInfo real(const wchar_t* name, double initial) {
    return {name, TavoSysvarType::kReal, {initial}};
}
constexpr SysvarInfo positive(const wchar_t* name, double initial) {
    return real(name, initial).limited(SysvarLimit::kPositive);
}
constexpr SysvarInfo notNegative(const wchar_t* name, double initial) {
    return real(name, initial).limited(SysvarLimit::kNotNegative);
}
constexpr SysvarInfo angle(const wchar_t* name, double radians) {
    return {name, TavoSysvarType::kAngle, {radians}};
}
constexpr SysvarInfo text(const wchar_t* name, const wchar_t* initial = L"") {
    return {name, TavoSysvarType::kText, {0, 0, 0, initial}};
}
constexpr SysvarInfo point2d(const wchar_t* name, double x, double y) {
    return {name, TavoSysvarType::kPoint2d, {x, y}};
}
constexpr SysvarInfo point3d(const wchar_t* name, double x, double y, double z) {
    return {name, TavoSysvarType::kPoint3d, {x, y, z}};
}
constexpr SysvarInfo color(const wchar_t* name, const wchar_t* initial) {
    return {name, TavoSysvarType::kColor, {0, 0, 0, initial}};
}
constexpr SysvarInfo record(const wchar_t* name, SysvarRecord kind, const wchar_t* initial) {
    SysvarInfo v{name, TavoSysvarType::kObjectId, {0, 0, 0, initial}};
    v.record = kind;
    return v;
}

// In hundredths of a millimetre; -3 default, -2 by block, -1 by layer.
inline constexpr std::int16_t kLineWeightValues[] = {-3, -2, -1,  0,   5,   9,   13,  15,  18,
                                                     20, 25, 30,  35,  40,  50,  53,  60,  70,
                                                     80, 90, 100, 106, 120, 140, 158, 200, 211};

// --- the table, in parts ---
std::span<const SysvarInfo> generalSysvars(); // what new objects get, units, limits, display, the file itself
std::span<const SysvarInfo> dimensionSysvars();
std::span<const SysvarInfo> ucsSysvars();
std::span<const SysvarInfo> surfaceSysvars(); // surfaces, solids, sections, light and place
std::span<const SysvarInfo> userSysvars();    // profile and session

// All variables in alphabetical order.
KXPLATFORM_EXPORT std::span<const SysvarInfo* const> sysvarTable();
// Null for an unknown name; letter case does not matter.
KXPLATFORM_EXPORT const SysvarInfo* findSysvar(std::wstring_view name);

} // namespace tv::host
