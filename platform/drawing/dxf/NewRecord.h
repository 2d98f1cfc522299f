#pragma once

#include "platform/drawing/OdDbObjectId.h"

#include <string_view>

namespace tv::dwg {

// A handle nobody has, and $HANDSEED set behind it; a null one when the drawing's records carry no handles.
// Part of the undo step that is open.
OdDbHandle takeHandle(OdDbDatabase& database);

// A new record at the end of a table, with the values its kind usually starts with in the drawing's version. A
// null id for tables whose records need more than a name.
OdDbObjectId addTableRecord(OdDbDatabase& database, RecordId table, std::wstring_view name);

} // namespace tv::dwg
