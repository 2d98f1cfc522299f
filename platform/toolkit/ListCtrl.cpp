#include "platform/toolkit/ListCtrl.h"

#include "platform/text/ResourceString.h"
#include "platform/toolkit/Choice.h"
#include "platform/toolkit/Snapshot.h"

#include <algorithm>

using tv::ui::Change;
using tv::ui::Key;
using tv::ui::UserAction;
using tv::ui::UserResult;

namespace tv::ui {

ListCell TextRows::cell(int row, int column) const {
    if (row < 0 || row >= rowCount()) return {};
    const auto& cells = rows[static_cast<std::size_t>(row)];
    return column >= 0 && column < static_cast<int>(cells.size()) ? cells[static_cast<std::size_t>(column)]
                                                                  : ListCell{};
}

} // namespace tv::ui

void CListCtrl::SetColumns(std::vector<tv::ui::ListColumn> columns) {
    m_columns = std::move(columns);
    tell(Change::items);
}

void CListCtrl::SetModel(std::shared_ptr<const tv::ui::ListModel> model) {
    m_model = std::move(model);
    m_selection.clear();
    m_ensured = -1;
    m_changed = {0, -1};
    tell(Change::items);
}

void CListCtrl::RowsChanged(int first, int last) {
    std::erase_if(m_selection, [count = GetItemCount()](int row) { return row >= count; });
    m_changed = {first, last};
    tell(Change::items);
}

tv::ui::ListCell CListCtrl::cell(int row, int column) const {
    return m_model && row >= 0 && row < m_model->rowCount() ? m_model->cell(row, column) : tv::ui::ListCell{};
}

void CListCtrl::SetSelection(std::vector<int> rows) {
    std::erase_if(rows, [count = GetItemCount()](int row) { return row < 0 || row >= count; });
    std::sort(rows.begin(), rows.end());
    rows.erase(std::unique(rows.begin(), rows.end()), rows.end());
    if (!m_multiSelect && rows.size() > 1) rows.erase(rows.begin() + 1, rows.end());
    m_selection = std::move(rows);
    tell(Change::selection);
}

void CListCtrl::EnsureVisible(int row) {
    m_ensured = row;
    tell(Change::selection);
}

void CListCtrl::SetSortMark(int column, bool ascending) {
    m_sortColumn = column;
    m_sortAscending = ascending;
    tell(Change::look);
}

UserResult CListCtrl::acceptsCell(int row, int column) const {
    if (auto r = acceptsUser(); !r) return r;
    if (row < 0 || row >= GetItemCount() || column < 0 || column >= static_cast<int>(m_columns.size()))
        return refuse(VORD_ResourceString("IDS_TAVO_UI_NO_SUCH_CELL", L"그런 행이나 열이 없습니다."));
    return UserResult::done();
}

UserResult CListCtrl::userSelect(std::vector<int> rows) {
    if (auto r = acceptsUser(); !r) return r;
    if (!m_multiSelect && rows.size() > 1)
        return refuse(VORD_ResourceString("IDS_TAVO_UI_ONE_ROW", L"한 행만 선택할 수 있습니다."));
    for (const int row : rows)
        if (row < 0 || row >= GetItemCount())
            return refuse(VORD_ResourceString("IDS_TAVO_UI_NO_SUCH_CELL", L"그런 행이나 열이 없습니다."));
    takeFocus();
    if (auto r = acceptsUser(); !r) return r;
    const auto before = m_selection;
    SetSelection(std::move(rows));
    if (m_selection != before && onSelChange) onSelChange();
    return UserResult::done();
}

UserResult CListCtrl::userClick(int row, int column) {
    if (auto r = acceptsCell(row, column); !r) return r;
    if (auto r = userSelect({row}); !r) return r;
    if (onClick && acceptsCell(row, column)) onClick(row, column);
    return UserResult::done();
}

UserResult CListCtrl::userDoubleClick(int row, int column) {
    if (auto r = acceptsCell(row, column); !r) return r;
    if (auto r = userSelect({row}); !r) return r;
    if (onDoubleClick && acceptsCell(row, column)) onDoubleClick(row, column);
    return UserResult::done();
}

UserResult CListCtrl::userHeader(int column) {
    if (auto r = acceptsUser(); !r) return r;
    if (column < 0 || column >= static_cast<int>(m_columns.size()))
        return refuse(VORD_ResourceString("IDS_TAVO_UI_NO_SUCH_CELL", L"그런 행이나 열이 없습니다."));
    if (onHeaderClick) onHeaderClick(column);
    return UserResult::done();
}

UserResult CListCtrl::userEdit(int row, int column, const std::wstring& text) {
    if (auto r = acceptsCell(row, column); !r) return r;
    if (!cell(row, column).editable)
        return refuse(VORD_ResourceString("IDS_TAVO_UI_CELL_READ_ONLY", L"편집할 수 없는 칸입니다."));
    takeFocus();
    if (!onEdit || !onEdit(row, column, text))
        return refuse(VORD_ResourceString("IDS_TAVO_UI_TEXT_REFUSED", L"입력한 값을 받아들일 수 없습니다."));
    return UserResult::done();
}

UserResult CListCtrl::perform(const UserAction& action) {
    switch (action.kind) {
    case UserAction::Kind::selectRows: return userSelect(action.rows);
    case UserAction::Kind::choose: return userSelect({action.index});
    case UserAction::Kind::header: return userHeader(action.column);
    case UserAction::Kind::cell:
        switch (action.cell) {
        case UserAction::Cell::click: return userClick(action.row, action.column);
        case UserAction::Cell::doubleClick: return userDoubleClick(action.row, action.column);
        case UserAction::Cell::edit: return userEdit(action.row, action.column, action.text);
        case UserAction::Cell::cancel: return acceptsCell(action.row, action.column);
        }
        return UserResult::done();
    default: return CWnd::perform(action);
    }
}

bool CListCtrl::controlKey(const tv::ui::KeyEvent& key) {
    if (key.key == Key::character && key.ctrl && key.ch == L'A' && m_multiSelect) {
        std::vector<int> all(static_cast<std::size_t>(GetItemCount()));
        for (int i = 0; i < GetItemCount(); ++i) all[static_cast<std::size_t>(i)] = i;
        (void)userSelect(std::move(all));
        return true;
    }
    const auto target = tv::ui::listKeyTarget(key.key, GetCurSel(), GetItemCount());
    if (!target) return false;
    (void)userSelect({*target});
    EnsureVisible(*target);
    return true;
}

void CListCtrl::describe(tv::ui::ControlSnapshot& out) const {
    CWnd::describe(out);
    out.columns.emplace();
    for (const auto& column : m_columns) out.columns->push_back(column.title);
    out.selection = m_selection;
    out.rowCount = GetItemCount();
    out.firstRow = std::clamp(out.wantedFirst, 0, GetItemCount());
    const int last = std::min(GetItemCount(), out.firstRow + std::max(0, out.wantedCount));
    for (int row = out.firstRow; row < last; ++row) {
        auto& texts = out.rows.emplace_back();
        for (int column = 0; column < static_cast<int>(m_columns.size()); ++column)
            texts.push_back(cell(row, column).text);
    }
}
