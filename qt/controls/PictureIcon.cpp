#include "qt/controls/PictureIcon.h"

#include "platform/toolkit/Pictures.h"
#include "qt/PaintedIcon.h"
#include "qt/controls/Bridge.h"

#include <QApplication>
#include <QPainter>
#include <QPalette>
#include <QTransform>

#include <unordered_map>

namespace tv::qt {
namespace {

QColor colorOf(std::uint32_t color, const QPalette& palette) {
    switch (color) {
    case ui::inkColor:
        return palette.color(QPalette::Text);
    case ui::paperColor:
        return palette.color(QPalette::Base);
    case ui::frameColor:
        return palette.color(QPalette::Shadow);
    default:
        return QColor::fromRgb(0xff000000U | color);
    }
}

void paintText(QPainter& painter, const ui::DrawItem& item, QPointF at, double scale) {
    QFont font = painter.font();
    if (!item.family.empty()) font.setFamily(toQt(item.family));
    if (item.bold) font.setBold(true);
    if (item.italic) font.setItalic(true);
    font.setPixelSize(std::max(1, qRound(item.radius * scale * 1.37))); // capital letters are item.radius high
    painter.setFont(font);
    painter.drawText(at, toQt(item.text));
}

void paintItem(QPainter& painter, const ui::DrawItem& item, const QTransform& map, const QPalette& palette) {
    using Shape = ui::DrawItem::Shape;
    const bool isLine = item.shape == Shape::polyline || item.shape == Shape::text;
    const bool needsStroke = item.stroke || isLine || !item.fill;
    painter.setPen(needsStroke ? QPen(colorOf(item.stroke.value_or(ui::inkColor), palette), item.width,
                                      Qt::SolidLine, Qt::RoundCap, Qt::RoundJoin)
                               : QPen(Qt::NoPen));
    painter.setBrush(item.fill ? QBrush(colorOf(*item.fill, palette)) : QBrush(Qt::NoBrush));
    QPolygonF points;
    for (const ui::DrawPoint& p : item.points)
        points << map.map(QPointF(p.x, p.y));
    if (points.isEmpty()) return;
    switch (item.shape) {
    case Shape::polyline:
        if (points.size() == 1)
            painter.drawPoint(points.front());
        else
            painter.drawPolyline(points);
        break;
    case Shape::polygon:
        painter.drawPolygon(points);
        break;
    case Shape::circle:
        painter.drawEllipse(points.front(), item.radius * map.m11(), item.radius * map.m11());
        break;
    case Shape::text:
        paintText(painter, item, points.front(), map.m11());
        break;
    }
}

// The icons of the pictures on screen; those of pictures that are gone are swept out when their number has
// doubled.
class IconCache {
  public:
    QIcon get(const ui::Picture& picture) {
        Entry& entry = m_icons[picture.get()];
        if (entry.picture.lock() != picture) {
            entry.picture = picture;
            entry.icon = make(picture);
        }
        const QIcon icon = entry.icon;
        if (m_icons.size() > m_sweepAt) sweep();
        return icon;
    }

  private:
    struct Entry {
        std::weak_ptr<const ui::DisplayList> picture;
        QIcon icon;
    };

    static QIcon make(const ui::Picture& picture) {
        return selectableIcon(iconSize(picture),
                              [kept = std::weak_ptr(picture)](QPainter& painter, bool selected) {
                                  const auto list = kept.lock();
                                  if (!list) return;
                                  QTransform map;
                                  map.translate(-list->low.x, list->high.y);
                                  map.scale(1, -1);
                                  QPalette palette = QApplication::palette();
                                  if (selected) {
                                      palette.setBrush(QPalette::Text, palette.highlightedText());
                                      palette.setBrush(QPalette::Base, palette.highlight());
                                      palette.setBrush(QPalette::Shadow, palette.highlightedText());
                                  }
                                  paintDisplayList(painter, *list, map, palette);
                              });
    }

    void sweep() {
        std::erase_if(m_icons, [](const auto& entry) { return entry.second.picture.expired(); });
        m_sweepAt = std::max<std::size_t>(256, m_icons.size() * 2);
    }

    std::unordered_map<const ui::DisplayList*, Entry> m_icons;
    std::size_t m_sweepAt = 256;
};

} // namespace

void paintDisplayList(QPainter& painter, const ui::DisplayList& list, const QTransform& map,
                      const QPalette& palette) {
    for (const ui::DrawItem& item : list.items)
        paintItem(painter, item, map, palette);
}

QSize iconSize(const ui::Picture& picture) {
    const ui::DrawPoint size = ui::pictureSize(picture);
    return picture ? QSize(qRound(size.x), qRound(size.y)) : QSize();
}

QIcon pictureIcon(const ui::Picture& picture) {
    // Never destroyed: icons at the program's end would outlive what they are painted with.
    static auto& cache = *new IconCache;
    return picture ? cache.get(picture) : QIcon();
}

} // namespace tv::qt
