#pragma once

#include "platform/drawing/Geometry.h"
#include "platform/drawing/OdDbObjectId.h"
#include "tavocad/scene/Box.h"
#include "tavocad/scene/SpatialIndex.h"
#include "tavocad/scene/Styles.h"

#include <array>
#include <cstdint>
#include <limits>
#include <memory>
#include <optional>
#include <span>
#include <string>
#include <string_view>
#include <vector>

// What the drawing area paints: one space of a drawing, flattened into plain vectors in drawing units, y
// upwards. Geometry, styles and layers are tables that refer to each other by number, so that switching a layer
// changes a table and no geometry.
namespace tv::scene {

// One painted thing. Items are in the order they are painted; those of one entity follow each other.
struct Item {
    enum class Kind : std::uint8_t {
        stroke, // points[first .. first + count): polylines, parted by breaks (see isBreak)
        arc,    // four points: the centre, the ends of two conjugate half axes as vectors from it, and the
                // parameters (from, to) in radians, from <= to
        area,   // outlines parted by breaks, filled
        text,   // texts[first]
        mark,   // points[first]: a point, in the scene's pointShape
    };
    enum Flag : std::uint8_t {
        evenOdd = 1,   // of an area: what lies in an even number of outlines is no part of it
        mask = 2,      // of an area: painted in the background's colour, hiding what lies below
        pale = 4,      // of an area: stands for a pattern too fine to be painted line by line
        solidLine = 8, // of a stroke or an arc: never dashed
        endless = 16   // of a stroke: a stretch of a line without an end, longer than anything else
    };
    std::uint32_t first = 0, count = 0;
    std::uint32_t style = 0;  // into Scene::styles
    std::uint32_t entity = 0; // into Scene::entities
    Kind kind = Kind::stroke;
    std::uint8_t flags = 0;
};

// Ends one polyline of a stroke or outline of an area.
inline constexpr OdGePoint2d breakPoint{std::numeric_limits<double>::quiet_NaN(), 0};
inline bool isBreak(OdGePoint2d point) { return point.x != point.x; }

// A stretch of text on one line.
struct Text {
    std::uint32_t first = 0, count = 0; // of Scene::letters
    OdGePoint2d at;                     // where `horizontal` and `vertical` say
    double height = 0;                  // of capital letters
    double angle = 0;                   // radians
    double oblique = 0;                 // radians, letters leaning forward
    double widthFactor = 1;
    double width = 0; // drawing units it is to be fitted into; 0 for as wide as it gets
    std::uint32_t font = 0;
    enum class Horizontal : std::uint8_t { left, center, right } horizontal = Horizontal::left;
    enum class Vertical : std::uint8_t { baseline, bottom, middle, top } vertical = Vertical::baseline;
    bool underlined = false, overlined = false, struck = false;
    bool mirrored = false; // letters run backwards
};

// What a text style asks for. Either may be empty or not installed.
struct Font {
    std::wstring typeface; // "Malgun Gothic"
    std::wstring file;     // "romans.shx"
    bool bold = false, italic = false;
    friend bool operator==(const Font&, const Font&) = default;
};

// The top-level entity that items come from. One that is gone has none.
struct Entity {
    tv::dwg::RecordId record = tv::dwg::kNoRecord;
    std::uint32_t firstItem = 0, itemCount = 0;
};

struct Scene;

// A window in a layout through which model space is seen. The model's scene is shared between the windows;
// layers look different in each.
struct ViewportPicture {
    std::shared_ptr<const Scene> model;
    StyleTable styles; // in place of the model's
    // From the model's coordinates to this layout's: origin + x * p.x + y * p.y.
    OdGeVector2d x{1, 0}, y{0, 1};
    OdGePoint2d origin;
    std::vector<OdGePoint2d> clip; // a closed polygon in the layout's coordinates
    std::uint32_t entity = 0;      // the viewport itself, into Scene::entities
    OdGePoint2d toLayout(OdGePoint2d p) const {
        return {origin.x + x.x * p.x + y.x * p.y, origin.y + x.y * p.x + y.y * p.y};
    }
    // Nonsense for a viewport whose x and y lie on one line.
    OdGePoint2d toModel(OdGePoint2d p) const {
        const double size = x.x * y.y - x.y * y.x, dx = p.x - origin.x, dy = p.y - origin.y;
        return {(dx * y.y - dy * y.x) / size, (dy * x.x - dx * x.y) / size};
    }
};

// How points look everywhere in a drawing.
struct PointShape {
    int mode = 0;    // 0 a dot, 1 nothing, 2 a cross, 3 one that leans, 4 a stroke upwards; more with 32 in a
                     // circle, with 64 in a square
    double size = 0; // drawing units; 0 or below: so many hundredths of the view's height, 5 for 0
    bool hasLines() const { return mode != 0 && mode != 1; }
};

// What a scene leaves out because it would be too much.
struct Cut {
    std::size_t entities = 0; // main ones
    std::size_t inserts = 0;  // main ones, shown in part or not at all
    std::wstring block;       // of the first of those
    bool any() const { return entities + inserts > 0; }
};

struct Scene {
    OdDbDatabase* database = nullptr;
    std::vector<OdGePoint2d> points;
    std::vector<Item> items;
    std::vector<Text> texts;
    std::wstring letters; // of all texts
    std::vector<Font> fonts;
    std::vector<Entity> entities; // in file order
    StyleTable styles;
    std::vector<ViewportPicture> viewports; // of a layout; painted below its items
    PointShape pointShape;
    std::vector<OdGePoint2d> paper; // of a layout: the sheet's corners
    Box box;                        // of everything that is shown
    Box extents;                    // of that, but for endless lines if there is anything else
    std::size_t drawn = 0;          // entities drawn so far, those inside of blocks once per insert
    Cut cut;
    bool boundless = false; // has lines without end: how far they reach depends on everything else

