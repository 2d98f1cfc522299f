#pragma once

#include "platform/drawing/Geometry.h"

#include <cmath>
#include <limits>

namespace tv::scene {

// Coordinates and lengths beyond 1e15 come of damage only. Such points are nowhere: of entities of any kind
// they are left out, and what has no point left, or an arc or a text with such a measure, is not drawn.
inline bool isSomewhere(double v) { return std::abs(v) <= 1e15; } // not so for what is no number
inline bool isSomewhere(OdGePoint2d p) { return isSomewhere(p.x) && isSomewhere(p.y); }

struct Box {
    double left = std::numeric_limits<double>::max(), bottom = left;
    double right = std::numeric_limits<double>::lowest(), top = right;

    bool empty() const { return left > right; }
    bool isFinite() const {
        return std::isfinite(left) && std::isfinite(right) && std::isfinite(bottom) && std::isfinite(top);
    }
    double width() const { return right - left; }
    double height() const { return top - bottom; }
    void add(OdGePoint2d p) {
        if (p.x < left) left = p.x;
        if (p.x > right) right = p.x;
        if (p.y < bottom) bottom = p.y;
        if (p.y > top) top = p.y;
    }
    void add(const Box& box) {
        if (box.empty()) return;
        add(OdGePoint2d{box.left, box.bottom});
        add(OdGePoint2d{box.right, box.top});
    }
    Box grown(double by) const { return {left - by, bottom - by, right + by, top + by}; }
    bool meets(const Box& other) const {
        return left <= other.right && other.left <= right && bottom <= other.top && other.bottom <= top;
    }
    bool contains(OdGePoint2d p) const { return left <= p.x && p.x <= right && bottom <= p.y && p.y <= top; }
    bool contains(const Box& other) const {
        return left <= other.left && other.right <= right && bottom <= other.bottom && other.top <= top;
    }
};

} // namespace tv::scene
