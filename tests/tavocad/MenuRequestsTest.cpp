// Menus, and rows dragged onto a tree, through the pipe.
#include "platform/toolkit/Dialog.h"
#include "platform/toolkit/ListCtrl.h"
#include "platform/toolkit/ModuleChain.h"
#include "platform/toolkit/TreeCtrl.h"
#include "tests/tavocad/ScriptedSession.h"

#include <array>

namespace {

constexpr std::array<tv::ui::DialogTemplate, 1> templates{{{9301, "IDD_GROUPS", {200, 100}, false}}};

// Rows that can be put into groups.
struct GroupsDlg : CDialog {
    GroupsDlg() : CDialog(9301, nullptr) {
        tv::ui::TextRows rows;
        rows.rows = {{{L"one"}}, {{L"two"}}, {{L"three"}}};
        list.SetColumns({{L"Name", 80}});
        list.SetModel(std::make_shared<tv::ui::TextRows>(rows));
        groups.SetItems({{L"Group", 1}, {L"Fixed", 2}});
        list.onBeginDrag = [] { return true; };
        list.onContextMenu = [this](int row, int) {
            std::vector<tv::ui::MenuItem> items{
                {L"&Hide", [this, row] { done = "hide " + std::to_string(row); }},
                {L"&Move to", {}},
                tv::ui::MenuItem::separator(),
                {L"Delete...", [] {}, false, true, L"Del"}};
            items[1].items = {{L"Group", [this] { done = "move"; }}};
            list.ShowMenu(std::move(items));
        };
        groups.onMenu = [this](int id) { groups.ShowMenu({{L"Close", [this] { EndDialog(IDOK); }, id == 0}}); };
        groups.acceptsDrop = [](int id, const CWnd&) { return id == 1; };
        groups.onDrop = [this](int, CWnd&, bool copy) {
            done = std::to_string(list.selection().count()) + (copy ? " copied" : " moved");
        };
    }
    std::string done;
    CListCtrl list{*this, "IDC_ROWS", true};
    CTreeCtrl groups{*this, "IDC_GROUPS"};
};

struct GroupsModule {
    GroupsModule() { tv::ui::ModuleChain::instance().add({"groups", false, templates}); }
    ~GroupsModule() { tv::ui::ModuleChain::instance().remove("groups"); }
};

class MenuRequests : public ScriptedSession {
  protected:
    MenuRequests() { EXPECT_TRUE(dlg.Create()); }
    ~MenuRequests() override { dlg.DestroyWindow(); }
    GroupsModule module;
    GroupsDlg dlg;
};

} // namespace

TEST_F(MenuRequests, AreShownAndChosenFrom) {
    const auto replies =
        runWell(R"({"do":"cell","window":"IDD_GROUPS","control":"IDC_ROWS","row":1,"action":"menu"}
{"do":"dialog","window":"IDD_GROUPS"}
{"do":"menu","text":"Hide"}
{"do":"dialog","window":"IDD_GROUPS"}
)");
    const auto& menu = replies[1]["dialog"]["menu"];
    EXPECT_EQ(menu["control"], "IDC_ROWS");
    EXPECT_EQ(
        menu["items"].dump(),
        R"([{"text":"Hide","enabled":true},{"text":"Move to","enabled":true,"items":[{"text":"Group","enabled":true}]},{"separator":true},{"text":"Delete...","enabled":false,"checked":true,"keys":"Del"}])");
    EXPECT_EQ(dlg.done, "hide 1");
    EXPECT_FALSE(replies[3]["dialog"].contains("menu"));

    runWell(R"({"do":"cell","window":"IDD_GROUPS","control":"IDC_ROWS","row":-1,"action":"menu"}
{"do":"menu","path":["Move to","Group"]}
{"do":"tree","window":"IDD_GROUPS","control":"IDC_GROUPS","action":"menu"}
{"do":"menu","text":"Close"}
)");
    EXPECT_EQ(dlg.done, "move");
    EXPECT_FALSE(dlg.created()) << "an entry may end its window";
}

TEST_F(MenuRequests, AreRefusedWithWhatThereIs) {
    const auto replies = run(R"({"do":"menu","text":"Hide"}
{"do":"cell","window":"IDD_GROUPS","control":"IDC_ROWS","row":0,"action":"menu"}
{"do":"menu","text":"Show"}
{"do":"menu","text":"Delete..."}
{"do":"menu","text":"Move to"}
{"do":"menu"}
{"do":"selectRows","window":"IDD_GROUPS","control":"IDC_ROWS","rows":[0]}
{"do":"menu","text":"Hide"}
)");
    const bool well[] = {false, true, false, false, false, false, true, false};
    for (std::size_t i = 0; i < std::size(well); ++i)
        EXPECT_EQ(replies[i]["ok"].get<bool>(), well[i]) << replies[i].dump();
    EXPECT_NE(replies[2]["error"].get<std::string>().find("Hide, Move to, Delete..."), std::string::npos);
    EXPECT_EQ(replies[0]["error"], replies[7]["error"]) << "anything else closes it";
    EXPECT_EQ(dlg.done, "");
}

TEST_F(MenuRequests, RowsAreDraggedOntoATree) {
    const auto replies =
        run(R"({"do":"drag","window":"IDD_GROUPS","control":"IDC_ROWS","to":"IDC_GROUPS","path":["Group"]}
{"do":"selectRows","window":"IDD_GROUPS","control":"IDC_ROWS","rows":[0,2]}
{"do":"drag","window":"IDD_GROUPS","control":"IDC_ROWS","to":"IDC_GROUPS","path":["Fixed"]}
{"do":"drag","window":"IDD_GROUPS","control":"IDC_ROWS","to":"IDC_GROUPS","path":["Group"],"copy":true}
)");
    const bool well[] = {false, true, false, true};
    for (std::size_t i = 0; i < std::size(well); ++i)
        EXPECT_EQ(replies[i]["ok"].get<bool>(), well[i]) << replies[i].dump();
    EXPECT_EQ(dlg.done, "2 copied");
}
