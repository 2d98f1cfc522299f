#include "tavocad/automation/Actions.h"

#include "platform/text/Format.h"
#include "platform/text/ResourceString.h"
#include "platform/text/Unicode.h"
#include "platform/toolkit/Dialog.h"
#include "tavocad/NearNames.h"
#include "tavocad/automation/Fields.h"

#include <algorithm>

using tv::text::format;
using tv::text::fromUtf8;
using tv::ui::UserAction;
using Kind = tv::ui::UserAction::Kind;

namespace {

[[noreturn]] void badValue(const char* field, std::wstring_view value, std::wstring_view allowed) {
    throw RequestError{
        format(VORD_ResourceString("IDS_TAVO_AUTO_BAD_VALUE",
                                   L"항목 \"%s\"의 값 \"%s\"을(를) 알 수 없습니다. 가능한 값: %s."),
               fromUtf8(field), value, allowed)};
}

UserAction chooseAction(const Fields& fields) {
    UserAction action;
    action.kind = Kind::choose;
    if (const auto text = fields.optionalText("text")) {
        action.text = *text;
    } else {
        action.index = fields.integer("index");
        // A negative index would mean "by text" to the control.
        if (action.index < 0)
            badValue("index", std::to_wstring(action.index),
                     VORD_ResourceString("IDS_TAVO_AUTO_INDEX_FROM_0", L"0 이상의 정수"));
    }
    return action;
}

UserAction checkAction(const Fields& fields) {
    UserAction action;
    action.kind = Kind::check;
    action.checked = 1;
    const auto* value = fields.find("checked");
    if (!value) return action;
    action.checked = value->is_boolean() ? static_cast<int>(value->get<bool>()) : fields.integer("checked");
    if (action.checked < 0 || action.checked > 2)
        badValue("checked", std::to_wstring(action.checked), L"false, true, 0, 1, 2");
    return action;
}

UserAction cellAction(const Fields& fields) {
    UserAction action;
    action.kind = Kind::cell;
    const std::wstring what = fields.optionalText("action").value_or(L"click");
    if (what == L"menu") {
        action.cell = UserAction::Cell::menu;
        action.row = fields.integer("row");
        action.column = fields.optionalInteger("column").value_or(action.row < 0 ? -1 : 0);
        return action;
    }
    action.row = fields.integer("row");
    action.column = fields.integer("column");
    if (what == L"click")
        action.cell = UserAction::Cell::click;
    else if (what == L"doubleClick")
        action.cell = UserAction::Cell::doubleClick;
    else if (what == L"edit") {
        action.cell = UserAction::Cell::edit;
        action.text = fields.text("text");
    } else if (what == L"check") {
        action.cell = UserAction::Cell::check;
        action.checked = fields.optionalBool("checked").value_or(true);
    } else if (what == L"open")
        action.cell = UserAction::Cell::open;
    else if (what == L"cancel")
        action.cell = UserAction::Cell::cancel;
    else
        badValue("action", what, L"click, doubleClick, edit, open, check, cancel, menu");
    return action;
}

// Rows one by one, or ranges of them with both ends.
UserAction rowsAction(const Fields& fields) {
    UserAction action;
    action.kind = Kind::selectRows;
    if (!fields.find("ranges")) {
        action.rows = fields.integers("rows");
        return action;
    }
    for (const auto& [first, last] : fields.integerPairs("ranges"))
        action.rows.insert(first, last);
    return action;
}

UserAction columnAction(const Fields& fields) {
    UserAction action;
    action.column = fields.integer("column");
    const std::wstring what = fields.text("action");
    if (what == L"move") {
        action.kind = Kind::moveColumn;
        action.index = fields.integer("place");
    } else if (what == L"resize") {
        action.kind = Kind::resizeColumn;
        action.index = std::max(0, fields.integer("width"));
    } else if (what == L"fit") {
        action.kind = Kind::resizeColumn;
    } else if (what == L"show" || what == L"hide") {
        action.kind = Kind::showColumn;
        action.checked = what == L"show";
    } else if (what == L"menu") {
        action.kind = Kind::columnMenu;
    } else {
        badValue("action", what, L"move, resize, fit, show, hide, menu");
    }
    return action;
}

UserAction treeAction(const Fields& fields) {
    UserAction action;
    const std::wstring what = fields.optionalText("action").value_or(L"select");
    // A menu is also asked for where there is no item.
    if (what != L"menu" || fields.find("path")) action.path = fields.texts("path");
    if (what == L"select")
        action.kind = Kind::treeSelect;
    else if (what == L"expand") {
        action.kind = Kind::treeExpand;
        action.checked = fields.optionalBool("expanded").value_or(true);
    } else if (what == L"rename") {
        action.kind = Kind::treeRename;
        action.text = fields.text("text");
    } else if (what == L"menu")
        action.kind = Kind::treeMenu;
    else if (what == L"doubleClick")
        action.kind = Kind::treeDoubleClick;
    else
        badValue("action", what, L"select, expand, rename, doubleClick, menu");
    return action;
}

UserAction dragAction(const Fields& fields) {
    UserAction action;
    action.kind = Kind::drag;
    action.text = fields.text("to");
    if (fields.find("path")) action.path = fields.texts("path");
    action.checked = fields.optionalBool("copy").value_or(false);
    return action;
}

UserAction menuAction(const Fields& fields) {
    UserAction action;
    action.kind = Kind::menu;
    if (fields.find("path"))
        action.path = fields.texts("path");
    else
        action.text = fields.text("text");
    return action;
}

UserAction keyAction(const Fields& fields) {
    UserAction action;
    action.kind = Kind::key;
    const std::wstring key = fields.text("key");
    action.keyEvent = tv::ui::parseKey(key);
    if (action.keyEvent.key == tv::ui::Key::none)
        badValue("key", key, L"Enter, Escape, Tab, F1, Alt+P, Ctrl+C, a");
    return action;
}

void collectNames(const CWnd& parent, std::vector<std::wstring>& names) {
    for (const CWnd* child : parent.children()) {
        names.push_back(fromUtf8(child->name()));
        collectNames(*child, names);
    }
}

} // namespace

