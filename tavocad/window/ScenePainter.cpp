#include "tavocad/window/ScenePainter.h"

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

constexpr double markSize = 3;            // half of a point's cross, pixels
constexpr double legibleHeight = 2.5;     // pixels; smaller text is painted as a line
constexpr double legiblePattern = 4;      // pixels; a finer pattern is painted as a continuous line
constexpr double pixelsPerMillimetre = 4; // of a lineweight
constexpr std::size_t few = 50000;        // items; beyond that edges are not smoothed
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

class Brush {
  public:
    // `window`: what is painted is seen through it, null for the scene itself.
    Brush(QPainter& painter, const ScenePainter& view, const Scene& scene, const ViewportPicture* window)
        : m_painter(painter), m_view(view), m_scene(scene), m_styles(window ? window->styles : scene.styles),
          m_window(window), m_fonts(scene.fonts.size() + 1), m_colors(m_styles.size()) {
        if (!window) return;
        m_scale = view.scale * std::hypot(window->x.x, window->x.y);
        m_turn = std::atan2(window->x.y, window->x.x);
    }

    void paint(const Scene::Seen& seen) {
        for (const Scene::Dot& dot : seen.dots) {
            if (!m_styles[dot.style].shown) continue;
            setStyle(dot.style, false);
            m_dots.append(toScreen(dot.at));
        }
        flushBatch();
        for (const std::uint32_t number : seen.items)
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
        if (dashed && pattern.length * m_scale >= legiblePattern) {
            const double width = std::max(pen.widthF(), 1.0);
            QList<qreal> dashes;
            for (const double dash : pattern.dashes) {
                const bool gap = dash < 0;
                if (gap != (dashes.size() % 2 != 0)) dashes.append(0);
                dashes.append(std::max(std::abs(dash) * m_scale / width, gap ? 0 : 1 / width));
            }
            if (dashes.size() % 2 != 0) dashes.append(0);
            pen.setCapStyle(Qt::FlatCap);
            pen.setDashPattern(dashes);
        }
        m_painter.setPen(pen);
    }

    void shape(const Item& item, bool filled) {
        if (item.kind == Item::Kind::arc) {
            arc(m_scene.points.data() + item.first);
            return;
        }
        const auto points = m_scene.pointsOf(item);
        if (item.kind == Item::Kind::mark) {
            const QPointF p = toScreen(points[0]);
            m_lines.append({p - QPointF(markSize, 0), p + QPointF(markSize, 0)});
            m_lines.append({p - QPointF(0, markSize), p + QPointF(0, markSize)});
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

    // Cuts the line to the view where the painter would have to count pixels by the billion.
    void line(QPointF a, QPointF b) {
        if (isFar(a) || isFar(b)) {
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
            if (!(from <= to)) return;
            b = a + step * to;
            a += step * from;
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
        // Chords that stay within a fifth of a pixel.
        const double step = radius > 0.2 ? 2 * std::acos(1 - std::min(0.2 / radius, 1.0)) : 2;
        const int chords = std::clamp(static_cast<int>(std::ceil(turn / step)), 2, 4096);
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
        if (pixels < legibleHeight) {
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
    QPolygonF m_line;
    QList<QLineF> m_lines;
    QList<QPointF> m_dots;
    std::uint32_t m_current = none;
    bool m_dashed = false;
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
    box.add(toDrawing(area.topLeft() - QPointF(markSize, markSize)));
    box.add(toDrawing(area.bottomRight() + QPointF(markSize, markSize)));
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
    const double size = window.x.x * window.y.y - window.x.y * window.y.x;
    Box model;
    if (box.empty() || box.bottom > box.top || !(std::abs(size) > 0)) return model;
    for (const OdGePoint2d corner : {OdGePoint2d{box.left, box.bottom}, OdGePoint2d{box.right, box.bottom},
                                     OdGePoint2d{box.left, box.top}, OdGePoint2d{box.right, box.top}}) {
        const double dx = corner.x - window.origin.x, dy = corner.y - window.origin.y;
        model.add(OdGePoint2d{(dx * window.y.y - dy * window.y.x) / size,
                              (dy * window.x.x - dx * window.x.y) / size});
    }
    return model;
}

} // namespace

void ScenePainter::paint(QPainter& painter, const Scene& scene, const Scene::Seen& seen) const {
    for (const ViewportPicture& window : scene.viewports) {
        const Box model = modelBox(window, visibleBox());
        if (model.empty() || !window.model) continue;
        Scene::Seen through;
        window.model->look(model, 1 / (scale * std::hypot(window.x.x, window.x.y)), through);
        QPolygonF outline;
        for (const OdGePoint2d& corner : window.clip)
            outline.append(toScreen(corner));
        QPainterPath clip;
        clip.addPolygon(outline);
        clip.closeSubpath();
        painter.save();
        painter.setClipPath(clip);
        painter.setRenderHint(QPainter::Antialiasing, through.items.size() < few);
        Brush(painter, *this, *window.model, &window).paint(through);
        painter.restore();
    }
    painter.setRenderHint(QPainter::Antialiasing, seen.items.size() < few);
    Brush(painter, *this, scene, nullptr).paint(seen);
}

void ScenePainter::outline(QPainter& painter, const Scene& scene, std::span<const std::uint32_t> items) const {
    Brush(painter, *this, scene, nullptr).outline(items);
}
