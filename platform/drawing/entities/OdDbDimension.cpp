#include "platform/drawing/entities/OdDbDimension.h"

#include "platform/drawing/OdDbBlockTable.h"
#include "platform/drawing/OdDbDatabase.h"
#include "platform/drawing/dxf/RecordStore.h"
#include "platform/drawing/entities/TagAccess.h"
#include "platform/drawing/geometry/Reader.h"

#include <cmath>
#include <numbers>

using namespace tv::dwg;

namespace {

using std::numbers::pi;

// What a dimension measures, as its record has it: what stands under the group codes 10 to 16.
struct Measured {
    OdGePoint3d points[7];
    bool has[7] = {};
    double rotation = 0;   // of the dimension line
    double horizontal = 0; // group code 51
    OdGeVector3d normal{0, 0, 1};

    explicit Measured(OdDbObjectId id) {
        for (geometry::Reader in(id); in.next();) {
            if (in.vector(210, normal)) continue;
            if (in.code() == 50) rotation = geometry::radians(in.real());
            if (in.code() == 51) horizontal = geometry::radians(in.real());
            for (int i = 0; i < 7; ++i)
                if (in.point(10 + i, points[i])) has[i] = true;
        }
    }
    bool all(std::initializer_list<int> codes) const {
        for (const int code : codes)
            if (!has[code - 10]) return false;
        return true;
    }
    // Along the axis at that angle in the dimension's plane.
    double along(int code, double angle) const {
        const OdGePoint3d axis = toWorld({std::cos(angle), std::sin(angle), 0}, normal);
        const OdGePoint3d& p = points[code - 10];
        return p.x * axis.x + p.y * axis.y + p.z * axis.z;
    }
    OdGePoint2d flat(int code) const { return {along(code, 0), along(code, pi / 2)}; }
    double distance(int from, int to) const {
        const OdGePoint2d a = flat(from), b = flat(to);
        return std::hypot(b.x - a.x, b.y - a.y);
    }
};

double angleTo(OdGePoint2d from, OdGePoint2d to) { return std::atan2(to.y - from.y, to.x - from.x); }

// From 0 up to `turn`.
double wrapped(double angle, double turn) {
    const double rest = std::fmod(angle, turn);
    return rest < 0 ? rest + turn : rest;
}

// Of the two lines' four angles the one the arc's point lies in.
std::optional<double> betweenLines(const Measured& m) {
    const OdGePoint2d a = m.flat(13), b = m.flat(14), c = m.flat(15), d = m.flat(10);
    const OdGePoint2d arc{m.points[6].x, m.points[6].y}; // the only one in the plane's coordinates
    const OdGeVector2d u{b.x - a.x, b.y - a.y}, v{d.x - c.x, d.y - c.y};
    const double cross = u.x * v.y - u.y * v.x;
    if (std::abs(cross) <= 1e-12 * std::hypot(u.x, u.y) * std::hypot(v.x, v.y)) return std::nullopt;
    const double t = ((c.x - a.x) * v.y - (c.y - a.y) * v.x) / cross;
    const OdGePoint2d vertex{a.x + u.x * t, a.y + u.y * t};
    const double first = angleTo(a, b), angle = wrapped(angleTo(c, d) - first, pi);
    return wrapped(angleTo(vertex, arc) - first, pi) < angle ? angle : pi - angle;
}

// About the vertex from the first to the second point, on the side the arc's point lies on.
double aboutVertex(const Measured& m) {
    const OdGePoint2d vertex = m.flat(15);
    const double first = angleTo(vertex, m.flat(13));
    const double angle = wrapped(angleTo(vertex, m.flat(14)) - first, 2 * pi);
    return wrapped(angleTo(vertex, m.flat(10)) - first, 2 * pi) <= angle ? angle : 2 * pi - angle;
}

std::optional<double> measure(OdDbObjectId id, OdDbDimension::Kind kind, bool xOrdinate) {
    const Measured m(id);
    switch (kind) {
    case OdDbDimension::kRotated:
        if (m.all({13, 14})) return std::abs(m.along(14, m.rotation) - m.along(13, m.rotation));
        break;
    case OdDbDimension::kAligned:
        if (m.all({13, 14})) return m.distance(13, 14);
        break;
    case OdDbDimension::kDiametric:
    case OdDbDimension::kRadial:
        if (m.all({10, 15})) return m.distance(10, 15);
        break;
    case OdDbDimension::kAngular:
        if (m.all({10, 13, 14, 15, 16})) return betweenLines(m);
        break;
    case OdDbDimension::kAngular3Point:
        if (m.all({10, 13, 14, 15})) return aboutVertex(m);
        break;
    case OdDbDimension::kOrdinate:
        if (const double axis = (xOrdinate ? 0 : pi / 2) - m.horizontal; m.all({10, 13}))
            return std::abs(m.along(13, axis) - m.along(10, axis));
        break;
    case OdDbDimension::kArcLength:
    case OdDbDimension::kJogged:
        break;
    }
    return std::nullopt;
}

constexpr std::string_view kSubclass = "AcDbDimension";
constexpr int kOrder[] = {280, 2,  10, 20, 30, 11, 21, 31, 12, 22, 32,  70,  1,   71,
                          72,  41, 42, 73, 74, 75, 52, 53, 54, 51, 210, 220, 230, 3};
} // namespace

