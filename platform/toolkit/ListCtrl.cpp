#include "platform/toolkit/ListCtrl.h"

#include "platform/text/ResourceString.h"
#include "platform/toolkit/Snapshot.h"
#include "platform/toolkit/TreeCtrl.h"

#include <algorithm>

using tv::ui::Change;
using tv::ui::RowSet;
using tv::ui::UserAction;
using tv::ui::UserResult;

CListCtrl::~CListCtrl() = default;

// --- columns -------------------------------------------------------------------------------------------------

void CListCtrl::SetColumns(std::vector<tv::ui::ListColumn> columns) {
    rememberMade(columns);
    m_columns.assign(std::move(columns));
    m_focusColumn = std::min(m_focusColumn, m_columns.count() - 1);
    tell(Change::items);
    placeEditor();
}

int CListCtrl::InsertColumn(int at, tv::ui::ListColumn column) {
    const Made made{column.width, column.visible};
    at = m_columns.insert(at, std::move(column));
    m_made.insert(m_made.begin() + at, made);
    if (m_sortColumn >= at) ++m_sortColumn;
    if (m_focusColumn >= at) ++m_focusColumn;
    if (m_editor && m_editorColumn >= at) ++m_editorColumn;
    tell(Change::items);
    placeEditor();
    return at;
}

bool CListCtrl::DeleteColumn(int column) {
    if (!m_columns.valid(column)) return false;
    if (m_editor && m_editorColumn == column) CloseEditor();
    m_columns.erase(column);
    m_made.erase(m_made.begin() + column);
    if (m_sortColumn == column) m_sortColumn = -1;
    for (int* number : {&m_sortColumn, &m_focusColumn, &m_editorColumn})
        if (*number > column) --*number;
    m_focusColumn = std::min(m_focusColumn, m_columns.count() - 1);
    tell(Change::items);
    placeEditor();
    return true;
}

void CListCtrl::columnsChanged(bool byUser) {
    scroll(m_topRow, m_scrollX);
    tell(Change::columns);
    placeEditor();
    if (byUser && onColumnsChange) onColumnsChange();
}

void CListCtrl::SetColumnOrder(std::vector<int> order) {
    if (m_columns.setOrder(std::move(order))) columnsChanged(false);
}

void CListCtrl::SetColumnWidth(int column, int width) {
    if (!m_columns.valid(column)) return;
    m_columns.edit(column).width = std::max(0, width);
    columnsChanged(false);
}

void CListCtrl::ShowColumn(int column, bool show) {
    if (!m_columns.valid(column) || m_columns.at(column).visible == show) return;
    m_columns.edit(column).visible = show;
    if (!show && m_editor && m_editorColumn == column) CloseEditor();
    columnsChanged(false);
}

// --- rows ----------------------------------------------------------------------------------------------------

void CListCtrl::SetModel(std::shared_ptr<tv::ui::ListModel> model) {
    CloseEditor();
    m_searching.cancel();
    m_typed.clear();
    m_model = std::move(model);
    m_selection = {};
    m_focusRow = m_anchor = m_ensured = -1;
    m_topRow = 0;
    m_changed = {0, -1};
    tell(Change::items);
}

void CListCtrl::RowsChanged(int first, int last) {
    const int count = GetItemCount();
    m_selection.clip(count);
    m_focusRow = std::min(m_focusRow, count - 1);
    m_anchor = std::min(m_anchor, count - 1);
    if (m_editor && m_editorRow >= count) CloseEditor();
    m_changed = {first, last};
    tell(Change::items);
    scroll(m_topRow, m_scrollX);
}

void CListCtrl::RowsInserted(int at, int count) {
    if (at >= 0 && count > 0) rowsMoved(at, count);
}

void CListCtrl::RowsRemoved(int at, int count) {
    if (at < 0 || count <= 0) return;
    if (m_editor && m_editorRow >= at && m_editorRow - at < count) CloseEditor();
    rowsMoved(at, -count);
}

