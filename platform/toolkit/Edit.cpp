#include "platform/toolkit/Edit.h"

#include "platform/text/ResourceString.h"

using tv::ui::Change;
using tv::ui::Key;
using tv::ui::UserAction;
using tv::ui::UserResult;

void CEdit::SetLimitText(int characters) {
    m_limit = characters > 0 ? characters : 0;
    tell(Change::editing);
}

void CEdit::SetReadOnly(bool readOnly) {
    m_readOnly = readOnly;
    tell(Change::editing);
}

void CEdit::SetAlign(tv::ui::TextAlign align) {
    m_align = align;
    tell(Change::editing);
}

void CEdit::SelectAll() {
    m_allSelected = true;
    tell(Change::selection);
}

UserResult CEdit::userType(std::wstring_view text) {
    if (auto r = acceptsUser(); !r) return r;
    if (m_readOnly) return refuse(VORD_ResourceString("IDS_TAVO_UI_READ_ONLY", L"읽기 전용입니다."));
    takeFocus();
    if (auto r = acceptsUser(); !r) return r;
    if (m_limit > 0 && text.size() > static_cast<std::size_t>(m_limit)) text = text.substr(0, static_cast<std::size_t>(m_limit));
    m_allSelected = false;
    if (text == GetWindowText()) return UserResult::done();
    SetWindowText(text);
    if (onChange) onChange();
    return UserResult::done();
}

UserResult CEdit::carryOut(const UserAction& action) {
    switch (action.kind) {
    case UserAction::Kind::type: return userType(action.text);
    case UserAction::Kind::click: return userFocus();
    default: return CWnd::carryOut(action);
    }
}

bool CEdit::controlKey(const tv::ui::KeyEvent& key) {
    std::wstring text = m_allSelected ? std::wstring() : GetWindowText();
    switch (key.key) {
    case Key::character:
        if (key.alt) return false;
        if (key.ctrl) {
            if (key.ch != L'A') return false;
            SelectAll();
            return true;
        }
        text += key.ch;
        break;
    case Key::space: text += L' '; break;
    case Key::enter:
        if (!m_multiLine) return false;
        text += L'\n';
        break;
    case Key::backspace:
        if (!m_allSelected && !text.empty()) text.pop_back();
        break;
    case Key::del:
        if (!m_allSelected) return true;
        break;
    default: return false;
    }
    return static_cast<bool>(userType(text));
}

void CEdit::OnSetFocus() {
    if (onSetFocus) onSetFocus();
}

void CEdit::OnKillFocus() {
    m_allSelected = false;
    if (onKillFocus) onKillFocus();
}

