// Editors in the cells of a list.
#include "platform/toolkit/Dialog.h"
#include "platform/toolkit/Edit.h"
#include "platform/toolkit/ListCtrl.h"

#include "platform/text/ResourceString.h"

#include <algorithm>

using tv::ui::Change;
using tv::ui::Key;
using tv::ui::KeyRoute;
using tv::ui::UserResult;

namespace {

// Edits the text of a cell. Enter, Tab and the focus leaving take the text over, Escape does not; a text that
// is refused keeps it open as long as it has the focus.
class CellTextEditor : public CEdit {
  public:
    CellTextEditor(CListCtrl& list, int row, int column)
        : CEdit(list, "IDC_CELL_EDITOR"), m_list(list), m_before(list.cellText(row, column)) {
        SetAccessibleName(list.columns()[static_cast<std::size_t>(column)].title);
        SetWindowText(m_before);
        SelectAll();
    }

    KeyRoute routeKey(const tv::ui::KeyEvent& key) override {
        if (key.key == Key::escape) {
            m_done = true;
            m_list.CloseEditor();
            return KeyRoute::used;
        }
        if (key.key != Key::enter && key.key != Key::tab) return KeyRoute::dialog;
        if (commit()) m_list.CloseEditor();
        return KeyRoute::used;
    }

    void OnKillFocus() override {
        (void)commit();
        m_done = true;
        if (m_list.editor() == this) m_list.CloseEditor();
    }

  private:
    bool commit() {
        if (m_done) return true;
        m_done = true; // whatever the owner shows meanwhile
        // The list takes it along with its row; a cell with another text by now is another one.
        const int row = m_list.editorRow(), column = m_list.editorColumn();
        const bool same =
            m_list.editor() == this && row < m_list.GetItemCount() && m_list.cellText(row, column) == m_before;
        if (!same || GetWindowText() == m_before) return true;
        return m_done = m_list.onEdit && m_list.onEdit(row, column, GetWindowText());
    }

    CListCtrl& m_list;
    std::wstring m_before;
    bool m_done = false;
};

} // namespace

bool CListCtrl::hasEditor(int row, int column) const { return onEdit && cell(row, column).editable; }

bool CListCtrl::openEditor(int row, int column) {
    if (!hasEditor(row, column)) return false;
    LeaveEditor(); // may change the cell
    ShowEditor(std::make_unique<CellTextEditor>(*this, row, column), row, column);
    return true;
}

void CListCtrl::ShowEditor(std::unique_ptr<CWnd> editor, int row, int column) {
    if (!editor) return;
    LeaveEditor();
    EnsureVisible(row);
    m_editor = std::move(editor);
    m_editorRow = row;
    m_editorColumn = column;
    m_editorCell = visibleCell(row, column);
    m_editor->MoveWindow(m_editorCell);
    tell(Change::editor);
    m_editor->SetFocus();
}

CRect CListCtrl::visibleCell(int row, int column) const {
    CRect rect = cellRect(row, column);
    rect.right = std::max(rect.left, std::min(rect.right, clientSize().cx));
    return rect;
}

void CListCtrl::placeEditor() {
    if (!m_editor) return;
    // What the editor has grown by itself it keeps.
    const CRect cell = visibleCell(m_editorRow, m_editorColumn), now = m_editor->GetWindowRect();
    const int wider = now.Width() - m_editorCell.Width(), higher = now.Height() - m_editorCell.Height();
    m_editorCell = cell;
    m_editor->MoveWindow({cell.left, cell.top, cell.right + wider, cell.bottom + higher});
}

void CListCtrl::MoveEditor(int row) {
    if (!m_editor || row < 0 || row >= GetItemCount()) return;
    m_editorRow = row;
    placeEditor();
}

void CListCtrl::CloseEditor() {
    if (!m_editor) return;
    CWnd& closing = *m_editor;
    const CDialog* owner = dialog();
    bool focused = false;
    for (const CWnd* wnd = owner ? owner->GetFocus() : nullptr; wnd && !focused; wnd = wnd->GetParent())
        focused = wnd == &closing;
    m_closed.push_back(std::move(m_editor));
    m_editorRow = m_editorColumn = -1;
    if (focused) SetFocus();
    dropChild(closing);
    tell(Change::editor);
    if (tv::ui::Toolkit* toolkit = tv::ui::Toolkit::current()) {
        m_closedUnder = toolkit->modalStack().size();
        m_sweep = toolkit->post([this] { sweep(); });
    }
}

// A window that came up meanwhile waits within what closed the editor, which may still be at work on it.
void CListCtrl::sweep() {
    tv::ui::Toolkit* toolkit = tv::ui::Toolkit::current();
    if (toolkit && toolkit->modalStack().size() > m_closedUnder)
        m_sweep = toolkit->after(std::chrono::milliseconds(50), [this] { sweep(); });
    else
        m_closed.clear();
}

void CListCtrl::LeaveEditor() {
    CWnd* leaving = m_editor.get();
    if (!leaving) return;
    const CDialog* owner = dialog();
    if (owner && owner->GetFocus() == leaving)
        takeFocus();
    else
        leaving->OnKillFocus();
    if (m_editor.get() == leaving) CloseEditor();
}

void CListCtrl::OnWindowGone() {
    m_sweep.cancel();
    m_searching.cancel();
    m_closed.clear();
    m_editor.reset();
    m_editorRow = m_editorColumn = -1;
    m_client = {};
}

KeyRoute CListCtrl::routeKey(const tv::ui::KeyEvent&) {
    // Whatever the editor itself did not take belongs to it all the same, not to the dialog's buttons.
    const CDialog* owner = dialog();
    return m_editor && owner && owner->GetFocus() != this ? KeyRoute::control : KeyRoute::dialog;
}

UserResult CListCtrl::userOpenEditor(int row, int column) {
    if (auto r = acceptsShownCell(row, column); !r) return r;
    if (!hasEditor(row, column))
        return refuse(VORD_ResourceString("IDS_TAVO_UI_CELL_READ_ONLY", L"편집할 수 없는 칸입니다."));
    if (auto r = userPress(row, column, false, false); !r) return r;
    if (!acceptsCell(row, column)) return UserResult::done();
    EnsureVisible(row);
    EnsureColumnVisible(column);
    if (!openEditor(row, column))
        return refuse(VORD_ResourceString("IDS_TAVO_UI_CELL_READ_ONLY", L"편집할 수 없는 칸입니다."));
    return UserResult::done();
}
