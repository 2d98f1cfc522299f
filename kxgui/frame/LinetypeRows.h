#pragma once

#include "kxgui/Export.h"
#include "platform/drawing/OdDbObjectId.h"
#include "platform/toolkit/ListItems.h"

#include <string>
#include <vector>

// The linetypes a drawing offers, as rows without controls.
namespace kx::frame {

struct LinetypeRow {
    OdDbObjectId id;                // null for ByLayer and ByBlock of a drawing whose table lacks them
    std::wstring name, description; // in every language the same, "ByLayer" and "ByBlock" included
    tv::ui::Picture sample;
    bool special = false; // ByLayer or ByBlock
};

// The linetypes in the order of the table, those of external references left out: nothing new can be drawn with
// them. `special`: ByLayer and ByBlock come first, else they are left out.
KXGUI_EXPORT std::vector<LinetypeRow> linetypeRows(const OdDbDatabase& database, bool special);

// The name as a person reads it.
KXGUI_EXPORT std::wstring linetypeText(const LinetypeRow& row);

enum class LinetypeOrder { name, description };

// In the order readers of the current language expect, digits as numbers; ByLayer and ByBlock stay in front.
KXGUI_EXPORT void sortLinetypes(std::vector<LinetypeRow>& rows, LinetypeOrder order, bool ascending);

} // namespace kx::frame
