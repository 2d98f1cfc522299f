#include "platform/drawing/EntityGeometry.h"

#include "platform/drawing/OdDbEntity.h"
#include "platform/drawing/entities/MTextRuns.h"
#include "platform/drawing/geometry/Reader.h"

#include <cmath>
#include <numbers>
#include <string_view>
#include <unordered_map>

namespace tv::dwg {
namespace {

using geometry::radians;
using geometry::Reader;

EntityGeometry line(Reader in) {
    LineGeometry out;
    while (in.next())
        if (!in.point(10, out.start)) in.point(11, out.end);
    return out;
}

EntityGeometry point(Reader in) {
    PointGeometry out;
    while (in.next())
        in.point(10, out.position);
    return out;
}

EntityGeometry circle(Reader in) {
    CircleGeometry out;
    while (in.next()) {
        if (in.point(10, out.center) || in.vector(210, out.normal)) continue;
        if (in.code() == 40) out.radius = in.real();
    }
    return out;
}

EntityGeometry arc(Reader in) {
    ArcGeometry out;
    while (in.next()) {
        if (in.point(10, out.center) || in.vector(210, out.normal)) continue;
        if (in.code() == 40) out.radius = in.real();
        if (in.code() == 50) out.startAngle = radians(in.real());
        if (in.code() == 51) out.endAngle = radians(in.real());
    }
    return out;
}

EntityGeometry ellipse(Reader in) {
    EllipseGeometry out;
    out.endParameter = 2 * std::numbers::pi;
    while (in.next()) {
        if (in.point(10, out.center) || in.vector(11, out.majorAxis) || in.vector(210, out.normal)) continue;
        if (in.code() == 40) out.ratio = in.real();
        if (in.code() == 41) out.startParameter = in.real();
        if (in.code() == 42) out.endParameter = in.real();
    }
    return out;
}

EntityGeometry solid(Reader in) {
    SolidGeometry out;
    OdGePoint3d last;
    bool hasLast = false;
    while (in.next()) {
        if (in.point(10, out.corners[0]) || in.point(11, out.corners[1]) || in.point(12, out.corners[3]) ||
            in.vector(210, out.normal))
            continue;
        hasLast |= in.point(13, last);
    }
    // A triangle may leave its fourth corner out.
    out.corners[2] = hasLast ? last : out.corners[3];
    return out;
}

EntityGeometry lightPolyline(Reader in) {
    PolylineGeometry out;
    double width = 0;
    double elevation = 0;
    while (in.next()) {
        if (in.vector(210, out.normal)) continue;
        PolylineVertex* const vertex = out.vertices.empty() ? nullptr : &out.vertices.back();
        switch (in.code()) {
        case 10:
            out.vertices.push_back({{in.real(), 0, elevation}, width, width, 0});
            break;
        case 20:
            if (vertex) vertex->position.y = in.real();
            break;
        case 38:
            elevation = in.real();
            break;
        case 40:
            if (vertex) vertex->startWidth = in.real();
            break;
        case 41:
            if (vertex) vertex->endWidth = in.real();
            break;
        case 42:
            if (vertex) vertex->bulge = in.real();
            break;
        case 43:
            width = in.real();
            break;
        case 70:
            out.closed = (in.integer() & 1) != 0;
            break;
        default:
            break;
        }
    }
    return out;
}

EntityGeometry polyline(OdDbObjectId id) {
    PolylineGeometry out;
    double startWidth = 0;
    double endWidth = 0;
    int flags = 0;
    OdGePoint3d elevation;
    for (Reader in(id); in.next();) {
        if (in.vector(210, out.normal) || in.point(10, elevation)) continue;
        if (in.code() == 40) startWidth = in.real();
        if (in.code() == 41) endWidth = in.real();
        if (in.code() == 70) flags = in.integer();
    }
    out.closed = (flags & 1) != 0;
    out.is3d = (flags & 8) != 0;
    if (flags & (16 | 64)) return geometry::polylineMesh(id, flags);
    for (const OdDbObjectId sub : subEntities(id)) {
        PolylineVertex vertex{{0, 0, elevation.z}, startWidth, endWidth, 0};
        int kind = 0;
        for (Reader in(sub); in.next();) {
            if (in.point(10, vertex.position)) continue;
            if (in.code() == 40) vertex.startWidth = in.real();
            if (in.code() == 41) vertex.endWidth = in.real();
            if (in.code() == 42) vertex.bulge = in.real();
            if (in.code() == 70) kind = in.integer();
        }
        // The control points of a fitted curve frame it and are no part of it.
        const bool frame = (kind & 16) != 0;
        if (id.database()->store().record(sub.record()).type == kTypeVertex && !frame)
            out.vertices.push_back(vertex);
    }
    return out;
}

EntityGeometry text(Reader in, bool attribute) {
    TextGeometry out;
    OdGePoint3d alignment;
    bool aligned = false;
    while (in.next()) {
        if (in.point(10, out.position) || in.vector(210, out.normal)) continue;
        if (in.point(11, alignment)) {
            aligned = true;
            continue;
        }
        switch (in.code()) {
        case 1:
            out.text = in.text();
            break;
        case 7:
            out.style = in.text();
            break;
        case 40:
            out.height = in.real();
            break;
        case 41:
            out.widthFactor = in.real();
            break;
        case 50:
            out.rotation = radians(in.real());
            break;
        case 51:
            out.oblique = radians(in.real());
            break;
        case 70:
            out.invisible = attribute && (in.integer() & 1) != 0;
            break;
        case 71:
            out.backwards = (in.integer() & 2) != 0;
            out.upsideDown = (in.integer() & 4) != 0;
            break;
        case 72:
            out.horizontal = in.integer();
            break;
        case 73:
            if (!attribute) out.vertical = in.integer();
            break;
        case 74:
            if (attribute) out.vertical = in.integer();
            break;
        default:
            break;
        }
    }
    if (aligned && (out.horizontal != 0 || out.vertical != 0)) out.alignment = alignment;
    return out;
}

EntityGeometry multilineText(Reader in) {
    MTextGeometry out;
    std::wstring contents;
    OdGeVector3d direction;
    bool directed = false;
    while (in.next()) {
        if (in.point(10, out.position) || in.vector(210, out.normal)) continue;
        if (in.vector(11, direction)) {
            directed = true;
            continue;
        }
        switch (in.code()) {
        case 1:
        case 3:
            contents += in.text().view();
            break;
        case 7:
            out.style = in.text();
            break;
        case 40:
            out.height = in.real();
            break;
        case 41:
            out.width = in.real();
            break;
        case 50:
            out.rotation = in.real(); // radians here, unlike everywhere else
            directed = false;
            break;
        case 71:
            out.attachment = in.integer();
            break;
        default:
            break;
        }
    }
    // An angle is measured from the world's x axis whichever way the normal points, as the direction it stands
    // for would be. Only where that runs along the normal the plane's own axis is taken.
    if (!directed) {
        direction = {std::cos(out.rotation), std::sin(out.rotation), 0};
        const OdGeVector3d& n = out.normal;
        const double across = std::hypot(n.z, n.x * direction.y - n.y * direction.x);
        if (across <= 1e-9 * n.length()) {
            const OdGePoint3d along = toWorld({1, 0, 0}, n);
            direction = {along.x, along.y, along.z};
        }
    }
    out.rotation = std::atan2(direction.y, direction.x);
    out.plain = plainMText(contents);
    out.contents = OdString(std::move(contents));
    return out;
}

EntityGeometry insert(Reader in) {
    InsertGeometry out;
    while (in.next()) {
        if (in.point(10, out.position) || in.vector(210, out.normal)) continue;
        switch (in.code()) {
        case 2:
            out.block = in.text();
            break;
        case 41:
            out.scale.x = in.real();
            break;
        case 42:
            out.scale.y = in.real();
            break;
        case 43:
            out.scale.z = in.real();
            break;
        case 44:
            out.columnSpacing = in.real();
            break;
        case 45:
            out.rowSpacing = in.real();
            break;
        case 50:
            out.rotation = radians(in.real());
            break;
        case 70:
            out.columns = in.integer();
            break;
        case 71:
            out.rows = in.integer();
            break;
        default:
            break;
        }
    }
    return out;
}

using Decode = EntityGeometry (*)(OdDbObjectId);

const std::unordered_map<std::string_view, Decode>& rareKinds() {
    using Id = OdDbObjectId;
    static constexpr auto underlay = [](Id id) -> EntityGeometry {
        return geometry::underlay(Reader(id), *id.database());
    };
    static const std::unordered_map<std::string_view, Decode> kinds{
        {"SPLINE", [](Id id) -> EntityGeometry { return geometry::spline(Reader(id)); }},
        {"3DFACE", [](Id id) -> EntityGeometry { return geometry::face(Reader(id)); }},
        {"HATCH", [](Id id) -> EntityGeometry { return geometry::hatch(Reader(id)); }},
        {"MPOLYGON", [](Id id) -> EntityGeometry { return geometry::hatch(Reader(id)); }},
        {"LEADER", [](Id id) -> EntityGeometry { return geometry::leader(Reader(id)); }},
        {"MULTILEADER", [](Id id) -> EntityGeometry { return geometry::multileader(Reader(id)); }},
        {"TOLERANCE", [](Id id) -> EntityGeometry { return geometry::tolerance(Reader(id)); }},
        {"DIMENSION", [](Id id) -> EntityGeometry { return geometry::dimension(Reader(id)); }},
        {"ARC_DIMENSION", [](Id id) -> EntityGeometry { return geometry::dimension(Reader(id)); }},
        {"LARGE_RADIAL_DIMENSION", [](Id id) -> EntityGeometry { return geometry::dimension(Reader(id)); }},
        {"ACAD_TABLE", [](Id id) -> EntityGeometry { return geometry::table(Reader(id)); }},
        {"IMAGE", [](Id id) -> EntityGeometry { return geometry::image(Reader(id), *id.database(), false); }},
        {"WIPEOUT", [](Id id) -> EntityGeometry { return geometry::image(Reader(id), *id.database(), true); }},
        {"PDFUNDERLAY", underlay},
        {"DWFUNDERLAY", underlay},
        {"DGNUNDERLAY", underlay},
        {"RAY", [](Id id) -> EntityGeometry { return geometry::ray(Reader(id), false); }},
        {"XLINE", [](Id id) -> EntityGeometry { return geometry::ray(Reader(id), true); }},
        {"MLINE", [](Id id) -> EntityGeometry { return geometry::multiline(Reader(id)); }},
        {"MESH", [](Id id) -> EntityGeometry { return geometry::mesh(Reader(id)); }},
    };
    return kinds;
}

} // namespace

EntityGeometry geometryOf(OdDbObjectId entity) {
    if (entity.isErased()) return {};
    const std::string_view type = entity.database()->store().typeName(entity.record());
    if (type == "LINE") return line(Reader(entity));
    if (type == "POINT") return point(Reader(entity));
    if (type == "CIRCLE") return circle(Reader(entity));
    if (type == "ARC") return arc(Reader(entity));
    if (type == "ELLIPSE") return ellipse(Reader(entity));
    if (type == "LWPOLYLINE") return lightPolyline(Reader(entity));
    if (type == "POLYLINE") return polyline(entity);
    if (type == "SOLID" || type == "TRACE") return solid(Reader(entity));
    if (type == "TEXT") return text(Reader(entity), false);
    if (type == "ATTRIB" || type == "ATTDEF") return text(Reader(entity), true);
    if (type == "MTEXT") return multilineText(Reader(entity));
    if (type == "INSERT") return insert(Reader(entity));
    const auto rare = rareKinds().find(type);
    if (rare != rareKinds().end()) return rare->second(entity);
    return {};
}

OdString plainMText(std::wstring_view contents) { return plainText(contents); }

// The x axis is square to the normal and to the world's z axis, or to its y axis where the normal almost is the
// z axis.
OdGePoint3d toWorld(const OdGePoint3d& p, const OdGeVector3d& normal) {
    const double length = normal.length();
    if (length == 0 || (normal.x == 0 && normal.y == 0 && normal.z > 0)) return p;
    const OdGeVector3d z{normal.x / length, normal.y / length, normal.z / length};
    constexpr double kNear = 1.0 / 64;
    OdGeVector3d x = std::abs(z.x) < kNear && std::abs(z.y) < kNear ? OdGeVector3d{z.z, 0, -z.x}
                                                                    : OdGeVector3d{-z.y, z.x, 0};
    const double xLength = x.length();
    x = {x.x / xLength, x.y / xLength, x.z / xLength};
    const OdGeVector3d y{z.y * x.z - z.z * x.y, z.z * x.x - z.x * x.z, z.x * x.y - z.y * x.x};
    return {p.x * x.x + p.y * y.x + p.z * z.x, p.x * x.y + p.y * y.y + p.z * z.y,
            p.x * x.z + p.y * y.z + p.z * z.z};
}

} // namespace tv::dwg
