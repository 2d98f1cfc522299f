#include "kxgui/frame/ColorTable.h"

#include "kxgui/frame/ColorNames.h"

namespace kx::frame {
namespace {

tv::ui::ColorCell indexCell(int index) {
    auto cell = colorCell(OdCmColor::byIndex(index));
    cell.data = static_cast<std::uintptr_t>(index);
    return cell;
}

std::vector<tv::ui::ColorCell> run(int first, int last) {
    std::vector<tv::ui::ColorCell> cells;
    for (int index = first; index <= last; ++index)
        cells.push_back(indexCell(index));
    return cells;
}

} // namespace

tv::ui::ColorCell colorCell(const OdCmColor& color) { return {swatchRgb(color.rgb()), colorText(color), 0}; }

std::vector<tv::ui::ColorCell> standardCells() { return run(1, standardColumns); }

std::vector<tv::ui::ColorCell> greyCells() { return run(250, 249 + greyColumns); }

std::vector<tv::ui::ColorCell> paletteCells() {
    std::vector<tv::ui::ColorCell> cells;
    for (int row = 0; row < paletteRows; ++row) {
        const int shade = row < paletteRows / 2 ? 8 - 2 * row : 2 * row - 9;
        for (int column = 0; column < paletteColumns; ++column)
            cells.push_back(indexCell(10 * (column + 1) + shade));
    }
    return cells;
}

} // namespace kx::frame
