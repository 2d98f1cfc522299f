#pragma once

#include "platform/Export.h"
#include "platform/host/DrawingTypes.h"
#include "platform/host/Signal.h"

#include <functional>
#include <vector>

// The objects selected in the current drawing, in the order of their selection.
class TavoSelection {
  public:
    using Listener = std::function<void()>;

    virtual ~TavoSelection() = default;

    virtual std::vector<OdDbObjectId> ids() const = 0;
    // Null and erased ids and repetitions are left out. Nobody is told when nothing changes.
    virtual void set(const std::vector<OdDbObjectId>& ids) = 0;
    virtual void clear() = 0;

    [[nodiscard]] virtual tv::host::Subscription onSelectionChanged(Listener listener) = 0;
};
