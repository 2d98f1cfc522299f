#pragma once

#include "platform/toolkit/ListItems.h"
#include "platform/toolkit/Wnd.h"

#include <functional>
#include <memory>

namespace tv::ui {

struct ListCell {
    std::wstring text;
    Picture picture;         // before the text
    int icon = 0;            // a number the list's owner gives meaning to; 0: none
    int checked = -1;        // -1: no check box, else 0, 1
    bool editable = false;   // F2 or a second click opens an editor
};

struct ListColumn {
    std::wstring title;
    int width = 100;         // logical pixels
    enum class Align { left, right, center } align = Align::left;
    bool visible = true;
};

// The rows of a list. A face asks for the rows in view only, so a list of 100,000 rows costs what it shows.
class KXPLATFORM_EXPORT ListModel {
  public:
    virtual ~ListModel() = default;
    virtual int rowCount() const = 0;
    virtual ListCell cell(int row, int column) const = 0;
};

// A model for short lists: texts row by row.
class KXPLATFORM_EXPORT TextRows : public ListModel {
  public:
    std::vector<std::vector<ListCell>> rows;
    int rowCount() const override { return static_cast<int>(rows.size()); }
    ListCell cell(int row, int column) const override;
};

} // namespace tv::ui

// A grid of rows and columns over a model.
class KXPLATFORM_EXPORT CListCtrl : public CWnd {
  public:
    CListCtrl(CWnd& parent, const char* name, bool multiSelect = false) : CWnd(parent, name), m_multiSelect(multiSelect) {}
    tv::ui::ControlKind kind() const override { return tv::ui::ControlKind::list; }
    bool focusable() const override { return true; }
    bool multiSelect() const { return m_multiSelect; }

    void SetColumns(std::vector<tv::ui::ListColumn> columns);
    const std::vector<tv::ui::ListColumn>& columns() const { return m_columns; }
    // Shares the model; null empties the list. Clears the selection.
    void SetModel(std::shared_ptr<const tv::ui::ListModel> model);
    // The model's rows changed: their number, or the contents of [first, last] (-1: all). Selected rows that no longer
    // exist are dropped.
    void RowsChanged(int first = 0, int last = -1);
    int GetItemCount() const { return m_model ? m_model->rowCount() : 0; }
    tv::ui::ListCell cell(int row, int column) const;

    // Rows in ascending order.
    const std::vector<int>& selection() const { return m_selection; }
    void SetSelection(std::vector<int> rows);
    int GetCurSel() const { return m_selection.empty() ? -1 : m_selection.front(); }
    void EnsureVisible(int row);
    int ensuredRow() const { return m_ensured; }
    // The marker in the header: which column sorts, and which way; -1: none.
    void SetSortMark(int column, bool ascending);
    int sortColumn() const { return m_sortColumn; }
    bool sortAscending() const { return m_sortAscending; }
    // The rows the last RowsChanged named, for the face.
    std::pair<int, int> changedRows() const { return m_changed; }

    std::function<void()> onSelChange;
    std::function<void(int row, int column)> onClick, onDoubleClick;
    std::function<void(int column)> onHeaderClick;
    // The text a person entered; false refuses it and keeps the editor open.
    std::function<bool(int row, int column, const std::wstring& text)> onEdit;

    tv::ui::UserResult userSelect(std::vector<int> rows);
    tv::ui::UserResult userClick(int row, int column);
    tv::ui::UserResult userDoubleClick(int row, int column);
    tv::ui::UserResult userHeader(int column);
    tv::ui::UserResult userEdit(int row, int column, const std::wstring& text);
    tv::ui::UserResult perform(const tv::ui::UserAction& action) override;
    bool controlKey(const tv::ui::KeyEvent& key) override;
    void describe(tv::ui::ControlSnapshot& out) const override;

  private:
    tv::ui::UserResult acceptsCell(int row, int column) const;
    bool m_multiSelect;
    std::vector<tv::ui::ListColumn> m_columns;
    std::shared_ptr<const tv::ui::ListModel> m_model;
    std::vector<int> m_selection;
    int m_ensured = -1;
    int m_sortColumn = -1;
    bool m_sortAscending = true;
    std::pair<int, int> m_changed{0, -1};
};
