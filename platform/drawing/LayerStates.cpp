#include "platform/drawing/LayerStates.h"

#include "platform/drawing/OdDbDatabase.h"
#include "platform/drawing/OdDbDictionary.h"
#include "platform/drawing/OdDbLayerTable.h"
#include "platform/drawing/OdDbXrecord.h"
#include "platform/drawing/dxf/NewObject.h"
#include "platform/drawing/dxf/PackedColor.h"
#include "platform/text/Unicode.h"

#include <algorithm>
#include <unordered_set>

using OdDb::DxfVersion;

namespace tv::dwg {
namespace {

constexpr const wchar_t* kStates = L"ACAD_LAYERSTATES";

// Before the first layer.
constexpr int kMask = 91;
constexpr int kDescription = 301;
constexpr int kCurrent = 302;
// A layer starts with its handle or, in older drawings, its name.
constexpr int kHandle = 330;
constexpr int kName = 8;
constexpr int kFlags = 90;
constexpr int kIndex = 62;
constexpr int kTrueColor = 92;
constexpr int kWeight = 370;
constexpr int kLinetype = 331;
constexpr int kLinetypeName = 6;
constexpr int kStyle = 1;
constexpr int kOldStyle = 2;
constexpr int kAlpha = 440;

OdDbDictionaryPtr states(const OdDbDatabase& database, bool create = false) {
    const auto layers = database.layers(OdDb::kForWrite);
    if (!layers) return nullptr;
    if (create && layers->createExtensionDictionary() != Tavo::eOk) return nullptr;
    const OdDbObjectId extension = layers->extensionDictionary();
    const auto names = extension.open<OdDbDictionary>();
    if (!names) return nullptr;
    const auto known = names->getAt(kStates).open<OdDbDictionary>(OdDb::kForWrite);
    return known || !create ? known
                            : addDictionaryAt(extension, kStates, true).open<OdDbDictionary>(OdDb::kForWrite);
}

void setFlags(LayerState::Layer& layer, int flags) {
    layer.off = (flags & kLayerOn) != 0;
    layer.frozen = (flags & kLayerFrozen) != 0;
    layer.locked = (flags & kLayerLocked) != 0;
    layer.noPlot = (flags & kLayerPlot) == 0; // unlike the others, this one says what is
    layer.frozenInNew = (flags & kLayerNewViewport) != 0;
}

int flagsOf(const LayerState::Layer& layer) {
    return (layer.off ? kLayerOn : 0) | (layer.frozen ? kLayerFrozen : 0) | (layer.locked ? kLayerLocked : 0) |
           (layer.noPlot ? 0 : kLayerPlot) | (layer.frozenInNew ? kLayerNewViewport : 0);
}

// False for a value of nobody's.
bool takeHead(LayerState& state, const OdResBuf& value) {
    switch (value.restype()) {
    case kMask:
        state.mask = value.getInt32();
        return true;
    case kDescription:
        state.description = value.getString();
        return true;
    case kCurrent:
        state.currentLayer = value.getString();
        return true;
    default:
        return false;
    }
}

bool takeLayer(LayerState::Layer& layer, const OdDbDatabase& database, const OdResBuf& value) {
    switch (value.restype()) {
    case kFlags:
        setFlags(layer, value.getInt32());
        return true;
    case kIndex:
        if (const int index = value.getInt32(); index >= 1 && index <= 255)
            if (!layer.color.isByColor()) layer.color = OdCmColor::byIndex(index);
        return true;
    case kTrueColor:
        if (const auto color = unpackColor(value.getInt32())) layer.color = *color;
        return true;
    case kWeight:
        for (const OdDb::LineWeight known : OdDb::kLineWeights)
            if (known == value.getInt32()) layer.lineWeight = known;
        return true;
    case kLinetype:
        if (const auto record = database.getOdDbObjectId(value.getHandle()).open<OdDbSymbolTableRecord>())
            layer.linetype = record->getName();
        return true;
    case kLinetypeName:
        layer.linetype = value.getString();
        return true;
    case kStyle:
    case kOldStyle:
        layer.plotStyle = value.getString();
        return true;
    case kAlpha:
        layer.transparency = OdCmTransparency::fromDxf(value.getInt32());
        return true;
    default:
        return false;
    }
}

// Values in the order of a chain.
class Chain {
  public:
    void add(int code, Value value) {
        m_last->setNext(OdResBuf::newRb(code, std::move(value)));
        m_last = m_last->next().get();
    }
    void add(const LayerState::Others& others) {
        for (const auto& [code, value] : others)
            add(code, value);
    }
    const OdResBuf* first() const { return m_head.next().get(); }

