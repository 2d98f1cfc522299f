#pragma once

#include "platform/drawing/Geometry.h"

#include <cstdint>
#include <string>
#include <unordered_map>
#include <utility>
#include <vector>

// How things look: by whom a colour, lineweight, linetype and transparency are given, and what comes of it.
namespace tv::scene {

// A colour to paint with. `foreground` stands for the colour that is white on a dark background and black on a
// light one.
struct Paint {
    std::uint32_t rgb = 0; // 0xRRGGBB
    bool foreground = false;
    friend bool operator==(const Paint&, const Paint&) = default;
};

inline constexpr std::uint32_t none = 0xFFFFFFFF;
inline constexpr std::uint8_t opaque = 255;
inline constexpr std::int16_t usualLineweight = 25;

struct LayerState {
    std::wstring name;
    Paint paint{0xFFFFFF, true};
    std::int16_t lineweight = usualLineweight; // 1/100 mm, never one that refers elsewhere
    std::uint32_t linetype = 0;                // into StyleTable::linetypes
    std::uint8_t alpha = opaque;
    bool on = true, frozen = false, locked = false, plottable = true;
    bool recorded = true; // the drawing has a record of it
    friend bool operator==(const LayerState&, const LayerState&) = default;
};

// What stands on a line again and again: a text, or without letters a shape, of which a tick is shown.
struct LineMark {
    double at = 0; // from the pattern's beginning, along the line
    double height = 0;
    double rotation = 0;   // radians, against the line or
    bool absolute = false; // against the drawing
    OdGePoint2d offset;    // along the line and to its left
    std::wstring letters;
    friend bool operator==(const LineMark&, const LineMark&) = default;
};

// Dashes positive, gaps negative, dots 0; empty for a continuous line.
struct Linetype {
    std::wstring name;
    std::vector<double> dashes;
    std::vector<LineMark> marks;
    friend bool operator==(const Linetype&, const Linetype&) = default;
};

// A linetype at a scale: lengths are drawing units.
struct Pattern {
    std::vector<double> dashes;
    std::vector<LineMark> marks;
    double length = 0; // of one repetition; 0 for a continuous line
};

// What an item is painted with.
struct Style {
    Paint paint;
    std::int16_t lineweight = usualLineweight; // 1/100 mm
    std::uint8_t alpha = opaque;
    bool shown = true;         // its layer is on and thawed, and so are those of the inserts around it
    std::uint32_t pattern = 0; // into StyleTable::patterns; 0 is continuous
    std::uint32_t layer = 0;   // into StyleTable::layers
};

// Where a style comes from. Each property is the layer's whose number stands beside it, or with `none` there
// the value itself.
struct StyleSource {
    std::uint32_t layer = 0; // whether it is shown
    std::uint32_t gate = 0;  // see StyleTable::gate
    Paint paint{0xFFFFFF, true};
    std::uint32_t paintLayer = none;
    std::uint32_t linetype = 0;
    std::uint32_t linetypeLayer = none;
    double linetypeScale = 1;
    std::uint32_t lineweightLayer = none;
    std::uint32_t alphaLayer = none;
    std::int16_t lineweight = usualLineweight;
    std::uint8_t alpha = opaque;
    friend bool operator==(const StyleSource&, const StyleSource&) = default;
};

class StyleTable {
  public:
    StyleTable();

    const Style& operator[](std::uint32_t style) const { return m_styles[style]; }
    std::size_t size() const { return m_styles.size(); }
    const StyleSource& source(std::uint32_t style) const { return m_sources[style]; }
    const std::vector<LayerState>& layers() const { return m_layers; }
    const std::vector<Linetype>& linetypes() const { return m_linetypes; }
    const std::vector<Pattern>& patterns() const { return m_patterns; }

    // Of all styles, without touching any geometry.
    void setLayers(std::vector<LayerState> layers);
    void setLinetypes(std::vector<Linetype> linetypes, double scale);

    std::uint32_t addLayer(LayerState layer);
    void addLinetype(Linetype linetype) { m_linetypes.push_back(std::move(linetype)); }
    // The number of that style, a new one when it is the first of its kind.
    std::uint32_t intern(const StyleSource& source);
    // Stands for an insert on that layer, itself inside of the insert `outer` stands for: while one of them is
    // frozen nothing inside is shown. 0 stands for no insert.
    std::uint32_t gate(std::uint32_t layer, std::uint32_t outer);
    // The gate of what is never shown.
    static constexpr std::uint32_t shut = 1;

  private:
    struct Gate {
        std::uint32_t layer = none, outer = 0;
        bool open = true;
        friend bool operator==(const Gate& a, const Gate& b) {
            return a.layer == b.layer && a.outer == b.outer;
        }
    };
    struct Hash {
        std::size_t operator()(const StyleSource& source) const;
    };
    void resolveAll();
    Style resolved(const StyleSource& source);
    std::uint32_t patternOf(std::uint32_t linetype, double scale);

    std::vector<LayerState> m_layers;
    std::vector<Linetype> m_linetypes;
    double m_linetypeScale = 1;
    std::vector<Pattern> m_patterns;
    std::unordered_map<std::uint64_t, std::vector<std::pair<double, std::uint32_t>>> m_patternNumbers;
    std::vector<Gate> m_gates;
    std::unordered_map<std::uint64_t, std::uint32_t> m_gateNumbers;
    std::vector<StyleSource> m_sources;
    std::vector<Style> m_styles;
    std::unordered_map<StyleSource, std::uint32_t, Hash> m_numbers;
};

} // namespace tv::scene
