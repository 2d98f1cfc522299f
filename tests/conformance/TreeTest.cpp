// Trees: filling them, keys, renaming, and what is dropped on them. The same for every face.
#include "platform/toolkit/Pictures.h"
#include "tests/conformance/Faces.h"
#include "tests/conformance/ProbeDlg.h"

#include <gmock/gmock.h>

using testing::ElementsAre;
using tv::ui::RowSet;
using tv::ui::TreeEntry;
using tv::ui::UserAction;
using tv::ui::WindowUser;
using Kind = UserAction::Kind;

template <class Face>
class Trees : public testing::Test {
  protected:
    void run(std::function<void(WindowUser&)> does) {
        tree.onSelChange = [this] { ++changes; };
        user.template expect<ProbeDlg>([&](WindowUser& u) {
            tree.SetFocus();
            does(u);
            if (dlg.running()) dlg.EndDialog(IDCANCEL);
        });
        dlg.DoModal();
    }
    static UserAction action(Kind kind, std::vector<std::wstring> path, std::wstring text = {}) {
        UserAction out;
        out.kind = kind;
        out.path = std::move(path);
        out.text = std::move(text);
        return out;
    }
    void keys(WindowUser& u, std::initializer_list<const wchar_t*> all) {
        for (const wchar_t* key : all)
            u.key(key);
    }
    std::wstring selected() const {
        const auto* item = tree.item(tree.GetSelectedItem());
        return item ? item->text : L"";
    }
    // All > (Used, Walls > (Inner, Outer)), Empty
    static std::vector<TreeEntry> filters() {
        TreeEntry all{L"All", 1}, walls{L"Walls", 3};
        all.expanded = true;
        walls.renamable = true;
        walls.children = {{L"Inner", 4}, {L"Outer", 5}};
        all.children = {{L"Used", 2}, walls};
        return {all, {L"Empty", 6}};
    }

    int changes = 0;
    ProbeModule module;
    ProbeDlg dlg;
    CTreeCtrl& tree = dlg.tree;
    Face face;
    tv::ui::SimulatedUser user{face.toolkit, [](const std::string& m) { ADD_FAILURE() << m; }, face.hand()};
};
TYPED_TEST_SUITE(Trees, Faces);

TYPED_TEST(Trees, AreFilledAnewWithoutLosingWhatIsThere) {
    CTreeCtrl& tree = this->tree;
    tree.SetItems(this->filters());
    this->run([&](WindowUser& u) {
        const int walls = tree.FindItemData(3), inner = tree.FindItemData(4);
        tree.Expand(walls);
        tree.SelectItem(inner);
        auto next = this->filters();
        next[0].children[1].text = L"Mauern";
        next[0].children[1].picture = tv::ui::colorPicture(0xff0000);
        next.insert(next.begin(), {L"First", 7});
        std::swap(next[0], next[2]); // Empty, All, First
        next[1].children.erase(next[1].children.begin());
        tree.SetItems(next);
        EXPECT_EQ(tree.FindItemData(3), walls);
        EXPECT_EQ(tree.GetSelectedItem(), inner);
        EXPECT_THAT(*u.look("IDC_TREE").items,
                    ElementsAre(L"Empty", L"All", L"  Mauern", L"    Inner", L"    Outer", L"First"));
        this->face.expectShown(this->dlg);

        EXPECT_FALSE(tree.MoveItem(walls, inner)) << "into itself";
        EXPECT_TRUE(tree.MoveItem(inner, 0, tree.FindItemData(6)));
        const int between = tree.InsertItem(L"Between", walls, 8, tree.FindItemData(5));
        tree.SetItemPicture(between, tv::ui::colorPicture(0xff));
        EXPECT_THAT(*u.look("IDC_TREE").items, ElementsAre(L"Inner", L"Empty", L"All", L"  Mauern",
                                                           L"    Between", L"    Outer", L"First"));
        EXPECT_EQ(this->selected(), L"Inner");
        this->face.expectShown(this->dlg);
        next.resize(1);
        tree.SetItems(next);
        EXPECT_EQ(tree.GetSelectedItem(), 0);
        EXPECT_EQ(tree.item(walls), nullptr);
        EXPECT_EQ(this->changes, 0);
        u.act("IDC_TREE", this->action(Kind::treeSelect, {L"Empty"}));
        EXPECT_EQ(this->changes, 1);
    });
}

