#include "platform/toolkit/ListBox.h"

#include "platform/text/ResourceString.h"
#include "platform/toolkit/Choice.h"
#include "platform/toolkit/Snapshot.h"

using tv::ui::Change;
using tv::ui::UserAction;
using tv::ui::UserResult;

int CListBox::InsertString(int index, std::wstring_view text) {
    const int at = m_items.insert(index, text);
    if (m_curSel >= at) ++m_curSel;
    tell(Change::items);
    return at;
}

void CListBox::SetItems(std::vector<tv::ui::ListItem> items) {
    SetItems(std::make_shared<const std::vector<tv::ui::ListItem>>(std::move(items)));
}

void CListBox::SetItems(tv::ui::SharedItems items) {
    m_items.assign(std::move(items));
    m_curSel = -1;
    tell(Change::items);
}

int CListBox::DeleteString(int index) {
    if (!m_items.erase(index)) return -1;
    if (m_curSel == index) m_curSel = -1;
    else if (m_curSel > index) --m_curSel;
    tell(Change::items);
    return m_items.count();
}

void CListBox::ResetContent() {
    m_items.clear();
    m_curSel = -1;
    tell(Change::items);
}

std::wstring CListBox::GetText(int index) const {
    return m_items.valid(index) ? m_items.at(index).text : std::wstring();
}

void CListBox::SetItemData(int index, std::uintptr_t data) {
    if (m_items.valid(index) && m_items.at(index).data != data) m_items.edit(index).data = data;
}

std::uintptr_t CListBox::GetItemData(int index) const { return m_items.valid(index) ? m_items.at(index).data : 0; }

void CListBox::SetItemSwatch(int index, tv::ui::Swatch swatch) {
    if (!m_items.valid(index)) return;
    m_items.edit(index).swatch = std::move(swatch);
    tell(Change::items);
}

int CListBox::SetCurSel(int index) {
    m_curSel = m_items.valid(index) ? index : -1;
    tell(Change::selection);
    return m_curSel;
}

UserResult CListBox::userChoose(int index) {
    if (auto r = acceptsUser(); !r) return r;
    if (!m_items.valid(index))
        return refuse(VORD_ResourceString("IDS_TAVO_UI_NO_SUCH_ITEM", L"그런 항목이 목록에 없습니다."));
    takeFocus();
    if (auto r = acceptsUser(); !r) return r;
    if (index == m_curSel) return UserResult::done();
    SetCurSel(index);
    if (onSelChange) onSelChange();
    return UserResult::done();
}

UserResult CListBox::userDoubleClick(int index) {
    if (auto r = userChoose(index); !r) return r;
    if (onDoubleClick && acceptsUser()) onDoubleClick();
    return UserResult::done();
}

UserResult CListBox::perform(const UserAction& action) {
    switch (action.kind) {
    case UserAction::Kind::choose: return userChoose(tv::ui::chosenItem(m_items, action));
    case UserAction::Kind::cell:
        return action.cell == UserAction::Cell::doubleClick ? userDoubleClick(action.row) : userChoose(action.row);
    case UserAction::Kind::selectRows: return userChoose(action.rows.size() == 1 ? action.rows.front() : -1);
    default: return CWnd::perform(action);
    }
}

bool CListBox::controlKey(const tv::ui::KeyEvent& key) {
    if (const auto target = tv::ui::listKeyTarget(key.key, m_curSel, GetCount())) {
        (void)userChoose(*target);
        return true;
    }
    if (key.key != tv::ui::Key::character || key.ctrl || key.alt) return false;
    if (const int target = tv::ui::typedTarget(m_items, m_curSel, key.ch); target >= 0) (void)userChoose(target);
    return true;
}

void CListBox::describe(tv::ui::ControlSnapshot& out) const {
    CWnd::describe(out);
    out.items = m_items.texts();
    out.selection = m_curSel >= 0 ? std::vector<int>{m_curSel} : std::vector<int>{};
}
