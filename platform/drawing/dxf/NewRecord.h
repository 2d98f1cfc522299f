#pragma once

#include "platform/drawing/OdDbObjectId.h"
#include "platform/drawing/dxf/RecordStore.h"

#include <string_view>

namespace tv::dwg {

// A handle nobody has, and $HANDSEED set behind it; a null one when the drawing's records carry no handles.
// Part of the undo step that is open.
OdDbHandle takeHandle(OdDbDatabase& database);

// The table of that name ("LAYER"), made where and as the drawing's version usually has it when the file lacks
// it; so is the section of tables, and of block records one for every definition. kNoRecord for a name that is
// no table's and for tables the version doesn't have.
RecordId needTable(OdDbDatabase& database, std::string_view name);

// A new record at the end of a table, with the values its kind usually starts with in the drawing's version. A
// null id for tables of unknown kinds. The second takes the name as the file spells it, and a free handle to
// have unless that is null.
OdDbObjectId addTableRecord(OdDbDatabase& database, RecordId table, std::wstring_view name);
OdDbObjectId addTableRecord(OdDbDatabase& database, RecordId table, std::string_view spelledName,
                            OdDbHandle handle);

// A new block record in the table, which may be the section of blocks instead, and its empty definition.
OdDbObjectId addBlock(OdDbDatabase& database, RecordId table, std::wstring_view name);

// The section of that kind, made where it usually stands when the file lacks it; of tables and blocks only.
RecordId needSection(OdDbDatabase& database, Section section);

} // namespace tv::dwg
