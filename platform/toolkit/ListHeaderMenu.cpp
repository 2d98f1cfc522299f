// The menu of a list's titles: which columns are shown, and how wide.
#include "platform/toolkit/ListCtrl.h"

#include "platform/text/ResourceString.h"

#include <numeric>

using tv::ui::ListColumn;
using tv::ui::MenuItem;
using tv::ui::UserResult;

namespace {

// A text that has no letter of its own.
std::wstring literal(const std::wstring& text) {
    std::wstring out;
    for (const wchar_t ch : text)
        out += ch == L'&' ? std::wstring(L"&&") : std::wstring(1, ch);
    return out;
}

} // namespace

// Columns that come with other titles only are not made anew.
void CListCtrl::rememberMade(const std::vector<ListColumn>& columns) {
    bool same = columns.size() == m_made.size() && m_columns.count() == static_cast<int>(columns.size());
    for (std::size_t i = 0; same && i < columns.size(); ++i) {
        const ListColumn& now = m_columns.at(static_cast<int>(i));
        same = now.width == columns[i].width && now.visible == columns[i].visible;
    }
    if (same) return;
    m_made.clear();
    for (const ListColumn& column : columns)
        m_made.push_back({column.width, column.visible});
}

UserResult CListCtrl::userResetColumns() {
    if (auto r = acceptsUser(); !r) return r;
    LeaveEditor();
    std::vector<int> order(m_made.size());
    std::iota(order.begin(), order.end(), 0);
    m_columns.setOrder(std::move(order));
    for (int column = 0; column < m_columns.count(); ++column) {
        const Made& made = m_made[static_cast<std::size_t>(column)];
        m_columns.edit(column).width = made.width;
        m_columns.setNarrow(column, false);
        if (offersColumn(column)) m_columns.edit(column).visible = made.visible;
    }
    columnsChanged(true);
    return UserResult::done();
}

UserResult CListCtrl::userShowAllColumns() {
    if (auto r = acceptsUser(); !r) return r;
    LeaveEditor();
    for (int column = 0; column < m_columns.count(); ++column)
        if (offersColumn(column)) m_columns.edit(column).visible = true;
    columnsChanged(true);
    return UserResult::done();
}

UserResult CListCtrl::userHeaderMenu(int column, std::optional<CPoint> at) {
    if (auto r = column < 0 ? acceptsUser() : acceptsColumn(column); !r) return r;
    takeFocus();
    std::vector<MenuItem> items;
    if (m_columns.valid(column))
        items.push_back({VORD_ResourceString("IDS_TAVO_UI_FIT_COLUMN", L"열 너비 맞춤(&F)").c_str(),
                         [this, column] { (void)userFitColumn(column); }});
    items.push_back({VORD_ResourceString("IDS_TAVO_UI_FIT_COLUMNS", L"모든 열 너비 맞춤(&A)").c_str(), [this] {
                         for (const int one : m_columns.visible())
                             (void)userFitColumn(one);
                     }});
    bool hidden = false;
    for (int one = 0; one < m_columns.count(); ++one)
        hidden = hidden || (offersColumn(one) && !m_columns.at(one).visible);
    items.push_back({VORD_ResourceString("IDS_TAVO_UI_SHOW_COLUMNS", L"모든 열 표시(&S)").c_str(),
                     [this] { (void)userShowAllColumns(); }, hidden});
    items.push_back({VORD_ResourceString("IDS_TAVO_UI_RESET_COLUMNS", L"열 되돌리기(&R)").c_str(),
                     [this] { (void)userResetColumns(); }});
    items.push_back(MenuItem::separator());
    for (const int one : m_columns.order()) {
        if (!offersColumn(one)) continue;
        const bool shown = m_columns.at(one).visible;
        items.push_back({literal(m_columns.at(one).title),
                         [this, one, shown] { (void)userShowColumn(one, !shown); },
                         !shown || m_columns.visible().size() > 1, shown});
    }
    ShowMenu(std::move(items), at);
    return UserResult::done();
}
