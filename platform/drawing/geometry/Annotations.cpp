#include "platform/drawing/geometry/Reader.h"

#include <string>

// Leaders, tolerances, dimensions, tables, and the frames of pictures.
namespace tv::dwg::geometry {

// Along its points, or curved through them.
EntityGeometry leader(Reader in) {
    PolylineGeometry out;
    out.is3d = true;
    bool curved = false;
    while (in.next()) {
        if (in.code() == 72 && out.vertices.empty()) curved = in.integer() == 1;
        if (in.code() == 10) out.vertices.push_back({{in.real(), 0, 0}, 0, 0, 0});
        if (out.vertices.empty()) continue;
        if (in.code() == 20) out.vertices.back().position.y = in.real();
        if (in.code() == 30) out.vertices.back().position.z = in.real();
    }
    if (!curved || out.vertices.size() < 3) return out;
    SplineGeometry curve;
    for (const PolylineVertex& vertex : out.vertices)
        curve.fit.push_back(vertex.position);
    return curve;
}

// Its context data nest: CONTEXT_DATA{ LEADER{ LEADER_LINE{ } } }, each ended by a closing brace of its own
// code.
NoteGeometry multileader(Reader in) {
    NoteGeometry out;
    MTextGeometry text;
    OdGeVector3d direction;
    enum : std::uint8_t { kOutside, kContext, kLeader, kLine, kPast } state = kOutside;
    OdGePoint3d landing;
    std::size_t firstLine = 0; // of the leader that is being read
    while (in.next()) {
        const int code = in.code();
        if (code == 300 && state == kOutside) {
            state = kContext;
        } else if (code == 302 && state == kContext) {
            state = kLeader;
            firstLine = out.lines.size();
            landing = {};
        } else if (code == 304 && state == kLeader) {
            state = kLine;
            out.lines.emplace_back();
        } else if (code == 305 && state == kLine) {
            state = kLeader;
        } else if (code == 303 && state == kLeader) {
            state = kContext;
            for (std::size_t i = firstLine; i < out.lines.size(); ++i)
                out.lines[i].push_back(landing);
        } else if (code == 301 && state == kContext) {
            state = kPast; // what follows repeats or styles it
        } else if (state == kPast) {
            if (code != 170) continue;
            out.curved = in.integer() == 2;
            break;
        } else if (state == kLine) {
            auto& line = out.lines.back();
            if (code == 10) line.push_back({in.real(), 0, 0});
            if (line.empty()) continue;
            if (code == 20) line.back().y = in.real();
            if (code == 30) line.back().z = in.real();
        } else if (state == kLeader) {
            in.point(10, landing);
        } else if (state == kContext) {
            if (in.point(12, text.position) || in.vector(11, text.normal) || in.vector(13, direction)) continue;
            if (code == 304) text.contents = in.text();
            if (code == 41) text.height = in.real();
            if (code == 43) text.width = in.real();
            if (code == 42) text.rotation = in.real();
            if (code == 140) out.arrowSize = in.real();
            if (code == 171) text.attachment = in.integer(); // 1 left, 2 centre, 3 right: the top row's
        }
    }
    text.plain = plainMText(text.contents.view());
    if (!text.plain.isEmpty()) out.text = std::move(text);
    return out;
}

NoteGeometry tolerance(Reader in) {
    NoteGeometry out;
    MTextGeometry text;
    text.attachment = 4;
    OdGeVector3d direction{1, 0, 0};
    while (in.next()) {
        if (in.point(10, text.position) || in.vector(11, direction) || in.vector(210, text.normal)) continue;
        if (in.code() == 1) text.contents = in.text();
    }
    // Frames are parted by %%v, rows by ^J; symbols of a font of their own show as their letters.
    std::wstring plain = plainMText(text.contents.view()).wstr();
    for (std::size_t i = 0; (i = plain.find(L"%%v", i)) != std::wstring::npos;)
        plain.replace(i, 3, L" | ");
    text.plain = OdString(std::move(plain));
    text.rotation = std::atan2(direction.y, direction.x);
    out.text = std::move(text);
    return out;
}

DimensionGeometry dimension(Reader in) {
    DimensionGeometry out;
    while (in.next()) {
        if (in.point(10, out.line) || in.point(13, out.first) || in.point(14, out.second)) continue;
        if (in.code() == 2 && out.block.isEmpty()) out.block = in.text();
    }
    return out;
}

InsertGeometry table(Reader in) {
    InsertGeometry out;
    OdGeVector3d direction{1, 0, 0};
    bool named = false, placed = false;
    while (in.next()) {
        if (in.code() == 10 && placed) break; // the cells' own
        if (in.point(10, out.position) || in.vector(11, direction) || in.vector(210, out.normal)) {
            placed |= in.code() == 30;
            continue;
        }
        if (in.code() == 2 && !named) {
            out.block = in.text();
            named = true;
        }
        if (in.code() == 91) break;
    }
    out.rotation = std::atan2(direction.y, direction.x);
    return out;
}

// The corners are pixels of the picture, whose upper left one's middle is the origin.
FrameGeometry image(Reader in, OdDbDatabase& database, bool mask) {
    FrameGeometry out;
    out.mask = mask;
    OdGePoint3d origin;
    OdGeVector3d u, v;
    OdGePoint3d size;
    int kind = 1;
    std::vector<OdGePoint2d> clip;
    while (in.next()) {
        if (in.point(10, origin) || in.vector(11, u) || in.vector(12, v) || in.corner(14, clip) ||
            in.file(database, out.file))
            continue;
        switch (in.code()) {
        case 13:
            size.x = in.real();
            break;
        case 23:
            size.y = in.real();
            break;
        case 71:
            kind = in.integer();
            break;
        default:
            break;
        }
    }
    if (clip.size() < 2) clip = {{-0.5, -0.5}, {size.x - 0.5, size.y - 0.5}};
    if (kind == 1 || clip.size() == 2) {
        const OdGePoint2d a = clip[0], b = clip[1];
        clip = {a, {b.x, a.y}, b, {a.x, b.y}};
    }
    for (const OdGePoint2d& corner : clip) {
        const double x = corner.x + 0.5, y = size.y - (corner.y + 0.5); // rows count from the top
        out.corners.push_back(
            {origin.x + u.x * x + v.x * y, origin.y + u.y * x + v.y * y, origin.z + u.z * x + v.z * y});
    }
    return out;
}

FrameGeometry underlay(Reader in, OdDbDatabase& database) {
    FrameGeometry out;
    OdGePoint3d origin;
    OdGeVector3d scale{1, 1, 1}, normal{0, 0, 1};
    double angle = 0;
    std::vector<OdGePoint2d> clip;
    while (in.next()) {
        if (in.point(10, origin) || in.vector(210, normal) || in.corner(11, clip) ||
            in.file(database, out.file))
            continue;
        switch (in.code()) {
        case 41:
            scale.x = in.real();
            break;
        case 42:
            scale.y = in.real();
            break;
        case 50:
            angle = radians(in.real());
            break;
        default:
            break;
        }
    }
    if (clip.size() == 2) clip = {clip[0], {clip[1].x, clip[0].y}, clip[1], {clip[0].x, clip[1].y}};
    // Only the file itself says how large a whole sheet is.
    if (clip.empty()) clip = {{0, 0}, {1, 0}, {1, 1}, {0, 1}};
    const double c = std::cos(angle), s = std::sin(angle);
    for (const OdGePoint2d& corner : clip) {
        const double x = corner.x * scale.x, y = corner.y * scale.y;
        out.corners.push_back(toWorld({origin.x + x * c - y * s, origin.y + x * s + y * c, origin.z}, normal));
    }
    return out;
}

} // namespace tv::dwg::geometry
