#include "platform/drawing/LayerOverrides.h"

#include "platform/drawing/OdDbDatabase.h"
#include "platform/drawing/OdDbDictionary.h"
#include "platform/drawing/OdDbLayerTable.h"
#include "platform/drawing/OdDbViewport.h"
#include "platform/drawing/OdDbXrecord.h"
#include "platform/drawing/dxf/PackedColor.h"
#include "platform/drawing/dxf/RecordStore.h"

#include <algorithm>
#include <utility>

using OdDb::DxfVersion;

namespace tv::dwg {
namespace {

// One property's record in the extension dictionary: a group per viewport, of the viewport's handle and the
// value.
struct Property {
    const wchar_t* record;
    const wchar_t* group;
    int code;
};
constexpr Property kColor = {L"ADSK_XREC_LAYER_COLOR_OVR", L"{ADSK_LYR_COLOR_OVERRIDE", 420};
constexpr Property kLinetype = {L"ADSK_XREC_LAYER_LINETYPE_OVR", L"{ADSK_LYR_LINETYPE_OVERRIDE", 343};
constexpr Property kLineWeight = {L"ADSK_XREC_LAYER_LINEWT_OVR", L"{ADSK_LYR_LINEWT_OVERRIDE", 91};
constexpr Property kAlpha = {L"ADSK_XREC_LAYER_ALPHA_OVR", L"{ADSK_LYR_ALPHA_OVERRIDE", 440};
constexpr Property kPlotStyle = {L"ADSK_XREC_LAYER_PLOTSTYLE_OVR", L"{ADSK_LYR_PLOTSTYLE_OVERRIDE", 390};
constexpr Property kAll[] = {kColor, kLinetype, kLineWeight, kAlpha, kPlotStyle};

constexpr int kViewport = 335;
constexpr int kGroup = 102;

std::shared_ptr<OdDbXrecord> recordOf(const OdDbObject& layer, const Property& property, OdDb::OpenMode mode) {
    const auto dictionary = layer.extensionDictionary().open<OdDbDictionary>();
    return dictionary ? dictionary->getAt(property.record).open<OdDbXrecord>(mode) : nullptr;
}

// Calls `visit(viewport handle, value)` for each group of the record.
template <class Visit>
void forEachOverride(const OdDbXrecord& record, const Property& property, Visit&& visit) {
    OdDbHandle viewport;
    bool inside = false;
    const OdResBufPtr chain = record.rbChain();
    for (const OdResBuf* buffer = chain.get(); buffer; buffer = buffer->next().get()) {
        if (buffer->restype() == kGroup) {
            inside = buffer->getString().view() == property.group;
            viewport = {};
        } else if (inside && buffer->restype() == kViewport) {
            viewport = buffer->getHandle();
        } else if (inside && buffer->restype() == property.code && !viewport.isNull()) {
            visit(viewport, buffer->value());
        }
    }
}

void take(LayerOverrides& out, OdDbDatabase& database, const Property& property, const Value& value) {
    const auto* number = std::get_if<std::int64_t>(&value);
    const auto* handle = std::get_if<OdDbHandle>(&value);
    const OdDbObjectId object = handle ? database.getOdDbObjectId(*handle) : OdDbObjectId();
    if (property.code == kColor.code && number) out.color = unpackColor(*number);
    if (property.code == kLinetype.code && object.open<OdDbSymbolTableRecord>()) out.linetype = object;
    if (property.code == kPlotStyle.code && !object.isNull()) out.plotStyle = object;
    if (property.code == kAlpha.code && number) out.transparency = OdCmTransparency::fromDxf(*number);
    if (property.code == kLineWeight.code && number)
        for (const OdDb::LineWeight known : OdDb::kLineWeights)
            if (known == *number) out.lineWeight = known;
}

// Nothing for an id that is no layer.
std::shared_ptr<OdDbLayerTableRecord> layerOf(OdDbObjectId id, OdDb::OpenMode mode = OdDb::kForRead) {
    return id.open<OdDbLayerTableRecord>(mode);
}

Tavo::ErrorStatus checkOverride(OdDbObjectId layer, OdDbObjectId viewport) {
    if (!layerOf(layer) || !isViewport(viewport) || viewport.database() != layer.database() ||
        layer.handle().isNull() || viewport.handle().isNull())
        return Tavo::eInvalidInput;
    if (const auto status = layer.database()->require(OdDb::Feature::kViewportOverrides); status != Tavo::eOk)
        return status;
    return layer.database()->store().writable() ? Tavo::eOk : Tavo::eReadOnly;
}

// The chain without the groups that `drop` names by viewport; what isn't such a group stays.
template <class Drop>
OdResBufPtr without(const OdResBuf* chain, const Property& property, Drop&& drop) {
    std::vector<const OdResBuf*> kept;
    while (chain) {
        std::vector<const OdResBuf*> group = {chain};
        const bool ours = chain->restype() == kGroup && chain->getString().view() == property.group;
        bool dropped = false;
        for (chain = chain->next().get(); ours && chain; chain = chain->next().get()) {
            const bool mark = chain->restype() == kGroup;
            // A group that isn't closed ends where another begins.
            if (mark && chain->getString() != L"}") break;
            group.push_back(chain);
            if (chain->restype() == kViewport) dropped = drop(chain->getHandle());
            if (mark) {
                chain = chain->next().get();
                break;
            }
        }
        if (!dropped) kept.insert(kept.end(), group.begin(), group.end());
    }
    const OdResBufPtr head = OdResBuf::newRb();
    OdResBuf* last = head.get();
    for (const OdResBuf* buffer : kept) {
        last->setNext(OdResBuf::newRb(buffer->restype(), buffer->value()));
        last = last->next().get();
    }
    return head->next();
}

// An empty record goes, and the dictionary with it when it held nothing else.
Tavo::ErrorStatus store(OdDbLayerTableRecord& layer, const Property& property, const OdResBuf* chain) {
    if (chain) {
        if (const auto status = layer.createExtensionDictionary(); status != Tavo::eOk) return status;
        return writeXrecord(layer.extensionDictionary(), property.record, chain);
    }
    const auto dictionary = layer.extensionDictionary().open<OdDbDictionary>(OdDb::kForWrite);
    if (!dictionary || !dictionary->has(property.record)) return Tavo::eOk;
    const auto status = dictionary->eraseEntry(property.record);
    if (status == Tavo::eOk && dictionary->numEntries() == 0) return layer.releaseExtensionDictionary();
    return status;
}

Tavo::ErrorStatus setOverride(OdDbObjectId layer, OdDbObjectId viewport, const Property& property,
                              const std::optional<Value>& value) {
    if (const auto status = checkOverride(layer, viewport); status != Tavo::eOk) return status;
    const auto opened = layerOf(layer, OdDb::kForWrite);
    const auto record = recordOf(*opened, property, OdDb::kForRead);
    if (!record && !value) return Tavo::eOk;
    OdResBufPtr before = record ? record->rbChain() : nullptr;
    if (value) {
        // The same value again is no change, wherever it stands.
        std::optional<Value> now;
        if (record)
            forEachOverride(*record, property, [&](OdDbHandle known, const Value& old) {
                if (known == viewport.handle()) now = old;
            });
        if (now == value) return Tavo::eOk;
    }
    OdResBufPtr chain =
        without(before.get(), property, [&](OdDbHandle known) { return known == viewport.handle(); });
    if (value) {
        const OdResBufPtr group = OdResBuf::newRb(kGroup, OdString(property.group));
        group->append(OdResBuf::newRb(kViewport, viewport.handle()));
        group->append(OdResBuf::newRb(property.code, *value));
        group->append(OdResBuf::newRb(kGroup, OdString(L"}")));
        if (chain)
            chain->append(group);
        else
            chain = group;
    }
    const OdDbUndoScope step(*layer.database(), L"VPLAYER");
    return store(*opened, property, chain.get());
}

// Takes away what `drop` says from every property of a layer.
template <class Drop>
Tavo::ErrorStatus dropOverrides(OdDbObjectId layer, Drop&& drop) {
    const auto opened = layerOf(layer, OdDb::kForWrite);
    if (!opened) return Tavo::eInvalidInput;
    for (const Property& property : kAll) {
        const auto record = recordOf(*opened, property, OdDb::kForRead);
        if (!record) continue;
        bool concerned = false;
        forEachOverride(*record, property,
                        [&](OdDbHandle known, const Value&) { concerned = concerned || drop(known); });
        if (!concerned) continue;
        const OdResBufPtr before = record->rbChain();
        const OdResBufPtr left = without(before.get(), property, drop);
        if (const auto status = store(*opened, property, left.get()); status != Tavo::eOk) return status;
    }
    return Tavo::eOk;
}

} // namespace

LayerOverrideMap overridesOf(OdDbObjectId layer) {
    LayerOverrideMap out;
    const auto opened = layerOf(layer);
    if (!opened || opened->extensionDictionary().isNull()) return out;
    OdDbDatabase& database = *layer.database();
    for (const Property& property : kAll)
        if (const auto record = recordOf(*opened, property, OdDb::kForRead))
            forEachOverride(*record, property, [&](OdDbHandle handle, const Value& value) {
                const OdDbObjectId viewport = database.getOdDbObjectId(handle);
                if (isViewport(viewport)) take(out[viewport], database, property, value);
            });
    std::erase_if(out, [](const auto& entry) { return !entry.second.any(); });
    return out;
}

LayerOverrides overridesOf(OdDbObjectId layer, OdDbObjectId viewport) {
    const LayerOverrideMap all = overridesOf(layer);
    const auto found = all.find(viewport);
    return found == all.end() ? LayerOverrides() : found->second;
}

bool hasOverrides(OdDbObjectId layer) { return !overridesOf(layer).empty(); }

LayerOverrideMap overridesInViewport(const OdDbDatabase& database, OdDbObjectId viewport) {
    LayerOverrideMap out;
    if (const auto layers = database.layers())
        layers->forEach([&](OdDbObjectId layer) {
            if (const LayerOverrides found = overridesOf(layer, viewport); found.any()) out[layer] = found;
        });
    return out;
}

Tavo::ErrorStatus overrideColor(OdDbObjectId layer, OdDbObjectId viewport, std::optional<OdCmColor> color) {
    if (color && (color->isByLayer() || color->isByBlock())) return Tavo::eInvalidInput;
    return setOverride(layer, viewport, kColor, color ? std::optional<Value>(packColor(*color)) : std::nullopt);
}

Tavo::ErrorStatus overrideLinetype(OdDbObjectId layer, OdDbObjectId viewport,
                                   std::optional<OdDbObjectId> linetype) {
    if (!linetype) return setOverride(layer, viewport, kLinetype, std::nullopt);
    const auto record = linetype->open<OdDbSymbolTableRecord>();
    if (!record || record->isA() != L"LTYPE" || linetype->database() != layer.database() ||
        linetype->handle().isNull())
        return Tavo::eInvalidInput;
    return setOverride(layer, viewport, kLinetype, Value(linetype->handle()));
}

Tavo::ErrorStatus overrideLineWeight(OdDbObjectId layer, OdDbObjectId viewport,
                                     std::optional<OdDb::LineWeight> weight) {
    const auto& known = OdDb::kLineWeights;
    if (weight && (std::find(known.begin(), known.end(), *weight) == known.end() ||
                   *weight == OdDb::kLnWtByLayer || *weight == OdDb::kLnWtByBlock))
        return Tavo::eInvalidInput;
    return setOverride(layer, viewport, kLineWeight,
                       weight ? std::optional<Value>(std::int64_t{*weight}) : std::nullopt);
}

Tavo::ErrorStatus overrideTransparency(OdDbObjectId layer, OdDbObjectId viewport,
                                       std::optional<OdCmTransparency> transparency) {
    if (transparency && !transparency->isByAlpha()) return Tavo::eInvalidInput;
    return setOverride(layer, viewport, kAlpha,
                       transparency ? std::optional<Value>(std::int64_t{transparency->dxfValue()})
                                    : std::nullopt);
}

Tavo::ErrorStatus overridePlotStyle(OdDbObjectId layer, OdDbObjectId viewport,
                                    std::optional<OdDbObjectId> plotStyle) {
    if (!plotStyle) return setOverride(layer, viewport, kPlotStyle, std::nullopt);
    const auto styles =
        layer.isNull() ? nullptr : layer.database()->getPlotStyleNameDictionaryId().open<OdDbDictionary>();
    if (!styles || plotStyle->database() != layer.database() || styles->nameAt(*plotStyle).isEmpty())
        return Tavo::eInvalidInput;
    return setOverride(layer, viewport, kPlotStyle, Value(plotStyle->handle()));
}

Tavo::ErrorStatus removeOverrides(OdDbObjectId layer, OdDbObjectId viewport) {
    if (!layerOf(layer)) return Tavo::eInvalidInput;
    if (!layer.database()->store().writable()) return Tavo::eReadOnly;
    const OdDbUndoScope step(*layer.database(), L"VPLAYER");
    return dropOverrides(layer,
                         [&](OdDbHandle known) { return viewport.isNull() || known == viewport.handle(); });
}

Tavo::ErrorStatus removeViewportOverrides(OdDbObjectId viewport) {
    if (!isViewport(viewport)) return Tavo::eInvalidInput;
    OdDbDatabase& database = *viewport.database();
    if (!database.store().writable()) return Tavo::eReadOnly;
    const auto layers = database.layers();
    Tavo::ErrorStatus result = Tavo::eOk;
    const OdDbUndoScope step(database, L"VPLAYER");
    if (layers)
        layers->forEach([&](OdDbObjectId layer) {
            const auto status =
                dropOverrides(layer, [&](OdDbHandle known) { return known == viewport.handle(); });
            if (status != Tavo::eOk) result = status;
        });
    return result;
}

} // namespace tv::dwg
