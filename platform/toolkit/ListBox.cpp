#include "platform/toolkit/ListBox.h"

#include "platform/toolkit/Choice.h"

using tv::ui::UserAction;
using tv::ui::UserResult;

UserResult CListBox::userDoubleClick(int index) {
    if (auto r = userChoose(index); !r) return r;
    if (onDoubleClick && acceptsUser()) onDoubleClick();
    return UserResult::done();
}

UserResult CListBox::carryOut(const UserAction& action) {
    switch (action.kind) {
    case UserAction::Kind::choose:
        return userChoose(tv::ui::chosenItem(items(), action));
    case UserAction::Kind::cell:
        return action.cell == UserAction::Cell::doubleClick ? userDoubleClick(action.row)
                                                            : userChoose(action.row);
    case UserAction::Kind::selectRows:
        return userChoose(action.rows.count() == 1 ? action.rows.first() : -1);
    default:
        return CItemsWnd::carryOut(action);
    }
}
