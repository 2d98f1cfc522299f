#include "kxgui/frame/SizingBand.h"

namespace kx::frame {

HitTest sizingBandAt(const CRect& outer, CPoint point) {
    const bool left = point.x < outer.left + sizingBand;
    const bool right = point.x > outer.right - sizingBand;
    const bool top = point.y < outer.top + sizingBand;
    const bool bottom = point.y > outer.bottom - sizingBand;
    if (left && top) return HitTest::topLeft;
    if (left && bottom) return HitTest::bottomLeft;
    if (right && top) return HitTest::topRight;
    if (right && bottom) return HitTest::bottomRight;
    if (left) return HitTest::left;
    if (right) return HitTest::right;
    if (top) return HitTest::top;
    if (bottom) return HitTest::bottom;
    return HitTest::client;
}

} // namespace kx::frame
