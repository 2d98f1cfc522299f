#pragma once

#include "kxgui/Export.h"
#include "platform/toolkit/Dialog.h"

namespace kx::frame {

// The width, in pixels, of the band inside a window's outer rectangle that acts as its sizing border.
constexpr int sizingBand = 3;

// The corner or edge whose band `point` lies in, HitTest::client outside the band. The band of an edge: x less
// than left + 3, x greater than right - 3, and so on; where two bands meet it is the corner.
KXGUI_EXPORT HitTest sizingBandAt(const CRect& outer, CPoint point);

} // namespace kx::frame
