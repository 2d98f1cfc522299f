#include "platform/toolkit/SortedRows.h"

#include <algorithm>
#include <cstring>
#include <numeric>

namespace tv::ui {
namespace {

// A row with its sort key: the first bytes of the key as a number decide most comparisons.
struct Keyed {
    std::uint64_t head = 0;
    std::size_t at = 0; // of the key's other bytes
    std::uint32_t size = 0;
    int row = 0;
};

std::uint64_t headOf(std::string_view key) {
    std::uint64_t head = 0;
    for (std::size_t i = 0; i < sizeof head; ++i)
        head = head << 8 | (i < key.size() ? static_cast<unsigned char>(key[i]) : 0U);
    return head;
}

} // namespace

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
    const text::Collator collator(m_options);
    std::string tails;
    std::vector<Keyed> rows;
    rows.reserve(m_order.size());
    for (const int row : m_order) {
        const std::string key = collator.sortKey(m_base->text(row, column));
        Keyed keyed{headOf(key), tails.size(), 0, row};
        if (key.size() > sizeof keyed.head) {
            keyed.size = static_cast<std::uint32_t>(key.size() - sizeof keyed.head);
            tails.append(key, sizeof keyed.head);
        }
        rows.push_back(keyed);
    }
    const auto before = [&tails](const Keyed& a, const Keyed& b) {
        if (a.head != b.head) return a.head < b.head;
        const int order = std::memcmp(tails.data() + a.at, tails.data() + b.at, std::min(a.size, b.size));
        return order != 0 ? order < 0 : a.size < b.size;
    };
    if (ascending)
        std::stable_sort(rows.begin(), rows.end(), before);
    else
        std::stable_sort(rows.begin(), rows.end(),
                         [&](const Keyed& a, const Keyed& b) { return before(b, a); });
    std::transform(rows.begin(), rows.end(), m_order.begin(), [](const Keyed& keyed) { return keyed.row; });
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
