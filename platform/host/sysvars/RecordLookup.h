#pragma once

#include "platform/Export.h"
#include "platform/drawing/OdDbDatabase.h"
#include "platform/drawing/OdDbObjectId.h"
#include "platform/host/sysvars/SysvarInfo.h"

#include <optional>
#include <string_view>
#include <vector>

// The table records that system variables name.
namespace tv::host {

// The record with that name (or the object with that handle), letter case aside; null when the drawing has
// none. Arrowhead blocks are found with and without the underscore of the built-in ones.
KXPLATFORM_EXPORT OdDbObjectId findRecord(const OdDbDatabase& database, SysvarRecord kind, std::wstring_view name);
// What a variable of this kind holds for `id`: the record's name or the object's handle; nothing when the
// object is not of this kind.
KXPLATFORM_EXPORT std::optional<OdString> nameOfRecord(SysvarRecord kind, const OdDbObjectId& id);
// The names a variable of this kind can take, in the order of the table: not those of external references and of
// blocks without a name of their own. Empty for handles.
KXPLATFORM_EXPORT std::vector<OdString> recordNames(const OdDbDatabase& database, SysvarRecord kind);
// Names that need no record: the arrowhead and the linetype of a dimension may be left open, a linetype may be
// ByLayer or ByBlock in drawings whose table lacks them.
KXPLATFORM_EXPORT bool isFreeName(const SysvarInfo& info, std::wstring_view name);

} // namespace tv::host
