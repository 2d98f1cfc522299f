#pragma once

#include "kxgui/Export.h"
#include "platform/drawing/OdDbDatabase.h"
#include "platform/drawing/OdDbDatabaseReactor.h"
#include "platform/host/Signal.h"
#include "platform/toolkit/Toolkit.h"

#include <memory>
#include <set>
#include <string>
#include <vector>

class IToolbarComboBox;

namespace kx::controls {

// Connects the host's events with the lists of a toolbar: edits, undo and redo of the current drawing, another
// drawing made current, system variables, the selection, the language. A burst of events costs one request to
// each list that it concerns, after the event that is under way.
class KXGUI_EXPORT ToolbarRequests : private OdDbDatabaseReactor {
  public:
    // Everything is requested once for a start.
    explicit ToolbarRequests(std::vector<IToolbarComboBox*> boxes);
    ~ToolbarRequests() override;
    ToolbarRequests(const ToolbarRequests&) = delete;
    ToolbarRequests& operator=(const ToolbarRequests&) = delete;

    void RequestAll();
    // What was requested happens now.
    void Settle();

  private:
    void objectModified(OdDbDatabase&, OdDbObjectId) override { RequestAll(); }
    void objectAppended(OdDbDatabase&, OdDbObjectId) override { RequestAll(); }
    void objectErased(OdDbDatabase&, OdDbObjectId) override { RequestAll(); }
    void goodbye(OdDbDatabase&) override { m_watched = nullptr; }
    void watch(OdDbDatabase* database);
    void later();
    void deliver();

    std::vector<IToolbarComboBox*> m_boxes;
    OdDbDatabase* m_watched = nullptr;
    bool m_all = false, m_selection = false;
    std::set<std::wstring> m_variables;
    tv::ui::Timer m_delivery;
    std::vector<tv::host::Subscription> m_subscriptions;
    std::shared_ptr<void> m_languageHandle;
};

} // namespace kx::controls
