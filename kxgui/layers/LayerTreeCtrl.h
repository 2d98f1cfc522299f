#pragma once

#include "kxgui/layers/LayerFilterTree.h"
#include "platform/toolkit/TreeCtrl.h"

#include <functional>
#include <map>
#include <string>
#include <vector>

// The tree of layer filters. Nodes are those of the LayerFilterTree it shows, which must outlive it or be shown
// again after every read().
class KXGUI_EXPORT CLayerTreeCtrl : public CTreeCtrl {
  public:
    CLayerTreeCtrl(CWnd& parent, const char* name);

    // Shows what the tree holds now. The selected filter and the open ones stay so; where the selected one is
    // gone, what it stood below is selected, and else everything. No handler runs.
    void SetTree(const kx::layers::LayerFilterTree& tree);

    int selectedNode() const; // 0, everything, when nothing is selected
    // Also opens what it stands below. No handler runs.
    void SelectNode(int node);
    // A person begins to enter another name for it.
    bool EditNode(int node);
    int nodeOf(int item) const; // -1: no node's item
    int itemOf(int node) const; // 0: not shown

    // What a person did. Fixed filters are neither renamed nor deleted: for these onFilterDelete comes all the
    // same, so that it can be said.
    std::function<void(int node)> onFilterChange;
    std::function<bool(int node, const std::wstring& name)> onFilterRename; // false refuses
    std::function<void(int node)> onFilterDelete;
    std::function<void(int node)> onFilterMenu;        // -1: asked for beside all filters
    std::function<void(int node)> onFilterDoubleClick; // of a property filter; others open and close

  private:
    std::uintptr_t dataOf(const std::wstring& key);

    const kx::layers::LayerFilterTree* m_tree = nullptr;
    std::map<std::wstring, std::uintptr_t> m_data; // by the node's key; a number stays with its key
    std::map<std::uintptr_t, std::wstring> m_keys;
};

// What layers dragged onto the tree do: a group filter takes them, nothing else does.
class KXGUI_EXPORT CLayerDropTarget {
  public:
    // `grid`: where the layers come from.
    CLayerDropTarget(CLayerTreeCtrl& tree, const kx::layers::LayerFilterTree& filters, const CWnd& grid);

    bool accepts(int node) const;

    // The layers that are being dragged.
    std::function<std::vector<OdDbObjectId>()> draggedLayers;
    // They were dropped on a group.
    std::function<void(int node, const std::vector<OdDbObjectId>& layers)> onDropLayers;

  private:
    const kx::layers::LayerFilterTree& m_filters;
};
