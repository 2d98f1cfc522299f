#pragma once

#include "platform/toolkit/ListColumns.h"
#include "platform/toolkit/ListModel.h"
#include "platform/toolkit/RowSet.h"
#include "platform/toolkit/Wnd.h"

#include <functional>
#include <memory>

namespace tv::ui {

// How a selected row is painted.
enum class RowHighlight { wholeRow, firstColumn, whileFocused };

} // namespace tv::ui

// A grid of rows and columns over a model. Columns are named by their number in SetColumns, wherever they
// stand; rows by their place from the top. Points and rectangles within it count from the upper left corner
// below the titles.
class KXPLATFORM_EXPORT CListCtrl : public CWnd {
  public:
    CListCtrl(CWnd& parent, const char* name, bool multiSelect = false)
        : CWnd(parent, name), m_multiSelect(multiSelect) {}
    ~CListCtrl() override;
    tv::ui::ControlKind kind() const override { return tv::ui::ControlKind::list; }
    bool focusable() const override { return true; }
    bool multiSelect() const { return m_multiSelect; }
    void MoveWindow(const CRect& rect) override;

    // --- columns ---

    void SetColumns(std::vector<tv::ui::ListColumn> columns);
    const std::vector<tv::ui::ListColumn>& columns() const { return m_columns.all(); }
    // The new column's number, `at` or the last one; the columns from there on count one more.
    int InsertColumn(int at, tv::ui::ListColumn column);
    bool DeleteColumn(int column);
    const tv::ui::ListColumns& layout() const { return m_columns; }
    void SetColumnOrder(std::vector<int> order);
    void SetColumnWidth(int column, int width);
    // As wide as the title and the texts of the rows in view and of some others need.
    void FitColumn(int column);
    void ShowColumn(int column, bool show);
    // As it is shown: the title's width at least, and the last one takes the room left over.
    int columnWidth(int column) const { return m_columns.shownWidth(column, clientSize().cx); }

    // --- rows ---

    // Shares the model; null empties the list. Clears the selection.
    void SetModel(std::shared_ptr<tv::ui::ListModel> model);
    // The model's rows changed: their number, or the contents of [first, last] (-1: all). Selected rows that no
    // longer exist are dropped.
    void RowsChanged(int first = 0, int last = -1);
    // The model has `count` rows more from `at` on, or less. What was selected stays so, and what is seen stays
    // in place.
    void RowsInserted(int at, int count = 1);
    void RowsRemoved(int at, int count = 1);
    int GetItemCount() const { return m_model ? m_model->rowCount() : 0; }
    tv::ui::ListCell cell(int row, int column) const;
    std::wstring cellText(int row, int column) const;

    const tv::ui::RowSet& selection() const { return m_selection; }
    void SetSelection(tv::ui::RowSet rows);
    int GetCurSel() const { return m_selection.first(); }
    // The cell the keyboard works on; -1: none yet.
    int focusRow() const { return m_focusRow; }
    int focusColumn() const { return m_focusColumn; }
    void SetFocusCell(int row, int column);
    void SetRowHighlight(tv::ui::RowHighlight highlight);
    tv::ui::RowHighlight rowHighlight() const { return m_highlight; }

    // Sorts a model that can sort itself. The selection and the focus stay with what they stood for.
    void SortBy(int column, bool ascending);
    // The marker in the header: which column sorts, and which way; -1: none.
    void SetSortMark(int column, bool ascending);
    int sortColumn() const { return m_sortColumn; }
    bool sortAscending() const { return m_sortAscending; }
    // The rows the last RowsChanged named, for the face.
    std::pair<int, int> changedRows() const { return m_changed; }

    // --- geometry ---

