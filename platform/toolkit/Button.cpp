#include "platform/toolkit/Button.h"

#include "platform/text/ResourceString.h"
#include "platform/toolkit/Dialog.h"
#include "platform/toolkit/Snapshot.h"

#include <algorithm>

using tv::ui::Change;
using tv::ui::Key;
using tv::ui::UserAction;
using tv::ui::UserResult;

UserResult CButton::userClick() {
    if (auto r = acceptsUser(); !r) return r;
    takeFocus();
    // Leaving the old control may have closed the dialog or disabled this button.
    if (auto r = acceptsUser(); !r) return r;
    pressed();
    return UserResult::done();
}

void CButton::pressed() {
    if (onClick) return onClick();
    if (name() == "IDOK") dialog()->OnOK();
    else if (name() == "IDCANCEL") dialog()->OnCancel();
}

UserResult CButton::carryOut(const UserAction& action) {
    return action.kind == UserAction::Kind::click ? userClick() : CWnd::carryOut(action);
}

bool CButton::controlKey(const tv::ui::KeyEvent& key) {
    if (key.key != Key::space) return false;
    (void)userClick();
    return true;
}

std::wstring CCommandButton::command() const {
    return GetWindowText().substr(0, GetWindowText().find(L'\n'));
}

std::wstring CCommandButton::explanation() const {
    const auto at = GetWindowText().find(L'\n');
    return at == std::wstring::npos ? std::wstring() : GetWindowText().substr(at + 1);
}

void CCheckBox::SetCheck(int state) {
    m_check = std::clamp(state, int(unchecked), int(mixed));
    tell(Change::checked);
}

UserResult CCheckBox::userCheck(int state) {
    if (auto r = acceptsUser(); !r) return r;
    if (state < unchecked || state > (m_triState ? mixed : checked))
        return refuse(VORD_ResourceString("IDS_TAVO_UI_NO_SUCH_STATE", L"그런 체크 상태는 없습니다."));
    takeFocus();
    if (auto r = acceptsUser(); !r) return r;
    if (m_check == state) return UserResult::done();
    SetCheck(state);
    if (onClick) onClick();
    return UserResult::done();
}

void CCheckBox::pressed() {
    SetCheck((m_check + 1) % (m_triState ? 3 : 2));
    if (onClick) onClick();
}

UserResult CCheckBox::carryOut(const UserAction& action) {
    return action.kind == UserAction::Kind::check ? userCheck(action.checked) : CButton::carryOut(action);
}

void CCheckBox::describe(tv::ui::ControlSnapshot& out) const {
    CWnd::describe(out);
    out.checked = m_check;
}

std::vector<CRadioButton*> CRadioButton::groupMembers() const {
    std::vector<CRadioButton*> out;
    for (CWnd* wnd : GetParent()->children())
        if (wnd->kind() == tv::ui::ControlKind::radioButton)
            if (auto* radio = static_cast<CRadioButton*>(wnd); radio->m_group == m_group) out.push_back(radio);
    return out;
}

void CRadioButton::SetCheck(bool check) {
    if (check)
        for (CRadioButton* other : groupMembers())
            if (other != this && other->m_check) {
                other->m_check = false;
                other->tell(Change::checked);
            }
    m_check = check;
    tell(Change::checked);
}

void CRadioButton::pressed() {
    if (!m_check) SetCheck(true);
    if (onClick) onClick();
}

UserResult CRadioButton::carryOut(const UserAction& action) {
    if (action.kind != UserAction::Kind::check) return CButton::carryOut(action);
    if (action.checked == 1) return userClick();
    if (auto r = acceptsUser(); !r) return r;
    return refuse(VORD_ResourceString("IDS_TAVO_UI_RADIO_UNCHECK", L"라디오 단추는 다른 항목을 선택해야 해제됩니다."));
}

bool CRadioButton::controlKey(const tv::ui::KeyEvent& key) {
    const bool back = key.key == Key::left || key.key == Key::up;
    if (!back && key.key != Key::right && key.key != Key::down) return CButton::controlKey(key);
    auto members = groupMembers();
    std::erase_if(members, [](auto* b) { return !b->IsWindowVisible() || !b->IsWindowEnabled(); });
    const auto at = std::find(members.begin(), members.end(), this);
    if (at == members.end()) return false;
    const auto size = static_cast<std::ptrdiff_t>(members.size());
    const auto next = (at - members.begin() + (back ? -1 : 1) + size) % size;
    (void)members[static_cast<std::size_t>(next)]->userClick();
    return true;
}

void CRadioButton::describe(tv::ui::ControlSnapshot& out) const {
    CWnd::describe(out);
    out.checked = m_check ? 1 : 0;
}
