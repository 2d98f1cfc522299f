#include "platform/host/selection/SheetViewports.h"

#include "platform/drawing/OdDbDatabase.h"
#include "platform/drawing/OdDbLayout.h"
#include "platform/drawing/OdDbViewport.h"

#include <algorithm>

namespace tv::host {

bool SheetViewports::has(const OdDbEntity& entity) {
    const auto* viewport = dynamic_cast<const OdDbViewport*>(&entity);
    if (!viewport) return false;
    if (viewport->number() == 1) return true;
    // Sheets that aren't the active one may number none of theirs.
    if (!m_ids) {
        m_ids.emplace();
        for (const OdDbObjectId& id : m_database.layoutIds())
            if (const auto layout = id.open<OdDbLayout>(); layout && !layout->isModelLayout())
                if (const auto viewports = layout->viewports(); !viewports.empty())
                    m_ids->push_back(viewports.front());
    }
    return std::ranges::find(*m_ids, entity.objectId()) != m_ids->end();
}

} // namespace tv::host
