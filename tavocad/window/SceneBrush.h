#pragma once

#include "tavocad/window/DesignFont.h"
#include "tavocad/window/PaintLimits.h"
#include "tavocad/window/PointMarks.h"

#include <QPainterPath>
#include <QPolygonF>

#include <algorithm>
#include <cmath>
#include <numbers>
#include <optional>
#include <vector>

namespace tv::scene {

// Paints items of every kind with Qt, one pen at a time.
class SceneBrush {
  public:
    // `window`: what is painted is seen through it, null for the scene itself.
    SceneBrush(QPainter& painter, const ScenePainter& view, const Scene& scene, const ViewportPicture* window)
        : m_painter(painter), m_view(view), m_scene(scene), m_styles(window ? window->styles : scene.styles),
          m_window(window), m_fonts(scene.fonts.size() + 1), m_colors(m_styles.size()) {
        if (window) {
            m_scale = view.scale * std::hypot(window->x.x, window->x.y);
            m_turn = std::atan2(window->x.y, window->x.x);
        }
        m_mark = linesOf(scene.pointShape, halfMark(scene.pointShape, view, m_scale));
    }

    void paint(std::span<const Scene::Dot> dots) {
        for (const Scene::Dot& dot : dots) {
            setStyle(dot.style, false);
            if (dot.mark)
                mark(toScreen(dot.at));
            else
                m_dots.append(toScreen(dot.at));
        }
        flushBatch();
    }
    void paint(std::span<const std::uint32_t> numbers) {
        for (const std::uint32_t number : numbers)
            paint(m_scene.items[number]);
        flushBatch();
    }

    void outline(std::span<const std::uint32_t> numbers) {
        for (const std::uint32_t number : numbers) {
            const Item& item = m_scene.items[number];
            if (item.kind == Item::Kind::text)
                corners(m_scene.texts[item.first]);
            else
                shape(item, false);
        }
        flushBatch();
    }

  private:
    static constexpr double pixelsPerMillimetre = 4; // of a lineweight

    QPointF toScreen(OdGePoint2d p) const { return m_view.toScreen(m_window ? m_window->toLayout(p) : p); }

    // Lines and dots in one pen go to the painter together.
    void flushBatch() {
        if (!m_lines.isEmpty()) m_painter.drawLines(m_lines);
        if (!m_dots.isEmpty()) m_painter.drawPoints(m_dots.constData(), static_cast<int>(m_dots.size()));
        m_lines.resize(0);
        m_dots.resize(0);
    }

    void paint(const Item& item) {
        const Style& style = m_styles[item.style];
        if (!style.shown) return;
        const bool filled = item.kind == Item::Kind::area;
        setStyle(item.style, !filled && !(item.flags & Item::solidLine) && item.kind != Item::Kind::mark);
        if (item.kind == Item::Kind::text) {
            text(m_scene.texts[item.first]);
        } else if (!filled) {
            shape(item, false);
        } else {
            flushBatch();
            QColor color = item.flags & Item::mask ? m_view.background : m_color;
            if (item.flags & Item::pale) color.setAlphaF(color.alphaF() * 0.3F);
            m_painter.setBrush(color);
            if (item.flags & (Item::mask | Item::pale)) m_painter.setPen(Qt::NoPen);
            shape(item, true);
            m_painter.setBrush(Qt::NoBrush);
            m_current = none;
        }
    }

