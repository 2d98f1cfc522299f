// Where the cells of a list are, and how it scrolls.
#include "platform/toolkit/ListCtrl.h"
#include "platform/toolkit/Pictures.h"
#include "platform/toolkit/Toolkit.h"

#include <algorithm>

using tv::ui::Change;
using tv::ui::UserResult;

namespace {

constexpr int headerHeight = 24, nominalRows = 10, nominalWidth = 300;
constexpr int cellPadding = 12, checkBoxWidth = 20;
constexpr std::size_t mostMeasured = 500; // characters of a text
constexpr int mostSampled = 500;          // rows out of view
constexpr int widestFit = 1000;

} // namespace

void CListCtrl::MoveWindow(const CRect& rect) {
    m_placed = true;
    CWnd::MoveWindow(rect);
    scroll(m_topRow, m_scrollX);
}

// Where no face says how large it is, a list that nobody placed has room for some rows.
CSize CListCtrl::clientSize() const {
    if (m_client.cx > 0 && m_client.cy > 0) return m_client;
    const CRect& rect = GetWindowRect();
    if (m_placed) return {rect.Width(), std::max(0, rect.Height() - headerHeight)};
    return {rect.IsRectEmpty() ? nominalWidth : rect.Width(), nominalRows * m_rowHeight};
}

int CListCtrl::rowsInView() const { return std::max(1, clientSize().cy / m_rowHeight); }

void CListCtrl::scroll(int topRow, int scrollX) {
    const int top = std::clamp(topRow, 0, std::max(0, GetItemCount() - rowsInView()));
    const int room = clientSize().cx;
    const int x = std::clamp(scrollX, 0, std::max(0, m_columns.total(room) - room));
    if (top == m_topRow && x == m_scrollX) return;
    m_topRow = top;
    m_scrollX = x;
    tell(Change::scroll);
    placeEditor();
}

void CListCtrl::ScrollTo(int topRow) { scroll(topRow, m_scrollX); }

void CListCtrl::ScrollX(int x) { scroll(m_topRow, x); }

UserResult CListCtrl::userScroll(int topRow, int scrollX) {
    if (auto r = acceptsUser(); !r) return r;
    m_ensured = -1;
    scroll(topRow, scrollX);
    return UserResult::done();
}

void CListCtrl::EnsureVisible(int row) {
    if (row < 0 || row >= GetItemCount()) return;
    m_ensured = row;
    if (row < m_topRow)
        ScrollTo(row);
    else if (row - m_topRow >= rowsInView())
        ScrollTo(row - rowsInView() + 1);
}

void CListCtrl::EnsureColumnVisible(int column) {
    if (!m_columns.valid(column) || !m_columns.at(column).visible) return;
    const int left = m_columns.left(column), room = clientSize().cx;
    const int right = left + columnWidth(column);
    if (left < m_scrollX || right - left > room)
        ScrollX(left);
    else if (right > m_scrollX + room)
        ScrollX(right - room);
}

bool CListCtrl::fullyVisible(int row) const {
    return row >= m_topRow && row < GetItemCount() &&
           (std::int64_t(row) - m_topRow + 1) * m_rowHeight <= clientSize().cy;
}

CRect CListCtrl::cellRect(int row, int column) const {
    if (!m_columns.valid(column) || !m_columns.at(column).visible) return {};
    const int left = m_columns.left(column) - m_scrollX;
    // Rows far out of view are as far away as counting goes.
    const int top = static_cast<int>(
        std::clamp<std::int64_t>((std::int64_t(row) - m_topRow) * m_rowHeight, -1'000'000'000, 1'000'000'000));
    return {left, top, left + columnWidth(column), top + m_rowHeight};
}

int CListCtrl::hitTest(CPoint point, int& column) const {
    const CSize room = clientSize();
    column = -1;
    if (point.x < 0 || point.y < 0 || point.x >= room.cx || point.y >= room.cy) return -1;
    column = m_columns.columnAt(point.x + m_scrollX, room.cx);
    const int row = m_topRow + point.y / m_rowHeight;
    return row < GetItemCount() ? row : -1;
}

int CListCtrl::textWidth(std::wstring_view text) const {
    const tv::ui::Toolkit* toolkit = tv::ui::Toolkit::current();
    return toolkit ? toolkit->textWidth(*this, text.substr(0, mostMeasured)) : 0;
}

void CListCtrl::FitColumn(int column) {
    if (!m_columns.valid(column)) return;
    int width = textWidth(m_columns.at(column).title) + 2 * cellPadding; // and the sort mark
    const auto measure = [&](int row) {
        const tv::ui::ListCell one = cell(row, column);
        const int picture = one.picture ? static_cast<int>(tv::ui::pictureSize(one.picture).x) + 4 : 0;
        const int text = one.pictureOnly ? 0 : textWidth(one.text);
        width = std::max(width, text + picture + (one.checked < 0 ? 0 : checkBoxWidth) + cellPadding);
    };
    const int count = GetItemCount();
    for (int row = m_topRow; row < std::min(count, m_topRow + rowsInView() + 1); ++row)
        measure(row);
    for (std::int64_t i = 0, sampled = std::min(count, mostSampled); i < sampled; ++i)
        measure(static_cast<int>(i * count / sampled));
    SetColumnWidth(column, std::min(width, widestFit));
}

void CListCtrl::faceGeometry(CSize client, int rowHeight) {
    if (client == m_client && rowHeight == m_rowHeight) return;
    m_client = client;
    m_rowHeight = std::max(1, rowHeight);
    scroll(m_topRow, m_scrollX);
    if (m_ensured >= 0) EnsureVisible(m_ensured);
    placeEditor();
}
