#include "tavocad/scene/SceneBuilder.h"

#include "platform/drawing/EntityGeometry.h"
#include "platform/drawing/ExternalReferences.h"
#include "platform/drawing/OdDbBlockTable.h"
#include "platform/drawing/OdDbDatabase.h"
#include "platform/drawing/OdDbEntity.h"
#include "platform/drawing/dxf/RecordStore.h"
#include "platform/text/Unicode.h"
#include "tavocad/scene/Draw.h"
#include "tavocad/scene/DrawingTables.h"
#include "tavocad/scene/Pen.h"
#include "tavocad/scene/QuickDecode.h"

#include <algorithm>
#include <memory>
#include <string>
#include <unordered_map>
#include <utility>

namespace tv::scene {
namespace {

using namespace tv::dwg;

constexpr std::size_t mostKept = 200'000; // decoded entities of blocks
constexpr int mostDepth = 64;             // of blocks inside of each other
constexpr int mostCells = 10'000;         // of one array insert

// Blocks inside of blocks make more of a small file than anybody can wait for. What is drawn of them is work;
// one unit of it takes about a ten-millionth of a second, or eight bytes.
constexpr std::size_t workAnyway = 8'000'000; // for any drawing
constexpr std::size_t workPerRecord = 30;     // more for each record read, of the drawings referred to as well
constexpr std::size_t decodingWork = 5, textWork = 10, layoutWork = 30;

std::size_t lookingWork(const EntityGeometry& geometry) {
    if (const auto* text = std::get_if<MTextGeometry>(&geometry)) {
        const std::size_t length = text->contents.view().size();
        return layoutWork + length / 2;
    }
    if (const auto* note = std::get_if<NoteGeometry>(&geometry); note && note->text)
        return layoutWork + note->text->contents.view().size() / 2;
    return std::holds_alternative<HatchGeometry>(geometry) ? layoutWork : 1;
}

// An entity as it is drawn again and again, wherever its block is inserted.
struct Decoded {
    OdDbObjectId id;
    EntityHead head;
    std::uint32_t layer = 0, linetype = 0;
    EntityGeometry geometry;
};

struct Source;

struct Block {
    OdGePoint3d base;
    OdDbEntityRange entities;
    std::vector<Decoded> decoded; // when `kept`
    Source* source = nullptr;     // what the entities are in
    bool known = false;           // the drawing has it
    bool kept = false;
    bool open = false; // being drawn: an insert of itself is passed over
};

// The drawing or one it refers to.
struct Source {
    Source(const OdDbDatabase& from, ExternalReferences* below, DrawingTables known, std::wstring before,
           Pen& pen)
        : database(from), references(below), tables(std::move(known)), names(from, tables),
          prefix(std::move(before)), draw(from, pen),
          blockTable(from.getBlockTableId().open<OdDbBlockTable>()) {}

    const OdDbDatabase& database;
    ExternalReferences* references; // null when none are followed
    DrawingTables tables;           // in the scene's numbers
    RawNames names;
    std::wstring prefix; // of its names in the drawings above; empty for the drawing itself
    Drawer draw;
    std::shared_ptr<OdDbBlockTable> blockTable;
    std::unordered_map<std::wstring, Block> blocks;
};

// What an insert hands down to the entities of its block.
struct Place {
    Transform transform;
    StyleSource insert; // for what is by block, and in the place of layer 0
    bool nested = false;
    bool dimension = false; // directly in a dimension's picture
};

class Builder {
  public:
    Builder(const OdDbDatabase& database, ExternalReferences* references) : m_pen(m_scene) {
        m_scene.database = &const_cast<OdDbDatabase&>(database);
        m_source = addSource(database, references, readTables(database, m_scene.styles), {});
        const auto number = [&](std::wstring_view variable) {
            const auto value = database.headerVar(variable);
            const double found = value ? value->asReal().value_or(0) : 0;
            return isSomewhere(found) ? found : 0;
        };
        m_scene.pointShape = {static_cast<int>(std::clamp(number(L"PDMODE"), 0.0, 127.0)), number(L"PDSIZE")};
    }
    // To go on with a scene.
    Builder(const OdDbDatabase& database, ExternalReferences* references, Scene&& scene)
        : m_scene(std::move(scene)), m_pen(m_scene) {
        m_source = addSource(database, references, tablesOf(m_scene.styles), {});
    }

