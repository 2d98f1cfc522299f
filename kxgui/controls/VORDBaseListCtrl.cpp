#include "kxgui/controls/VORDBaseListCtrl.h"

#include "kxgui/controls/InPlaceEdit.h"
#include "platform/toolkit/Dialog.h"

#include <algorithm>

using tv::ui::Key;
using tv::ui::KeyRoute;

namespace {

constexpr int narrowestToggled = 5;
constexpr int roomBesideEntry = 24; // the frame and a scroll bar
constexpr int mostCellsSearched = 10000;

} // namespace

// --- columns -------------------------------------------------------------------------------------------------

int VORDBaseListCtrl::InsertColumn(int column, const tv::ui::ListColumn& description) {
    if (column < 0) return -1;
    EndLabelEditing();
    column = std::min(column, layout().count());
    m_headerData.resize(columns().size());
    m_headerData.insert(m_headerData.begin() + column, nullptr);
    if (m_rows)
        for (auto& cells : m_rows->rows)
            if (column < static_cast<int>(cells.size()))
                cells.insert(cells.begin() + column, tv::ui::ListCell{});
    return CListCtrl::InsertColumn(column, description);
}

bool VORDBaseListCtrl::DeleteColumn(int column) {
    EndLabelEditing();
    if (!layout().valid(column)) return false;
    if (column < static_cast<int>(m_headerData.size())) m_headerData.erase(m_headerData.begin() + column);
    if (m_rows)
        for (auto& cells : m_rows->rows)
            if (column < static_cast<int>(cells.size())) cells.erase(cells.begin() + column);
    return CListCtrl::DeleteColumn(column);
}

void VORDBaseListCtrl::SetColumns(std::vector<tv::ui::ListColumn> columns) {
    CloseEditor();
    m_headerData.clear();
    CListCtrl::SetColumns(std::move(columns));
}

const HeaderInplaceData* VORDBaseListCtrl::headerData(int column) const {
    return column >= 0 && column < static_cast<int>(m_headerData.size())
               ? m_headerData[static_cast<std::size_t>(column)].get()
               : nullptr;
}

bool VORDBaseListCtrl::CreateInPlaceEdit(int column, unsigned style, ICtrlFillerPtr filler) {
    if (!layout().valid(column)) return false;
    m_headerData.resize(columns().size());
    auto& data = m_headerData[static_cast<std::size_t>(column)];
    if (data)
        data->style = style;
    else
        data = std::make_unique<HeaderInplaceEditData>(style, std::move(filler));
    return true;
}

bool VORDBaseListCtrl::CreateInPlaceCombobox(int column, const CRuntimeClass* runtime, int value,
                                             unsigned style, ICtrlFillerPtr filler) {
    if (!layout().valid(column)) return false;
    m_headerData.resize(columns().size());
    auto& data = m_headerData[static_cast<std::size_t>(column)];
    if (!data) {
        data = std::make_unique<HeaderInplaceComboboxData>(runtime, value, style, std::move(filler));
        return true;
    }
    if (data->kind == HeaderInplaceData::kCombobox)
        static_cast<HeaderInplaceComboboxData&>(*data).runtime = runtime;
    data->filler = std::move(filler);
    return true;
}

// --- own rows ------------------------------------------------------------------------------------------------

void VORDBaseListCtrl::SetModel(std::shared_ptr<tv::ui::ListModel> model) {
    m_rows.reset();
    CListCtrl::SetModel(std::move(model));
}

tv::ui::TextRows& VORDBaseListCtrl::ownRows() {
    if (!m_rows) {
        auto rows = std::make_shared<tv::ui::TextRows>();
        SetModel(rows);
        m_rows = std::move(rows);
    }
    return *m_rows;
}

void VORDBaseListCtrl::RowsInserted(int at, int count) {
    m_editCount += count;
    CListCtrl::RowsInserted(at, count);
    if (editor()) OnEditorMoved();
}

