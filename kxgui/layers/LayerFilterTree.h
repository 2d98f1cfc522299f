#pragma once

#include "kxgui/Export.h"
#include "kxgui/layers/LayerData.h"
#include "kxgui/layers/LayerFilterExpression.h"
#include "platform/drawing/LayerFilters.h"

#include <cstdint>
#include <filesystem>
#include <functional>
#include <memory>
#include <string>
#include <string_view>
#include <vector>

class OdDbDatabase;

namespace kx::layers {

// A drawing's layer filters as a person sees them. Nodes are named by their number, which holds until the next
// read(), and by their key, which outlasts it.
class KXGUI_EXPORT LayerFilterTree {
  public:
    enum class Kind : std::uint8_t {
        all,      // the root
        used,     // the layers in use
        xrefs,    // those of all external references
        xref,     // of one external reference and the ones in it
        property, // by an expression
        group,    // by a list
        old,      // of the older kind: patterns
    };
    struct Node {
        Kind kind = Kind::all;
        std::wstring key;    // the same for the same filter in every reading
        std::wstring name;   // without regard to the language: "All", "All Used Layers", the filter's own
        std::wstring text;   // as it is shown
        std::wstring hint;   // what there is to say about it, in sentences; often nothing
        bool faulty = false; // the hint is a complaint
        OdDbObjectId record; // of property, group, old
        OdDbObjectId twin; // the older filter of the same name that stands beside a newer one for old programs
        int parent = -1;
        std::vector<int> children;
        LayerFilterExpression expression; // of property, and what an old one comes to
        std::vector<OdDbObjectId> layers; // of group
        int missingLayers = 0;            // of group: named, and gone
        // The drawing's own, which can be renamed and deleted.
        bool own() const { return kind >= Kind::property; }
    };
    using Matcher = std::function<bool(const T_LAYER_DATA&)>;

    LayerFilterTree() { clear(); }
    // `xrefFolders`: where the drawings referred to are looked for besides the drawing's own folder.
    void read(OdDbDatabase& database, const std::vector<std::filesystem::path>& xrefFolders = {});
    // "All" only.
    void clear();

    // The root is number 0; parents stand in front of their children.
    const std::vector<Node>& nodes() const { return m_nodes; }
    const Node& node(int number) const { return m_nodes[static_cast<std::size_t>(valid(number) ? number : 0)]; }
    bool valid(int number) const { return number >= 0 && number < static_cast<int>(m_nodes.size()); }
    int find(std::wstring_view key) const; // -1: gone
    int find(OdDbObjectId record) const;   // -1: no filter's
    static std::wstring keyOf(OdDbObjectId record);

    // Whether the node shows a layer. A property filter shows none that the filters above it don't; a group
    // shows its own list wherever it stands.
    // The matcher doesn't need the tree any more. Where the answer depends on use, making it finds out which
    // layers are in use, in one pass over the drawing; where it depends on the active viewport, it is the row
    // that knows.
    Matcher matcher(int node) const;
    // The same for a single layer, by the use that was found out last.
    bool accepts(int node, const T_LAYER_DATA& layer) const;
    bool asksForUsage(int node) const;
    bool asksForViewport(int node) const;
    bool asksForCurrent(int node) const;
    // The drawing's layers the node shows, in file order.
    std::vector<OdDbObjectId> layersOf(int node, OdDbObjectId viewport = {}) const;
    // Those it does not show and which would have to be frozen for it to stand alone: without the current layer
    // and those frozen already.
    std::vector<OdDbObjectId> layersToIsolate(int node, OdDbObjectId viewport = {}) const;

  private:
    struct Test;                              // what one node asks, apart from the tree
    std::vector<int> chainOf(int node) const; // the nodes whose conditions count, from this one up
    Matcher make(int node) const;
    int add(int parent, Node node);
    void addXrefs(OdDbDatabase& database, const std::vector<std::filesystem::path>& folders);
    std::vector<T_LAYER_DATA> rows(int node, OdDbObjectId viewport) const;

    OdDbDatabase* m_database = nullptr;
    std::vector<Node> m_nodes;
    // What accepts() asked last, ready for the next layer.
    mutable int m_readyNode = -1;
    mutable Matcher m_ready;
};

// What an older filter asks for, as an expression. What its states mean nobody can tell: one that has any fits
// no layer.
KXGUI_EXPORT LayerFilterExpression expressionOf(const tv::dwg::LayerFilter::Patterns& patterns);

} // namespace kx::layers
