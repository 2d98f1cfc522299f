#pragma once

#include "platform/drawing/OdDbObjectId.h"
#include "tavocad/scene/Scene.h"

#include <vector>

class OdDbDatabase;

namespace tv::dwg {
class ExternalReferences;
}

namespace tv::scene {

// What has changed in a drawing since its scene was made.
class Changes {
  public:
    enum class How : std::uint8_t { modified, appended, erased };
    // To be called while the database tells of the change.
    void note(const OdDbDatabase& database, OdDbObjectId id, How how);
    void noteEverything();

    bool empty() const { return !m_everything && !m_layers && !m_sheets && m_entities.empty(); }
    // No piece by piece: the scene has to be made anew.
    bool everything() const { return m_everything; }
    bool layers() const { return m_layers; }
    // Main entities, of other spaces too; some may be there more than once.
    const std::vector<tv::dwg::RecordId>& entities() const { return m_entities; }

  private:
    void noteEntity(const OdDbDatabase& database, tv::dwg::RecordId record);

    bool m_everything = false, m_layers = false;
    bool m_sheets = false; // something that only sheets look at
    std::vector<tv::dwg::RecordId> m_entities;
};

// Brings a scene of model space up to date, touching what has changed. False when it has to be made anew; it is
// of no use then.
bool update(Scene& scene, const OdDbDatabase& database, const Changes& changes,
            tv::dwg::ExternalReferences* references = nullptr);

} // namespace tv::scene
