#pragma once

#include "tavocad/scene/Scene.h"

class OdDbDatabase;

namespace tv::scene {

// The model space as it is painted: lines, circles, arcs, ellipses, polylines with their widths, solids, points
// and texts, and the same inside of block inserts. Entities that are invisible or on a layer that is off or
// frozen are left out, as are coordinates that are no finite numbers, inserts of a block inside itself and
// whatever comes beyond mostEntities.
inline constexpr std::size_t mostEntities = 3'000'000;
Scene buildScene(const OdDbDatabase& database);

} // namespace tv::scene
