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
    auto task = std::make_shared<Timer::Task>(Timer::Task{std::move(work)});
    schedule(delay, task);
    return Timer(std::move(task));
}

void Toolkit::postDetached(std::function<void()> work) {
    schedule(std::chrono::milliseconds(0), std::make_shared<Timer::Task>(Timer::Task{std::move(work)}));
}

void Toolkit::runModal(CDialog& dialog) {
    m_modal.push_back(&dialog);
    show(dialog);
    Waiting waiting;
    waiting.dialog = &dialog;
    waiting.done = [&dialog] { return !dialog.running(); };
    wait(waiting);
    hide(dialog);
    std::erase(m_modal, &dialog);
}

CDialog* Toolkit::topmost() const {
    return m_modal.empty() || !m_modal.back()->shown() ? nullptr : m_modal.back();
}

} // namespace tv::ui
