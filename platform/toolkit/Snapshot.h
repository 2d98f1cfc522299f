#pragma once

#include "platform/toolkit/Rect.h"
#include "platform/toolkit/Wnd.h"

#include <optional>

namespace tv::ui {

// What can be said of a control without seeing it.
struct ControlSnapshot {
    std::string name;
    ControlKind kind{};
    std::wstring label; // the accessible name
    std::wstring text;
    bool enabled = true, visible = true, focused = false, isDefault = false;
    std::optional<int> checked;
    std::optional<std::string> icon;
    std::optional<std::vector<std::wstring>> items;
    std::optional<std::vector<int>> selection; // of a list with columns the first thousand rows; then also:
    std::optional<std::int64_t> selectedCount;
    std::vector<RowSet::Range> selectedRanges; // the first thousand
    std::optional<std::vector<std::wstring>> columns;
    std::optional<std::vector<int>> columnsShown; // from left to right, when that isn't all as they were made
    std::optional<std::pair<int, bool>> sorted;   // column, ascending
    std::optional<std::pair<int, int>> focusCell; // row, column
    std::optional<int> rowCount;
    std::vector<std::vector<std::wstring>> rows; // from firstRow on
    int firstRow = 0;
    int wantedFirst = 0, wantedCount = 20; // in: the range of rows to describe
    std::vector<ControlSnapshot> children; // of pages and tabs
};

// An entry of an open menu.
struct MenuSnapshot {
    std::wstring text; // as it is said; empty: a separator
    std::wstring keys;
    bool enabled = true;
    std::optional<bool> checked;
    std::vector<MenuSnapshot> items;
};

struct DialogSnapshot {
    std::string templateName;
    std::wstring title;
    CSize size;
    std::vector<ControlSnapshot> controls;
    std::optional<std::vector<MenuSnapshot>> menu; // the one that is open, when it is this window's
    std::string menuOwner;                         // the control it belongs to
};

// Rows of lists are given for [firstRow, firstRow + rowCount).
KXPLATFORM_EXPORT DialogSnapshot snapshot(const CDialog& dialog, int firstRow = 0, int rowCount = 20);
// One control a line, for people: failure messages and box texts.
KXPLATFORM_EXPORT std::string toText(const DialogSnapshot& snapshot);

} // namespace tv::ui
