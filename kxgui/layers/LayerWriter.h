#pragma once

#include "kxgui/Export.h"
#include "kxgui/layers/LayerData.h"
#include "platform/text/Problem.h"

#include <vector>

class OdDbDatabase;

// How what a person does in the layer manager gets into the drawing. Every call is one undo step named
// "_LAYER"; when anything of it is refused nothing was changed.
namespace kx::layers {

// The properties a write is about.
enum LayerFields : unsigned {
    kFieldOn = 1,
    kFieldFrozen = 2,
    kFieldLocked = 4,
    kFieldPlot = 8,
    kFieldNewVpFrozen = 16,
    kFieldColor = 32,
    kFieldLinetype = 64,
    kFieldLineWeight = 128,
    kFieldTransparency = 256,
    kFieldPlotStyle = 512,
    kFieldDescription = 1024,
    kAllLayerFields = 2047,
    // In one viewport.
    kFieldVpFrozen = 2048,
    kFieldVpColor = 4096,
    kFieldVpLinetype = 8192,
    kFieldVpLineWeight = 16384,
    kFieldVpTransparency = 32768,
    kFieldVpPlotStyle = 65536,
};

// Of one layer: what becomes of it, and the row that says how it is to be. With kLayerProperty and
// kLayerViewport only `fields` count, and of those only what differs from the drawing is written.
struct LayerUpdate {
    EN_LAYER_UPDATE kind = kLayerProperty;
    T_LAYER_DATA row;
    unsigned fields = kAllLayerFields;
};

// `viewport` is the one kLayerViewport writes to. A layer made gets its id and handle in its update.
// eKeyNotFound for a layer that is gone.
KXGUI_EXPORT Tavo::ErrorStatus writeLayers(OdDbDatabase& database, std::vector<LayerUpdate>& updates,
                                           OdDbObjectId viewport = {});

} // namespace kx::layers
