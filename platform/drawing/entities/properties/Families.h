#pragma once

#include "platform/drawing/entities/EntityProperties.h"

#include <span>

namespace tv::dwg {

// The kinds of entities by family, in no order.
std::span<const EntityKind> curveKinds();
std::span<const EntityKind> faceKinds();
std::span<const EntityKind> textKinds();
std::span<const EntityKind> blockKinds();
std::span<const EntityKind> fillKinds();
std::span<const EntityKind> annotationKinds();

// The order files have an entity's own tags in, where several kinds have the same and some may be missing.
inline constexpr int kPlaneOrder[] = {39, 10, 20, 30, 40, 11, 21, 31, 12, 22, 32, 13, 23, 33, 210, 220, 230};
inline constexpr int kPolylineOrder[] = {66, 10, 20, 30, 39, 70, 40, 41, 71, 72, 73, 74, 75};
// How polylines and meshes are smoothed.
inline constexpr PropertyChoice kSmoothing[] = {{0, L"None"}, {5, L"Quadratic"}, {6, L"Cubic"}, {8, L"Bezier"}};

} // namespace tv::dwg
