#pragma once

#include "platform/Export.h"

#include <cstdint>
#include <initializer_list>
#include <limits>
#include <vector>

namespace tv::ui {

// A set of rows as ranges: sorted, disjoint, never touching each other. A million selected rows are one range.
class KXPLATFORM_EXPORT RowSet {
  public:
    // Both ends belong to it.
    struct Range {
        int first = 0, last = -1;
        friend bool operator==(const Range&, const Range&) = default;
    };

    RowSet() = default;
    RowSet(std::initializer_list<int> rows) : RowSet(std::vector<int>(rows)) {}
    RowSet(std::vector<int> rows); // in any order, each as often as one likes
    static RowSet range(int first, int last);

    bool empty() const { return m_ranges.empty(); }
    std::int64_t count() const;
    bool contains(int row) const;
    // The lowest and the highest row, -1 when there is none.
    int first() const { return empty() ? -1 : m_ranges.front().first; }
    int last() const { return empty() ? -1 : m_ranges.back().last; }
    const std::vector<Range>& ranges() const { return m_ranges; }
    // The lowest rows one by one, `limit` at most.
    std::vector<int> rows(std::size_t limit = std::numeric_limits<std::size_t>::max()) const;

    void insert(int first, int last);
    void insert(int row) { insert(row, row); }
    void erase(int first, int last);
    void erase(int row) { erase(row, row); }
    // Of the rows [0, rowCount) those that were not in it.
    void invert(int rowCount);
    // Drops rows outside of [0, rowCount).
    void clip(int rowCount);
    // Row numbers from `at` on grow by `by`; negative: the rows [at, at - by) are gone and the later ones move
    // up.
    void shift(int at, int by);

    friend bool operator==(const RowSet&, const RowSet&) = default;

  private:
    std::vector<Range>::iterator firstEndingAt(int row); // the first range that ends at `row` or later
    std::vector<Range> m_ranges;
};

} // namespace tv::ui
