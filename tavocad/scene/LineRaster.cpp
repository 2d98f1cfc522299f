#include "tavocad/scene/LineRaster.h"

#include <algorithm>
#include <cmath>
#include <utility>

namespace tv::scene {
namespace {

constexpr std::uint64_t full = ~std::uint64_t{0};
constexpr int fraction = 16;      // bits behind the point of the lesser coordinate
constexpr int mostPixels = 16384; // across: so that coordinates fit

} // namespace

LineRaster::LineRaster(const Canvas& canvas) : m_canvas(canvas) {
    m_canvas.width = std::clamp(canvas.width, 0, mostPixels);
    m_canvas.height = std::clamp(canvas.height, 0, mostPixels);
    const auto across = static_cast<std::size_t>((m_canvas.width + 63) / 64);
    const auto down = static_cast<std::size_t>((m_canvas.height + 63) / 64);
    m_tilesAcross = across * 8;
    m_tiles.resize(across * down * 64);
    m_blocks.resize(across * down);
    for (int y = 0; y < static_cast<int>(down) * 64; ++y)
        for (int x = 0; x < static_cast<int>(across) * 64; ++x) {
            if (x < m_canvas.width && y < m_canvas.height) continue;
            std::uint64_t& tile = m_tiles[tileOf(x, y)];
            tile |= std::uint64_t{1} << ((y & 7) * 8 + (x & 7));
            if (tile == full) ++m_blocks[blockOf(x, y)];
        }
    m_noTiles = m_tiles;
    m_noBlocks = m_blocks;
}

void LineRaster::nextLayer() {
    if (m_fresh) return;
    m_tiles = m_noTiles;
    m_blocks = m_noBlocks;
    m_fresh = true;
}

inline void LineRaster::set(int x, int y, std::uint32_t color) {
    std::uint64_t& tile = m_tiles[tileOf(x, y)];
    const std::uint64_t bit = std::uint64_t{1} << ((y & 7) * 8 + (x & 7));
    if (tile & bit) return;
    tile |= bit;
    if (tile == full) ++m_blocks[blockOf(x, y)];
    m_canvas.pixels[static_cast<std::size_t>(y) * m_canvas.stride + static_cast<std::size_t>(x)] = color;
}

void LineRaster::dot(OdGePoint2d at, std::uint32_t color) {
    if (!(at.x >= 0 && at.y >= 0 && at.x < m_canvas.width && at.y < m_canvas.height)) return;
    m_fresh = false;
    set(static_cast<int>(at.x), static_cast<int>(at.y), color);
}

bool LineRaster::covered(double left, double top, double right, double bottom) const {
    const double farRight = std::min(right, m_canvas.width - 1.0);
    const double farBottom = std::min(bottom, m_canvas.height - 1.0);
    const int x0 = static_cast<int>(std::max(left, 0.0)), y0 = static_cast<int>(std::max(top, 0.0));
    if (!(x0 <= farRight && y0 <= farBottom)) return true; // all outside
    const int x1 = static_cast<int>(farRight), y1 = static_cast<int>(farBottom);
    if (x1 - x0 > 64 || y1 - y0 > 64) return false; // looking costs more than painting
    for (int y = y0; y <= (y1 | 7); y += 8)
        for (int x = x0; x <= (x1 | 7); x += 8)
            if (!tileFull(std::min(x, x1), std::min(y, y1))) return false;
    return true;
}

void LineRaster::line(OdGePoint2d a, OdGePoint2d b, std::uint32_t color) {
    // Cut to the canvas.
    const double width = m_canvas.width, height = m_canvas.height;
    double from = 0, to = 1;
    const double dx = b.x - a.x, dy = b.y - a.y;
    if (!std::isfinite(dx) || !std::isfinite(dy)) return;
    auto cut = [&](double start, double step, double size) {
        if (start >= 0 && start < size && start + step >= 0 && start + step < size) return true;
        if (step == 0) return false;
        double enter = -start / step, leave = (size - start) / step;
        if (enter > leave) std::swap(enter, leave);
        from = std::max(from, enter);
        to = std::min(to, leave);
        return from <= to;
    };
    if (!cut(a.x, dx, width) || !cut(a.y, dy, height)) return;
    m_fresh = false;
    const double lastX = width - 1.0 / 1024, lastY = height - 1.0 / 1024;
    double x0 = std::clamp(a.x + dx * from, 0.0, lastX), y0 = std::clamp(a.y + dy * from, 0.0, lastY);
    double x1 = std::clamp(a.x + dx * to, 0.0, lastX), y1 = std::clamp(a.y + dy * to, 0.0, lastY);
    const bool steep = std::abs(dy) > std::abs(dx);
    if (steep ? y0 > y1 : x0 > x1) {
        std::swap(x0, x1);
        std::swap(y0, y1);
    }
    const double major0 = steep ? y0 : x0, major1 = steep ? y1 : x1;
    const double minor0 = steep ? x0 : y0, minor1 = steep ? x1 : y1;
    const int first = static_cast<int>(major0), last = static_cast<int>(major1);
    constexpr double one = 1 << fraction;
    const double slope = major1 > major0 ? (minor1 - minor0) / (major1 - major0) : 0;
    // At the first pixel's middle, unless the line begins behind it.
    const double start = minor0 + std::max(first + 0.5 - major0, 0.0) * slope;
    const auto limit = static_cast<std::int32_t>((steep ? width : height) * one) - 1;
    const auto step = static_cast<std::int32_t>(slope * one);
    auto minor = std::clamp(static_cast<std::int32_t>(start * one), 0, limit);
    // The last pixel's middle may lie behind the line's end, by less than a pixel.
    const std::int64_t end = minor + std::int64_t{step} * (last - first);
    if (end > limit) minor -= static_cast<std::int32_t>(std::min<std::int64_t>(end - limit, minor));
    if (end < 0) minor -= static_cast<std::int32_t>(end);
    if (minor + std::int64_t{step} * (last - first) > limit || minor > limit) return;
    if (steep)
        run<true>(first, last, minor, step, color);
    else
        run<false>(first, last, minor, step, color);
}

template <bool steep>
void LineRaster::run(int from, int to, std::int32_t minor, std::int32_t slope, std::uint32_t color) {
    auto x = [](int along, int across) { return steep ? across : along; };
    auto y = [](int along, int across) { return steep ? along : across; };
    while (from <= to) {
        if ((from & 63) == 0 && from + 63 <= to) {
            const int first = minor >> fraction, last = (minor + slope * 63) >> fraction;
            if (blockFull(x(from, first), y(from, first)) && blockFull(x(from, last), y(from, last))) {
                from += 64;
                minor += slope * 64;
                continue;
            }
        }
        const int stop = std::min(to, from | 7), count = stop - from;
        const int first = minor >> fraction, last = (minor + slope * count) >> fraction;
        if (tileFull(x(from, first), y(from, first)) && tileFull(x(from, last), y(from, last))) {
            minor += slope * (count + 1);
            from = stop + 1;
            continue;
        }
        for (; from <= stop; ++from, minor += slope)
            set(x(from, minor >> fraction), y(from, minor >> fraction), color);
    }
}

} // namespace tv::scene
