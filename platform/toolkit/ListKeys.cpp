// A list by keyboard alone.
#include "platform/toolkit/Choice.h"
#include "platform/toolkit/Dialog.h"
#include "platform/toolkit/ListCtrl.h"

#include "platform/text/Unicode.h"

#include <algorithm>

using tv::ui::Key;
using tv::ui::KeyEvent;
using tv::ui::RowSet;

namespace {

constexpr int sidewaysStep = 20;             // pixels
constexpr int rowsPerSearch = 20'000;        // at one go; the rest follows when nothing else is due
constexpr std::size_t mostCopied = 16 << 20; // characters

std::wstring oneLine(std::wstring text) {
    for (wchar_t& ch : text)
        if (ch == L'\t' || ch == L'\n' || ch == L'\r') ch = L' ';
    return text;
}

} // namespace

bool CListCtrl::controlKey(const KeyEvent& key) { return moveFocus(key) || moveSideways(key) || command(key); }

bool CListCtrl::moveFocus(const KeyEvent& key) {
    if (key.alt) return false;
    const auto target =
        tv::ui::listKeyTarget(key.key, m_focusRow, GetItemCount(), std::max(1, rowsInView() - 1));
    if (!target) return false;
    if (*target < 0) return true;
    if (m_multiSelect && key.ctrl && !key.shift) {
        SetFocusCell(*target, m_focusColumn);
    } else {
        if (m_anchor < 0) m_anchor = std::max(0, m_focusRow);
        if (!press(*target, m_focusColumn < 0 ? m_columns.neighbour(-1, 0) : m_focusColumn, false, key.shift,
                   true))
            return true;
    }
    EnsureVisible(m_focusRow);
    return true;
}

bool CListCtrl::moveSideways(const KeyEvent& key) {
    if (key.key != Key::left && key.key != Key::right) return false;
    const int by = key.key == Key::right ? 1 : -1;
    if (key.ctrl && key.shift) {
        if (m_columns.valid(m_focusColumn))
            (void)userMoveColumn(m_focusColumn, m_columns.placeOf(m_focusColumn) + by);
    } else if (key.alt && key.shift) {
        if (m_columns.valid(m_focusColumn))
            (void)userResizeColumn(m_focusColumn, columnWidth(m_focusColumn) + by * 10);
    } else if (key.alt) {
        return false;
    } else {
        const auto shown = m_columns.visible();
        const bool cells =
            key.ctrl || (m_focusRow >= 0 && std::any_of(shown.begin(), shown.end(), [this](int column) {
                             return hasEditor(m_focusRow, column);
                         }));
        if (!cells) {
            (void)userScroll(m_topRow, m_scrollX + by * sidewaysStep);
            return true;
        }
        SetFocusCell(m_focusRow, m_columns.neighbour(m_focusColumn, m_focusColumn < 0 ? 0 : by));
    }
    EnsureColumnVisible(m_focusColumn);
    return true;
}

// The check box of the focused cell, or else of the first one in its row that has one.
bool CListCtrl::toggle() {
    if (m_focusRow < 0) return false;
    auto shown = m_columns.visible();
    shown.insert(shown.begin(), std::max(0, m_focusColumn));
    for (const int column : shown)
        if (const int checked = cell(m_focusRow, column).checked; checked >= 0 && onCheck) {
            (void)userCheck(m_focusRow, column, checked == 0);
            return true;
        }
    return false;
}

