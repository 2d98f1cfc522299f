#include "tavocad/scene/Scene.h"

#include "tavocad/scene/Letters.h"

#include <algorithm>
#include <bit>
#include <cmath>
#include <numbers>

namespace tv::scene {
namespace {

constexpr double descent = 0.3; // below the baseline, of the height of capital letters

// Where x(t) = a cos t + b sin t has its extremes within [from, to].
template <class Use>
void forEachExtreme(double a, double b, double from, double to, Use&& use) {
    constexpr double half = std::numbers::pi;
    const double first = std::atan2(b, a);
    for (double t = first + std::ceil((from - first) / half) * half; t < to; t += half)
        use(t);
}

Box arcBox(const OdGePoint2d* arc) {
    const OdGePoint2d c = arc[0], u = arc[1], v = arc[2];
    const double from = arc[3].x, to = arc[3].y;
    Box box;
    if (to - from >= 2 * std::numbers::pi) {
        const double x = std::hypot(u.x, v.x), y = std::hypot(u.y, v.y);
        return {c.x - x, c.y - y, c.x + x, c.y + y};
    }
    auto add = [&](double t) {
        const double cosine = std::cos(t), sine = std::sin(t);
        box.add(OdGePoint2d{c.x + u.x * cosine + v.x * sine, c.y + u.y * cosine + v.y * sine});
    };
    add(from);
    add(to);
    forEachExtreme(u.x, v.x, from, to, add);
    forEachExtreme(u.y, v.y, from, to, add);
    return box;
}

} // namespace

std::array<OdGePoint2d, 4> Scene::cornersOf(const Text& text) const {
    const double width =
        text.width > 0 ? text.width : widthOf(lettersOf(text)) * text.height * text.widthFactor;
    const double left = text.horizontal == Text::Horizontal::left     ? 0
                        : text.horizontal == Text::Horizontal::center ? -width / 2
                                                                      : -width;
    const double baseline = text.vertical == Text::Vertical::top      ? -text.height
                            : text.vertical == Text::Vertical::middle ? -text.height / 2
                            : text.vertical == Text::Vertical::bottom ? text.height * descent
                                                                      : 0;
    const double bottom = baseline - text.height * descent, top = baseline + text.height;
    const double c = std::cos(text.angle), s = std::sin(text.angle);
    auto at = [&](double x, double y) {
        return OdGePoint2d{text.at.x + x * c - y * s, text.at.y + x * s + y * c};
    };
    return {at(left, bottom), at(left + width, bottom), at(left + width, top), at(left, top)};
}

Box Scene::boxOf(const Item& item) const {
    Box box;
    switch (item.kind) {
    case Item::Kind::arc:
        return arcBox(points.data() + item.first);
    case Item::Kind::text:
        for (const OdGePoint2d& corner : cornersOf(texts[item.first]))
            box.add(corner);
        break;
    default:
        for (const OdGePoint2d& point : pointsOf(item))
            box.add(point); // a break changes nothing
    }
    return box;
}

template <class Use>
void Scene::measure(Use&& use) {
    box = extents = {};
    for (std::size_t i = 0; i < items.size(); ++i) {
        const Box own = boxOf(items[i]);
        if (!own.isFinite()) continue;
        use(i, own);
        if (!styleOf(items[i]).shown) continue;
        box.add(own);
        if (!(items[i].flags & Item::endless)) extents.add(own);
    }
    for (const ViewportPicture& viewport : viewports)
        for (const OdGePoint2d& corner : viewport.clip) {
            if (!isSomewhere(corner)) continue;
            box.add(corner);
            extents.add(corner);
        }
    for (const OdGePoint2d& corner : paper) {
        box.add(corner);
        extents.add(corner);
    }
    if (extents.empty()) extents = box;
}

void Scene::finish() {
    std::vector<SpatialIndex::Small> boxes(items.size());
    OdGePoint2d origin;
    if (!items.empty()) {
        const Box first = boxOf(items[0]);
        if (first.isFinite()) origin = {first.left, first.bottom};
    }
    const double around = pointShape.hasLines() ? std::max(pointShape.size, 0.0) / 2 : 0;
    measure([&](std::size_t i, const Box& own) {
        const double more = items[i].kind == Item::Kind::mark ? around : 0;
        boxes[i] = SpatialIndex::smallOf({own.left - more, own.bottom - more, own.right + more, own.top + more},
                                         origin);
    });
    index.build(std::move(boxes), origin);
    loose.clear();
}

void Scene::measure() {
    measure([](std::size_t, const Box&) {});
}

void Scene::look(const Box& view, double pixel, Seen& seen, const StyleTable* through) const {
    const StyleTable& table = through ? *through : styles;
    auto shown = [&](std::uint32_t item) { return table[items[item].style].shown; };
    seen.items.clear();
    seen.dots.clear();
    std::vector<std::uint64_t> marks((items.size() + 63) / 64);
    index.visit(
        view, pixel, [&](std::uint32_t item) { marks[item / 64] |= std::uint64_t{1} << item % 64; },
        [&](OdGePoint2d at, const std::uint32_t* numbers, std::size_t count) {
            for (std::size_t i = 0; i < count; ++i)
                if (shown(numbers[i])) {
                    const Item& item = items[numbers[i]];
                    const bool mark = item.kind == Item::Kind::mark && pointShape.mode != 0;
                    seen.dots.push_back({at, item.style, mark});
                    return;
                }
        });
    for (std::size_t word = 0; word < marks.size(); ++word)
        for (std::uint64_t bits = marks[word]; bits; bits &= bits - 1) {
            const auto item =
                static_cast<std::uint32_t>(word * 64) + static_cast<std::uint32_t>(std::countr_zero(bits));
            if (shown(item)) seen.items.push_back(item);
        }
    if (loose.empty()) return;
    // What was drawn anew later takes its entity's place among the others.
    const auto middle = static_cast<std::ptrdiff_t>(seen.items.size());
    for (const std::uint32_t item : loose)
        if (shown(item) && boxOf(items[item]).meets(view)) seen.items.push_back(item);
    auto before = [this](std::uint32_t a, std::uint32_t b) {
        return items[a].entity != items[b].entity ? items[a].entity < items[b].entity : a < b;
    };
    std::sort(seen.items.begin() + middle, seen.items.end(), before);
    std::inplace_merge(seen.items.begin(), seen.items.begin() + middle, seen.items.end(), before);
}

OdDbObjectId Scene::idOf(std::uint32_t entity) const { return {database, entities[entity].record}; }

std::optional<std::uint32_t> Scene::entityOf(OdDbObjectId id) const {
    if (id.database() != database) return std::nullopt;
    for (std::size_t i = 0; i < entities.size(); ++i)
        if (entities[i].record == id.record() && entities[i].itemCount > 0)
            return static_cast<std::uint32_t>(i);
    return std::nullopt;
}

} // namespace tv::scene
