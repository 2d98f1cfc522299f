#include "kxgui/layers/LayerListCtrl.h"

#include "platform/drawing/OdDbDatabase.h"
#include "platform/text/Numbers.h"

#include <algorithm>

using kx::layers::LayerRows;
using kx::layers::LayerRowsChange;
using tv::ui::Key;
using tv::ui::RowSet;

namespace {

constexpr int nameColumn = static_cast<int>(LayerColumn::name);

bool isViewportColumn(int column) { return kx::layers::isViewportColumn(static_cast<LayerColumn>(column)); }

bool isState(const CLayerCellItem& item) {
    return item.click() == LayerCellClick::icon || item.column() == LayerColumn::status;
}

} // namespace

CLayerListCtrl::CLayerListCtrl(CWnd& parent, const char* name) : CListEditableCtrl(parent, name, true) {
    onColumnsChange = [this] { columnsChanged(); };
}

void CLayerListCtrl::SetRows(std::shared_ptr<LayerRows> rows) {
    m_layers = std::move(rows);
    SetColumns(kx::layers::layerColumns());
    m_wanted.assign(columns().size(), true);
    if (m_layers)
        m_layers->onSetText = [this](int row, int column, const std::wstring& text) {
            return setText(row, column, text);
        };
    SetCellModel(m_layers);
    showViewportColumns();
}

// --- columns -------------------------------------------------------------------------------------------------

void CLayerListCtrl::RememberColumns(tv::SettingsStore* store) {
    m_memory.emplace(store, L"LayerGridMain");
    if (m_memory->restore(*this))
        for (std::size_t column = 0; column < m_wanted.size(); ++column)
            m_wanted[column] = columns()[column].visible;
    showViewportColumns();
}

void CLayerListCtrl::SetHeadings() {
    const auto texts = kx::layers::layerColumns();
    std::vector<tv::ui::ListColumn> now = columns();
    const auto order = layout().order();
    for (std::size_t column = 0; column < std::min(now.size(), texts.size()); ++column) {
        now[column].title = texts[column].title;
        now[column].hint = texts[column].hint;
    }
    SetColumns(std::move(now));
    SetColumnOrder(order);
}

void CLayerListCtrl::columnsChanged() {
    const bool viewport = m_layers && !m_layers->viewport().isNull();
    for (int column = 0; column < layout().count(); ++column)
        if (viewport || !isViewportColumn(column))
            m_wanted[static_cast<std::size_t>(column)] = layout().at(column).visible;
    showViewportColumns();
    if (m_memory)
        m_memory->save(*this, [this](int column) { return m_wanted[static_cast<std::size_t>(column)]; });
}

void CLayerListCtrl::showViewportColumns() {
    const bool viewport = m_layers && !m_layers->viewport().isNull();
    for (int column = 0; column < layout().count(); ++column)
        if (isViewportColumn(column))
            ShowColumn(column, viewport && m_wanted[static_cast<std::size_t>(column)]);
}

void CLayerListCtrl::SetViewport(OdDbObjectId viewport) {
    UpdateRows([&](LayerRows& rows) { rows.setViewport(viewport); });
    showViewportColumns();
}

// --- rows ----------------------------------------------------------------------------------------------------

void CLayerListCtrl::UpdateRows(const std::function<void(LayerRows&)>& change) {
    if (!m_layers) return;
    LayerRows& layers = *m_layers;
    const auto keyOf = [&layers](int row) { return row < 0 ? 0 : layers.rowKey(row); };
    std::vector<std::uintptr_t> selected;
    for (const RowSet::Range& range : selection().ranges())
        for (int row = range.first; row <= range.last; ++row)
            selected.push_back(keyOf(row));
    std::uintptr_t focus = keyOf(focusRow()), top = keyOf(topRow()),
                   edited = editor() ? keyOf(editedItem()) : 0;
    const OdDbDatabase* const before = layers.database();
    const OdDbObjectId editedLayer = editor() ? layers.layerAt(editedItem()) : OdDbObjectId();
    change(layers);
    if (layers.database() != before) { // whose layers go by other numbers
        focus = top = edited = 0;
        selected.clear();
    }

    if (editor()) {
        const int row = layers.rowOfKey(edited);
        if (row < 0) CloseEditor();
        MoveEditor(row);
    }
    const bool gone =
        !editedLayer.isNull() && !editor() && layers.database() == before && editedLayer.isErased();
    RowsChanged();
    std::vector<int> rows;
    for (const std::uintptr_t key : selected)
        if (const int row = layers.rowOfKey(key); row >= 0) rows.push_back(row);
    SetSelection(RowSet(std::move(rows)));
    if (const int row = layers.rowOfKey(top); row >= 0) ScrollTo(row);
    if (const int row = layers.rowOfKey(focus); row >= 0) SetFocusCell(row, focusColumn());
    if (editor()) OnEditorMoved();
    if (layers.sortedColumn() < 0 && sortColumn() >= 0) SetSortMark(-1, true);
    if (gone && m_owner) m_owner->OnEditedListItemGone();
}

