// The layer manager: layers made, deleted, made current, renamed, described and merged.
#include "kxgui/layers/LayerBoxes.h"
#include "kxgui/layers/LayerDlg.h"
#include "kxgui/layers/LayerFilterEdits.h"
#include "kxgui/layers/LayerHistory.h"
#include "kxgui/layers/LayerMerge.h"
#include "kxgui/layers/LayerMergeDlg.h"
#include "kxgui/layers/LayerNameRules.h"
#include "kxgui/layers/LayerRecord.h"
#include "platform/drawing/OdDbEntity.h"
#include "platform/drawing/OdDbLayerTable.h"
#include "platform/host/TavoSharedGlobals.h"
#include "platform/text/Format.h"
#include "platform/text/ResourceString.h"

#include <algorithm>

using namespace kx::layers;

namespace {

constexpr int kNameCell = 0, kDescriptionCell = 3; // as cells that are edited are counted

std::wstring trimmed(std::wstring_view text) {
    const auto first = text.find_first_not_of(L" \t");
    if (first == std::wstring_view::npos) return {};
    return std::wstring(text.substr(first, text.find_last_not_of(L" \t") - first + 1));
}

} // namespace

CLayerDlg::Rows CLayerDlg::selectedRows() const { return m_list.selection().rows(); }

// --- new -----------------------------------------------------------------------------------------------------

void CLayerDlg::OnBtnNewLayer() {
    if (!m_database) return;
    m_list.EndLabelEditing();
    T_LAYER_DATA row;
    if (const int model = m_list.GetCurSel(); model >= 0) {
        const OdDbObjectId layer = m_rows->layerAt(model);
        m_list.SelectLayers({layer});
        row = m_rows->row(model);
        // What comes from an external reference is named after it and belongs to nobody else.
        if (row.linetype.view().find(L'|') != std::wstring_view::npos) row.linetype = L"Continuous";
    }
    row.id = {};
    row.handle = {};
    row.current = row.xref = row.vpFrozen = false;
    row.vp = {};
    row.name = newLayerName(*m_database);

    // A group takes up what is made in it, in the same step.
    const auto group = m_filters.node(m_tree.selectedNode());
    DBIntegrationManager_ZEL history;
    history.OnStartUndoRecord(m_database);
    const bool made = UpdateLayer(row, kLayerNew);
    if (made && group.kind == LayerFilterTree::Kind::group && !m_invert.GetCheck())
        (void)addLayers(*m_database, m_filters, m_tree.selectedNode(), std::vector{row.id});
    history.OnCleanupAndReturn_ExecuteCommand();
    m_watcher.deliver();
    if (!made) return;

    if (m_rows->rowOfLayer(row.id) < 0) {
        m_search.SetWindowText(L"");
        m_invert.SetCheck(0);
        m_tree.SelectNode(0);
        m_list.UpdateRows([](LayerRows& rows) { rows.setSearch({}); });
        showFilter();
    }
    m_list.SelectLayers({row.id});
    m_list.SetFocus();
    showFilterLine();
    showState();
    editCell(LayerColumn::name);
}

void CLayerDlg::editCell(LayerColumn column) {
    const int row = m_list.GetCurSel();
    if (row < 0) return;
    m_list.ShowColumn(static_cast<int>(column), true); // should it be hidden
    m_list.SetFocusCell(row, static_cast<int>(column));
    m_list.EnsureVisible(row);
    m_list.openEditor(row, static_cast<int>(column));
}

// --- delete --------------------------------------------------------------------------------------------------

void CLayerDlg::OnBtnLayerDelete() {
    m_list.EndLabelEditing();
    deleteRows(selectedRows());
}

void CLayerDlg::deleteRows(const Rows& rows) {
    if (rows.empty() || !mayWrite()) return;
    const auto table = m_database->layers();
    if (!table) return;
    table->generateUsageData();
    const OdDbObjectId current = currentLayer(*m_database);
    std::vector<LayerUpdate> updates;
    for (const int row : rows) {
        const OdDbObjectId layer = m_rows->layerAt(row);
        const auto record = layer.open<OdDbLayerTableRecord>();
        if (!record || layer == current || isLayerZero(record->getName().view()) || record->isInUse() ||
            record->isDependent())
            continue;
        auto& update = updates.emplace_back();
        update.kind = kLayerDelete;
        update.row.id = layer;
    }
    const int selected = static_cast<int>(rows.size());
    int refused = selected;
    // A batch the drawing refuses is told with the others, in one box.
    if (!updates.empty() && write(updates) == Tavo::eOk) refused -= static_cast<int>(updates.size());
    if (refused < selected) {
        if (const int count = m_rows->rowCount(); count > 0) {
            const int next = std::min(rows.front(), count - 1);
            m_list.SelectLayers({m_rows->layerAt(next)});
        }
        showFilterLine();
        showState();
    }
    if (refused > 0) warn(this, notDeletedBox(selected, refused));
}

void CLayerDlg::OnClickListMenu_DELETEALL() {
    const int count = m_rows->rowCount();
    if (count == 0) return;
    const LayerBox box{VORD_ResourceString("IDS_LAYERDLG_0", L"도면층 특성 관리자").c_str(),
                       tv::text::format(VORD_ResourceString("IDS_TAVO_LAYER_DELETE_ALL_ASK",
                                                            L"표시된 도면층 %d개 중 삭제할 수 있는 것을 모두 "
                                                            L"삭제하시겠습니까?"),
                                        count)};
    if (!confirm(this, box)) return;
    Rows rows(static_cast<std::size_t>(count));
    for (int row = 0; row < count; ++row)
        rows[static_cast<std::size_t>(row)] = row;
    deleteRows(rows);
}

