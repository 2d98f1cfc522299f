#pragma once

#include "platform/Export.h"
#include "platform/toolkit/RowSet.h"

#include <string>
#include <vector>

namespace tv::ui {

enum class Key {
    none,
    character, // KeyEvent::ch holds it
    enter,
    escape,
    tab,
    space,
    backspace,
    del,
    left,
    right,
    up,
    down,
    home,
    end,
    pageUp,
    pageDown,
    f1,
    f2,
    f4,
    f10,
    menu // the context menu key
};

struct KeyEvent {
    Key key = Key::none;
    wchar_t ch = 0; // the character, upper case for letters pressed with Ctrl or Alt
    bool ctrl = false, alt = false, shift = false;
};

// "Ctrl+C", "Alt+P", "Shift+Tab", "Enter", "F1", "a". Key::none when the text names no key.
KXPLATFORM_EXPORT KeyEvent parseKey(std::wstring_view text);

// What a person can do to a window. Which fields count depends on the kind.
struct UserAction {
    enum class Kind {
        click,
        type,            // text replaces what the control shows
        choose,          // index, or text when index is -1
        check,           // checked: 0, 1, 2 (mixed)
        selectRows,      // rows
        cell,            // row, column, cell (and text to edit, checked to check)
        header,          // column
        moveColumn,      // column, index: the place from the left
        resizeColumn,    // column, index: the width in logical pixels; -1: what its contents need
        showColumn,      // column, checked
        columnMenu,      // column: the menu of the titles
        treeSelect,      // path
        treeExpand,      // path, checked
        treeRename,      // path, text
        treeDoubleClick, // path
        treeMenu,        // path; none: where no item is
        drag,  // a list's selected rows, or a tree's selected item, onto the tree `text`: path; checked: a copy
        menu,  // path, or text: the entry of the open context menu, in every window
        key,   // keyEvent
        point, // x, y, z in drawing units
        closeBox
    };
    // open: the editor the cell has; cancel: closes an open one; menu: the context menu, row -1 stands for
    // where no row is
    enum class Cell { click, doubleClick, edit, open, check, cancel, menu };

    Kind kind = Kind::click;
    std::wstring text;
    int index = -1;
    int checked = 0;
    int row = -1, column = -1;
    Cell cell = Cell::click;
    RowSet rows;
    std::vector<std::wstring>
        path; // texts of the tree items from the root down, of menu entries from the outer in
    KeyEvent keyEvent;
    double x = 0, y = 0, z = 0;
};

// Whether a person's action was carried out. A refusal changes nothing and says in one sentence why.
struct [[nodiscard]] UserResult {
    std::wstring refusal;
    explicit operator bool() const { return refusal.empty(); }
    static UserResult done() { return {}; }
};

} // namespace tv::ui