void CListCtrl::rowsMoved(int at, int by) {
    m_selection.shift(at, by);
    // A row that is gone gives its place to the one behind it.
    for (int* row : {&m_focusRow, &m_anchor, &m_editorRow})
        if (*row >= at) *row = std::max(at, *row + by);
    if (m_clicked.row >= at) m_clicked.identity = -1; // another row stands there now
    if (m_topRow > at) m_topRow = std::max(at, m_topRow + by);
    m_ensured = -1;
    RowsChanged();
    placeEditor();
}

tv::ui::ListCell CListCtrl::cell(int row, int column) const {
    return m_model && row >= 0 && row < m_model->rowCount() ? m_model->cell(row, column) : tv::ui::ListCell{};
}

std::wstring CListCtrl::cellText(int row, int column) const {
    return m_model && row >= 0 && row < m_model->rowCount() ? m_model->text(row, column) : std::wstring();
}

void CListCtrl::setSelection(RowSet rows) {
    rows.clip(GetItemCount());
    if (!m_multiSelect && rows.count() > 1) rows = {rows.first()};
    m_selection = std::move(rows);
    tell(Change::selection);
}

void CListCtrl::SetSelection(RowSet rows) {
    setSelection(std::move(rows));
    if (m_selection.empty() || m_selection.contains(m_focusRow)) return;
    m_anchor = m_selection.first();
    SetFocusCell(m_anchor, m_focusColumn);
}

void CListCtrl::SetFocusCell(int row, int column) {
    row = std::clamp(row, -1, GetItemCount() - 1);
    column = std::clamp(column, -1, m_columns.count() - 1);
    if (row == m_focusRow && column == m_focusColumn) return;
    m_focusRow = row;
    m_focusColumn = column;
    tell(Change::selection);
}

void CListCtrl::SetRowHighlight(tv::ui::RowHighlight highlight) {
    m_highlight = highlight;
    tell(Change::look);
}

void CListCtrl::SetSortMark(int column, bool ascending) {
    m_sortColumn = column;
    m_sortAscending = ascending;
    tell(Change::look);
}

void CListCtrl::SortBy(int column, bool ascending) {
    if (!m_model || !m_columns.valid(column) || !m_model->sortable(column)) return;
    LeaveEditor();
    if (!m_model || !m_columns.valid(column)) return; // what the edit led to
    m_searching.cancel();
    const int count = GetItemCount();
    m_selection.clip(count); // should the model have shrunk in silence
    m_focusRow = std::min(m_focusRow, count - 1);
    m_anchor = std::min(m_anchor, count - 1);
    // All or nothing stays what it is.
    const bool whole = m_selection.empty() || m_selection.count() == count;
    std::vector<int> selected = whole ? std::vector<int>() : m_selection.rows();
    for (int& row : selected)
        row = m_model->identity(row);
    const int focus = m_focusRow < 0 ? -1 : m_model->identity(m_focusRow);
    const int anchor = m_anchor < 0 ? -1 : m_model->identity(m_anchor);
    m_model->sort(column, ascending);
    for (int& row : selected)
        row = m_model->rowOf(row);
    if (!whole) m_selection = RowSet(std::move(selected));
    if (focus >= 0) m_focusRow = m_model->rowOf(focus);
    if (anchor >= 0) m_anchor = m_model->rowOf(anchor);
    m_changed = {0, -1};
    SetSortMark(column, ascending);
    tell(Change::items);
    if (m_focusRow >= 0) EnsureVisible(m_focusRow);
}

// --- the user path -------------------------------------------------------------------------------------------

UserResult CListCtrl::acceptsColumn(int column) const {
    if (auto r = acceptsUser(); !r) return r;
    if (!m_columns.valid(column))
        return refuse(VORD_ResourceString("IDS_TAVO_UI_NO_SUCH_CELL", L"그런 행이나 열이 없습니다."));
    return UserResult::done();
}

