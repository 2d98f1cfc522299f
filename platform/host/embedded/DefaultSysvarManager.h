#pragma once

#include "platform/Export.h"
#include "platform/host/TavoSysvarManager.h"

#include <memory>

namespace tv {
class SettingsStore;
}

namespace tv::host {

// The system variables of the table in platform/host/sysvars. Header variables are written through the
// database, so that they take part in undo; profile ones go to the settings store (section "SystemVariables");
// session ones are kept here.
class KXPLATFORM_EXPORT DefaultSysvarManager final : public TavoSysvarManager {
  public:
    // `settings` outlives this object. Without it profile variables last as long as the session.
    explicit DefaultSysvarManager(tv::SettingsStore* settings);
    ~DefaultSysvarManager() override;

    Tavo::ErrorStatus getVar(const OdString& name, OdResBuf& value,
                             const OdDbDatabasePtr& database) const override;
    Tavo::ErrorStatus setVar(const OdString& name, const OdResBuf& value,
                             const OdDbDatabasePtr& database) override;
    Tavo::ErrorStatus getVar(const OdString& name, OdCmColor& value,
                             const OdDbDatabasePtr& database) const override;
    Tavo::ErrorStatus setVar(const OdString& name, const OdCmColor& value,
                             const OdDbDatabasePtr& database) override;
    Tavo::ErrorStatus getVar(const OdString& name, OdDbObjectId& value,
                             const OdDbDatabasePtr& database) const override;
    Tavo::ErrorStatus setVar(const OdString& name, const OdDbObjectId& value,
                             const OdDbDatabasePtr& database) override;

    TavoSysvarType type(const OdString& name) const override;
    std::optional<TavoSysvarRange> range(const OdString& name) const override;
    bool isReadOnly(const OdString& name) const override;
    std::vector<OdString> names() const override;

    Tavo::ErrorStatus getText(const OdString& name, OdString& text,
                              const OdDbDatabasePtr& database) const override;
    Tavo::ErrorStatus setText(const OdString& name, const OdString& text,
                              const OdDbDatabasePtr& database) override;

    const tv::Problem& lastProblem() const override;
    Subscription onSysvarChanged(Listener listener) override;

    // Tells the listeners about changes in this drawing from now on, whoever makes them. Drawings written
    // through this manager are watched anyway.
    void watch(const OdDbDatabasePtr& database);

    // Sets a session variable, read-only or not, to what the program's state is.
    void setSession(const OdString& name, int value);

  private:
    class Store;
    std::unique_ptr<Store> m_store;
};

} // namespace tv::host
