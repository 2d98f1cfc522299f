#pragma once

#include "kxgui/Export.h"
#include "platform/drawing/OdDbDatabase.h"
#include "platform/toolkit/ListItems.h"

// The named records of a drawing as list items, shared by all lists that show them.
namespace kx::controls {

enum class RecordKind { layers, linetypes, textStyles, dimStyles };

// In the order readers of the current language expect, digits as numbers. What nobody chooses is left out:
// records of external references, layers other programs hide, ByLayer and ByBlock of linetypes, shape files
// among text styles, dimension styles of single kinds of dimensions. Read once for a drawing; later calls read
// what changed since.
KXGUI_EXPORT tv::ui::SharedItems recordItems(OdDbDatabase& database, RecordKind kind);

// An item's data and the object it stands for; 0 for none. Data of no record answers null.
KXGUI_EXPORT std::uintptr_t itemData(OdDbObjectId object);
KXGUI_EXPORT OdDbObjectId objectOfItem(OdDbDatabase* database, std::uintptr_t data);

// How many records all calls have read so far, for measurements and tests.
KXGUI_EXPORT std::uint64_t recordsRead();

} // namespace kx::controls
