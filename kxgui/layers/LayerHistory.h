#pragma once

#include "kxgui/Export.h"
#include "platform/host/DrawingTypes.h"

// Brackets a write of the layer manager: one undo record named "_LAYER", after which the drawing windows show
// the drawing anew.
class KXGUI_EXPORT DBIntegrationManager_ZEL {
  public:
    ~DBIntegrationManager_ZEL() { OnCleanupAndReturn_ExecuteCommand(); }

    void OnStartUndoRecord(const OdDbDatabasePtr& database);
    // Ends what was started; without a start it does nothing.
    void OnCleanupAndReturn_ExecuteCommand();

  private:
    OdDbDatabasePtr m_database;
};

// Whether the layer table was changed from the layer manager since somebody last asked to know.
class KXGUI_EXPORT CIsLayerModifed {
  public:
    static void setModifiedFromDlg(bool modified);
    static bool isModifiedFromDlg();
};

namespace kx::layers {

// After a write of another dialog of the layer manager, which made an undo record of its own.
void layersWritten(const OdDbDatabasePtr& database);

} // namespace kx::layers
