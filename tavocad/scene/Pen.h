#pragma once

#include "platform/drawing/EntityGeometry.h"
#include "tavocad/scene/Scene.h"
#include "tavocad/scene/Transform.h"

#include <span>
#include <string_view>
#include <vector>

namespace tv::scene {

// Puts items into a scene: those of one entity, at one place, in one style. Coordinates come in the entity's
// space; those that are nowhere are left out.
class Pen {
  public:
    explicit Pen(Scene& scene) : m_scene(scene) {}

    // Where and how what follows is drawn.
    void set(const Transform& place, std::uint32_t style) {
        m_place = place;
        m_style = style;
    }
    void setStyle(std::uint32_t style) { m_style = style; }
    void setEntity(std::uint32_t entity) { m_entity = entity; }
    const Transform& place() const { return m_place; }
    Scene& scene() { return m_scene; }

    // A polyline, or with further calls of more() between begin() and end() several as one item.
    void stroke(std::span<const OdGePoint3d> points, const Transform& plane = {}, std::uint8_t flags = 0);
    void area(std::span<const OdGePoint3d> points, const Transform& plane = {}, std::uint8_t flags = 0);
    void begin(Item::Kind kind, std::uint8_t flags = 0);
    void more(std::span<const OdGePoint3d> points, const Transform& plane = {});
    void end();

    // center + major * cos(t) + minor * sin(t) for t from `from` to `to`.
    void arc(const OdGePoint3d& center, const OdGeVector3d& major, const OdGeVector3d& minor, double from,
             double to, const Transform& plane = {});
    void mark(const OdGePoint3d& at);
    // `text` has all but its letters, place, size and angle; its width and width factor are those
    // of the entity's space.
    void text(Text text, std::wstring_view letters, const OdGePoint3d& at, double height, double rotation,
              const Transform& plane = {});

  private:
    Scene& m_scene;
    Transform m_place;
    std::uint32_t m_style = 0, m_entity = 0;
    Item m_open;
};

} // namespace tv::scene