void VORDBaseListCtrl::RowsRemoved(int at, int count) {
    if (editorRow() >= at && editorRow() - at < count) CloseEditor();
    m_editCount -= count;
    CListCtrl::RowsRemoved(at, count);
    if (editor()) OnEditorMoved();
}

void VORDBaseListCtrl::OnEditorMoved() {
    m_editItem = editorRow();
    m_editIdentity = identityOf(m_editItem);
}

int VORDBaseListCtrl::InsertItem(int item, std::wstring_view text) {
    auto& rows = ownRows().rows;
    const int count = static_cast<int>(rows.size());
    if (item < 0 || item > count) item = count;
    tv::ui::ListCell first;
    first.text = text;
    rows.insert(rows.begin() + item, std::vector<tv::ui::ListCell>{std::move(first)});
    RowsInserted(item);
    return item;
}

bool VORDBaseListCtrl::DeleteItem(int item) {
    if (!m_rows || item < 0 || item >= GetItemCount()) return false;
    m_rows->rows.erase(m_rows->rows.begin() + item);
    RowsRemoved(item);
    return true;
}

void VORDBaseListCtrl::DeleteAllItems() {
    CloseEditor();
    ownRows().rows.clear();
    RowsChanged();
}

bool VORDBaseListCtrl::SetItemText(int item, int column, std::wstring_view text) {
    if (!m_rows || item < 0 || item >= GetItemCount() || !layout().valid(column)) return false;
    auto& cells = m_rows->rows[static_cast<std::size_t>(item)];
    if (cells.size() <= static_cast<std::size_t>(column)) cells.resize(static_cast<std::size_t>(column) + 1);
    cells[static_cast<std::size_t>(column)].text = text;
    RowsChanged(item, item);
    return true;
}

// --- opening -------------------------------------------------------------------------------------------------

bool VORDBaseListCtrl::bringIntoView(int item, int column) {
    if (!layout().valid(column) || !columns()[static_cast<std::size_t>(column)].visible) return false;
    EnsureVisible(item);
    if (!fullyVisible(item)) return false;
    const int left = cellRect(item, column).left;
    if (left < 0 || left >= clientSize().cx) ScrollX(scrollX() + left);
    return true;
}

bool VORDBaseListCtrl::showEditor(std::unique_ptr<CWnd> editor, int item, int column) {
    if (!layout().valid(column) || item >= GetItemCount()) return false; // what filling it led to
    editor->SetAccessibleName(columns()[static_cast<std::size_t>(column)].title);
    ++m_edit;
    m_editing = true;
    m_cancelled = false;
    m_editItem = item;
    m_editIdentity = identityOf(item);
    m_editColumn = column;
    m_editCount = GetItemCount();
    m_editText = cellText(item, column);
    ShowEditor(std::move(editor), item, column);
    return true;
}

bool VORDBaseListCtrl::openEdit(int item, int column, std::wstring_view text, unsigned style) {
    EndLabelEditing();
    if (!bringIntoView(item, column)) return false;
    auto edit = std::make_unique<CInPlaceEdit>(*this, text);
    edit->SetReadOnly((style & kEditReadOnly) != 0);
    edit->SetAlign(static_cast<tv::ui::TextAlign>(columns()[static_cast<std::size_t>(column)].align));
    return showEditor(std::move(edit), item, column);
}

