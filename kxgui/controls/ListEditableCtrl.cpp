#include "kxgui/controls/ListEditableCtrl.h"

#include "platform/toolkit/Edit.h"

#include <algorithm>

using Editor = CInPlaceCtrlModel::Editor;
using tv::ui::Key;

void CListEditableCtrl::SetCellModel(std::shared_ptr<CInPlaceCtrlModel> model) {
    m_cells = model;
    // A text for a cell whose editor nobody opened.
    onEdit = [this](int row, int column, const std::wstring& text) {
        return editorOf(row, column) != Editor::none && enter(row, column, text);
    };
    SetModel(std::move(model));
}

Editor CListEditableCtrl::editorOf(int row, int column) const {
    const bool there = m_cells && row >= 0 && row < GetItemCount() && layout().valid(column);
    return there ? m_cells->editor(row, column) : Editor::none;
}

bool CListEditableCtrl::hasEditor(int row, int column) const {
    const Editor editor = editorOf(row, column);
    return editor != Editor::none && editor != Editor::toggle;
}

bool CListEditableCtrl::openEditor(int row, int column) {
    EndLabelEditing(); // which may change the cell
    const Editor editor = editorOf(row, column);
    if (!hasEditor(row, column)) return false;
    m_key = m_cells->rowKey(row);
    m_entered = false;
    if (editor == Editor::edit) return openEdit(row, column, m_cells->editText(row, column), kInPlacePlain);
    CComboBox* combo = openCombo(row, column, m_cells->comboClass(row, column),
                                 editor == Editor::combo ? kComboEditable : kInPlacePlain,
                                 [&](CComboBox& made) { made.SetItems(m_cells->choices(row, column)); });
    if (combo && editor == Editor::command)
        combo->onSelChange = [this, combo, column] {
            if (combo->GetCurSel() == combo->GetCount() - 1) runCommandLater(column);
        };
    return combo != nullptr;
}

bool CListEditableCtrl::OnItemLButtonClick(int item, int column) {
    return editorOf(item, column) == Editor::toggle ? toggle(item, column) : openEditor(item, column);
}

bool CListEditableCtrl::toggle(int row, int column) {
    EndLabelEditing(); // which may change the cell
    if (editorOf(row, column) != Editor::toggle) return false;
    const auto texts = m_cells->choices(row, column);
    m_entered = true; // by SetItemText, whatever the model makes of it
    const bool done = texts.size() == 2 && ToggleSubLabel(row, column, texts[0].text, texts[1].text) != 0;
    m_entered = false;
    return done;
}

bool CListEditableCtrl::controlKey(const tv::ui::KeyEvent& key) {
    const bool plain = !key.ctrl && !key.alt && !key.shift;
    if (plain && (key.key == Key::space || key.key == Key::f2) &&
        editorOf(focusRow(), focusColumn()) == Editor::toggle && acceptsUser()) {
        toggle(focusRow(), focusColumn());
        return true;
    }
    return VORDBaseListCtrl::controlKey(key);
}

// --- what was entered ----------------------------------------------------------------------------------------

void CListEditableCtrl::answered(int row, int column, const InPlaceAnswer& answer) {
    if (answer.refusal.empty()) RowsChanged(std::max(row, 0), row); // all, when its row is gone
    if (onEntered) onEntered(row, column, answer);
}

bool CListEditableCtrl::enter(int row, int column, const std::wstring& text) {
    const InPlaceAnswer answer = m_cells->setValue(row, column, text);
    answered(row, column, answer);
    return answer.refusal.empty();
}

bool CListEditableCtrl::SetItemText(int item, int column, std::wstring_view text) {
    if (editorOf(item, column) == Editor::none) return false;
    return enter(item, column, std::wstring(text));
}

bool CListEditableCtrl::mayLeaveEditor() {
    const int row = editor() ? editedItem() : -1;
    if (row < 0 || nothingChosen()) return true;
    const std::wstring text = editor()->GetWindowText();
    if (text == openedText()) return true;
    m_entered = true; // whatever the model's owner does meanwhile
    if (enter(row, openedColumn(), text)) return true;
    m_entered = false;
    if (editor() && editor()->kind() == tv::ui::ControlKind::edit) static_cast<CEdit*>(editor())->SelectAll();
    return false;
}

void CListEditableCtrl::OnEndLabelEdit(const LVDispInfo& info) {
    const bool toggled = info.text && cellText(info.item, info.column) == *info.text;
    const std::wstring text = info.text.value_or(std::wstring());
    if (!m_entered && !info.cancelled && !toggled && (!editor() || text != openedText()))
        enter(info.item, info.column, text);
    m_entered = false;
    VORDBaseListCtrl::OnEndLabelEdit(info);
}

void CListEditableCtrl::OnEditorMoved() {
    VORDBaseListCtrl::OnEditorMoved();
    if (m_cells) m_key = m_cells->rowKey(openedItem());
}

int CListEditableCtrl::editedItem() const {
    if (!m_cells) return -1;
    const int row = openedItem();
    if (row < GetItemCount() && m_cells->rowKey(row) == m_key) return row;
    return m_cells->rowOfKey(m_key);
}

// Not within the choice itself: what is asked runs a loop of its own, and the drop-down list is gone by then.
void CListEditableCtrl::runCommandLater(int column) {
    tv::ui::Toolkit* toolkit = tv::ui::Toolkit::current();
    CloseEditor();
    if (!toolkit) return;
    m_command = toolkit->post([this, column, key = m_key] {
        const auto cells = m_cells; // whatever is done meanwhile
        const int row = cells ? cells->rowOfKey(key) : -1;
        if (row < 0) return;
        const InPlaceAnswer answer = cells->runCommand(row, column);
        if (cells == m_cells) answered(cells->rowOfKey(key), column, answer);
    });
}
