#pragma once

#include "platform/drawing/OdDbObjectId.h"
#include "platform/host/DrawingTypes.h"

namespace kx::layers {

// The viewport of a sheet that is worked in, by the variables TILEMODE and ACTIVEPV; null in the model and
// while the sheet itself is.
OdDbObjectId activeLayerViewport(const OdDbDatabasePtr& database);

} // namespace kx::layers