    Scene build(const OdDbEntityRange& entities) {
        std::vector<RecordId> records;
        for (const OdDbObjectId id : entities) {
            records.push_back(id.record());
            if (records.size() < mostEntities) continue;
            records.pop_back();
            ++m_scene.cut.entities;
        }
        drawAll(m_source->database.store(), records, m_source->names, m_scene, [this](RecordId record) {
            const auto first = static_cast<std::uint32_t>(m_scene.items.size());
            m_pen.setEntity(static_cast<std::uint32_t>(m_scene.entities.size()));
            addMain(record);
            const auto count = static_cast<std::uint32_t>(m_scene.items.size()) - first;
            if (count > 0) m_scene.entities.push_back({record, first, count});
        });
        m_scene.boundless = hasRays();
        for (const auto& source : m_sources)
            source->draw.drawRays();
        m_scene.finish();
        return std::move(m_scene);
    }

    // As that entity of the scene, or as a new one for `none`. False when it can't be drawn alone.
    bool redraw(RecordId record, std::uint32_t entity) {
        if (entity == none) entity = static_cast<std::uint32_t>(m_scene.entities.size());
        const auto first = static_cast<std::uint32_t>(m_scene.items.size());
        m_pen.setEntity(entity);
        addMain(record);
        const auto count = static_cast<std::uint32_t>(m_scene.items.size()) - first;
        if (entity < m_scene.entities.size())
            m_scene.entities[entity] = {record, first, count};
        else if (count > 0)
            m_scene.entities.push_back({record, first, count});
        for (std::uint32_t i = first; i < first + count; ++i) {
            const Box own = m_scene.boxOf(m_scene.items[i]);
            if (!own.isFinite()) continue;
            m_scene.loose.push_back(i);
            if (!m_scene.styleOf(m_scene.items[i]).shown) continue;
            m_scene.box.add(own);
            m_scene.extents.add(own);
        }
        return !hasRays() && m_scene.cut.inserts == 0;
    }
    Scene take() { return std::move(m_scene); }

  private:
    static std::wstring key(const OdString& name) { return tv::text::foldCase(name.view()); }

    Source* addSource(const OdDbDatabase& database, ExternalReferences* references, DrawingTables tables,
                      const std::wstring& prefix) {
        if (std::ranges::none_of(m_sources, [&](const auto& one) { return &one->database == &database; }))
            m_mostWork += workPerRecord * database.store().recordCount();
        m_sources.push_back(std::make_unique<Source>(database, references, std::move(tables), prefix, m_pen));
        return m_sources.back().get();
    }

    bool hasRays() const {
        return std::ranges::any_of(m_sources, [](const auto& source) { return source->draw.hasRays(); });
    }

    Block* blockOf(const OdString& name) {
        const auto [found, isNew] = m_source->blocks.try_emplace(key(name));
        if (isNew && m_source->blockTable) {
            const OdDbObjectId id = m_source->blockTable->getAt(name.view());
            if (const auto record = id.open<OdDbBlockTableRecord>()) {
                found->second = {record->origin(), record->entities(), {}, m_source, true, false, false};
                if (record->isFromExternalReference() && found->second.entities.empty())
                    findReferenced(*record, found->second);
            }
        }
        return &found->second;
    }

    // The model space of the drawing the block stands for, when it can be had.
    void findReferenced(const OdDbBlockTableRecord& record, Block& block) {
        const bool nested = m_source != m_sources.front().get();
        if (!m_source->references || (nested && record.isFromOverlayReference())) return;
        const auto below = m_source->references->below(record.objectId());
        if (!below) return;
        const OdDbDatabase& drawing = below->drawing();
        const std::wstring prefix = record.getName().wstr() + L"|";
        block.source = addSource(drawing, below.get(), dependentTables(drawing, prefix), prefix);
        block.entities = drawing.modelSpace();
        if (const auto base = drawing.headerVar(L"INSBASE"))
            if (const auto point = base->asPoint()) block.base = *point;
    }

