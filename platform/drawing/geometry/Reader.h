#pragma once

#include "platform/drawing/EntityGeometry.h"
#include "platform/drawing/OdDbDatabase.h"
#include "platform/drawing/OdDbEntity.h"
#include "platform/drawing/dxf/OwnTags.h"
#include "platform/drawing/dxf/RecordStore.h"

#include <array>
#include <cmath>
#include <cstdlib>
#include <numbers>
#include <vector>

// Decoding of single kinds of entities; see geometryOf().
namespace tv::dwg::geometry {

inline double radians(double degrees) { return degrees * std::numbers::pi / 180; }

// Walks an entity's own tags once, handing each to a reader.
class Reader {
  public:
    explicit Reader(OdDbObjectId id)
        : m_format(id.database()->store().format()), m_own(m_format, id.database()->store().text(id.record())) {
    }
    bool next() { return m_own.next(m_tag); }
    int code() const { return m_tag.code; }
    double real() const {
        const auto value = realOf(m_format, m_tag);
        return value && std::isfinite(*value) ? *value : 0;
    }
    int integer() const {
        const auto value = integerOf(m_format, m_tag);
        return value && *value >= INT32_MIN && *value <= INT32_MAX ? static_cast<int>(*value) : 0;
    }
    OdString text() const { return textOf(m_format, m_tag); }
    OdDbObjectId id(const OdDbDatabase& database) const {
        const auto handle = handleOf(m_format, m_tag);
        return handle ? database.getOdDbObjectId(*handle) : OdDbObjectId();
    }
    // Takes the tag when it is a coordinate of the point whose first one has that code.
    bool point(int first, OdGePoint3d& into) const {
        if (m_tag.code == first)
            into.x = real();
        else if (m_tag.code == first + 10)
            into.y = real();
        else if (m_tag.code == first + 20)
            into.z = real();
        else
            return false;
        return true;
    }
    bool vector(int first, OdGeVector3d& into) const {
        OdGePoint3d as{into.x, into.y, into.z};
        if (!point(first, as)) return false;
        into = {as.x, as.y, as.z};
        return true;
    }
    // The same for the next corner of a flat outline; a second coordinate belongs to the corner before it.
    bool corner(int first, std::vector<OdGePoint2d>& into) const {
        if (m_tag.code == first)
            into.push_back({real(), 0});
        else if (m_tag.code != first + 10)
            return false;
        else if (!into.empty())
            into.back().y = real();
        return true;
    }
    // The text of the file an image or underlay is defined by, when the tag names the definition.
    bool file(const OdDbDatabase& database, OdString& into) const {
        if (m_tag.code != 340) return false;
        if (const auto definition = id(database).openObject()) into = definition->textAt(1);
        return true;
    }

  private:
    const DxfFormat& m_format;
    OwnTags m_own;
    Tag m_tag;
};

SplineGeometry spline(Reader in);
FaceGeometry face(Reader in);
HatchGeometry hatch(Reader in);
EntityGeometry leader(Reader in);
NoteGeometry multileader(Reader in);
NoteGeometry tolerance(Reader in);
DimensionGeometry dimension(Reader in);
InsertGeometry table(Reader in);
FrameGeometry image(Reader in, OdDbDatabase& database, bool mask);
FrameGeometry underlay(Reader in, OdDbDatabase& database);
RayGeometry ray(Reader in, bool both);
LinesGeometry multiline(Reader in);
LinesGeometry mesh(Reader in);
// Of a POLYLINE that is a mesh; `flags` is its group code 70.
LinesGeometry polylineMesh(OdDbObjectId id, int flags);

} // namespace tv::dwg::geometry
