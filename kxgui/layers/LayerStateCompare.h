#pragma once

#include "kxgui/Export.h"
#include "kxgui/layers/LayerData.h"
#include "platform/drawing/LayerStates.h"

#include <string>
#include <vector>

// What a saved layer state says and the drawing says otherwise.
namespace kx::layers {

struct LayerDifference {
    enum class Kind : std::uint8_t {
        property, // `column` of the layer
        gone,     // the state knows a layer the drawing lacks
        added,    // the drawing has a layer the state doesn't know
        current,  // another layer is current; `layer` is empty
    };
    Kind kind = Kind::property;
    std::wstring layer;
    LayerColumn column = LayerColumn::name;
    std::wstring saved, now; // as a person reads them
};

// In the order of the state's layers, then those it doesn't know. `mask` says which properties are looked at
// (tv::dwg::LayerStateMask). What a state says nothing about is no difference.
KXGUI_EXPORT std::vector<LayerDifference> compareLayerStates(const tv::dwg::LayerState& saved,
                                                             const tv::dwg::LayerState& now,
                                                             int mask = tv::dwg::kLayerEverything);

} // namespace kx::layers
