#include "platform/toolkit/Toolkit.h"

#include "platform/toolkit/Dialog.h"

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

int Toolkit::textWidth(const CWnd&, std::wstring_view text) const { return static_cast<int>(text.size()) * baseUnitX; }

CDialog* Toolkit::topmost() const {
    return m_modal.empty() || !m_modal.back()->shown() ? nullptr : m_modal.back();
}

} // namespace tv::ui
