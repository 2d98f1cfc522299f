#include "tavocad/window/DrawingView.h"

#include "tavocad/window/QtText.h"

#include <QKeyEvent>
#include <QMouseEvent>
#include <QPainter>
#include <QPainterPath>
#include <QWheelEvent>

#include <algorithm>
#include <cmath>
#include <numbers>

using tv::scene::Box;
using tv::scene::Paint;

namespace {
constexpr double margin = 0.05; // of the view, left free around the drawing
constexpr double smallestScale = 1e-12, largestScale = 1e12;
constexpr double markSize = 3;          // half of a point's cross, pixels
constexpr double legibleHeight = 2.5;   // smaller text is drawn as a line
constexpr std::size_t fewPaths = 50000; // beyond that, edges are not smoothed
} // namespace

DrawingView::DrawingView(QWidget* parent) : QWidget(parent), m_scene(std::make_shared<tv::scene::Scene>()) {
    setMouseTracking(true);
    setFocusPolicy(Qt::StrongFocus);
    setAutoFillBackground(true);
    setBackgroundRole(QPalette::Base);
    setCursor(Qt::CrossCursor);
}

void DrawingView::setScene(std::shared_ptr<const tv::scene::Scene> scene) {
    m_scene = std::move(scene);
    if (m_untouched) zoomExtents();
    update();
}

void DrawingView::zoomExtents() {
    m_untouched = true;
    const Box& box = m_scene->box;
    if (!box.empty()) {
        m_center = {box.left + (box.right - box.left) / 2, box.bottom + (box.top - box.bottom) / 2};
        const double width = std::max(box.right - box.left, 1e-9),
                     height = std::max(box.top - box.bottom, 1e-9);
        m_scale = std::clamp(std::min(this->width() / width, this->height() / height) * (1 - 2 * margin),
                             smallestScale, largestScale);
    } else {
        m_center = {};
        m_scale = 1;
    }
    update();
}

void DrawingView::beginPick(std::optional<OdGePoint2d> base) {
    m_picking = true;
    m_pickBase = base;
    setFocus();
    update();
}

void DrawingView::endPick() {
    m_picking = false;
    m_pickBase.reset();
    update();
}

QPointF DrawingView::toScreen(OdGePoint2d point) const {
    return {width() / 2.0 + (point.x - m_center.x) * m_scale,
            height() / 2.0 - (point.y - m_center.y) * m_scale};
}

OdGePoint2d DrawingView::toDrawing(QPointF point) const {
    return {m_center.x + (point.x() - width() / 2.0) / m_scale,
            m_center.y - (point.y() - height() / 2.0) / m_scale};
}

Box DrawingView::visibleBox() const {
    Box box;
    box.add(toDrawing(QPointF(-markSize, -markSize)));
    box.add(toDrawing(QPointF(width() + markSize, height() + markSize)));
    return box;
}

QColor DrawingView::colorOf(const Paint& paint) const {
    return paint.foreground ? palette().color(QPalette::Text) : QColor::fromRgb(paint.rgb);
}

// --- painting
// --------------------------------------------------------------------------------------------------------

void DrawingView::paintEvent(QPaintEvent*) {
    QPainter painter(this);
    painter.setRenderHint(QPainter::Antialiasing, m_scene->paths.size() < fewPaths);
    const Box visible = visibleBox();
    paintPaths(painter, visible);
    paintTexts(painter, visible);
    paintMarks(painter, visible);
    if (m_picking) paintPick(painter);
}

void DrawingView::paintPaths(QPainter& painter, const Box& visible) const {
    const auto& scene = *m_scene;
    std::optional<Paint> current;
    QColor color;
    QPolygonF line;
    for (std::size_t i = 0; i < scene.paths.size(); ++i) {
        if (i % tv::scene::Scene::chunk == 0 && !scene.chunks[i / tv::scene::Scene::chunk].meets(visible)) {
            i += tv::scene::Scene::chunk - 1;
            continue;
        }
        const tv::scene::Path& path = scene.paths[i];
        if (!path.box.meets(visible)) continue;
        if (current != path.paint) {
            current = path.paint;
            color = colorOf(path.paint);
            painter.setPen(QPen(color, 0)); // one pixel, however far zoomed in
        }
        line.resize(0);
        for (std::size_t p = path.first; p < path.first + path.count; ++p)
            line.append(toScreen(scene.points[p]));
        painter.setBrush(path.filled ? QBrush(color) : QBrush(Qt::NoBrush));
        if (path.filled)
            painter.drawPolygon(line, Qt::WindingFill); // a wide arc may overlap itself
        else
            painter.drawPolyline(line);
    }
}

