#include "tavocad/window/DrawingView.h"

#include "tavocad/window/ReadableColor.h"

#include <QHelpEvent>
#include <QKeyEvent>
#include <QMouseEvent>
#include <QPainter>
#include <QToolTip>
#include <QWheelEvent>

#include <algorithm>
#include <cmath>

using tv::scene::Box;
using tv::scene::Scene;
using Method = TavoSelectionQuery::Method;

namespace {
constexpr double margin = 0.05; // of the view, left free around the drawing
constexpr double smallestScale = 1e-12, largestScale = 1e12;
constexpr double wheelStep = 1.25, keyStep = 1.5;
constexpr double panStep = 0.1;          // of the view, for one arrow key
constexpr int hoverDelay = 15;           // milliseconds from the last move of the pointer
constexpr int oneMove = 700;             // milliseconds; what follows sooner is still the same move of the view
constexpr std::size_t mostPlaces = 30;   // to go back to
constexpr std::size_t manyItems = 20000; // more are not smoothed
constexpr double smallItem = 6;          // pixels; what is smaller is marked by a square when it is selected
constexpr int squareSize = 5;            // pixels
constexpr double dragStart = 4;          // pixels; a shorter drag is a click
constexpr QRgb insideColor = 0xFF2F7FE0; // of the window that takes what lies inside
constexpr QRgb crossingColor = 0xFF2AA34A; // of the one that takes what it touches
} // namespace

DrawingView::DrawingView(QWidget* parent) : QWidget(parent), m_scene(std::make_shared<Scene>()) {
    setMouseTracking(true);
    setFocusPolicy(Qt::StrongFocus);
    setAttribute(Qt::WA_OpaquePaintEvent);
    setCursor(Qt::CrossCursor);
    m_hoverTimer.setSingleShot(true);
    m_hoverTimer.setInterval(hoverDelay);
    connect(&m_hoverTimer, &QTimer::timeout, this, &DrawingView::updateHover);
}

// --- what is shown ---

void DrawingView::setScene(std::shared_ptr<const Scene> scene) {
    m_scene = std::move(scene);
    m_hover.reset();
    markSelected();
    if (m_untouched) fitAll();
    redraw();
}

void DrawingView::dropScene() {
    m_scene = std::make_shared<Scene>();
    m_hover.reset();
    markSelected();
}

void DrawingView::setSelection(const TavoSelectionSet& selection) {
    m_selection = selection;
    markSelected();
    redraw();
}

void DrawingView::markSelected() {
    m_selected.assign(m_scene->entities.size(), false);
    m_anySelected = false;
    if (m_selection.empty()) return;
    for (std::uint32_t i = 0; i < m_selected.size(); ++i)
        if (m_selection.has(m_scene->idOf(i))) m_selected[i] = m_anySelected = true;
}

void DrawingView::setLineweights(bool shown) {
    if (shown == m_lineweights) return;
    m_lineweights = shown;
    redraw();
}

void DrawingView::setPreview(bool shown) {
    m_preview = shown;
    if (!shown) m_hover.reset();
    update();
}

void DrawingView::redraw() {
    m_stale = true;
    update();
}

// --- what part of it ---

void DrawingView::zoom(const ZoomRequest& request) {
    using Kind = ZoomRequest::Kind;
    if (request.kind == Kind::previous) {
        if (m_places.empty()) return;
        const Place place = m_places.back();
        m_places.pop_back();
        moveTo(place);
        return;
    }
    rememberPlace(false);
    if (request.kind == Kind::factor) {
        moveTo({m_center, m_scale * request.factor});
        return;
    }
    if (request.kind == Kind::extents) return fitAll();
    Box box;
    box.add(request.first);
    box.add(request.second);
    showBox(box, 1);
}

void DrawingView::fitAll() {
    showBox(m_scene->extents, 1 - 2 * margin);
    m_untouched = true;
}

// `free`: the part of the view that the box may fill.
void DrawingView::showBox(Box box, double free) {
    Place place;
    if (!box.empty()) {
        place.center = {box.left + box.width() / 2, box.bottom + box.height() / 2};
        place.scale =
            free * std::min(width() / std::max(box.width(), 1e-9), height() / std::max(box.height(), 1e-9));
    }
    moveTo(place);
}

void DrawingView::moveTo(const Place& place) {
    m_center = place.center;
    m_scale = std::isfinite(place.scale) ? std::clamp(place.scale, smallestScale, largestScale) : 1;
    m_untouched = false;
    m_hover.reset();
    redraw();
    Q_EMIT viewChanged();
}

