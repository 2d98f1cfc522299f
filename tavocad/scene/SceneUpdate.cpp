#include "tavocad/scene/SceneUpdate.h"

#include "platform/drawing/OdDbDatabase.h"
#include "platform/drawing/dxf/RecordStore.h"
#include "platform/text/Unicode.h"
#include "tavocad/scene/DrawingTables.h"
#include "tavocad/scene/SceneBuilder.h"

#include <algorithm>
#include <string_view>
#include <unordered_map>

namespace tv::scene {
namespace {

using namespace tv::dwg;

constexpr std::size_t mostEntitiesChanged = 1000; // more are drawn faster with all others
constexpr std::size_t mostLoose = 20'000;         // items every query has to go through
constexpr int mostSteps = 10'000;                 // from one record to another it belongs to

bool isOneOf(std::string_view name, std::initializer_list<std::string_view> names) {
    return std::ranges::find(names, name) != names.end();
}

bool isOfModel(const Record& record) {
    return record.section == Section::kEntities &&
           (record.flags & (kErased | kStructure | kSubEntity | kPaperSpace)) == 0;
}

// The layers as they are now, in the numbers the scene has for them. False when one has gone.
bool updateLayers(Scene& scene, const OdDbDatabase& database) {
    StyleTable now;
    readTables(database, now);
    std::vector<LayerState> layers = scene.styles.layers();
    DrawingTables names = tablesOf(scene.styles);
    for (LayerState& layer : layers)
        layer.recorded = false;
    for (const LayerState& layer : now.layers()) {
        const auto [found, isNew] =
            names.layers.try_emplace(tv::text::foldCase(layer.name), static_cast<std::uint32_t>(layers.size()));
        if (isNew)
            layers.push_back(layer);
        else
            layers[found->second] = layer;
    }
    for (std::size_t i = 0; i < scene.styles.layers().size(); ++i)
        if (scene.styles.layers()[i].recorded && !layers[i].recorded) return false;
    scene.styles.setLayers(std::move(layers));
    scene.measure();
    return true;
}

// Those entities of model space that the scene does not have, in the order they are in. False when one of them
// does not stand behind all that the scene has.
bool appended(const Scene& scene, const RecordStore& store, std::vector<RecordId>& records) {
    if (records.empty()) return true;
    RecordId last = kNoRecord;
    for (auto entity = scene.entities.rbegin(); entity != scene.entities.rend(); ++entity)
        if (!store.isErased(entity->record)) {
            last = entity->record;
            break;
        }
    const RecordId end = store.endOfSection(store.section(Section::kEntities));
    if (end == kNoRecord) return false;
    std::ranges::sort(records);
    std::vector<RecordId> found;
    RecordId at = store.prev(end);
    for (int i = 0; i < mostSteps && at != last && at != RecordStore::kHead && at != kNoRecord; ++i) {
        if (std::ranges::binary_search(records, at)) found.push_back(at);
        if (found.size() == records.size()) break;
        at = store.prev(at);
    }
    if (found.size() != records.size()) return false;
    records.assign(found.rbegin(), found.rend());
    return true;
}

// Takes everything of the entities off the scene. Answers whether its box may have become smaller.
bool takeOff(Scene& scene, const std::vector<Redrawn>& entities) {
    bool smaller = false;
    StyleSource nothing;
    nothing.gate = StyleTable::shut;
    const std::uint32_t gone = scene.styles.intern(nothing);
    for (const Redrawn& one : entities) {
        Entity& entity = scene.entities[one.entity];
        for (std::uint32_t i = entity.firstItem; i < entity.firstItem + entity.itemCount; ++i) {
            Item& item = scene.items[i];
            if (scene.styleOf(item).shown) {
                const Box own = scene.boxOf(item), &all = scene.box;
                smaller = smaller || !(own.left > all.left && own.right < all.right &&
                                       own.bottom > all.bottom && own.top < all.top);
            }
            item.style = gone;
        }
        entity.firstItem = entity.itemCount = 0;
    }
    std::erase_if(scene.loose, [&](std::uint32_t item) { return scene.items[item].style == gone; });
    return smaller;
}

bool updateEntities(Scene& scene, const OdDbDatabase& database, const std::vector<RecordId>& changed,
                    ExternalReferences* references) {
    const RecordStore& store = database.store();
    std::vector<bool> wanted(store.recordCount());
    for (const RecordId record : changed)
        wanted[record] = true;
    std::vector<Redrawn> known;
    for (std::uint32_t i = 0; i < scene.entities.size(); ++i)
        if (const RecordId record = scene.entities[i].record; wanted[record]) {
            known.push_back({record, i});
            wanted[record] = false;
        }
    std::vector<RecordId> fresh;
    for (const RecordId record : changed)
        if (wanted[record] && isOfModel(store.record(record))) {
            fresh.push_back(record);
            wanted[record] = false;
        }
    if (!appended(scene, store, fresh)) return false;
    const bool smaller = takeOff(scene, known);
    std::erase_if(known, [&](const Redrawn& one) { return !isOfModel(store.record(one.record)); });
    for (const RecordId record : fresh)
        known.push_back({record, none});
    if (!known.empty() && !redraw(scene, database, known, references)) return false;
    if (smaller) scene.measure();
    return true;
}

} // namespace

void Changes::note(const OdDbDatabase& database, OdDbObjectId id, How how) {
    if (m_everything) return;
    const RecordStore& store = database.store();
    const Record& record = store.record(id.record());
    const std::string_view type = store.typeName(id.record());
    switch (record.section) {
    case Section::kEntities:
        noteEntity(database, id.record());
        break;
    case Section::kTables:
        if (type == "LAYER" && how != How::erased)
            m_layers = true;
        else if (isOneOf(type, {"APPID", "VIEW", "VPORT", "UCS", "DIMSTYLE"}) ||
                 (isOneOf(type, {"TABLE", "ENDTAB"}) && how == How::modified))
            m_sheets = true;
        else
            noteEverything();
        break;
    case Section::kObjects: // others say what pictures, multilines and the like look like
        if (isOneOf(type, {"DICTIONARY", "ACDBDICTIONARYWDFLT", "ACDBPLACEHOLDER", "DICTIONARYVAR", "GROUP",
                           "LAYOUT", "PLOTSETTINGS", "SCALE", "XRECORD"}))
            m_sheets = true;
        else
            noteEverything();
        break;
    default:
        noteEverything();
    }
}

void Changes::noteEverything() {
    m_everything = true;
    m_entities.clear();
}

// A vertex or attribute is part of what stands before it, also when it has just gone.
void Changes::noteEntity(const OdDbDatabase& database, RecordId record) {
    const RecordStore& store = database.store();
    int steps = 0;
    while (record != kNoRecord && (store.record(record).flags & kSubEntity) && ++steps < mostSteps)
        record = store.prev(record);
    if (record == kNoRecord || steps >= mostSteps || m_entities.size() >= mostEntitiesChanged)
        return noteEverything();
    if (m_entities.empty() || m_entities.back() != record) m_entities.push_back(record);
}

bool update(Scene& scene, const OdDbDatabase& database, const Changes& changes,
            ExternalReferences* references) {
    if (changes.everything()) return false;
    if (changes.layers() && !updateLayers(scene, database)) return false;
    if (changes.entities().empty()) return true;
    return !scene.boundless && !scene.cut.any() && scene.loose.size() < mostLoose &&
           updateEntities(scene, database, changes.entities(), references);
}

} // namespace tv::scene