    // The layers and linetypes of a drawing referred to, in the scene's numbers: "plan|Walls" is what the first
    // drawing says of the layer "Walls" in "plan" or, when it has no record of that, what "plan" says itself.
    DrawingTables dependentTables(const OdDbDatabase& drawing, const std::wstring& prefix) {
        StyleTable own;
        readTables(drawing, own);
        DrawingTables tables, &all = m_sources.front()->tables;
        std::vector<std::uint32_t> linetypes{0};
        for (std::size_t i = 1; i < own.linetypes().size(); ++i) {
            Linetype linetype = own.linetypes()[i];
            std::uint32_t number = 0;
            const std::wstring name = tv::text::foldCase(linetype.name);
            if (!linetype.dashes.empty()) {
                linetype.name = dependentName(prefix, linetype.name);
                const auto [found, isNew] =
                    all.linetypes.try_emplace(tv::text::foldCase(linetype.name),
                                              static_cast<std::uint32_t>(m_scene.styles.linetypes().size()));
                if (isNew) m_scene.styles.addLinetype(std::move(linetype));
                number = found->second;
            }
            linetypes.push_back(number);
            tables.linetypes.try_emplace(name, number);
        }
        tables.layers[L"0"] = 0;
        for (std::size_t i = 1; i < own.layers().size(); ++i) {
            LayerState layer = own.layers()[i];
            const std::wstring name = tv::text::foldCase(layer.name);
            layer.name = dependentName(prefix, layer.name);
            const auto [found, isNew] = all.layers.try_emplace(
                tv::text::foldCase(layer.name), static_cast<std::uint32_t>(m_scene.styles.layers().size()));
            tables.layers.try_emplace(name, found->second);
            if (!isNew) continue;
            layer.recorded = false;
            layer.linetype = linetypes[layer.linetype];
            m_scene.styles.addLayer(std::move(layer));
        }
        return tables;
    }

    // What already comes from a reference keeps its name in the drawings above.
    static std::wstring dependentName(const std::wstring& prefix, const std::wstring& name) {
        return name.find(L'|') == std::wstring::npos ? prefix + name : name;
    }

    std::uint32_t layerNamed(std::wstring_view name) {
        DrawingTables& tables = m_source->tables;
        if (m_source->prefix.empty()) return tables.layer(name, m_scene.styles);
        const auto [found, isNew] = tables.layers.try_emplace(tv::text::foldCase(name), 0);
        if (isNew)
            found->second = m_sources.front()->tables.layer(dependentName(m_source->prefix, std::wstring(name)),
                                                            m_scene.styles);
        return found->second;
    }

    Decoded decode(OdDbObjectId id) {
        const RecordStore& store = m_source->database.store();
        const DxfFormat& format = store.format();
        Decoded out{id, headOf(format, store.text(id.record())), 0, 0, {}};
        if (out.head.invisible) return out;
        out.layer = m_source->names.layer(out.head.layer);
        if (out.layer == none) out.layer = layerNamed(decodeText(format, out.head.layer).view());
        if (linetypeBy(out.head) == ByWhom::itself)
            out.linetype = m_source->tables.linetype(decodeText(format, trimmed(out.head.linetype)).view());
        if (store.typeName(id.record()) != "ATTDEF") out.geometry = geometryOf(id);
        return out;
    }

    // Whether there was too much to draw. Who asks leaves something out then.
    bool spent() {
        if (m_work < m_mostWork) return false;
        m_short = true;
        return true;
    }

    // One of the entities that the scene is made of: never left out itself.
    void addMain(RecordId record) {
        const Decoded entity = decode({m_scene.database, record});
        m_short = false;
        add(entity, Place{});
        if (!m_short || m_scene.cut.inserts++ > 0) return;
        if (const auto* insert = std::get_if<InsertGeometry>(&entity.geometry))
            m_scene.cut.block = insert->block.wstr();
        else if (const auto* dimension = std::get_if<DimensionGeometry>(&entity.geometry))
            m_scene.cut.block = dimension->block.wstr();
    }

