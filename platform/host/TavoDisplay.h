#pragma once

#include "platform/Export.h"
#include "platform/host/DrawingTypes.h"
#include "platform/host/Signal.h"

#include <functional>

// Requests to show a drawing anew. Drawing windows observe them.
class TavoDisplay {
  public:
    enum class Request {
        kRedraw, // paint what is known again
        kRegen   // compute what is shown from the drawing again
    };
    using Listener = std::function<void(Request, const OdDbDatabasePtr&)>;

    virtual ~TavoDisplay() = default;

    virtual void request(Request request, const OdDbDatabasePtr& database) = 0;
    [[nodiscard]] virtual tv::host::Subscription onRequest(Listener listener) = 0;
};

// Null means the working database. Nothing happens without a host.
KXPLATFORM_EXPORT void tvedRedraw(const OdDbDatabasePtr& database);
KXPLATFORM_EXPORT void tvedRegen(const OdDbDatabasePtr& database);
