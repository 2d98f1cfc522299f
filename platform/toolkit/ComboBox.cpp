#include "platform/toolkit/ComboBox.h"

#include "platform/text/ResourceString.h"
#include "platform/toolkit/Choice.h"

using tv::ui::Change;
using tv::ui::Key;
using tv::ui::KeyRoute;
using tv::ui::UserAction;
using tv::ui::UserResult;

namespace {

// The keys that open the list and close it again.
bool opensList(const tv::ui::KeyEvent& key) {
    if (key.ctrl) return false;
    return key.alt ? key.key == Key::down || key.key == Key::up : key.key == Key::f4;
}

// What an edit field makes of itself.
bool isOfText(const tv::ui::KeyEvent& key) {
    return key.key == Key::character || key.key == Key::space || key.key == Key::home || key.key == Key::end;
}

} // namespace

void CComboBox::selectionShown() {
    if (GetCurSel() >= 0)
        setTextSilently(items().at(GetCurSel()).text);
    else if (!m_editable)
        setTextSilently({});
}

// --- the open list -------------------------------------------------------------------------------------------

void CComboBox::ShowDropDown(bool show) {
    if (show && !m_dropped) open();
    if (!show) close();
}

void CComboBox::open() {
    m_dropped = true;
    int at = GetCurSel();
    if (at < 0 && m_editable && !GetWindowText().empty()) at = items().findPrefix(-1, GetWindowText());
    m_highlighted = -1;
    highlight(at);
    tell(Change::dropDown);
}

bool CComboBox::close() {
    if (!m_dropped) return false;
    m_dropped = false;
    m_highlighted = -1;
    m_highlightedText.clear();
    tell(Change::dropDown);
    return true;
}

void CComboBox::highlight(int index) {
    if (!items().valid(index)) index = -1;
    if (index >= 0) m_highlightedText = items().at(index).text;
    if (m_highlighted == index) return;
    m_highlighted = index;
    tell(Change::dropDown);
}

void CComboBox::itemsShown() {
    if (!m_dropped || m_highlightedText.empty()) return;
    const auto isIt = [this](int index) { return items().at(index).text == m_highlightedText; };
    if (items().valid(m_highlighted) && isIt(m_highlighted)) return;
    int found = -1;
    for (int i = 0; i < items().count() && found < 0; ++i)
        if (isIt(i)) found = i;
    m_highlighted = found;
    tell(Change::dropDown);
}

UserResult CComboBox::userDropDown() {
    if (auto r = acceptsUser(); !r) return r;
    if (m_dropped) return UserResult::done();
    takeFocus();
    if (onDropDown) onDropDown();
    if (acceptsUser() && !m_dropped) open();
    return UserResult::done();
}

UserResult CComboBox::userHighlight(int index) {
    if (auto r = acceptsUser(); !r) return r;
    if (m_dropped) highlight(index);
    if (m_highlighted < 0) m_highlightedText.clear();
    return UserResult::done();
}

UserResult CComboBox::userCloseUp(bool accept) {
    const int chosen = m_highlighted;
    if (!close()) return UserResult::done();
    UserResult result = UserResult::done();
    if (accept && items().valid(chosen)) result = userChoose(chosen);
    if (onCloseUp) onCloseUp(accept);
    return result;
}

void CComboBox::OnKillFocus() {
    (void)userCloseUp(false);
    if (onKillFocus) onKillFocus();
}

void CComboBox::OnEnable(bool enabled) {
    if (!enabled) close();
}

void CComboBox::OnShowWindow(bool shown) {
    if (!shown) close();
}

void CComboBox::OnWindowGone() {
    m_dropped = false;
    m_highlighted = -1;
    m_highlightedText.clear();
}

// --- what a person does --------------------------------------------------------------------------------------

UserResult CComboBox::userEdit(std::wstring_view text) {
    if (auto r = acceptsUser(); !r) return r;
    if (!m_editable)
        return refuse(VORD_ResourceString("IDS_TAVO_UI_NOT_EDITABLE", L"목록에서 고르기만 할 수 있습니다."));
    takeFocus();
    if (auto r = acceptsUser(); !r) return r;
    clearSelection();
    SetWindowText(text);
    if (m_dropped) (void)userHighlight(text.empty() ? -1 : items().findPrefix(-1, text));
    if (onEditChange) onEditChange();
    return UserResult::done();
}

UserResult CComboBox::carryOut(const UserAction& action) {
    switch (action.kind) {
    case UserAction::Kind::choose: {
        const int index = tv::ui::chosenItem(items(), action);
        if (!m_dropped || index < 0) return userChoose(index);
        if (auto r = userHighlight(index); !r) return r;
        return userCloseUp(true);
    }
    case UserAction::Kind::type:
        return userEdit(action.text);
    case UserAction::Kind::click:
        return m_dropped ? userCloseUp(false) : userDropDown();
    default:
        return CItemsWnd::carryOut(action);
    }
}

// Enter and Escape are the open list's before they are the dialog's.
KeyRoute CComboBox::routeKey(const tv::ui::KeyEvent& key) {
    if (!m_dropped) return KeyRoute::dialog;
    if (opensList(key) || key.key == Key::enter) {
        (void)userCloseUp(true);
        return KeyRoute::used;
    }
    if (key.key == Key::escape) {
        (void)userCloseUp(false);
        return KeyRoute::used;
    }
    if (key.key == Key::tab) {
        (void)userCloseUp(true);
        return KeyRoute::dialog; // the focus goes on
    }
    if (m_editable && !key.ctrl && !key.alt && isOfText(key)) return KeyRoute::control;
    const auto target = keyTarget(key, m_highlighted);
    if (target && *target >= 0) (void)userHighlight(*target);
    return target ? KeyRoute::used : KeyRoute::dialog;
}

bool CComboBox::controlKey(const tv::ui::KeyEvent& key) {
    if (opensList(key)) return static_cast<bool>(userDropDown());
    if (!m_editable) return choiceKey(key);
    if (key.ctrl || key.alt) return choiceKey(key);
    if (key.key == Key::character || key.key == Key::space)
        return static_cast<bool>(userEdit(GetWindowText() + (key.key == Key::space ? L' ' : key.ch)));
    return !isOfText(key) && choiceKey(key);
}
