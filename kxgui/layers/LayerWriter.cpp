#include "kxgui/layers/LayerWriter.h"

#include "kxgui/layers/LayerNameRules.h"
#include "platform/drawing/LayerFilters.h"
#include "platform/drawing/LayerOverrides.h"
#include "platform/drawing/OdDbDatabase.h"
#include "platform/drawing/OdDbLayerTable.h"
#include "platform/drawing/OdDbLayout.h"
#include "platform/drawing/OdDbViewport.h"

#include <algorithm>
#include <unordered_set>

namespace kx::layers {
namespace {

using Tavo::ErrorStatus;

// Runs each write of a row until one is refused.
class Writes {
  public:
    template <class Write>
    Writes& when(bool wanted, Write&& write) {
        if (wanted && m_status == Tavo::eOk) m_status = write();
        return *this;
    }
    ErrorStatus status() const { return m_status; }

  private:
    ErrorStatus m_status = Tavo::eOk;
};

ErrorStatus writeColor(OdDbLayerTableRecord& layer, const T_LAYER_DATA& row) {
    return row.bookColor.isEmpty() ? layer.setColor(row.color)
                                   : layer.setBookColor(row.color, row.bookColor.view());
}

// A version that can't hold a value must not refuse a row that doesn't ask for one.
ErrorStatus writeProperties(OdDbLayerTableRecord& layer, const T_LAYER_DATA& row, unsigned fields) {
    return Writes()
        .when((fields & kFieldOn) && layer.isOff() == row.on, [&] { return layer.setIsOff(!row.on); })
        .when((fields & kFieldFrozen) && layer.isFrozen() != row.frozen,
              [&] { return layer.setIsFrozen(row.frozen); })
        .when((fields & kFieldLocked) && layer.isLocked() != row.locked,
              [&] { return layer.setIsLocked(row.locked); })
        .when((fields & kFieldPlot) && layer.isPlottable() != row.plot,
              [&] { return layer.setIsPlottable(row.plot); })
        .when((fields & kFieldNewVpFrozen) && layer.VPDFLT() != row.newVpFrozen,
              [&] { return layer.setVPDFLT(row.newVpFrozen); })
        .when((fields & kFieldColor) && (layer.color() != row.color || layer.bookColorName() != row.bookColor),
              [&] { return writeColor(layer, row); })
        .when((fields & kFieldLinetype) && layer.linetypeName() != row.linetype,
              [&] { return layer.setLinetypeName(row.linetype.view()); })
        .when((fields & kFieldLineWeight) && layer.lineWeight() != row.lineWeight,
              [&] { return layer.setLineWeight(row.lineWeight); })
        .when((fields & kFieldTransparency) && layer.transparency().percent() != row.transparency,
              [&] { return layer.setTransparency(OdCmTransparency::byPercent(row.transparency)); })
        .when((fields & kFieldPlotStyle) && !row.plotStyle.isEmpty() && layer.plotStyleName() != row.plotStyle,
              [&] { return layer.setPlotStyleName(row.plotStyle.view()); })
        .when((fields & kFieldDescription) && layer.description() != row.description,
              [&] { return layer.setDescription(row.description.view()); })
        .status();
}

ErrorStatus writeViewport(const T_LAYER_DATA& row, OdDbObjectId viewport, unsigned fields) {
    using namespace tv::dwg;
    const OdDbObjectId layer = row.id;
    return Writes()
        .when(fields & kFieldVpColor, [&] { return overrideColor(layer, viewport, row.vp.color); })
        .when(fields & kFieldVpLinetype, [&] { return overrideLinetype(layer, viewport, row.vp.linetype); })
        .when(fields & kFieldVpLineWeight,
              [&] { return overrideLineWeight(layer, viewport, row.vp.lineWeight); })
        .when(fields & kFieldVpTransparency,
              [&] { return overrideTransparency(layer, viewport, row.vp.transparency); })
        .when(fields & kFieldVpPlotStyle, [&] { return overridePlotStyle(layer, viewport, row.vp.plotStyle); })
        .status();
}

// The layers frozen and thawed in the viewport are one change of it, however many they are.
ErrorStatus writeFrozenInViewport(const std::vector<LayerUpdate>& updates, OdDbObjectId viewport) {
    std::vector<OdDbObjectId> frozen, thawed;
    for (const LayerUpdate& update : updates)
        if (update.kind == kLayerViewport && (update.fields & kFieldVpFrozen))
            (update.row.vpFrozen ? frozen : thawed).push_back(update.row.id);
    if (frozen.empty() && thawed.empty()) return Tavo::eOk;
    const auto record = viewport.open<OdDbViewport>(OdDb::kForWrite);
    if (!record) return Tavo::eInvalidInput;
    return Writes()
        .when(!frozen.empty(), [&] { return record->freezeLayersInViewport(frozen); })
        .when(!thawed.empty(), [&] { return record->thawLayersInViewport(thawed); })
        .status();
}

std::vector<OdDbObjectId> sheetViewports(const OdDbDatabase& database) {
    std::vector<OdDbObjectId> out;
    for (const OdDbObjectId id : database.layoutIds())
        if (const auto layout = id.open<OdDbLayout>(); layout && !layout->isModelLayout())
            for (const OdDbObjectId viewport : layout->viewports())
                out.push_back(viewport);
    if (out.empty()) // drawings without layouts have one sheet
        for (const OdDbObjectId id : database.paperSpace())
            if (tv::dwg::isViewport(id)) out.push_back(id);
    return out;
}

ErrorStatus dropFromGroups(const std::vector<tv::dwg::LayerFilter>& filters,
                           const std::unordered_set<OdDbObjectId>& gone) {
    Writes writes;
    for (tv::dwg::LayerFilter filter : filters) {
        const std::size_t dropped =
            std::erase_if(filter.layers, [&](OdDbObjectId layer) { return gone.contains(layer); });
        writes
            .when(filter.kind == tv::dwg::LayerFilter::kGroup && dropped > 0,
                  [&] { return tv::dwg::changeLayerFilter(filter); })
            .when(!filter.nested.empty(), [&] { return dropFromGroups(filter.nested, gone); });
    }
    return writes.status();
}

// Viewports that froze them and groups that list them would name layers that are gone.
ErrorStatus forgetLayers(OdDbDatabase& database, const std::vector<OdDbObjectId>& layers) {
    if (layers.empty()) return Tavo::eOk;
    Writes writes;
    for (const OdDbObjectId id : sheetViewports(database))
        if (const auto viewport = id.open<OdDbViewport>(OdDb::kForWrite))
            writes.when(!viewport->frozenLayers().empty(),
                        [&] { return viewport->thawLayersInViewport(layers); });
    return writes
        .when(true,
              [&] {
                  return dropFromGroups(tv::dwg::layerFilters(database), {layers.begin(), layers.end()});
              })
        .status();
}

ErrorStatus makeLayer(OdDbDatabase& database, T_LAYER_DATA& row) {
    const auto table = database.getTableId(L"LAYER", true).open<OdDbLayerTable>(OdDb::kForWrite);
    if (!table) return database.isReadOnly() ? Tavo::eReadOnly : Tavo::eInvalidInput;
    // Every table of layers has this one; a table that was missing gets it first.
    if (table->size() == 0 && !isLayerZero(row.name.view())) table->add(L"0");
    const OdDbObjectId made = table->add(row.name.view());
    const auto layer = made.open<OdDbLayerTableRecord>(OdDb::kForWrite);
    if (!layer) {
        if (database.isReadOnly()) return Tavo::eReadOnly;
        return table->has(row.name.view()) ? Tavo::eDuplicate : Tavo::eNotHandled;
    }
    row.id = made;
    row.handle = made.handle();
    return writeProperties(*layer, row, kAllLayerFields);
}

ErrorStatus write(OdDbDatabase& database, LayerUpdate& update, OdDbObjectId viewport) {
    if (update.kind == kLayerNew) return makeLayer(database, update.row);
    const auto layer = update.row.id.open<OdDbLayerTableRecord>(OdDb::kForWrite);
    if (!layer) return Tavo::eKeyNotFound;
    switch (update.kind) {
    case kLayerProperty:
        return writeProperties(*layer, update.row, update.fields & kAllLayerFields);
    case kLayerDescription:
        return writeProperties(*layer, update.row, kFieldDescription);
    case kLayerRename:
        return layer->setName(update.row.name.view());
    case kLayerCurrent:
        return database.setHeaderVar(L"CLAYER", tv::dwg::HeaderValue::text(layer->getName().view())).status;
    case kLayerDelete:
        return layer->erase();
    case kLayerViewport:
        return writeViewport(update.row, viewport, update.fields);
    case kLayerNew:
        break;
    }
    return Tavo::eInvalidInput;
}

} // namespace

ErrorStatus writeLayers(OdDbDatabase& database, std::vector<LayerUpdate>& updates, OdDbObjectId viewport) {
    if (database.isReadOnly()) return Tavo::eReadOnly;
    OdDbUndoScope step(database, L"_LAYER");
    std::vector<OdDbObjectId> deleted;
    for (const LayerUpdate& update : updates)
        if (update.kind == kLayerDelete) deleted.push_back(update.row.id);
    ErrorStatus status = forgetLayers(database, deleted);
    for (auto update = updates.begin(); update != updates.end() && status == Tavo::eOk; ++update)
        status = write(database, *update, viewport);
    if (status == Tavo::eOk) status = writeFrozenInViewport(updates, viewport);
    if (status != Tavo::eOk) step.cancel();
    return status;
}

} // namespace kx::layers
