#include "tavocad/scene/HatchFill.h"

#include "tavocad/scene/Flatten.h"

#include <algorithm>
#include <cmath>
#include <numbers>

namespace tv::scene {
namespace {

using namespace tv::dwg;
using Loop = std::vector<OdGePoint3d>;

constexpr double mostLines = 4000;        // of one family of a pattern
constexpr double mostCrossings = 2e6;     // lines times sides of the outlines
constexpr std::size_t mostDashes = 20000; // of one hatch

void addArc(Loop& loop, const HatchEdge& edge, const OdGeVector3d& major, const OdGeVector3d& minor) {
    const double to = angleAfter(edge.from, edge.to);
    Loop points;
    // One that runs clockwise has its parameters measured that way.
    const double turn = edge.counterClockwise ? 1 : -1;
    flattenArc(points, {edge.start.x, edge.start.y, 0}, major, {minor.x * turn, minor.y * turn, 0}, edge.from,
               to);
    loop.insert(loop.end(), points.begin(), points.end());
}

Loop flattened(const HatchLoop& loop, double elevation) {
    Loop points;
    const std::size_t count = loop.vertices.size();
    if (count > 0) points.push_back(loop.vertices[0].position);
    for (std::size_t i = 1; i <= count && count > 1; ++i)
        flattenBulge(points, loop.vertices[i - 1].position, loop.vertices[i % count].position,
                     loop.vertices[i - 1].bulge);
    for (const HatchEdge& edge : loop.edges) {
        switch (edge.kind) {
        case HatchEdge::kLine:
            points.push_back({edge.start.x, edge.start.y, 0});
            points.push_back({edge.end.x, edge.end.y, 0});
            break;
        case HatchEdge::kArc:
            addArc(points, edge, {edge.radius, 0, 0}, {0, edge.radius, 0});
            break;
        case HatchEdge::kEllipse:
            addArc(points, edge, {edge.end.x, edge.end.y, 0},
                   {-edge.end.y * edge.radius, edge.end.x * edge.radius, 0});
            break;
        case HatchEdge::kSpline:
            flattenSpline(points, edge.spline);
            break;
        }
    }
    std::erase_if(points, [](const OdGePoint3d& p) { return !isSomewhere(OdGePoint2d{p.x, p.y}); });
    for (OdGePoint3d& point : points)
        point.z = elevation;
    return points;
}

struct Dashes {
    std::vector<OdGePoint3d> ends; // two for each
    bool tooMany = false;
};

void fillWith(const HatchLine& family, const std::vector<Loop>& loops, double elevation, std::size_t most,
              Dashes& out) {
    const double c = std::cos(family.angle), s = std::sin(family.angle);
    // Along the lines and across them, from the family's base point.
    auto along = [&](double x, double y) { return (x - family.base.x) * c + (y - family.base.y) * s; };
    auto across = [&](double x, double y) { return (y - family.base.y) * c - (x - family.base.x) * s; };
    const double step = family.offset.y * c - family.offset.x * s;
    const double shift = family.offset.x * c + family.offset.y * s;
    double low = 0, high = 0;
    std::size_t sides = 0;
    bool any = false;
    for (const Loop& loop : loops)
        for (const OdGePoint3d& p : loop) {
            const double height = across(p.x, p.y);
            low = any ? std::min(low, height) : height;
            high = any ? std::max(high, height) : height;
            any = true;
            ++sides;
        }
    const double first = std::ceil(std::min(low / step, high / step)),
                 last = std::floor(std::max(low / step, high / step));
    if (!(std::abs(first) < 1e15) || !(std::abs(last) < 1e15) || last - first > mostLines ||
        (last - first + 1) * static_cast<double>(sides) > mostCrossings) {
        out.tooMany = true;
        return;
    }
    double period = 0;
    for (const double dash : family.dashes)
        period += std::abs(dash);
    const bool whole = !(period > 0) || family.dashes.size() > 64;
    std::vector<double> crossings;
    for (double k = first; k <= last; ++k) {
        const double height = k * step;
        crossings.clear();
        for (const Loop& loop : loops)
            for (std::size_t i = 0; i < loop.size(); ++i) {
                const OdGePoint3d &a = loop[i], &b = loop[(i + 1) % loop.size()];
                const double ha = across(a.x, a.y), hb = across(b.x, b.y);
                if ((ha <= height) == (hb <= height)) continue;
                const double t = (height - ha) / (hb - ha);
                crossings.push_back(along(a.x + (b.x - a.x) * t, a.y + (b.y - a.y) * t));
            }
        std::sort(crossings.begin(), crossings.end());
        auto dash = [&](double from, double to) {
            for (const double x : {from, to})
                out.ends.push_back(
                    {family.base.x + x * c - height * s, family.base.y + x * s + height * c, elevation});
        };
        for (std::size_t i = 0; i + 1 < crossings.size(); i += 2) {
            const double from = crossings[i], to = crossings[i + 1];
            if (whole) {
                dash(from, to);
            } else {
                const double start = k * shift;
                double at = start + std::floor((from - start) / period) * period;
                if ((to - at) / period * static_cast<double>(family.dashes.size()) >
                    static_cast<double>(most)) {
                    out.tooMany = true;
                    return;
                }
                while (at < to)
                    for (const double length : family.dashes) {
                        const double end = at + std::abs(length);
                        if (length >= 0 && end >= from && at <= to) dash(std::max(at, from), std::min(end, to));
                        at = end;
                    }
            }
            if (out.ends.size() > most * 2) {
                out.tooMany = true;
                return;
            }
        }
    }
}

} // namespace

void drawHatch(Pen& pen, const HatchGeometry& hatch, std::size_t& room) {
    std::vector<Loop> loops;
    for (const HatchLoop& loop : hatch.loops)
        if (Loop points = flattened(loop, hatch.elevation); points.size() > 1)
            loops.push_back(std::move(points));
    if (loops.empty()) return;
    const Transform plane = planeToWorld(hatch.normal);
    const std::size_t most = std::min(mostDashes, room);
    Dashes dashes;
    if (!hatch.solid)
        for (const HatchLine& family : hatch.lines)
            if (!dashes.tooMany) fillWith(family, loops, hatch.elevation, most, dashes);
    if (hatch.solid || dashes.tooMany || hatch.lines.empty()) {
        pen.begin(Item::Kind::area, static_cast<std::uint8_t>(Item::evenOdd | (hatch.solid ? 0 : Item::pale)));
        for (const Loop& loop : loops)
            pen.more(loop, plane);
        pen.end();
        if (hatch.solid) return;
        pen.begin(Item::Kind::stroke, Item::solidLine);
        for (Loop& loop : loops) {
            loop.push_back(loop.front());
            pen.more(loop, plane);
        }
        pen.end();
        return;
    }
    room -= std::min(room, dashes.ends.size() / 2);
    pen.begin(Item::Kind::stroke, Item::solidLine);
    for (std::size_t i = 0; i + 1 < dashes.ends.size(); i += 2)
        pen.more({&dashes.ends[i], 2}, plane);
    pen.end();
}

} // namespace tv::scene
