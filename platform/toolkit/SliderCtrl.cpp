#include "platform/toolkit/SliderCtrl.h"

#include "platform/text/Format.h"
#include "platform/text/ResourceString.h"
#include "platform/toolkit/Choice.h"
#include "platform/toolkit/Snapshot.h"

#include <algorithm>

using tv::ui::Change;
using tv::ui::Key;
using tv::ui::UserAction;
using tv::ui::UserResult;

void CSliderCtrl::SetRange(int minimum, int maximum) {
    m_minimum = std::min(minimum, maximum);
    m_maximum = std::max(minimum, maximum);
    m_pos = std::clamp(m_pos, m_minimum, m_maximum);
    tell(Change::items);
}

void CSliderCtrl::SetPos(int pos) {
    m_pos = std::clamp(pos, m_minimum, m_maximum);
    tell(Change::selection);
}

UserResult CSliderCtrl::userSet(int pos) {
    if (auto r = acceptsUser(); !r) return r;
    if (pos < m_minimum || pos > m_maximum)
        return refuse(tv::text::format(
            VORD_ResourceString("IDS_TAVO_UI_OUT_OF_SCALE", L"값은 %d에서 %d 사이여야 합니다."), m_minimum, m_maximum));
    takeFocus();
    if (auto r = acceptsUser(); !r) return r;
    if (pos == m_pos) return UserResult::done();
    SetPos(pos);
    if (onChange) onChange();
    return UserResult::done();
}

UserResult CSliderCtrl::carryOut(const UserAction& action) {
    return action.kind == UserAction::Kind::choose ? userSet(action.index) : CWnd::carryOut(action);
}

bool CSliderCtrl::controlKey(const tv::ui::KeyEvent& key) {
    int pos = m_pos;
    switch (key.key) {
    case Key::left:
    case Key::down: pos -= 1; break;
    case Key::right:
    case Key::up: pos += 1; break;
    case Key::pageDown: pos -= 10; break;
    case Key::pageUp: pos += 10; break;
    case Key::home: pos = m_minimum; break;
    case Key::end: pos = m_maximum; break;
    default: return false;
    }
    (void)userSet(std::clamp(pos, m_minimum, m_maximum));
    return true;
}

void CSliderCtrl::describe(tv::ui::ControlSnapshot& out) const {
    CWnd::describe(out);
    out.selection = std::vector<int>{m_pos};
}
