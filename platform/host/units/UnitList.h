#pragma once

#include "platform/Export.h"
#include "platform/text/OdString.h"

#include <vector>

// Units in which inserted content is scaled. Their identifiers are the values of INSUNITS, 0 to 24.
namespace kx::unit {

enum UnitListFlag : int {
    kRealUnits = 0,     // units that measure: 1 to 24
    kInsertionScale = 1 // what inserted content can be scaled by: unitless, which means no scaling, and 1 to 24
};

enum UnitNameFlag : int {
    kPlainName = 0,   // "밀리미터"
    kAbbreviation = 1 // "mm"; the plain name where there is no common abbreviation
};

// Replaces `list` by the identifiers of the units a list of that kind shows, in the order in which it shows
// them.
KXPLATFORM_EXPORT void getUnitList(std::vector<int>& list, int flag);

// The unit's name in the user's language; empty for an unknown identifier.
KXPLATFORM_EXPORT OdString getUnitName(int id, int flag);

// How many metres one unit is; 0 for unitless and unknown identifiers.
KXPLATFORM_EXPORT double getUnitMetres(int id);

} // namespace kx::unit
