#include "platform/toolkit/headless/HeadlessToolkit.h"

#include "platform/toolkit/Dialog.h"

#include <cstdio>

namespace tv::ui {

HeadlessToolkit::~HeadlessToolkit() = default;

void HeadlessToolkit::schedule(std::chrono::milliseconds delay, std::shared_ptr<Timer::Task> task) {
    m_queue.emplace(Due{m_now + delay, m_sequence++}, std::move(task));
}

void HeadlessToolkit::advance(std::chrono::milliseconds by) {
    const auto until = m_now + by;
    while (!m_queue.empty() && m_queue.begin()->first.first <= until) {
        auto next = m_queue.extract(m_queue.begin());
        m_now = std::max(m_now, next.key().first);
        Timer::Task& task = *next.mapped();
        if (task.work && task.due > m_now) {
            task.queued = task.due;
            next.key() = {task.due, m_sequence++};
            m_queue.insert(std::move(next));
        } else {
            task.run();
        }
    }
    m_now = std::max(m_now, until);
}

void HeadlessToolkit::wait(Waiting& waiting) {
    for (;;) {
        runDue();
        if (waiting.done()) return;
        if (driver() && driver()->step(waiting)) continue;
        if (driver()) driver()->lost(waiting);
        else std::fputs("headless: a window waits and nobody is there to act on it\n", stderr);
        if (waiting.dialog) waiting.dialog->EndDialog(IDCANCEL);
        return;
    }
}

} // namespace tv::ui