    void add(const Decoded& entity, const Place& place) {
        ++m_work;
        if ((place.nested && spent()) || entity.head.invisible) return;
        if (place.dimension && isDefinitionPoint(entity)) return;
        const std::uint32_t layer = place.nested && entity.layer == 0 ? place.insert.layer : entity.layer;
        const StyleSource style = sourceOf(entity.head, layer, entity.linetype, place.insert);
        if (const auto* insert = std::get_if<InsertGeometry>(&entity.geometry)) {
            addInsert(entity.id, *insert, place, style);
            return;
        }
        if (const auto* dimension = std::get_if<DimensionGeometry>(&entity.geometry);
            dimension && blockOf(dimension->block)->known) {
            InsertGeometry picture;
            picture.block = dimension->block;
            addInsert(entity.id, picture, place, style, true);
            return;
        }
        const std::size_t items = m_scene.items.size(), points = m_scene.points.size(),
                          texts = m_scene.texts.size();
        m_pen.set(place.transform, m_scene.styles.intern(style));
        m_source->draw.draw(entity.geometry, style);
        if (m_scene.items.size() > items) ++m_scene.drawn;
        if (place.nested)
            m_work += lookingWork(entity.geometry) + (m_scene.points.size() - points) / 2 +
                      (m_scene.texts.size() - texts) * textWork;
    }

    // Points that say what a dimension measures are no part of its picture, wherever they lie.
    bool isDefinitionPoint(const Decoded& entity) const {
        if (!std::holds_alternative<PointGeometry>(entity.geometry)) return false;
        const std::wstring_view layer = m_scene.styles.layers()[entity.layer].name;
        return tv::text::foldCase(layer.substr(layer.rfind(L'|') + 1)) == m_definitionPoints;
    }

    void addInsert(OdDbObjectId id, const InsertGeometry& insert, const Place& place, const StyleSource& style,
                   bool dimension = false) {
        Block& block = *blockOf(insert.block);
        if (!block.open && m_depth < mostDepth) {
            block.open = true;
            ++m_depth;
            const int columns = std::clamp(insert.columns, 1, mostCells);
            const int rows = std::clamp(insert.rows, 1, mostCells / columns);
            Place inner;
            inner.insert = style;
            inner.insert.gate = m_scene.styles.gate(style.layer, style.gate);
            inner.nested = true;
            inner.dimension = dimension;
            for (int row = 0; row < rows; ++row)
                for (int column = 0; column < columns && !spent(); ++column) {
                    ++m_work;
                    inner.transform = place.transform * placementOf(insert, block.base, column, row);
                    addContent(block, inner);
                }
            block.open = false;
            --m_depth;
        }
        if (place.nested && spent()) return;
        for (const OdDbObjectId attribute : subEntities(id)) {
            m_work += decodingWork;
            add(decode(attribute), place);
        }
    }

    void addContent(Block& block, const Place& place) {
        Source* const outer = std::exchange(m_source, block.source ? block.source : m_source);
        addEntities(block, place);
        m_source = outer;
    }

    void addEntities(Block& block, const Place& place) {
        if (block.kept) {
            for (const Decoded& entity : block.decoded)
                add(entity, place);
            return;
        }
        for (const OdDbObjectId id : block.entities) {
            if (spent()) return;
            if (m_kept >= mostKept) {
                m_work += decodingWork;
                add(decode(id), place);
                continue;
            }
            block.decoded.push_back(decode(id));
            ++m_kept;
            add(block.decoded.back(), place);
        }
        block.kept = m_kept < mostKept;
        if (!block.kept) block.decoded.clear();
    }

    Scene m_scene;
    Pen m_pen;
    std::size_t m_kept = 0;
    std::size_t m_work = 0, m_mostWork = workAnyway;
    bool m_short = false; // something of the main entity drawn last was left out
    int m_depth = 0;
    const std::wstring m_definitionPoints = tv::text::foldCase(L"Defpoints");
    std::vector<std::unique_ptr<Source>> m_sources; // the drawing itself first
    Source* m_source = nullptr;                     // what is drawn comes from
};

} // namespace

Scene buildScene(const OdDbDatabase& database, ExternalReferences* references) {
    return buildScene(database, database.modelSpace(), references);
}

Scene buildScene(const OdDbDatabase& database, const OdDbEntityRange& entities,
                 ExternalReferences* references) {
    return Builder(database, references).build(entities);
}

bool redraw(Scene& scene, const OdDbDatabase& database, std::span<const Redrawn> entities,
            ExternalReferences* references) {
    Builder builder(database, references, std::move(scene));
    const bool done = std::ranges::all_of(
        entities, [&](const Redrawn& one) { return builder.redraw(one.record, one.entity); });
    scene = builder.take();
    return done;
}

} // namespace tv::scene