TYPED_TEST(Trees, AreWalkedThroughByKeysAlone) {
    CTreeCtrl& tree = this->tree;
    tree.SetItems(this->filters());
    std::vector<std::wstring> told;
    const auto tell = [&](const wchar_t* what) {
        return [&told, &tree, what](int id) { told.push_back(what + (id ? tree.item(id)->text : L"")); };
    };
    tree.onDelete = tell(L"delete ");
    tree.onMenu = tell(L"menu ");
    this->run([&](WindowUser& u) {
        tree.SelectItem(tree.FindItemData(1));
        this->keys(u, {L"Down", L"Down"});
        EXPECT_EQ(this->selected(), L"Walls");
        this->keys(u, {L"Right", L"Right"});
        EXPECT_EQ(this->selected(), L"Inner") << "first it opens, then the first one within";
        this->keys(u, {L"Down", L"Left"});
        EXPECT_EQ(this->selected(), L"Walls") << "out of it again";
        this->keys(u, {L"Left"});
        EXPECT_FALSE(tree.item(tree.FindItemData(3))->expanded);
        this->keys(u, {L"End"});
        EXPECT_EQ(this->selected(), L"Empty");
        this->keys(u, {L"Home", L"*"});
        EXPECT_TRUE(tree.item(tree.FindItemData(3))->expanded) << "all below";
        this->keys(u, {L"o"});
        EXPECT_EQ(this->selected(), L"Outer");
        this->keys(u, {L"Delete", L"Menu", L"Shift+F10"});
        EXPECT_THAT(told, ElementsAre(L"delete Outer", L"menu Outer", L"menu Outer"));
        // Closing what is around it takes the selection along.
        tree.SelectItem(tree.FindItemData(4));
        ASSERT_TRUE(tree.userExpand(tree.FindItemData(1), false));
        EXPECT_EQ(this->selected(), L"All");
        told.clear();
        u.act("IDC_TREE", this->action(Kind::treeMenu, {L"Empty"}));
        EXPECT_EQ(this->selected(), L"Empty");
        u.act("IDC_TREE", this->action(Kind::treeMenu, {}));
        EXPECT_THAT(told, ElementsAre(L"menu Empty", L"menu "));
        EXPECT_EQ(this->selected(), L"Empty");
        tree.onDoubleClick = tell(L"twice ");
        u.act("IDC_TREE", this->action(Kind::treeDoubleClick, {L"Empty"}));
        EXPECT_EQ(told.back(), L"twice Empty");
    });
}

TYPED_TEST(Trees, AreRenamedInPlace) {
    CTreeCtrl& tree = this->tree;
    tree.SetItems(this->filters());
    this->run([&](WindowUser& u) {
        const int walls = tree.FindItemData(3);
        u.act("IDC_TREE", this->action(Kind::treeRename, {L"All", L"Walls"}, L"Mauern"));
        EXPECT_EQ(tree.item(walls)->text, L"Mauern");
        (void)this->user.hand().act(tree, this->action(Kind::treeRename, {L"All", L"Mauern"}, L"bad"));
        EXPECT_EQ(tree.item(walls)->text, L"Mauern");
        this->face.expectShown(this->dlg);
        u.refused("IDC_TREE", this->action(Kind::treeRename, {L"All", L"Used"}, L"any"));
        EXPECT_EQ(this->dlg.fired["rename"], 2);

        EXPECT_FALSE(tree.EditLabel(tree.FindItemData(2)));
        EXPECT_TRUE(tree.EditLabel(walls));
        EXPECT_EQ(tree.editedItem(), walls);
        EXPECT_TRUE(this->face.editing(tree));
        auto more = this->filters();
        more.push_back({L"New", 9});
        tree.SetItems(more);
        EXPECT_EQ(tree.editedItem(), walls) << "what else happens does not disturb";
        EXPECT_TRUE(this->face.editing(tree));
        u.key(L"Escape");
        EXPECT_EQ(tree.editedItem(), 0);
        EXPECT_FALSE(this->face.editing(tree));
        EXPECT_TRUE(this->dlg.running());
        tree.SelectItem(walls);
        u.key(L"F2");
        EXPECT_EQ(tree.editedItem(), walls);
        tree.SetItems({});
        EXPECT_EQ(tree.editedItem(), 0);
        EXPECT_EQ(this->dlg.fired["rename"], 2);
    });
}

TYPED_TEST(Trees, TakeWhatIsDraggedOntoThem) {
    CTreeCtrl& tree = this->tree;
    CListCtrl& rows = this->dlg.list;
    tree.SetItems(this->filters());
    tree.Expand(tree.FindItemData(3));
    std::vector<std::wstring> told;
    bool may = true;
    rows.onBeginDrag = [&] { return may; };
    tree.acceptsDrop = [&](int id, const CWnd& from) {
        return &from == &rows ? id && tree.GetItemData(id) != 1 : tree.GetItemData(id) == 6;
    };
    tree.onDrop = [&](int id, CWnd& from, bool copy) {
        told.push_back((&from == &rows ? std::to_wstring(rows.selection().count()) : this->selected()) +
                       L" on " + tree.item(id)->text + (copy ? L" copied" : L""));
    };
    this->run([&](WindowUser& u) {
        rows.SetSelection({1, 2, 4});
        UserAction drag = this->action(Kind::drag, {L"All", L"Walls"}, L"IDC_TREE");
        u.act("IDC_LIST", drag);
        drag.checked = 1;
        u.act("IDC_LIST", drag);
        EXPECT_EQ(rows.selection(), (RowSet{1, 2, 4}));
        EXPECT_THAT(told, ElementsAre(L"3 on Walls", L"3 on Walls copied"));
        drag.path = {L"All"};
        u.refused("IDC_LIST", drag);
        drag.path = {L"None"};
        u.refused("IDC_LIST", drag);
        drag.path = {L"Empty"};
        may = false;
        u.refused("IDC_LIST", drag);
        may = true;
        rows.SetSelection({});
        u.refused("IDC_LIST", drag);
        EXPECT_EQ(told.size(), 2U);

        // An item of the tree itself.
        tree.SelectItem(tree.FindItemData(4));
        drag.checked = 0;
        u.refused("IDC_TREE", drag);
        tree.onBeginDrag = [&](int id) { return tree.GetItemData(id) == 4; };
        tree.Expand(tree.FindItemData(3)); // tells the face
        tree.SelectItem(tree.FindItemData(4));
        u.act("IDC_TREE", drag);
        EXPECT_EQ(told.back(), L"Inner on Empty");
    });
}
