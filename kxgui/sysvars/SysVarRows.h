#pragma once

#include "kxgui/sysvars/SysVarEdits.h"

#include <string>
#include <string_view>
#include <vector>

// The table of system variables a person sees, as rules without controls.
namespace kx::sysvar {

enum SysVarColumn { kMark, kName, kValue, kRange, kPlace, kDescription, kSysVarColumns };

// The text of one cell. The mark is "*" for a variable with a staged value.
KXGUI_EXPORT std::wstring cellText(const SysVarEdits& edits, int index, SysVarColumn column);

// What a value is edited with.
enum class SysVarEditor { none, text, toggle, choice, color, record };
KXGUI_EXPORT SysVarEditor editorOf(const SysVarEntry& entry);
// The values of a toggle, a choice, and a record; in the order to offer them.
KXGUI_EXPORT std::vector<std::wstring> choicesOf(const SysVarEntry& entry, const OdDbDatabase* database);

// Which variables are shown and in which order.
struct SysVarView {
    std::wstring filter; // every word of it is in the name or in the description, letter case aside
    bool onlyChanged = false;
    SysVarColumn order = kName;
    bool ascending = true;
};
// Indices into the entries. Equal texts stay in the order of names.
KXGUI_EXPORT std::vector<int> shownRows(const SysVarEdits& edits, const SysVarView& view);

} // namespace kx::sysvar
