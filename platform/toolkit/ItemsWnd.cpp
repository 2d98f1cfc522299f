#include "platform/toolkit/ItemsWnd.h"

#include "platform/text/ResourceString.h"
#include "platform/toolkit/Choice.h"
#include "platform/toolkit/Snapshot.h"

using tv::ui::Change;
using tv::ui::UserResult;

int CItemsWnd::InsertString(int index, std::wstring_view text) {
    const int at = m_items.insert(index, text);
    if (m_curSel >= at) ++m_curSel;
    tellItems();
    return at;
}

void CItemsWnd::SetItems(std::vector<tv::ui::ListItem> items) {
    SetItems(std::make_shared<const std::vector<tv::ui::ListItem>>(std::move(items)));
}

void CItemsWnd::SetItems(tv::ui::SharedItems items) {
    m_items.assign(std::move(items));
    m_curSel = -1;
    selectionShown();
    tellItems();
}

int CItemsWnd::DeleteString(int index) {
    if (!m_items.erase(index)) return -1;
    if (m_curSel == index)
        m_curSel = -1;
    else if (m_curSel > index)
        --m_curSel;
    selectionShown();
    tellItems();
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
    tellItems();
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
    const auto target = keyTarget(key, m_curSel);
    if (target && *target >= 0) (void)userChoose(*target);
    return target.has_value();
}

std::optional<int> CItemsWnd::keyTarget(const tv::ui::KeyEvent& key, int current) {
    if (key.alt) return std::nullopt;
    if (const auto target = tv::ui::listKeyTarget(key.key, current, GetCount())) return target;
    if (key.ctrl) return std::nullopt;
    if (key.key == tv::ui::Key::character) return typedTarget(key.ch, current);
    if (key.key == tv::ui::Key::space && !m_typed.empty()) return typedTarget(L' ', current);
    return std::nullopt;
}

int CItemsWnd::typedTarget(wchar_t ch, int current) {
    constexpr std::chrono::milliseconds forgotten(1000);
    const auto* toolkit = tv::ui::Toolkit::current();
    const auto now = toolkit ? toolkit->now() : m_typedAt;
    if (now - m_typedAt > forgotten) m_typed.clear();
    m_typedAt = now;
    m_typed += ch;
    const bool oneLetter = m_typed.find_first_not_of(m_typed.front()) == std::wstring::npos;
    // A longer beginning may be that of the current item; one letter goes on to the next.
    const int found = oneLetter ? m_items.findPrefix(current, std::wstring_view(m_typed).substr(0, 1))
                                : m_items.findPrefix(current < 0 ? -1 : current - 1, m_typed);
    if (found >= 0 || oneLetter) return found >= 0 ? found : current;
    m_typed = ch; // nothing begins so: a new word
    const int next = m_items.findPrefix(current, m_typed);
    return next >= 0 ? next : current;
}

void CItemsWnd::tellItems() {
    tell(Change::items);
    itemsShown();
}

void CItemsWnd::describe(tv::ui::ControlSnapshot& out) const {
    CWnd::describe(out);
    out.items = m_items.texts();
    out.selection = m_curSel >= 0 ? std::vector<int>{m_curSel} : std::vector<int>{};
}
