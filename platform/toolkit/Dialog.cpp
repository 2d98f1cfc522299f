#include "platform/toolkit/Dialog.h"

#include "platform/toolkit/Button.h"
#include "platform/toolkit/Edit.h"
#include "platform/toolkit/ListCtrl.h"
#include "platform/toolkit/ModuleChain.h"
#include "platform/toolkit/Page.h"
#include "platform/toolkit/TabCtrl.h"

#include "platform/text/ResourceString.h"

#include <algorithm>

using tv::ui::Change;
using tv::ui::ControlKind;
using tv::ui::Key;
using tv::ui::KeyEvent;
using tv::ui::Toolkit;
using tv::ui::UserResult;

namespace {

template <class Visit>
void forEachControl(const CWnd& parent, const Visit& visit) {
    for (CWnd* child : parent.children()) {
        visit(*child);
        forEachControl(*child, visit);
    }
}

bool enabledWithParents(const CWnd& wnd) {
    for (const CWnd* w = &wnd; w; w = w->GetParent())
        if (!w->IsWindowEnabled()) return false;
    return true;
}

bool isCellEditor(const CWnd& wnd) {
    const CWnd* parent = wnd.GetParent();
    return parent && parent->kind() == ControlKind::list &&
           static_cast<const CListCtrl*>(parent)->editor() == &wnd;
}

bool isButtonKind(const CWnd* wnd) {
    if (!wnd) return false;
    const ControlKind kind = wnd->kind();
    return kind == ControlKind::button || kind == ControlKind::commandButton;
}

} // namespace

CDialog::CDialog(unsigned templateId, CWnd* owner) : CWnd(owner), m_templateId(templateId), m_owner(owner) {
    m_dialog = this;
    const auto* found = tv::ui::ModuleChain::instance().find(templateId);
    if (!found) return;
    m_name = found->name;
    m_sizingFrame = found->sizingFrame;
}

CDialog::~CDialog() {
    if (Toolkit* toolkit = Toolkit::current(); toolkit && m_modeless) toolkit->removeModeless(*this);
}

int CDialog::DoModal() {
    Toolkit* toolkit = Toolkit::current();
    if (!toolkit || m_created || !create()) return -1;
    initialise();
    if (!m_endCode) toolkit->runModal(*this);
    const int code = m_endCode.value_or(IDCANCEL);
    destroy();
    return code;
}

bool CDialog::Create() {
    Toolkit* toolkit = Toolkit::current();
    if (!toolkit || m_created || !create()) return false;
    m_modeless = true;
    initialise();
    if (m_endCode)
        destroy();
    else
        toolkit->addModeless(*this);
    return m_created;
}

void CDialog::DestroyWindow() {
    if (!m_modeless) return EndDialog(IDCANCEL);
    if (Toolkit* toolkit = Toolkit::current()) toolkit->removeModeless(*this);
    destroy();
}

void CDialog::initialise() {
    m_running = true;
    forEachControl(*this, [](CWnd& wnd) {
        if (wnd.kind() == ControlKind::page) static_cast<CPage&>(wnd).OnInitDialog();
    });
    const bool wantsFocus = OnInitDialog() != 0;
    if (!wantsFocus || m_focus || (m_modeless && embedded())) return;
    if (const auto order = tabOrder(); !order.empty()) moveFocusTo(order.front(), false);
}

bool CDialog::create() {
    const auto* found = tv::ui::ModuleChain::instance().find(m_templateId);
    if (!found) return false;
    m_endCode.reset();
    m_created = true;
    const CSize size = tv::ui::dialogUnitsToPixels(found->units);
    // Above the middle of its owner, else of the screen.
    const CRect area =
        m_owner && m_owner->dialog() ? m_owner->dialog()->GetWindowRect() : Toolkit::current()->workArea();
    const int left = area.left + (area.Width() - size.cx) / 2;
    const int top = area.top + (area.Height() - size.cy) / 2;
    m_rect = {left, top, left + size.cx, top + size.cy};
    layOutControls();
    return true;
}

void CDialog::destroy() {
    if (Toolkit* toolkit = Toolkit::current()) toolkit->closeMenuOf(*this, true);
    OnDestroy();
    m_created = m_running = m_modeless = false;
    m_focus = nullptr;
    m_timers.clear();
    forEachControl(*this, [](CWnd& wnd) {
        wnd.m_timers.clear();
        wnd.OnWindowGone();
    });
}

