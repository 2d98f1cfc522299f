#pragma once

#include "platform/Export.h"
#include "platform/drawing/OdDbObjectId.h"
#include "platform/drawing/Value.h"
#include "platform/text/Problem.h"

#include <optional>

// The dimension variables one dimension, leader or tolerance has otherwise than its style, kept as extended
// data of "ACAD" under "DSTYLE". Variables go by the group code they have in a dimension style.
namespace tv::dwg {

KXPLATFORM_EXPORT std::optional<Value> dimensionOverride(OdDbObjectId entity, int code);
// eWrongType for a value that doesn't fit the code.
KXPLATFORM_EXPORT Tavo::ErrorStatus setDimensionOverride(OdDbObjectId entity, int code, const Value& value);
KXPLATFORM_EXPORT Tavo::ErrorStatus removeDimensionOverride(OdDbObjectId entity, int code);

// Override, else what the entity's style says; nothing when both are silent.
KXPLATFORM_EXPORT std::optional<Value> effectiveDimensionVariable(OdDbObjectId entity, int code);

} // namespace tv::dwg
