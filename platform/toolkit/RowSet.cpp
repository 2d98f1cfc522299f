#include "platform/toolkit/RowSet.h"

#include <algorithm>

namespace tv::ui {
namespace {

constexpr int lowest = std::numeric_limits<int>::min(), highest = std::numeric_limits<int>::max();

} // namespace

RowSet::RowSet(std::vector<int> rows) {
    std::sort(rows.begin(), rows.end());
    for (const int row : rows) {
        if (!m_ranges.empty() && row == m_ranges.back().last) continue;
        if (!m_ranges.empty() && row - 1 == m_ranges.back().last)
            m_ranges.back().last = row;
        else
            m_ranges.push_back({row, row});
    }
}

RowSet RowSet::range(int first, int last) {
    RowSet out;
    out.insert(first, last);
    return out;
}

std::int64_t RowSet::count() const {
    std::int64_t sum = 0;
    for (const Range& range : m_ranges)
        sum += std::int64_t(range.last) - range.first + 1;
    return sum;
}

std::vector<RowSet::Range>::iterator RowSet::firstEndingAt(int row) {
    return std::lower_bound(m_ranges.begin(), m_ranges.end(), row,
                            [](const Range& range, int wanted) { return range.last < wanted; });
}

bool RowSet::contains(int row) const {
    const auto at = const_cast<RowSet*>(this)->firstEndingAt(row);
    return at != m_ranges.end() && at->first <= row;
}

std::vector<int> RowSet::rows(std::size_t limit) const {
    std::vector<int> out;
    out.reserve(std::min<std::size_t>(limit, static_cast<std::size_t>(count())));
    for (const Range& range : m_ranges)
        for (std::int64_t row = range.first; row <= range.last; ++row) {
            if (out.size() >= limit) return out;
            out.push_back(static_cast<int>(row));
        }
    return out;
}

void RowSet::insert(int first, int last) {
    if (last < first) return;
    // Ranges that overlap or touch the new one become part of it.
    const auto from = firstEndingAt(first == lowest ? first : first - 1);
    auto to = from;
    while (to != m_ranges.end() && (last == highest || to->first <= last + 1)) {
        first = std::min(first, to->first);
        last = std::max(last, to->last);
        ++to;
    }
    if (from == to) {
        m_ranges.insert(from, Range{first, last});
    } else {
        *from = {first, last};
        m_ranges.erase(from + 1, to);
    }
}

void RowSet::erase(int first, int last) {
    if (last < first) return;
    const auto from = firstEndingAt(first);
    auto to = from;
    std::vector<Range> left;
    while (to != m_ranges.end() && to->first <= last) {
        if (to->first < first) left.push_back({to->first, first - 1});
        if (to->last > last) left.push_back({last + 1, to->last});
        ++to;
    }
    const auto at = m_ranges.erase(from, to);
    m_ranges.insert(at, left.begin(), left.end());
}

void RowSet::invert(int rowCount) {
    clip(rowCount);
    std::vector<Range> out;
    int next = 0;
    for (const Range& range : m_ranges) {
        if (next < range.first) out.push_back({next, range.first - 1});
        next = range.last + 1;
    }
    if (next < rowCount) out.push_back({next, rowCount - 1});
    m_ranges = std::move(out);
}

void RowSet::clip(int rowCount) {
    erase(lowest, -1);
    erase(std::max(rowCount, 0), highest);
}

void RowSet::shift(int at, int by) {
    if (by < 0) erase(at, at - by - 1);
    RowSet out;
    for (const Range& range : m_ranges) { // one that crosses `at` is torn apart, or two grow together
        if (range.first < at) out.insert(range.first, std::min(range.last, at - 1));
        if (range.last >= at) out.insert(std::max(range.first, at) + by, range.last + by);
    }
    *this = std::move(out);
}

} // namespace tv::ui
