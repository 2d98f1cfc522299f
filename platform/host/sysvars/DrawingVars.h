#pragma once

#include "platform/drawing/OdDbDatabase.h"
#include "platform/host/sysvars/SysvarRules.h"

// Variables of a drawing that are no plain header variables.
namespace tv::host {

// CPLOTSTYLE, the plot style of new objects: "ByColor" in a drawing whose plot styles follow the colours; else
// "ByLayer", "ByBlock", "Normal" or a name of the drawing's plot style dictionary. It is kept as CEPSNTYPE and
// CEPSNID.
OdString readPlotStyle(const OdDbDatabase& database);
tv::Problem writePlotStyle(const SysvarInfo& info, OdDbDatabase& database, const OdString& name);

// DIMTALN: kept as extended data of the current dimension style. 0 when the style has none.
std::int64_t readDimTaln(const OdDbDatabase& database);
tv::Problem writeDimTaln(const SysvarInfo& info, OdDbDatabase& database, std::int64_t value);

// ACTIVEPV: 0 in the model, else the number of the sheet's viewport that is worked in, 1 for the sheet itself.
// Setting makes the viewport of that number active, which lasts while the drawing is open; eOutOfRange when the
// sheet has none.
std::int64_t readActiveViewport(const OdDbDatabase& database);
tv::Problem writeActiveViewport(const SysvarInfo& info, OdDbDatabase& database, std::int64_t number);

} // namespace tv::host
