#include "tavocad/scene/Transform.h"

#include <cmath>

namespace tv::scene {

Transform operator*(const Transform& outer, const Transform& inner) {
    return {outer(inner.x), outer(inner.y), outer(inner.z), outer(inner.origin)};
}

Transform planeToWorld(const OdGeVector3d& normal) {
    auto axis = [&](double x, double y, double z) {
        const OdGePoint3d p = tv::dwg::toWorld({x, y, z}, normal);
        return OdGeVector3d{p.x, p.y, p.z};
    };
    return {axis(1, 0, 0), axis(0, 1, 0), axis(0, 0, 1), {}};
}

Transform placementOf(const tv::dwg::InsertGeometry& insert, const OdGePoint3d& base, int column, int row) {
    const double c = std::cos(insert.rotation), s = std::sin(insert.rotation);
    const Transform scaled{{insert.scale.x, 0, 0}, {0, insert.scale.y, 0}, {0, 0, insert.scale.z}, {}};
    const Transform rotated{{c, s, 0}, {-s, c, 0}, {0, 0, 1}, {}};
    const Transform toBase{{1, 0, 0}, {0, 1, 0}, {0, 0, 1}, {-base.x, -base.y, -base.z}};
    // The cells of an array are set along the rotated axes and are not scaled.
    const OdGeVector3d cell = rotated(OdGeVector3d{column * insert.columnSpacing, row * insert.rowSpacing, 0});
    const Transform moved{{1, 0, 0}, {0, 1, 0}, {0, 0, 1}, insert.position + cell};
    return planeToWorld(insert.normal) * moved * rotated * scaled * toBase;
}

} // namespace tv::scene
