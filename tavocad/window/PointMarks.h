#pragma once

#include "tavocad/window/ScenePainter.h"

#include <QLineF>

#include <vector>

// How points, and what else has a size of its own on the screen, become lines of it.
namespace tv::scene {

inline constexpr std::size_t mostMarks = 20000; // points with a shape; of more they are dots
inline constexpr double largestMark = 1e4;      // pixels

// Half the size of a point on the screen, where a drawing unit is so many pixels.
double halfMark(const PointShape& shape, const ScenePainter& view, double scale);

// The lines of a point of that shape around the origin, y downwards; none for one that is a dot. `half`: of its
// size, pixels.
std::vector<QLineF> linesOf(const PointShape& shape, double half);

// The angle of a chord that stays within that many pixels of its arc.
double chordAngle(double radius, double within);

} // namespace tv::scene
