#pragma once

#include "platform/Export.h"
#include "platform/drawing/Geometry.h"
#include "platform/drawing/OdCmColor.h"
#include "platform/drawing/OdDbObjectId.h"
#include "platform/text/OdString.h"

#include <cstdint>
#include <optional>
#include <variant>
#include <vector>

// What a drawing window draws, decoded from an entity's record when asked for. Lengths and coordinates are
// drawing units, angles radians counter-clockwise. Planar entities (all but line, point, 3D polyline,
// ellipse, spline and those that say so) have their coordinates in the plane that `normal` stands on; toWorld
// turns those into world coordinates.
namespace tv::dwg {

struct LineGeometry {
    OdGePoint3d start, end;
};
struct PointGeometry {
    OdGePoint3d position;
};
struct CircleGeometry {
    OdGePoint3d center;
    double radius = 0;
    OdGeVector3d normal{0, 0, 1};
};
struct ArcGeometry {
    OdGePoint3d center;
    double radius = 0;
    double startAngle = 0, endAngle = 0;
    OdGeVector3d normal{0, 0, 1};
};
struct EllipseGeometry {
    OdGePoint3d center;
    OdGeVector3d majorAxis; // from the centre to its end
    double ratio = 1;       // minor to major
    double startParameter = 0, endParameter = 0;
    OdGeVector3d normal{0, 0, 1};
};
struct PolylineVertex {
    OdGePoint3d position;
    double startWidth = 0, endWidth = 0;
    double bulge = 0; // tangent of a quarter of the arc's angle to the next vertex, positive counter-clockwise
};
struct PolylineGeometry {
    std::vector<PolylineVertex> vertices;
    bool closed = false;
    bool is3d = false; // coordinates are the world's
    OdGeVector3d normal{0, 0, 1};
};
struct SolidGeometry {
    // In the order of the outline, not the file's.
    OdGePoint3d corners[4];
    OdGeVector3d normal{0, 0, 1};
};
// TEXT, ATTRIB and ATTDEF.
struct TextGeometry {
    OdString text;
    OdGePoint3d position;
    std::optional<OdGePoint3d> alignment; // where the text is not left-aligned at its baseline
    double height = 0;
    double rotation = 0;
    double widthFactor = 1;
    double oblique = 0;
    int horizontal = 0, vertical = 0; // group codes 72, and 73 or 74
    bool backwards = false, upsideDown = false;
    bool invisible = false; // an attribute that isn't shown
    OdString style;
    OdGeVector3d normal{0, 0, 1};
};
struct MTextGeometry {
    OdString contents; // with its formatting codes
    OdString plain;    // without them, lines parted by '\n'
    OdGePoint3d position;
    double height = 0;
    double width = 0; // of the column; 0 for no breaking
    double rotation = 0;
    int attachment = 1; // 1 top left to 9 bottom right, row by row
    OdString style;
    OdGeVector3d normal{0, 0, 1};
};
struct InsertGeometry {
    OdString block;
    OdGePoint3d position;
    OdGeVector3d scale{1, 1, 1};
    double rotation = 0;
    int columns = 1, rows = 1;
    double columnSpacing = 0, rowSpacing = 0;
    OdGeVector3d normal{0, 0, 1};
};

struct SplineGeometry {
    int degree = 3;
    bool closed = false;
    std::vector<double> knots;   // as many as control points and the degree and one more, or useless
    std::vector<double> weights; // empty, or one for every control point
    std::vector<OdGePoint3d> control;
    std::vector<OdGePoint3d> fit; // used where there are no control points
};
// A 3DFACE, in world coordinates.
struct FaceGeometry {
    OdGePoint3d corners[4];
    bool hidden[4] = {}; // the edge from that corner to the next
};
struct HatchEdge {
    enum Kind : std::uint8_t { kLine, kArc, kEllipse, kSpline } kind = kLine;
    OdGePoint2d start, end;  // of a line; the centre, and of an ellipse the end of its major axis from there
    double radius = 0;       // of an ellipse the minor axis' part of the major one
    double from = 0, to = 0; // parameters, measured the way the edge runs
    bool counterClockwise = true;
    SplineGeometry spline;
};
struct HatchLoop {
    std::vector<PolylineVertex> vertices; // of a loop that is a polyline; else empty
    std::vector<HatchEdge> edges;
};
struct HatchLine {
    double angle = 0;
    OdGePoint2d base;
    OdGeVector2d offset; // from one line to the next
    std::vector<double> dashes;
};
struct HatchGeometry {
    std::vector<HatchLoop> loops; // what lies in an even number of them is left free
    std::vector<HatchLine> lines; // of the pattern
    bool solid = false;
    std::optional<OdCmColor> gradient; // the mean of the colours it goes through; a solid fill
    double elevation = 0;
    OdGeVector3d normal{0, 0, 1};
};
// A leader's lines with their text, in world coordinates.
struct NoteGeometry {
    std::vector<std::vector<OdGePoint3d>> lines;
    double arrowSize = 0; // at the first point of each line
    bool curved = false;  // through the points of each line
    std::optional<MTextGeometry> text;
};
struct DimensionGeometry {
    OdString block;            // holds its picture
    OdGePoint3d line;          // on the dimension line
    OdGePoint3d first, second; // what is measured
};
// A picture's outline in world coordinates.
struct FrameGeometry {
    std::vector<OdGePoint3d> corners;
    bool mask = false; // hides what lies below
    OdString file;     // what it shows
};
struct RayGeometry {
    OdGePoint3d base;
    OdGeVector3d direction;
    bool both = false; // without end in both directions
};
// Edges of meshes and lines side by side, in world coordinates.
struct LinesGeometry {
    std::vector<std::vector<OdGePoint3d>> lines;
};

using EntityGeometry = std::variant<std::monostate, LineGeometry, PointGeometry, CircleGeometry, ArcGeometry,
                                    EllipseGeometry, PolylineGeometry, SolidGeometry, TextGeometry,
                                    MTextGeometry, InsertGeometry, SplineGeometry, FaceGeometry, HatchGeometry,
                                    NoteGeometry, DimensionGeometry, FrameGeometry, RayGeometry, LinesGeometry>;

// By the entity's type; std::monostate for kinds not listed here and for erased ids. Values missing or
// unreadable in the file are what the record's members start with.
KXPLATFORM_EXPORT EntityGeometry geometryOf(OdDbObjectId entity);

// Multiline text without its formatting codes.
KXPLATFORM_EXPORT OdString plainMText(std::wstring_view contents);

// A point of the plane with that normal (any length; a null vector counts as the z axis) in world coordinates,
// by the file format's arbitrary axis rule.
KXPLATFORM_EXPORT OdGePoint3d toWorld(const OdGePoint3d& point, const OdGeVector3d& normal);

} // namespace tv::dwg
