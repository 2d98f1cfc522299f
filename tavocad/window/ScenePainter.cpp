#include "tavocad/window/ScenePainter.h"

#include "tavocad/scene/LineRaster.h"
#include "tavocad/window/QtText.h"
#include "tavocad/window/ReadableColor.h"

#include <QFontDatabase>
#include <QFontMetricsF>
#include <QPainterPath>
#include <QPolygonF>

#include <algorithm>
#include <cmath>
#include <numbers>
#include <optional>
#include <vector>

using namespace tv::scene;

namespace {

constexpr double smallestMark = 2;        // pixels; a smaller point is painted as a dot
constexpr std::size_t mostMarks = 20000;  // points with a shape; of more they are dots
constexpr double largestMark = 1e4;       // pixels
constexpr double legibleHeight = 2.5;     // pixels; smaller text is painted as a line
constexpr double legibleArea = 60;        // pixels; texts that have less lie upon each other
constexpr double legiblePattern = 4;      // pixels; a finer pattern is painted as a continuous line
constexpr double pixelsPerMillimetre = 4; // of a lineweight
constexpr std::size_t few = 20000;        // items; beyond that lines are not smoothed
constexpr float paperEdge = 0.5F;         // how much of the foreground
constexpr double farOut = 1e6;            // pixels; what reaches beyond is cut to the view first
constexpr int designSize = 64;            // pixels of the font that is scaled to a text's height

// A font at its design size.
struct DesignFont {
    QFont font;
    QFontMetricsF metrics{QFont()};
};

// The style's typeface where this machine has it; font files made for pens stand for none.
DesignFont designFont(const Font* wanted, const QFont& usual) {
    QFont font = usual;
    if (wanted) {
        if (!wanted->typeface.empty() && QFontDatabase::hasFamily(toQt(wanted->typeface)))
            font.setFamily(toQt(wanted->typeface));
        font.setBold(wanted->bold);
        font.setItalic(wanted->italic);
    }
    font.setPixelSize(designSize);
    return {font, QFontMetricsF(font)};
}

// Half the size of a point on the screen, where a drawing unit is so many pixels.
double halfMark(const PointShape& shape, const ScenePainter& view, double scale) {
    const double size = shape.size > 0    ? shape.size * scale
                        : shape.size == 0 ? view.area.height() * 0.05
                                          : view.area.height() * -shape.size / 100;
    return std::min(size, largestMark) / 2;
}

// The lines of a point of that shape around the origin, y downwards; none for one that is a dot. `half`: of its
// size, pixels.
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

// The angle of a chord that stays within that many pixels of its arc.
double chordAngle(double radius, double within) {
    return radius > within ? 2 * std::acos(1 - within / radius) : std::numbers::pi / 2;
}

// Whole, thin, continuous lines: what LineRaster paints.
class Lines {
  public:
    // `clip`: device pixels outside of which nothing is painted.
    Lines(const ScenePainter& view, const Scene& scene, const ViewportPicture* window, const QImage& image,
          std::uint32_t* pixels, QRect clip)
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

// Everything else.
class Brush {
  public:
    // `window`: what is painted is seen through it, null for the scene itself.
    Brush(QPainter& painter, const ScenePainter& view, const Scene& scene, const ViewportPicture* window)
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

} // namespace

QPointF ScenePainter::toScreen(OdGePoint2d point) const {
    const QPointF middle = area.center();
    return {middle.x() + (point.x - center.x) * scale, middle.y() - (point.y - center.y) * scale};
}

OdGePoint2d ScenePainter::toDrawing(QPointF point) const {
    const QPointF middle = area.center();
    return {center.x + (point.x() - middle.x()) / scale, center.y - (point.y() - middle.y()) / scale};
}

Box ScenePainter::visibleBox() const {
    Box box;
    box.add(toDrawing(area.topLeft()));
    box.add(toDrawing(area.bottomRight()));
    return box;
}

QColor ScenePainter::colorOf(const Paint& paint) const {
    return paint.foreground ? foreground : readableOn(QColor::fromRgb(paint.rgb), background);
}

Scene::Seen ScenePainter::look(const Scene& scene) const {
    Scene::Seen seen;
    scene.look(visibleBox(), 1 / scale, seen);
    return seen;
}

namespace {

// What of the model is seen through a window in a layout, of which `visible` is in view.
Box modelBox(const ViewportPicture& window, const Box& visible) {
    Box box;
    for (const OdGePoint2d& corner : window.clip)
        box.add(corner);
    box.left = std::max(box.left, visible.left);
    box.right = std::min(box.right, visible.right);
    box.bottom = std::max(box.bottom, visible.bottom);
    box.top = std::min(box.top, visible.top);
    Box model;
    const double size = window.x.x * window.y.y - window.x.y * window.y.x;
    if (box.empty() || box.bottom > box.top || !(std::abs(size) > 0)) return model;
    for (const OdGePoint2d corner : {OdGePoint2d{box.left, box.bottom}, OdGePoint2d{box.right, box.bottom},
                                     OdGePoint2d{box.left, box.top}, OdGePoint2d{box.right, box.top}})
        model.add(window.toModel(corner));
    return model;
}

// The pixels of a window's outline when that is an upright rectangle; nothing when it is not.
std::optional<QRect> pixelsOf(const QPolygonF& outline, double ratio) {
    if (outline.size() != 4) return std::nullopt;
    const QRectF box = outline.boundingRect();
    for (const QPointF& corner : outline)
        if ((corner.x() != box.left() && corner.x() != box.right()) ||
            (corner.y() != box.top() && corner.y() != box.bottom()))
            return std::nullopt;
    return QRectF(box.topLeft() * ratio, box.size() * ratio).toAlignedRect();
}

// Runs of plain lines, and of what they are no part of, by turns. Without `lines` everything is the brush's.
void paintSeen(const Scene& scene, const Scene::Seen& seen, Brush& brush, Lines* lines) {
    const std::span<const std::uint32_t> items = seen.items;
    if (!lines) {
        brush.paint(seen.dots);
        brush.paint(items);
        return;
    }
    lines->paint(seen.dots);
    for (std::size_t first = 0; first < items.size();) {
        const bool plain = lines->takes(scene.items[items[first]]);
        std::size_t past = first + 1;
        while (past < items.size() && lines->takes(scene.items[items[past]]) == plain)
            ++past;
        if (plain)
            lines->paint(items.subspan(first, past - first));
        else
            brush.paint(items.subspan(first, past - first));
        first = past;
    }
}

} // namespace

void ScenePainter::paint(QImage& image, const Scene& scene, const Scene::Seen& seen) const {
    const double ratio = image.devicePixelRatio();
    std::uint32_t* const pixels = reinterpret_cast<std::uint32_t*>(image.bits());
    QPainter painter(&image);
    painter.setRenderHint(QPainter::Antialiasing);
    auto put = [&](const Scene& what, const Scene::Seen& view, const ViewportPicture* window,
                   const std::optional<QRect>& clip) {
        Brush brush(painter, *this, what, window);
        std::optional<Lines> lines;
        if (clip && view.items.size() + view.dots.size() >= few)
            lines.emplace(*this, what, window, image, pixels, clip->intersected(image.rect()));
        paintSeen(what, view, brush, lines ? &*lines : nullptr);
    };
    if (!scene.paper.empty()) {
        QPolygonF paper;
        for (const OdGePoint2d& corner : scene.paper)
            paper.append(toScreen(corner));
        QColor edge = foreground;
        edge.setAlphaF(paperEdge);
        painter.setPen(QPen(edge, 0));
        for (qsizetype i = 0; i < paper.size(); ++i) {
            QLineF line(paper[i], paper[(i + 1) % paper.size()]);
            if (std::abs(line.dx()) + std::abs(line.dy()) < farOut) painter.drawLine(line);
        }
    }
    for (const ViewportPicture& window : scene.viewports) {
        const Box model = modelBox(window, visibleBox());
        if (model.empty() || !window.model) continue;
        Scene::Seen through;
        window.model->look(model, 1 / (scale * std::hypot(window.x.x, window.x.y)), through, &window.styles);
        QPolygonF outline;
        for (const OdGePoint2d& corner : window.clip)
            outline.append(toScreen(corner));
        QPainterPath clip;
        clip.addPolygon(outline);
        clip.closeSubpath();
        painter.save();
        painter.setClipPath(clip);
        put(*window.model, through, &window, pixelsOf(outline, ratio));
        painter.restore();
    }
    put(scene, seen, nullptr, image.rect());
}

void ScenePainter::outline(QPainter& painter, const Scene& scene, std::span<const std::uint32_t> items) const {
    Brush(painter, *this, scene, nullptr).outline(items);
}