    void setStyle(std::uint32_t number, bool dashed) {
        if (m_current == number && m_dashed == dashed) return;
        flushBatch();
        m_current = number;
        m_dashed = dashed;
        const Style& style = m_styles[number];
        QColor& color = m_colors[number];
        if (!color.isValid()) {
            color = m_view.colorOf(style.paint);
            color.setAlpha(style.alpha);
        }
        m_color = color;
        QPen pen(m_color, 0); // one pixel, however far zoomed in
        if (m_view.lineweights && style.lineweight > usualLineweight) {
            pen.setWidthF(style.lineweight / 100.0 * pixelsPerMillimetre);
            pen.setCapStyle(Qt::RoundCap);
            pen.setJoinStyle(Qt::RoundJoin);
        }
        const Pattern& pattern = m_styles.patterns()[style.pattern];
        m_pattern = nullptr;
        if (dashed && pattern.length * m_scale >= legiblePattern) {
            if (!pattern.marks.empty()) {
                m_pattern = &pattern;
                // Dashes of a thinner pen are measured along the nearer axis, and would not leave room for
                // marks.
                pen.setWidthF(std::max(pen.widthF(), 1.01));
            }
            const double width = std::max(pen.widthF(), 1.0);
            QList<qreal> dashes;
            for (const double dash : pattern.dashes) {
                const bool gap = dash < 0;
                if (!dashes.isEmpty() && gap == (dashes.size() % 2 == 0)) {
                    dashes.last() += std::abs(dash) * m_scale / width;
                    continue;
                }
                if (gap != (dashes.size() % 2 != 0)) dashes.append(0);
                dashes.append(std::max(std::abs(dash) * m_scale / width, gap ? 0 : 1 / width));
            }
            if (dashes.size() % 2 != 0) dashes.append(0);
            pen.setCapStyle(Qt::FlatCap);
            pen.setDashPattern(dashes);
        }
        m_painter.setPen(pen);
    }

    void mark(QPointF p) {
        if (m_scene.pointShape.mode == 1) return;
        if (m_mark.empty() || m_marks >= mostMarks) {
            m_dots.append(p);
            return;
        }
        ++m_marks;
        for (const QLineF& line : m_mark)
            m_lines.append(line.translated(p));
    }

    // What the linetype has on the line that is being painted, again and again along it.
    void lineMarks() {
        if (!m_pattern) return;
        const double length = m_pattern->length * m_scale;
        double way = 0;
        for (qsizetype i = 1; i < m_line.size(); ++i) {
            const QLineF part(m_line[i - 1], m_line[i]);
            const double size = part.length(), start = way;
            way += size;
            const auto seen = inView(part.p1(), part.p2());
            if (!(size > 0) || !seen) continue;
            if (!(way <= farOut)) return;
            const double from = start + size * seen->first, to = start + size * seen->second;
            for (const LineMark& mark : m_pattern->marks) {
                const double first = mark.at * m_scale;
                for (double at = first + std::ceil((from - first) / length) * length; at < to; at += length)
                    lineMark(mark, part.pointAt((at - start) / size), part.angle());
            }
        }
    }
    // `angle`: of the line, degrees.
    void lineMark(const LineMark& mark, QPointF at, double angle) {
        const double pixels = mark.height * m_scale;
        if (pixels < legibleHeight || pixels > largestMark || m_lineMarks >= mostMarks ||
            !m_view.area.adjusted(-pixels, -pixels, pixels, pixels).contains(at))
            return;
        ++m_lineMarks;
        flushBatch();
        m_painter.save();
        m_painter.setPen(QPen(m_color, 0));
        m_painter.translate(at);
        m_painter.rotate(-angle);
        m_painter.translate(mark.offset.x * m_scale, -mark.offset.y * m_scale);
        if (mark.absolute) m_painter.rotate(angle - m_turn * 180 / std::numbers::pi);
        m_painter.rotate(-mark.rotation * 180 / std::numbers::pi);
        if (mark.letters.empty()) {
            m_painter.drawLine(QPointF(0, pixels / 2), QPointF(0, -pixels / 2));
        } else {
            const DesignFont& font = fontOf(Text{});
            const double up = pixels / font.metrics.capHeight();
            m_painter.scale(up, up);
            m_painter.setFont(font.font);
            m_painter.drawText(QPointF(0, 0), toQt(mark.letters));
        }
        m_painter.restore();
    }

