#include "kxgui/layers/LayerHistory.h"

#include "platform/drawing/OdDbDatabase.h"
#include "platform/host/TavoDisplay.h"

#include <utility>

namespace {
bool modifiedFromDlg = false;
}

void DBIntegrationManager_ZEL::OnStartUndoRecord(const OdDbDatabasePtr& database) {
    OnCleanupAndReturn_ExecuteCommand();
    m_database = database;
    if (m_database) m_database->startUndoRecord(L"_LAYER");
}

void DBIntegrationManager_ZEL::OnCleanupAndReturn_ExecuteCommand() {
    const OdDbDatabasePtr database = std::exchange(m_database, nullptr);
    if (!database) return;
    database->endUndoRecord();
    tvedRedraw(database);
}

void CIsLayerModifed::setModifiedFromDlg(bool modified) { modifiedFromDlg = modified; }
bool CIsLayerModifed::isModifiedFromDlg() { return modifiedFromDlg; }

void kx::layers::layersWritten(const OdDbDatabasePtr& database) {
    CIsLayerModifed::setModifiedFromDlg(true);
    tvedRedraw(database);
}
