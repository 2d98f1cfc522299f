#include "kxgui/layers/LayerWriter.h"

#include "platform/drawing/LayerOverrides.h"
#include "platform/drawing/OdDbDatabase.h"
#include "platform/drawing/OdDbLayerTable.h"
#include "platform/drawing/OdDbViewport.h"

#include <algorithm>

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

ErrorStatus makeLayer(OdDbDatabase& database, T_LAYER_DATA& row) {
    const auto table = database.getTableId(L"LAYER", true).open<OdDbLayerTable>(OdDb::kForWrite);
    if (!table) return database.isReadOnly() ? Tavo::eReadOnly : Tavo::eInvalidInput;
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
    ErrorStatus status = Tavo::eOk;
    for (auto update = updates.begin(); update != updates.end() && status == Tavo::eOk; ++update)
        status = write(database, *update, viewport);
    if (status == Tavo::eOk) status = writeFrozenInViewport(updates, viewport);
    if (status != Tavo::eOk) step.cancel();
    return status;
}

} // namespace kx::layers
