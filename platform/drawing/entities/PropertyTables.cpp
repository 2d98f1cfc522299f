#include "platform/drawing/entities/PropertyTables.h"

#include "platform/drawing/EntityGeometry.h"
#include "platform/drawing/OdDbDatabase.h"
#include "platform/drawing/OdDbEntity.h"
#include "platform/drawing/dxf/RecordStore.h"
#include "platform/drawing/entities/OdDbBlockReference.h"
#include "platform/drawing/entities/OdDbDimension.h"
#include "platform/drawing/entities/OdDbHatch.h"
#include "platform/drawing/entities/OdDbLeader.h"
#include "platform/drawing/entities/OdDbMText.h"
#include "platform/drawing/entities/OdDbRasterImage.h"
#include "platform/drawing/entities/OdDbTable.h"
#include "platform/drawing/entities/OdDbText.h"
#include "platform/drawing/entities/TagAccess.h"

#include <cmath>
#include <numbers>

namespace tv::dwg {
namespace {

using enum PropertyKind;
using Status = Tavo::ErrorStatus;
using std::numbers::pi;

// --- what is computed ---

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

template <class Class, class Get>
Value of(OdDbObjectId id, Get&& get) {
    const auto object = id.open<Class>();
    return object ? Value(get(*object)) : Value();
}
template <class Class, class T, class Set>
Status on(OdDbObjectId id, const Value& value, Set&& set) {
    const auto object = id.open<Class>(OdDb::kForWrite);
    const auto* typed = std::get_if<T>(&value);
    return object && typed ? set(*object, *typed) : Tavo::eWrongType;
}

// Horizontal and vertical mode as one choice: the vertical one counts tens.
constexpr PropertyChoice kJustify[] = {{0, L"Left"},         {1, L"Center"},         {2, L"Right"},
                                       {3, L"Aligned"},      {4, L"Middle"},         {5, L"Fit"},
                                       {10, L"Bottom left"}, {11, L"Bottom center"}, {12, L"Bottom right"},
                                       {20, L"Middle left"}, {21, L"Middle center"}, {22, L"Middle right"},
                                       {30, L"Top left"},    {31, L"Top center"},    {32, L"Top right"}};

Value justify(OdDbObjectId id) {
    return of<OdDbText>(id, [](const OdDbText& text) {
        return std::int64_t{text.verticalMode()} * 10 + text.horizontalMode();
    });
}
Status setJustify(OdDbObjectId id, const Value& value) {
    return on<OdDbText, std::int64_t>(id, value, [&](OdDbText& text, std::int64_t choice) {
        const std::int64_t before = std::int64_t{text.verticalMode()} * 10 + text.horizontalMode();
        if (choice == before) return Tavo::eOk;
        static constexpr int kOrder[] = {39, 10, 20, 30, 40, 1,   50,  41,  51,  7,
                                         71, 72, 11, 21, 31, 210, 220, 230, 100, 73};
        static constexpr int kAttributeOrder[] = {280, 2, 3, 70, 73, 74};
        const OdDbUndoScope step(*id.database(), L"JUSTIFYTEXT");
        const OdGePoint3d at = text.position();
        if (before == 0)
            for (const auto& [code, coordinate] : {std::pair{11, at.x}, {21, at.y}, {31, at.z}})
                writeTag(text, {"AcDbText", code}, coordinate, kOrder);
        const auto status = writeTag(text, {"AcDbText", 72}, choice % 10, kOrder);
        if (status != Tavo::eOk) return status;
        if (id.open<OdDbAttributeDefinition>())
            return writeTag(text, {"AcDbAttributeDefinition", 74}, choice / 10, kAttributeOrder);
        if (id.open<OdDbAttribute>())
            return writeTag(text, {"AcDbAttribute", 74}, choice / 10, kAttributeOrder);
        return writeTag(text, {"AcDbText", 73}, choice / 10, kOrder);
    });
}

Status setMTextRotation(OdDbObjectId id, const Value& value) {
    return on<OdDbMText, double>(id, value, [](OdDbMText& text, double angle) {
        if (!std::isfinite(angle)) return Tavo::eOutOfRange;
        if (angle == text.rotation()) return Tavo::eOk;
        if (!text.find(11))
            return writeTag(text, {"AcDbMText", 50}, angle,
                            std::initializer_list<int>{1, 7, 210, 220, 230, 42, 43});
        const OdDbUndoScope step(*text.database(), L"ROTATE");
        if (text.find(50)) writeTag(text, {"AcDbMText", 50}, angle);
        writeTag(text, {"AcDbMText", 11}, std::cos(angle));
        return writeTag(text, {"AcDbMText", 21}, std::sin(angle));
    });
}

// --- words for numbers ---

constexpr PropertyChoice kAttachment[] = {{1, L"Top left"},    {2, L"Top center"},    {3, L"Top right"},
                                          {4, L"Middle left"}, {5, L"Middle center"}, {6, L"Middle right"},
                                          {7, L"Bottom left"}, {8, L"Bottom center"}, {9, L"Bottom right"}};
constexpr PropertyChoice kDrawingDirection[] = {{1, L"Horizontal"}, {3, L"Vertical"}, {5, L"By style"}};
constexpr PropertyChoice kLineSpacing[] = {{1, L"At least"}, {2, L"Exactly"}};
constexpr PropertyChoice kSmoothing[] = {{0, L"None"}, {5, L"Quadratic"}, {6, L"Cubic"}, {8, L"Bezier"}};
constexpr PropertyChoice kPatternType[] = {{0, L"User defined"}, {1, L"Predefined"}, {2, L"Custom"}};
constexpr PropertyChoice kIslands[] = {{0, L"Normal"}, {1, L"Outer"}, {2, L"Ignore"}};
constexpr PropertyChoice kLeaderPath[] = {{0, L"Straight"}, {1, L"Spline"}};
constexpr PropertyChoice kLeaderContent[] = {{0, L"None"}, {1, L"Block"}, {2, L"MText"}, {3, L"Tolerance"}};
constexpr PropertyChoice kMLineJustify[] = {{0, L"Top"}, {1, L"Zero"}, {2, L"Bottom"}};

// --- how properties are written down ---

constexpr EntityProperty tag(const wchar_t* name, PropertyKind kind, int code, double otherwise = 0) {
    return {.name = name, .kind = kind, .groupCode = code, .otherwise = otherwise};
}
constexpr EntityProperty x(const wchar_t* name, int code) { return tag(name, kCoordinate, code); }
constexpr EntityProperty flag(const wchar_t* name, int code, int mask, double otherwise = 0) {
    return {.name = name, .kind = kBoolean, .groupCode = code, .otherwise = otherwise, .mask = mask};
}
constexpr EntityProperty choice(const wchar_t* name, int code, std::span<const PropertyChoice> choices,
                                double otherwise = 0) {
    return {.name = name, .kind = kEnum, .groupCode = code, .choices = choices, .otherwise = otherwise};
}
constexpr EntityProperty computed(const wchar_t* name, PropertyKind kind, Value (*get)(OdDbObjectId)) {
    return {.name = name, .kind = kind, .writable = false, .get = get};
}
constexpr EntityProperty computed(const wchar_t* name, PropertyKind kind, Value (*get)(OdDbObjectId),
                                  Status (*set)(OdDbObjectId, const Value&), int code = 0) {
    return {.name = name, .kind = kind, .groupCode = code, .get = get, .set = set};
}
constexpr EntityProperty fixed(EntityProperty property) {
    property.writable = false;
    return property;
}
constexpr EntityProperty in(const char* subclass, EntityProperty property) {
    property.subclass = subclass;
    return property;
}
constexpr EntityProperty radians(const wchar_t* name, int code, double otherwise = 0) {
    EntityProperty property = tag(name, kAngle, code, otherwise);
    property.fileRadians = true;
    return property;
}

// --- the kinds ---

constexpr EntityProperty kLine[] = {x(L"StartX", 10),
                                    x(L"StartY", 20),
                                    x(L"StartZ", 30),
                                    x(L"EndX", 11),
                                    x(L"EndY", 21),
                                    x(L"EndZ", 31),
                                    computed(L"DeltaX", kLength, lineDelta<&OdGePoint3d::x>),
                                    computed(L"DeltaY", kLength, lineDelta<&OdGePoint3d::y>),
                                    computed(L"DeltaZ", kLength, lineDelta<&OdGePoint3d::z>),
                                    computed(L"Length", kLength, lineLength),
                                    computed(L"Angle", kAngle, lineAngle),
                                    tag(L"Thickness", kLength, 39)};

constexpr EntityProperty kCircle[] = {
    x(L"CenterX", 10),
    x(L"CenterY", 20),
    x(L"CenterZ", 30),
    tag(L"Radius", kLength, 40),
    computed(L"Diameter", kLength, circle<diameter>, setCircle<ofDiameter>),
    computed(L"Circumference", kLength, circle<circumference>, setCircle<ofCircumference>),
    computed(L"Area", kArea, circle<circleArea>, setCircle<ofArea>),
    tag(L"Thickness", kLength, 39)};

constexpr EntityProperty kArc[] = {x(L"CenterX", 10),
                                   x(L"CenterY", 20),
                                   x(L"CenterZ", 30),
                                   tag(L"Radius", kLength, 40),
                                   in("AcDbArc", tag(L"StartAngle", kAngle, 50)),
                                   in("AcDbArc", tag(L"EndAngle", kAngle, 51)),
                                   computed(L"TotalAngle", kAngle, arcAngle),
                                   computed(L"Length", kLength, arcLength),
                                   computed(L"Area", kArea, arcArea),
                                   tag(L"Thickness", kLength, 39)};

constexpr EntityProperty kEllipse[] = {x(L"CenterX", 10),
                                       x(L"CenterY", 20),
                                       x(L"CenterZ", 30),
                                       x(L"MajorAxisX", 11),
                                       x(L"MajorAxisY", 21),
                                       x(L"MajorAxisZ", 31),
                                       computed(L"MajorRadius", kLength, majorRadius),
                                       computed(L"MinorRadius", kLength, minorRadius),
                                       tag(L"RadiusRatio", kReal, 40, 1),
                                       radians(L"StartParameter", 41),
                                       radians(L"EndParameter", 42, 2 * pi),
                                       computed(L"Area", kArea, ellipseArea)};

constexpr EntityProperty kPoint[] = {x(L"PositionX", 10), x(L"PositionY", 20), x(L"PositionZ", 30),
                                     tag(L"Thickness", kLength, 39)};

constexpr EntityProperty kRay[] = {x(L"BaseX", 10),      x(L"BaseY", 20),      x(L"BaseZ", 30),
                                   x(L"DirectionX", 11), x(L"DirectionY", 21), x(L"DirectionZ", 31)};

constexpr EntityProperty kLightPolyline[] = {fixed(tag(L"Vertices", kInteger, 90)),
                                             flag(L"Closed", 70, 1),
                                             flag(L"LinetypeGeneration", 70, 128),
                                             tag(L"GlobalWidth", kLength, 43),
                                             tag(L"Elevation", kLength, 38),
                                             tag(L"Thickness", kLength, 39),
                                             computed(L"Length", kLength, polylineLength),
                                             computed(L"Area", kArea, polylineArea)};

constexpr EntityProperty kPolyline2d[] = {computed(L"Vertices", kInteger, vertexCount),
                                          flag(L"Closed", 70, 1),
                                          flag(L"LinetypeGeneration", 70, 128),
                                          fixed(choice(L"Smoothing", 75, kSmoothing)),
                                          tag(L"StartWidth", kLength, 40),
                                          tag(L"EndWidth", kLength, 41),
                                          tag(L"Elevation", kLength, 30),
                                          tag(L"Thickness", kLength, 39),
                                          computed(L"Length", kLength, polylineLength),
                                          computed(L"Area", kArea, polylineArea)};

constexpr EntityProperty kPolyline3d[] = {computed(L"Vertices", kInteger, vertexCount), flag(L"Closed", 70, 1),
                                          fixed(choice(L"Smoothing", 75, kSmoothing)),
                                          computed(L"Length", kLength, polylineLength)};

constexpr EntityProperty kMesh[] = {fixed(tag(L"MVertices", kInteger, 71)),
                                    fixed(tag(L"NVertices", kInteger, 72)), flag(L"MClosed", 70, 1),
                                    flag(L"NClosed", 70, 32), fixed(choice(L"Smoothing", 75, kSmoothing))};

constexpr EntityProperty kPolyface[] = {fixed(tag(L"Vertices", kInteger, 71)),
                                        fixed(tag(L"Faces", kInteger, 72))};

constexpr EntityProperty kSpline[] = {fixed(tag(L"Degree", kInteger, 71)),
                                      fixed(flag(L"Closed", 70, 1)),
                                      fixed(flag(L"Planar", 70, 8)),
                                      fixed(tag(L"Knots", kInteger, 72)),
                                      fixed(tag(L"ControlPoints", kInteger, 73)),
                                      fixed(tag(L"FitPoints", kInteger, 74)),
                                      tag(L"FitTolerance", kLength, 44)};

constexpr EntityProperty kSolid[] = {x(L"Corner1X", 10),
                                     x(L"Corner1Y", 20),
                                     x(L"Corner1Z", 30),
                                     x(L"Corner2X", 11),
                                     x(L"Corner2Y", 21),
                                     x(L"Corner2Z", 31),
                                     x(L"Corner3X", 12),
                                     x(L"Corner3Y", 22),
                                     x(L"Corner3Z", 32),
                                     x(L"Corner4X", 13),
                                     x(L"Corner4Y", 23),
                                     x(L"Corner4Z", 33),
                                     tag(L"Thickness", kLength, 39)};

constexpr EntityProperty kFace[] = {x(L"Corner1X", 10),
                                    x(L"Corner1Y", 20),
                                    x(L"Corner1Z", 30),
                                    x(L"Corner2X", 11),
                                    x(L"Corner2Y", 21),
                                    x(L"Corner2Z", 31),
                                    x(L"Corner3X", 12),
                                    x(L"Corner3Y", 22),
                                    x(L"Corner3Z", 32),
                                    x(L"Corner4X", 13),
                                    x(L"Corner4Y", 23),
                                    x(L"Corner4Z", 33),
                                    flag(L"Edge1Invisible", 70, 1),
                                    flag(L"Edge2Invisible", 70, 2),
                                    flag(L"Edge3Invisible", 70, 4),
                                    flag(L"Edge4Invisible", 70, 8)};

constexpr EntityProperty kSingleText[] = {tag(L"Contents", kText, 1),
                                          tag(L"TextStyle", kTextStyle, 7),
                                          EntityProperty{.name = L"Justify",
                                                         .kind = kEnum,
                                                         .groupCode = 72,
                                                         .choices = kJustify,
                                                         .get = justify,
                                                         .set = setJustify},
                                          tag(L"Height", kLength, 40),
                                          tag(L"Rotation", kAngle, 50),
                                          tag(L"WidthFactor", kReal, 41, 1),
                                          tag(L"Oblique", kAngle, 51),
                                          x(L"PositionX", 10),
                                          x(L"PositionY", 20),
                                          x(L"PositionZ", 30),
                                          x(L"AlignmentX", 11),
                                          x(L"AlignmentY", 21),
                                          x(L"AlignmentZ", 31),
                                          flag(L"Backward", 71, 2),
                                          flag(L"UpsideDown", 71, 4),
                                          tag(L"Thickness", kLength, 39)};

Value attributeText(OdDbObjectId id) {
    return of<OdDbAttributeText>(id, [](const OdDbAttributeText& a) { return a.textString(); });
}
Status setAttributeText(OdDbObjectId id, const Value& value) {
    return on<OdDbAttributeText, OdString>(
        id, value, [](OdDbAttributeText& a, const OdString& v) { return a.setTextString(v); });
}
Value attributeTag(OdDbObjectId id) {
    return of<OdDbAttributeText>(id, [](const OdDbAttributeText& a) { return a.tag(); });
}
Status setAttributeTag(OdDbObjectId id, const Value& value) {
    return on<OdDbAttributeText, OdString>(id, value,
                                           [](OdDbAttributeText& a, const OdString& v) { return a.setTag(v); });
}
constexpr EntityProperty kAttribute[] = {computed(L"Tag", kText, attributeTag, setAttributeTag, 2),
                                         computed(L"Value", kText, attributeText, setAttributeText, 1),
                                         in("AcDbAttribute", flag(L"Invisible", 70, 1)),
                                         in("AcDbAttribute", fixed(flag(L"Constant", 70, 2))),
                                         in("AcDbAttribute", flag(L"Verify", 70, 4)),
                                         in("AcDbAttribute", flag(L"Preset", 70, 8))};
constexpr EntityProperty kAttributeDefinition[] = {
    computed(L"Tag", kText, attributeTag, setAttributeTag, 2),
    in("AcDbAttributeDefinition", tag(L"Prompt", kText, 3)),
    computed(L"Value", kText, attributeText, setAttributeText, 1),
    in("AcDbAttributeDefinition", flag(L"Invisible", 70, 1)),
    in("AcDbAttributeDefinition", flag(L"Constant", 70, 2)),
    in("AcDbAttributeDefinition", flag(L"Verify", 70, 4)),
    in("AcDbAttributeDefinition", flag(L"Preset", 70, 8))};

constexpr EntityProperty kMultiText[] = {
    computed(
        L"Contents", kText,
        [](OdDbObjectId id) { return of<OdDbMText>(id, [](const OdDbMText& m) { return m.contents(); }); },
        [](OdDbObjectId id, const Value& value) {
            return on<OdDbMText, OdString>(id, value,
                                           [](OdDbMText& m, const OdString& v) { return m.setContents(v); });
        },
        1),
    tag(L"TextStyle", kTextStyle, 7),
    choice(L"Attachment", 71, kAttachment, 1),
    choice(L"Direction", 72, kDrawingDirection, 1),
    tag(L"Height", kLength, 40),
    computed(
        L"Rotation", kAngle,
        [](OdDbObjectId id) { return of<OdDbMText>(id, [](const OdDbMText& m) { return m.rotation(); }); },
        setMTextRotation, 50),
    tag(L"DefinedWidth", kLength, 41),
    tag(L"DefinedHeight", kLength, 46),
    tag(L"LineSpaceFactor", kReal, 44, 1),
    choice(L"LineSpaceStyle", 73, kLineSpacing, 1),
    flag(L"BackgroundFill", 90, 1),
    x(L"PositionX", 10),
    x(L"PositionY", 20),
    x(L"PositionZ", 30)};

constexpr EntityProperty kInsert[] = {
    computed(
        L"Name", kBlock,
        [](OdDbObjectId id) {
            return of<OdDbBlockReference>(id, [](const OdDbBlockReference& b) { return b.effectiveName(); });
        },
        [](OdDbObjectId id, const Value& value) {
            return on<OdDbBlockReference, OdString>(
                id, value, [](OdDbBlockReference& b, const OdString& v) { return b.setBlock(v); });
        },
        2),
    x(L"PositionX", 10),
    x(L"PositionY", 20),
    x(L"PositionZ", 30),
    tag(L"ScaleX", kReal, 41, 1),
    tag(L"ScaleY", kReal, 42, 1),
    tag(L"ScaleZ", kReal, 43, 1),
    tag(L"Rotation", kAngle, 50)};
constexpr EntityProperty kArray[] = {tag(L"Columns", kInteger, 70, 1), tag(L"Rows", kInteger, 71, 1),
                                     tag(L"ColumnSpacing", kLength, 44), tag(L"RowSpacing", kLength, 45)};

constexpr EntityProperty kTolerance[] = {
    tag(L"Contents", kText, 1), tag(L"DimStyle", kDimStyle, 3), x(L"PositionX", 10),  x(L"PositionY", 20),
    x(L"PositionZ", 30),        x(L"DirectionX", 11),           x(L"DirectionY", 21), x(L"DirectionZ", 31)};
constexpr EntityProperty kLeader[] = {tag(L"DimStyle", kDimStyle, 3), flag(L"Arrow", 71, 0, 1),
                                      choice(L"Type", 72, kLeaderPath), fixed(tag(L"Vertices", kInteger, 76))};
constexpr EntityProperty kMLeader[] = {
    computed(
        L"Contents", kText,
        [](OdDbObjectId id) { return of<OdDbMLeader>(id, [](const OdDbMLeader& m) { return m.contents(); }); },
        [](OdDbObjectId id, const Value& value) {
            return on<OdDbMLeader, OdString>(
                id, value, [](OdDbMLeader& m, const OdString& v) { return m.setContents(v); });
        },
        304),
    EntityProperty{.name = L"ContentType",
                   .kind = kEnum,
                   .groupCode = 172,
                   .writable = false,
                   .choices = kLeaderContent,
                   .get = [](OdDbObjectId id) {
                       return of<OdDbMLeader>(
                           id, [](const OdDbMLeader& m) { return std::int64_t{m.contentType()}; });
                   }}};

constexpr EntityProperty kTable[] = {
    computed(L"Rows", kInteger,
             [](OdDbObjectId id) {
                 return of<OdDbTable>(id, [](const OdDbTable& t) { return std::int64_t{t.numRows()}; });
             }),
    computed(L"Columns", kInteger,
             [](OdDbObjectId id) {
                 return of<OdDbTable>(id, [](const OdDbTable& t) { return std::int64_t{t.numColumns()}; });
             }),
    in("AcDbTable", fixed(tag(L"TableStyle", kHandle, 342))),
    x(L"PositionX", 10),
    x(L"PositionY", 20),
    x(L"PositionZ", 30)};

constexpr EntityProperty kHatch[] = {
    fixed(tag(L"PatternName", kText, 2)),
    fixed(flag(L"Solid", 70, 1)),
    fixed(flag(L"Associative", 71, 1)),
    fixed(choice(L"PatternType", 76, kPatternType, 1)),
    computed(
        L"PatternAngle", kAngle,
        [](OdDbObjectId id) { return of<OdDbHatch>(id, [](const OdDbHatch& h) { return h.patternAngle(); }); },
        [](OdDbObjectId id, const Value& value) {
            return on<OdDbHatch, double>(id, value,
                                         [](OdDbHatch& h, double v) { return h.setPatternAngle(v); });
        },
        52),
    computed(
        L"PatternScale", kReal,
        [](OdDbObjectId id) { return of<OdDbHatch>(id, [](const OdDbHatch& h) { return h.patternScale(); }); },
        [](OdDbObjectId id, const Value& value) {
            return on<OdDbHatch, double>(id, value,
                                         [](OdDbHatch& h, double v) { return h.setPatternScale(v); });
        },
        41),
    fixed(flag(L"Double", 77, 1)),
    choice(L"Islands", 75, kIslands),
    fixed(tag(L"Loops", kInteger, 91)),
    tag(L"Elevation", kLength, 30),
    fixed(flag(L"Gradient", 450, 1)),
    fixed(tag(L"GradientName", kText, 470)),
    fixed(radians(L"GradientAngle", 460))};
constexpr EntityProperty kMPolygon[] = {fixed(tag(L"PatternName", kText, 2)), fixed(flag(L"Solid", 71, 1)),
                                        tag(L"Elevation", kLength, 30)};

template <double (OdDbRasterImage::*Get)() const>
Value image(OdDbObjectId id) {
    return of<OdDbRasterImage>(id, [](const OdDbRasterImage& i) { return (i.*Get)(); });
}
constexpr EntityProperty kImage[] = {
    computed(
        L"Path", kText,
        [](OdDbObjectId id) {
            return of<OdDbRasterImage>(id, [](const OdDbRasterImage& i) { return i.sourceFileName(); });
        },
        [](OdDbObjectId id, const Value& value) {
            return on<OdDbRasterImage, OdString>(
                id, value, [](OdDbRasterImage& i, const OdString& v) { return i.setSourceFileName(v); });
        }),
    tag(L"Brightness", kInteger, 281, 50),
    tag(L"Contrast", kInteger, 282, 50),
    tag(L"Fade", kInteger, 283),
    flag(L"Shown", 70, 1),
    flag(L"Transparent", 70, 8),
    fixed(flag(L"Clipped", 280, 1)),
    computed(L"Width", kLength, image<&OdDbRasterImage::width>),
    computed(L"Height", kLength, image<&OdDbRasterImage::height>),
    computed(L"Rotation", kAngle, image<&OdDbRasterImage::rotation>),
    x(L"PositionX", 10),
    x(L"PositionY", 20),
    x(L"PositionZ", 30)};
constexpr EntityProperty kWipeout[] = {flag(L"Shown", 70, 1), fixed(flag(L"Clipped", 280, 1)),
                                       computed(L"Width", kLength, image<&OdDbRasterImage::width>),
                                       computed(L"Height", kLength, image<&OdDbRasterImage::height>)};

constexpr EntityProperty kViewport[] = {x(L"CenterX", 10),
                                        x(L"CenterY", 20),
                                        x(L"CenterZ", 30),
                                        tag(L"Width", kLength, 40),
                                        tag(L"Height", kLength, 41),
                                        tag(L"ViewHeight", kLength, 45),
                                        x(L"ViewCenterX", 12),
                                        x(L"ViewCenterY", 22),
                                        tag(L"TwistAngle", kAngle, 51),
                                        tag(L"LensLength", kReal, 42, 50),
                                        flag(L"Locked", 90, 0x4000),
                                        flag(L"Off", 90, 0x20000),
                                        fixed(tag(L"Number", kInteger, 69))};

constexpr EntityProperty kMLine[] = {fixed(tag(L"Style", kText, 2)), tag(L"Scale", kReal, 40, 1),
                                     fixed(choice(L"Justification", 70, kMLineJustify)),
                                     fixed(flag(L"Closed", 71, 2)), fixed(tag(L"Vertices", kInteger, 72))};

constexpr EntityProperty kUnderlay[] = {x(L"PositionX", 10),
                                        x(L"PositionY", 20),
                                        x(L"PositionZ", 30),
                                        tag(L"ScaleX", kReal, 41, 1),
                                        tag(L"ScaleY", kReal, 42, 1),
                                        tag(L"ScaleZ", kReal, 43, 1),
                                        tag(L"Rotation", kAngle, 50),
                                        flag(L"Shown", 280, 2),
                                        fixed(flag(L"Clipped", 280, 1)),
                                        flag(L"Monochrome", 280, 4),
                                        tag(L"Contrast", kInteger, 281, 100),
                                        tag(L"Fade", kInteger, 282)};

Value dimensionMeasurement(OdDbObjectId id) {
    const auto dimension = id.open<OdDbDimension>();
    const auto value = dimension ? dimension->measurement() : std::nullopt;
    return value ? Value(*value) : Value();
}
constexpr EntityProperty measurement(PropertyKind kind) {
    return fixed(computed(L"Measurement", kind, dimensionMeasurement, nullptr, 42));
}

constexpr EntityProperty kDimension[] = {tag(L"DimStyle", kDimStyle, 3),
                                         tag(L"TextOverride", kText, 1),
                                         measurement(kReal),
                                         x(L"TextPositionX", 11),
                                         x(L"TextPositionY", 21),
                                         x(L"TextPositionZ", 31),
                                         tag(L"TextRotation", kAngle, 53),
                                         fixed(flag(L"TextMoved", 70, 128)),
                                         fixed(tag(L"Block", kBlock, 2)),
                                         x(L"DefinitionX", 10),
                                         x(L"DefinitionY", 20),
                                         x(L"DefinitionZ", 30),
                                         in("", x(L"Point1X", 13)),
                                         in("", x(L"Point1Y", 23)),
                                         in("", x(L"Point1Z", 33)),
                                         in("", x(L"Point2X", 14)),
                                         in("", x(L"Point2Y", 24)),
                                         in("", x(L"Point2Z", 34)),
                                         in("", tag(L"Rotation", kAngle, 50)),
                                         in("", tag(L"Oblique", kAngle, 52))};
constexpr EntityProperty kAngularDimension[] = {tag(L"DimStyle", kDimStyle, 3),
                                                tag(L"TextOverride", kText, 1),
                                                measurement(kAngle),
                                                x(L"TextPositionX", 11),
                                                x(L"TextPositionY", 21),
                                                x(L"TextPositionZ", 31),
                                                tag(L"TextRotation", kAngle, 53),
                                                fixed(flag(L"TextMoved", 70, 128)),
                                                fixed(tag(L"Block", kBlock, 2)),
                                                in("", x(L"Point1X", 13)),
                                                in("", x(L"Point1Y", 23)),
                                                in("", x(L"Point1Z", 33)),
                                                in("", x(L"Point2X", 14)),
                                                in("", x(L"Point2Y", 24)),
                                                in("", x(L"Point2Z", 34)),
                                                in("", x(L"VertexX", 15)),
                                                in("", x(L"VertexY", 25)),
                                                in("", x(L"VertexZ", 35))};
constexpr EntityProperty kRadialDimension[] = {tag(L"DimStyle", kDimStyle, 3),
                                               tag(L"TextOverride", kText, 1),
                                               measurement(kReal),
                                               x(L"TextPositionX", 11),
                                               x(L"TextPositionY", 21),
                                               x(L"TextPositionZ", 31),
                                               tag(L"TextRotation", kAngle, 53),
                                               fixed(flag(L"TextMoved", 70, 128)),
                                               fixed(tag(L"Block", kBlock, 2)),
                                               x(L"CenterX", 10),
                                               x(L"CenterY", 20),
                                               x(L"CenterZ", 30),
                                               in("", x(L"ChordX", 15)),
                                               in("", x(L"ChordY", 25)),
                                               in("", x(L"ChordZ", 35)),
                                               in("", tag(L"LeaderLength", kLength, 40))};

// The order files have the own tags in, where some may be missing.
constexpr int kTextOrder[] = {39, 10, 20, 30, 40, 1, 50, 41, 51, 7, 71, 72, 11, 21, 31, 210, 220, 230};
constexpr int kPlaneOrder[] = {39, 10, 20, 30, 40, 11, 21, 31, 12, 22, 32, 13, 23, 33, 210, 220, 230};
constexpr int kLightOrder[] = {90, 70, 43, 38, 39, 10};
constexpr int kPolylineOrder[] = {66, 10, 20, 30, 39, 70, 40, 41, 71, 72, 73, 74, 75};
constexpr int kMTextOrder[] = {10,  20,  30, 40, 41, 46, 71, 72, 3,  1,  7, 210,
                               220, 230, 11, 21, 31, 42, 43, 50, 73, 44, 90};
constexpr int kInsertOrder[] = {66, 2, 10, 20, 30, 41, 42, 43, 50, 70, 71, 44, 45};
constexpr int kDimensionOrder[] = {280, 2,  10, 20, 30, 11, 21, 31, 12, 22,  32,  70,  1,
                                   71,  72, 41, 42, 73, 74, 75, 53, 51, 210, 220, 230, 3};
constexpr int kImageOrder[] = {90, 10, 20, 30, 11, 21, 31, 12, 22, 32, 13, 23, 340, 70, 280, 281, 282, 283};
constexpr int kUnderlayOrder[] = {340, 10, 20, 30, 41, 42, 43, 50, 210, 220, 230, 280, 281, 282};

constexpr std::string_view kDim = "AcDbDimension";

// In the order of their names, the unknown kind last.
std::span<const EntityKind> kinds() {
    static const std::span<const EntityProperty> variables = dimensionVariables();
    static const EntityKind kKinds[] = {
        {L"2D Polyline", "POLYLINE", "AcDb2dPolyline", kPolylineOrder, kPolyline2d},
        {L"3-Point Angular Dimension", "DIMENSION", kDim, kDimensionOrder, kAngularDimension, variables},
        {L"3D Face", "3DFACE", "AcDbFace", kPlaneOrder, kFace},
        {L"3D Polyline", "POLYLINE", "AcDb3dPolyline", kPolylineOrder, kPolyline3d},
        {L"3D Solid", "3DSOLID", {}, {}, {}},
        {L"Aligned Dimension", "DIMENSION", kDim, kDimensionOrder, kDimension, variables},
        {L"Angular Dimension", "DIMENSION", kDim, kDimensionOrder, kAngularDimension, variables},
        {L"Arc", "ARC", "AcDbCircle", kPlaneOrder, kArc},
        {L"Arc Length Dimension", "ARC_DIMENSION", kDim, kDimensionOrder, kAngularDimension, variables},
        {L"Attribute", "ATTRIB", "AcDbText", kTextOrder, kAttribute, kSingleText},
        {L"Attribute Definition", "ATTDEF", "AcDbText", kTextOrder, kAttributeDefinition, kSingleText},
        {L"Block Reference", "INSERT", {}, kInsertOrder, kInsert},
        {L"Body", "BODY", {}, {}, {}},
        {L"Circle", "CIRCLE", "AcDbCircle", kPlaneOrder, kCircle},
        {L"Construction Line", "XLINE", "AcDbXline", kPlaneOrder, kRay},
        {L"DGN Underlay", "DGNUNDERLAY", "AcDbUnderlayReference", kUnderlayOrder, kUnderlay},
        {L"DWF Underlay", "DWFUNDERLAY", "AcDbUnderlayReference", kUnderlayOrder, kUnderlay},
        {L"Diametric Dimension", "DIMENSION", kDim, kDimensionOrder, kRadialDimension, variables},
        {L"Ellipse", "ELLIPSE", "AcDbEllipse", {}, kEllipse},
        {L"Hatch", "HATCH", "AcDbHatch", {}, kHatch},
        {L"Helix", "HELIX", "AcDbSpline", {}, kSpline},
        {L"Jogged Dimension", "LARGE_RADIAL_DIMENSION", kDim, kDimensionOrder, kRadialDimension, variables},
        {L"Leader", "LEADER", "AcDbLeader", {}, kLeader, variables},
        {L"Light", "LIGHT", {}, {}, {}},
        {L"Line", "LINE", "AcDbLine", kPlaneOrder, kLine},
        {L"MInsert Block", "INSERT", {}, kInsertOrder, kInsert, kArray},
        {L"MLine", "MLINE", "AcDbMline", {}, kMLine},
        {L"MPolygon", "MPOLYGON", "AcDbMPolygon", {}, kMPolygon},
        {L"MText", "MTEXT", "AcDbMText", kMTextOrder, kMultiText},
        {L"Mesh", "MESH", {}, {}, {}},
        {L"Multileader", "MULTILEADER", "AcDbMLeader", {}, kMLeader},
        {L"OLE Frame", "OLE2FRAME", {}, {}, {}},
        {L"Ordinate Dimension", "DIMENSION", kDim, kDimensionOrder, kDimension, variables},
        {L"PDF Underlay", "PDFUNDERLAY", "AcDbUnderlayReference", kUnderlayOrder, kUnderlay},
        {L"Point", "POINT", "AcDbPoint", kPlaneOrder, kPoint},
        {L"Polyface Mesh", "POLYLINE", "AcDbPolyFaceMesh", kPolylineOrder, kPolyface},
        {L"Polygon Mesh", "POLYLINE", "AcDbPolygonMesh", kPolylineOrder, kMesh},
        {L"Polyline", "LWPOLYLINE", "AcDbPolyline", kLightOrder, kLightPolyline},
        {L"Radial Dimension", "DIMENSION", kDim, kDimensionOrder, kRadialDimension, variables},
        {L"Raster Image", "IMAGE", "AcDbRasterImage", kImageOrder, kImage},
        {L"Ray", "RAY", "AcDbRay", kPlaneOrder, kRay},
        {L"Region", "REGION", {}, {}, {}},
        {L"Rotated Dimension", "DIMENSION", kDim, kDimensionOrder, kDimension, variables},
        {L"Section Plane", "SECTIONOBJECT", {}, {}, {}},
        {L"Shape", "SHAPE", {}, {}, {}},
        {L"Solid", "SOLID", "AcDbTrace", kPlaneOrder, kSolid},
        {L"Spline", "SPLINE", "AcDbSpline", {}, kSpline},
        {L"Surface", "SURFACE", {}, {}, {}},
        {L"Table", "ACAD_TABLE", "AcDbBlockReference", {}, kTable},
        {L"Text", "TEXT", "AcDbText", kTextOrder, kSingleText},
        {L"Tolerance", "TOLERANCE", "AcDbFcf", {}, kTolerance, variables},
        {L"Trace", "TRACE", "AcDbTrace", kPlaneOrder, kSolid},
        {L"Viewport", "VIEWPORT", "AcDbViewport", {}, kViewport},
        {L"Wipeout", "WIPEOUT", "AcDbWipeout", kImageOrder, kWipeout},
        {L"Other", {}, {}, {}, {}},
    };
    return kKinds;
}

const wchar_t* dimensionName(OdDbObjectId id) {
    const auto dimension = id.open<OdDbDimension>();
    switch (dimension ? dimension->dimensionKind() : OdDbDimension::kRotated) {
    case OdDbDimension::kAligned:
        return L"Aligned Dimension";
    case OdDbDimension::kAngular:
        return L"Angular Dimension";
    case OdDbDimension::kDiametric:
        return L"Diametric Dimension";
    case OdDbDimension::kRadial:
        return L"Radial Dimension";
    case OdDbDimension::kAngular3Point:
        return L"3-Point Angular Dimension";
    case OdDbDimension::kOrdinate:
        return L"Ordinate Dimension";
    case OdDbDimension::kArcLength:
        return L"Arc Length Dimension";
    case OdDbDimension::kJogged:
        return L"Jogged Dimension";
    case OdDbDimension::kRotated:
        break;
    }
    return L"Rotated Dimension";
}

const wchar_t* polylineName(OdDbObjectId id) {
    const int flags = id.openObject()->integerAt(70);
    if (flags & 64) return L"Polyface Mesh";
    if (flags & 16) return L"Polygon Mesh";
    return flags & 8 ? L"3D Polyline" : L"2D Polyline";
}

} // namespace

std::span<const EntityKind> entityKinds() { return kinds().first(kinds().size() - 1); }

const EntityKind& entityKindOf(OdDbObjectId entity) {
    const EntityKind& other = kinds().back();
    if (entity.isErased()) return other;
    std::string_view type = entity.database()->store().typeName(entity.record());
    if (type == "MLEADER") type = "MULTILEADER";
    if (type.ends_with("SURFACE")) type = "SURFACE";
    const wchar_t* name = nullptr;
    if (type == "DIMENSION")
        name = dimensionName(entity);
    else if (type == "POLYLINE")
        name = polylineName(entity);
    else if (type == "INSERT")
        name = entity.openObject()->integerAt(70, 1) > 1 || entity.openObject()->integerAt(71, 1) > 1
                   ? L"MInsert Block"
                   : L"Block Reference";
    for (const EntityKind& kind : entityKinds())
        if (kind.type == type && (!name || std::wstring_view(kind.name) == name)) return kind;
    return other;
}

} // namespace tv::dwg
