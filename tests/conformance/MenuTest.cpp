// Context menus: who opens them, what closes them, and what a choice does. The same for every face.
#include "platform/toolkit/Menu.h"
#include "platform/text/Unicode.h"
#include "tests/conformance/Faces.h"
#include "tests/conformance/ProbeDlg.h"

#include <gmock/gmock.h>

using namespace std::chrono_literals;
using testing::ElementsAre;
using testing::HasSubstr;
using tv::ui::MenuItem;
using tv::ui::RowSet;
using tv::ui::UserAction;
using tv::ui::WindowUser;
using Kind = UserAction::Kind;

template <class Face>
class Menus : public testing::Test {
  protected:
    void run(std::function<void(WindowUser&)> does) {
        user.template expect<ProbeDlg>([&](WindowUser& u) {
            does(u);
            if (dlg.running()) dlg.EndDialog(IDCANCEL);
        });
        dlg.DoModal();
    }
    static UserAction menu(std::vector<std::wstring> path) {
        UserAction out;
        out.kind = Kind::menu;
        out.path = std::move(path);
        return out;
    }
    static UserAction cellMenu(int row, int column) {
        UserAction out;
        out.kind = Kind::cell;
        out.cell = UserAction::Cell::menu;
        out.row = row;
        out.column = column;
        return out;
    }
    std::vector<MenuItem> entries() {
        const auto say = [this](const char* what) {
            return [this, what] {
                EXPECT_EQ(face.toolkit.menu(), nullptr) << "it is gone before the work begins";
                said.emplace_back(what);
            };
        };
        std::vector<MenuItem> out{{L"&New", say("new")},
                                  {L"이름 바꾸기(&R)...", say("rename")},
                                  {L"&Delete", say("delete"), false, {}, L"Del"},
                                  MenuItem::separator(),
                                  {L"&Show", {}},
                                  {L"Done && dusted", say("dusted"), true, true}};
        out[4].items = {{L"&All", say("all")}, {L"&None", say("none"), true, false}};
        return out;
    }
    bool open() const { return face.toolkit.menu(); }

    std::vector<std::string> said;
    ProbeModule module;
    ProbeDlg dlg;
    Face face;
    tv::ui::SimulatedUser user{face.toolkit, [](const std::string& m) { ADD_FAILURE() << m; }, face.hand()};
};
TYPED_TEST_SUITE(Menus, Faces);

TYPED_TEST(Menus, DoWhatIsChosenAndRefuseTheRest) {
    this->dlg.list.onContextMenu = [&](int, int) { this->dlg.list.ShowMenu(this->entries()); };
    this->run([&](WindowUser& u) {
        const auto choose = [&](std::vector<std::wstring> path) {
            u.act("IDC_LIST", this->cellMenu(1, 0));
            u.act("IDC_LIST", this->menu(std::move(path)));
            EXPECT_FALSE(this->open());
        };
        choose({L"New"});
        choose({L"이름 바꾸기(R)..."}); // as it is shown
        choose({L"이름 바꾸기"});       // as it is said
        choose({L"&Show", L"None"});
        choose({L"Done & dusted"});
        EXPECT_THAT(this->said, ElementsAre("new", "rename", "rename", "none", "dusted"));

        this->said.clear();
        EXPECT_THAT(tv::text::toUtf8(u.refused("IDC_LIST", this->menu({L"New"}))), HasSubstr("열려"));
        u.act("IDC_LIST", this->cellMenu(1, 0));
        EXPECT_THAT(tv::text::toUtf8(u.refused("", this->menu({L"Delete"}))), HasSubstr("Delete"));
        ASSERT_TRUE(this->open()) << "a refusal leaves it open";
        EXPECT_THAT(tv::text::toUtf8(u.refused("", this->menu({L"Rename"}))),
                    HasSubstr("New, 이름 바꾸기..., Delete, Show, Done & dusted"));
        EXPECT_THAT(tv::text::toUtf8(u.refused("", this->menu({L"Show"}))), HasSubstr("All, None"));
        EXPECT_THAT(tv::text::toUtf8(u.refused("", this->menu({L"Show", L"Some"}))), HasSubstr("All, None"));
        ASSERT_TRUE(this->open());
        const auto look = u.look();
        ASSERT_TRUE(look.menu);
        EXPECT_EQ(look.menuOwner, "IDC_LIST");
        ASSERT_EQ(look.menu->size(), 6U);
        EXPECT_EQ((*look.menu)[1].text, L"이름 바꾸기...");
        EXPECT_FALSE((*look.menu)[2].enabled);
        EXPECT_EQ((*look.menu)[2].keys, L"Del");
        EXPECT_TRUE((*look.menu)[3].text.empty());
        EXPECT_EQ((*look.menu)[4].items[1].checked, false);
        EXPECT_EQ((*look.menu)[5].checked, true);
        EXPECT_TRUE(this->said.empty());
    });
    EXPECT_FALSE(this->open()) << "it goes with its window";
}

