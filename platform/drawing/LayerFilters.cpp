#include "platform/drawing/LayerFilters.h"

#include "platform/drawing/OdDbDatabase.h"
#include "platform/drawing/OdDbDictionary.h"
#include "platform/drawing/OdDbLayerTable.h"
#include "platform/drawing/OdDbXrecord.h"
#include "platform/drawing/VersionLimits.h"
#include "platform/drawing/dxf/NewObject.h"

#include <algorithm>
#include <unordered_set>
#include <utility>

namespace tv::dwg {
namespace {

constexpr const wchar_t* kNewer = L"ACLYDICTIONARY";
constexpr const wchar_t* kOlder = L"ACAD_LAYERFILTERS";
constexpr const wchar_t* kProperties = L"AcLyLayerFilter";
constexpr const wchar_t* kGroup = L"AcLyLayerGroup";
constexpr int kClass = 1;
constexpr int kName = 300;
constexpr int kExpression = 301;
constexpr int kMember = 330;
constexpr int kMark = 290;
constexpr int kStates = 70;

OdDbDictionaryPtr below(const OdDbObject& object, const wchar_t* name) {
    const auto extension = object.extensionDictionary().open<OdDbDictionary>();
    return extension ? extension->getAt(name).open<OdDbDictionary>(OdDb::kForWrite) : nullptr;
}

// The dictionary of that name in the object's extension dictionary, made when it isn't there.
OdDbDictionaryPtr madeBelow(OdDbObject& object, const wchar_t* name) {
    if (object.createExtensionDictionary() != Tavo::eOk) return nullptr;
    const OdDbObjectId extension = object.extensionDictionary();
    if (const auto known = below(object, name)) return known;
    return addDictionaryAt(extension, name, true).open<OdDbDictionary>(OdDb::kForWrite);
}

bool isFilterClass(const OdString& name) { return name == kProperties || name == kGroup; }

// One filter's own data, nothing for another record.
bool read(const OdDbXrecord& record, LayerFilter& out) {
    const OdResBufPtr chain = record.rbChain();
    // Some have a mark in front.
    const OdResBuf* first = chain.get();
    if (first && first->restype() == kMark) first = first->next().get();
    if (!first || first->restype() != kClass || !isFilterClass(first->getString())) return false;
    out.record = record.objectId();
    out.kind = first->getString() == kGroup ? LayerFilter::kGroup : LayerFilter::kProperties;
    for (const OdResBuf* buffer = first; buffer; buffer = buffer->next().get()) {
        if (buffer->restype() == kName) out.name = buffer->getString();
        if (buffer->restype() == kExpression) out.expression = buffer->getString();
        if (buffer->restype() != kMember || out.kind != LayerFilter::kGroup) continue;
        const OdDbObjectId layer = record.database()->getOdDbObjectId(buffer->getHandle());
        if (layer.open<OdDbLayerTableRecord>())
            out.layers.push_back(layer);
        else
            ++out.missingLayers;
    }
    return true;
}

// The order of the texts of an older one.
std::vector<OdString*> texts(LayerFilter& filter) {
    LayerFilter::Patterns& p = filter.patterns;
    return {&filter.name, &p.name, &p.color, &p.linetype, &p.lineWeight, &p.plotStyle};
}

void readOlder(const OdDbXrecord& record, LayerFilter& out) {
    out.record = record.objectId();
    out.kind = LayerFilter::kOld;
    const std::vector<OdString*> places = texts(out);
    auto place = places.begin();
    const OdResBufPtr chain = record.rbChain();
    for (const OdResBuf* buffer = chain.get(); buffer; buffer = buffer->next().get()) {
        if (buffer->restype() == kClass && place != places.end()) **place++ = buffer->getString();
        if (buffer->restype() == kStates) out.patterns.states = buffer->getInt32();
    }
}

// A filter is met once: dictionaries that name each other must not keep the walk going.
void readAll(const OdDbDictionary& dictionary, int depth, std::unordered_set<OdDbObjectId>& seen,
             std::vector<LayerFilter>& out) {
    for (auto walk = dictionary.newIterator(); !walk->done(); walk->next()) {
        const auto record = walk->objectId().open<OdDbXrecord>();
        LayerFilter filter;
        if (!record || !seen.insert(walk->objectId()).second || !read(*record, filter)) continue;
        const auto nested = depth < kDeepestLayerFilter ? below(*record, kNewer) : nullptr;
        if (nested) readAll(*nested, depth + 1, seen, filter.nested);
        out.push_back(std::move(filter));
    }
}

class Chain {
  public:
    void add(int code, Value value) {
        m_last->setNext(OdResBuf::newRb(code, std::move(value)));
        m_last = m_last->next().get();
    }
    const OdResBuf* first() const { return m_head.next().get(); }

