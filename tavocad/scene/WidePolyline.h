#pragma once

#include "platform/drawing/EntityGeometry.h"

#include <vector>

namespace tv::scene {

// A planar polyline as it is painted, in the coordinates of its plane.
struct PolylineParts {
    using Points = std::vector<OdGePoint3d>;
    std::vector<Points> areas; // outlines of what is filled: one for every segment that has a width
    std::vector<Points> lines; // what has none
};

// Whether any segment has a width. Widths that are no positive finite numbers count as none.
bool hasWidth(const tv::dwg::PolylineGeometry& line);

// Arcs become chords. Segments of the same width at their common vertex are mitred there, unless they turn back
// so sharply that the corner would stick out.
PolylineParts partsOf(const tv::dwg::PolylineGeometry& line);

} // namespace tv::scene