    CSize clientSize() const;
    int rowHeight() const { return m_rowHeight; }
    int rowsInView() const; // whole ones, at least 1
    int topRow() const { return m_topRow; }
    int scrollX() const { return m_scrollX; }
    void ScrollTo(int topRow);
    void ScrollX(int x); // 0: the left edge of the first column; goes no further than there is something to see
    void EnsureVisible(int row);
    void EnsureColumnVisible(int column);
    bool fullyVisible(int row) const;
    CRect cellRect(int row, int column) const;
    // The row at a point and its column; -1 where there is none.
    int hitTest(CPoint point, int& column) const;
    // In the list's font.
    int textWidth(std::wstring_view text) const;

    // --- editors in cells ---

    // Shows `editor`, a child window made for it, over the cell and gives it the focus. One at a time: an open
    // one is ended first. It follows its cell; MoveWindow (in the list's own coordinates) makes it larger than
    // that. While it has the focus it gets all keys before anybody else (CWnd::routeKey).
    void ShowEditor(std::unique_ptr<CWnd> editor, int row, int column);
    CWnd* editor() const { return m_editor.get(); }
    int editorRow() const { return m_editorRow; }
    int editorColumn() const { return m_editorColumn; }
    // Takes the editor off the screen at once and destroys it when everything under way has finished. The
    // focus, when the editor has it, goes to the list.
    void CloseEditor();
    // The focus leaves the editor, which ends itself as it sees fit; one that does not is closed.
    void LeaveEditor();
    // Whether the cell has an editor, and opening it. Without more, editable cells have one for their text.
    virtual bool hasEditor(int row, int column) const;
    virtual bool openEditor(int row, int column);

    // --- what happened ---

    std::function<void()> onSelChange;
    // A double click is told as a click, when the button is released for the first time, and then as onTakeBack
    // and onDoubleClick, when it is pressed again: what the click did at once is not what was meant. Nothing of
    // it is told when another row stands there by then, or when the click opened an editor.
    std::function<void(int row, int column)> onClick, onTakeBack, onDoubleClick;
    // Set, it decides what a click on a title does; else the model sorts when it can.
    std::function<void(int column)> onHeaderClick;
    // The text a person entered; false refuses it and keeps the editor open.
    std::function<bool(int row, int column, const std::wstring& text)> onEdit;
    std::function<void(int row, int column, bool checked)> onCheck;
    std::function<void(int row, int column)> onContextMenu; // row -1: where no row is
    // Whether the selected rows may be dragged to somewhere that takes them (CTreeCtrl::acceptsDrop). Without
    // it none may.
    std::function<bool()> onBeginDrag;
    // A person moved, resized, hid or showed a column, or sorted by one.
    std::function<void()> onColumnsChange;

    // --- the user path ---

    tv::ui::UserResult userSelect(tv::ui::RowSet rows);
    // A row is pressed: alone, with Shift up to the row before, with Ctrl added or taken away.
    tv::ui::UserResult userPress(int row, int column, bool ctrl, bool shift);
    tv::ui::UserResult userClick(int row, int column);
    tv::ui::UserResult userDoubleClick(int row, int column);
    tv::ui::UserResult userHeader(int column);
    tv::ui::UserResult userEdit(int row, int column, const std::wstring& text);
    tv::ui::UserResult userOpenEditor(int row, int column);
    tv::ui::UserResult userCheck(int row, int column, bool checked);
    tv::ui::UserResult userContextMenu(int row, int column);
    tv::ui::UserResult userBeginDrag();
    tv::ui::UserResult userMoveColumn(int column, int place);
    tv::ui::UserResult userResizeColumn(int column, int width);
    tv::ui::UserResult userFitColumn(int column);
    tv::ui::UserResult userShowColumn(int column, bool show);
    tv::ui::UserResult userShowAllColumns();
    // Order, widths and visibility as SetColumns had them.
    tv::ui::UserResult userResetColumns();
    // The menu of the titles, at one of them (-1: beside all).
    tv::ui::UserResult userHeaderMenu(int column, std::optional<CPoint> at = {});
    tv::ui::UserResult userScroll(int topRow, int scrollX);
    tv::ui::UserResult carryOut(const tv::ui::UserAction& action) override;
    bool controlKey(const tv::ui::KeyEvent& key) override;
    tv::ui::KeyRoute routeKey(const tv::ui::KeyEvent& key) override;
    void describe(tv::ui::ControlSnapshot& out) const override;
    // The selected rows as lines of the visible columns' texts, tabs between them; cut off after whole rows
    // when it gets too long for a clipboard.
    std::wstring selectedText() const;