void DrawingView::zoomAbout(QPointF fixed, double factor) {
    rememberPlace(true);
    const OdGePoint2d before = toDrawing(fixed);
    m_scale = std::clamp(m_scale * factor, smallestScale, largestScale);
    const OdGePoint2d after = toDrawing(fixed);
    moveTo({{m_center.x + before.x - after.x, m_center.y + before.y - after.y}, m_scale});
}

void DrawingView::panBy(QPointF pixels) {
    rememberPlace(true);
    moveTo({{m_center.x - pixels.x() / m_scale, m_center.y + pixels.y() / m_scale}, m_scale});
}

// Several steps of one move by hand are one place to go back to.
void DrawingView::rememberPlace(bool byHand) {
    const bool same = byHand && m_sinceMove.isValid() && m_sinceMove.elapsed() < oneMove;
    if (byHand)
        m_sinceMove.start();
    else
        m_sinceMove.invalidate();
    if (same) return;
    if (m_places.size() == mostPlaces) m_places.erase(m_places.begin());
    m_places.push_back({m_center, m_scale});
}

ScenePainter DrawingView::view() const {
    ScenePainter view;
    view.area = rect();
    view.center = m_center;
    view.scale = m_scale;
    view.foreground = palette().color(QPalette::Text);
    view.background = palette().color(QPalette::Base);
    view.font = font();
    view.lineweights = m_lineweights;
    return view;
}

OdGePoint2d DrawingView::toDrawing(QPointF point) const { return view().toDrawing(point); }

// --- painting ---

QColor DrawingView::markColor() const {
    return readableOn(palette().color(QPalette::Highlight), palette().color(QPalette::Base));
}

void DrawingView::makePicture() {
    const qreal pixels = devicePixelRatioF();
    if (m_picture.size() != size() * pixels) m_picture = QImage(size() * pixels, QImage::Format_RGB32);
    m_picture.setDevicePixelRatio(pixels);
    m_picture.fill(palette().color(QPalette::Base));
    const ScenePainter view = this->view();
    const Scene::Seen seen = view.look(*m_scene);
    view.paint(m_picture, *m_scene, seen);
    if (m_anySelected) {
        QPainter painter(&m_picture);
        painter.setRenderHint(QPainter::Antialiasing, seen.items.size() < manyItems);
        std::vector<std::uint32_t> items;
        std::ranges::copy_if(seen.items, std::back_inserter(items), [this](std::uint32_t item) {
            return m_selected[m_scene->items[item].entity] && !isSmall(m_scene->boxOf(m_scene->items[item]));
        });
        // The background's colour first, so that the dashes show on lines of any colour; texts stay legible.
        std::vector<std::uint32_t> lines;
        std::ranges::copy_if(items, std::back_inserter(lines), [this](std::uint32_t item) {
            return m_scene->items[item].kind != tv::scene::Item::Kind::text;
        });
        painter.setPen(QPen(view.background, 3));
        view.outline(painter, *m_scene, lines);
        QPen pen(markColor(), 2);
        pen.setCapStyle(Qt::FlatCap);
        pen.setDashPattern({3, 2});
        painter.setPen(pen);
        view.outline(painter, *m_scene, items);
        markSmall(painter, view);
    }
    m_stale = false;
}

bool DrawingView::isSmall(const Box& box) const {
    return box.width() * m_scale < smallItem && box.height() * m_scale < smallItem;
}

// What is selected and too small for dashes to be seen, dots among it, gets a square of constant size; many
// beside each other share one.
void DrawingView::markSmall(QPainter& painter, const ScenePainter& view) const {
    const int columns = width() / squareSize + 1, rows = height() / squareSize + 1;
    std::vector<bool> marked(static_cast<std::size_t>(columns) * static_cast<std::size_t>(rows));
    const QRectF area(rect());
    painter.setRenderHint(QPainter::Antialiasing, false);
    painter.setPen(view.background);
    painter.setBrush(markColor());
    for (std::uint32_t number = 0; number < m_selected.size(); ++number) {
        if (!m_selected[number]) continue;
        const auto& entity = m_scene->entities[number];
        for (std::uint32_t i = entity.firstItem; i < entity.firstItem + entity.itemCount; ++i) {
            const auto& item = m_scene->items[i];
            const Box box = m_scene->boxOf(item);
            if (box.empty() || !isSmall(box) || !m_scene->styleOf(item).shown) continue;
            const QPointF at = view.toScreen({box.left + box.width() / 2, box.bottom + box.height() / 2});
            if (!area.contains(at)) continue;
            const int column = static_cast<int>(at.x()) / squareSize,
                      row = static_cast<int>(at.y()) / squareSize;
            const auto cell = static_cast<std::size_t>(row) * static_cast<std::size_t>(columns) +
                              static_cast<std::size_t>(column);
            if (marked[cell]) continue;
            marked[cell] = true;
            painter.drawRect(static_cast<int>(at.x()) - squareSize / 2 - 1,
                             static_cast<int>(at.y()) - squareSize / 2 - 1, squareSize + 1, squareSize + 1);
        }
    }
    painter.setBrush(Qt::NoBrush);
}

