#include "platform/toolkit/ListColumnsMemory.h"

#include <algorithm>

namespace tv::ui {
namespace {

constexpr wchar_t section[] = L"ListColumns";
constexpr int widest = 10'000;

std::vector<std::wstring_view> split(std::wstring_view text, wchar_t by) {
    std::vector<std::wstring_view> out;
    for (;;) {
        const auto at = text.find(by);
        out.push_back(text.substr(0, at));
        if (at == std::wstring_view::npos) return out;
        text.remove_prefix(at + 1);
    }
}

// Whole numbers from 0 on.
std::optional<int> number(std::wstring_view text) {
    if (text.empty() || text.size() > 6) return std::nullopt;
    int value = 0;
    for (const wchar_t digit : text) {
        if (digit < L'0' || digit > L'9') return std::nullopt;
        value = value * 10 + static_cast<int>(digit - L'0');
    }
    return value;
}

} // namespace

// From left to right "number:width", a hidden one with "-" before it; then ";" and "+" or "-" with the sorted
// column.
void ListColumnsMemory::save(const CListCtrl& list, const std::function<bool(int column)>& shows) {
    if (!m_store) return;
    std::wstring text;
    for (const int column : list.layout().order()) {
        const ListColumn& what = list.layout().at(column);
        if (!text.empty()) text += L' ';
        if (!(shows ? shows(column) : what.visible)) text += L'-';
        text += std::to_wstring(column) + L':' + std::to_wstring(what.width);
    }
    if (list.sortColumn() >= 0)
        text += std::wstring(list.sortAscending() ? L";+" : L";-") + std::to_wstring(list.sortColumn());
    m_store->setString(section, m_key, text);
}

bool ListColumnsMemory::restore(CListCtrl& list) const {
    const auto text = m_store ? m_store->getString(section, m_key) : std::nullopt;
    if (!text) return false;
    const auto halves = split(*text, L';');
    std::vector<int> order, widths(static_cast<std::size_t>(list.layout().count()), -1);
    std::vector<bool> hidden(widths.size());
    for (std::wstring_view entry : split(halves.front(), L' ')) {
        const bool hides = entry.starts_with(L'-');
        if (hides) entry.remove_prefix(1);
        const auto parts = split(entry, L':');
        const auto column = number(parts.front()), width = number(parts.back());
        if (parts.size() != 2 || !column || !width || *width > widest || !list.layout().valid(*column))
            return false;
        order.push_back(*column);
        widths[static_cast<std::size_t>(*column)] = *width;
        hidden[static_cast<std::size_t>(*column)] = hides;
    }
    if (order.size() != widths.size() || std::count(widths.begin(), widths.end(), -1) > 0 ||
        std::count(hidden.begin(), hidden.end(), false) == 0)
        return false;
    list.SetColumnOrder(std::move(order));
    for (int column = 0; column < list.layout().count(); ++column) {
        list.SetColumnWidth(column, widths[static_cast<std::size_t>(column)]);
        list.ShowColumn(column, !hidden[static_cast<std::size_t>(column)]);
    }
    if (halves.size() == 2 && halves.back().size() > 1)
        if (const auto column = number(halves.back().substr(1)); column && list.layout().valid(*column))
            list.SortBy(*column, halves.back().front() == L'+');
    return true;
}

void ListColumnsMemory::forget() {
    if (m_store) m_store->erase(section, m_key);
}

} // namespace tv::ui
