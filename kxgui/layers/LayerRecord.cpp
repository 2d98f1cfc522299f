#include "kxgui/layers/LayerRecord.h"

#include "platform/drawing/OdDbDatabase.h"
#include "platform/drawing/OdDbLayerTable.h"

namespace kx::layers {

T_LAYER_DATA readLayer(OdDbObjectId layer, OdDbObjectId current) {
    T_LAYER_DATA row;
    const auto record = layer.open<OdDbLayerTableRecord>();
    if (!record) return row;
    row.id = layer;
    row.handle = layer.handle();
    row.name = record->getName();
    row.description = record->description();
    row.color = record->color();
    row.bookColor = record->bookColorName();
    row.linetype = record->linetypeName();
    row.lineWeight = record->lineWeight();
    row.transparency = record->transparency().percent();
    row.plotStyle = record->plotStyleName();
    row.on = !record->isOff();
    row.frozen = record->isFrozen();
    row.locked = record->isLocked();
    row.plot = record->isPlottable();
    row.newVpFrozen = record->VPDFLT();
    row.xref = record->isDependent();
    row.current = current == layer;
    return row;
}

OdDbObjectId currentLayer(const OdDbDatabase& database) {
    const auto table = database.layers();
    if (!table) return {};
    const auto variable = database.headerVar(L"CLAYER");
    const auto name = variable ? variable->asText() : std::nullopt;
    // What a drawing that says nothing draws on.
    return table->getAt(name && !name->isEmpty() ? name->view() : std::wstring_view(L"0"));
}

bool sameLayer(const T_LAYER_DATA& a, const T_LAYER_DATA& b) {
    if (!a.handle.isNull() || !b.handle.isNull()) return a.handle == b.handle;
    return !a.id.isNull() && a.id == b.id;
}

} // namespace kx::layers
