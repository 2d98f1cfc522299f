#pragma once

#include "platform/Export.h"
#include "platform/host/Signal.h"

#include <functional>

// Where the host hears that modal windows come and go. Calls nest.
class TavoModalEvents {
  public:
    using Listener = std::function<void(int depth)>;

    virtual ~TavoModalEvents() = default;

    virtual void beginModal() = 0;
    // Without a beginModal to match it does nothing.
    virtual void endModal() = 0;
    // How many modal runs are going on.
    virtual int depth() const = 0;

    [[nodiscard]] virtual tv::host::Subscription onDepthChanged(Listener listener) = 0;
};

// What every modal run is bracketed with. Nothing happens without a host.
class KXPLATFORM_EXPORT TavoComEvents {
  public:
    static void appBeginModal();
    static void appEndModal();
};

namespace tv::host {

// Brackets the modal run of a scope.
class ModalBracket {
  public:
    ModalBracket() { TavoComEvents::appBeginModal(); }
    ~ModalBracket() { TavoComEvents::appEndModal(); }
    ModalBracket(const ModalBracket&) = delete;
    ModalBracket& operator=(const ModalBracket&) = delete;
};

} // namespace tv::host