// Controls that were not placed stand below each other: a face with a layout of its own overrides it.
void CDialog::layOutControls() {
    const CSize margin = tv::ui::dialogUnitsToPixels({7, 7});
    const int height = tv::ui::dialogUnitsToPixels({0, 14}).cy;
    int top = margin.cy;
    forEachControl(*this, [&](CWnd& wnd) {
        if (wnd.m_rect.IsRectEmpty())
            wnd.m_rect = {margin.cx, top, std::max(margin.cx + 1, m_rect.Width() - margin.cx), top + height};
        top = std::max(top, wnd.m_rect.bottom + 2);
    });
}

void CDialog::EndDialog(int code) {
    if (!m_running || m_endCode) return;
    if (Toolkit* toolkit = Toolkit::current()) toolkit->closeMenuOf(*this, true);
    m_endCode = code;
    if (!m_modeless) return;
    // Whoever ends it is one of its own handlers, and the face's are under way, too.
    if (Toolkit* toolkit = Toolkit::current())
        toolkit->postDetached([this, alive = std::weak_ptr<int>(m_lifetime)] {
            if (alive.lock() && m_modeless && m_endCode) DestroyWindow();
        });
}

void CDialog::MoveWindow(const CRect& rect) {
    const bool resized = rect.Size() != m_rect.Size();
    CWnd::MoveWindow(rect);
    if (resized && m_created) OnSize(0, rect.Width(), rect.Height());
}

std::intptr_t CDialog::WindowProc(unsigned message, std::uintptr_t wParam, std::intptr_t lParam) {
    if (message != sizeMessage) return CWnd::WindowProc(message, wParam, lParam);
    OnSize(static_cast<unsigned>(wParam), GetWindowRect().Width(), GetWindowRect().Height());
    return 0;
}

void CDialog::SetOpacity(double opacity) {
    m_opacity = std::clamp(opacity, 0.0, 1.0);
    tell(Change::look);
}

void CDialog::SetDefaultButton(CButton& button) {
    CButton* old = defaultButton();
    m_default = &button;
    if (old && old != &button) old->tell(Change::look);
    static_cast<CWnd&>(button).tell(Change::look);
}

CButton* CDialog::defaultButton() const {
    if (m_default) return m_default;
    CWnd* ok = GetDlgItem("IDOK");
    return ok && ok->kind() == ControlKind::button ? static_cast<CButton*>(ok) : nullptr;
}

void CDialog::keyboardCame() {
    if (m_focus) m_focus->OnSetFocus();
}

void CDialog::keyboardWent() {
    if (m_focus) m_focus->OnKillFocus();
}

void CDialog::moveFocusTo(CWnd* wnd, bool byUser) {
    if (m_focus == wnd) return;
    CWnd* old = m_focus;
    m_focus = wnd;
    if (old) old->tell(Change::focus);
    if (wnd) wnd->tell(Change::focus);
    // An editor in a cell lives as long as it has the focus, whoever takes it away.
    if (old && (byUser || isCellEditor(*old))) old->OnKillFocus();
    if (!byUser) return;
    if (wnd && m_focus == wnd) wnd->OnSetFocus();
}

std::vector<CWnd*> CDialog::tabOrder() const {
    std::vector<CWnd*> order;
    forEachControl(*this, [&](CWnd& wnd) {
        if (!wnd.focusable() || !wnd.IsWindowVisible() || !enabledWithParents(wnd)) return;
        if (wnd.kind() == ControlKind::radioButton) {
            const auto members = static_cast<CRadioButton&>(wnd).groupMembers();
            const auto checked =
                std::find_if(members.begin(), members.end(), [](auto* b) { return b->GetCheck(); });
            if (&wnd != (checked == members.end() ? members.front() : *checked)) return;
        }
        order.push_back(&wnd);
    });
    return order;
}

bool CDialog::focusNext(bool backwards) {
    const auto order = tabOrder();
    if (order.empty()) return false;
    const auto at = std::find(order.begin(), order.end(), m_focus);
    const auto size = static_cast<std::ptrdiff_t>(order.size());
    const std::ptrdiff_t from = at == order.end() ? (backwards ? 0 : -1) : at - order.begin();
    moveFocusTo(order[static_cast<std::size_t>((from + (backwards ? -1 : 1) + size) % size)], true);
    return true;
}

std::vector<CWnd*> CDialog::controlsOf(wchar_t mnemonic) const {
    std::vector<CWnd*> matches;
    forEachControl(*this, [&](CWnd& wnd) {
        if (wnd.focusable() && wnd.IsWindowVisible() && enabledWithParents(wnd) && wnd.mnemonic() == mnemonic)
            matches.push_back(&wnd);
    });
    return matches;
}

bool CDialog::hasMnemonic(wchar_t ch) const { return !controlsOf(ch).empty(); }