    // --- what to paint ---
    struct Dot {
        OdGePoint2d at;
        std::uint32_t style;
        bool mark = false; // a point that is not just a dot
    };
    // What a view of that box shows, hidden layers left out. Items are in painting order. What is smaller than
    // `pixel` (drawing units) in both directions is a dot; many such beside each other are one.
    struct Seen {
        std::vector<std::uint32_t> items;
        std::vector<Dot> dots;
    };
    // Through a viewport its styles say what is hidden.
    void look(const Box& view, double pixel, Seen& seen, const StyleTable* through = nullptr) const;
    const Style& styleOf(const Item& item) const { return styles[item.style]; }
    std::wstring_view lettersOf(const Text& text) const {
        return std::wstring_view(letters).substr(text.first, text.count);
    }
    Box boxOf(const Item& item) const;                            // a text's is an estimate
    std::array<OdGePoint2d, 4> cornersOf(const Text& text) const; // as that, from the lower left one on
    // The points of a stroke, area or mark.
    std::span<const OdGePoint2d> pointsOf(const Item& item) const {
        return {points.data() + item.first, item.count};
    }

    // --- what is where; hidden layers are left out, entities are numbers into `entities`, each once, rising
    // ---
    struct Hit {
        std::uint32_t entity = 0, item = 0;
        double distance = 0;
    };
    // The nearest within `tolerance`, of equally near ones the topmost. Inside of a filled area or a text the
    // distance is 0.
    std::optional<Hit> pick(OdGePoint2d at, double tolerance) const;
    // Every entity within the tolerance, the nearest first: to go through what lies on top of each other.
    std::vector<Hit> pickAll(OdGePoint2d at, double tolerance) const;
    // Entities all of whose items lie inside of the box or polygon.
    std::vector<std::uint32_t> inside(const Box& box) const;
    std::vector<std::uint32_t> inside(std::span<const OdGePoint2d> polygon) const;
    // Entities that have anything inside, or that the edge meets.
    std::vector<std::uint32_t> crossing(const Box& box) const;
    std::vector<std::uint32_t> crossing(std::span<const OdGePoint2d> polygon) const;
    // Entities that an open line meets.
    std::vector<std::uint32_t> fence(std::span<const OdGePoint2d> line) const;
    OdDbObjectId idOf(std::uint32_t entity) const;
    // The number of the entity with that id; nothing when the scene draws nothing of it.
    std::optional<std::uint32_t> entityOf(OdDbObjectId id) const;

    // --- for the builder ---
    void finish();  // computes index, box and extents
    void measure(); // box and extents
    SpatialIndex index;
    std::vector<std::uint32_t> loose; // items drawn anew since finish(), which the index does not know

  private:
    template <class Use>
    void measure(Use&& use); // with the box of each item
};

} // namespace tv::scene