void CLayerListCtrl::LayerChanged(OdDbObjectId layer) {
    if (!m_layers) return;
    const bool edited = editor() && m_layers->layerAt(editedItem()) == layer;
    const LayerRowsChange change = m_layers->layerChanged(layer);
    switch (change.kind) {
    case LayerRowsChange::Kind::changed:
        RowsChanged(change.row, change.row);
        break;
    case LayerRowsChange::Kind::inserted:
        RowsInserted(change.row);
        break;
    case LayerRowsChange::Kind::removed:
        RowsRemoved(change.row);
        if (edited && layer.isErased() && m_owner) m_owner->OnEditedListItemGone();
        break;
    case LayerRowsChange::Kind::none:
        break;
    }
}

std::vector<OdDbObjectId> CLayerListCtrl::SelectedLayers() const {
    std::vector<OdDbObjectId> layers;
    if (m_layers)
        for (const int row : selection().rows())
            layers.push_back(m_layers->layerAt(row));
    return layers;
}

void CLayerListCtrl::SelectLayers(const std::vector<OdDbObjectId>& layers) {
    if (!m_layers) return;
    std::vector<int> rows;
    for (const OdDbObjectId& layer : layers)
        if (const int row = m_layers->rowOfLayer(layer); row >= 0) rows.push_back(row);
    SetSelection(RowSet(std::move(rows)));
    if (GetCurSel() < 0) return;
    SetFocusCell(GetCurSel(), focusColumn() < 0 ? nameColumn : focusColumn());
    EnsureVisible(GetCurSel());
}

// --- what a person does --------------------------------------------------------------------------------------

bool CLayerListCtrl::keepsSelection(int, int column) const {
    const CLayerCellItem* item = m_layers ? m_layers->item(column) : nullptr;
    return item && item->click() != LayerCellClick::none;
}

// Without a viewport its columns are out of the question.
bool CLayerListCtrl::offersColumn(int column) const {
    return !isViewportColumn(column) || (m_layers && !m_layers->viewport().isNull());
}

int CLayerListCtrl::typedColumn() const { return nameColumn; }

// What a cell has besides an editor.
bool CLayerListCtrl::activate(int row, int column) {
    const CLayerCellItem* item =
        m_layers && row >= 0 && row < GetItemCount() ? m_layers->item(column) : nullptr;
    if (!m_owner || !item || item->click() == LayerCellClick::none) return false;
    const std::uintptr_t key = m_layers->rowKey(row);
    EndLabelEditing(); // which may change the rows
    row = m_layers->rowOfKey(key);
    if (row < 0) return false;
    ILayerGridOwner& owner = *m_owner;
    const bool several = selection().count() > 1 && selection().contains(row);
    const LayerColumn what = item->column();
    switch (item->click()) {
    case LayerCellClick::icon:
        several ? owner.OnClickListItemIcons(row, item->icon()) : owner.OnClickListItemIcon(row, item->icon());
        break;
    case LayerCellClick::color:
        several ? owner.OnClickListItemColors(row, what) : owner.OnClickListItemColor(row, what);
        break;
    case LayerCellClick::linetype:
        several ? owner.OnClickListItemLineTypes(row, what) : owner.OnClickListItemLineType(row, what);
        break;
    case LayerCellClick::lineweight:
        several ? owner.OnClickListItemLineWeights(row, what) : owner.OnClickListItemLineWeight(row, what);
        break;
    case LayerCellClick::transparency:
        several ? owner.OnClickListItemTransparencys(row, what) : owner.OnClickListItemTransparency(row, what);
        break;
    case LayerCellClick::plotStyle:
        several ? owner.OnClickListItemPlotStyles(row, what) : owner.OnClickListItemPlotStyle(row, what);
        break;
    case LayerCellClick::none:
        break;
    }
    return true;
}

