#include "tavocad/scene/SceneBuilder.h"

#include "platform/drawing/EntityGeometry.h"
#include "platform/drawing/OdDbBlockTable.h"
#include "platform/drawing/OdDbDatabase.h"
#include "platform/drawing/OdDbEntity.h"
#include "platform/drawing/OdDbLayerTable.h"
#include "platform/text/Unicode.h"
#include "tavocad/scene/Flatten.h"
#include "tavocad/scene/Transform.h"
#include "tavocad/scene/WidePolyline.h"

#include <algorithm>
#include <cmath>
#include <map>
#include <numbers>
#include <string>

namespace tv::scene {
namespace {

using namespace tv::dwg;

constexpr double meanCharacterWidth = 0.85; // of the height of capital letters; for estimates
constexpr int foregroundIndex = 7;
constexpr int mostCells = 10'000; // of one array insert

Paint paintOf(const OdCmColor& color) {
    const Rgb rgb = color.rgb();
    return {std::uint32_t{rgb.red} << 16 | std::uint32_t{rgb.green} << 8 | rgb.blue,
            color.isByACI() && color.colorIndex() == foregroundIndex};
}

struct Layer {
    OdCmColor color = OdCmColor::byIndex(foregroundIndex);
    bool shown = true, frozen = false;
};

struct Block {
    OdGePoint3d base;
    OdDbEntityRange entities;
    bool open = false; // being drawn: an insert of itself is passed over
};

// What an insert hands down to the entities of its block.
struct Place {
    Transform transform;
    OdCmColor color = OdCmColor::byIndex(foregroundIndex); // for entities coloured by block
    const Layer* layer = nullptr;                          // for entities on layer 0; null outside of blocks
};

class Builder {
  public:
    explicit Builder(const OdDbDatabase& database) : m_database(database) {
        if (const auto table = database.getLayerTableId().open<OdDbLayerTable>())
            table->forEach([&](OdDbObjectId id) {
                if (const auto record = id.open<OdDbLayerTableRecord>())
                    m_layers[key(record->getName())] = {record->color(), !record->isOff(), record->isFrozen()};
            });
        m_blockTable = database.getBlockTableId().open<OdDbBlockTable>();
    }

    Scene build() {
        for (const OdDbObjectId id : m_database.modelSpace())
            add(id, Place{});
        m_scene.finish();
        return std::move(m_scene);
    }

  private:
    static std::wstring key(const OdString& name) { return tv::text::foldCase(name.view()); }

    const Layer& layerOf(const OdDbEntity& entity, const Place& place) {
        const OdString name = entity.layer();
        if (place.layer && name == L"0") return *place.layer;
        return m_layers[key(name)]; // one the table lacks looks like a new one
    }

    Block* blockOf(const OdString& name) {
        const auto [found, isNew] = m_blocks.try_emplace(key(name));
        if (isNew && m_blockTable) {
            if (const auto record = m_blockTable->getAt(name.view()).open<OdDbBlockTableRecord>())
                found->second = {record->origin(), record->entities(), false};
        }
        return &found->second;
    }

    void add(OdDbObjectId id, const Place& place) {
        if (m_scene.entities >= mostEntities) return;
        const auto entity = id.open<OdDbEntity>();
        if (!entity || !entity->isVisible()) return;
        const Layer& layer = layerOf(*entity, place);
        if (layer.frozen) return;
        OdCmColor color = entity->color();
        if (color.isByLayer())
            color = layer.color;
        else if (color.isByBlock())
            color = place.color;
        const EntityGeometry geometry = geometryOf(id);
        if (const auto* insert = std::get_if<InsertGeometry>(&geometry)) {
            addInsert(id, *insert, place, layer, color);
            return;
        }
        // Of an insert on a layer that is off the entities on other layers are still shown.
        if (!layer.shown) return;
        m_place = &place;
        m_paint = paintOf(color);
        const std::size_t before = m_scene.paths.size() + m_scene.texts.size() + m_scene.marks.size();
        if (entity->isA() != L"ATTDEF") std::visit([this](const auto& g) { draw(g); }, geometry);
        if (m_scene.paths.size() + m_scene.texts.size() + m_scene.marks.size() > before) ++m_scene.entities;
    }