UserResult CListCtrl::acceptsCell(int row, int column) const {
    if (auto r = acceptsColumn(column); !r) return r;
    if (row < 0 || row >= GetItemCount())
        return refuse(VORD_ResourceString("IDS_TAVO_UI_NO_SUCH_CELL", L"그런 행이나 열이 없습니다."));
    return UserResult::done();
}

// A cell a person can see, or scroll to.
UserResult CListCtrl::acceptsShownCell(int row, int column) const {
    if (auto r = acceptsCell(row, column); !r) return r;
    if (!m_columns.at(column).visible)
        return refuse(VORD_ResourceString("IDS_TAVO_UI_COLUMN_HIDDEN", L"그 열은 숨겨져 있습니다."));
    return UserResult::done();
}

void CListCtrl::selectByUser(RowSet rows) {
    const RowSet before = m_selection;
    setSelection(std::move(rows));
    if (m_selection != before && onSelChange) onSelChange();
}

UserResult CListCtrl::userSelect(RowSet rows) {
    if (auto r = acceptsUser(); !r) return r;
    if (!m_multiSelect && rows.count() > 1)
        return refuse(VORD_ResourceString("IDS_TAVO_UI_ONE_ROW", L"한 행만 선택할 수 있습니다."));
    if (!rows.empty() && (rows.first() < 0 || rows.last() >= GetItemCount()))
        return refuse(VORD_ResourceString("IDS_TAVO_UI_NO_SUCH_CELL", L"그런 행이나 열이 없습니다."));
    takeFocus();
    if (auto r = acceptsUser(); !r) return r;
    if (!rows.empty() && !rows.contains(m_focusRow)) m_focusRow = m_anchor = rows.first();
    selectByUser(std::move(rows));
    return UserResult::done();
}

UserResult CListCtrl::userPress(int row, int column, bool ctrl, bool shift) {
    return press(row, column, ctrl, shift, false);
}

UserResult CListCtrl::press(int row, int column, bool ctrl, bool shift, bool byKey) {
    if (auto r = acceptsCell(row, column); !r) return r;
    takeFocus();
    if (auto r = acceptsCell(row, column); !r) return r;
    m_focusRow = row;
    m_focusColumn = column;
    m_clicked = {};
    RowSet rows{row};
    if (m_multiSelect && shift && m_anchor >= 0) {
        rows = ctrl ? m_selection : RowSet();
        rows.insert(std::min(m_anchor, row), std::max(m_anchor, row));
    } else {
        m_anchor = row;
        const bool keeps = !byKey && !ctrl && !shift && m_selection.contains(row);
        if (m_multiSelect && keeps && keepsSelection(row, column)) {
            rows = m_selection;
        } else if (m_multiSelect && ctrl) {
            rows = m_selection;
            if (rows.contains(row))
                rows.erase(row);
            else
                rows.insert(row);
        }
    }
    selectByUser(std::move(rows));
    return UserResult::done();
}

void CListCtrl::OnCellClick(int row, int column) {
    if (onClick) onClick(row, column);
}

void CListCtrl::OnTakeBack(int row, int column) {
    if (onTakeBack) onTakeBack(row, column);
}

void CListCtrl::OnDoubleClick(int row, int column) {
    if (onDoubleClick) onDoubleClick(row, column);
}

UserResult CListCtrl::userClick(int row, int column) {
    if (auto r = acceptsShownCell(row, column); !r) return r;
    if (auto r = userPress(row, column, false, false); !r) return r;
    if (!acceptsCell(row, column)) return UserResult::done();
    m_clicked = {row, column, identityOf(row)};
    OnCellClick(row, column);
    return UserResult::done();
}

