#pragma once

#include "kxgui/controls/InPlaceDescriptors.h"
#include "platform/toolkit/ListCtrl.h"

#include <functional>
#include <memory>
#include <optional>
#include <string>
#include <vector>

// How the selected rows are painted: the whole row, its first column only, or the whole row while the list or
// one of its editors has the focus.
enum EHighlight : unsigned { kHighlightRow = 0, kHighlightFirst = 1, kHighlightWhileFocused = 2 };

// The end of an edit, as the list's owner hears of it: a typed text, a chosen one and a toggled one alike.
struct LVDispInfo {
    int item = -1, column = -1;
    std::optional<std::wstring> text; // none: nothing was entered, or nothing is to change
    bool cancelled = false;
};

// A table whose columns say once what their cells are edited with. A click on a cell opens its column's editor;
// the owner reacts to the end of the edit. An edit whose row is another one by then is dropped.
class KXGUI_EXPORT VORDBaseListCtrl : public CListCtrl {
  public:
    using CListCtrl::CListCtrl;

    // --- columns and what they are edited with ---

    // The new column has no editor. Its number, that of the last one for a place beyond it; -1 for no place.
    int InsertColumn(int column, const tv::ui::ListColumn& description);
    // An open edit ends first. The texts of own rows stay with their columns.
    bool DeleteColumn(int column);
    // No column has an editor afterwards.
    void SetColumns(std::vector<tv::ui::ListColumn> columns);
    // False when there is no such column. A column that has an editor already keeps it and its filler: only the
    // style is replaced.
    bool CreateInPlaceEdit(int column, unsigned style, ICtrlFillerPtr filler);
    // The same, but what is replaced is the class and the filler: the value and the style stay.
    bool CreateInPlaceCombobox(int column, const CRuntimeClass* runtime, int value, unsigned style,
                               ICtrlFillerPtr filler);
    const HeaderInplaceData* headerData(int column) const; // null: not editable
    // Shows rows of somebody else.
    void SetModel(std::shared_ptr<tv::ui::ListModel> model);

    // Rows came or went in a model of somebody else. An open edit stays with its row, and ends without a word
    // when that is gone.
    void RowsInserted(int at, int count = 1);
    void RowsRemoved(int at, int count = 1);

    // --- own rows ---

    // Rows of a list without a model of its own. The first call makes the list one of those.
    int InsertItem(int item, std::wstring_view text); // -1: behind the last one
    bool DeleteItem(int item);
    void DeleteAllItems();
    // False when there is no such cell, or the list's model is not its own.
    virtual bool SetItemText(int item, int column, std::wstring_view text);
    std::wstring GetItemText(int item, int column) const { return cellText(item, column); }

    // --- editing ---

    // A click on a cell: opens the editor of its column. True when one was opened.
    virtual bool OnItemLButtonClick(int item, int column);
    // Toggles a cell between two texts and reports the new one. 0 when nothing was done.
    int ToggleSubLabel(int item, int column, std::wstring_view text1, std::wstring_view text2);
    // These open an editor whatever the column declares. False, and null, when the cell can't be shown.
    bool EditSubLabel(int item, int column);
    CComboBox* ShowInPlaceList(int item, int column, const std::vector<std::wstring>& texts, int selected);
    // Closes an open editor as if the focus had left it: what it holds is reported.
    void EndLabelEditing();
    // Told once at the end of every edit. The list's rows are the owner's: it stores the text.
    std::function<void(const LVDispInfo&)> onEndLabelEdit;

    // The row under a point and the column of the cell; -1 for neither.
    int HitTestEx(CPoint point, int& column) const { return hitTest(point, column); }

    // In the list's font.
    int GetComboBoxLongestStrWidth(const CComboBox& combo) const;
    virtual void UpdateComboboxDroppedWidth(CComboBox& combo);

    EHighlight GetHighlightType() const { return m_highlightType; }
    // The mode before; a value above 2 changes nothing.
    EHighlight SetHighlightType(unsigned type);

    // --- for the editors ---

    // False keeps an editor that Enter or Tab would leave.
    virtual bool mayLeaveEditor() { return true; }
    // The focus left the editor, which holds `text`.
    void editorLeft(std::optional<std::wstring> text, bool cancelled);
    // Leaves the editor and opens the one of the next cell that has one, in this row or further on.
    void editNextCell(bool backwards);

    bool hasEditor(int row, int column) const override;
    bool openEditor(int row, int column) override;
    tv::ui::KeyRoute routeKey(const tv::ui::KeyEvent& key) override;
    void OnKillFocus() override;

  protected:
    // Lets a derived list fill a drop-down list, after its filler, before it is shown.
    virtual void InitalizeInplaceCombobox(CComboBox& combo, int item, int column, int value);
    virtual void OnEndLabelEdit(const LVDispInfo& info);
    // Rows came or went in front of the open editor's: it is another one now.
    virtual void OnEditorMoved();
    // The row that the open editor's cell belongs to now; -1 when it is gone or nobody can say.
    virtual int editedItem() const;
    void OnCellClick(int row, int column) override;

    // The row, wherever it is now, and its text when the editor opened.
    int openedItem() const { return m_editItem; }
    int openedColumn() const { return m_editColumn; }
    const std::wstring& openedText() const { return m_editText; }
    // A drop-down list is open that shows none of its entries: the cell's text isn't among them.
    bool nothingChosen() const;
    bool openEdit(int item, int column, std::wstring_view text, unsigned style);
    // `fill` fills it; an entry with the cell's text is selected when it selected none.
    CComboBox* openCombo(int item, int column, const CRuntimeClass* runtime, unsigned style,
                         const std::function<void(CComboBox&)>& fill);

  private:
    bool bringIntoView(int item, int column);
    bool showEditor(std::unique_ptr<CWnd> editor, int item, int column);
    tv::ui::TextRows& ownRows();

    std::vector<std::unique_ptr<HeaderInplaceData>> m_headerData; // by column
    std::shared_ptr<tv::ui::TextRows> m_rows;                     // null: the model is somebody else's
    EHighlight m_highlightType = kHighlightRow;
    // What the open editor stands on.
    unsigned m_edit = 0; // counts the editors, so that a later one is told from an earlier one
    bool m_editing = false, m_cancelled = false;
    int m_editItem = -1, m_editIdentity = -1, m_editColumn = -1, m_editCount = 0;
    std::wstring m_editText;
    tv::ui::Timer m_leaving;
};
