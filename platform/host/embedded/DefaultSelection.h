#pragma once

#include "platform/Export.h"
#include "platform/host/TavoSelection.h"

#include <unordered_map>

namespace tv::host {

class KXPLATFORM_EXPORT DefaultSelection final : public TavoSelection {
  public:
    std::vector<OdDbObjectId> ids() const override { return m_current.aliveIds(); }
    const TavoSelectionSet& current() const override { return m_current; }
    void set(const std::vector<OdDbObjectId>& ids) override;
    void add(const std::vector<OdDbObjectId>& ids) override;
    void remove(const std::vector<OdDbObjectId>& ids) override;
    void clear() override { set({}); }
    void dropErased() override;
    std::vector<OdDbObjectId> previous(const OdDbDatabasePtr& database) const override;
    void setPrevious(const std::vector<OdDbObjectId>& ids) override;
    Tavo::ErrorStatus select(const TavoSelectionQuery& query, const OdDbDatabasePtr& database,
                             TavoSelectionSet& found) const override;
    Subscription onSelectionChanged(Listener listener) override {
        return m_changed.connect(std::move(listener));
    }

    // Who answers questions of geometry (not owned, null for nobody).
    void setLocator(TavoEntityLocator* locator) { m_locator = locator; }
    // The drawing is about to go: forgets its objects, also erased ones.
    void forget(const OdDbDatabase* database);

  private:
    TavoSelectionSet m_current;
    std::unordered_map<const OdDbDatabase*, TavoSelectionSet> m_previous;
    TavoEntityLocator* m_locator = nullptr;
    Signal<> m_changed;
};

} // namespace tv::host
