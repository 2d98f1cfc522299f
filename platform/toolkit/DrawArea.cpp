#include "platform/toolkit/DrawArea.h"

void CDrawArea::SetDisplayList(tv::ui::DisplayList list) {
    m_list = std::move(list);
    tell(tv::ui::Change::items);
}

tv::ui::UserResult CDrawArea::userClick(tv::ui::DrawPoint point) {
    if (auto r = acceptsUser(); !r) return r;
    if (onClick) onClick(point);
    return tv::ui::UserResult::done();
}

tv::ui::UserResult CDrawArea::carryOut(const tv::ui::UserAction& action) {
    return action.kind == tv::ui::UserAction::Kind::point && onClick ? userClick({action.x, action.y})
                                                                     : CWnd::carryOut(action);
}
