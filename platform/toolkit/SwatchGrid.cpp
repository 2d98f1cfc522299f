#include "platform/toolkit/SwatchGrid.h"

#include "platform/text/ResourceString.h"
#include "platform/toolkit/Snapshot.h"

using tv::ui::Change;
using tv::ui::Key;
using tv::ui::UserAction;
using tv::ui::UserResult;

void CSwatchGrid::SetCells(std::vector<tv::ui::ColorCell> cells) {
    m_cells = std::move(cells);
    m_curSel = -1;
    tell(Change::items);
}

void CSwatchGrid::SetCurSel(int index) {
    m_curSel = index >= 0 && index < static_cast<int>(m_cells.size()) ? index : -1;
    tell(Change::selection);
}

int CSwatchGrid::FindData(std::uintptr_t data) const {
    for (std::size_t i = 0; i < m_cells.size(); ++i)
        if (m_cells[i].data == data) return static_cast<int>(i);
    return -1;
}

UserResult CSwatchGrid::userChoose(int index) {
    if (auto r = acceptsUser(); !r) return r;
    if (index < 0 || index >= static_cast<int>(m_cells.size()))
        return refuse(VORD_ResourceString("IDS_TAVO_UI_NO_SUCH_ITEM", L"그런 항목이 목록에 없습니다."));
    takeFocus();
    if (auto r = acceptsUser(); !r) return r;
    SetCurSel(index);
    if (onSelChange) onSelChange();
    return UserResult::done();
}

UserResult CSwatchGrid::userDoubleClick(int index) {
    if (auto r = userChoose(index); !r) return r;
    if (onDoubleClick && acceptsUser()) onDoubleClick();
    return UserResult::done();
}

UserResult CSwatchGrid::userHover(int index) {
    if (auto r = acceptsUser(); !r) return r;
    if (onHover) onHover(index >= 0 && index < static_cast<int>(m_cells.size()) ? index : -1);
    return UserResult::done();
}

UserResult CSwatchGrid::carryOut(const UserAction& action) {
    if (action.kind == UserAction::Kind::cell) {
        const int index = action.column < 0 || action.column >= m_columns ? -1 : action.row * m_columns + action.column;
        return action.cell == UserAction::Cell::doubleClick ? userDoubleClick(index) : userChoose(index);
    }
    if (action.kind != UserAction::Kind::choose) return CWnd::carryOut(action);
    if (action.index >= 0) return userChoose(action.index);
    for (std::size_t i = 0; i < m_cells.size(); ++i)
        if (m_cells[i].name == action.text) return userChoose(static_cast<int>(i));
    return userChoose(-1);
}

bool CSwatchGrid::controlKey(const tv::ui::KeyEvent& key) {
    const int count = static_cast<int>(m_cells.size());
    int target = m_curSel;
    switch (key.key) {
    case Key::left: target -= 1; break;
    case Key::right: target += 1; break;
    case Key::up: target -= m_columns; break;
    case Key::down: target += m_columns; break;
    case Key::home: target = 0; break;
    case Key::end: target = count - 1; break;
    default: return false;
    }
    if (m_curSel < 0) target = 0;
    if (target >= 0 && target < count && target != m_curSel) (void)userChoose(target);
    return true;
}

void CSwatchGrid::describe(tv::ui::ControlSnapshot& out) const {
    CWnd::describe(out);
    out.items.emplace();
    for (const auto& cell : m_cells) out.items->push_back(cell.name);
    out.selection = m_curSel >= 0 ? std::vector<int>{m_curSel} : std::vector<int>{};
}
