#pragma once

#include "kxgui/controls/InPlaceCtrlModel.h"
#include "kxgui/controls/VORDBaseListCtrl.h"

#include <functional>
#include <memory>

// A table over a model that says itself what each cell is edited with. A text the model refuses keeps the
// editor open on Enter and Tab; when the focus leaves, the cell keeps its value. Either way the reason is told.
class KXGUI_EXPORT CListEditableCtrl : public VORDBaseListCtrl {
  public:
    using VORDBaseListCtrl::VORDBaseListCtrl;

    void SetCellModel(std::shared_ptr<CInPlaceCtrlModel> model);
    CInPlaceCtrlModel* cellModel() const { return m_cells.get(); }

    // The model took a text or refused it.
    std::function<void(int row, int column, const InPlaceAnswer& answer)> onEntered;

    bool OnItemLButtonClick(int item, int column) override;
    bool SetItemText(int item, int column, std::wstring_view text) override;
    bool hasEditor(int row, int column) const override;
    bool openEditor(int row, int column) override;
    bool mayLeaveEditor() override;
    // Space and F2 toggle a cell that has no editor to open.
    bool controlKey(const tv::ui::KeyEvent& key) override;

  protected:
    void OnEndLabelEdit(const LVDispInfo& info) override;
    int editedItem() const override;
    void OnEditorMoved() override;

  private:
    CInPlaceCtrlModel::Editor editorOf(int row, int column) const;
    bool toggle(int row, int column);
    // False when the model refuses it.
    bool enter(int row, int column, const std::wstring& text);
    void answered(int row, int column, const InPlaceAnswer& answer);
    void runCommandLater(int column);

    std::shared_ptr<CInPlaceCtrlModel> m_cells;
    std::uintptr_t m_key = 0; // of the row the open editor was begun on
    bool m_entered = false;   // what the editor holds is with the model already
    tv::ui::Timer m_command;
};
