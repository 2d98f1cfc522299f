#include "tavocad/scene/SceneBuilder.h"

#include "platform/drawing/EntityGeometry.h"
#include "platform/drawing/OdDbBlockTable.h"
#include "platform/drawing/OdDbDatabase.h"
#include "platform/drawing/OdDbEntity.h"
#include "platform/drawing/dxf/RecordStore.h"
#include "platform/text/Unicode.h"
#include "tavocad/scene/DrawingTables.h"
#include "tavocad/scene/Flatten.h"
#include "tavocad/scene/Pen.h"
#include "tavocad/scene/QuickDecode.h"
#include "tavocad/scene/WidePolyline.h"

#include <algorithm>
#include <cmath>
#include <numbers>
#include <string>
#include <unordered_map>

namespace tv::scene {
namespace {

using namespace tv::dwg;

constexpr double meanCharacterWidth = 0.85;   // of the height of capital letters; for breaking lines
constexpr double lineStep = 5.0 / 3;          // the usual distance of lines, in heights of capital letters
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
    bool kept = false;
    bool open = false; // being drawn: an insert of itself is passed over
};

// What an insert hands down to the entities of its block.
struct Place {
    Transform transform;
    StyleSource insert; // for what is by block, and in the place of layer 0
    bool nested = false;
};

class Builder {
  public:
    explicit Builder(const OdDbDatabase& database)
        : m_database(database), m_tables(readTables(database, m_scene.styles)), m_names(database, m_tables),
          m_pen(m_scene) {
        m_scene.database = &const_cast<OdDbDatabase&>(database);
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
        m_scene.finish();
        return std::move(m_scene);
    }

  private:
    static std::wstring key(const OdString& name) { return tv::text::foldCase(name.view()); }

