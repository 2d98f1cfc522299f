#include "tavocad/scene/WidePolyline.h"

#include "tavocad/scene/Flatten.h"

#include <algorithm>
#include <cmath>

namespace tv::scene {

namespace {

using tv::dwg::PolylineGeometry;
using tv::dwg::PolylineVertex;

constexpr double sharpest = 0.2; // 1 + cosine of the turn; below it corners are left open

struct Across { // to the left of the direction, in the plane
    double x = 0, y = 0;
};

double usable(double width) { return std::isfinite(width) && width > 0 ? width : 0; }

struct Segment {
    std::vector<OdGePoint3d> points; // at least two, none on top of the one before
    double startHalf = 0, endHalf = 0;
    Across start, end; // where its outline begins and ends, for a half width of one
    bool wide() const { return startHalf > 0 || endHalf > 0; }
};

Across acrossOf(const OdGePoint3d& a, const OdGePoint3d& b) {
    const double dx = b.x - a.x, dy = b.y - a.y, length = std::hypot(dx, dy);
    return {-dy / length, dx / length};
}

// The way to the corner in which two offset lines meet. False when it is too far out.
bool mitre(const Across& a, const Across& b, Across& out) {
    const double onePlusCosine = 1 + a.x * b.x + a.y * b.y;
    if (onePlusCosine < sharpest) return false;
    out = {(a.x + b.x) / onePlusCosine, (a.y + b.y) / onePlusCosine};
    return true;
}

std::vector<Segment> segmentsOf(const PolylineGeometry& line) {
    std::vector<Segment> segments;
    const std::size_t count = line.vertices.size();
    for (std::size_t i = 1; i < count + (line.closed && count > 1); ++i) {
        const PolylineVertex &from = line.vertices[i - 1], &to = line.vertices[i % count];
        if (!(std::hypot(to.position.x - from.position.x, to.position.y - from.position.y) > 0)) continue;
        Segment segment;
        segment.points.push_back(from.position);
        flattenBulge(segment.points, from.position, to.position, from.bulge);
        segment.startHalf = usable(from.startWidth) / 2;
        segment.endHalf = usable(from.endWidth) / 2;
        segment.start = acrossOf(segment.points[0], segment.points[1]);
        segment.end = acrossOf(segment.points.end()[-2], segment.points.back());
        segments.push_back(std::move(segment));
    }
    return segments;
}

void join(Segment& before, Segment& after) {
    Across corner;
    if (before.endHalf != after.startHalf || !mitre(before.end, after.start, corner)) return;
    before.end = after.start = corner;
}

PolylineParts::Points outlineOf(const Segment& segment) {
    const auto& points = segment.points;
    const std::size_t last = points.size() - 1;
    PolylineParts::Points outline, back;
    for (std::size_t i = 0; i <= last; ++i) {
        Across across = i == 0 ? segment.start : segment.end;
        if (i > 0 && i < last)
            mitre(acrossOf(points[i - 1], points[i]), acrossOf(points[i], points[i + 1]), across);
        const double along = static_cast<double>(i) / static_cast<double>(last);
        const double half = segment.startHalf + (segment.endHalf - segment.startHalf) * along;
        const OdGePoint3d& p = points[i];
        outline.push_back({p.x + across.x * half, p.y + across.y * half, p.z});
        back.push_back({p.x - across.x * half, p.y - across.y * half, p.z});
    }
    outline.insert(outline.end(), back.rbegin(), back.rend());
    return outline;
}

} // namespace

bool hasWidth(const PolylineGeometry& line) {
    return std::ranges::any_of(line.vertices, [](const PolylineVertex& vertex) {
        return usable(vertex.startWidth) > 0 || usable(vertex.endWidth) > 0;
    });
}

PolylineParts partsOf(const PolylineGeometry& line) {
    std::vector<Segment> segments = segmentsOf(line);
    for (std::size_t i = 1; i < segments.size(); ++i)
        join(segments[i - 1], segments[i]);
    if (line.closed && segments.size() > 1) join(segments.back(), segments.front());
    PolylineParts parts;
    for (Segment& segment : segments) {
        if (segment.wide())
            parts.areas.push_back(outlineOf(segment));
        else
            parts.lines.push_back(std::move(segment.points));
    }
    return parts;
}

} // namespace tv::scene