CComboBox* VORDBaseListCtrl::openCombo(int item, int column, const CRuntimeClass* runtime, unsigned style,
                                       const std::function<void(CComboBox&)>& fill) {
    EndLabelEditing();
    if (!bringIntoView(item, column)) return nullptr;
    if (!runtime) runtime = runtimeClass<CComboBox>();
    auto made = runtime->create(*this, "IDC_INPLACE_COMBO", (style & kComboEditable) != 0);
    CComboBox& combo = *made;
    if (fill) fill(combo);
    if (combo.GetCurSel() < 0)
        if (const int same = combo.FindStringExact(-1, cellText(item, column)); same >= 0)
            combo.SetCurSel(same);
    if (combo.GetCurSel() < 0 && combo.editable()) combo.SetWindowText(cellText(item, column));
    UpdateComboboxDroppedWidth(combo);
    combo.onKillFocus = [this, &combo] {
        const bool nothing = m_cancelled || nothingChosen();
        std::optional<std::wstring> text;
        if (!nothing && !combo.GetWindowText().empty()) text = combo.GetWindowText();
        editorLeft(std::move(text), nothing);
    };
    // What is accepted in the open list is what the person wants.
    combo.onCloseUp = [this](bool accepted) {
        tv::ui::Toolkit* toolkit = tv::ui::Toolkit::current();
        if (!accepted || !toolkit) return;
        m_leaving = toolkit->post([this, edit = m_edit] {
            if (edit == m_edit && editor() && mayLeaveEditor()) LeaveEditor();
        });
    };
    if (!showEditor(std::move(made), item, column)) return nullptr;
    combo.ShowDropDown();
    return &combo;
}

bool VORDBaseListCtrl::nothingChosen() const {
    const auto* combo = dynamic_cast<const CComboBox*>(editor());
    return combo && !combo->editable() && combo->GetCurSel() < 0;
}

bool VORDBaseListCtrl::openEditor(int item, int column) {
    EndLabelEditing(); // which may change the cell
    const HeaderInplaceData* data = headerData(column);
    if (!data || item < 0 || item >= GetItemCount()) return false;
    // Whatever happens to the columns meanwhile.
    const ICtrlFillerPtr filler = data->filler;
    const unsigned style = data->style;
    if (data->kind == HeaderInplaceData::kEdit) {
        const auto text = filler ? filler->EditText(item, column) : std::nullopt;
        return openEdit(item, column, text.value_or(cellText(item, column)), style);
    }
    const int value = static_cast<const HeaderInplaceComboboxData*>(data)->value;
    return openCombo(item, column, static_cast<const HeaderInplaceComboboxData*>(data)->runtime, style,
                     [&](CComboBox& combo) {
                         if (filler) filler->FillCombo(combo, item, column);
                         InitalizeInplaceCombobox(combo, item, column, value);
                     }) != nullptr;
}

bool VORDBaseListCtrl::hasEditor(int row, int column) const {
    return row >= 0 && row < GetItemCount() && headerData(column);
}

bool VORDBaseListCtrl::OnItemLButtonClick(int item, int column) { return openEditor(item, column); }

void VORDBaseListCtrl::OnCellClick(int row, int column) {
    if (!OnItemLButtonClick(row, column)) CListCtrl::OnCellClick(row, column);
}

bool VORDBaseListCtrl::EditSubLabel(int item, int column) {
    return openEdit(item, column, cellText(item, column), kInPlacePlain);
}

CComboBox* VORDBaseListCtrl::ShowInPlaceList(int item, int column, const std::vector<std::wstring>& texts,
                                             int selected) {
    return openCombo(item, column, nullptr, kInPlacePlain, [&](CComboBox& combo) {
        std::vector<tv::ui::ListItem> items;
        items.reserve(texts.size());
        for (const std::wstring& text : texts)
            items.push_back({text, 0, nullptr});
        combo.SetItems(std::move(items));
        combo.SetCurSel(selected);
    });
}

void VORDBaseListCtrl::InitalizeInplaceCombobox(CComboBox&, int, int, int) {}

int VORDBaseListCtrl::ToggleSubLabel(int item, int column, std::wstring_view text1, std::wstring_view text2) {
    EndLabelEditing();
    if (!layout().valid(column) || columns()[static_cast<std::size_t>(column)].width < narrowestToggled ||
        !bringIntoView(item, column))
        return 0;
    const std::wstring now = cellText(item, column);
    if (now != text1 && now != text2) return 0;
    const std::wstring text(now == text1 ? text2 : text1);
    SetItemText(item, column, text);
    OnEndLabelEdit({item, column, text, false});
    return 1;
}

