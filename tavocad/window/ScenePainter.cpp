#include "tavocad/window/ScenePainter.h"

#include "tavocad/window/RasterLines.h"
#include "tavocad/window/ReadableColor.h"
#include "tavocad/window/SceneBrush.h"

#include <optional>

using namespace tv::scene;

namespace {

constexpr std::size_t few = 20000; // items; beyond that lines are not smoothed
constexpr float paperEdge = 0.5F;  // how much of the foreground

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
void paintSeen(const Scene& scene, const Scene::Seen& seen, SceneBrush& brush, RasterLines* lines) {
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
        SceneBrush brush(painter, *this, what, window);
        std::optional<RasterLines> lines;
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
    SceneBrush(painter, *this, scene, nullptr).outline(items);
}