TYPED_TEST(Menus, AreWalkedThroughByKeys) {
    this->run([&](WindowUser& u) {
        const auto keys = [&](std::initializer_list<const wchar_t*> all) {
            this->dlg.more.ShowMenu(this->entries());
            EXPECT_TRUE(this->open());
            for (const wchar_t* key : all)
                u.key(key);
            this->face.pass(1ms); // a menu given up is gone a moment later
            return this->open();
        };
        EXPECT_FALSE(keys({L"Down", L"Enter"}));
        EXPECT_FALSE(keys({L"Down", L"Down", L"Down", L"Right", L"Down", L"Enter"}));
        EXPECT_FALSE(keys({L"Up", L"Enter"}));
        EXPECT_FALSE(keys({L"n"})) << "the letter of an entry";
        EXPECT_FALSE(keys({L"s", L"a"}));
        EXPECT_THAT(this->said, ElementsAre("new", "none", "dusted", "new", "all"));
        EXPECT_FALSE(keys({L"Escape"}));
        EXPECT_TRUE(this->dlg.running()) << "the menu's Escape is not the window's";
        EXPECT_TRUE(keys({L"s", L"Escape"})) << "it leaves the inner menu only";
        u.key(L"Escape");
        this->face.pass(1ms);
        EXPECT_FALSE(this->open());
        EXPECT_EQ(this->said.size(), 5U);
    });
}

TYPED_TEST(Menus, CloseWithWhateverElseHappens) {
    this->run([&](WindowUser& u) {
        ProbeDlg& dlg = this->dlg;
        const auto reopen = [&](CWnd& owner) {
            owner.ShowMenu(this->entries());
            EXPECT_TRUE(this->open());
        };
        reopen(dlg.tree);
        dlg.list.ShowMenu({{L"Other", [] {}}}, CPoint{3, 3});
        EXPECT_EQ(u.look().menuOwner, "IDC_LIST") << "one at a time";
        // The action itself: a click that only closes a menu is the face's own matter.
        reopen(dlg.tree);
        EXPECT_TRUE(dlg.check.perform({}));
        EXPECT_FALSE(this->open());
        EXPECT_EQ(dlg.check.GetCheck(), 1);
        reopen(dlg.more);
        dlg.more.EnableWindow(false);
        EXPECT_FALSE(this->open());
        dlg.more.EnableWindow();
        reopen(dlg.page1.inside);
        dlg.tabs.ShowWindow(false);
        EXPECT_FALSE(this->open());
        dlg.tabs.ShowWindow();
        reopen(dlg.edit);
        this->user.template expect<ProbeDlg>([&](WindowUser& inner) {
            EXPECT_FALSE(this->open());
            dlg.edit.ShowMenu(this->entries());
            EXPECT_FALSE(this->open()) << "nobody could choose from it";
            inner.click("IDCANCEL");
        });
        ProbeDlg(&dlg).DoModal();
        dlg.edit.ShowMenu({MenuItem::separator()});
        EXPECT_FALSE(this->open());
        EXPECT_TRUE(this->said.empty());
    });
}

TYPED_TEST(Menus, MayOpenWindowsAndEndTheirOwn) {
    std::unique_ptr<CEdit> passing;
    this->run([&](WindowUser& u) {
        ProbeDlg inner(&this->dlg);
        this->dlg.list.ShowMenu(
            {{L"Open", [&] { this->said.push_back(inner.DoModal() == IDOK ? "ok" : "no"); }}});
        this->user.template expect<ProbeDlg>([&](WindowUser& above) {
            inner.list.ShowMenu({{L"End", [&] { inner.EndDialog(IDOK); }}});
            above.act("", this->menu({L"End"}));
        });
        u.act("IDC_LIST", this->menu({L"Open"}));
        EXPECT_THAT(this->said, ElementsAre("ok"));
        EXPECT_TRUE(this->dlg.running());
    });
}

TYPED_TEST(Menus, OfListsAreAskedForWithTheSelectionTheyAreFor) {
    std::vector<std::pair<int, int>> asked;
    CListCtrl& rows = this->dlg.list;
    this->dlg.list.onContextMenu = [&](int row, int column) { asked.emplace_back(row, column); };
    rows.SetModel(std::make_shared<CountingRows>(3));
    this->run([&](WindowUser& u) {
        rows.SetSelection({0, 1});
        u.act("IDC_LIST", this->cellMenu(1, 1));
        EXPECT_EQ(rows.selection(), (RowSet{0, 1}));
        EXPECT_EQ(rows.focusRow(), 1);
        u.act("IDC_LIST", this->cellMenu(2, 0));
        EXPECT_EQ(rows.selection(), RowSet{2});
        u.act("IDC_LIST", this->cellMenu(-1, -1));
        EXPECT_EQ(rows.selection(), RowSet{2});
        rows.SetFocus();
        u.key(L"Shift+F10");
        using P = std::pair<int, int>;
        EXPECT_THAT(asked, ElementsAre(P{1, 1}, P{2, 0}, P{-1, -1}, P{2, 0}));
        EXPECT_FALSE(u.refused("IDC_LIST", this->cellMenu(3, 0)).empty());
    });
}
