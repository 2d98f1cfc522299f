#pragma once

#include <QIcon>
#include <QSizeF>

#include <functional>

class QPainter;

namespace tv::qt {

// An icon painted anew at every size and scale. `paint` draws on a surface of `size` logical units.
QIcon paintedIcon(QSizeF size, std::function<void(QPainter&)> paint);
// One that looks different in an item that is painted as a selected one.
QIcon selectableIcon(QSizeF size, std::function<void(QPainter&, bool selected)> paint);

} // namespace tv::qt
