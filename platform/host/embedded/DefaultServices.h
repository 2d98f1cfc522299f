#pragma once

#include "platform/Export.h"
#include "platform/host/CommandRefHelp.h"
#include "platform/host/TavoComEvents.h"
#include "platform/host/TavoCommandLine.h"
#include "platform/host/TavoDisplay.h"
#include "platform/host/TavoPointInput.h"
#include "platform/host/TavoUnits.h"

// The small services of the embedded host.
namespace tv::host {

class KXPLATFORM_EXPORT DefaultModalEvents final : public TavoModalEvents {
  public:
    void beginModal() override { m_changed.notify(++m_depth); }
    void endModal() override {
        if (m_depth > 0) m_changed.notify(--m_depth);
    }
    int depth() const override { return m_depth; }
    Subscription onDepthChanged(Listener listener) override { return m_changed.connect(std::move(listener)); }

  private:
    int m_depth = 0;
    Signal<int> m_changed;
};

// There is no help system here: what would be shown is told on the command line.
class KXPLATFORM_EXPORT DefaultHelp final : public TavoHelp {
  public:
    explicit DefaultHelp(TavoCommandLine& commandLine) : m_commandLine(commandLine) {}
    void search(CWnd* window, const OdString& topic) override;

  private:
    TavoCommandLine& m_commandLine;
};

// Nobody is there to pick a point.
class KXPLATFORM_EXPORT DefaultPointInput final : public TavoPointInput {
  public:
    Tavo::ErrorStatus getPoint(const OdString&, const OdGePoint3d*, OdGePoint3d&) override {
        return Tavo::eCancelled;
    }
};

class KXPLATFORM_EXPORT DefaultDisplay final : public TavoDisplay {
  public:
    void request(Request request, const OdDbDatabasePtr& database) override {
        m_requests.notify(request, database);
    }
    Subscription onRequest(Listener listener) override { return m_requests.connect(std::move(listener)); }

  private:
    Signal<Request, const OdDbDatabasePtr&> m_requests;
};

class KXPLATFORM_EXPORT DefaultUnits final : public TavoUnits {
  public:
    OdString formatLinear(double value, int lunits, int luprec, const LengthOptions& options) const override;
    Tavo::ErrorStatus unformatLinear(const OdString& text, int lunits, double& value) const override;
    OdString formatAngle(double radians, int aunits, int auprec, const AngleOptions& options) const override;
    Tavo::ErrorStatus unformatAngle(const OdString& text, int aunits, double& radians) const override;
    bool isNumber(const OdString& text, int lunits) const override;
};

} // namespace tv::host
