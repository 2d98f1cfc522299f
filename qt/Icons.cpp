#include "qt/Icons.h"

#include "qt/PaintedIcon.h"

#include <QPainter>
#include <QPainterPath>

namespace tv::qt {
namespace {

// Drawn on a square of 32 by 32.
void disc(QPainter& painter, QRgb color) {
    painter.setPen(Qt::NoPen);
    painter.setBrush(QColor::fromRgb(color));
    painter.drawEllipse(QRectF(1, 1, 30, 30));
}

void letter(QPainter& painter, const QString& text, const QColor& color, const QRectF& area) {
    QFont font = painter.font();
    font.setPixelSize(22);
    font.setBold(true);
    painter.setFont(font);
    painter.setPen(color);
    painter.drawText(area, Qt::AlignCenter, text);
}

void errorCross(QPainter& painter) {
    disc(painter, 0xffc42b1c);
    painter.setPen(QPen(Qt::white, 3.6, Qt::SolidLine, Qt::RoundCap));
    painter.drawLine(QPointF(10.5, 10.5), QPointF(21.5, 21.5));
    painter.drawLine(QPointF(21.5, 10.5), QPointF(10.5, 21.5));
}

void warningTriangle(QPainter& painter) {
    QPainterPath path;
    path.moveTo(16, 3);
    path.lineTo(30, 28.5);
    path.lineTo(2, 28.5);
    path.closeSubpath();
    painter.setPen(QPen(QColor(0xb3, 0x7a, 0x00), 1.4, Qt::SolidLine, Qt::RoundCap, Qt::RoundJoin));
    painter.setBrush(QColor(0xff, 0xc8, 0x3d));
    painter.drawPath(path);
    painter.setPen(QPen(QColor(0x33, 0x26, 0x00), 3, Qt::SolidLine, Qt::RoundCap));
    painter.drawLine(QPointF(16, 11.5), QPointF(16, 19));
    painter.drawPoint(QPointF(16, 24.2));
}

// A sheet with a drawn corner: the application itself.
void drawingSheet(QPainter& painter) {
    painter.setPen(Qt::NoPen);
    painter.setBrush(QColor(0x1f, 0x5f, 0xbf));
    painter.drawRoundedRect(QRectF(2, 2, 28, 28), 5, 5);
    painter.setPen(QPen(Qt::white, 2.4, Qt::SolidLine, Qt::RoundCap, Qt::RoundJoin));
    painter.drawPolyline(QPolygonF({QPointF(8, 8), QPointF(8, 24), QPointF(24, 24)}));
    painter.drawArc(QRectF(-4, 12, 24, 24), 0, 90 * 16);
}

} // namespace

QIcon standardIcon(ui::Icon icon) {
    const QRectF all(0, 0, 32, 32);
    switch (icon) {
    case ui::Icon::none:
        return {};
    case ui::Icon::error:
        return paintedIcon({32, 32}, errorCross);
    case ui::Icon::warning:
        return paintedIcon({32, 32}, warningTriangle);
    case ui::Icon::application:
        return paintedIcon({32, 32}, drawingSheet);
    case ui::Icon::question:
    case ui::Icon::information: {
        const QString text = icon == ui::Icon::question ? QStringLiteral("?") : QStringLiteral("i");
        return paintedIcon({32, 32}, [all, text](QPainter& painter) {
            disc(painter, 0xff1f5fbf);
            letter(painter, text, Qt::white, all);
        });
    }
    }
    return {};
}

} // namespace tv::qt
