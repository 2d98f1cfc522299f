#pragma once

#include "platform/drawing/EntityGeometry.h"

#include <vector>

// Curves as polylines.
namespace tv::scene {

// How many chords stand for a full circle.
inline constexpr int chordsPerCircle = 128;

// An elliptic arc around `center`: center + major * cos(t) + minor * sin(t) for t from `from` to `to` (radians,
// from <= to). Appends its points, both ends included.
void flattenArc(std::vector<OdGePoint3d>& out, const OdGePoint3d& center, const OdGeVector3d& major,
                const OdGeVector3d& minor, double from, double to);

// The arc from `a` to `b` whose bulge is the tangent of a quarter of its included angle, positive
// counter-clockwise. Appends the points after `a` up to and including `b`.
void flattenBulge(std::vector<OdGePoint3d>& out, const OdGePoint3d& a, const OdGePoint3d& b, double bulge);

// A spline through or along its points; control points joined by lines where its knots are no knots. Appends
// its points, both ends included.
void flattenSpline(std::vector<OdGePoint3d>& out, const tv::dwg::SplineGeometry& spline);

// Brings `to` to the first angle at or above `from`, so that from <= to < from + 2 pi; equal angles mean a full
// turn.
double angleAfter(double from, double to);

} // namespace tv::scene