// A text opens with a second click, F2 or Enter only: a double click on it means something else.
bool CLayerListCtrl::OnItemLButtonClick(int row, int column) {
    if (activate(row, column)) return true;
    const bool dropsDown = m_layers && m_layers->editor(row, column) == CInPlaceCtrlModel::Editor::list;
    return dropsDown && openEditor(row, column);
}

// The first half of a double click has changed the state already.
void CLayerListCtrl::OnTakeBack(int, int column) {
    const CLayerCellItem* item = m_layers ? m_layers->item(column) : nullptr;
    if (m_owner && item && item->click() == LayerCellClick::icon) m_owner->OnTakeBackListItem();
}

void CLayerListCtrl::OnDoubleClick(int row, int column) {
    const CLayerCellItem* item = m_layers ? m_layers->item(column) : nullptr;
    const bool textOrIcon =
        item && (item->click() == LayerCellClick::none || item->click() == LayerCellClick::icon);
    if (m_owner && textOrIcon) m_owner->OnDoubleClickListItem(row);
}

// What a double click does, for the keyboard on the mark of the current layer.
bool CLayerListCtrl::makeCurrent(int row, int column) {
    const CLayerCellItem* item =
        m_layers && row >= 0 && row < GetItemCount() ? m_layers->item(column) : nullptr;
    if (!m_owner || !item || item->column() != LayerColumn::status) return false;
    m_owner->OnDoubleClickListItem(row);
    return true;
}

bool CLayerListCtrl::openEditor(int row, int column) {
    const std::uintptr_t key = m_layers && row >= 0 ? m_layers->rowKey(row) : 0;
    EndLabelEditing(); // which may change the rows
    row = m_layers ? m_layers->rowOfKey(key) : -1;
    if (!m_owner || !hasEditor(row, column)) return false;
    if (m_layers->editor(row, column) == CInPlaceCtrlModel::Editor::edit) {
        const bool may = column == nameColumn ? m_owner->CheckNameChangeEnable(row)
                                              : m_owner->OnEditingListItemString(row, 3);
        // The owner may have asked something meanwhile.
        if (!may || !m_layers || m_layers->rowKey(row) != key) return false;
    }
    return CListEditableCtrl::openEditor(row, column);
}

bool CLayerListCtrl::setText(int row, int column, const std::wstring& text) {
    if (!m_owner) return false;
    if (const auto* icons = dynamic_cast<const CLayerIconListItem*>(m_layers->item(column))) {
        const auto* icon = icons->OnSelectCombo(text);
        return icon && m_owner->OnSelectListItemCombo(row, column, icon->number);
    }
    return m_owner->OnEndEditListItemString(row, column == nameColumn ? 0 : 3, text);
}

bool CLayerListCtrl::controlKey(const tv::ui::KeyEvent& key) {
    const bool plain = !key.ctrl && !key.alt && !key.shift;
    const CLayerCellItem* item = m_layers ? m_layers->item(focusColumn()) : nullptr;
    // A state has nothing to edit: the name is meant.
    if (plain && key.key == Key::f2 && item && isState(*item) && hasEditor(focusRow(), nameColumn) &&
        layout().at(nameColumn).visible) {
        (void)userOpenEditor(focusRow(), nameColumn);
        return true;
    }
    if (plain && key.key == Key::space && !typing() && acceptsUser() && makeCurrent(focusRow(), focusColumn()))
        return true;
    const bool acts = key.key == Key::f2 || (key.key == Key::space && !typing());
    if (plain && acts && acceptsUser() && activate(focusRow(), focusColumn())) return true;
    if (plain && key.key == Key::del && onDelete) {
        if (acceptsUser()) onDelete();
        return true;
    }
    return CListEditableCtrl::controlKey(key);
}

tv::ui::KeyRoute CLayerListCtrl::routeKey(const tv::ui::KeyEvent& key) {
    const bool plain = !key.ctrl && !key.alt && !key.shift;
    if (plain && key.key == Key::enter && !editor() && acceptsUser()) {
        if (activate(focusRow(), focusColumn()) || makeCurrent(focusRow(), focusColumn()))
            return tv::ui::KeyRoute::used;
        if (hasEditor(focusRow(), focusColumn())) {
            (void)userOpenEditor(focusRow(), focusColumn());
            return tv::ui::KeyRoute::used;
        }
    }
    return CListEditableCtrl::routeKey(key);
}
