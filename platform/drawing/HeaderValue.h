#pragma once

#include "platform/Export.h"
#include "platform/drawing/OdDb.h"
#include "platform/drawing/Value.h"

#include <optional>
#include <span>
#include <string_view>

namespace tv::dwg {

// The value of one header variable, in the file's own unit (angles of group 50 are degrees) and with the group
// code it is written with. Points have the code of their first coordinate.
struct HeaderValue {
    int group = 0;
    Value value;

    static HeaderValue integer(std::int64_t v, int group = 0) { return {group, v}; }
    static HeaderValue real(double v, int group = 0) { return {group, v}; }
    static HeaderValue text(std::wstring_view v, int group = 0) { return {group, OdString(v)}; }
    static HeaderValue point(OdGePoint2d v) { return {10, v}; }
    static HeaderValue point(const OdGePoint3d& v) { return {10, v}; }

    // The value in the asked form: a whole number also as a real; a handle also as text; else nothing.
    std::optional<std::int64_t> asInteger() const {
        const auto* v = std::get_if<std::int64_t>(&value);
        return v ? std::optional(*v) : std::nullopt;
    }
    std::optional<double> asReal() const {
        if (const auto* v = std::get_if<double>(&value)) return *v;
        if (const auto* v = std::get_if<std::int64_t>(&value)) return static_cast<double>(*v);
        return std::nullopt;
    }
    std::optional<OdString> asText() const {
        if (const auto* v = std::get_if<OdString>(&value)) return *v;
        if (const auto* v = std::get_if<OdDbHandle>(&value)) return OdString(v->text());
        return std::nullopt;
    }
    std::optional<OdGePoint3d> asPoint() const {
        if (const auto* v = std::get_if<OdGePoint3d>(&value)) return *v;
        if (const auto* v = std::get_if<OdGePoint2d>(&value)) return OdGePoint3d{v->x, v->y, 0};
        return std::nullopt;
    }
    friend bool operator==(const HeaderValue&, const HeaderValue&) = default;
};

// What the file format says about a header variable.
struct HeaderVarInfo {
    const char* name;       // upper case, no dollar sign
    int group;              // group code of its value; 10 for points
    int coordinates;        // 2 or 3 for points, else 0
    OdDb::DxfVersion first; // the first and the last version whose files carry it
    OdDb::DxfVersion last;
};

// Every header variable of R12 to R2018 in the order files have them.
KXPLATFORM_EXPORT std::span<const HeaderVarInfo> headerVars();
// Null for an unknown name; with or without dollar sign, ignoring case.
KXPLATFORM_EXPORT const HeaderVarInfo* headerVarInfo(std::wstring_view name);
// The group code of the variable's value, 0 for an unknown name.
KXPLATFORM_EXPORT int headerVarGroupCode(std::wstring_view name);
// "AC1032" and so on; empty for kUnknown.
KXPLATFORM_EXPORT const char* versionText(OdDb::DxfVersion version);
KXPLATFORM_EXPORT OdDb::DxfVersion versionOf(std::string_view acadVer);

} // namespace tv::dwg
