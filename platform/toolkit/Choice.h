#pragma once

#include "platform/text/Unicode.h"
#include "platform/toolkit/ListItems.h"
#include "platform/toolkit/UserAction.h"

#include <optional>

namespace tv::ui {

// Where the arrow keys lead in a list of `count` items from `current` (-1: nothing selected) with `page` items a page;
// nothing when the key is no list key.
inline std::optional<int> listKeyTarget(Key key, int current, int count, int page = 10) {
    int target = current;
    switch (key) {
    case Key::up: target = current - 1; break;
    case Key::down: target = current + 1; break;
    case Key::pageUp: target = current - page; break;
    case Key::pageDown: target = current + page; break;
    case Key::home: target = 0; break;
    case Key::end: target = count - 1; break;
    default: return std::nullopt;
    }
    if (count == 0) return current;
    return target < 0 ? 0 : target >= count ? count - 1 : target;
}

// The item of an action that names it by index or by its whole text; -1 when there is none.
inline int chosenItem(const ListItems& items, const UserAction& action) {
    if (action.index >= 0) return items.valid(action.index) ? action.index : -1;
    for (int i = 0; i < items.count(); ++i)
        if (items.at(i).text == action.text) return i;
    return -1;
}

} // namespace tv::ui