UserResult CListCtrl::userDoubleClick(int row, int column) {
    if (auto r = acceptsShownCell(row, column); !r) return r;
    const auto clicked = m_clicked;
    const bool again = clicked.row == row && clicked.column == column;
    if (again && clicked.identity != identityOf(row)) return userPress(row, column, false, false);
    if (auto r = userPress(row, column, false, false); !r) return r;
    if (again && acceptsCell(row, column)) OnTakeBack(row, column);
    // Taking it back may have brought the row to another place.
    const int now = again && m_model ? m_model->rowOf(clicked.identity) : row;
    if (acceptsCell(now, column)) OnDoubleClick(now, column);
    return UserResult::done();
}

UserResult CListCtrl::userHeader(int column) {
    if (auto r = acceptsColumn(column); !r) return r;
    LeaveEditor();
    if (!acceptsColumn(column)) return UserResult::done();
    if (onHeaderClick) {
        onHeaderClick(column);
    } else if (m_model && m_model->sortable(column)) {
        SortBy(column, m_sortColumn != column || !m_sortAscending);
        if (onColumnsChange) onColumnsChange();
    }
    return UserResult::done();
}

UserResult CListCtrl::userEdit(int row, int column, const std::wstring& text) {
    if (auto r = acceptsShownCell(row, column); !r) return r;
    if (!cell(row, column).editable)
        return refuse(VORD_ResourceString("IDS_TAVO_UI_CELL_READ_ONLY", L"편집할 수 없는 칸입니다."));
    takeFocus();
    if (!onEdit || !onEdit(row, column, text))
        return refuse(VORD_ResourceString("IDS_TAVO_UI_TEXT_REFUSED", L"입력한 값을 받아들일 수 없습니다."));
    return UserResult::done();
}

UserResult CListCtrl::userCheck(int row, int column, bool checked) {
    if (auto r = acceptsShownCell(row, column); !r) return r;
    const int now = cell(row, column).checked;
    if (now < 0 || !onCheck)
        return refuse(VORD_ResourceString("IDS_TAVO_UI_CELL_READ_ONLY", L"편집할 수 없는 칸입니다."));
    takeFocus();
    if (auto r = acceptsCell(row, column); !r) return r;
    if ((now != 0) != checked) onCheck(row, column, checked);
    return UserResult::done();
}

UserResult CListCtrl::userContextMenu(int row, int column) {
    if (auto r = row < 0 ? acceptsUser() : acceptsCell(row, std::max(column, 0)); !r) return r;
    LeaveEditor();
    if (row >= 0 && !m_selection.contains(row)) {
        if (auto r = userPress(row, std::max(column, 0), false, false); !r) return r;
    } else {
        takeFocus();
        if (row >= 0) SetFocusCell(row, column);
    }
    if (row >= 0 && !acceptsCell(row, std::max(column, 0))) return UserResult::done();
    if (onContextMenu && acceptsUser()) onContextMenu(std::max(row, -1), row < 0 ? -1 : column);
    return UserResult::done();
}

UserResult CListCtrl::userBeginDrag() {
    if (auto r = acceptsUser(); !r) return r;
    if (m_selection.empty() || !onBeginDrag || !onBeginDrag())
        return refuse(VORD_ResourceString("IDS_TAVO_UI_NO_DRAG", L"끌어 옮길 수 없습니다."));
    return UserResult::done();
}

UserResult CListCtrl::userMoveColumn(int column, int place) {
    if (auto r = acceptsColumn(column); !r) return r;
    m_columns.move(column, place);
    columnsChanged(true);
    return UserResult::done();
}

UserResult CListCtrl::userResizeColumn(int column, int width) {
    if (auto r = acceptsColumn(column); !r) return r;
    // A person may make it narrower than its title.
    m_columns.setNarrow(column, true);
    m_columns.edit(column).width = std::clamp(width, 0, 10000);
    columnsChanged(true);
    return UserResult::done();
}

UserResult CListCtrl::userFitColumn(int column) {
    if (auto r = acceptsColumn(column); !r) return r;
    FitColumn(column);
    if (onColumnsChange) onColumnsChange();
    return UserResult::done();
}

