#pragma once

#include "platform/drawing/EntityGeometry.h"
#include "platform/drawing/entities/MTextRuns.h"
#include "tavocad/scene/Pen.h"
#include "tavocad/scene/Styles.h"

#include <string>
#include <unordered_map>

class OdDbDatabase;

namespace tv::scene {

// Draws the geometry of one entity of any kind but inserts, where and how the pen is set.
class Drawer {
  public:
    Drawer(const OdDbDatabase& database, Pen& pen) : m_database(database), m_pen(pen) {}

    // `source` is what the pen's style comes from; parts of texts may differ in colour.
    void draw(const tv::dwg::EntityGeometry& geometry, const StyleSource& source);
    // Lines without end reach as far as everything else does: to be called when that has been drawn.
    void drawRays();
    bool hasRays() const { return !m_rays.empty(); }

  private:
    void draw(const std::monostate&) {}
    void draw(const tv::dwg::LineGeometry& line);
    void draw(const tv::dwg::PointGeometry& point) { m_pen.mark(point.position); }
    void draw(const tv::dwg::CircleGeometry& circle);
    void draw(const tv::dwg::ArcGeometry& arc);
    void draw(const tv::dwg::EllipseGeometry& ellipse);
    void draw(const tv::dwg::PolylineGeometry& line);
    void draw(const tv::dwg::SolidGeometry& solid);
    void draw(const tv::dwg::InsertGeometry&) {}
    void draw(const tv::dwg::SplineGeometry& spline);
    void draw(const tv::dwg::FaceGeometry& face);
    void draw(const tv::dwg::HatchGeometry& hatch);
    void draw(const tv::dwg::NoteGeometry& note);
    void draw(const tv::dwg::DimensionGeometry& dimension); // one without a picture of its own
    void draw(const tv::dwg::FrameGeometry& frame);
    void draw(const tv::dwg::RayGeometry& ray);
    void draw(const tv::dwg::LinesGeometry& lines);
    void draw(const tv::dwg::TextGeometry& text);
    void draw(const tv::dwg::MTextGeometry& text);

    void usePaint(const Paint& paint); // in place of the entity's own
    std::uint32_t fontOf(const OdString& style);
    std::uint32_t fontOf(const tv::dwg::MTextFont& font);
    double usualTextHeight() const;

    struct Ray {
        std::uint32_t item;
        OdGePoint2d direction;
        bool both;
    };
    const OdDbDatabase& m_database;
    Pen& m_pen;
    StyleSource m_source;
    std::vector<Ray> m_rays;
    std::unordered_map<std::wstring, std::uint32_t> m_fonts; // by style
    std::size_t m_hatchRoom = 2'000'000;
};

} // namespace tv::scene
