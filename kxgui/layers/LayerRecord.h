#pragma once

#include "kxgui/Export.h"
#include "kxgui/layers/LayerData.h"

class OdDbDatabase;

namespace kx::layers {

// The layer as it is in the drawing now, viewports left aside; an empty name for what is no layer. `current` is
// currentLayer() of the drawing, which those who read many ask once.
KXGUI_EXPORT T_LAYER_DATA readLayer(OdDbObjectId layer, OdDbObjectId current);

// The layer new objects are put on; null when the table lacks it.
KXGUI_EXPORT OdDbObjectId currentLayer(const OdDbDatabase& database);

// The names of a linetype and a plot style of a drawing; empty for what is neither.
OdString linetypeName(OdDbObjectId linetype);
OdString plotStyleName(OdDbObjectId style);

// The layer with the values its active viewport shows in place of its own.
T_LAYER_DATA asInViewport(const T_LAYER_DATA& layer);

// Two rows show the same layer when their handles are equal; without handles, when their records are.
KXGUI_EXPORT bool sameLayer(const T_LAYER_DATA& a, const T_LAYER_DATA& b);

} // namespace kx::layers
