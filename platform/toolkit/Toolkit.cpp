#include "platform/toolkit/Toolkit.h"

#include "platform/text/Format.h"
#include "platform/text/ResourceString.h"
#include "platform/toolkit/Dialog.h"
#include "platform/toolkit/Menu.h"

#include <algorithm>
#include <utility>

namespace tv::ui {
namespace {
Toolkit* g_current = nullptr;
}

void Timer::Task::run() {
    if (auto now = std::exchange(work, nullptr)) now();
}

Timer& Timer::operator=(Timer&& other) noexcept {
    if (this != &other) {
        cancel();
        m_task = std::move(other.m_task);
    }
    return *this;
}

void Timer::cancel() {
    if (m_task) m_task->work = nullptr;
    m_task.reset();
}

Toolkit::Toolkit() : m_previous(std::exchange(g_current, this)) {}

Toolkit::~Toolkit() { g_current = m_previous; }

Toolkit* Toolkit::current() { return g_current; }

Timer Toolkit::after(std::chrono::milliseconds delay, std::function<void()> work) {
    auto task = std::make_shared<Timer::Task>();
    task->work = std::move(work);
    task->queued = task->due = now() + delay;
    schedule(delay, task);
    return Timer(std::move(task));
}

bool Toolkit::postpone(Timer& timer, std::chrono::milliseconds delay) const {
    const auto due = now() + delay;
    if (!timer.pending() || due < timer.m_task->queued) return false;
    timer.m_task->due = due;
    return true;
}

void Toolkit::postDetached(std::function<void()> work) {
    auto task = std::make_shared<Timer::Task>();
    task->work = std::move(work);
    schedule(std::chrono::milliseconds(0), std::move(task));
}

void Toolkit::runModal(CDialog& dialog) {
    closeMenu();
    m_modal.push_back(&dialog);
    show(dialog);
    Waiting waiting;
    waiting.dialog = &dialog;
    waiting.done = [&dialog] { return !dialog.running(); };
    wait(waiting);
    destroyOwnedBy(dialog);
    hide(dialog);
    std::erase(m_modal, &dialog);
}

// --- the open menu -------------------------------------------------------------------------------------------

void Toolkit::openMenu(CWnd& owner, std::vector<MenuItem> items, std::optional<CPoint> at) {
    closeMenu();
    const bool any =
        std::any_of(items.begin(), items.end(), [](const MenuItem& item) { return !item.isSeparator(); });
    if (!any || !owner.acceptsUser()) return;
    m_menu = std::make_unique<Menu>(owner, std::move(items), at);
    showMenu(*m_menu);
}

void Toolkit::closeMenu() {
    if (!m_menu) return;
    const auto gone = std::move(m_menu);
    hideMenu();
}

void Toolkit::closeMenuOf(const CWnd& wnd, bool within) {
    if (!m_menu) return;
    const CWnd* owner = &m_menu->owner();
    while (within && owner && owner != &wnd)
        owner = owner->GetParent();
    if (owner == &wnd) closeMenu();
}

namespace {

UserResult noMenu() {
    return {VORD_ResourceString("IDS_TAVO_UI_NO_MENU", L"열려 있는 메뉴가 없습니다.").c_str()};
}

std::wstring entries(const std::vector<MenuItem>& items) {
    std::wstring out;
    for (const MenuItem& item : items)
        if (!item.isSeparator()) out += (out.empty() ? L"" : L", ") + menuText(item.text);
    return out.empty() ? L"-" : out;
}

} // namespace

UserResult Toolkit::userMenu(const std::vector<std::wstring>& path) {
    if (!m_menu) return noMenu();
    std::size_t missing = 0;
    if (const auto place = m_menu->find(path, missing)) return userMenu(*place);
    const std::vector<MenuItem>* items = &m_menu->items();
    if (missing > 0)
        items = &m_menu
                     ->item(*m_menu->find({path.begin(), path.begin() + static_cast<std::ptrdiff_t>(missing)},
                                          missing))
                     ->items;
    return {text::format(
        VORD_ResourceString("IDS_TAVO_UI_NO_MENU_ITEM", L"메뉴에 항목 \"%s\"이(가) 없습니다. 있는 항목: %s."),
        missing < path.size() ? path[missing] : L"", entries(*items))};
}

UserResult Toolkit::userMenu(const std::vector<int>& place) {
    if (!m_menu) return noMenu();
    const MenuItem* item = m_menu->item(place);
    if (!item || item->isSeparator())
        return {text::format(VORD_ResourceString("IDS_TAVO_UI_NO_MENU_ITEM",
                                                 L"메뉴에 항목 \"%s\"이(가) 없습니다. 있는 항목: %s."),
                             L"", entries(m_menu->items()))};
    if (auto r = m_menu->owner().acceptsUser(); !r) return r;
    Menu::Place outer;
    for (const int index : place) {
        outer.push_back(index);
        const MenuItem* on = m_menu->item(outer);
        if (!on->available())
            return {text::format(VORD_ResourceString("IDS_TAVO_UI_MENU_ITEM_DISABLED",
                                                     L"메뉴 항목 \"%s\"은(는) 지금 사용할 수 없습니다."),
                                 menuText(on->text))};
    }
    if (!item->items.empty())
        return {text::format(
            VORD_ResourceString("IDS_TAVO_UI_MENU_ITEM_OPENS",
                                L"메뉴 항목 \"%s\"은(는) 다른 메뉴를 엽니다. 그 안에서 고르십시오: %s."),
            menuText(item->text), entries(item->items))};
    const auto run = item->run;
    closeMenu();
    run();
    return UserResult::done();
}

UserResult Toolkit::userMenuKey(const KeyEvent& key) {
    if (!m_menu) return noMenu();
    if (auto r = m_menu->owner().acceptsUser(); !r) return r;
    switch (m_menu->key(key)) {
    case Menu::Outcome::moved:
        menuMoved(*m_menu);
        break;
    case Menu::Outcome::closed:
        closeMenu();
        break;
    case Menu::Outcome::chosen:
        return userMenu(Menu::Place(m_menu->current()));
    }
    return UserResult::done();
}

// --- modeless windows ----------------------------------------------------------------------------------------

void Toolkit::addModeless(CDialog& dialog) {
    m_modeless.push_back(&dialog);
    show(dialog);
    if (!dialog.embedded()) activate(&dialog);
}

void Toolkit::removeModeless(CDialog& dialog) {
    if (std::find(m_modeless.begin(), m_modeless.end(), &dialog) == m_modeless.end()) return;
    destroyOwnedBy(dialog);
    const bool had = m_active == &dialog;
    if (had) m_active = nullptr;
    hide(dialog);
    std::erase(m_modeless, &dialog);
    if (had && m_modal.empty()) showActive(nullptr);
}

void Toolkit::destroyOwnedBy(const CDialog& owner) {
    const auto owned = [&](const CDialog* dialog) {
        return dialog->GetOwner() && dialog->GetOwner()->dialog() == &owner;
    };
    for (auto at = m_modeless.begin();
         (at = std::find_if(m_modeless.begin(), m_modeless.end(), owned)) != m_modeless.end();
         at = m_modeless.begin())
        (*at)->DestroyWindow();
}

bool Toolkit::reachable(const CDialog& dialog) const {
    if (!dialog.modeless()) return topmost() == &dialog;
    if (m_modal.empty()) return true;
    for (const CWnd* owner = dialog.GetOwner(); owner; owner = owner->dialog()->GetOwner())
        if (owner->dialog() == topmost()) return true;
    return false;
}

CDialog* Toolkit::active() const { return m_modal.empty() ? m_active : topmost(); }

void Toolkit::wentTo(CDialog* dialog) {
    CDialog* const before = std::exchange(m_active, dialog);
    if (before == dialog) return;
    if (before) before->keyboardWent();
    if (dialog && m_active == dialog) dialog->keyboardCame();
}

void Toolkit::activate(CDialog* dialog) {
    if (!m_modal.empty() && !(dialog && reachable(*dialog))) return;
    wentTo(dialog);
    if (m_active == dialog) showActive(dialog);
}

int Toolkit::textWidth(const CWnd&, std::wstring_view text) const {
    return static_cast<int>(text.size()) * baseUnitX;
}

CDialog* Toolkit::topmost() const {
    return m_modal.empty() || !m_modal.back()->shown() ? nullptr : m_modal.back();
}

} // namespace tv::ui
