#include "platform/toolkit/TabCtrl.h"

#include "platform/text/ResourceString.h"
#include "platform/toolkit/Snapshot.h"

using tv::ui::Change;
using tv::ui::Key;
using tv::ui::UserAction;
using tv::ui::UserResult;

int CTabCtrl::AddPage(CWnd& page, std::wstring_view title) {
    m_pages.push_back({&page, std::wstring(title)});
    if (m_curSel < 0) m_curSel = 0;
    showSelected();
    tell(Change::items);
    return GetItemCount() - 1;
}

void CTabCtrl::SetPageTitle(int index, std::wstring_view title) {
    m_pages.at(static_cast<std::size_t>(index)).title = title;
    tell(Change::items);
}

void CTabCtrl::showSelected() {
    for (int i = 0; i < GetItemCount(); ++i) page(i).ShowWindow(i == m_curSel);
}

int CTabCtrl::SetCurSel(int index) {
    if (index < 0 || index >= GetItemCount()) return m_curSel;
    m_curSel = index;
    showSelected();
    tell(Change::selection);
    return m_curSel;
}

UserResult CTabCtrl::userChoose(int index) {
    if (auto r = acceptsUser(); !r) return r;
    if (index < 0 || index >= GetItemCount())
        return refuse(VORD_ResourceString("IDS_TAVO_UI_NO_SUCH_ITEM", L"그런 항목이 목록에 없습니다."));
    takeFocus();
    if (auto r = acceptsUser(); !r) return r;
    if (index == m_curSel) return UserResult::done();
    SetCurSel(index);
    if (onSelChange) onSelChange();
    return UserResult::done();
}

UserResult CTabCtrl::carryOut(const UserAction& action) {
    if (action.kind != UserAction::Kind::choose) return CWnd::carryOut(action);
    if (action.index >= 0) return userChoose(action.index);
    for (int i = 0; i < GetItemCount(); ++i)
        if (title(i) == action.text || tv::ui::plainLabel(title(i)) == action.text) return userChoose(i);
    return userChoose(-1);
}

bool CTabCtrl::controlKey(const tv::ui::KeyEvent& key) {
    if (GetItemCount() == 0) return false;
    if (key.key == Key::left && m_curSel > 0) (void)userChoose(m_curSel - 1);
    else if (key.key == Key::right && m_curSel + 1 < GetItemCount()) (void)userChoose(m_curSel + 1);
    else return key.key == Key::left || key.key == Key::right;
    return true;
}

void CTabCtrl::describe(tv::ui::ControlSnapshot& out) const {
    CWnd::describe(out);
    out.items.emplace();
    for (int i = 0; i < GetItemCount(); ++i) out.items->push_back(title(i));
    out.selection = std::vector<int>{};
    if (m_curSel >= 0) out.selection->push_back(m_curSel);
}