// --- current -------------------------------------------------------------------------------------------------

void CLayerDlg::OnBtnLayerCurrent() {
    m_list.EndLabelEditing();
    const Rows rows = selectedRows();
    if (rows.empty()) return;
    if (rows.size() > 1) return warn(this, oneCurrentOnlyBox());
    makeCurrent(m_rows->row(rows.front()));
}

void CLayerDlg::OnDoubleClickListItem(int row) { makeCurrent(m_rows->row(row)); }

void CLayerDlg::makeCurrent(const T_LAYER_DATA& layer) {
    if (!m_database || layer.id.isErased()) return;
    if (layer.frozen || layer.xref) return warn(this, notCurrentBox());
    if (!layer.on && TavoSharedGlobals::IsOnEXPERTMode(1) && !confirm(this, drawOnLayerOffBox())) return;

    DBIntegrationManager_ZEL history;
    history.OnStartUndoRecord(m_database);
    T_LAYER_DATA row = layer;
    const bool made = UpdateLayer(row, kLayerCurrent);
    if (made && m_callback == kLayerCallbackAssign)
        for (const OdDbObjectId id : m_objects)
            if (const auto entity = id.open<OdDbEntity>(OdDb::kForWrite))
                (void)entity->setLayer(layer.name.view());
    history.OnCleanupAndReturn_ExecuteCommand();
    m_watcher.deliver();
    if (!made) return;
    showCurrentLine();
    if (const auto table = m_database->layers()) table->generateUsageData();
    if (m_filters.asksForUsage(m_tree.selectedNode()))
        showFilter();
    else
        m_list.RowsChanged();
}

// --- name and description ------------------------------------------------------------------------------------

void CLayerDlg::OnClickListMenu_RENAME() { editCell(LayerColumn::name); }
void CLayerDlg::OnClickListMenu_DESCRIPTION() { editCell(LayerColumn::description); }

bool CLayerDlg::CheckNameChangeEnable(int row) {
    if (!mayWrite()) return false;
    if (mayRename(m_rows->row(row))) return true;
    warn(this, keepsNameBox());
    return false;
}

bool CLayerDlg::OnEditingListItemString(int row, int column) {
    if (column == kNameCell) return CheckNameChangeEnable(row);
    return !isRegionView(m_rows->row(row).name.view()) && mayWrite();
}

// Not within the edit that took the layer away.
void CLayerDlg::OnEditedListItemGone() {
    if (tv::ui::Toolkit* toolkit = tv::ui::Toolkit::current())
        m_tell = toolkit->post([this] { warn(this, editedLayerGoneBox()); });
}

bool CLayerDlg::OnEndEditListItemString(int row, int column, const std::wstring& text) {
    const T_LAYER_DATA layer = m_rows->row(row);
    if (layer.id.isErased()) {
        OnEditedListItemGone();
        return true;
    }
    // A text can come without an editor that asked before.
    if (!OnEditingListItemString(row, column)) return false;
    return column == kDescriptionCell ? describeLayer(layer, text) : renameLayer(layer, trimmed(text));
}

bool CLayerDlg::renameLayer(const T_LAYER_DATA& layer, std::wstring_view name) {
    if (layer.name.view() == name) return true;
    if (const LayerTextFault fault = checkLayerName(*m_database, name, layer.id);
        fault != LayerTextFault::none) {
        warn(this, nameBox(fault));
        return false;
    }
    T_LAYER_DATA row = layer;
    row.name = OdString(name);
    return UpdateLayer(row, kLayerRename);
}

bool CLayerDlg::describeLayer(const T_LAYER_DATA& layer, std::wstring_view text) {
    if (layer.description.view() == text) return true;
    if (const LayerTextFault fault = checkLayerDescription(text); fault != LayerTextFault::none) {
        warn(this, descriptionBox(fault));
        return false;
    }
    T_LAYER_DATA row = layer;
    row.description = OdString(text);
    return UpdateLayer(row, kLayerDescription);
}

// --- merge ---------------------------------------------------------------------------------------------------

void CLayerDlg::OnClickListMenu_MERGE() {
    m_list.EndLabelEditing();
    const std::vector<OdDbObjectId> layers = m_list.SelectedLayers();
    if (layers.empty() || !m_database) return;
    for (const OdDbObjectId layer : layers)
        if (const auto record = layer.open<OdDbLayerTableRecord>();
            record && isLayerZero(record->getName().view()))
            return warn(this, zeroNotMergedBox());
    if (std::ranges::find(layers, currentLayer(*m_database)) != layers.end())
        return warn(this, currentNotMergedBox());
    if (const tv::Problem problem = canMergeAway(*m_database, layers))
        return warn(this, {currentNotMergedBox().caption, problem.sentence});
    CLayerMergeDlg dialog(m_database, layers, this);
    if (dialog.DoModal() != IDOK) return;
    m_watcher.deliver();
    m_list.SelectLayers({dialog.GetTarget()});
    showFilterLine();
    showState();
}

// --- what is selected ----------------------------------------------------------------------------------------

void CLayerDlg::OnClickListMenu_SELECTALL() {
    m_chosen.clear();
    m_list.SetSelection(tv::ui::RowSet::range(0, m_rows->rowCount() - 1));
    showState();
}

void CLayerDlg::OnClickListMenu_EXCEPTSELECT() { OnClickListMenu_REVERSESELECT(); }

void CLayerDlg::OnClickListMenu_REVERSESELECT() {
    m_chosen.clear();
    tv::ui::RowSet rows = m_list.selection();
    rows.invert(m_rows->rowCount());
    m_list.SetSelection(std::move(rows));
    showState();
}
