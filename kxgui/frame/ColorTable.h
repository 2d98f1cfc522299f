#pragma once

#include "kxgui/Export.h"
#include "platform/drawing/OdCmColor.h"
#include "platform/toolkit/SwatchGrid.h"

#include <vector>

// How the 255 indexed colours are laid out for choosing. A cell's data is its index.
namespace kx::frame {

constexpr int standardColumns = 9, greyColumns = 6, paletteColumns = 24, paletteRows = 10;

// 1 to 9.
KXGUI_EXPORT std::vector<tv::ui::ColorCell> standardCells();
// 250 to 255.
KXGUI_EXPORT std::vector<tv::ui::ColorCell> greyCells();
// 10 to 249: a column per hue; the even numbers go from the dark 18 at the top to the full 10 in the middle,
// the odd ones from the pale 11 below it to the dark 19.
KXGUI_EXPORT std::vector<tv::ui::ColorCell> paletteCells();
// Any colour as a cell without data.
KXGUI_EXPORT tv::ui::ColorCell colorCell(const OdCmColor& color);

} // namespace kx::frame
