// The layer manager: what is done with filters, and with all layers of one.
#include "kxgui/layers/LayerBoxes.h"
#include "kxgui/layers/LayerDlg.h"
#include "kxgui/layers/LayerFilterDlg.h"
#include "kxgui/layers/LayerFilterEdits.h"
#include "platform/drawing/OdDbEntity.h"
#include "platform/host/TavoInterfaces.h"
#include "platform/host/TavoSelection.h"
#include "platform/text/ResourceString.h"

#include <algorithm>
#include <unordered_set>

using namespace kx::layers;
using Kind = LayerFilterTree::Kind;

bool CLayerDlg::answered(const FilterAnswer& answer, bool show) {
    if (!answer) {
        warn(this, {GetWindowText(), answer.refusal});
        return false;
    }
    m_watcher.deliver();
    if (const int node = m_filters.find(answer.record); show && node >= 0) m_tree.SelectNode(node);
    showFilter();
    return true;
}

void CLayerDlg::OnTreeSelChanged() {
    m_list.EndLabelEditing();
    m_chosen = chosenLayers();
    showFilter();
}

std::vector<OdDbObjectId> CLayerDlg::chosenLayers() const {
    std::vector<OdDbObjectId> selected = m_list.SelectedLayers();
    if (m_chosen.size() <= selected.size()) return selected;
    const std::unordered_set<OdDbObjectId> chosen(m_chosen.begin(), m_chosen.end());
    const bool same = std::ranges::all_of(selected, [&](OdDbObjectId layer) { return chosen.contains(layer); });
    if (!same) return selected;
    std::vector<OdDbObjectId> all = m_chosen;
    std::erase_if(all, [](OdDbObjectId layer) { return layer.isErased(); });
    return all;
}

bool CLayerDlg::OnTreeEndEdit(int node, const std::wstring& name) {
    if (!m_database || m_filters.node(node).name == name) return true;
    return answered(renameFilter(*m_database, m_filters, node, name));
}

bool CLayerDlg::editFilter(CLayerFilterDlg& dialog, int parent, int node) {
    dialog.validateName = [&](const std::wstring& name) {
        return ValidateFilterChange(*m_database, m_filters, Kind::property, parent, node, name);
    };
    if (parent > 0) dialog.SetWithin(m_filters.matcher(parent));
    return dialog.DoModal() == IDOK;
}

// --- made ----------------------------------------------------------------------------------------------------

void CLayerDlg::OnBtnNewFilter() {
    if (!writable()) return;
    const int parent = parentForNew(m_filters, Kind::property, m_tree.selectedNode());
    const std::wstring name = newPropertyFilterName(m_filters);
    // A drawing that can't keep filters says so before one is thought out.
    const std::wstring refusal = ValidateFilterChange(*m_database, m_filters, Kind::property, parent, -1, name);
    if (!refusal.empty()) return warn(this, {GetWindowText(), refusal});
    CLayerFilterDlg dialog(m_database.get(), this, m_rows->viewport());
    dialog.SetName(name);
    if (!editFilter(dialog, parent, -1)) return;
    answered(addPropertyFilter(*m_database, m_filters, parent, dialog.GetName(), dialog.GetExpression()));
}

void CLayerDlg::OnBtnNewGroup() {
    if (!writable()) return;
    const int parent = parentForNew(m_filters, Kind::group, m_tree.selectedNode());
    if (answered(addGroupFilter(*m_database, m_filters, parent, newGroupFilterName(m_filters), {})))
        OnClickTreeMenu_RENAME();
}

void CLayerDlg::OnClickListMenu_GROUPFILTER() {
    if (!writable()) return;
    const std::vector<OdDbObjectId> layers = m_list.SelectedLayers();
    if (answered(addGroupFilter(*m_database, m_filters, 0, newGroupFilterName(m_filters), layers)))
        OnClickTreeMenu_RENAME();
}

// --- changed -------------------------------------------------------------------------------------------------

void CLayerDlg::OnClickTreeMenu_PROPERTIES() {
    const int node = m_tree.selectedNode();
    if (!writable() || m_filters.node(node).kind != Kind::property) return;
    CLayerFilterDlg dialog(m_database.get(), this, m_rows->viewport());
    dialog.SetName(m_filters.node(node).name);
    dialog.SetExpression(m_filters.node(node).expression.text());
    if (!editFilter(dialog, m_filters.node(node).parent, node)) return;
    answered(changePropertyFilter(*m_database, m_filters, node, dialog.GetName(), dialog.GetExpression()));
}

void CLayerDlg::OnClickTreeMenu_RENAME() {
    const int node = m_tree.selectedNode();
    if (!writable() || !m_filters.node(node).own()) return;
    m_tree.SetFocus();
    m_tree.EditNode(node);
}

void CLayerDlg::OnClickTreeMenu_DELETE() {
    const int node = m_tree.selectedNode();
    if (!m_filters.node(node).own()) return warn(this, filterKeptBox(m_filters.node(node).text));
    if (m_database) answered(deleteFilter(*m_database, m_filters, node));
}

void CLayerDlg::OnClickTreeMenu_CONVERTTOGROUP() {
    if (m_database) answered(convertToGroup(*m_database, m_filters, m_tree.selectedNode(), m_rows->viewport()));
}

void CLayerDlg::OnClickTreeMenu_ADD() {
    if (!m_database) return;
    const std::vector<OdDbObjectId> layers = chosenLayers();
    if (answered(addLayers(*m_database, m_filters, m_tree.selectedNode(), layers))) m_list.SelectLayers(layers);
}

void CLayerDlg::OnClickTreeMenu_SUBSTITUTE() {
    if (!m_database) return;
    const std::vector<OdDbObjectId> layers = chosenLayers();
    if (answered(substituteLayers(*m_database, m_filters, m_tree.selectedNode(), layers)))
        m_list.SelectLayers(layers);
}

void CLayerDlg::OnClickTreeMenu_REMOVE() {
    if (m_database)
        answered(removeLayers(*m_database, m_filters, m_tree.selectedNode(), m_list.SelectedLayers()));
}

// --- all layers of a filter ----------------------------------------------------------------------------------

void CLayerDlg::OnClickTreeMenu_VISIBILITY(bool on) {
    setStates(m_filters.layersOf(m_tree.selectedNode(), m_rows->viewport()), kFieldOn, on);
}

void CLayerDlg::OnClickTreeMenu_FREEZE(bool frozen) {
    setStates(m_filters.layersOf(m_tree.selectedNode(), m_rows->viewport()), kFieldFrozen, frozen);
}

void CLayerDlg::OnClickTreeMenu_LOCK(bool locked) {
    setStates(m_filters.layersOf(m_tree.selectedNode(), m_rows->viewport()), kFieldLocked, locked);
}

void CLayerDlg::OnClickTreeMenu_ISOLATE() {
    setStates(m_filters.layersToIsolate(m_tree.selectedNode(), m_rows->viewport()), kFieldFrozen, true);
}

// --- what is selected ----------------------------------------------------------------------------------------

void CLayerDlg::OnClickListMenu_SELSEPERATE() {
    TavoInterfaces* host = getTavoInterfaces();
    TavoSelection* selection = host ? host->selection() : nullptr;
    if (!selection) return;
    std::unordered_set<OdDbObjectId> layers;
    for (const OdDbObjectId id : selection->ids())
        if (const auto entity = id.open<OdDbEntity>()) layers.insert(entity->layerId());
    m_chosen.clear();
    m_list.SelectLayers({layers.begin(), layers.end()});
    showState();
}
