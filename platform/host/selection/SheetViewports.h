#pragma once

#include "platform/Export.h"
#include "platform/drawing/OdDbObjectId.h"

#include <optional>
#include <vector>

class OdDbDatabase;
class OdDbEntity;

namespace tv::host {

// The viewports that stand for the sheets of a drawing themselves. Nobody chooses or erases them. Looked for
// once, when the first viewport is asked about.
class KXPLATFORM_EXPORT SheetViewports {
  public:
    explicit SheetViewports(const OdDbDatabase& database) : m_database(database) {}
    bool has(const OdDbEntity& entity);

  private:
    const OdDbDatabase& m_database;
    std::optional<std::vector<OdDbObjectId>> m_ids;
};

} // namespace tv::host
