#pragma once

#include "platform/drawing/OdCmColor.h"
#include "tavocad/scene/EntityHead.h"
#include "tavocad/scene/Styles.h"

#include <string>
#include <string_view>
#include <unordered_map>
#include <vector>

class OdDbDatabase;

namespace tv::scene {

Paint paintOf(const OdCmColor& color);

// The layers and linetypes of a drawing by name, as the style table numbers them.
struct DrawingTables {
    std::unordered_map<std::wstring, std::uint32_t> layers, linetypes; // names with their case folded
    std::uint32_t layer(std::wstring_view name, StyleTable& styles);   // one the drawing lacks is added as new
    std::uint32_t linetype(std::wstring_view name) const;              // continuous for one the drawing lacks
};

// The same by the bytes of the file: what entities usually call them. Never changes, so threads may share it.
class RawNames {
  public:
    RawNames(const OdDbDatabase& database, const DrawingTables& tables);
    // `none` for a name that has to be looked up by its characters.
    std::uint32_t layer(std::string_view raw) const;
    std::uint32_t linetype(std::string_view raw) const;

  private:
    // Small and close together: a million entities ask.
    struct Slot {
        std::uint32_t hash = 0;
        std::uint32_t name = none; // into `names`
    };
    struct Name {
        std::uint32_t first = 0, length = 0; // of `letters`
        std::uint32_t number = none;
    };
    struct Names {
        std::vector<Slot> slots = std::vector<Slot>(16); // a power of two of them, at most half full
        std::vector<Name> names;
        std::string letters;
        std::size_t slotOf(std::string_view name, std::uint32_t hash) const;
        std::uint32_t find(std::string_view name) const;
        void add(std::string_view name, std::uint32_t number);
    };
    Names m_layers, m_linetypes;
};

// What an entity with that head on that layer looks like inside of that insert. `linetype` is what its name
// stands for, unless that is by layer or by block.
StyleSource sourceOf(const EntityHead& head, std::uint32_t layer, std::uint32_t linetype,
                     const StyleSource& insert);
enum class ByWhom : std::uint8_t { layer, block, itself };
ByWhom linetypeBy(const EntityHead& head);

// Fills the style table with the drawing's layers and linetypes.
DrawingTables readTables(const OdDbDatabase& database, StyleTable& styles);
// The names of a style table that was filled before.
DrawingTables tablesOf(const StyleTable& styles);

} // namespace tv::scene
