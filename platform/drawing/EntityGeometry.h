#pragma once

#include "platform/Export.h"
#include "platform/drawing/Geometry.h"
#include "platform/drawing/OdDbObjectId.h"
#include "platform/text/OdString.h"

#include <optional>
#include <variant>
#include <vector>

// What a drawing window draws, decoded from an entity's record when asked for. Lengths and coordinates are
// drawing units, angles radians counter-clockwise. Planar entities (all but line, point, 3D polyline and
// ellipse) have their coordinates in the plane that `normal` stands on; toWorld turns those into world
// coordinates.
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
    std::vector<PolylineVertex> vertices; // a mesh's vertices and faces are left out
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

using EntityGeometry =
    std::variant<std::monostate, LineGeometry, PointGeometry, CircleGeometry, ArcGeometry, EllipseGeometry,
                 PolylineGeometry, SolidGeometry, TextGeometry, MTextGeometry, InsertGeometry>;

// By the entity's type; std::monostate for kinds not listed here and for erased ids. Values missing or
// unreadable in the file are what the record's members start with.
KXPLATFORM_EXPORT EntityGeometry geometryOf(OdDbObjectId entity);

// Multiline text without its formatting codes.
KXPLATFORM_EXPORT OdString plainMText(std::wstring_view contents);

// A point of the plane with that normal (any length; a null vector counts as the z axis) in world coordinates,
// by the file format's arbitrary axis rule.
KXPLATFORM_EXPORT OdGePoint3d toWorld(const OdGePoint3d& point, const OdGeVector3d& normal);

} // namespace tv::dwg
