#include "platform/toolkit/ItemsWnd.h"

#include "platform/text/ResourceString.h"
#include "platform/toolkit/Choice.h"
#include "platform/toolkit/Snapshot.h"

using tv::ui::Change;
using tv::ui::UserResult;

int CItemsWnd::InsertString(int index, std::wstring_view text) {
    const int at = m_items.insert(index, text);
    if (m_curSel >= at) ++m_curSel;
    tell(Change::items);
    return at;
}

void CItemsWnd::SetItems(std::vector<tv::ui::ListItem> items) {
    SetItems(std::make_shared<const std::vector<tv::ui::ListItem>>(std::move(items)));
}

void CItemsWnd::SetItems(tv::ui::SharedItems items) {
    m_items.assign(std::move(items));
    m_curSel = -1;
    selectionShown();
    tell(Change::items);
}

int CItemsWnd::DeleteString(int index) {
    if (!m_items.erase(index)) return -1;
    if (m_curSel == index)
        m_curSel = -1;
    else if (m_curSel > index)
        --m_curSel;
    selectionShown();
    tell(Change::items);
    return m_items.count();
}

void CItemsWnd::SetItemData(int index, std::uintptr_t data) {
    if (m_items.valid(index) && m_items.at(index).data != data) m_items.edit(index).data = data;
}

std::uintptr_t CItemsWnd::GetItemData(int index) const {
    return m_items.valid(index) ? m_items.at(index).data : 0;
}

void CItemsWnd::SetItemPicture(int index, tv::ui::Picture picture) {
    if (!m_items.valid(index) || m_items.at(index).picture == picture) return;
    m_items.edit(index).picture = std::move(picture);
    tell(Change::items);
}

std::wstring CItemsWnd::itemText(int index) const {
    return m_items.valid(index) ? m_items.at(index).text : std::wstring();
}

int CItemsWnd::SetCurSel(int index) {
    m_curSel = m_items.valid(index) ? index : -1;
    selectionShown();
    tell(Change::selection);
    return m_curSel;
}

UserResult CItemsWnd::userChoose(int index) {
    if (auto r = acceptsUser(); !r) return r;
    if (!m_items.valid(index))
        return refuse(VORD_ResourceString("IDS_TAVO_UI_NO_SUCH_ITEM", L"그런 항목이 목록에 없습니다."));
    takeFocus();
    if (auto r = acceptsUser(); !r) return r;
    if (index == m_curSel) return UserResult::done();
    CItemsWnd::SetCurSel(index);
    OnSelChange();
    return UserResult::done();
}

UserResult CItemsWnd::userChoose(std::wstring_view text) {
    tv::ui::UserAction action;
    action.text = text;
    return userChoose(tv::ui::chosenItem(m_items, action));
}

void CItemsWnd::OnSelChange() {
    if (onSelChange) onSelChange();
}

bool CItemsWnd::choiceKey(const tv::ui::KeyEvent& key) {
    if (const auto target = tv::ui::listKeyTarget(key.key, m_curSel, GetCount())) {
        (void)userChoose(*target);
        return true;
    }
    if (key.key != tv::ui::Key::character || key.ctrl || key.alt) return false;
    if (const int target = tv::ui::typedTarget(m_items, m_curSel, key.ch); target >= 0)
        (void)userChoose(target);
    return true;
}

void CItemsWnd::describe(tv::ui::ControlSnapshot& out) const {
    CWnd::describe(out);
    out.items = m_items.texts();
    out.selection = m_curSel >= 0 ? std::vector<int>{m_curSel} : std::vector<int>{};
}
