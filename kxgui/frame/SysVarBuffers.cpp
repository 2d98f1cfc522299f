#include "kxgui/frame/SysVarBuffers.h"

#include "platform/drawing/OdDbObject.h"
#include "platform/host/sysvars/SysvarBuffer.h"
#include "platform/text/Unicode.h"

#include <algorithm>
#include <cstdint>
#include <limits>

namespace kx::sysvar {

namespace {

constexpr int kDxfInt8 = 280;

// Table records have their name in group 2; what has none is known by its handle.
OdString nameOf(const OdDbObjectId& id) {
    const auto object = id.openObject();
    if (!object) return {};
    OdString name = object->textAt(2);
    return name.isEmpty() ? OdString(id.handle().text()) : name;
}

template <class T>
bool take(const OdResBuf& buffer, int type, T& value) {
    const auto* held = std::get_if<T>(&buffer.value());
    if (buffer.restype() != type || !held) return false;
    value = *held;
    return true;
}

} // namespace

std::optional<OdResBuf> toBuffer(bool value) { return OdResBuf(OdResBuf::kRtInt16, std::int64_t{value}); }

std::optional<OdResBuf> toBuffer(int value) {
    using Limits = std::numeric_limits<std::int16_t>;
    return OdResBuf(OdResBuf::kRtInt16, std::int64_t{std::clamp<int>(value, Limits::min(), Limits::max())});
}

std::optional<OdResBuf> toBuffer(double value) { return OdResBuf(OdResBuf::kRtDouble, value); }
std::optional<OdResBuf> toBuffer(const TvString& value) {
    return OdResBuf(OdResBuf::kRtString, OdString(value));
}
std::optional<OdResBuf> toBuffer(const OdGePoint2d& value) { return OdResBuf(OdResBuf::kRtPoint2d, value); }
std::optional<OdResBuf> toBuffer(const OdGePoint3d& value) { return OdResBuf(OdResBuf::kRtPoint3d, value); }

std::optional<OdResBuf> toBuffer(const OdCmColor& value) {
    return OdResBuf(OdResBuf::kRtInt32, tv::host::codeOfColor(value));
}

std::optional<OdResBuf> toBuffer(const OdDbObjectId& value) {
    const OdString name = nameOf(value);
    if (name.isEmpty() && !value.isNull()) return std::nullopt;
    OdResBuf buffer(OdResBuf::kRtString);
    if (!value.isNull()) buffer.setObjectId(value);
    buffer.setString(name);
    return buffer;
}

bool fromBuffer(const OdResBuf& buffer, int& value) {
    const bool fits = buffer.restype() == OdResBuf::kRtInt16 || buffer.restype() == kDxfInt8;
    const auto* held = std::get_if<std::int64_t>(&buffer.value());
    if (!fits || !held) return false;
    value = static_cast<std::int16_t>(*held);
    return true;
}

bool fromBuffer(const OdResBuf& buffer, bool& value) {
    int number = 0;
    if (!fromBuffer(buffer, number)) return false;
    value = number != 0;
    return true;
}

bool fromBuffer(const OdResBuf& buffer, double& value) { return take(buffer, OdResBuf::kRtDouble, value); }

bool fromBuffer(const OdResBuf& buffer, TvString& value) {
    OdString text;
    if (!take(buffer, OdResBuf::kRtString, text)) return false;
    value = text;
    return true;
}

bool fromBuffer(const OdResBuf& buffer, OdGePoint2d& value) {
    return take(buffer, OdResBuf::kRtPoint2d, value);
}
bool fromBuffer(const OdResBuf& buffer, OdGePoint3d& value) {
    return take(buffer, OdResBuf::kRtPoint3d, value);
}

bool fromBuffer(const OdResBuf& buffer, OdCmColor& value) {
    std::int64_t code = 0;
    if (!take(buffer, OdResBuf::kRtInt32, code)) return false;
    const auto color = tv::host::colorOfCode(code);
    if (color) value = *color;
    return color.has_value();
}

bool fromBuffer(const OdResBuf& buffer, OdDbObjectId& value) {
    OdString name;
    if (!take(buffer, OdResBuf::kRtString, name)) return false;
    if (buffer.objectId().isNull() && !name.isEmpty()) return false; // staged as a text
    value = buffer.objectId();
    return true;
}

bool isNotWritten(int restype) { return restype == OdResBuf::kRtEntName || restype == OdResBuf::kRtPickSet; }

std::optional<OdResBuf> toWrite(const _tSysVar_DlgItem& item, const OdResBuf& staged, TavoSysvarType type) {
    // Kept with the dimension style, which knows one width only.
    if (tv::text::equalNoCase(item.name, L"DIMTALN")) {
        const auto* number = std::get_if<std::int64_t>(&staged.value());
        if (!number) return std::nullopt;
        return OdResBuf(OdResBuf::kRtInt16, std::int64_t{static_cast<std::int16_t>(*number)});
    }
    const bool kindIsType = item.kind > OdResBuf::kRtNone && item.kind <= OdResBuf::kRtInt32;
    const int own = kindIsType ? item.kind : tv::host::restypeOf(type);
    const int restype = staged.restype() == OdResBuf::kRtNone ? own : staged.restype();
    switch (restype) {
    case OdResBuf::kRtDouble:
    case OdResBuf::kRtPoint2d:
    case OdResBuf::kRtInt16:
    case OdResBuf::kRtString:
    case OdResBuf::kRtPoint3d:
    case OdResBuf::kRtInt32:
        return OdResBuf(restype, staged.value());
    case OdResBuf::kRtAngle:
    case OdResBuf::kRtOrient:
        return OdResBuf(OdResBuf::kRtDouble, staged.value()); // both are radians
    default:
        return std::nullopt;
    }
}

} // namespace kx::sysvar
