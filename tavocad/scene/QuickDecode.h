#pragma once

#include "platform/drawing/dxf/RecordStore.h"
#include "tavocad/scene/DrawingTables.h"
#include "tavocad/scene/Scene.h"

#include <functional>
#include <span>

namespace tv::scene {

// Draws the commonest kinds of entities (lines, circles, arcs, points, polylines without width; flat in the xy
// plane, on known layers) straight from their tags into the scene, in several threads, and leaves each of the
// others to `other(record)`, called on this thread with the scene as far as it has come. Everything in order.
void drawAll(const tv::dwg::RecordStore& store, std::span<const tv::dwg::RecordId> records,
             const RawNames& names, Scene& scene, const std::function<void(tv::dwg::RecordId)>& other);

} // namespace tv::scene
