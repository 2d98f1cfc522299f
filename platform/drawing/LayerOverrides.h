#pragma once

#include "platform/Export.h"
#include "platform/drawing/OdCmColor.h"
#include "platform/drawing/OdCmTransparency.h"
#include "platform/drawing/OdDb.h"
#include "platform/drawing/OdDbObjectId.h"
#include "platform/text/Problem.h"

#include <optional>
#include <unordered_map>
#include <vector>

// What a layer looks like in one viewport only, where that differs. Kept in the layer's extension dictionary,
// one record per property; drawings before R2007 keep none, and every setter answers eNotHandled for them.
namespace tv::dwg {

struct LayerOverrides {
    std::optional<OdCmColor> color;
    std::optional<OdDbObjectId> linetype;
    std::optional<OdDb::LineWeight> lineWeight;
    std::optional<OdCmTransparency> transparency;
    std::optional<OdDbObjectId> plotStyle;

    bool any() const { return color || linetype || lineWeight || transparency || plotStyle; }
    friend bool operator==(const LayerOverrides&, const LayerOverrides&) = default;
};

// Of one layer, by viewport. Viewports and values the drawing lacks are left out.
using LayerOverrideMap = std::unordered_map<OdDbObjectId, LayerOverrides>;
KXPLATFORM_EXPORT LayerOverrideMap overridesOf(OdDbObjectId layer);
KXPLATFORM_EXPORT LayerOverrides overridesOf(OdDbObjectId layer, OdDbObjectId viewport);
KXPLATFORM_EXPORT bool hasOverrides(OdDbObjectId layer);

// What one viewport shows differently, by layer; one pass over the layers.
KXPLATFORM_EXPORT LayerOverrideMap overridesInViewport(const OdDbDatabase& database, OdDbObjectId viewport);

// Each sets one property in one viewport; without a value it takes that override away. eInvalidInput for what
// is no layer, viewport, linetype or value of this drawing.
KXPLATFORM_EXPORT Tavo::ErrorStatus overrideColor(OdDbObjectId layer, OdDbObjectId viewport,
                                                  std::optional<OdCmColor> color);
KXPLATFORM_EXPORT Tavo::ErrorStatus overrideLinetype(OdDbObjectId layer, OdDbObjectId viewport,
                                                     std::optional<OdDbObjectId> linetype);
KXPLATFORM_EXPORT Tavo::ErrorStatus overrideLineWeight(OdDbObjectId layer, OdDbObjectId viewport,
                                                       std::optional<OdDb::LineWeight> weight);
KXPLATFORM_EXPORT Tavo::ErrorStatus overrideTransparency(OdDbObjectId layer, OdDbObjectId viewport,
                                                         std::optional<OdCmTransparency> transparency);
// A name of the dictionary of plot styles.
KXPLATFORM_EXPORT Tavo::ErrorStatus overridePlotStyle(OdDbObjectId layer, OdDbObjectId viewport,
                                                      std::optional<OdDbObjectId> plotStyle);

// All properties of a layer, in one viewport or, with a null id, in all of them. Records and dictionaries left
// empty go along.
KXPLATFORM_EXPORT Tavo::ErrorStatus removeOverrides(OdDbObjectId layer, OdDbObjectId viewport = {});
// Of every layer in that viewport; one step.
KXPLATFORM_EXPORT Tavo::ErrorStatus removeViewportOverrides(OdDbObjectId viewport);

} // namespace tv::dwg
