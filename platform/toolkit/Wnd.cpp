#include "platform/toolkit/Wnd.h"

#include "platform/text/Format.h"
#include "platform/text/ResourceString.h"
#include "platform/text/Unicode.h"
#include "platform/toolkit/Button.h"
#include "platform/toolkit/Dialog.h"
#include "platform/toolkit/Snapshot.h"

#include <algorithm>

using tv::ui::Change;
using tv::ui::ControlKind;
using tv::ui::Toolkit;
using tv::ui::UserResult;

namespace tv::ui {

const char* kindName(ControlKind kind) {
    switch (kind) {
    case ControlKind::dialog:
        return "dialog";
    case ControlKind::page:
        return "page";
    case ControlKind::label:
        return "label";
    case ControlKind::groupBox:
        return "groupBox";
    case ControlKind::image:
        return "image";
    case ControlKind::button:
        return "button";
    case ControlKind::commandButton:
        return "commandButton";
    case ControlKind::checkBox:
        return "checkBox";
    case ControlKind::radioButton:
        return "radioButton";
    case ControlKind::edit:
        return "edit";
    case ControlKind::comboBox:
        return "comboBox";
    case ControlKind::listBox:
        return "listBox";
    case ControlKind::list:
        return "list";
    case ControlKind::tree:
        return "tree";
    case ControlKind::tab:
        return "tab";
    case ControlKind::slider:
        return "slider";
    case ControlKind::swatchGrid:
        return "swatchGrid";
    case ControlKind::drawArea:
        return "drawArea";
    }
    return "";
}

std::wstring plainLabel(std::wstring_view text) {
    std::wstring out;
    for (std::size_t i = 0; i < text.size(); ++i) {
        // East Asian captions carry the mnemonic in brackets behind the word.
        if (text[i] == L'(' && i + 3 < text.size() && text[i + 1] == L'&' && text[i + 3] == L')') {
            i += 3;
            continue;
        }
        if (text[i] == L'&' && i + 1 < text.size()) ++i;
        out += text[i];
    }
    while (!out.empty() &&
           (out.back() == L':' || out.back() == L'.' || out.back() == L' ' || out.back() == L'：'))
        out.pop_back();
    return out;
}

wchar_t mnemonicOf(std::wstring_view text) {
    for (std::size_t i = 0; i + 1 < text.size(); ++i) {
        if (text[i] != L'&') continue;
        if (text[i + 1] != L'&') return text::toUpper(text.substr(i + 1, 1)).front();
        ++i;
    }
    return 0;
}

} // namespace tv::ui

CWnd::CWnd(CWnd& parent, const char* name)
    : m_parent(&parent), m_dialog(parent.m_dialog), m_name(name), m_lifetime(std::make_shared<int>(0)) {
    parent.m_children.push_back(this);
}

CWnd::CWnd(CWnd*) : m_lifetime(std::make_shared<int>(0)) {}

CWnd::~CWnd() {
    if (Toolkit* toolkit = Toolkit::current()) toolkit->closeMenuOf(*this);
    if (!m_parent) return;
    std::erase(m_parent->m_children, this);
    if (m_dialog && m_dialog->m_focus == this) m_dialog->m_focus = nullptr;
}

void CWnd::dropChild(CWnd& child) {
    std::erase(m_children, &child);
    if (Toolkit* toolkit = Toolkit::current()) toolkit->closeMenuOf(child);
    child.m_visible = false;
    child.m_timers.clear();
    if (m_dialog && m_dialog->m_focus == &child) m_dialog->m_focus = nullptr;
}

CWnd* CWnd::GetDlgItem(std::string_view name) const {
    for (CWnd* child : m_children) {
        if (child->m_name == name) return child;
        if (CWnd* found = child->GetDlgItem(name)) return found;
    }
    return nullptr;
}

bool CWnd::IsWindow() const {
    const CDialog* owner = dialog();
    return owner && owner->created();
}