    void shape(const Item& item, bool filled) {
        if (item.kind == Item::Kind::arc) {
            arc(m_scene.points.data() + item.first);
            return;
        }
        const auto points = m_scene.pointsOf(item);
        if (item.kind == Item::Kind::mark) {
            mark(toScreen(points[0]));
            return;
        }
        QPainterPath path;
        path.setFillRule(item.flags & Item::evenOdd ? Qt::OddEvenFill : Qt::WindingFill);
        bool several = false;
        m_line.resize(0);
        for (const OdGePoint2d& point : points) {
            if (!isBreak(point)) {
                m_line.append(toScreen(point));
                continue;
            }
            several = true;
            flush(path, filled);
        }
        if (filled && !several)
            m_painter.drawPolygon(m_line, path.fillRule());
        else
            flush(path, filled);
        if (filled && several) m_painter.drawPath(path);
    }

    void flush(QPainterPath& path, bool filled) {
        if (!filled) lineMarks();
        if (filled) {
            path.addPolygon(m_line);
            path.closeSubpath();
        } else if (m_line.size() == 2) {
            line(m_line[0], m_line[1]);
        } else if (m_line.size() == 1) {
            m_dots.append(m_line[0]);
        } else {
            polyline();
        }
        m_line.resize(0);
    }

    bool isFar(QPointF p) const { return std::abs(p.x()) > farOut || std::abs(p.y()) > farOut; }

    // Which part of the line is in view or near it, from 0 to 1; nothing when none is.
    std::optional<std::pair<double, double>> inView(QPointF a, QPointF b) const {
        const QRectF room = m_view.area.adjusted(-100, -100, 100, 100);
        double from = 0, to = 1;
        auto cut = [&](double start, double step, double low, double high) {
            if (step == 0) {
                if (start < low || start > high) to = -1;
                return;
            }
            const double one = (low - start) / step, other = (high - start) / step;
            from = std::max(from, std::min(one, other));
            to = std::min(to, std::max(one, other));
        };
        const QPointF step = b - a;
        cut(a.x(), step.x(), room.left(), room.right());
        cut(a.y(), step.y(), room.top(), room.bottom());
        if (!(from <= to)) return std::nullopt;
        return std::pair(from, to);
    }

    // Cuts the line to the view where the painter would have to count pixels by the billion.
    void line(QPointF a, QPointF b) {
        if (isFar(a) || isFar(b)) {
            const auto seen = inView(a, b);
            if (!seen) return;
            const QPointF step = b - a;
            b = a + step * seen->second;
            a += step * seen->first;
        }
        m_lines.append({a, b});
    }

    void polyline() {
        if (m_line.size() > 2 &&
            std::none_of(m_line.begin(), m_line.end(), [this](QPointF p) { return isFar(p); })) {
            flushBatch();
            m_painter.drawPolyline(m_line);
            return;
        }
        for (qsizetype i = 1; i < m_line.size(); ++i)
            line(m_line[i - 1], m_line[i]);
    }

    void arc(const OdGePoint2d* arc) {
        const double from = arc[3].x, turn = arc[3].y - from;
        const double radius =
            std::max(std::hypot(arc[1].x, arc[1].y), std::hypot(arc[2].x, arc[2].y)) * m_scale;
        const int chords = std::clamp(static_cast<int>(turn / chordAngle(radius, 0.2)) + 1, 2, 4096);
        m_line.resize(0);
        const double c = std::cos(turn / chords), s = std::sin(turn / chords);
        double x = std::cos(from), y = std::sin(from);
        for (int i = 0; i <= chords; ++i) {
            m_line.append(
                toScreen({arc[0].x + arc[1].x * x + arc[2].x * y, arc[0].y + arc[1].y * x + arc[2].y * y}));
            const double next = x * c - y * s;
            y = x * s + y * c;
            x = next;
        }
        lineMarks();
        polyline();
    }

