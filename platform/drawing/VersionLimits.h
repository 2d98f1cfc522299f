#pragma once

#include "platform/Export.h"
#include "platform/drawing/OdDb.h"
#include "platform/text/Problem.h"

#include <cstdint>

class OdDbDatabase;

namespace OdDb {

// What not every version of the file format can hold.
enum class Feature : std::uint8_t {
    kLinetypeScale, // of single objects
    kVisibility,    // of single objects
    kDictionaries,  // and all that is kept in them: layouts, groups, filters, states
    kLineWeight,
    kPlotFlag, // layers that aren't plotted
    kPlotStyle,
    kLayouts, // more than one
    kTrueColor,
    kTransparency,
    kMaterial,
    kAnnotativeScales,
    kViewportOverrides,
    kLongNames,        // of more than 31 characters
    kMultilineText,    // as an object of its own
    kObjectKind,       // some other kind of object
    kSheetSettings,    // of viewports, views and plotting
    kBlockSettings,    // units, exploding and scaling of blocks
    kDimVariables,     // newer dimension variables than the oldest versions have
    kComplexLinetypes, // with texts and shapes
    kLayerFilters,     // by expression and by group
    kExtendedData,     // and what is kept in them: hyperlinks, descriptions
};

} // namespace OdDb

namespace tv::dwg {

// The oldest version whose files can hold it.
KXPLATFORM_EXPORT OdDb::DxfVersion firstVersionOf(OdDb::Feature feature);
// The sentence a person is told once: which drawing's version lacks what. Status eNotHandled.
KXPLATFORM_EXPORT tv::Problem notHeld(const OdDbDatabase& database, OdDb::Feature feature);

} // namespace tv::dwg