  private:
    OdResBuf m_head;
    OdResBuf* m_last = &m_head;
};

void addLayer(Chain& chain, const OdDbDatabase& database, const LayerState::Layer& layer) {
    const auto layers = database.layers();
    const OdDbObjectId id = layers->getAt(layer.name.view());
    if (id.isNull() || id.handle().isNull()) return;
    const bool newer = database.form() >= DxfVersion::kR2004;
    chain.add(kHandle, id.handle());
    chain.add(kFlags, std::int64_t{flagsOf(layer)});
    chain.add(kIndex, std::int64_t{layer.color.colorIndex()});
    chain.add(kWeight, std::int64_t{layer.lineWeight});
    const auto linetypes = database.getLinetypeTableId().open<OdDbSymbolTable>();
    if (const OdDbObjectId linetype = linetypes ? linetypes->getAt(layer.linetype.view()) : OdDbObjectId();
        !linetype.handle().isNull())
        chain.add(kLinetype, linetype.handle());
    chain.add(kStyle, layer.plotStyle);
    if (layer.transparency && newer) chain.add(kAlpha, std::int64_t{layer.transparency->dxfValue()});
    if (layer.color.isByColor() && newer) chain.add(kTrueColor, packColor(layer.color));
    chain.add(layer.others);
}

LayerState::Layer stateOf(const OdDbLayerTableRecord& layer, const OdDbDictionary* plotStyles) {
    LayerState::Layer out;
    out.name = layer.getName();
    out.off = layer.isOff();
    out.frozen = layer.isFrozen();
    out.locked = layer.isLocked();
    out.noPlot = !layer.isPlottable();
    out.frozenInNew = layer.VPDFLT();
    out.color = layer.color();
    out.lineWeight = layer.lineWeight();
    out.linetype = layer.linetypeName();
    if (plotStyles) out.plotStyle = plotStyles->nameAt(layer.plotStyleNameId());
    out.transparency = layer.transparency();
    return out;
}

void restore(OdDbLayerTableRecord& layer, const LayerState::Layer& state, int mask,
             const OdDbDictionary* plotStyles) {
    if (mask & kLayerOn) layer.setIsOff(state.off);
    if (mask & kLayerFrozen) layer.setIsFrozen(state.frozen);
    if (mask & kLayerLocked) layer.setIsLocked(state.locked);
    if (mask & kLayerPlot) layer.setIsPlottable(!state.noPlot);
    if (mask & kLayerNewViewport) layer.setVPDFLT(state.frozenInNew);
    if (mask & kLayerColor) layer.setColor(state.color);
    const auto linetypes = layer.database()->getLinetypeTableId().open<OdDbSymbolTable>();
    if ((mask & kLayerLinetype) && linetypes && linetypes->has(state.linetype.view()))
        layer.setLinetypeName(state.linetype.view());
    if (mask & kLayerLineWeight) layer.setLineWeight(state.lineWeight);
    const OdDbObjectId style = plotStyles ? plotStyles->getAt(state.plotStyle.view()) : OdDbObjectId();
    if ((mask & kLayerPlotStyle) && !style.isNull()) layer.setPlotStyleName(style);
    if ((mask & kLayerTransparency) && state.transparency) layer.setTransparency(*state.transparency);
}

} // namespace

std::vector<OdString> layerStateNames(const OdDbDatabase& database) {
    std::vector<OdString> out;
    if (const auto names = states(database))
        for (auto walk = names->newIterator(); !walk->done(); walk->next())
            if (walk->objectId().open<OdDbXrecord>()) out.push_back(walk->name());
    return out;
}

std::optional<LayerState> readLayerState(const OdDbDatabase& database, std::wstring_view name) {
    const auto names = states(database);
    const auto record = names ? names->getAt(name).open<OdDbXrecord>() : nullptr;
    if (!record) return std::nullopt;
    LayerState state;
    state.name = names->nameAt(record->objectId());
    LayerState::Layer* layer = nullptr;
    const OdResBufPtr chain = record->rbChain();
    for (const OdResBuf* value = chain.get(); value; value = value->next().get()) {
        if (value->restype() == kHandle || value->restype() == kName) {
            layer = &state.layers.emplace_back();
            if (value->restype() == kName)
                layer->name = value->getString();
            else if (const auto named =
                         database.getOdDbObjectId(value->getHandle()).open<OdDbLayerTableRecord>())
                layer->name = named->getName();
        } else if (layer ? !takeLayer(*layer, database, *value) : !takeHead(state, *value)) {
            (layer ? layer->others : state.others).emplace_back(value->restype(), value->value());
        }
    }
    std::erase_if(state.layers, [](const LayerState::Layer& known) { return known.name.isEmpty(); });
    return state;
}

LayerState currentLayerState(const OdDbDatabase& database) {
    LayerState state;
    state.others.emplace_back(290, std::int64_t{1}); // as other programs write it
    const auto current = database.headerVar(L"CLAYER");
    if (current) state.currentLayer = current->asText().value_or(OdString());
    const auto styles = database.getPlotStyleNameDictionaryId().open<OdDbDictionary>();
    const auto mode = database.headerVar(L"PSTYLEMODE");
    const bool byColor = mode && mode->asInteger().value_or(1) != 0;
    if (const auto layers = database.layers())
        layers->forEach([&](OdDbObjectId id) {
            if (const auto layer = id.open<OdDbLayerTableRecord>())
                state.layers.push_back(stateOf(*layer, byColor ? nullptr : styles.get()));
        });
    return state;
}

Tavo::ErrorStatus writeLayerState(OdDbDatabase& database, const LayerState& state) {
    if (state.name.isEmpty()) return Tavo::eInvalidInput;
    if (const auto status = database.require(OdDb::Feature::kDictionaries); status != Tavo::eOk) return status;
    const OdDbUndoScope step(database, L"LAYERSTATE");
    const auto names = states(database, true);
    if (!names) return database.isReadOnly() ? Tavo::eReadOnly : Tavo::eNotHandled;
    Chain chain;
    chain.add(kMask, std::int64_t{state.mask});
    chain.add(kDescription, state.description);
    chain.add(state.others);
    chain.add(kCurrent, state.currentLayer);
    for (const LayerState::Layer& layer : state.layers)
        addLayer(chain, database, layer);
    return writeXrecord(names->objectId(), state.name.view(), chain.first());
}

Tavo::ErrorStatus deleteLayerState(OdDbDatabase& database, std::wstring_view name) {
    const auto names = states(database);
    return names ? names->eraseEntry(name) : Tavo::eKeyNotFound;
}

Tavo::ErrorStatus renameLayerState(OdDbDatabase& database, std::wstring_view from, std::wstring_view to) {
    const auto names = states(database);
    return names ? names->setName(from, to) : Tavo::eKeyNotFound;
}

Tavo::ErrorStatus restoreLayerState(OdDbDatabase& database, const LayerState& state,
                                    const LayerStateRestore& how) {
    const auto layers = database.layers();
    if (!layers) return Tavo::eKeyNotFound;
    if (database.isReadOnly()) return Tavo::eReadOnly;
    const OdDbUndoScope step(database, L"LAYERSTATE");
    const auto styles = database.getPlotStyleNameDictionaryId().open<OdDbDictionary>();
    std::unordered_set<std::wstring> known;
    for (const LayerState::Layer& wanted : state.layers) {
        known.insert(tv::text::foldCase(wanted.name.view()));
        if (const auto layer = layers->getAt(wanted.name.view()).open<OdDbLayerTableRecord>(OdDb::kForWrite))
            restore(*layer, wanted, state.mask & how.mask, styles.get());
    }
    if (how.othersOff)
        layers->forEach([&](OdDbObjectId id) {
            const auto layer = id.open<OdDbLayerTableRecord>(OdDb::kForWrite);
            if (layer && !known.contains(tv::text::foldCase(layer->getName().view()))) layer->setIsOff(true);
        });
    const auto current = layers->getAt(state.currentLayer.view()).open<OdDbLayerTableRecord>();
    if (how.currentLayer && current && !current->isFrozen())
        if (const tv::Problem problem =
                database.setHeaderVar(L"CLAYER", HeaderValue::text(current->getName().view())))
            return problem.status;
    return Tavo::eOk;
}

} // namespace tv::dwg
