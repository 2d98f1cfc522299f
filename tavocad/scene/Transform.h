#pragma once

#include "platform/drawing/EntityGeometry.h"
#include "platform/drawing/Geometry.h"

namespace tv::scene {

// An affine map: where a block's coordinates come to lie.
struct Transform {
    OdGeVector3d x{1, 0, 0}, y{0, 1, 0}, z{0, 0, 1}; // the images of the axes
    OdGePoint3d origin;                              // the image of the origin

    OdGePoint3d operator()(const OdGePoint3d& p) const {
        return {origin.x + x.x * p.x + y.x * p.y + z.x * p.z, origin.y + x.y * p.x + y.y * p.y + z.y * p.z,
                origin.z + x.z * p.x + y.z * p.y + z.z * p.z};
    }
    OdGeVector3d operator()(const OdGeVector3d& v) const {
        return {x.x * v.x + y.x * v.y + z.x * v.z, x.y * v.x + y.y * v.y + z.y * v.z,
                x.z * v.x + y.z * v.y + z.z * v.z};
    }
};

// First `inner`, then `outer`.
Transform operator*(const Transform& outer, const Transform& inner);

// From the coordinates of the plane with that normal to the world's.
Transform planeToWorld(const OdGeVector3d& normal);

// Where one cell of an insert places its block, whose base point is `base`.
Transform placementOf(const tv::dwg::InsertGeometry& insert, const OdGePoint3d& base, int column, int row);

} // namespace tv::scene
