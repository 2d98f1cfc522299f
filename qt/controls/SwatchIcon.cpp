#include "qt/controls/SwatchIcon.h"

#include "qt/PaintedIcon.h"

#include <QApplication>
#include <QPainter>
#include <QPalette>

#include <algorithm>
#include <cmath>
#include <numeric>

namespace tv::qt {
namespace {

constexpr QSize squareSize(16, 16), lineSize = largestSwatch;

QColor lineColor() { return QApplication::palette().color(QPalette::Text); }

void paintSquare(QPainter& painter, std::uint32_t rgb) {
    painter.setRenderHint(QPainter::Antialiasing, false);
    painter.setPen(QPen(QApplication::palette().color(QPalette::Shadow), 0));
    painter.setBrush(QColor::fromRgb(0xff000000U | rgb));
    painter.drawRect(QRectF(1, 1, 13, 13));
}

// The pattern shows twice at least, whatever its length in the drawing.
void paintDashes(QPainter& painter, const std::vector<double>& dashes) {
    const double length = std::accumulate(dashes.begin(), dashes.end(), 0.0,
                                          [](double sum, double dash) { return sum + std::abs(dash); });
    const double y = lineSize.height() / 2.0, end = lineSize.width() - 1;
    painter.setPen(QPen(lineColor(), 1.4, Qt::SolidLine, Qt::FlatCap));
    if (length <= 0) return painter.drawLine(QPointF(1, y), QPointF(end, y));
    const double scale = std::clamp(end / (2 * length), 0.0, 14.0);
    for (double x = 1; x < end;) {
        const double before = x;
        for (const double dash : dashes) {
            const double run = std::abs(dash) * scale;
            if (dash > 0)
                painter.drawLine(QPointF(x, y), QPointF(std::min(x + run, end), y));
            else if (dash == 0)
                painter.drawLine(QPointF(x, y), QPointF(std::min(x + 1.4, end), y));
            x += dash == 0 ? 1.4 : run;
            if (x >= end) break;
        }
        if (x <= before) break;
    }
}

// On screen a millimetre is drawn five pixels wide, so that the weights can be told apart.
void paintWeight(QPainter& painter, double millimetres) {
    const double width = std::clamp(millimetres * 5, 1.0, lineSize.height() - 2.0);
    painter.setPen(QPen(lineColor(), width, Qt::SolidLine, Qt::FlatCap));
    painter.drawLine(QPointF(2, lineSize.height() / 2.0),
                     QPointF(lineSize.width() - 2.0, lineSize.height() / 2.0));
}

} // namespace

QSize swatchSize(const ui::Swatch& swatch) {
    if (swatch.empty()) return {};
    return swatch.rgb ? squareSize : lineSize;
}

QIcon swatchIcon(const ui::Swatch& swatch) {
    if (swatch.empty()) return {};
    return paintedIcon(swatchSize(swatch), [swatch](QPainter& painter) {
        if (swatch.rgb)
            paintSquare(painter, *swatch.rgb);
        else if (!swatch.dashes.empty())
            paintDashes(painter, swatch.dashes);
        else
            paintWeight(painter, swatch.lineWidth);
    });
}

} // namespace tv::qt
