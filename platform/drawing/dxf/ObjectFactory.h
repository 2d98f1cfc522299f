#pragma once

#include "platform/drawing/OdDbObjectId.h"

namespace tv::dwg {

// An object of the class its record's type and place call for; never null for a record that isn't erased.
OdDbObjectPtr makeObject(OdDbObjectId id, OdDb::OpenMode mode);

} // namespace tv::dwg
