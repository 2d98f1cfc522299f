#include "tavocad/window/WatchedChannel.h"

#include <utility>

WatchedChannel::WatchedChannel(int in, int out, std::function<void()> arrived)
    : PipeChannel(in, out), m_notifier(in, QSocketNotifier::Read) {
    QObject::connect(&m_notifier, &QSocketNotifier::activated, &m_notifier,
                     [this, arrived = std::move(arrived)] {
                         if (!readSome()) m_notifier.setEnabled(false);
                         arrived();
                     });
}
