#include "platform/toolkit/ListModel.h"

namespace tv::ui {

ListCell TextRows::cell(int row, int column) const {
    if (row < 0 || row >= rowCount()) return {};
    const auto& cells = rows[static_cast<std::size_t>(row)];
    return column >= 0 && column < static_cast<int>(cells.size()) ? cells[static_cast<std::size_t>(column)]
                                                                  : ListCell{};
}

} // namespace tv::ui
