#include "tavocad/scene/Flatten.h"
#include "tavocad/scene/Scene.h"

#include <algorithm>
#include <cmath>

// What lies at a point, in a box or in a polygon.
namespace tv::scene {
namespace {

using Points = std::span<const OdGePoint2d>;

double distanceTo(OdGePoint2d p, OdGePoint2d a, OdGePoint2d b) {
    const double dx = b.x - a.x, dy = b.y - a.y, square = dx * dx + dy * dy;
    const double t = square > 0 ? std::clamp(((p.x - a.x) * dx + (p.y - a.y) * dy) / square, 0.0, 1.0) : 0;
    return std::hypot(p.x - a.x - t * dx, p.y - a.y - t * dy);
}

// Which side of the line from a to b the point lies on.
double side(OdGePoint2d a, OdGePoint2d b, OdGePoint2d p) {
    return (b.x - a.x) * (p.y - a.y) - (b.y - a.y) * (p.x - a.x);
}

bool within(OdGePoint2d a, OdGePoint2d b, OdGePoint2d p) {
    return std::min(a.x, b.x) <= p.x && p.x <= std::max(a.x, b.x) && std::min(a.y, b.y) <= p.y &&
           p.y <= std::max(a.y, b.y);
}

bool segmentsMeet(OdGePoint2d a, OdGePoint2d b, OdGePoint2d c, OdGePoint2d d) {
    const double c1 = side(a, b, c), d1 = side(a, b, d), a1 = side(c, d, a), b1 = side(c, d, b);
    if (((c1 > 0 && d1 < 0) || (c1 < 0 && d1 > 0)) && ((a1 > 0 && b1 < 0) || (a1 < 0 && b1 > 0))) return true;
    return (c1 == 0 && within(a, b, c)) || (d1 == 0 && within(a, b, d)) || (a1 == 0 && within(c, d, a)) ||
           (b1 == 0 && within(c, d, b));
}

// By the crossings of a ray to the right; the outlines may have breaks and are closed.
bool inOutlines(Points outlines, OdGePoint2d p, bool evenOdd) {
    int turns = 0, crossings = 0;
    for (std::size_t first = 0; first < outlines.size();) {
        std::size_t past = first;
        while (past < outlines.size() && !isBreak(outlines[past]))
            ++past;
        for (std::size_t i = first; i < past; ++i) {
            const OdGePoint2d a = outlines[i], b = outlines[i + 1 < past ? i + 1 : first];
            if ((a.y <= p.y) == (b.y <= p.y)) continue;
            const bool up = a.y <= p.y;
            if ((side(a, b, p) > 0) != up) continue;
            turns += up ? 1 : -1;
            ++crossings;
        }
        first = past + 1;
    }
    return evenOdd ? crossings % 2 != 0 : turns != 0;
}

// The item as straight lines; stops and answers true when `use` does.
template <class Use>
bool anySegment(const Scene& scene, const Item& item, Use&& use) {
    if (item.kind == Item::Kind::text) {
        const auto corners = scene.cornersOf(scene.texts[item.first]);
        for (std::size_t i = 0; i < corners.size(); ++i)
            if (use(corners[i], corners[(i + 1) % corners.size()])) return true;
        return false;
    }
    if (item.kind == Item::Kind::arc) {
        const OdGePoint2d* arc = scene.points.data() + item.first;
        const double from = arc[3].x, turn = arc[3].y - from;
        OdGePoint2d last;
        for (int i = 0; i <= chordsPerCircle; ++i) {
            const double t = from + turn * i / chordsPerCircle, c = std::cos(t), s = std::sin(t);
            const OdGePoint2d point{arc[0].x + arc[1].x * c + arc[2].x * s,
                                    arc[0].y + arc[1].y * c + arc[2].y * s};
            if (i > 0 && use(last, point)) return true;
            last = point;
        }
        return false;
    }
    const Points points = scene.pointsOf(item);
    const bool closed = item.kind == Item::Kind::area;
    for (std::size_t first = 0; first < points.size();) {
        std::size_t past = first;
        while (past < points.size() && !isBreak(points[past]))
            ++past;
        if (past == first + 1 && use(points[first], points[first])) return true;
        for (std::size_t i = first + 1; i < past; ++i)
            if (use(points[i - 1], points[i])) return true;
        if (closed && past > first + 2 && use(points[past - 1], points[first])) return true;
        first = past + 1;
    }
    return false;
}

// Whether the point lies on what the item fills.
bool covers(const Scene& scene, const Item& item, OdGePoint2d at) {
    if (item.kind == Item::Kind::area)
        return inOutlines(scene.pointsOf(item), at, (item.flags & Item::evenOdd) != 0);
    return item.kind == Item::Kind::text && inOutlines(scene.cornersOf(scene.texts[item.first]), at, false);
}

double distanceOf(const Scene& scene, const Item& item, OdGePoint2d at) {
    if (covers(scene, item, at)) return 0;
    double nearest = std::numeric_limits<double>::infinity();
    anySegment(scene, item, [&](OdGePoint2d a, OdGePoint2d b) {
        nearest = std::min(nearest, distanceTo(at, a, b));
        return false;
    });
    return nearest;
}

bool meetsLine(const Scene& scene, const Item& item, Points line, bool closed) {
    Box box;
    for (const OdGePoint2d& point : line)
        box.add(point);
    return anySegment(scene, item, [&](OdGePoint2d a, OdGePoint2d b) {
        Box own;
        own.add(a);
        own.add(b);
        if (!own.meets(box)) return false;
        for (std::size_t i = closed ? 0 : 1; i < line.size(); ++i)
            if (segmentsMeet(a, b, line[i == 0 ? line.size() - 1 : i - 1], line[i])) return true;
        return false;
    });
}

OdGePoint2d anyPointOf(const Scene& scene, const Item& item) {
    OdGePoint2d point;
    anySegment(scene, item, [&](OdGePoint2d a, OdGePoint2d) {
        point = a;
        return true;
    });
    return point;
}

Box boxOf(Points points) {
    Box box;
    for (const OdGePoint2d& point : points)
        box.add(point);
    return box;
}

std::array<OdGePoint2d, 4> cornersOf(const Box& box) {
    return {OdGePoint2d{box.left, box.bottom}, OdGePoint2d{box.right, box.bottom},
            OdGePoint2d{box.right, box.top}, OdGePoint2d{box.left, box.top}};
}

// The shown items whose box meets that one.
template <class Use>
void forEachAround(const Scene& scene, const Box& box, Use&& use) {
    auto offer = [&](std::uint32_t item) {
        if (scene.styleOf(scene.items[item]).shown) use(item);
    };
    scene.index.visit(box, offer);
    for (const std::uint32_t item : scene.loose)
        if (scene.boxOf(scene.items[item]).meets(box)) offer(item);
}

void makeUnique(std::vector<std::uint32_t>& numbers) {
    std::sort(numbers.begin(), numbers.end());
    numbers.erase(std::unique(numbers.begin(), numbers.end()), numbers.end());
}

template <class Test>
std::vector<std::uint32_t> anyItem(const Scene& scene, const Box& box, Test&& test) {
    std::vector<std::uint32_t> out;
    forEachAround(scene, box, [&](std::uint32_t number) {
        const Item& item = scene.items[number];
        if ((out.empty() || out.back() != item.entity) && test(item)) out.push_back(item.entity);
    });
    makeUnique(out);
    return out;
}

template <class Test>
std::vector<std::uint32_t> allItems(const Scene& scene, const Box& box, Test&& test) {
    std::vector<std::uint32_t> out;
    forEachAround(scene, box, [&](std::uint32_t number) { out.push_back(scene.items[number].entity); });
    makeUnique(out);
    std::erase_if(out, [&](std::uint32_t number) {
        const Entity& entity = scene.entities[number];
        for (std::uint32_t i = entity.firstItem; i < entity.firstItem + entity.itemCount; ++i)
            if (scene.styleOf(scene.items[i]).shown && !test(scene.items[i])) return true;
        return false;
    });
    return out;
}

} // namespace

std::vector<Scene::Hit> Scene::pickAll(OdGePoint2d at, double tolerance) const {
    std::vector<Hit> hits;
    Box box;
    box.add(at);
    forEachAround(*this, box.grown(tolerance), [&](std::uint32_t item) {
        const double distance = distanceOf(*this, items[item], at);
        if (distance <= tolerance) hits.push_back({items[item].entity, item, distance});
    });
    // Of one entity the nearest item counts.
    std::sort(hits.begin(), hits.end(), [](const Hit& a, const Hit& b) {
        return a.entity != b.entity ? a.entity < b.entity : a.distance < b.distance;
    });
    hits.erase(
        std::unique(hits.begin(), hits.end(), [](const Hit& a, const Hit& b) { return a.entity == b.entity; }),
        hits.end());
    std::sort(hits.begin(), hits.end(), [](const Hit& a, const Hit& b) {
        return a.distance != b.distance ? a.distance < b.distance : a.entity > b.entity;
    });
    return hits;
}

std::optional<Scene::Hit> Scene::pick(OdGePoint2d at, double tolerance) const {
    std::optional<Hit> best;
    Box box;
    box.add(at);
    forEachAround(*this, box.grown(tolerance), [&](std::uint32_t item) {
        const double distance = distanceOf(*this, items[item], at);
        if (!(distance <= tolerance)) return;
        const std::uint32_t entity = items[item].entity;
        if (best && (best->distance < distance || (best->distance == distance && best->entity >= entity)))
            return;
        best = Hit{entity, item, distance};
    });
    return best;
}

std::vector<std::uint32_t> Scene::inside(const Box& box) const {
    return allItems(*this, box, [&](const Item& item) { return box.contains(boxOf(item)); });
}

std::vector<std::uint32_t> Scene::inside(std::span<const OdGePoint2d> polygon) const {
    return allItems(*this, tv::scene::boxOf(polygon), [&](const Item& item) {
        return inOutlines(polygon, anyPointOf(*this, item), true) && !meetsLine(*this, item, polygon, true);
    });
}

std::vector<std::uint32_t> Scene::crossing(const Box& box) const {
    const auto corners = tv::scene::cornersOf(box);
    return anyItem(*this, box, [&](const Item& item) {
        return box.contains(anyPointOf(*this, item)) || box.contains(boxOf(item)) ||
               meetsLine(*this, item, corners, true) || covers(*this, item, corners[0]);
    });
}

std::vector<std::uint32_t> Scene::crossing(std::span<const OdGePoint2d> polygon) const {
    if (polygon.empty()) return {};
    return anyItem(*this, tv::scene::boxOf(polygon), [&](const Item& item) {
        return inOutlines(polygon, anyPointOf(*this, item), true) || meetsLine(*this, item, polygon, true) ||
               covers(*this, item, polygon[0]);
    });
}

std::vector<std::uint32_t> Scene::fence(std::span<const OdGePoint2d> line) const {
    return anyItem(*this, tv::scene::boxOf(line),
                   [&](const Item& item) { return meetsLine(*this, item, line, false); });
}

} // namespace tv::scene
