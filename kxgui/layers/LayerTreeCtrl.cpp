#include "kxgui/layers/LayerTreeCtrl.h"

#include "kxgui/layers/LayerFilterIcons.h"

#include <utility>

using kx::layers::LayerFilterTree;
using Kind = kx::layers::LayerFilterTree::Kind;

CLayerTreeCtrl::CLayerTreeCtrl(CWnd& parent, const char* name) : CTreeCtrl(parent, name) {
    onSelChange = [this] {
        if (onFilterChange) onFilterChange(selectedNode());
    };
    onRename = [this](int item, const std::wstring& text) {
        const int node = nodeOf(item);
        return node >= 0 && onFilterRename && onFilterRename(node, text);
    };
    onMenu = [this](int item) {
        if (onFilterMenu) onFilterMenu(nodeOf(item));
    };
    onDelete = [this](int item) {
        if (const int node = nodeOf(item); node >= 0 && onFilterDelete) onFilterDelete(node);
    };
    onDoubleClick = [this](int item) {
        const int node = nodeOf(item);
        if (node < 0) return;
        if (m_tree->node(node).kind == Kind::property && onFilterDoubleClick)
            onFilterDoubleClick(node);
        else if (const tv::ui::TreeItem* const shown = this->item(item))
            Expand(item, !shown->expanded);
    };
}

std::uintptr_t CLayerTreeCtrl::dataOf(const std::wstring& key) {
    const auto [place, isNew] = m_data.try_emplace(key, m_data.size() + 1);
    if (isNew) m_keys.emplace(place->second, key);
    return place->second;
}

void CLayerTreeCtrl::SetTree(const LayerFilterTree& tree) {
    // The keys from the selected one up, before its items may be gone.
    std::vector<std::wstring> path;
    for (const tv::ui::TreeItem* at = item(GetSelectedItem()); at && at->id != 0; at = at->parent)
        if (const auto key = m_keys.find(at->data); key != m_keys.end()) path.push_back(key->second);

    m_tree = &tree;
    const auto entryOf = [&](int number, const auto& self) -> tv::ui::TreeEntry {
        const LayerFilterTree::Node& node = tree.node(number);
        tv::ui::TreeEntry entry;
        entry.text = node.text;
        entry.data = dataOf(node.key);
        entry.picture = kx::layers::filterIcon(node.kind, node.faulty);
        entry.renamable = node.own();
        entry.expanded = number == 0;
        entry.hint = node.hint;
        for (const int child : node.children)
            entry.children.push_back(self(child, self));
        return entry;
    };
    std::vector<tv::ui::TreeEntry> entries;
    entries.push_back(entryOf(0, entryOf));
    SetItems(std::move(entries));

    int selected = -1;
    for (std::size_t i = 0; i < path.size() && selected < 0; ++i)
        selected = tree.find(path[i]);
    SelectNode(selected);
}

int CLayerTreeCtrl::nodeOf(int item) const {
    const auto key = m_keys.find(GetItemData(item));
    return m_tree && key != m_keys.end() ? m_tree->find(key->second) : -1;
}

int CLayerTreeCtrl::itemOf(int node) const {
    if (!m_tree || !m_tree->valid(node)) return 0;
    const auto data = m_data.find(m_tree->node(node).key);
    return data == m_data.end() ? 0 : FindItemData(data->second);
}

int CLayerTreeCtrl::selectedNode() const { return std::max(0, nodeOf(GetSelectedItem())); }

void CLayerTreeCtrl::SelectNode(int node) {
    const int item = itemOf(std::max(0, node));
    if (item == 0) return;
    EnsureVisible(item);
    if (item != GetSelectedItem()) SelectItem(item);
}

bool CLayerTreeCtrl::EditNode(int node) {
    const int item = itemOf(node);
    return item != 0 && EditLabel(item);
}

CLayerDropTarget::CLayerDropTarget(CLayerTreeCtrl& tree, const LayerFilterTree& filters, const CWnd& grid)
    : m_filters(filters) {
    tree.acceptsDrop = [this, &tree, &grid](int item, const CWnd& from) {
        return &from == &grid && accepts(tree.nodeOf(item));
    };
    tree.onDrop = [this, &tree](int item, CWnd&, bool) {
        const int node = tree.nodeOf(item);
        if (accepts(node) && draggedLayers && onDropLayers) onDropLayers(node, draggedLayers());
    };
}

bool CLayerDropTarget::accepts(int node) const {
    return m_filters.valid(node) && m_filters.node(node).kind == Kind::group;
}
