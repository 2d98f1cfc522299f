#include "tavocad/scene/Flatten.h"

#include <algorithm>
#include <cmath>
#include <numbers>

namespace tv::scene {

namespace {

using tv::dwg::SplineGeometry;

constexpr double fullTurn = 2 * std::numbers::pi;
constexpr int chordsPerSpan = 12; // of a spline
constexpr int highestDegree = 24;

bool hasUsableKnots(const SplineGeometry& spline) {
    const auto& knots = spline.knots;
    const auto degree = static_cast<std::size_t>(std::clamp(spline.degree, 0, highestDegree + 1));
    return degree >= 1 && degree <= highestDegree && spline.control.size() > degree &&
           knots.size() == spline.control.size() + degree + 1 && std::is_sorted(knots.begin(), knots.end()) &&
           knots[degree] < knots[spline.control.size()];
}

// A point in homogeneous coordinates.
struct Weighted {
    double x, y, z, w;
};

// De Boor's rule in the span that begins with that knot.
OdGePoint3d pointOf(const SplineGeometry& spline, std::size_t span, double t) {
    const auto degree = static_cast<std::size_t>(spline.degree);
    Weighted d[highestDegree + 1];
    for (std::size_t i = 0; i <= degree; ++i) {
        const OdGePoint3d& p = spline.control[span - degree + i];
        const double w = spline.weights.empty() ? 1 : spline.weights[span - degree + i];
        d[i] = {p.x * w, p.y * w, p.z * w, w};
    }
    for (std::size_t round = 1; round <= degree; ++round)
        for (std::size_t i = degree; i >= round; --i) {
            const double low = spline.knots[span - degree + i], high = spline.knots[span + 1 + i - round];
            const double a = high > low ? (t - low) / (high - low) : 0;
            const Weighted &p = d[i - 1], &q = d[i];
            d[i] = {p.x + (q.x - p.x) * a, p.y + (q.y - p.y) * a, p.z + (q.z - p.z) * a, p.w + (q.w - p.w) * a};
        }
    const Weighted& end = d[degree];
    return {end.x / end.w, end.y / end.w, end.z / end.w};
}

// Through the points, leaving each in the direction from its neighbour before to the one behind.
void flattenFit(std::vector<OdGePoint3d>& out, const std::vector<OdGePoint3d>& points, bool closed) {
    const std::size_t count = points.size(), spans = closed ? count : count - 1;
    auto at = [&](std::size_t i, std::ptrdiff_t step) -> const OdGePoint3d& {
        const auto moved = static_cast<std::ptrdiff_t>(i) + step, size = static_cast<std::ptrdiff_t>(count);
        return points[static_cast<std::size_t>(closed ? (moved + size) % size
                                                      : std::clamp<std::ptrdiff_t>(moved, 0, size - 1))];
    };
    out.push_back(points[0]);
    for (std::size_t i = 0; i < spans; ++i) {
        const OdGePoint3d &a = at(i, 0), &b = at(i, 1);
        const OdGeVector3d ta = at(i, 1) - at(i, -1), tb = at(i, 2) - at(i, 0);
        for (int k = 1; k <= chordsPerSpan; ++k) {
            const double t = static_cast<double>(k) / chordsPerSpan, t2 = t * t, t3 = t2 * t;
            const double pa = 2 * t3 - 3 * t2 + 1, pb = 3 * t2 - 2 * t3, da = (t3 - 2 * t2 + t) / 2,
                         db = (t3 - t2) / 2;
            out.push_back({a.x * pa + b.x * pb + ta.x * da + tb.x * db,
                           a.y * pa + b.y * pb + ta.y * da + tb.y * db,
                           a.z * pa + b.z * pb + ta.z * da + tb.z * db});
        }
    }
}

} // namespace

void flattenSpline(std::vector<OdGePoint3d>& out, const SplineGeometry& spline) {
    if (spline.control.empty()) {
        if (!spline.fit.empty()) flattenFit(out, spline.fit, spline.closed && spline.fit.size() > 2);
        return;
    }
    if (!hasUsableKnots(spline)) {
        out.insert(out.end(), spline.control.begin(), spline.control.end());
        return;
    }
    const auto degree = static_cast<std::size_t>(spline.degree);
    const int chords = degree == 1 ? 1 : chordsPerSpan;
    for (std::size_t span = degree; span < spline.control.size(); ++span) {
        const double from = spline.knots[span], to = spline.knots[span + 1];
        if (!(to > from)) continue;
        for (int k = out.empty() || span == degree ? 0 : 1; k <= chords; ++k)
            out.push_back(pointOf(spline, span, from + (to - from) * k / chords));
    }
}

double angleAfter(double from, double to) {
    if (!std::isfinite(from) || !std::isfinite(to)) return from;
    double turn = std::fmod(to - from, fullTurn);
    if (turn <= 0) turn += fullTurn;
    return from + turn;
}

void flattenArc(std::vector<OdGePoint3d>& out, const OdGePoint3d& center, const OdGeVector3d& major,
                const OdGeVector3d& minor, double from, double to) {
    const double turn = std::clamp(to - from, 0.0, fullTurn);
    const int chords = std::max(2, static_cast<int>(std::ceil(turn / fullTurn * chordsPerCircle)));
    for (int i = 0; i <= chords; ++i) {
        const double t = from + turn * i / chords;
        const double c = std::cos(t), s = std::sin(t);
        out.push_back({center.x + major.x * c + minor.x * s, center.y + major.y * c + minor.y * s,
                       center.z + major.z * c + minor.z * s});
    }
}

void flattenBulge(std::vector<OdGePoint3d>& out, const OdGePoint3d& a, const OdGePoint3d& b, double bulge) {
    const double dx = b.x - a.x, dy = b.y - a.y;
    const double chord = std::hypot(dx, dy);
    if (bulge == 0 || !std::isfinite(bulge) || chord == 0) {
        out.push_back(b);
        return;
    }
    // With the included angle 4 atan(bulge), the centre lies (1 - bulge^2) / (4 bulge) chords left of the
    // chord's middle.
    const double offset = (1 - bulge * bulge) / (4 * bulge);
    const OdGePoint3d center{(a.x + b.x) / 2 - dy * offset, (a.y + b.y) / 2 + dx * offset, a.z};
    const double start = std::atan2(a.y - center.y, a.x - center.x);
    const double turn = 4 * std::atan(bulge);
    const double radius = std::hypot(a.x - center.x, a.y - center.y);
    const int chords = std::max(2, static_cast<int>(std::ceil(std::abs(turn) / fullTurn * chordsPerCircle)));
    for (int i = 1; i < chords; ++i) {
        const double t = start + turn * i / chords;
        out.push_back({center.x + radius * std::cos(t), center.y + radius * std::sin(t), a.z});
    }
    out.push_back(b);
}

} // namespace tv::scene
