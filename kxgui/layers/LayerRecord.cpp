#include "kxgui/layers/LayerRecord.h"

#include "platform/drawing/OdDbDatabase.h"
#include "platform/drawing/OdDbDictionary.h"
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

OdString linetypeName(OdDbObjectId linetype) {
    const auto record = linetype.open<OdDbSymbolTableRecord>();
    return record ? record->getName() : OdString();
}

OdString plotStyleName(OdDbObjectId style) {
    if (style.isNull()) return {};
    const auto names = style.database()->getPlotStyleNameDictionaryId().open<OdDbDictionary>();
    if (names)
        for (const OdDbDictionary::Entry& entry : names->entries())
            if (entry.handle == style.handle()) return entry.name;
    return {};
}

T_LAYER_DATA asInViewport(const T_LAYER_DATA& layer) {
    T_LAYER_DATA shown = layer;
    if (layer.vp.color) {
        shown.color = *layer.vp.color;
        shown.bookColor = OdString();
    }
    if (layer.vp.linetype) shown.linetype = linetypeName(*layer.vp.linetype);
    if (layer.vp.lineWeight) shown.lineWeight = *layer.vp.lineWeight;
    if (layer.vp.transparency) shown.transparency = layer.vp.transparency->percent();
    if (layer.vp.plotStyle) shown.plotStyle = plotStyleName(*layer.vp.plotStyle);
    return shown;
}

bool sameLayer(const T_LAYER_DATA& a, const T_LAYER_DATA& b) {
    if (!a.handle.isNull() || !b.handle.isNull()) return a.handle == b.handle;
    return !a.id.isNull() && a.id == b.id;
}

} // namespace kx::layers
