#pragma once

#include "platform/drawing/OdCmColor.h"
#include "tavocad/scene/Styles.h"

#include <string>
#include <string_view>
#include <unordered_map>

class OdDbDatabase;

namespace tv::scene {

Paint paintOf(const OdCmColor& color);

// The layers and linetypes of a drawing by name, as the style table numbers them.
struct DrawingTables {
    std::unordered_map<std::wstring, std::uint32_t> layers, linetypes; // names with their case folded
    std::uint32_t layer(std::wstring_view name, StyleTable& styles);   // one the drawing lacks is added as new
    std::uint32_t linetype(std::wstring_view name) const;              // continuous for one the drawing lacks
};

// Fills the style table with the drawing's layers and linetypes.
DrawingTables readTables(const OdDbDatabase& database, StyleTable& styles);

} // namespace tv::scene
