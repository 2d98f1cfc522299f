#pragma once

#include "platform/toolkit/ListItems.h"

#include <QIcon>
#include <QSize>

namespace tv::qt {

// The picture before an item's text: a filled square, a linetype's dashes, a line of its weight; null when
// empty.
QIcon swatchIcon(const ui::Swatch& swatch);
constexpr QSize largestSwatch(72, 16);
// Its size in logical pixels; empty when there is none.
QSize swatchSize(const ui::Swatch& swatch);

} // namespace tv::qt