    void addInsert(OdDbObjectId id, const InsertGeometry& insert, const Place& place, const Layer& layer,
                   const OdCmColor& color) {
        Block& block = *blockOf(insert.block);
        if (!block.open) {
            block.open = true;
            const int columns = std::clamp(insert.columns, 1, mostCells);
            const int rows = std::clamp(insert.rows, 1, mostCells / columns);
            for (int row = 0; row < rows; ++row)
                for (int column = 0; column < columns; ++column) {
                    const Place inner{place.transform * placementOf(insert, block.base, column, row), color,
                                      &layer};
                    for (const OdDbObjectId part : block.entities)
                        add(part, inner);
                }
            block.open = false;
        }
        for (const OdDbObjectId attribute : subEntities(id))
            add(attribute, place);
    }

    // --- one kind of entity each; coordinates are those of the entity's space
    // ---------------------------------------
    void draw(const std::monostate&) {}
    void draw(const LineGeometry& line) { path({line.start, line.end}); }
    void draw(const PointGeometry& point) {
        const OdGePoint3d at = m_place->transform(point.position);
        if (std::isfinite(at.x) && std::isfinite(at.y)) m_scene.marks.push_back({{at.x, at.y}, m_paint});
    }
    void draw(const CircleGeometry& circle) {
        arc(circle.center, circle.radius, 0, 2 * std::numbers::pi, circle.normal);
    }
    void draw(const ArcGeometry& g) {
        arc(g.center, g.radius, g.startAngle, angleAfter(g.startAngle, g.endAngle), g.normal);
    }
    void arc(const OdGePoint3d& center, double radius, double from, double to, const OdGeVector3d& normal) {
        std::vector<OdGePoint3d> points;
        flattenArc(points, center, {radius, 0, 0}, {0, radius, 0}, from, to);
        path(points, normal);
    }
    void draw(const EllipseGeometry& g) {
        const double length = g.normal.length();
        if (length == 0) return;
        const OdGeVector3d n{g.normal.x / length, g.normal.y / length, g.normal.z / length};
        const OdGeVector3d& a = g.majorAxis;
        const OdGeVector3d minor{(n.y * a.z - n.z * a.y) * g.ratio, (n.z * a.x - n.x * a.z) * g.ratio,
                                 (n.x * a.y - n.y * a.x) * g.ratio};
        std::vector<OdGePoint3d> points;
        flattenArc(points, g.center, a, minor, g.startParameter, angleAfter(g.startParameter, g.endParameter));
        path(points);
    }
    void draw(const PolylineGeometry& line) {
        if (line.vertices.empty()) return;
        if (!line.is3d && hasWidth(line)) {
            const PolylineParts parts = partsOf(line);
            for (const auto& area : parts.areas)
                path(area, line.normal, true);
            for (const auto& thin : parts.lines)
                path(thin, line.normal);
            return;
        }
        std::vector<OdGePoint3d> points{line.vertices.front().position};
        const std::size_t count = line.vertices.size();
        for (std::size_t i = 1; i < count + (line.closed && count > 1); ++i) {
            const PolylineVertex& from = line.vertices[i - 1];
            flattenBulge(points, from.position, line.vertices[i % count].position, line.is3d ? 0 : from.bulge);
        }
        if (line.is3d)
            path(points);
        else
            path(points, line.normal);
    }
    void draw(const SolidGeometry& solid) {
        path({std::begin(solid.corners), std::end(solid.corners)}, solid.normal, true);
    }
    void draw(const InsertGeometry&) {}

