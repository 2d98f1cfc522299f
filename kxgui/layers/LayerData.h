#pragma once

#include "platform/drawing/LayerOverrides.h"
#include "platform/drawing/OdCmColor.h"
#include "platform/drawing/OdDb.h"
#include "platform/drawing/OdDbHandle.h"
#include "platform/drawing/OdDbObjectId.h"
#include "platform/text/OdString.h"

// What is done to a layer, said with the row that shows it (CLayerDlg::UpdateLayer).
enum EN_LAYER_UPDATE {
    kLayerProperty = 0, // what the row differs in from the drawing: states, colour, linetype, lineweight ...
    kLayerNew = 1,
    kLayerRename = 2,
    kLayerCurrent = 3,
    kLayerDelete = 4,
    kLayerViewport = 5, // what it looks like in the active viewport only
    kLayerDescription = 6,
};

// What the objects are for that a host hands to the layer manager (CLayerDlg::SetObjectIdArray).
enum EN_LAYER_CALLBACK {
    kLayerCallbackNone = 0,
    kLayerCallbackSelect = 1, // the layers they are on are selected when it opens
    kLayerCallbackAssign = 2, // a layer that is made current also becomes theirs, in the same undo step
};

// A layer as one row of the manager shows it.
struct T_LAYER_DATA {
    OdDbObjectId id;   // null for a layer that isn't in the drawing yet
    OdDbHandle handle; // the layer's identity; drawings of the oldest versions need have none
    OdString name, description;
    OdCmColor color = OdCmColor::byIndex(7);
    OdString bookColor; // "BOOK$COLOUR", empty for a colour of no book
    OdString linetype = L"Continuous";
    OdDb::LineWeight lineWeight = OdDb::kLnWtByLwDefault;
    int transparency = 0; // percent, 0 (solid) to 100
    OdString plotStyle;   // empty where plot styles follow colours
    bool current = false, on = true, frozen = false, locked = false, plot = true;
    bool newVpFrozen = false; // frozen in viewports made from now on
    bool xref = false;        // comes from an external reference
    // In the active viewport.
    bool vpFrozen = false;
    tv::dwg::LayerOverrides vp;
};

// The columns of the grid in the order they are made in.
enum class LayerColumn {
    status,
    name,
    on,
    freeze,
    lock,
    color,
    linetype,
    lineweight,
    transparency,
    plotStyle,
    plot,
    newVpFreeze,
    vpFreeze,
    vpColor,
    vpLinetype,
    vpLineweight,
    vpTransparency,
    vpPlotStyle,
    description,
};
inline constexpr int kLayerColumns = 19;
