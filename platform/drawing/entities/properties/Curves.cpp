// Lines, arcs, polylines and the like.

#include "platform/drawing/EntityGeometry.h"
#include "platform/drawing/OdDbDatabase.h"
#include "platform/drawing/OdDbEntity.h"
#include "platform/drawing/dxf/RecordStore.h"
#include "platform/drawing/entities/TagAccess.h"
#include "platform/drawing/entities/properties/Families.h"
#include "platform/drawing/entities/properties/Words.h"

#include <cmath>
#include <numbers>

namespace tv::dwg {
namespace {

using namespace properties;
using std::numbers::pi;

template <class Shape, class Get>
Value shape(OdDbObjectId id, Get&& get) {
    const EntityGeometry geometry = geometryOf(id);
    const auto* found = std::get_if<Shape>(&geometry);
    return found ? Value(get(*found)) : Value();
}

double positive(double angle) { return angle < 0 ? angle + 2 * pi : angle; }

// Counter-clockwise from start to end; the whole turn when they are the same.
double sweep(double start, double end) {
    const double turn = std::fmod(end - start, 2 * pi);
    return turn <= 0 ? turn + 2 * pi : turn;
}

Value lineLength(OdDbObjectId id) {
    return shape<LineGeometry>(id, [](const LineGeometry& l) { return (l.end - l.start).length(); });
}
Value lineAngle(OdDbObjectId id) {
    return shape<LineGeometry>(id, [](const LineGeometry& l) {
        return positive(std::atan2(l.end.y - l.start.y, l.end.x - l.start.x));
    });
}
template <double OdGePoint3d::*Axis>
Value lineDelta(OdDbObjectId id) {
    return shape<LineGeometry>(id, [](const LineGeometry& l) { return l.end.*Axis - l.start.*Axis; });
}

template <double (*FromRadius)(double)>
Value circle(OdDbObjectId id) {
    return shape<CircleGeometry>(id, [](const CircleGeometry& c) { return FromRadius(c.radius); });
}
template <double (*ToRadius)(double)>
Status setCircle(OdDbObjectId id, const Value& value) {
    const auto* whole = std::get_if<std::int64_t>(&value);
    const auto* real = std::get_if<double>(&value);
    if (!whole && !real) return Tavo::eWrongType;
    const double radius = ToRadius(real ? *real : static_cast<double>(*whole));
    if (!(radius > 0) || !std::isfinite(radius)) return Tavo::eOutOfRange;
    return writeTag(*id.openObject(OdDb::kForWrite), {"AcDbCircle", 40}, radius);
}
double diameter(double r) { return 2 * r; }
double ofDiameter(double d) { return d / 2; }
double circumference(double r) { return 2 * pi * r; }
double ofCircumference(double c) { return c / (2 * pi); }
double circleArea(double r) { return pi * r * r; }
double ofArea(double a) { return std::sqrt(a / pi); }

Value arcAngle(OdDbObjectId id) {
    return shape<ArcGeometry>(id, [](const ArcGeometry& a) { return sweep(a.startAngle, a.endAngle); });
}
Value arcLength(OdDbObjectId id) {
    return shape<ArcGeometry>(id,
                              [](const ArcGeometry& a) { return a.radius * sweep(a.startAngle, a.endAngle); });
}
// Between the arc and its chord.
Value arcArea(OdDbObjectId id) {
    return shape<ArcGeometry>(id, [](const ArcGeometry& a) {
        const double angle = sweep(a.startAngle, a.endAngle);
        return a.radius * a.radius / 2 * (angle - std::sin(angle));
    });
}

Value majorRadius(OdDbObjectId id) {
    return shape<EllipseGeometry>(id, [](const EllipseGeometry& e) { return e.majorAxis.length(); });
}
Value minorRadius(OdDbObjectId id) {
    return shape<EllipseGeometry>(id, [](const EllipseGeometry& e) { return e.majorAxis.length() * e.ratio; });
}
// Between the curve and its chord.
Value ellipseArea(OdDbObjectId id) {
    return shape<EllipseGeometry>(id, [](const EllipseGeometry& e) {
        const double angle = sweep(e.startParameter, e.endParameter);
        const double major = e.majorAxis.length();
        return major * major * e.ratio / 2 * (angle - std::sin(angle));
    });
}

struct Measures {
    double length = 0;
    double area = 0; // closed by a straight line where it is open
};

Measures measure(const PolylineGeometry& line) {
    Measures out;
    const std::size_t count = line.vertices.size();
    double area = 0;
    for (std::size_t i = 0; i < count; ++i) {
        const PolylineVertex& from = line.vertices[i];
        const PolylineVertex& to = line.vertices[(i + 1) % count];
        area += from.position.x * to.position.y - to.position.x * from.position.y;
        const bool drawn = line.closed || i + 1 < count;
        if (!drawn) break;
        const OdGeVector3d chord = to.position - from.position;
        const double bulge = line.is3d ? 0 : from.bulge;
        if (bulge == 0) {
            out.length += line.is3d ? chord.length() : std::hypot(chord.x, chord.y);
            continue;
        }
        const double angle = 4 * std::atan(bulge);
        const double radius = std::hypot(chord.x, chord.y) * (1 + bulge * bulge) / (4 * bulge);
        out.length += radius * angle;
        area += radius * radius * (angle - std::sin(angle));
    }
    out.area = std::abs(area) / 2;
    return out;
}

Value polylineLength(OdDbObjectId id) {
    return shape<PolylineGeometry>(id, [](const PolylineGeometry& p) { return measure(p).length; });
}
Value polylineArea(OdDbObjectId id) {
    return shape<PolylineGeometry>(id, [](const PolylineGeometry& p) { return measure(p).area; });
}
Value vertexCount(OdDbObjectId id) {
    std::int64_t count = 0;
    for (const OdDbObjectId sub : subEntities(id))
        count += id.database()->store().record(sub.record()).type == kTypeVertex;
    return count;
}

constexpr PropertyChoice kMLineJustify[] = {{0, L"Top"}, {1, L"Zero"}, {2, L"Bottom"}};

constexpr EntityProperty kThickness = tag(L"Thickness", kLength, 39);

constexpr auto kLine =
    list(xyz<L"Start">(10), xyz<L"End">(11), computed(L"DeltaX", kLength, lineDelta<&OdGePoint3d::x>),
         computed(L"DeltaY", kLength, lineDelta<&OdGePoint3d::y>),
         computed(L"DeltaZ", kLength, lineDelta<&OdGePoint3d::z>), computed(L"Length", kLength, lineLength),
         computed(L"Angle", kAngle, lineAngle), kThickness);
constexpr auto kCircle =
    list(xyz<L"Center">(10), tag(L"Radius", kLength, 40),
         computed(L"Diameter", kLength, circle<diameter>, setCircle<ofDiameter>),
         computed(L"Circumference", kLength, circle<circumference>, setCircle<ofCircumference>),
         computed(L"Area", kArea, circle<circleArea>, setCircle<ofArea>), kThickness);
constexpr auto kArc =
    list(xyz<L"Center">(10), tag(L"Radius", kLength, 40), in("AcDbArc", tag(L"StartAngle", kAngle, 50)),
         in("AcDbArc", tag(L"EndAngle", kAngle, 51)), computed(L"TotalAngle", kAngle, arcAngle),
         computed(L"Length", kLength, arcLength), computed(L"Area", kArea, arcArea), kThickness);
constexpr auto kEllipse =
    list(xyz<L"Center">(10), xyz<L"MajorAxis">(11), computed(L"MajorRadius", kLength, majorRadius),
         computed(L"MinorRadius", kLength, minorRadius), tag(L"RadiusRatio", kReal, 40, 1),
         radians(L"StartParameter", 41), radians(L"EndParameter", 42, 2 * pi),
         computed(L"Area", kArea, ellipseArea));
constexpr auto kPoint = list(xyz<L"Position">(10), kThickness);
constexpr auto kRay = list(xyz<L"Base">(10), xyz<L"Direction">(11));

constexpr EntityProperty kClosed = flag(L"Closed", 70, 1);
constexpr EntityProperty kGeneration = flag(L"LinetypeGeneration", 70, 128);
constexpr EntityProperty kSmoothed = fixed(choice(L"Smoothing", 75, kSmoothing));
constexpr EntityProperty kVertexCount = computed(L"Vertices", kInteger, vertexCount);
constexpr EntityProperty kPathLength = computed(L"Length", kLength, polylineLength);
constexpr EntityProperty kPathArea = computed(L"Area", kArea, polylineArea);
constexpr auto kLightPolyline =
    list(fixed(tag(L"Vertices", kInteger, 90)), kClosed, kGeneration, tag(L"GlobalWidth", kLength, 43),
         tag(L"Elevation", kLength, 38), kThickness, kPathLength, kPathArea);
constexpr auto kPolyline2d =
    list(kVertexCount, kClosed, kGeneration, kSmoothed, tag(L"StartWidth", kLength, 40),
         tag(L"EndWidth", kLength, 41), tag(L"Elevation", kLength, 30), kThickness, kPathLength, kPathArea);
constexpr auto kPolyline3d = list(kVertexCount, kClosed, kSmoothed, kPathLength);

constexpr auto kSpline =
    list(fixed(tag(L"Degree", kInteger, 71)), fixed(kClosed), fixed(flag(L"Planar", 70, 8)),
         fixed(tag(L"Knots", kInteger, 72)), fixed(tag(L"ControlPoints", kInteger, 73)),
         fixed(tag(L"FitPoints", kInteger, 74)), tag(L"FitTolerance", kLength, 44));
constexpr auto kMLine = list(fixed(tag(L"Style", kText, 2)), tag(L"Scale", kReal, 40, 1),
                             fixed(choice(L"Justification", 70, kMLineJustify)), fixed(flag(L"Closed", 71, 2)),
                             fixed(tag(L"Vertices", kInteger, 72)));

constexpr int kLightOrder[] = {90, 70, 43, 38, 39, 10};

constexpr EntityKind kKinds[] = {
    {L"2D Polyline", "POLYLINE", "AcDb2dPolyline", kPolylineOrder, kPolyline2d},
    {L"3D Polyline", "POLYLINE", "AcDb3dPolyline", kPolylineOrder, kPolyline3d},
    {L"Arc", "ARC", "AcDbCircle", kPlaneOrder, kArc},
    {L"Circle", "CIRCLE", "AcDbCircle", kPlaneOrder, kCircle},
    {L"Construction Line", "XLINE", "AcDbXline", kPlaneOrder, kRay},
    {L"Ellipse", "ELLIPSE", "AcDbEllipse", {}, kEllipse},
    {L"Helix", "HELIX", "AcDbSpline", {}, kSpline},
    {L"Line", "LINE", "AcDbLine", kPlaneOrder, kLine},
    {L"MLine", "MLINE", "AcDbMline", {}, kMLine},
    {L"Point", "POINT", "AcDbPoint", kPlaneOrder, kPoint},
    {L"Polyline", "LWPOLYLINE", "AcDbPolyline", kLightOrder, kLightPolyline},
    {L"Ray", "RAY", "AcDbRay", kPlaneOrder, kRay},
    {L"Spline", "SPLINE", "AcDbSpline", {}, kSpline},
};

} // namespace

std::span<const EntityKind> curveKinds() { return kKinds; }

} // namespace tv::dwg
