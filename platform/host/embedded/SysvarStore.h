#pragma once

#include "platform/drawing/OdDbDatabase.h"
#include "platform/host/sysvars/SysvarRules.h"
#include "platform/text/SettingsStore.h"

#include <map>
#include <memory>
#include <unordered_map>
#include <vector>

namespace tv::host {

// Reads and writes values where they live. Knows nothing of limits; values come in the variable's form.
class SysvarStore {
  public:
    using Changed = Signal<const OdString&, const OdDbDatabasePtr&>;

    explicit SysvarStore(tv::SettingsStore* settings);
    ~SysvarStore();

    // Nothing when the variable lives in the drawing and there is none.
    std::optional<SysvarValue> read(const SysvarInfo& info, const OdDbDatabasePtr& database) const;
    // `database` is not null for a variable that lives in the drawing.
    tv::Problem write(const SysvarInfo& info, const SysvarValue& value, const OdDbDatabasePtr& database);

    void watch(const OdDbDatabasePtr& database);
    Changed& changed() { return m_changed; }

  private:
    using Values = std::unordered_map<const SysvarInfo*, SysvarValue>;
    class Watch;

    const Watch* find(const OdDbDatabase* database) const;
    SysvarValue readHeader(const SysvarInfo& info, const OdDbDatabase& database) const;
    SysvarValue readProfile(const SysvarInfo& info) const;
    tv::Problem writeHeader(const SysvarInfo& info, const SysvarValue& value, OdDbDatabase& database);
    void told(const SysvarInfo& info, const OdDbDatabasePtr& database);

    tv::SettingsStore* m_settings;
    Values m_session;
    std::map<const OdDbDatabase*, std::unique_ptr<Watch>> m_watches;
    Changed m_changed;
};

} // namespace tv::host
