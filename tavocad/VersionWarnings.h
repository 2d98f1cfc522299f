#pragma once

#include "platform/drawing/OdDbDatabaseReactor.h"
#include "platform/host/Signal.h"
#include "platform/host/TavoCommandLine.h"
#include "platform/host/TavoDocumentManager.h"

#include <set>

// Says on the command line, once per drawing and matter, what a drawing's version could not hold.
class VersionWarnings : private OdDbDatabaseReactor {
  public:
    // Both must outlive this.
    VersionWarnings(TavoDocumentManager& documents, TavoCommandLine& commandLine);
    ~VersionWarnings() override;

  private:
    void featureRefused(OdDbDatabase& database, OdDb::Feature feature) override;
    void goodbye(OdDbDatabase& database) override { m_databases.erase(&database); }

    TavoCommandLine& m_commandLine;
    std::set<OdDbDatabase*> m_databases; // this is a reactor of
    tv::host::Subscription m_watched;
};
