#pragma once

#include "tavocad/automation/Channel.h"

#include <QSocketNotifier>

#include <functional>

// The pipe of a program that has an event loop: bytes are taken as they arrive, `arrived` is called then.
class WatchedChannel : public PipeChannel {
  public:
    WatchedChannel(int in, int out, std::function<void()> arrived);
    // Never blocks.
    State next(std::string& line) override { return m_lines.take(line); }

  private:
    QSocketNotifier m_notifier;
};
