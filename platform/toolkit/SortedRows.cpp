#include "platform/toolkit/SortedRows.h"

#include <algorithm>
#include <numeric>

namespace tv::ui {

SortedRows::SortedRows(std::shared_ptr<ListModel> base, text::CollationOptions options)
    : m_base(std::move(base)), m_options(options) {
    baseChanged();
}

void SortedRows::baseChanged() {
    m_order.resize(static_cast<std::size_t>(std::max(0, m_base->rowCount())));
    std::iota(m_order.begin(), m_order.end(), 0);
    m_places.clear();
}

bool SortedRows::isUnsortable(int column) const {
    return std::find(m_unsortable.begin(), m_unsortable.end(), column) != m_unsortable.end();
}

void SortedRows::sort(int column, bool ascending) {
    text::sortByText(m_order, ascending, text::Collator(m_options),
                     [this, column](int row) { return m_base->text(row, column); });
    m_places.clear();
}

int SortedRows::rowOf(int identity) const {
    if (m_places.size() != m_order.size()) {
        m_places.resize(m_order.size());
        for (std::size_t row = 0; row < m_order.size(); ++row)
            m_places[static_cast<std::size_t>(m_order[row])] = static_cast<int>(row);
    }
    return m_places[static_cast<std::size_t>(identity)];
}

} // namespace tv::ui