  private:
    OdResBuf m_head;
    OdResBuf* m_last = &m_head;
};

void addConditions(Chain& chain, const LayerFilter& filter) {
    if (filter.kind == LayerFilter::kProperties) chain.add(kExpression, filter.expression);
    for (const OdDbObjectId layer : filter.layers)
        if (filter.kind == LayerFilter::kGroup && !layer.handle().isNull()) chain.add(kMember, layer.handle());
}

void olderChain(Chain& chain, LayerFilter filter) {
    const std::vector<OdString*> places = texts(filter);
    for (std::size_t i = 0; i < places.size(); ++i) {
        if (i == 4) chain.add(kStates, std::int64_t{filter.patterns.states});
        chain.add(kClass, *places[i]);
    }
}

Tavo::ErrorStatus require(OdDbDatabase& database, const LayerFilter& filter) {
    return database.require(filter.kind == LayerFilter::kOld ? OdDb::Feature::kDictionaries
                                                             : OdDb::Feature::kLayerFilters);
}

bool good(const OdDbDatabase& database, const LayerFilter& filter, int depth) {
    if (filter.name.isEmpty() || depth > kDeepestLayerFilter) return false;
    if (depth > 0 && filter.kind == LayerFilter::kOld) return false;
    if (filter.kind == LayerFilter::kOld && !filter.nested.empty()) return false;
    for (const OdDbObjectId layer : filter.layers)
        if (layer.database() != &database || !layer.open<OdDbLayerTableRecord>()) return false;
    return std::all_of(filter.nested.begin(), filter.nested.end(),
                       [&](const LayerFilter& below) { return good(database, below, depth + 1); });
}

OdDbObjectId add(OdDbObject& parent, const LayerFilter& filter) {
    const auto names = madeBelow(parent, kNewer);
    if (!names) return {};
    Chain chain;
    chain.add(kClass, OdString(filter.kind == LayerFilter::kGroup ? kGroup : kProperties));
    chain.add(90, std::int64_t{1});
    chain.add(kName, filter.name);
    addConditions(chain, filter);
    // The entries' own names mean nothing.
    std::size_t number = names->numEntries() + 1;
    std::wstring entry;
    while (names->has(entry = L"*A" + std::to_wstring(number)))
        ++number;
    const OdDbObjectId id = addXrecord(names->objectId(), entry, chain.first());
    const OdDbObjectPtr made = id.openObject(OdDb::kForWrite);
    for (const LayerFilter& nested : filter.nested)
        if (made) add(*made, nested);
    return id;
}

// The dictionary that names the record.
OdDbDictionaryPtr dictionaryOf(OdDbObjectId record) {
    const OdDbObjectPtr opened = record.openObject();
    return opened ? opened->ownerId().open<OdDbDictionary>(OdDb::kForWrite) : nullptr;
}

} // namespace

std::vector<LayerFilter> layerFilters(const OdDbDatabase& database) {
    std::vector<LayerFilter> out;
    const auto layers = database.layers();
    if (!layers) return out;
    std::unordered_set<OdDbObjectId> seen;
    if (const auto newer = below(*layers, kNewer)) readAll(*newer, 0, seen, out);
    if (const auto older = below(*layers, kOlder))
        for (auto walk = older->newIterator(); !walk->done(); walk->next())
            if (const auto record = walk->objectId().open<OdDbXrecord>())
                readOlder(*record, out.emplace_back());
    return out;
}

OdDbObjectId addLayerFilter(OdDbDatabase& database, const LayerFilter& filter, OdDbObjectId parent) {
    if (require(database, filter) != Tavo::eOk) return {};
    if (!good(database, filter, parent.isNull() ? 0 : 1)) return {};
    const auto layers = database.layers(OdDb::kForWrite);
    if (!layers) return {};
    const OdDbUndoScope step(database, L"LAYER");
    if (filter.kind == LayerFilter::kOld) {
        const auto names = madeBelow(*layers, kOlder);
        Chain chain;
        olderChain(chain, filter);
        return names ? addXrecord(names->objectId(), filter.name.view(), chain.first()) : OdDbObjectId();
    }
    if (parent.isNull()) return add(*layers, filter);
    LayerFilter above;
    const auto record = parent.open<OdDbXrecord>(OdDb::kForWrite);
    return record && parent.database() == &database && read(*record, above) ? add(*record, filter)
                                                                            : OdDbObjectId();
}

Tavo::ErrorStatus changeLayerFilter(const LayerFilter& filter) {
    const auto record = filter.record.open<OdDbXrecord>(OdDb::kForWrite);
    if (!record || filter.name.isEmpty()) return Tavo::eInvalidInput;
    const OdDbUndoScope step(*record->database(), L"LAYER");
    Chain chain;
    if (filter.kind == LayerFilter::kOld) {
        const auto names = dictionaryOf(filter.record);
        if (!names || names->nameAt(filter.record).isEmpty()) return Tavo::eInvalidInput;
        olderChain(chain, filter);
        const auto status = names->setName(names->nameAt(filter.record).view(), filter.name.view());
        return status == Tavo::eOk ? record->setFromRbChain(chain.first()) : status;
    }
    LayerFilter before;
    if (!read(*record, before) || before.kind != filter.kind || !good(*record->database(), filter, 0))
        return Tavo::eInvalidInput;
    // Name and conditions take the place of the old ones, everything else stays where it is.
    bool written = before.kind == LayerFilter::kGroup && before.layers == filter.layers;
    const bool sameLayers = written;
    const OdResBufPtr old = record->rbChain();
    const auto isCondition = [&](int code) {
        return code == (filter.kind == LayerFilter::kGroup ? kMember : kExpression);
    };
    for (const OdResBuf* buffer = old.get(); buffer; buffer = buffer->next().get()) {
        if (buffer->restype() == kName) {
            chain.add(kName, filter.name);
        } else if (sameLayers || !isCondition(buffer->restype())) {
            chain.add(buffer->restype(), buffer->value());
        } else if (!std::exchange(written, true)) {
            addConditions(chain, filter);
        }
    }
    if (!written) addConditions(chain, filter);
    return record->setFromRbChain(chain.first());
}

Tavo::ErrorStatus removeLayerFilter(OdDbObjectId filter) {
    const auto names = dictionaryOf(filter);
    const OdString name = names ? names->nameAt(filter) : OdString();
    if (name.isEmpty() || !filter.open<OdDbXrecord>()) return Tavo::eInvalidInput;
    return names->eraseEntry(name.view());
}

} // namespace tv::dwg
