#include "platform/toolkit/ComboBox.h"

#include "platform/text/Format.h"
#include "platform/text/ResourceString.h"
#include "platform/toolkit/Choice.h"
#include "platform/toolkit/Snapshot.h"

using tv::ui::Change;
using tv::ui::Key;
using tv::ui::UserAction;
using tv::ui::UserResult;

int CComboBox::InsertString(int index, std::wstring_view text) {
    const int at = m_items.insert(index, text);
    if (m_curSel >= at) ++m_curSel;
    tell(Change::items);
    return at;
}

void CComboBox::SetItems(std::vector<tv::ui::ListItem> items) {
    SetItems(std::make_shared<const std::vector<tv::ui::ListItem>>(std::move(items)));
}

void CComboBox::SetItems(tv::ui::SharedItems items) {
    m_items.assign(std::move(items));
    m_curSel = -1;
    showSelection();
    tell(Change::items);
}

int CComboBox::DeleteString(int index) {
    if (!m_items.erase(index)) return -1;
    if (m_curSel == index) m_curSel = -1;
    else if (m_curSel > index) --m_curSel;
    showSelection();
    tell(Change::items);
    return m_items.count();
}

void CComboBox::ResetContent() {
    m_items.clear();
    m_curSel = -1;
    showSelection();
    tell(Change::items);
}

std::wstring CComboBox::GetLBText(int index) const {
    return m_items.valid(index) ? m_items.at(index).text : std::wstring();
}

void CComboBox::SetItemData(int index, std::uintptr_t data) {
    if (m_items.valid(index) && m_items.at(index).data != data) m_items.edit(index).data = data;
}

std::uintptr_t CComboBox::GetItemData(int index) const { return m_items.valid(index) ? m_items.at(index).data : 0; }

void CComboBox::SetItemSwatch(int index, tv::ui::Swatch swatch) {
    if (!m_items.valid(index)) return;
    m_items.edit(index).swatch = std::move(swatch);
    tell(Change::items);
}

int CComboBox::SetCurSel(int index) {
    m_curSel = m_items.valid(index) ? index : -1;
    showSelection();
    tell(Change::selection);
    return m_curSel;
}

void CComboBox::showSelection() {
    if (m_curSel >= 0) setTextSilently(m_items.at(m_curSel).text);
    else if (!m_editable) setTextSilently({});
}

UserResult CComboBox::userChoose(int index) {
    if (auto r = acceptsUser(); !r) return r;
    if (!m_items.valid(index))
        return refuse(VORD_ResourceString("IDS_TAVO_UI_NO_SUCH_ITEM", L"그런 항목이 목록에 없습니다."));
    takeFocus();
    if (auto r = acceptsUser(); !r) return r;
    if (index == m_curSel) return UserResult::done();
    CComboBox::SetCurSel(index);
    OnSelChange();
    return UserResult::done();
}

UserResult CComboBox::userChoose(std::wstring_view text) {
    UserAction action;
    action.text = text;
    return userChoose(tv::ui::chosenItem(m_items, action));
}

UserResult CComboBox::userEdit(std::wstring_view text) {
    if (auto r = acceptsUser(); !r) return r;
    if (!m_editable) return refuse(VORD_ResourceString("IDS_TAVO_UI_NOT_EDITABLE", L"목록에서 고르기만 할 수 있습니다."));
    takeFocus();
    if (auto r = acceptsUser(); !r) return r;
    m_curSel = -1;
    SetWindowText(text);
    if (onEditChange) onEditChange();
    return UserResult::done();
}

UserResult CComboBox::userDropDown() {
    if (auto r = acceptsUser(); !r) return r;
    takeFocus();
    if (onDropDown) onDropDown();
    return UserResult::done();
}

void CComboBox::OnSelChange() {
    if (onSelChange) onSelChange();
}

void CComboBox::OnKillFocus() {
    if (onKillFocus) onKillFocus();
}

UserResult CComboBox::perform(const UserAction& action) {
    switch (action.kind) {
    case UserAction::Kind::choose: return userChoose(tv::ui::chosenItem(m_items, action));
    case UserAction::Kind::type: return userEdit(action.text);
    case UserAction::Kind::click: return userDropDown();
    default: return CWnd::perform(action);
    }
}

bool CComboBox::controlKey(const tv::ui::KeyEvent& key) {
    if (const auto target = tv::ui::listKeyTarget(key.key, m_curSel, GetCount())) {
        if (m_editable && (key.key == Key::home || key.key == Key::end)) return false;
        (void)userChoose(*target);
        return true;
    }
    if (key.key != Key::character || key.ctrl || key.alt) return false;
    if (m_editable) return static_cast<bool>(userEdit(GetWindowText() + key.ch));
    if (const int target = tv::ui::typedTarget(m_items, m_curSel, key.ch); target >= 0) (void)userChoose(target);
    return true;
}

void CComboBox::describe(tv::ui::ControlSnapshot& out) const {
    CWnd::describe(out);
    out.items = m_items.texts();
    out.selection = m_curSel >= 0 ? std::vector<int>{m_curSel} : std::vector<int>{};
}
