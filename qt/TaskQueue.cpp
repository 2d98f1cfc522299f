#include "qt/TaskQueue.h"

#include <algorithm>

namespace tv::qt {

TaskQueue::TaskQueue() {
    m_clock.start();
    m_timer.setSingleShot(true);
    m_timer.setTimerType(Qt::PreciseTimer);
    connect(&m_timer, &QTimer::timeout, this, &TaskQueue::runDue);
}

void TaskQueue::schedule(std::chrono::milliseconds delay, std::shared_ptr<ui::Timer::Task> task) {
    const auto wait = std::max(delay, std::chrono::milliseconds(0));
    m_tasks.emplace(Order{now() + wait, m_next++}, std::move(task));
    arm();
}

bool TaskQueue::due() const {
    return std::any_of(m_tasks.begin(), m_tasks.upper_bound(Order{now(), m_next}),
                       [at = now()](const auto& entry) { return entry.second->work && entry.second->due <= at; });
}

void TaskQueue::arm() {
    std::erase_if(m_tasks, [](const auto& entry) { return !entry.second->work; });
    if (m_tasks.empty()) return m_timer.stop();
    m_timer.start(std::max(m_tasks.begin()->first.at - now(), std::chrono::milliseconds(0)));
}

void TaskQueue::runDue() {
    // What the work itself schedules waits for the next round, so that input is not starved.
    const Order last{now(), m_next};
    while (!m_tasks.empty() && m_tasks.begin()->first < last) {
        const auto task = m_tasks.begin()->second;
        m_tasks.erase(m_tasks.begin());
        if (task->work && task->due > last.at) {
            task->queued = task->due;
            m_tasks.emplace(Order{task->due, m_next++}, task);
            continue;
        }
        arm(); // the work may wait in a loop of its own
        task->run();
    }
    arm();
}

} // namespace tv::qt
