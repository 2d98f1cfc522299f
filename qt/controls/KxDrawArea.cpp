#include "qt/controls/KxDrawArea.h"

#include "qt/controls/PictureIcon.h"

#include <QMouseEvent>
#include <QPainter>

namespace tv::qt {
namespace {
constexpr double margin = 4; // logical pixels around the picture
QColor colorOf(std::uint32_t rgb) { return QColor::fromRgb(0xff000000U | rgb); }
} // namespace

KxDrawArea::KxDrawArea(QWidget* parent) : QWidget(parent) {}

QTransform KxDrawArea::toPixels() const {
    if (!m_control) return {};
    const auto& [low, high, items, background] = m_control->displayList();
    const double width = high.x - low.x, height = high.y - low.y;
    const double roomX = std::max(1.0, this->width() - 2 * margin),
                 roomY = std::max(1.0, this->height() - 2 * margin);
    double scale = 1;
    if (width > 0 && height > 0)
        scale = std::min(roomX / width, roomY / height);
    else if (width > 0)
        scale = roomX / width;
    else if (height > 0)
        scale = roomY / height;
    QTransform map;
    map.translate(this->width() / 2.0, this->height() / 2.0);
    map.scale(scale, -scale);
    map.translate(-(low.x + high.x) / 2, -(low.y + high.y) / 2);
    return map;
}

void KxDrawArea::paintEvent(QPaintEvent*) {
    QPainter painter(this);
    painter.setRenderHint(QPainter::Antialiasing);
    QColor background = palette().color(QPalette::Base);
    if (m_control && m_control->displayList().background)
        background = colorOf(*m_control->displayList().background);
    painter.setPen(QPen(palette().color(QPalette::Mid), 1));
    painter.setBrush(background);
    painter.drawRect(QRectF(rect()).adjusted(0.5, 0.5, -0.5, -0.5));
    if (!m_control) return;
    if (!isEnabled()) painter.setOpacity(0.4);
    painter.setClipRect(rect().adjusted(1, 1, -1, -1));
    paintDisplayList(painter, m_control->displayList(), toPixels(), palette());
}

void KxDrawArea::mouseReleaseEvent(QMouseEvent* event) {
    if (m_control && event->button() == Qt::LeftButton && rect().contains(event->position().toPoint()))
        emit clicked(toPixels().inverted().map(event->position()));
}

DrawAreaBridge::DrawAreaBridge(CDrawArea& area, KxDrawArea& widget) : Bridge(area, widget), m_area(widget) {
    m_area.setControl(&area);
    connect(&widget, &KxDrawArea::clicked, this, [this, &area](QPointF p) {
        user([&] { return area.userClick({p.x(), p.y()}); });
    });
}

void DrawAreaBridge::show(ui::Change change) {
    if (change == ui::Change::items) m_area.update();
}

} // namespace tv::qt