void CWnd::tell(Change change) {
    if (Toolkit* toolkit = Toolkit::current(); toolkit && IsWindow()) toolkit->changed(*this, change);
}

void CWnd::SetWindowText(std::wstring_view text) {
    if (m_text == text) return;
    m_text = text;
    tell(Change::text);
}

void CWnd::EnableWindow(bool enable) {
    if (m_enabled == enable) return;
    m_enabled = enable;
    if (Toolkit* toolkit = Toolkit::current(); toolkit && !enable) toolkit->closeMenuOf(*this, true);
    tell(Change::enabled);
    OnEnable(enable);
}

void CWnd::ShowWindow(bool show) {
    if (m_visible == show) return;
    m_visible = show;
    if (Toolkit* toolkit = Toolkit::current(); toolkit && !show) toolkit->closeMenuOf(*this, true);
    tell(Change::visible);
    OnShowWindow(show);
}

bool CWnd::IsWindowVisible() const { return m_visible && (!m_parent || m_parent->IsWindowVisible()); }

void CWnd::MoveWindow(const CRect& rect) {
    if (m_rect == rect) return;
    m_rect = rect;
    tell(Change::rect);
}

CRect CWnd::ClientToScreen(const CRect& rect) const {
    const CDialog* owner = dialog();
    return owner ? rect.OffsetBy(owner->GetWindowRect().TopLeft()) : rect;
}

void CWnd::SetFocus() {
    if (CDialog* owner = dialog(); owner && focusable()) owner->moveFocusTo(this, false);
}

void CWnd::SetToolTip(std::wstring_view text) {
    if (m_tooltip == text) return;
    m_tooltip = text;
    tell(Change::tooltip);
}

void CWnd::SetFontScale(double scale, bool bold) {
    m_fontScale = scale;
    m_fontBold = bold;
    tell(Change::look);
}

void CWnd::LabelledBy(const CWnd& label) {
    m_label = &label;
    tell(Change::label);
}

void CWnd::SetAccessibleName(std::wstring_view text) {
    m_accessibleName = text;
    tell(Change::label);
}

std::wstring CWnd::accessibleName() const {
    if (!m_accessibleName.empty()) return m_accessibleName;
    if (m_label) return tv::ui::plainLabel(m_label->m_text);
    switch (kind()) {
    case ControlKind::edit:
    case ControlKind::comboBox:
        return {}; // their text is their value
    default:
        return tv::ui::plainLabel(m_text);
    }
}

wchar_t CWnd::mnemonic() const {
    switch (kind()) {
    case ControlKind::button:
    case ControlKind::commandButton:
    case ControlKind::checkBox:
    case ControlKind::radioButton:
        return tv::ui::mnemonicOf(m_text);
    default:
        return m_label ? tv::ui::mnemonicOf(m_label->m_text) : 0;
    }
}

void CWnd::PostMessage(unsigned message, std::uintptr_t wParam, std::intptr_t lParam) {
    Toolkit* toolkit = Toolkit::current();
    if (!toolkit) return;
    toolkit->postDetached([this, alive = std::weak_ptr<int>(m_lifetime), message, wParam, lParam] {
        if (alive.lock() && IsWindow()) WindowProc(message, wParam, lParam);
    });
}

std::intptr_t CWnd::WindowProc(unsigned, std::uintptr_t, std::intptr_t) { return 0; }

unsigned CWnd::SetTimer(unsigned id, unsigned ms) {
    Toolkit* toolkit = Toolkit::current();
    if (!toolkit) return 0;
    WindowTimer& timer = m_timers[id];
    timer.period = ms;
    timer.running = true;
    const std::chrono::milliseconds delay(ms);
    if (!toolkit->postpone(timer.task, delay)) timer.task = toolkit->after(delay, [this, id] { timerDue(id); });
    return id;
}

void CWnd::timerDue(unsigned id) {
    const WindowTimer& timer = m_timers[id];
    if (!timer.running) return;
    SetTimer(id, timer.period);
    OnTimer(id);
}