OdDbDimension::Kind OdDbDimension::dimensionKind() const {
    const std::string_view type = database()->store().typeName(objectId().record());
    if (type == "ARC_DIMENSION") return kArcLength;
    if (type == "LARGE_RADIAL_DIMENSION") return kJogged;
    switch (integerAt(70) & 7) {
    case 1:
        return kAligned;
    case 2:
        return kAngular;
    case 3:
        return kDiametric;
    case 4:
        return kRadial;
    case 5:
        return kAngular3Point;
    case 6:
        return kOrdinate;
    default:
        return kRotated;
    }
}

OdString OdDbDimension::dimensionText() const {
    const auto tag = findTag(*this, {kSubclass, 1});
    return tag ? textOf(format(), *tag) : OdString();
}

Tavo::ErrorStatus OdDbDimension::setDimensionText(std::wstring_view text) {
    if (text == dimensionText().view()) return checkWrite();
    return writeTag(*this, {kSubclass, 1}, OdString(text), kOrder);
}

std::optional<double> OdDbDimension::measurement() const {
    const auto tag = findTag(*this, {kSubclass, 42});
    auto value = tag ? realOf(format(), *tag) : std::nullopt;
    if (!value) value = measure(objectId(), dimensionKind(), (integerAt(70) & 64) != 0);
    return value && std::isfinite(*value) ? value : std::nullopt;
}

OdString OdDbDimension::dimensionStyleName() const {
    const auto tag = findTag(*this, {kSubclass, 3});
    const OdString name = tag ? textOf(format(), *tag) : OdString();
    return name.isEmpty() ? OdString(L"STANDARD") : name;
}

Tavo::ErrorStatus OdDbDimension::setDimensionStyle(std::wstring_view name) {
    const auto table = database()->getDimStyleTableId().open<OdDbSymbolTable>();
    if (!table || !table->has(name)) return Tavo::eKeyNotFound;
    return writeTag(*this, {kSubclass, 3}, OdString(name), kOrder);
}

OdString OdDbDimension::dimBlockName() const {
    const auto tag = findTag(*this, {kSubclass, 2});
    return tag ? textOf(format(), *tag) : OdString();
}

OdDbObjectId OdDbDimension::dimBlockId() const {
    const auto table = database()->getBlockTableId().open<OdDbBlockTable>();
    return table ? table->getAt(dimBlockName().view()) : OdDbObjectId();
}