    void draw(const TextGeometry& g) {
        if (g.invisible) return;
        Text text;
        text.text = g.text.wstr();
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
        place(text, aligned ? *g.alignment : g.position, g.height, g.rotation, g.widthFactor,
              planeToWorld(g.normal));
    }
    void draw(const MTextGeometry& g) {
        Text text;
        text.text = wrapped(g.plain.wstr(), g.height > 0 ? g.width / (g.height * meanCharacterWidth) : 0);
        const int cell = std::clamp(g.attachment, 1, 9) - 1;
        text.horizontal = static_cast<Text::Horizontal>(cell % 3);
        text.vertical = cell < 3   ? Text::Vertical::top
                        : cell < 6 ? Text::Vertical::middle
                                   : Text::Vertical::bottom;
        // Its point is the world's, only its direction lies in the plane.
        place(text, g.position, g.height, g.rotation, 1, {});
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

    void place(Text& text, const OdGePoint3d& at, double height, double rotation, double widthFactor,
               const Transform& plane) {
        const Transform whole = m_place->transform * plane;
        const OdGePoint3d p = whole(at);
        const OdGeVector3d along = whole(OdGeVector3d{std::cos(rotation), std::sin(rotation), 0});
        const OdGeVector3d up = whole(OdGeVector3d{-std::sin(rotation), std::cos(rotation), 0});
        const double alongLength = std::hypot(along.x, along.y), upLength = std::hypot(up.x, up.y);
        text.at = {p.x, p.y};
        text.height = height * upLength;
        text.angle = std::atan2(along.y, along.x);
        text.widthFactor = upLength > 0 ? widthFactor * alongLength / upLength : 0;
        text.paint = m_paint;
        if (text.text.empty() || !(text.height > 0) || !(text.widthFactor > 0) || !std::isfinite(text.height) ||
            !std::isfinite(p.x) || !std::isfinite(p.y) || !std::isfinite(text.widthFactor))
            return;
        text.box = boxOf(text);
        m_scene.texts.push_back(std::move(text));
    }

    static Box boxOf(const Text& text) {
        std::size_t lineCount = 1, longest = 0, length = 0;
        for (const wchar_t ch : text.text) {
            length = ch == L'\n' ? 0 : length + 1;
            lineCount += ch == L'\n';
            longest = std::max(longest, length);
        }
        const double width = static_cast<double>(longest) * text.height * text.widthFactor * meanCharacterWidth;
        const double height = text.height * (1 + static_cast<double>(lineCount - 1) * 5 / 3);
        const double left = text.horizontal == Text::Horizontal::left     ? 0
                            : text.horizontal == Text::Horizontal::center ? -width / 2
                                                                          : -width;
        const double bottom = text.vertical == Text::Vertical::top        ? -height
                              : text.vertical == Text::Vertical::middle   ? -height / 2
                              : text.vertical == Text::Vertical::baseline ? text.height - height
                                                                          : 0;
        const double c = std::cos(text.angle), s = std::sin(text.angle);
        Box box;
        for (const double x : {left, left + width})
            for (const double y : {bottom, bottom + height})
                box.add(OdGePoint2d{text.at.x + x * c - y * s, text.at.y + x * s + y * c});
        return box;
    }

    void path(const std::vector<OdGePoint3d>& points, const OdGeVector3d& normal = {0, 0, 1},
              bool filled = false) {
        const Transform whole = m_place->transform * planeToWorld(normal);
        Path path{m_scene.points.size(), 0, m_paint, filled, {}};
        for (const OdGePoint3d& point : points) {
            const OdGePoint3d p = whole(point);
            if (!std::isfinite(p.x) || !std::isfinite(p.y)) continue;
            m_scene.points.push_back({p.x, p.y});
            path.box.add(OdGePoint2d{p.x, p.y});
        }
        path.count = m_scene.points.size() - path.first;
        if (path.count > 0) m_scene.paths.push_back(path);
    }

    const OdDbDatabase& m_database;
    std::shared_ptr<OdDbBlockTable> m_blockTable;
    std::map<std::wstring, Layer> m_layers;
    std::map<std::wstring, Block> m_blocks;
    Scene m_scene;
    const Place* m_place = nullptr; // of the entity being drawn
    Paint m_paint;
};

} // namespace

Scene buildScene(const OdDbDatabase& database) { return Builder(database).build(); }

} // namespace tv::scene
