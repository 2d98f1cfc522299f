#include "tavocad/window/PointMarks.h"

#include <algorithm>
#include <cmath>
#include <numbers>

namespace tv::scene {
namespace {

constexpr double smallestMark = 2; // pixels; a smaller point is painted as a dot

} // namespace

double halfMark(const PointShape& shape, const ScenePainter& view, double scale) {
    const double size = shape.size > 0    ? shape.size * scale
                        : shape.size == 0 ? view.area.height() * 0.05
                                          : view.area.height() * -shape.size / 100;
    return std::min(size, largestMark) / 2;
}

std::vector<QLineF> linesOf(const PointShape& shape, double half) {
    std::vector<QLineF> lines;
    if (half * 2 < smallestMark) return lines;
    const auto polygon = [&](std::initializer_list<double> turns, double radius) {
        std::vector<QPointF> corners;
        for (const double turn : turns)
            corners.push_back(
                {radius * std::cos(turn * std::numbers::pi), radius * std::sin(turn * std::numbers::pi)});
        for (std::size_t i = 0; i < corners.size(); ++i)
            lines.push_back({corners[i], corners[(i + 1) % corners.size()]});
    };
    switch (shape.mode & 31) {
    case 2:
        lines = {{-half, 0, half, 0}, {0, -half, 0, half}};
        break;
    case 3:
        lines = {{-half, -half, half, half}, {-half, half, half, -half}};
        break;
    case 4:
        lines = {{0, 0, 0, -half}};
        break;
    default:
        break;
    }
    if (shape.mode & 32)
        polygon(
            {0, 0.125, 0.25, 0.375, 0.5, 0.625, 0.75, 0.875, 1, 1.125, 1.25, 1.375, 1.5, 1.625, 1.75, 1.875},
            half);
    if (shape.mode & 64) polygon({0.25, 0.75, 1.25, 1.75}, half * std::numbers::sqrt2);
    return lines;
}

double chordAngle(double radius, double within) {
    return radius > within ? 2 * std::acos(1 - within / radius) : std::numbers::pi / 2;
}

} // namespace tv::scene