bool CListCtrl::command(const KeyEvent& key) {
    const bool plain = !key.ctrl && !key.alt;
    switch (key.key) {
    case Key::space:
        if (key.alt) return false;
        if (plain && !m_typed.empty()) return typed(L' ');
        if (!key.ctrl && toggle()) return true;
        if (plain && !key.shift && m_focusRow >= 0 && cell(m_focusRow, m_focusColumn).pictureOnly) {
            (void)userClick(m_focusRow, m_focusColumn);
            return true;
        }
        if (m_focusRow >= 0) (void)userPress(m_focusRow, m_focusColumn, key.ctrl && !key.shift, key.shift);
        return true;
    case Key::f2:
        if (!plain || m_focusRow < 0) return false;
        if (m_focusColumn >= 0 && hasEditor(m_focusRow, m_focusColumn)) {
            (void)userOpenEditor(m_focusRow, m_focusColumn);
            return true;
        }
        for (const int column : m_columns.visible())
            if (hasEditor(m_focusRow, column)) {
                (void)userOpenEditor(m_focusRow, column);
                return true;
            }
        return false;
    case Key::menu:
    case Key::f10:
        if (key.key == Key::f10 && !key.shift) return false;
        if (key.ctrl) {
            const int column = m_columns.neighbour(m_focusColumn, 0);
            (void)userHeaderMenu(column, CPoint{std::max(0, m_columns.left(column) - m_scrollX), 0});
            return true;
        }
        (void)userContextMenu(m_focusRow, m_focusColumn);
        return true;
    case Key::character:
        break;
    default:
        return false;
    }
    if (key.alt) return false;
    if (!key.ctrl) return typed(key.ch);
    switch (key.ch) {
    case L'A':
        if (!m_multiSelect) return false;
        selectByUser(RowSet::range(0, GetItemCount() - 1));
        return true;
    case L'I': {
        if (!m_multiSelect || !key.shift) return false;
        RowSet rows = m_selection;
        rows.invert(GetItemCount());
        selectByUser(std::move(rows));
        return true;
    }
    case L'S':
        if (!key.shift || !m_columns.valid(m_focusColumn)) return false;
        (void)userHeader(m_focusColumn);
        return true;
    case L'C':
        if (!m_selection.empty()) tv::ui::Toolkit::current()->setClipboardText(selectedText());
        return true;
    case L'+':
        for (const int column : m_columns.visible())
            (void)userFitColumn(column);
        return true;
    default:
        return false;
    }
}

std::wstring CListCtrl::selectedText() const {
    std::wstring out;
    const auto shown = m_columns.visible();
    for (const RowSet::Range& range : m_selection.ranges())
        for (int row = range.first; row <= range.last; ++row) {
            if (out.size() >= mostCopied) return out;
            for (std::size_t i = 0; i < shown.size(); ++i) {
                if (i > 0) out += L'\t';
                out += oneLine(cellText(row, shown[i]));
            }
            out += L'\n';
        }
    return out;
}

// --- typing to find ------------------------------------------------------------------------------------------

// Letters typed within a second belong together; the same letter again and again goes round among the rows that
// begin with it.
bool CListCtrl::typed(wchar_t ch) {
    m_typed += tv::text::foldCase(std::wstring(1, ch));
    m_forget = tv::ui::Toolkit::current()->after(std::chrono::seconds(1), [this] { m_typed.clear(); });
    const int count = GetItemCount();
    if (count == 0) return true;
    // A longer beginning may still fit the present row; a single letter leads on to the next.
    const bool oneLetter = m_typed.find_first_not_of(m_typed.front()) == std::wstring::npos;
    search((std::max(0, m_focusRow) + (oneLetter && m_focusRow >= 0 ? 1 : 0)) % count, count);
    return true;
}

int CListCtrl::typedColumn() const {
    const auto shown = m_columns.visible();
    const bool sorted = std::find(shown.begin(), shown.end(), m_sortColumn) != shown.end();
    return sorted ? m_sortColumn : m_columns.neighbour(-1, 0);
}

void CListCtrl::search(int from, int left) {
    const int count = GetItemCount(), column = typedColumn();
    if (count == 0 || !m_columns.valid(column)) return;
    const bool oneLetter = m_typed.find_first_not_of(m_typed.front()) == std::wstring::npos;
    const std::wstring prefix = oneLetter ? m_typed.substr(0, 1) : m_typed;
    for (int step = 0; step < std::min(left, rowsPerSearch); ++step) {
        const int row = static_cast<int>((std::int64_t(from) + step) % count);
        const std::wstring text = cellText(row, column);
        if (tv::text::foldCase(std::wstring_view(text).substr(0, prefix.size())).starts_with(prefix))
            return found(row);
    }
    left -= rowsPerSearch;
    m_searching.cancel();
    if (left <= 0) return;
    const int next = static_cast<int>((std::int64_t(from) + rowsPerSearch) % count);
    m_searching = tv::ui::Toolkit::current()->post([this, next, left] {
        if (!m_typed.empty()) search(next, left);
    });
}

void CListCtrl::found(int row) {
    m_searching.cancel();
    if (m_selection == RowSet{row} && m_focusRow == row) return;
    if (press(row, m_focusColumn < 0 ? m_columns.neighbour(-1, 0) : m_focusColumn, false, false, true))
        EnsureVisible(row);
}