bool CDialog::pressMnemonic(wchar_t ch) {
    const std::vector<CWnd*> matches = controlsOf(ch);
    if (matches.empty()) return false;
    // The same letter on several controls goes round among them.
    const auto at = std::find(matches.begin(), matches.end(), m_focus);
    CWnd* target = at == matches.end() || at + 1 == matches.end() ? matches.front() : *(at + 1);
    if (auto* button = dynamic_cast<CButton*>(target); button && matches.size() == 1) {
        (void)button->userClick();
        return true;
    }
    moveFocusTo(target, true);
    if (target->kind() == ControlKind::edit) static_cast<CEdit*>(target)->SelectAll();
    return true;
}

bool CDialog::dialogKey(const KeyEvent& key) {
    for (CWnd* wnd = m_focus; wnd && wnd != this; wnd = wnd->GetParent()) {
        const auto route = wnd->routeKey(key);
        if (route != tv::ui::KeyRoute::dialog) return route == tv::ui::KeyRoute::used;
    }
    for (CWnd* wnd = m_focus; wnd; wnd = wnd->GetParent())
        if (wnd->kind() == ControlKind::page && static_cast<CPage*>(wnd)->PreTranslateMessage(key)) return true;
    if (PreTranslateMessage(key)) return true;
    switch (key.key) {
    case Key::enter:
        if (m_focus && m_focus->kind() == ControlKind::edit && static_cast<CEdit*>(m_focus)->multiLine() &&
            !key.ctrl)
            return false;
        if (isButtonKind(m_focus)) {
            (void)static_cast<CButton*>(m_focus)->userClick();
        } else if (CButton* button = defaultButton()) {
            (void)button->userClick();
        } else {
            OnOK();
        }
        return true;
    case Key::escape:
        if (CWnd* cancel = GetDlgItem("IDCANCEL"); cancel && cancel->IsWindowVisible() && isButtonKind(cancel))
            (void)static_cast<CButton*>(cancel)->userClick();
        else
            OnCancel();
        return true;
    case Key::tab:
        if (key.ctrl) {
            for (CWnd* child : children())
                if (child->kind() == ControlKind::tab) {
                    auto* tab = static_cast<CTabCtrl*>(child);
                    const int count = tab->GetItemCount();
                    if (count > 0)
                        (void)tab->userChoose((tab->GetCurSel() + (key.shift ? count - 1 : 1)) % count);
                    return true;
                }
        }
        return focusNext(key.shift);
    case Key::f1:
        return OnHelpInfo();
    case Key::character:
        if (key.ctrl) return false;
        if (key.alt) return pressMnemonic(key.ch);
        if (isButtonKind(m_focus) || dynamic_cast<CButton*>(m_focus))
            return pressMnemonic(tv::ui::parseKey(std::wstring(L"Alt+") + key.ch).ch);
        return false;
    default:
        return false;
    }
}

UserResult CDialog::userKey(const KeyEvent& key) {
    if (auto r = acceptsUser(); !r) return r;
    if (m_modeless) Toolkit::current()->activate(this);
    if (!dialogKey(key) && m_focus && running()) m_focus->controlKey(key);
    return UserResult::done();
}

UserResult CDialog::userClose() {
    if (auto r = acceptsUser(); !r) return r;
    OnCancel();
    return UserResult::done();
}

UserResult CDialog::userResize(CSize size) {
    if (auto r = acceptsUser(); !r) return r;
    if (!m_sizingFrame)
        return refuse(VORD_ResourceString("IDS_TAVO_UI_FIXED_SIZE", L"크기를 바꿀 수 없는 대화상자입니다."));
    const CRect& rect = GetWindowRect();
    MoveWindow({rect.left, rect.top, rect.left + std::max(size.cx, m_minimum.cx),
                rect.top + std::max(size.cy, m_minimum.cy)});
    OnPlacedByUser(true);
    return UserResult::done();
}

UserResult CDialog::userMove(CPoint topLeft) {
    if (auto r = acceptsUser(); !r) return r;
    const CSize size = GetWindowRect().Size();
    MoveWindow({topLeft.x, topLeft.y, topLeft.x + size.cx, topLeft.y + size.cy});
    OnPlacedByUser(false);
    return UserResult::done();
}

UserResult CDialog::carryOut(const tv::ui::UserAction& action) {
    switch (action.kind) {
    case tv::ui::UserAction::Kind::key:
        return userKey(action.keyEvent);
    case tv::ui::UserAction::Kind::closeBox:
        return userClose();
    default:
        return CWnd::carryOut(action);
    }
}
