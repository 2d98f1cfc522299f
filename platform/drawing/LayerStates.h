#pragma once

#include "platform/Export.h"
#include "platform/drawing/OdCmColor.h"
#include "platform/drawing/OdCmTransparency.h"
#include "platform/drawing/OdDb.h"
#include "platform/drawing/OdDbObjectId.h"
#include "platform/drawing/Value.h"
#include "platform/text/Problem.h"

#include <optional>
#include <string_view>
#include <utility>
#include <vector>

// Named states of all layers, kept by a drawing in the extension dictionary of its layer table.
namespace tv::dwg {

// Which properties a state is about.
enum LayerStateMask {
    kLayerOn = 1,
    kLayerFrozen = 2,
    kLayerLocked = 4,
    kLayerPlot = 8,
    kLayerNewViewport = 16,
    kLayerColor = 32,
    kLayerLinetype = 64,
    kLayerLineWeight = 128,
    kLayerPlotStyle = 256,
    kLayerCurrentViewport = 512, // kept, and nothing is restored for it
    kLayerTransparency = 1024,
    kLayerEverything = 2047,
};

struct LayerState {
    using Others = std::vector<std::pair<int, Value>>; // values nobody here knows, by group code

    struct Layer {
        OdString name;
        bool off = false, frozen = false, locked = false, noPlot = false, frozenInNew = false;
        OdCmColor color = OdCmColor::byIndex(7);
        OdDb::LineWeight lineWeight = OdDb::kLnWtByLwDefault;
        OdString linetype;  // empty when the drawing lacks it
        OdString plotStyle; // empty where plot styles follow colours
        std::optional<OdCmTransparency> transparency;
        Others others;
        friend bool operator==(const Layer&, const Layer&) = default;
    };

    OdString name;
    OdString description;
    OdString currentLayer;
    int mask = kLayerEverything;
    std::vector<Layer> layers;
    Others others;
};

KXPLATFORM_EXPORT std::vector<OdString> layerStateNames(const OdDbDatabase& database);
// Nothing when the drawing has no state of that name.
KXPLATFORM_EXPORT std::optional<LayerState> readLayerState(const OdDbDatabase& database,
                                                           std::wstring_view name);
// The layers as they are now, those of external references included; without a name.
KXPLATFORM_EXPORT LayerState currentLayerState(const OdDbDatabase& database);
// Under its name, in place of one that is there. Layers the drawing lacks are left out. eInvalidInput for an
// empty name, eNotHandled in drawings before R2000.
KXPLATFORM_EXPORT Tavo::ErrorStatus writeLayerState(OdDbDatabase& database, const LayerState& state);
KXPLATFORM_EXPORT Tavo::ErrorStatus deleteLayerState(OdDbDatabase& database, std::wstring_view name);
// eDuplicate when the new name is taken.
KXPLATFORM_EXPORT Tavo::ErrorStatus renameLayerState(OdDbDatabase& database, std::wstring_view from,
                                                     std::wstring_view to);

struct LayerStateRestore {
    int mask = kLayerEverything; // of these, what the state is about
    bool othersOff = false;      // switch layers off that the state doesn't know
    bool currentLayer = true;    // also make its current layer current, unless that comes out frozen
};
// One step; what a drawing's version can't hold is left as it is.
KXPLATFORM_EXPORT Tavo::ErrorStatus restoreLayerState(OdDbDatabase& database, const LayerState& state,
                                                      const LayerStateRestore& how = {});

} // namespace tv::dwg