void DrawingView::paintTexts(QPainter& painter, const Box& visible) const {
    QFont font = this->font();
    constexpr int designSize = 64; // pixels; scaled to the wanted height when painted
    font.setPixelSize(designSize);
    const QFontMetricsF metrics(font);
    for (const tv::scene::Text& text : m_scene->texts) {
        const double pixels = text.height * m_scale;
        if (!text.box.meets(visible) || pixels < 0.3) continue;
        const QStringList lines = toQt(text.text).split(QLatin1Char('\n'));
        painter.save();
        painter.translate(toScreen(text.at));
        painter.rotate(-text.angle * 180 / std::numbers::pi);
        const double scale = pixels / metrics.capHeight();
        painter.scale(scale * text.widthFactor, scale);
        painter.setPen(QPen(colorOf(text.paint), 0));
        const double step = metrics.capHeight() * 5 / 3; // the usual distance of lines in a drawing
        const double below = step * static_cast<double>(lines.size() - 1);
        using Vertical = tv::scene::Text::Vertical;
        double y = 0;
        if (text.vertical == Vertical::top)
            y = metrics.capHeight();
        else if (text.vertical == Vertical::middle)
            y = (metrics.capHeight() - below) / 2;
        else if (text.vertical == Vertical::bottom)
            y = -below;
        for (const QString& line : lines) {
            const double width = metrics.horizontalAdvance(line);
            using Horizontal = tv::scene::Text::Horizontal;
            const double x = text.horizontal == Horizontal::center  ? -width / 2
                             : text.horizontal == Horizontal::right ? -width
                                                                    : 0;
            if (pixels < legibleHeight) {
                painter.drawLine(QPointF(x, y - metrics.capHeight() / 2),
                                 QPointF(x + width, y - metrics.capHeight() / 2));
            } else {
                painter.setFont(font);
                painter.drawText(QPointF(x, y), line);
            }
            y += step;
        }
        painter.restore();
    }
}

void DrawingView::paintMarks(QPainter& painter, const Box& visible) const {
    for (const tv::scene::Mark& mark : m_scene->marks) {
        Box at;
        at.add(mark.at);
        if (!at.meets(visible)) continue;
        const QPointF p = toScreen(mark.at);
        painter.setPen(QPen(colorOf(mark.paint), 0));
        painter.drawLine(p - QPointF(markSize, 0), p + QPointF(markSize, 0));
        painter.drawLine(p - QPointF(0, markSize), p + QPointF(0, markSize));
    }
}

void DrawingView::paintPick(QPainter& painter) const {
    if (!m_pointer) return;
    painter.setRenderHint(QPainter::Antialiasing, false);
    painter.setPen(QPen(palette().color(QPalette::Text), 0));
    painter.drawLine(QPointF(0, m_pointer->y()), QPointF(width(), m_pointer->y()));
    painter.drawLine(QPointF(m_pointer->x(), 0), QPointF(m_pointer->x(), height()));
    if (!m_pickBase) return;
    painter.setRenderHint(QPainter::Antialiasing, true);
    painter.setPen(QPen(palette().color(QPalette::Highlight), 0, Qt::DashLine));
    painter.drawLine(toScreen(*m_pickBase), *m_pointer);
}

// --- pointer and keys
// ------------------------------------------------------------------------------------------------

void DrawingView::resizeEvent(QResizeEvent* event) {
    QWidget::resizeEvent(event);
    if (m_untouched) zoomExtents();
}

void DrawingView::mousePressEvent(QMouseEvent* event) {
    if (m_picking && event->button() == Qt::LeftButton) {
        const OdGePoint2d at = toDrawing(event->position());
        Q_EMIT picked(at.x, at.y);
    } else if (m_picking && event->button() == Qt::RightButton) {
        Q_EMIT pickCancelled();
    } else if (event->button() == Qt::LeftButton || event->button() == Qt::MiddleButton) {
        m_dragFrom = event->position();
    }
}

void DrawingView::mouseMoveEvent(QMouseEvent* event) {
    m_pointer = event->position();
    if (m_dragFrom) {
        const QPointF by = *m_pointer - *m_dragFrom;
        m_center.x -= by.x() / m_scale;
        m_center.y += by.y() / m_scale;
        m_dragFrom = m_pointer;
        m_untouched = false;
        update();
    }
    if (m_picking) update();
    const OdGePoint2d at = toDrawing(*m_pointer);
    Q_EMIT pointed(at.x, at.y);
}

void DrawingView::mouseReleaseEvent(QMouseEvent*) { m_dragFrom.reset(); }

void DrawingView::leaveEvent(QEvent*) {
    m_pointer.reset();
    update();
}

void DrawingView::wheelEvent(QWheelEvent* event) {
    const double notches = event->angleDelta().y() / 120.0;
    if (notches == 0) return;
    const OdGePoint2d fixed = toDrawing(event->position());
    m_scale = std::clamp(m_scale * std::pow(1.25, notches), smallestScale, largestScale);
    const OdGePoint2d moved = toDrawing(event->position());
    m_center.x += fixed.x - moved.x;
    m_center.y += fixed.y - moved.y;
    m_untouched = false;
    update();
}

void DrawingView::keyPressEvent(QKeyEvent* event) {
    if (m_picking && event->key() == Qt::Key_Escape)
        Q_EMIT pickCancelled();
    else
        QWidget::keyPressEvent(event); // the window hands letters on to the command line
}