void DrawingView::paintEvent(QPaintEvent*) {
    if (m_stale) makePicture();
    QPainter painter(this);
    painter.drawImage(0, 0, m_picture);
    if (m_hover && !m_picking && !m_boxFrom) {
        const auto& entity = m_scene->entities[m_hover->entity];
        std::vector<std::uint32_t> items(std::min<std::uint32_t>(entity.itemCount, 20000));
        for (std::uint32_t i = 0; i < items.size(); ++i)
            items[i] = entity.firstItem + i;
        QColor color = markColor();
        color.setAlpha(150);
        painter.setRenderHint(QPainter::Antialiasing);
        painter.setPen(QPen(color, 4, Qt::SolidLine, Qt::RoundCap, Qt::RoundJoin));
        view().outline(painter, *m_scene, items);
    }
    if (m_boxFrom) paintBox(painter);
    if (m_picking) paintPick(painter);
}

void DrawingView::paintBox(QPainter& painter) const {
    if (!m_pointer) return;
    const bool crossing = m_pointer->x() < m_boxFrom->x();
    QColor color = QColor::fromRgb(crossing ? crossingColor : insideColor);
    painter.setRenderHint(QPainter::Antialiasing, false);
    painter.setPen(QPen(color, 1, crossing ? Qt::DashLine : Qt::SolidLine));
    color.setAlpha(45);
    painter.setBrush(color);
    painter.drawRect(QRectF(*m_boxFrom, *m_pointer).normalized());
    painter.setBrush(Qt::NoBrush);
}

void DrawingView::paintPick(QPainter& painter) const {
    if (!m_pointer) return;
    painter.setRenderHint(QPainter::Antialiasing, false);
    painter.setPen(QPen(palette().color(QPalette::Text), 0));
    painter.drawLine(QPointF(0, m_pointer->y()), QPointF(width(), m_pointer->y()));
    painter.drawLine(QPointF(m_pointer->x(), 0), QPointF(m_pointer->x(), height()));
    if (!m_pickBase) return;
    painter.setRenderHint(QPainter::Antialiasing, true);
    painter.setPen(QPen(markColor(), 0, Qt::DashLine));
    painter.drawLine(view().toScreen(*m_pickBase), *m_pointer);
}

void DrawingView::resizeEvent(QResizeEvent* event) {
    QWidget::resizeEvent(event);
    if (m_untouched) fitAll();
    redraw();
}

void DrawingView::changeEvent(QEvent* event) {
    QWidget::changeEvent(event);
    if (event->type() == QEvent::PaletteChange || event->type() == QEvent::FontChange) redraw();
}

// --- points ---

void DrawingView::beginPick(std::optional<OdGePoint2d> base) {
    m_picking = true;
    m_pickBase = base;
    dropBox();
    setFocus();
    update();
}

void DrawingView::endPick() {
    m_picking = false;
    m_pickBase.reset();
    update();
}

// --- objects ---

void DrawingView::updateHover() {
    std::optional<Scene::Hit> hit;
    if (m_preview && m_pointer && !m_picking && !m_boxFrom && !m_dragFrom)
        hit = m_scene->pick(toDrawing(*m_pointer), m_pickBox / m_scale);
    const bool changed = hit.has_value() != m_hover.has_value() || (hit && hit->entity != m_hover->entity);
    m_hover = hit;
    if (!changed) return;
    QToolTip::hideText();
    update();
}

void DrawingView::press(QPointF at, bool remove) {
    TavoSelectionQuery query;
    query.method = Method::kPoint;
    query.points = {toDrawing(at)};
    query.tolerance = m_pickBox / m_scale;
    if (m_scene->pick(query.points[0], query.tolerance)) {
        Q_EMIT chosen(query, remove);
        return;
    }
    m_boxFrom = at;
    m_hover.reset();
    update();
}

void DrawingView::finishBox(QPointF at, bool remove) {
    TavoSelectionQuery query;
    query.method = at.x() < m_boxFrom->x() ? Method::kCrossing : Method::kWindow;
    query.points = {toDrawing(*m_boxFrom), toDrawing(at)};
    dropBox();
    Q_EMIT chosen(query, remove);
}

