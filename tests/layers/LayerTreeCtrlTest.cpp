#include "kxgui/layers/LayerTreeCtrl.h"

#include "kxgui/layers/LayerFilterEdits.h"
#include "platform/drawing/OdDbDatabase.h"
#include "platform/drawing/OdDbLayerTable.h"
#include "platform/toolkit/Button.h"
#include "platform/toolkit/Dialog.h"
#include "platform/toolkit/ListCtrl.h"
#include "platform/toolkit/ModuleChain.h"
#include "tests/support/HeadlessTest.h"

using namespace kx::layers;

namespace {

constexpr unsigned IDD_TREE_PROBE = 7151;
constexpr tv::ui::DialogTemplate kTemplates[] = {{IDD_TREE_PROBE, "IDD_TREE_PROBE", {200, 100}, false}};

struct TreeProbeDlg : CDialog {
    TreeProbeDlg() : CDialog(IDD_TREE_PROBE, nullptr) {}
    CLayerTreeCtrl tree{*this, "TREE"};
    CListCtrl grid{*this, "GRID", true};
    CButton ok{*this, "IDOK"};
};

struct LayerTree : HeadlessTest {
    static void SetUpTestSuite() { tv::ui::ModuleChain::instance().add({"treeProbe", false, kTemplates}); }
    static void TearDownTestSuite() { tv::ui::ModuleChain::instance().remove("treeProbe"); }
    OdDbDatabasePtr db = OdDbDatabase::create();
    LayerFilterTree filters;
    TreeProbeDlg dialog;

    int read(const FilterAnswer& answer) {
        EXPECT_TRUE(answer);
        filters.read(*db);
        dialog.tree.SetTree(filters);
        return filters.find(answer.record);
    }
};

} // namespace

TEST_F(LayerTree, SelectionAndOpenNodesSurviveAReading) {
    filters.read(*db);
    const int group = read(addGroupFilter(*db, filters, 0, L"Group", {}));
    const int inner = read(addPropertyFilter(*db, filters, group, L"Inner", L"NAME==\"A*\""));
    CLayerTreeCtrl& tree = dialog.tree;
    tree.SelectNode(inner);
    const int item = tree.GetSelectedItem();
    EXPECT_TRUE(tree.item(tree.itemOf(filters.node(inner).parent))->expanded);
    const int renamed = read(renameFilter(*db, filters, inner, L"Other"));
    EXPECT_EQ(tree.selectedNode(), renamed);
    EXPECT_EQ(tree.GetSelectedItem(), item);
    EXPECT_TRUE(tree.item(tree.itemOf(filters.node(renamed).parent))->expanded);
    EXPECT_EQ(tree.item(item)->text, L"Other");
    // Gone: what it stood below is selected.
    ASSERT_TRUE(deleteFilter(*db, filters, renamed));
    filters.read(*db);
    tree.SetTree(filters);
    EXPECT_EQ(filters.node(tree.selectedNode()).name, L"Group");
    filters.clear();
    tree.SetTree(filters);
    EXPECT_EQ(tree.selectedNode(), 0);
}

TEST_F(LayerTree, APersonRenamesOwnFiltersAndDropsLayersOnGroups) {
    filters.read(*db);
    const OdDbObjectId layer = db->layers(OdDb::kForWrite)->add(L"A1");
    read(addGroupFilter(*db, filters, 0, L"Group", {}));
    read(addPropertyFilter(*db, filters, 0, L"Property", L""));
    CLayerTreeCtrl& tree = dialog.tree;
    const auto item = [&](const wchar_t* name) { return tree.find({L"모두", name}); };
    CLayerDropTarget target(tree, filters, dialog.grid);
    target.draggedLayers = [&] { return std::vector{layer}; };
    target.onDropLayers = [&](int node, const auto& layers) { read(addLayers(*db, filters, node, layers)); };
    tree.onFilterRename = [&](int node, const std::wstring& name) {
        return static_cast<bool>(renameFilter(*db, filters, node, name));
    };
    int deleted = -1;
    tree.onFilterDelete = [&](int node) { deleted = node; };
    user.expect<TreeProbeDlg>([&](auto&) {
        EXPECT_FALSE(tree.userRename(item(L"사용된 모든 도면층"), L"x"));
        EXPECT_FALSE(tree.userRename(item(L"Group"), L"Property")) << "taken";
        EXPECT_TRUE(tree.userRename(item(L"Group"), L"Walls"));
        filters.read(*db);
        tree.SetTree(filters);
        EXPECT_FALSE(tree.userDropOn(item(L"Property"), dialog.grid, false));
        EXPECT_FALSE(tree.userDropOn(tree.find({L"모두"}), dialog.grid, false));
        EXPECT_TRUE(tree.userDropOn(item(L"Walls"), dialog.grid, false));
        EXPECT_EQ(filters.layersOf(tree.nodeOf(item(L"Walls"))), std::vector{layer});
        EXPECT_TRUE(tree.userDelete(item(L"사용된 모든 도면층")));
        dialog.EndDialog(IDOK);
    });
    dialog.DoModal();
    EXPECT_EQ(filters.node(deleted).key, L"used");
}
