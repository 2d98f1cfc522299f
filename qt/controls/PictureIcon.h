#pragma once

#include "platform/toolkit/DisplayList.h"

#include <QIcon>
#include <QSize>

class QPainter;
class QPalette;
class QTransform;

namespace tv::qt {

// Paints drawn things with `map` from their units to the painter's; theme colours are those of `palette`.
void paintDisplayList(QPainter& painter, const ui::DisplayList& list, const QTransform& map,
                      const QPalette& palette);

// The picture before an item's text; null when there is none. Painted anew for each size, scale and theme, made
// once for a picture.
QIcon pictureIcon(const ui::Picture& picture);
constexpr QSize largestPicture(72, 16);
// Its size in logical pixels; empty when there is none.
QSize iconSize(const ui::Picture& picture);

} // namespace tv::qt
