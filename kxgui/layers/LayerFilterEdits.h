#pragma once

#include "kxgui/Export.h"
#include "kxgui/layers/LayerFilterTree.h"

#include <span>
#include <string>
#include <string_view>

// What is done to the filters of a drawing. Each is one undo step named "_LAYER"; a refusal changes nothing and
// is one sentence, and what is as it was asked for already is not written again. The tree must be that of the
// drawing, read since its last change, and has to be read again afterwards.
namespace kx::layers {

// "특성 필터1", "특성 필터2" ...: the first name no other filter has. Likewise for groups.
KXGUI_EXPORT std::wstring newPropertyFilterName(const LayerFilterTree& tree);
KXGUI_EXPORT std::wstring newGroupFilterName(const LayerFilterTree& tree);

// Below which node a new filter goes that is asked for at another one: property filters below any of the
// newer kinds, groups below groups; else at the top.
KXGUI_EXPORT int parentForNew(const LayerFilterTree& tree, LayerFilterTree::Kind kind, int at);

// Why a filter of that kind can't have that name there; empty when it can. `node`: the filter itself, -1 for a
// new one.
KXGUI_EXPORT std::wstring ValidateFilterChange(const OdDbDatabase& database, const LayerFilterTree& tree,
                                               LayerFilterTree::Kind kind, int parent, int node,
                                               std::wstring_view name);

struct FilterAnswer {
    std::wstring refusal; // empty: done
    OdDbObjectId record;  // the filter it was about
    explicit operator bool() const { return refusal.empty(); }
};
KXGUI_EXPORT FilterAnswer addPropertyFilter(OdDbDatabase& database, const LayerFilterTree& tree, int parent,
                                            std::wstring_view name, std::wstring_view expression);
KXGUI_EXPORT FilterAnswer addGroupFilter(OdDbDatabase& database, const LayerFilterTree& tree, int parent,
                                         std::wstring_view name, std::span<const OdDbObjectId> layers);
KXGUI_EXPORT FilterAnswer renameFilter(OdDbDatabase& database, const LayerFilterTree& tree, int node,
                                       std::wstring_view name);
// Name and expression of a property filter.
KXGUI_EXPORT FilterAnswer changePropertyFilter(OdDbDatabase& database, const LayerFilterTree& tree, int node,
                                               std::wstring_view name, std::wstring_view expression);
// With those nested in it.
KXGUI_EXPORT FilterAnswer deleteFilter(OdDbDatabase& database, const LayerFilterTree& tree, int node);
// A group of the layers it shows now, under its name and in its place; those nested stay nested.
KXGUI_EXPORT FilterAnswer convertToGroup(OdDbDatabase& database, const LayerFilterTree& tree, int node,
                                         OdDbObjectId viewport = {});

// Of groups. Layers added to a nested group are added to the groups above it, too.
KXGUI_EXPORT FilterAnswer addLayers(OdDbDatabase& database, const LayerFilterTree& tree, int node,
                                    std::span<const OdDbObjectId> layers);
KXGUI_EXPORT FilterAnswer substituteLayers(OdDbDatabase& database, const LayerFilterTree& tree, int node,
                                           std::span<const OdDbObjectId> layers);
KXGUI_EXPORT FilterAnswer removeLayers(OdDbDatabase& database, const LayerFilterTree& tree, int node,
                                       std::span<const OdDbObjectId> layers);

} // namespace kx::layers