void DrawingView::dropBox() {
    m_boxFrom.reset();
    update();
}

// --- pointer and keys ---

bool DrawingView::event(QEvent* event) {
    if (event->type() == QEvent::ToolTip) {
        const auto* help = static_cast<QHelpEvent*>(event);
        if (m_hover && hint)
            QToolTip::showText(help->globalPos(), hint(m_scene->idOf(m_hover->entity)), this);
        else
            QToolTip::hideText();
        return true;
    }
    return QWidget::event(event);
}

void DrawingView::mousePressEvent(QMouseEvent* event) {
    const QPointF at = event->position();
    const bool left = event->button() == Qt::LeftButton;
    const bool remove = event->modifiers() & Qt::ShiftModifier;
    m_pointer = at;
    if (event->button() == Qt::MiddleButton || (left && m_space))
        m_dragFrom = at;
    else if (m_picking && left)
        Q_EMIT picked(toDrawing(at).x, toDrawing(at).y);
    else if (m_picking && event->button() == Qt::RightButton)
        Q_EMIT pickCancelled();
    else if (left && m_boxFrom)
        finishBox(at, remove);
    else if (left)
        press(at, remove);
    else if (event->button() == Qt::RightButton && m_boxFrom)
        dropBox();
    else if (event->button() == Qt::RightButton)
        Q_EMIT finished();
}

void DrawingView::mouseMoveEvent(QMouseEvent* event) {
    m_pointer = event->position();
    if (m_dragFrom) {
        panBy(*m_pointer - *m_dragFrom);
        m_dragFrom = m_pointer;
    }
    if (m_picking || m_boxFrom) update();
    if (!m_hoverTimer.isActive()) m_hoverTimer.start();
    const OdGePoint2d at = toDrawing(*m_pointer);
    Q_EMIT pointed(at.x, at.y);
}

// A window can be dragged, or begun with one click and ended with the next.
void DrawingView::mouseReleaseEvent(QMouseEvent* event) {
    m_dragFrom.reset();
    if (event->button() != Qt::LeftButton || !m_boxFrom) return;
    const QPointF by = event->position() - *m_boxFrom;
    if (std::max(std::abs(by.x()), std::abs(by.y())) >= dragStart)
        finishBox(event->position(), event->modifiers() & Qt::ShiftModifier);
}

void DrawingView::mouseDoubleClickEvent(QMouseEvent* event) {
    if (event->button() == Qt::MiddleButton)
        zoomExtents();
    else
        mousePressEvent(event);
}

void DrawingView::leaveEvent(QEvent*) {
    m_pointer.reset();
    m_hover.reset();
    update();
}

void DrawingView::wheelEvent(QWheelEvent* event) {
    const double notches = event->angleDelta().y() / 120.0;
    if (notches != 0) zoomAbout(event->position(), std::pow(wheelStep, notches));
}

void DrawingView::keyPressEvent(QKeyEvent* event) {
    const QPointF middle = QRectF(rect()).center();
    switch (event->key()) {
    case Qt::Key_Escape:
        if (m_picking)
            Q_EMIT pickCancelled();
        else if (m_boxFrom)
            dropBox();
        else
            Q_EMIT cancelled();
        return;
    case Qt::Key_Return:
    case Qt::Key_Enter:
        Q_EMIT finished();
        return;
    case Qt::Key_Space:
        m_space = true;
        return;
    case Qt::Key_Left:
        return panBy({width() * panStep, 0});
    case Qt::Key_Right:
        return panBy({-width() * panStep, 0});
    case Qt::Key_Up:
        return panBy({0, height() * panStep});
    case Qt::Key_Down:
        return panBy({0, -height() * panStep});
    case Qt::Key_PageUp:
        return zoomAbout(m_pointer.value_or(middle), keyStep);
    case Qt::Key_PageDown:
        return zoomAbout(m_pointer.value_or(middle), 1 / keyStep);
    case Qt::Key_Home:
        return zoomExtents();
    default:
        QWidget::keyPressEvent(event); // the window hands letters on to the command line
    }
}

void DrawingView::keyReleaseEvent(QKeyEvent* event) {
    if (event->key() == Qt::Key_Space && !event->isAutoRepeat())
        m_space = false;
    else
        QWidget::keyReleaseEvent(event);
}

void DrawingView::focusOutEvent(QFocusEvent* event) {
    m_space = false;
    QWidget::focusOutEvent(event);
}
