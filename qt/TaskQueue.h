#pragma once

#include "platform/toolkit/Toolkit.h"

#include <QElapsedTimer>
#include <QObject>
#include <QTimer>

#include <map>

namespace tv::qt {

// Work that waits for its time. Work due at the same time runs in the order it was scheduled, whatever Qt's own
// timers would do; one native timer stands for the earliest.
class TaskQueue : public QObject {
  public:
    TaskQueue();
    std::chrono::milliseconds now() const { return std::chrono::milliseconds(m_clock.elapsed()); }
    void schedule(std::chrono::milliseconds delay, std::shared_ptr<ui::Timer::Task> task);
    // Whether something is due right now.
    bool due() const;

  private:
    struct Order {
        std::chrono::milliseconds at;
        unsigned long long number;
        auto operator<=>(const Order&) const = default;
    };
    void arm();
    void runDue();

    QElapsedTimer m_clock;
    QTimer m_timer;
    unsigned long long m_next = 0;
    std::map<Order, std::shared_ptr<ui::Timer::Task>> m_tasks;
};

} // namespace tv::qt
