#pragma once

#include "platform/drawing/OdCmColor.h"
#include "platform/drawing/OdDbObjectId.h"
#include "platform/text/OdString.h"

#include <vector>

// Entities in words.

// "BYLAYER", "BYBLOCK", an index or "R,G,B", as they are typed.
OdString colorText(const OdCmColor& color);
// A few lines for a tooltip: type, layer, colour.
OdString entityHint(const OdDbObjectId& id);
// Everything LIST tells about an entity, a line each; the first names it. Empty for an erased one.
std::vector<OdString> describeEntity(const OdDbObjectId& id);
