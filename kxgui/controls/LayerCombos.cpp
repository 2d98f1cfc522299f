#include "kxgui/controls/LayerCombos.h"

#include "kxgui/controls/RecordItems.h"
#include "platform/text/ResourceString.h"

void CCobxLayer::Fill(const OdDbDatabasePtr& database) {
    SetItems(kx::controls::recordItems(*database, kx::controls::RecordKind::layers));
}

std::wstring CCobxLayer::UndoName() const {
    return VORD_ResourceString("IDS_TAVO_COBX_UNDO_LAYER", L"도면층 변경").c_str();
}