UserAction actionOf(std::wstring_view name, const Fields& fields) {
    if (name == L"choose") return chooseAction(fields);
    if (name == L"check") return checkAction(fields);
    if (name == L"cell") return cellAction(fields);
    if (name == L"column") return columnAction(fields);
    if (name == L"selectRows") return rowsAction(fields);
    if (name == L"tree") return treeAction(fields);
    if (name == L"drag") return dragAction(fields);
    if (name == L"menu") return menuAction(fields);
    if (name == L"key") return keyAction(fields);
    UserAction action;
    if (name == L"type") {
        action.kind = Kind::type;
        action.text = fields.text("text");
    } else if (name == L"header") {
        action.kind = Kind::header;
        action.column = fields.integer("column");
    } else if (name == L"closeBox") {
        action.kind = Kind::closeBox;
    }
    return action;
}

CWnd& controlOf(CDialog& dialog, std::wstring_view name) {
    if (CWnd* control = dialog.GetDlgItem(tv::text::toUtf8(name))) return *control;
    std::vector<std::wstring> names;
    collectNames(dialog, names);
    const std::wstring window = fromUtf8(dialog.templateName());
    const auto near = nearNames(name, names);
    if (near.empty())
        throw RequestError{format(
            VORD_ResourceString("IDS_TAVO_AUTO_NO_CONTROL_LIKE", L"창 %s에 컨트롤 \"%s\"이(가) 없습니다."),
            window, name)};
    throw RequestError{format(VORD_ResourceString("IDS_TAVO_AUTO_NO_CONTROL",
                                                  L"창 %s에 컨트롤 \"%s\"이(가) 없습니다. 비슷한 이름: %s."),
                              window, name, joined(near))};
}
