#pragma once

#include "platform/drawing/OdDbDatabase.h"
#include "platform/drawing/OdDbObjectId.h"
#include "platform/host/sysvars/SysvarInfo.h"

#include <optional>
#include <string_view>

// The table records that system variables name.
namespace tv::host {

// The record with that name (or the object with that handle), letter case aside; null when the drawing has
// none. Arrowhead blocks are found with and without the underscore of the built-in ones.
OdDbObjectId findRecord(const OdDbDatabase& database, SysvarRecord kind, std::wstring_view name);
// What a variable of this kind holds for `id`: the record's name or the object's handle; nothing when the
// object is not of this kind.
std::optional<OdString> nameOfRecord(SysvarRecord kind, const OdDbObjectId& id);
// Names that need no record: the arrowhead and the linetype of a dimension may be left open, a linetype may be
// ByLayer or ByBlock in drawings whose table lacks them.
bool isFreeName(const SysvarInfo& info, std::wstring_view name);

} // namespace tv::host
