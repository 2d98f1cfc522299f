#include "tavocad/scene/Flatten.h"

#include <algorithm>
#include <cmath>
#include <numbers>

namespace tv::scene {

namespace {
constexpr double fullTurn = 2 * std::numbers::pi;
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
