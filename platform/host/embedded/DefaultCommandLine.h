#pragma once

#include "platform/Export.h"
#include "platform/host/TavoCommandLine.h"

#include <cstddef>

namespace tv::host {

// Keeps the last kMaxLines lines.
class KXPLATFORM_EXPORT DefaultCommandLine final : public TavoCommandLine {
  public:
    static constexpr std::size_t kMaxLines = 5000;

    void print(const OdString& text) override;
    std::vector<OdString> lines() const override { return m_lines; }
    std::vector<OdString> takeNew() override;
    Subscription onLine(Listener listener) override { return m_printed.connect(std::move(listener)); }

  private:
    std::vector<OdString> m_lines;
    std::vector<OdString> m_new;
    Signal<const OdString&> m_printed;
};

} // namespace tv::host