    void corners(const Text& text) {
        m_line.resize(0);
        for (const OdGePoint2d& corner : m_scene.cornersOf(text))
            m_line.append(toScreen(corner));
        m_line.append(m_line.first());
        polyline();
    }

    void text(const Text& text) {
        const double pixels = text.height * m_scale;
        if (pixels < 0.3) return;
        const QPointF at = toScreen(text.at);
        const auto letters = m_scene.lettersOf(text);
        if (pixels < legibleHeight || ++m_texts > m_mostTexts) {
            const auto corners = m_scene.cornersOf(text);
            auto middle = [&](std::size_t a, std::size_t b) {
                return (toScreen(corners[a]) + toScreen(corners[b])) / 2;
            };
            line(middle(0, 3), middle(1, 2));
            return;
        }
        const QString line = QString::fromWCharArray(letters.data(), static_cast<qsizetype>(letters.size()));
        flushBatch();
        const DesignFont& font = fontOf(text);
        const double width = font.metrics.horizontalAdvance(line), capital = font.metrics.capHeight();
        const double up = pixels / capital;
        const double across =
            text.width > 0 && width > 0 ? text.width * m_scale / width : up * text.widthFactor;
        m_painter.save();
        m_painter.translate(at);
        m_painter.rotate(-(text.angle + m_turn) * 180 / std::numbers::pi);
        m_painter.scale(across, up);
        if (text.oblique != 0) m_painter.shear(-std::tan(text.oblique), 0);
        using Horizontal = Text::Horizontal;
        using Vertical = Text::Vertical;
        const double x = text.horizontal == Horizontal::center  ? -width / 2
                         : text.horizontal == Horizontal::right ? -width
                                                                : 0;
        const double y = text.vertical == Vertical::top      ? capital
                         : text.vertical == Vertical::middle ? capital / 2
                         : text.vertical == Vertical::bottom ? -font.metrics.descent()
                                                             : 0;
        if (text.mirrored) {
            m_painter.translate(2 * x + width, 0);
            m_painter.scale(-1, 1);
        }
        m_painter.setFont(font.font);
        m_painter.drawText(QPointF(x, y), line);
        auto stripe = [&](double height) {
            m_painter.drawLine(QPointF(x, y - height * capital), QPointF(x + width, y - height * capital));
        };
        if (text.underlined) stripe(-0.2);
        if (text.overlined) stripe(1.2);
        if (text.struck) stripe(0.5);
        m_painter.restore();
    }

    const DesignFont& fontOf(const Text& text) {
        const std::size_t number = std::min<std::size_t>(text.font, m_scene.fonts.size());
        auto& font = m_fonts[number];
        if (!font)
            font = designFont(number < m_scene.fonts.size() ? &m_scene.fonts[number] : nullptr, m_view.font);
        return *font;
    }

    QPainter& m_painter;
    const ScenePainter& m_view;
    const Scene& m_scene;
    const StyleTable& m_styles;
    const ViewportPicture* m_window;
    double m_scale = m_view.scale;                  // pixels per unit of what is painted
    double m_turn = 0;                              // radians, of what is painted
    std::vector<std::optional<DesignFont>> m_fonts; // the last stands for a missing one
    std::vector<QColor> m_colors;                   // of the styles met so far
    QColor m_color;
    std::vector<QLineF> m_mark;               // a point
    std::size_t m_marks = 0, m_lineMarks = 0; // painted so far
    const Pattern* m_pattern = nullptr;       // of the line, when it has marks to be seen
    QPolygonF m_line;
    QList<QLineF> m_lines;
    QList<QPointF> m_dots;
    std::uint32_t m_current = none;
    bool m_dashed = false;
    double m_texts = 0; // painted so far; those beyond the most are painted as lines
    const double m_mostTexts = m_view.area.width() * m_view.area.height() / legibleArea;
};

} // namespace tv::scene