    // --- told by the face ---

    void faceGeometry(CSize client, int rowHeight);
    void faceTitleWidth(int column, int width) { m_columns.setTitleWidth(column, width); }

  protected:
    void OnWindowGone() override;
    // What the row stands for in its model, which is more than its number in one that is sorted; -1 for none.
    int identityOf(int row) const {
        return m_model && row >= 0 && row < m_model->rowCount() ? m_model->identity(row) : -1;
    }
    // A click on a cell, after the row was selected.
    virtual void OnCellClick(int row, int column);
    // What OnCellClick did there a moment ago was not meant.
    virtual void OnTakeBack(int row, int column);
    virtual void OnDoubleClick(int row, int column);
    // Whether a plain press with the mouse on a cell of a selected row leaves the other rows selected, too.
    virtual bool keepsSelection(int /*row*/, int /*column*/) const { return false; }
    // Whether the menu of the titles lets a person show and hide the column.
    virtual bool offersColumn(int /*column*/) const { return true; }
    // The column whose texts are found by typing.
    virtual int typedColumn() const;
    // A person is in the middle of typing to find; a space belongs to what is typed.
    bool typing() const { return !m_typed.empty(); }
    // The row the open editor stands on is another one now.
    void MoveEditor(int row);

  private:
    tv::ui::UserResult press(int row, int column, bool ctrl, bool shift, bool byKey);
    tv::ui::UserResult acceptsCell(int row, int column) const;
    tv::ui::UserResult acceptsShownCell(int row, int column) const;
    tv::ui::UserResult acceptsColumn(int column) const;
    void rowsMoved(int at, int by);
    void setSelection(tv::ui::RowSet rows);
    void selectByUser(tv::ui::RowSet rows);
    void scroll(int topRow, int scrollX);
    void columnsChanged(bool byUser);
    void placeEditor();
    void sweep();
    CRect visibleCell(int row, int column) const;
    // Keys.
    bool moveFocus(const tv::ui::KeyEvent& key);
    bool moveSideways(const tv::ui::KeyEvent& key);
    bool toggle();
    bool command(const tv::ui::KeyEvent& key);
    bool typed(wchar_t ch);
    void search(int from, int left);
    void found(int row);

    void rememberMade(const std::vector<tv::ui::ListColumn>& columns);

    struct Made {
        int width = 0;
        bool visible = true;
    };
    std::vector<Made> m_made; // the columns as they came
    bool m_multiSelect;
    tv::ui::ListColumns m_columns;
    std::shared_ptr<tv::ui::ListModel> m_model;
    tv::ui::RowSet m_selection;
    int m_focusRow = -1, m_focusColumn = -1, m_anchor = -1;
    struct {
        int row = -1, column = -1, identity = -1;
    } m_clicked; // last, and nothing else since
    tv::ui::RowHighlight m_highlight = tv::ui::RowHighlight::wholeRow;
    int m_sortColumn = -1;
    bool m_sortAscending = true;
    std::pair<int, int> m_changed{0, -1};

    bool m_placed = false; // somebody gave it a rectangle
    CSize m_client;        // as the face has it; empty: nobody said
    int m_rowHeight = 20;
    int m_topRow = 0, m_scrollX = 0;
    int m_ensured = -1; // stays in view when the size becomes known

    std::unique_ptr<CWnd> m_editor;
    int m_editorRow = -1, m_editorColumn = -1;
    CRect m_editorCell; // where its cell was when it was placed
    std::vector<std::unique_ptr<CWnd>> m_closed;
    std::size_t m_closedUnder = 0; // modal windows at that time
    tv::ui::Timer m_sweep;

    std::wstring m_typed;
    tv::ui::Timer m_forget, m_searching;
};
