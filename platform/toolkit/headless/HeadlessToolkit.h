#pragma once

#include "platform/toolkit/Toolkit.h"

#include <cstdint>
#include <map>

namespace tv::ui {

// The face without pixels. Its clock stands still until somebody moves it; posted work (delay 0) runs whenever the
// program waits. What a person would do comes from the driver.
class KXPLATFORM_EXPORT HeadlessToolkit : public Toolkit {
  public:
    HeadlessToolkit() = default;
    ~HeadlessToolkit() override;

    std::chrono::milliseconds now() const override { return m_now; }
    // Moves the clock and runs what falls due, in the order of its time; work that is due at the same time runs in the
    // order in which it was asked for.
    void advance(std::chrono::milliseconds by);
    // Runs the work that is due now.
    void runDue() { advance(std::chrono::milliseconds(0)); }

    // Asks the driver for the next action until waiting.done(). A driver with nothing more to do, or no driver at all,
    // ends a modal window with IDCANCEL after Driver::lost has said so aloud.
    void wait(Waiting& waiting) override;

    void changed(CWnd&, Change) override { ++m_changes; }
    void show(CDialog&) override {}
    void hide(CDialog&) override {}
    void setClipboardText(const std::wstring& text) override { m_clipboard = text; }
    std::wstring clipboardText() const override { return m_clipboard; }
    const char* name() const override { return "headless"; }

    // How often a face would have had to redraw something.
    std::uint64_t changeCount() const { return m_changes; }

  protected:
    void schedule(std::chrono::milliseconds delay, std::shared_ptr<Timer::Task> task) override;

  private:
    using Due = std::pair<std::chrono::milliseconds, std::uint64_t>;
    std::chrono::milliseconds m_now{0};
    std::uint64_t m_sequence = 0, m_changes = 0;
    std::map<Due, std::shared_ptr<Timer::Task>> m_queue;
    std::wstring m_clipboard;
};

} // namespace tv::ui
