#pragma once

#include "tavocad/scene/LineRaster.h"
#include "tavocad/window/PaintLimits.h"
#include "tavocad/window/PointMarks.h"

#include <algorithm>
#include <cmath>

namespace tv::scene {

// Whole, thin, continuous lines: what LineRaster paints.
class RasterLines {
  public:
    // `clip`: device pixels outside of which nothing is painted.
    RasterLines(const ScenePainter& view, const Scene& scene, const ViewportPicture* window,
                const QImage& image, std::uint32_t* pixels, QRect clip)
        : m_scene(scene), m_raster(canvasOf(image, pixels, clip)) {
        const double ratio = image.devicePixelRatio(), scale = view.scale * ratio;
        m_x = {scale, 0};
        m_y = {0, -scale};
        const OdGePoint2d middle{view.area.center().x() * ratio - clip.left(),
                                 view.area.center().y() * ratio - clip.top()};
        // The view's centre is taken off before coordinates are scaled, so that far ones keep their precision.
        m_center = view.center;
        m_screen = middle;
        if (window) {
            m_x = {window->x.x * scale, -window->x.y * scale};
            m_y = {window->y.x * scale, -window->y.y * scale};
            m_center = window->toModel(view.center);
        }
        m_scale = std::hypot(m_x.x, m_x.y);
        m_mark = linesOf(scene.pointShape, halfMark(scene.pointShape, view, m_scale / ratio) * ratio);
        const StyleTable& styles = window ? window->styles : scene.styles;
        for (std::uint32_t i = 0; i < styles.size(); ++i) {
            const Style& style = styles[i];
            m_colors.push_back(view.colorOf(style.paint).rgb());
            m_whole.push_back(style.alpha == opaque &&
                              !(view.lineweights && style.lineweight > usualLineweight));
            m_dashed.push_back(styles.patterns()[style.pattern].length * m_scale / ratio >= legiblePattern);
        }
    }

    bool takes(const Item& item) const {
        switch (item.kind) {
        case Item::Kind::text:
            return m_scene.texts[item.first].height * m_scale < legibleHeight;
        case Item::Kind::area:
            return false;
        default:
            return m_whole[item.style] &&
                   (!m_dashed[item.style] || item.kind == Item::Kind::mark || item.flags & Item::solidLine);
        }
    }

    // In painting order; they are painted from the last one on.
    void paint(std::span<const std::uint32_t> numbers) {
        m_raster.nextLayer();
        for (auto number = numbers.rbegin(); number != numbers.rend(); ++number)
            paint(m_scene.items[*number]);
    }
    void paint(std::span<const Scene::Dot> dots) {
        m_raster.nextLayer();
        for (const Scene::Dot& dot : dots)
            if (dot.mark)
                mark(at(dot.at), m_colors[dot.style]);
            else
                m_raster.dot(at(dot.at), m_colors[dot.style]);
    }

  private:
    void mark(OdGePoint2d p, std::uint32_t color) {
        if (m_scene.pointShape.mode == 1) return;
        if (m_mark.empty() || m_marks >= mostMarks) return m_raster.dot(p, color);
        ++m_marks;
        for (const QLineF& line : m_mark)
            m_raster.line({p.x + line.x1(), p.y + line.y1()}, {p.x + line.x2(), p.y + line.y2()}, color);
    }

    static Canvas canvasOf(const QImage& image, std::uint32_t* pixels, QRect clip) {
        const auto stride = static_cast<std::size_t>(image.bytesPerLine()) / 4;
        if (clip.isEmpty()) return {};
        return {pixels + static_cast<std::size_t>(clip.top()) * stride + static_cast<std::size_t>(clip.left()),
                clip.width(), clip.height(), stride};
    }

    OdGePoint2d at(OdGePoint2d p) const {
        const double x = p.x - m_center.x, y = p.y - m_center.y;
        return {m_screen.x + m_x.x * x + m_y.x * y, m_screen.y + m_x.y * x + m_y.y * y};
    }
    OdGePoint2d turned(OdGePoint2d v) const { return {m_x.x * v.x + m_y.x * v.y, m_x.y * v.x + m_y.y * v.y}; }

    void paint(const Item& item) {
        const std::uint32_t color = m_colors[item.style];
        const OdGePoint2d* points = m_scene.points.data() + item.first;
        switch (item.kind) {
        case Item::Kind::arc:
            arc(points, color);
            break;
        case Item::Kind::text: {
            const auto corners = m_scene.cornersOf(m_scene.texts[item.first]);
            auto middle = [&](std::size_t a, std::size_t b) {
                return at({(corners[a].x + corners[b].x) / 2, (corners[a].y + corners[b].y) / 2});
            };
            m_raster.line(middle(0, 3), middle(1, 2), color);
            break;
        }
        case Item::Kind::mark:
            mark(at(points[0]), color);
            break;
        default: {
            OdGePoint2d last = at(points[0]);
            if (item.count == 1) m_raster.dot(last, color);
            // Coordinates of a break are no numbers: no line leads there or away.
            for (std::uint32_t i = 1; i < item.count; ++i) {
                const OdGePoint2d next = at(points[i]);
                m_raster.line(last, next, color);
                last = next;
            }
        }
        }
    }

    void arc(const OdGePoint2d* arc, std::uint32_t color) {
        const OdGePoint2d center = at(arc[0]);
        const OdGePoint2d u{arc[1].x * m_scale, -arc[1].y * m_scale},
            v{arc[2].x * m_scale, -arc[2].y * m_scale};
        const double wide = std::abs(u.x) + std::abs(v.x), high = std::abs(u.y) + std::abs(v.y);
        if (m_raster.covered(center.x - wide, center.y - high, center.x + wide, center.y + high)) return;
        const double turn = arc[3].y - arc[3].x;
        const int chords =
            std::clamp(static_cast<int>(turn / chordAngle(std::max(wide, high), 0.3)) + 1, 2, 4096);
        const double c = std::cos(turn / chords), s = std::sin(turn / chords);
        double x = std::cos(arc[3].x), y = std::sin(arc[3].x);
        OdGePoint2d last{center.x + u.x * x + v.x * y, center.y + u.y * x + v.y * y};
        for (int i = 0; i < chords; ++i) {
            const double next = x * c - y * s;
            y = x * s + y * c;
            x = next;
            const OdGePoint2d point{center.x + u.x * x + v.x * y, center.y + u.y * x + v.y * y};
            m_raster.line(last, point, color);
            last = point;
        }
    }

    const Scene& m_scene;
    LineRaster m_raster;
    OdGePoint2d m_x, m_y;           // what a step of one drawing unit is, device pixels
    OdGePoint2d m_center, m_screen; // the same point
    double m_scale = 1;             // device pixels per drawing unit
    std::vector<QLineF> m_mark;
    std::size_t m_marks = 0;             // painted so far
    std::vector<std::uint32_t> m_colors; // of every style
    std::vector<char> m_whole, m_dashed;
};

} // namespace tv::scene
