#pragma once

#include "platform/Export.h"
#include "platform/drawing/OdDbObjectId.h"
#include "platform/text/OdString.h"
#include "platform/text/Problem.h"

#include <cstdint>
#include <vector>

// The named filters of a drawing's layers, as files keep them in the extension dictionary of the layer table.
// What an expression selects is the business of whoever shows layers.
namespace tv::dwg {

struct LayerFilter {
    enum Kind : std::uint8_t {
        kProperties, // by an expression: NAME=="A*" AND COLOR=="1"
        kGroup,      // by a list of layers
        kOld,        // by patterns, one per property, as drawings had them before R2004
    };
    // What the older kind asks for: a pattern per property, and the states as the number the file has.
    struct Patterns {
        OdString name = L"*", color = L"*", linetype = L"*", lineWeight = L"*", plotStyle = L"*";
        int states = 0;
        friend bool operator==(const Patterns&, const Patterns&) = default;
    };

    OdDbObjectId record; // null for one that isn't in the drawing yet
    Kind kind = kProperties;
    OdString name;
    OdString expression;
    std::vector<OdDbObjectId> layers; // those the drawing has
    int missingLayers = 0;            // of a group: it names them, and they are gone
    Patterns patterns;
    std::vector<LayerFilter> nested; // of the newer kinds only
};

// Filters below so many others are read; what lies deeper isn't.
inline constexpr int kDeepestLayerFilter = 64;

// The newer ones first; both in the order of their dictionaries.
KXPLATFORM_EXPORT std::vector<LayerFilter> layerFilters(const OdDbDatabase& database);

// A new filter, with those nested in it, below another or at the top; one step. A null id for an empty name,
// below one of the older kind, for older ones with a name there is, and in drawings that can hold none (before
// R13, the newer kinds before R2004).
KXPLATFORM_EXPORT OdDbObjectId addLayerFilter(OdDbDatabase& database, const LayerFilter& filter,
                                              OdDbObjectId parent = {});
// Name and conditions anew in the filter's own record; what else stands in it stays, and so do those nested.
// A group whose layers don't change keeps what it says of missing ones, too.
// eInvalidInput when the record is no filter of that kind.
KXPLATFORM_EXPORT Tavo::ErrorStatus changeLayerFilter(const LayerFilter& filter);
// With all nested in it.
KXPLATFORM_EXPORT Tavo::ErrorStatus removeLayerFilter(OdDbObjectId filter);

} // namespace tv::dwg
