#pragma once

#include "platform/drawing/Geometry.h"

// What part of the drawing is to be in view.
struct ZoomRequest {
    enum class Kind { extents, window, factor, previous } kind = Kind::extents;
    OdGePoint2d first, second; // opposite corners of the window
    double factor = 1;         // of the present size
};
