#pragma once

#include "platform/Export.h"
#include "platform/host/Signal.h"
#include "platform/text/OdString.h"

#include <functional>
#include <vector>

// The command line's history: what the program tells the user outside of boxes.
class TavoCommandLine {
  public:
    using Listener = std::function<void(const OdString& line)>;

    virtual ~TavoCommandLine() = default;

    // Appends one line; a text with line breaks becomes several.
    virtual void print(const OdString& text) = 0;
    virtual std::vector<OdString> lines() const = 0;
    // The lines printed since the last call.
    virtual std::vector<OdString> takeNew() = 0;

    [[nodiscard]] virtual tv::host::Subscription onLine(Listener listener) = 0;
};

// Prints through the installed host; nothing happens without one.
KXPLATFORM_EXPORT void tvedPrint(const OdString& text);
