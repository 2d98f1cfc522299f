#pragma once

#include <QColor>

// The contrast of two colours: 1 for the same lightness to 21 for black and white (WCAG 2.1, relative
// luminance).
double contrast(const QColor& a, const QColor& b);

// Lines thinner than letters need less than text does.
inline constexpr double leastLineContrast = 3;

// The colour itself where it can be told from the background; else one of the same hue, as much lighter on a
// dark background or darker on a light one as it takes and no more.
QColor readableOn(const QColor& color, const QColor& background);
