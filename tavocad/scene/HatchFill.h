#pragma once

#include "platform/drawing/EntityGeometry.h"
#include "tavocad/scene/Pen.h"

#include <cstddef>

namespace tv::scene {

// Draws a hatch: a solid one as an area, one of pattern lines line by line while they are few enough, else its
// outlines around a pale area. `room` is how many dashes all hatches together may still have.
void drawHatch(Pen& pen, const tv::dwg::HatchGeometry& hatch, std::size_t& room);

} // namespace tv::scene
