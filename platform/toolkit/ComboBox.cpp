#include "platform/toolkit/ComboBox.h"

#include "platform/text/ResourceString.h"
#include "platform/toolkit/Choice.h"

using tv::ui::Key;
using tv::ui::UserAction;
using tv::ui::UserResult;

void CComboBox::selectionShown() {
    if (GetCurSel() >= 0)
        setTextSilently(items().at(GetCurSel()).text);
    else if (!m_editable)
        setTextSilently({});
}

UserResult CComboBox::userEdit(std::wstring_view text) {
    if (auto r = acceptsUser(); !r) return r;
    if (!m_editable)
        return refuse(VORD_ResourceString("IDS_TAVO_UI_NOT_EDITABLE", L"목록에서 고르기만 할 수 있습니다."));
    takeFocus();
    if (auto r = acceptsUser(); !r) return r;
    clearSelection();
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

void CComboBox::OnKillFocus() {
    if (onKillFocus) onKillFocus();
}

UserResult CComboBox::perform(const UserAction& action) {
    switch (action.kind) {
    case UserAction::Kind::choose:
        return userChoose(tv::ui::chosenItem(items(), action));
    case UserAction::Kind::type:
        return userEdit(action.text);
    case UserAction::Kind::click:
        return userDropDown();
    default:
        return CItemsWnd::perform(action);
    }
}

bool CComboBox::controlKey(const tv::ui::KeyEvent& key) {
    if (!m_editable) return choiceKey(key);
    if (key.key == Key::character && !key.ctrl && !key.alt)
        return static_cast<bool>(userEdit(GetWindowText() + key.ch));
    return key.key != Key::home && key.key != Key::end && choiceKey(key);
}