// --- the end -------------------------------------------------------------------------------------------------

void VORDBaseListCtrl::EndLabelEditing() {
    if (editor()) LeaveEditor();
}

int VORDBaseListCtrl::editedItem() const {
    const int row = editorRow(); // goes along with rows that came and went
    const bool same = GetItemCount() == m_editCount && identityOf(row) == m_editIdentity &&
                      cellText(row, m_editColumn) == m_editText;
    return same ? row : -1;
}

void VORDBaseListCtrl::editorLeft(std::optional<std::wstring> text, bool cancelled) {
    if (!m_editing) return;
    m_editing = false;
    const unsigned edit = m_edit;
    if (const int item = editedItem(); item >= 0)
        OnEndLabelEdit({item, m_editColumn, std::move(text), cancelled});
    if (edit == m_edit) CloseEditor();
}

void VORDBaseListCtrl::OnEndLabelEdit(const LVDispInfo& info) {
    if (onEndLabelEdit) onEndLabelEdit(info);
}

void VORDBaseListCtrl::editNextCell(bool backwards) {
    const auto shown = layout().visible();
    if (!editor() || shown.empty()) return;
    int row = editorRow();
    auto place = std::ranges::find(shown, editorColumn()) - shown.begin();
    const auto last = static_cast<std::ptrdiff_t>(shown.size()) - 1;
    bool found = false;
    for (int step = 0; step < mostCellsSearched && !found; ++step) {
        place += backwards ? -1 : 1;
        if (place < 0 || place > last) {
            row += backwards ? -1 : 1;
            place = backwards ? last : 0;
        }
        if (row < 0 || row >= GetItemCount()) break;
        found = hasEditor(row, shown[static_cast<std::size_t>(place)]);
    }
    LeaveEditor();
    if (found) (void)userOpenEditor(row, shown[static_cast<std::size_t>(place)]);
}

// An editor that does not know that it stands in a list gets every key but those that end it.
KeyRoute VORDBaseListCtrl::routeKey(const tv::ui::KeyEvent& key) {
    const CDialog* owner = dialog();
    if (!editor() || !owner || owner->GetFocus() == this) return CListCtrl::routeKey(key);
    switch (key.key) {
    case Key::escape:
        m_cancelled = true;
        LeaveEditor();
        return KeyRoute::used;
    case Key::enter:
        if (mayLeaveEditor()) LeaveEditor();
        return KeyRoute::used;
    case Key::tab:
        if (mayLeaveEditor()) editNextCell(key.shift);
        return KeyRoute::used;
    default:
        return CListCtrl::routeKey(key);
    }
}

// --- looks ---------------------------------------------------------------------------------------------------

int VORDBaseListCtrl::GetComboBoxLongestStrWidth(const CComboBox& combo) const {
    int width = 0;
    for (int i = 0; i < combo.GetCount(); ++i)
        width = std::max(width, textWidth(combo.items().at(i).text));
    return width;
}

void VORDBaseListCtrl::UpdateComboboxDroppedWidth(CComboBox& combo) {
    combo.SetDroppedWidth(GetComboBoxLongestStrWidth(combo) + roomBesideEntry);
}

EHighlight VORDBaseListCtrl::SetHighlightType(unsigned type) {
    if (type > kHighlightWhileFocused) return m_highlightType;
    const EHighlight before = m_highlightType;
    m_highlightType = static_cast<EHighlight>(type);
    SetRowHighlight(static_cast<tv::ui::RowHighlight>(type));
    return before;
}

void VORDBaseListCtrl::OnKillFocus() {
    CListCtrl::OnKillFocus();
    const CDialog* owner = dialog();
    const bool toEditor = editor() && owner && owner->GetFocus() == editor();
    if (m_highlightType == kHighlightWhileFocused && !toEditor) tell(tv::ui::Change::look);
}
