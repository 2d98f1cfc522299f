#include "platform/toolkit/ListColumns.h"

#include <algorithm>
#include <numeric>

namespace tv::ui {

void ListColumns::assign(std::vector<ListColumn> columns) {
    // Titles that stay are as wide as before.
    const bool renamed = !std::equal(columns.begin(), columns.end(), m_columns.begin(), m_columns.end(),
                                     [](const auto& a, const auto& b) { return a.title == b.title; });
    m_columns = std::move(columns);
    m_order.resize(m_columns.size());
    std::iota(m_order.begin(), m_order.end(), 0);
    if (renamed) m_titleWidths.assign(m_columns.size(), 0);
    m_narrow.assign(m_columns.size(), false);
}

int ListColumns::insert(int at, ListColumn column) {
    if (at < 0 || at > count()) at = count();
    const int place = at < count() ? placeOf(at) : count();
    for (int& number : m_order)
        if (number >= at) ++number;
    m_order.insert(m_order.begin() + place, at);
    m_columns.insert(m_columns.begin() + at, std::move(column));
    m_titleWidths.insert(m_titleWidths.begin() + at, 0);
    m_narrow.insert(m_narrow.begin() + at, false);
    return at;
}

bool ListColumns::erase(int column) {
    if (!valid(column)) return false;
    std::erase(m_order, column);
    for (int& number : m_order)
        if (number > column) --number;
    m_columns.erase(m_columns.begin() + column);
    m_titleWidths.erase(m_titleWidths.begin() + column);
    m_narrow.erase(m_narrow.begin() + column);
    return true;
}

bool ListColumns::setOrder(std::vector<int> order) {
    std::vector<int> sorted = order, all(m_columns.size());
    std::sort(sorted.begin(), sorted.end());
    std::iota(all.begin(), all.end(), 0);
    if (sorted != all) return false;
    m_order = std::move(order);
    return true;
}

void ListColumns::move(int column, int place) {
    if (!valid(column)) return;
    std::erase(m_order, column);
    m_order.insert(m_order.begin() + std::clamp(place, 0, count() - 1), column);
}

int ListColumns::placeOf(int column) const {
    return static_cast<int>(std::find(m_order.begin(), m_order.end(), column) - m_order.begin());
}

std::vector<int> ListColumns::visible() const {
    std::vector<int> out;
    for (const int column : m_order)
        if (at(column).visible) out.push_back(column);
    return out;
}

int ListColumns::neighbour(int column, int by) const {
    const auto shown = visible();
    if (shown.empty()) return -1;
    const auto found = std::find(shown.begin(), shown.end(), column);
    if (found == shown.end()) return shown.front();
    const int place = static_cast<int>(found - shown.begin()) + by;
    return shown[static_cast<std::size_t>(std::clamp(place, 0, static_cast<int>(shown.size()) - 1))];
}

void ListColumns::setTitleWidth(int column, int width) {
    if (valid(column)) m_titleWidths[static_cast<std::size_t>(column)] = width;
}

void ListColumns::setNarrow(int column, bool narrow) {
    if (valid(column)) m_narrow[static_cast<std::size_t>(column)] = narrow;
}

int ListColumns::ownWidth(int column) const {
    if (!at(column).visible) return 0;
    const int width = std::max(0, at(column).width);
    const auto number = static_cast<std::size_t>(column);
    return width < narrowColumn || m_narrow[number] ? width : std::max(width, m_titleWidths[number]);
}

int ListColumns::total(int room) const {
    int sum = 0, last = 0;
    for (const int column : m_order) {
        if (!at(column).visible) continue;
        last = ownWidth(column);
        sum += last;
    }
    return last < narrowColumn ? sum : std::max(sum, room);
}

int ListColumns::left(int column) const {
    int sum = 0;
    for (const int one : m_order) {
        if (one == column) break;
        sum += ownWidth(one);
    }
    return sum;
}

int ListColumns::shownWidth(int column, int room) const {
    const int own = ownWidth(column);
    const auto shown = visible();
    if (shown.empty() || shown.back() != column || own < narrowColumn) return own;
    return std::max(own, room - left(column));
}

int ListColumns::columnAt(int x, int room) const {
    for (const int column : visible()) {
        const int from = left(column);
        if (x >= from && x < from + shownWidth(column, room)) return column;
    }
    return -1;
}

} // namespace tv::ui
