#include "kxgui/layers/LayerViewport.h"

#include "platform/drawing/OdDbDatabase.h"
#include "platform/drawing/OdDbLayout.h"
#include "platform/drawing/OdDbViewport.h"
#include "platform/host/TavoSysvarManager.h"

namespace kx::layers {

OdDbObjectId activeLayerViewport(const OdDbDatabasePtr& database) {
    int tiles = 1, number = 0;
    if (tvedGetVar(L"TILEMODE", tiles, database) != Tavo::eOk || tiles != 0) return {};
    if (tvedGetVar(L"ACTIVEPV", number, database) != Tavo::eOk || number < 2) return {};
    const OdDbObjectId active = database->activeViewportId();
    if (const auto viewport = active.open<OdDbViewport>(); viewport && viewport->number() == number)
        return active;
    const auto layout = database->currentLayoutId().open<OdDbLayout>();
    if (!layout) return {};
    for (const OdDbObjectId id : layout->viewports())
        if (const auto viewport = id.open<OdDbViewport>(); viewport && viewport->number() == number) return id;
    return {};
}

} // namespace kx::layers