UserResult CListCtrl::userShowColumn(int column, bool show) {
    if (auto r = acceptsColumn(column); !r) return r;
    if (!show && m_columns.visible() == std::vector<int>{column})
        return refuse(VORD_ResourceString("IDS_TAVO_UI_LAST_COLUMN", L"마지막 열은 숨길 수 없습니다."));
    LeaveEditor();
    if (!acceptsColumn(column)) return UserResult::done();
    ShowColumn(column, show);
    if (onColumnsChange) onColumnsChange();
    return UserResult::done();
}

UserResult CListCtrl::carryOut(const UserAction& action) {
    switch (action.kind) {
    case UserAction::Kind::selectRows:
        return userSelect(action.rows);
    case UserAction::Kind::choose:
        return userSelect({action.index});
    case UserAction::Kind::header:
        return userHeader(action.column);
    case UserAction::Kind::moveColumn:
        return userMoveColumn(action.column, action.index);
    case UserAction::Kind::resizeColumn:
        return action.index < 0 ? userFitColumn(action.column) : userResizeColumn(action.column, action.index);
    case UserAction::Kind::columnMenu:
        return userHeaderMenu(action.column, CPoint{m_columns.left(action.column) - m_scrollX, 0});
    case UserAction::Kind::drag:
        if (auto r = userBeginDrag(); !r) return r;
        return CTreeCtrl::dropByAction(*this, action);
    case UserAction::Kind::showColumn:
        return userShowColumn(action.column, action.checked != 0);
    case UserAction::Kind::cell:
        switch (action.cell) {
        case UserAction::Cell::click:
            return userClick(action.row, action.column);
        case UserAction::Cell::doubleClick:
            // The first half of it may have led elsewhere.
            if (auto r = userClick(action.row, action.column); !r) return r;
            return m_clicked.row < 0 || m_editor || !acceptsUser() ? UserResult::done()
                                                                   : userDoubleClick(action.row, action.column);
        case UserAction::Cell::menu:
            return userContextMenu(action.row, action.column);
        case UserAction::Cell::edit:
            return userEdit(action.row, action.column, action.text);
        case UserAction::Cell::open:
            return userOpenEditor(action.row, action.column);
        case UserAction::Cell::check:
            return userCheck(action.row, action.column, action.checked != 0);
        case UserAction::Cell::cancel:
            if (auto r = acceptsCell(action.row, action.column); !r) return r;
            CloseEditor();
            return UserResult::done();
        }
        return UserResult::done();
    default:
        return CWnd::carryOut(action);
    }
}

void CListCtrl::describe(tv::ui::ControlSnapshot& out) const {
    CWnd::describe(out);
    constexpr std::size_t most = 1000;
    out.columns.emplace();
    for (const auto& column : columns())
        out.columns->push_back(column.title);
    if (const auto shown = m_columns.visible();
        static_cast<int>(shown.size()) < m_columns.count() || !std::is_sorted(shown.begin(), shown.end()))
        out.columnsShown = shown;
    if (m_sortColumn >= 0) out.sorted = {m_sortColumn, m_sortAscending};
    out.selection = m_selection.rows(most);
    if (m_selection.count() > static_cast<std::int64_t>(most)) {
        out.selectedCount = m_selection.count();
        const auto& ranges = m_selection.ranges();
        out.selectedRanges.assign(ranges.begin(),
                                  ranges.begin() + static_cast<std::ptrdiff_t>(std::min(most, ranges.size())));
    }
    if (m_focusRow >= 0) out.focusCell = {m_focusRow, m_focusColumn};
    out.rowCount = GetItemCount();
    out.firstRow = std::clamp(out.wantedFirst, 0, GetItemCount());
    const int last = out.firstRow + std::min(GetItemCount() - out.firstRow, std::max(0, out.wantedCount));
    for (int row = out.firstRow; row < last; ++row) {
        auto& texts = out.rows.emplace_back();
        for (int column = 0; column < m_columns.count(); ++column)
            texts.push_back(cellText(row, column));
    }
}