    Block* blockOf(const OdString& name) {
        const auto [found, isNew] = m_blocks.try_emplace(key(name));
        if (isNew && m_blockTable) {
            if (const auto record = m_blockTable->getAt(name.view()).open<OdDbBlockTableRecord>())
                found->second = {record->origin(), record->entities(), {}, false, false};
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
        const std::uint32_t layer = place.nested && entity.layer == 0 ? place.insert.layer : entity.layer;
        const StyleSource style = sourceOf(entity.head, layer, entity.linetype, place.insert);
        if (const auto* insert = std::get_if<InsertGeometry>(&entity.geometry)) {
            addInsert(entity.id, *insert, place, style);
            return;
        }
        const std::size_t before = m_scene.items.size();
        m_pen.set(place.transform, m_scene.styles.intern(style));
        std::visit([this](const auto& g) { draw(g); }, entity.geometry);
        if (m_scene.items.size() > before) ++m_scene.drawn;
    }

    void addInsert(OdDbObjectId id, const InsertGeometry& insert, const Place& place,
                   const StyleSource& style) {
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

    // --- one kind of entity each; coordinates are those of the entity's space ---
    void draw(const std::monostate&) {}
    void draw(const LineGeometry& line) {
        const OdGePoint3d points[] = {line.start, line.end};
        m_pen.stroke(points);
    }
    void draw(const PointGeometry& point) { m_pen.mark(point.position); }
    void draw(const CircleGeometry& circle) {
        m_pen.arc(circle.center, {circle.radius, 0, 0}, {0, circle.radius, 0}, 0, 2 * std::numbers::pi,
                  planeToWorld(circle.normal));
    }
    void draw(const ArcGeometry& g) {
        m_pen.arc(g.center, {g.radius, 0, 0}, {0, g.radius, 0}, g.startAngle,
                  angleAfter(g.startAngle, g.endAngle), planeToWorld(g.normal));
    }
    void draw(const EllipseGeometry& g) {
        const double length = g.normal.length();
        if (length == 0) return;
        const OdGeVector3d n{g.normal.x / length, g.normal.y / length, g.normal.z / length};
        const OdGeVector3d& a = g.majorAxis;
        const OdGeVector3d minor{(n.y * a.z - n.z * a.y) * g.ratio, (n.z * a.x - n.x * a.z) * g.ratio,
                                 (n.x * a.y - n.y * a.x) * g.ratio};
        m_pen.arc(g.center, a, minor, g.startParameter, angleAfter(g.startParameter, g.endParameter));
    }
    void draw(const PolylineGeometry& line) {
        if (line.vertices.empty()) return;
        const Transform plane = line.is3d ? Transform{} : planeToWorld(line.normal);
        if (!line.is3d && hasWidth(line)) {
            const PolylineParts parts = partsOf(line);
            for (const auto& area : parts.areas)
                m_pen.area(area, plane);
            for (const auto& thin : parts.lines)
                m_pen.stroke(thin, plane);
            return;
        }
        std::vector<OdGePoint3d> points{line.vertices.front().position};
        const std::size_t count = line.vertices.size();
        for (std::size_t i = 1; i < count + (line.closed && count > 1); ++i) {
            const PolylineVertex& from = line.vertices[i - 1];
            flattenBulge(points, from.position, line.vertices[i % count].position, line.is3d ? 0 : from.bulge);
        }
        m_pen.stroke(points, plane);
    }
    void draw(const SolidGeometry& solid) { m_pen.area(solid.corners, planeToWorld(solid.normal)); }
    void draw(const InsertGeometry&) {}

    void draw(const TextGeometry& g) {
        if (g.invisible) return;
        Text text;
        // 0 left, 1 center, 2 right; 3 aligned, 4 middle and 5 fit have a rule of their own for the point.
        const bool centered = g.horizontal == 1 || g.horizontal == 4;
        const bool aligned = g.alignment && (centered || g.horizontal == 2 || g.vertical != 0);
        using Horizontal = Text::Horizontal;
        using Vertical = Text::Vertical;
        text.horizontal = centered            ? Horizontal::center
                          : g.horizontal == 2 ? Horizontal::right
                                              : Horizontal::left;
        if (aligned) {
            text.vertical = g.horizontal == 4 || g.vertical == 2 ? Vertical::middle
                            : g.vertical == 3                    ? Vertical::top
                            : g.vertical == 1                    ? Vertical::bottom
                                                                 : Vertical::baseline;
        }
        text.widthFactor = g.widthFactor;
        m_pen.text(text, g.text.view(), aligned ? *g.alignment : g.position, g.height, g.rotation,
                   planeToWorld(g.normal));
    }
    // Its point is the world's, only its direction lies in the plane.
    void draw(const MTextGeometry& g) {
        const std::wstring all =
            wrapped(g.plain.wstr(), g.height > 0 ? g.width / (g.height * meanCharacterWidth) : 0);
        const int cell = std::clamp(g.attachment, 1, 9) - 1;
        Text text;
        text.horizontal = static_cast<Text::Horizontal>(cell % 3);
        const double step = g.height * lineStep;
        const auto lines = static_cast<double>(std::count(all.begin(), all.end(), L'\n') + 1);
        double below = g.height; // the first line's baseline below the point
        if (cell >= 3) below = cell < 6 ? (g.height - (lines - 1) * step) / 2 : -(lines - 1) * step;
        const double c = std::cos(g.rotation), s = std::sin(g.rotation);
        for (std::size_t first = 0; first <= all.size(); below += step) {
            const std::size_t past = std::min(all.find(L'\n', first), all.size());
            const OdGePoint3d at{g.position.x + s * below, g.position.y - c * below, g.position.z};
            m_pen.text(text, std::wstring_view(all).substr(first, past - first), at, g.height, g.rotation);
            first = past + 1;
        }
    }

    // Breaks lines at blanks so that none is longer than `most` characters; no breaking when `most` is below 1.
    static std::wstring wrapped(const std::wstring& text, double most) {
        if (most < 1) return text;
        std::wstring out;
        std::size_t lineStart = 0, blank = std::wstring::npos;
        for (const wchar_t ch : text) {
            if (ch == L'\n') lineStart = out.size() + 1;
            if (ch == L' ') blank = out.size();
            out += ch;
            if (static_cast<double>(out.size() - lineStart) > most && blank != std::wstring::npos &&
                blank >= lineStart) {
                out[blank] = L'\n';
                lineStart = blank + 1;
            }
        }
        return out;
    }

    const OdDbDatabase& m_database;
    Scene m_scene;
    DrawingTables m_tables;
    RawNames m_names;
    Pen m_pen;
    std::size_t m_kept = 0, m_steps = 0;
    int m_depth = 0;
    std::shared_ptr<OdDbBlockTable> m_blockTable;
    std::unordered_map<std::wstring, Block> m_blocks;
};

} // namespace

Scene buildScene(const OdDbDatabase& database) { return buildScene(database, database.modelSpace()); }

Scene buildScene(const OdDbDatabase& database, const OdDbEntityRange& entities) {
    return Builder(database).build(entities);
}

} // namespace tv::scene
