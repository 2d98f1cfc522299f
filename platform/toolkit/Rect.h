#pragma once

#include <cmath>

// Positions and sizes on screen count logical pixels (a pixel at 96 dots per inch); a face scales them.
struct CPoint {
    int x = 0, y = 0;
    friend bool operator==(const CPoint&, const CPoint&) = default;
};

struct CSize {
    int cx = 0, cy = 0;
    friend bool operator==(const CSize&, const CSize&) = default;
};

// right and bottom lie one past the last pixel.
struct CRect {
    int left = 0, top = 0, right = 0, bottom = 0;

    int Width() const { return right - left; }
    int Height() const { return bottom - top; }
    CSize Size() const { return {Width(), Height()}; }
    CPoint TopLeft() const { return {left, top}; }
    bool IsRectEmpty() const { return right <= left || bottom <= top; }
    bool PtInRect(CPoint p) const { return p.x >= left && p.x < right && p.y >= top && p.y < bottom; }
    CRect OffsetBy(CPoint by) const { return {left + by.x, top + by.y, right + by.x, bottom + by.y}; }
    friend bool operator==(const CRect&, const CRect&) = default;
};

namespace tv::ui {

// Dialog templates give their sizes in dialog units: a quarter of the dialog font's mean width and an eighth of its
// height. The library's dialog font is 6 by 13 pixels at 96 dots per inch.
constexpr int baseUnitX = 6;
constexpr int baseUnitY = 13;

constexpr CSize dialogUnitsToPixels(CSize units) {
    return {(units.cx * baseUnitX + 2) / 4, (units.cy * baseUnitY + 4) / 8};
}

} // namespace tv::ui
