#include "tavocad/window/DrawingView.h"

#include <QKeyEvent>
#include <QMouseEvent>
#include <QPainter>
#include <QWheelEvent>

#include <algorithm>
#include <cmath>

using tv::scene::Box;

namespace {
constexpr double margin = 0.05; // of the view, left free around the drawing
constexpr double smallestScale = 1e-12, largestScale = 1e12;
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

ScenePainter DrawingView::view() const {
    ScenePainter view;
    view.area = rect();
    view.center = m_center;
    view.scale = m_scale;
    view.foreground = palette().color(QPalette::Text);
    view.background = palette().color(QPalette::Base);
    view.font = font();
    return view;
}

QPointF DrawingView::toScreen(OdGePoint2d point) const { return view().toScreen(point); }

OdGePoint2d DrawingView::toDrawing(QPointF point) const { return view().toDrawing(point); }

// --- painting
// --------------------------------------------------------------------------------------------------------

void DrawingView::paintEvent(QPaintEvent*) {
    QPainter painter(this);
    view().paint(painter, *m_scene);
    if (m_picking) paintPick(painter);
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