void CWnd::KillTimer(unsigned id) {
    if (const auto at = m_timers.find(id); at != m_timers.end()) at->second.running = false;
}

void CWnd::OnTimer(unsigned) {}

UserResult CWnd::acceptsUser() const {
    const CDialog* owner = dialog();
    const Toolkit* toolkit = Toolkit::current();
    if (!owner || !owner->running() || !toolkit)
        return refuse(VORD_ResourceString("IDS_TAVO_UI_NOT_ON_SCREEN", L"화면에 없습니다."));
    if (!toolkit->reachable(*owner))
        return refuse(VORD_ResourceString("IDS_TAVO_UI_COVERED", L"다른 대화상자가 열려 있습니다."));
    for (const CWnd* wnd = this; wnd; wnd = wnd->m_parent) {
        if (!wnd->m_visible) return refuse(VORD_ResourceString("IDS_TAVO_UI_HIDDEN", L"숨겨져 있습니다."));
        if (!wnd->m_enabled)
            return refuse(VORD_ResourceString("IDS_TAVO_UI_DISABLED", L"사용할 수 없는 상태입니다."));
    }
    return UserResult::done();
}

UserResult CWnd::refuse(std::wstring_view why) const {
    return {tv::text::format(L"%s: %s", tv::text::fromUtf8(m_name), why)};
}

void CWnd::takeFocus() {
    CDialog* owner = dialog();
    if (!owner || !focusable()) return;
    if (Toolkit* toolkit = Toolkit::current(); toolkit && owner->modeless()) toolkit->activate(owner);
    owner->moveFocusTo(this, true);
}

UserResult CWnd::userFocus() {
    if (auto r = acceptsUser(); !r) return r;
    takeFocus();
    return UserResult::done();
}

void CWnd::ShowMenu(std::vector<tv::ui::MenuItem> items, std::optional<CPoint> at) {
    if (Toolkit* toolkit = Toolkit::current()) toolkit->openMenu(*this, std::move(items), at);
}

UserResult CWnd::perform(const tv::ui::UserAction& action) {
    using Kind = tv::ui::UserAction::Kind;
    Toolkit* toolkit = Toolkit::current();
    if (toolkit && action.kind == Kind::menu)
        return toolkit->userMenu(action.path.empty() ? std::vector{action.text} : action.path);
    if (toolkit && toolkit->menu()) {
        if (action.kind == Kind::key) return toolkit->userMenuKey(action.keyEvent);
        toolkit->closeMenu();
    }
    return carryOut(action);
}

UserResult CWnd::carryOut(const tv::ui::UserAction& action) {
    if (auto r = acceptsUser(); !r) return r;
    if (action.kind == tv::ui::UserAction::Kind::key && focusable() && m_dialog != this) {
        takeFocus();
        return m_dialog->userKey(action.keyEvent);
    }
    return refuse(tv::text::format(
        VORD_ResourceString("IDS_TAVO_UI_WRONG_ACTION", L"이 종류의 컨트롤(%s)에는 할 수 없는 동작입니다."),
        tv::text::fromUtf8(tv::ui::kindName(kind()))));
}

bool CWnd::controlKey(const tv::ui::KeyEvent&) { return false; }

void CWnd::describe(tv::ui::ControlSnapshot& out) const {
    out.name = m_name;
    out.kind = kind();
    out.label = accessibleName();
    out.text = m_text;
    out.visible = IsWindowVisible();
    out.enabled = true;
    for (const CWnd* wnd = this; wnd; wnd = wnd->m_parent)
        out.enabled = out.enabled && wnd->m_enabled;
    if (const CDialog* owner = dialog()) {
        const Toolkit* toolkit = Toolkit::current();
        out.focused =
            owner->GetFocus() == this && (!owner->modeless() || (toolkit && toolkit->active() == owner));
        out.isDefault = owner->defaultButton() == this;
    }
}
