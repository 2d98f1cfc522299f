#include "tavocad/scene/SceneBuilder.h"

#include "platform/drawing/EntityGeometry.h"
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
#include <string>
#include <unordered_map>

namespace tv::scene {
namespace {

using namespace tv::dwg;

constexpr std::size_t mostKept = 200'000;     // decoded entities of blocks
constexpr std::size_t mostSteps = 10'000'000; // entities and cells looked at, drawn or not
constexpr int mostDepth = 64;                 // of blocks inside of each other
constexpr int mostCells = 10'000;             // of one array insert

// An entity as it is drawn again and again, wherever its block is inserted.
struct Decoded {
    OdDbObjectId id;
    EntityHead head;
    std::uint32_t layer = 0, linetype = 0;
    EntityGeometry geometry;
};

struct Block {
    OdGePoint3d base;
    OdDbEntityRange entities;
    std::vector<Decoded> decoded; // when `kept`
    bool known = false;           // the drawing has it
    bool kept = false;
    bool open = false; // being drawn: an insert of itself is passed over
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
    explicit Builder(const OdDbDatabase& database)
        : m_database(database), m_tables(readTables(database, m_scene.styles)), m_names(database, m_tables),
          m_pen(m_scene), m_draw(database, m_pen) {
        m_scene.database = &const_cast<OdDbDatabase&>(database);
        m_blockTable = database.getBlockTableId().open<OdDbBlockTable>();
    }
    // To go on with a scene.
    Builder(const OdDbDatabase& database, Scene&& scene)
        : m_database(database), m_scene(std::move(scene)), m_tables(tablesOf(m_scene.styles)),
          m_names(database, m_tables), m_pen(m_scene), m_draw(database, m_pen) {
        m_blockTable = database.getBlockTableId().open<OdDbBlockTable>();
    }

    Scene build(const OdDbEntityRange& entities) {
        std::vector<RecordId> records;
        for (const OdDbObjectId id : entities) {
            records.push_back(id.record());
            if (records.size() >= mostEntities) break;
        }
        drawAll(m_database.store(), records, m_names, m_scene, [this](RecordId record) {
            const auto first = static_cast<std::uint32_t>(m_scene.items.size());
            m_pen.setEntity(static_cast<std::uint32_t>(m_scene.entities.size()));
            add(decode({m_scene.database, record}), Place{});
            const auto count = static_cast<std::uint32_t>(m_scene.items.size()) - first;
            if (count > 0) m_scene.entities.push_back({record, first, count});
        });
        m_scene.boundless = m_draw.hasRays();
        m_draw.drawRays();
        m_scene.finish();
        return std::move(m_scene);
    }

    // As that entity of the scene, or as a new one for `none`. False when it can't be drawn alone.
    bool redraw(RecordId record, std::uint32_t entity) {
        if (entity == none) entity = static_cast<std::uint32_t>(m_scene.entities.size());
        const auto first = static_cast<std::uint32_t>(m_scene.items.size());
        m_pen.setEntity(entity);
        add(decode({m_scene.database, record}), Place{});
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
        return !m_draw.hasRays() && !spent();
    }
    Scene take() { return std::move(m_scene); }

  private:
    static std::wstring key(const OdString& name) { return tv::text::foldCase(name.view()); }

    Block* blockOf(const OdString& name) {
        const auto [found, isNew] = m_blocks.try_emplace(key(name));
        if (isNew && m_blockTable) {
            if (const auto record = m_blockTable->getAt(name.view()).open<OdDbBlockTableRecord>())
                found->second = {record->origin(), record->entities(), {}, true, false, false};
        }
        return &found->second;
    }

    Decoded decode(OdDbObjectId id) {
        const RecordStore& store = m_database.store();
        const DxfFormat& format = store.format();
        Decoded out{id, headOf(format, store.text(id.record())), 0, 0, {}};
        if (out.head.invisible) return out;
        out.layer = m_names.layer(out.head.layer);
        if (out.layer == none)
            out.layer = m_tables.layer(decodeText(format, out.head.layer).view(), m_scene.styles);
        if (linetypeBy(out.head) == ByWhom::itself)
            out.linetype = m_tables.linetype(decodeText(format, trimmed(out.head.linetype)).view());
        if (store.typeName(id.record()) != "ATTDEF") out.geometry = geometryOf(id);
        return out;
    }

    bool spent() { return m_scene.drawn >= mostEntities || ++m_steps >= mostSteps; }

    void add(const Decoded& entity, const Place& place) {
        if (spent() || entity.head.invisible) return;
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
        const std::size_t before = m_scene.items.size();
        m_pen.set(place.transform, m_scene.styles.intern(style));
        m_draw.draw(entity.geometry, style);
        if (m_scene.items.size() > before) ++m_scene.drawn;
    }

    // Points that say what a dimension measures are no part of its picture, wherever they lie.
    bool isDefinitionPoint(const Decoded& entity) const {
        return std::holds_alternative<PointGeometry>(entity.geometry) &&
               tv::text::foldCase(m_scene.styles.layers()[entity.layer].name) == m_definitionPoints;
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
                    inner.transform = place.transform * placementOf(insert, block.base, column, row);
                    addContent(block, inner);
                }
            block.open = false;
            --m_depth;
        }
        for (const OdDbObjectId attribute : subEntities(id))
            add(decode(attribute), place);
    }

    void addContent(Block& block, const Place& place) {
        if (block.kept) {
            for (const Decoded& entity : block.decoded)
                add(entity, place);
            return;
        }
        for (const OdDbObjectId id : block.entities) {
            if (spent()) return;
            if (m_kept >= mostKept) {
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

    const OdDbDatabase& m_database;
    Scene m_scene;
    DrawingTables m_tables;
    RawNames m_names;
    Pen m_pen;
    Drawer m_draw;
    std::size_t m_kept = 0, m_steps = 0;
    int m_depth = 0;
    const std::wstring m_definitionPoints = tv::text::foldCase(L"Defpoints");
    std::shared_ptr<OdDbBlockTable> m_blockTable;
    std::unordered_map<std::wstring, Block> m_blocks;
};

} // namespace

Scene buildScene(const OdDbDatabase& database) { return buildScene(database, database.modelSpace()); }

Scene buildScene(const OdDbDatabase& database, const OdDbEntityRange& entities) {
    return Builder(database).build(entities);
}

bool redraw(Scene& scene, const OdDbDatabase& database, std::span<const Redrawn> entities) {
    Builder builder(database, std::move(scene));
    const bool done = std::ranges::all_of(
        entities, [&](const Redrawn& one) { return builder.redraw(one.record, one.entity); });
    scene = builder.take();
    return done;
}

} // namespace tv::scene
