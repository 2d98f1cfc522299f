// The contracts of windows, controls, time and modality: the same for every face. Whatever a person does is
// done by the face's own hand, with native events where there are any.
#include "tests/conformance/Faces.h"
#include "tests/conformance/ProbeDlg.h"

#include <gmock/gmock.h>

using namespace std::chrono_literals;
using tv::ui::UserAction;
using tv::ui::WindowUser;
using Kind = UserAction::Kind;

template <class Face>
class Conformance : public testing::Test {
  protected:
    // Runs `does` in the running probe and ends it with Cancel unless it ended by itself.
    int run(ProbeDlg& dialog, std::function<void(WindowUser&)> does) {
        user.template expect<ProbeDlg>([&](WindowUser& u) {
            does(u);
            if (dialog.running()) dialog.EndDialog(IDCANCEL);
        });
        return static_cast<int>(dialog.DoModal());
    }

    static UserAction action(Kind kind, std::wstring text = {}, int index = -1) {
        UserAction out;
        out.kind = kind;
        out.text = std::move(text);
        out.index = index;
        return out;
    }
    static UserAction cell(UserAction::Cell what, int row, int column, std::wstring text = {}) {
        UserAction out = action(Kind::cell, std::move(text));
        out.cell = what;
        out.row = row;
        out.column = column;
        return out;
    }
    static UserAction tree(Kind kind, std::vector<std::wstring> path, std::wstring text = {}, int checked = 1) {
        UserAction out = action(kind, std::move(text));
        out.path = std::move(path);
        out.checked = checked;
        return out;
    }

    ProbeModule module;
    Face face;
    tv::ui::SimulatedUser user{face.toolkit, [](const std::string& m) { ADD_FAILURE() << m; }, face.hand()};
};
TYPED_TEST_SUITE(Conformance, Faces);

TYPED_TEST(Conformance, SettersNeverFireAndAreShown) {
    ProbeDlg dlg;
    const auto setAll = [&] {
        dlg.edit.SetWindowText(L"text");
        dlg.memo.SetWindowText(L"two\nlines");
        dlg.green.SetCheck(true);
        dlg.check.SetCheck(1);
        dlg.combo.SetCurSel(2);
        dlg.entry.SetWindowText(L"own");
        dlg.box.SetCurSel(1);
        dlg.list.SetSelection({3, 5});
        dlg.tree.SelectItem(dlg.tree.find({L"other"}));
        dlg.tree.Expand(dlg.tree.find({L"root"}));
        dlg.slider.SetPos(7);
        dlg.swatches.SetCurSel(2);
        dlg.tabs.SetCurSel(1);
        dlg.more.EnableWindow(false);
        dlg.command.ShowWindow(false);
        dlg.ok.SetFocus();
    };
    dlg.init = setAll;
    this->run(dlg, [&](WindowUser& u) {
        EXPECT_EQ(dlg.total(), 0);
        this->face.expectShown(dlg);
        dlg.combo.ResetContent();
        dlg.box.DeleteString(0);
        dlg.tree.DeleteItem(dlg.tree.find({L"other"}));
        dlg.list.SetModel(std::make_shared<CountingRows>(3));
        dlg.slider.SetRange(20, 30);
        dlg.more.EnableWindow();
        dlg.command.ShowWindow();
        setAll();
        this->face.expectShown(dlg);
        EXPECT_EQ(dlg.total(), 0);
        EXPECT_TRUE(u.look("IDOK").focused);
        EXPECT_EQ(u.look("IDC_SLIDER").selection, std::vector<int>{20});
    });
}

TYPED_TEST(Conformance, PersonsActionsChangeTheStateThenFireOnce) {
    ProbeDlg dlg;
    this->run(dlg, [&](WindowUser& u) {
        const auto once = [&](const char* what) {
            EXPECT_EQ(dlg.fired[what], 1) << what;
            dlg.fired[what] = 0;
        };
        u.type("IDC_EDIT", L"x");
        EXPECT_EQ(u.text("IDC_EDIT"), L"x");
        once("edit");
        u.type("IDC_MEMO", L"m");
        EXPECT_EQ(u.text("IDC_MEMO"), L"m");
        once("memo");
        once("left");
        dlg.check.onClick = [&] { dlg.fired["check"] += dlg.check.GetCheck(); }; // the state is there before
        u.click("IDC_CHECK");
        once("check");
        u.choose("IDC_COMBO", 2);
        EXPECT_EQ(u.text("IDC_COMBO"), L"gamma");
        once("combo");
        u.type("IDC_ENTRY", L"o");
        EXPECT_EQ(u.text("IDC_ENTRY"), L"o");
        once("entry");
        u.choose("IDC_BOX", 3);
        EXPECT_EQ(dlg.box.GetCurSel(), 3);
        once("box");
        u.choose("IDC_SLIDER", 1);
        EXPECT_EQ(dlg.slider.GetPos(), 1);
        once("slider");
        u.choose("IDC_SWATCHES", 1);
        EXPECT_EQ(dlg.swatches.GetCurSel(), 1);
        once("swatches");
        u.choose("IDC_TABS", 1);
        EXPECT_TRUE(dlg.page2.inside.IsWindowVisible());
        EXPECT_FALSE(dlg.page1.inside.IsWindowVisible());
        once("tabs");
        u.click("IDC_INSIDE2");
        EXPECT_EQ(dlg.page2.inside.GetCheck(), 1);
        once("inside2");
        UserAction point = this->action(Kind::point);
        point.x = point.y = 5;
        u.act("IDC_AREA", point);
        once("area");
        u.click("IDC_COMMAND");
        once("command");
        u.click("IDC_MORE");
        once("more");
        this->face.expectShown(dlg);
    });
}

TYPED_TEST(Conformance, ListsAndTrees) {
    ProbeDlg dlg;
    this->run(dlg, [&](WindowUser& u) {
        u.selectRows("IDC_LIST", {2, 4});
        EXPECT_EQ(dlg.list.selection(), (tv::ui::RowSet{2, 4}));
        dlg.fired.clear();
        u.act("IDC_LIST", this->cell(UserAction::Cell::click, 1, 0));
        EXPECT_EQ(dlg.list.selection(), tv::ui::RowSet{1});
        EXPECT_EQ(dlg.fired["cell"], 1);
        u.act("IDC_LIST", this->cell(UserAction::Cell::edit, 1, 1, L"new"));
        EXPECT_EQ(dlg.fired["cellEdit"], 1);
        u.refused("IDC_LIST", this->cell(UserAction::Cell::edit, 1, 0, L"new"));
        EXPECT_EQ(dlg.fired["cellEdit"], 1);
        UserAction header = this->action(Kind::header);
        header.column = 1;
        u.act("IDC_LIST", header);
        EXPECT_EQ(dlg.fired["header"], 1);

        u.act("IDC_TREE", this->tree(Kind::treeSelect, {L"root"}));
        EXPECT_EQ(dlg.fired["tree"], 1);
        u.act("IDC_TREE", this->tree(Kind::treeExpand, {L"root"}));
        EXPECT_EQ(dlg.fired["expand"], 1);
        u.act("IDC_TREE", this->tree(Kind::treeRename, {L"root", L"leaf"}, L"good"));
        EXPECT_NE(dlg.tree.find({L"root", L"good"}), 0);
        dlg.tree.SetItemText(dlg.tree.find({L"other"}), L"another");
        EXPECT_EQ(dlg.fired["rename"], 1);
        u.refused("IDC_TREE", this->tree(Kind::treeRename, {L"another"}, L"x"));
        EXPECT_EQ(dlg.fired["rename"], 1);
    });
}

TYPED_TEST(Conformance, ListIsAskedForTheRowsInViewOnly) {
    ProbeDlg dlg;
    auto rows = std::make_shared<CountingRows>(100000);
    dlg.list.SetModel(rows);
    this->run(dlg, [&](WindowUser& u) {
        this->face.pass(20ms);
        EXPECT_LT(rows->asked, 2000);
        EXPECT_LT(rows->highest, 1000);
        EXPECT_EQ(u.look("IDC_LIST").rowCount, 100000);
        u.act("IDC_LIST", this->cell(UserAction::Cell::click, 99999, 0));
        EXPECT_EQ(dlg.list.GetCurSel(), 99999);
        EXPECT_LT(rows->asked, 4000);
    });
}

TYPED_TEST(Conformance, RefusalsChangeNothingAndSayWhy) {
    ProbeDlg dlg, never;
    std::map<std::string, std::wstring> why;
    this->run(dlg, [&](WindowUser& u) {
        dlg.check.EnableWindow(false);
        dlg.combo.EnableWindow(false);
        dlg.edit.SetReadOnly(true);
        dlg.more.ShowWindow(false);
        why["disabled"] = u.refused("IDC_CHECK", {});
        u.refused("IDC_COMBO", this->action(Kind::choose, {}, 1));
        why["readOnly"] = u.refused("IDC_EDIT", this->action(Kind::type, L"x"));
        why["hidden"] = u.refused("IDC_MORE", {});
        u.refused("IDC_INSIDE2", {}); // on the page behind
        why["noItem"] = u.refused("IDC_BOX", this->action(Kind::choose, L"delta"));
        why["wrong"] = u.refused("IDC_IMAGE", {});
        EXPECT_THAT(dlg.fired, testing::IsEmpty());

        // Covered by a window above it.
        dlg.command.onClick = [&] {
            ProbeDlg above(&dlg);
            this->run(above, [&](WindowUser&) {
                tv::ui::SimulatedUser* const driver = &this->user;
                why["covered"] = driver->hand().act(dlg.green, {}).refusal;
                EXPECT_FALSE(dlg.green.GetCheck());
            });
        };
        u.click("IDC_COMMAND");
        dlg.fired.erase("left"); // the button took the focus
        EXPECT_EQ(dlg.total(), 0);
        EXPECT_EQ(dlg.check.GetCheck(), 0);
        EXPECT_EQ(u.text("IDC_EDIT"), L"");
        this->face.expectShown(dlg);
    });
    why["notThere"] = never.check.perform({}).refusal;
    EXPECT_EQ(why["disabled"], L"IDC_CHECK: 사용할 수 없는 상태입니다.");
    EXPECT_EQ(why["readOnly"], L"IDC_EDIT: 읽기 전용입니다.");
    EXPECT_EQ(why["hidden"], L"IDC_MORE: 숨겨져 있습니다.");
    EXPECT_EQ(why["noItem"], L"IDC_BOX: 그런 항목이 목록에 없습니다.");
    EXPECT_EQ(why["covered"], L"IDC_GREEN: 다른 대화상자가 열려 있습니다.");
    EXPECT_EQ(why["notThere"], L"IDC_CHECK: 화면에 없습니다.");
    EXPECT_NE(why["wrong"].find(L"image"), std::wstring::npos);
}

TYPED_TEST(Conformance, AHandlerMayCorrectWhatWasTyped) {
    ProbeDlg dlg;
    dlg.edit.SetLimitText(3);
    dlg.memo.onChange = [&] { dlg.memo.SetWindowText(L"corrected"); };
    this->run(dlg, [&](WindowUser& u) {
        u.type("IDC_EDIT", L"12345");
        EXPECT_EQ(u.text("IDC_EDIT"), L"123");
        u.type("IDC_MEMO", L"z");
        EXPECT_EQ(u.text("IDC_MEMO"), L"corrected");
        u.type("IDC_EDIT", L"");
        EXPECT_EQ(u.text("IDC_EDIT"), L"");
    });
}

TYPED_TEST(Conformance, FocusTabAndMnemonics) {
    ProbeDlg dlg;
    this->run(dlg, [&](WindowUser& u) {
        EXPECT_EQ(dlg.GetFocus(), &dlg.edit);
        const auto order = dlg.tabOrder();
        for (std::size_t i = 1; i <= order.size(); ++i) {
            u.key(L"Tab");
            EXPECT_EQ(dlg.GetFocus(), order[i % order.size()]) << i;
        }
        u.key(L"Shift+Tab");
        EXPECT_EQ(dlg.GetFocus(), &dlg.cancel);
        u.key(L"Alt+N"); // the label's letter leads to its edit field
        EXPECT_EQ(dlg.GetFocus(), &dlg.edit);
        u.key(L"Alt+C");
        EXPECT_EQ(dlg.check.GetCheck(), 1);
        u.key(L"Space");
        EXPECT_EQ(dlg.check.GetCheck(), 0);
        EXPECT_EQ(dlg.fired["check"], 2);
        dlg.check.EnableWindow(false);
        u.key(L"Alt+C");
        EXPECT_EQ(dlg.fired["check"], 2);
        u.key(L"F1");
        EXPECT_EQ(dlg.fired["help"], 1);
    });
}

TYPED_TEST(Conformance, RadioGroup) {
    ProbeDlg dlg;
    dlg.red.SetCheck(true);
    this->run(dlg, [&](WindowUser& u) {
        u.click("IDC_GREEN");
        EXPECT_TRUE(dlg.green.GetCheck() && !dlg.red.GetCheck() && !dlg.blue.GetCheck());
        u.key(L"Down");
        EXPECT_TRUE(dlg.blue.GetCheck() && !dlg.green.GetCheck());
        u.key(L"Right"); // round to the first
        EXPECT_TRUE(dlg.red.GetCheck());
        EXPECT_EQ(dlg.GetFocus(), &dlg.red);
        u.refused("IDC_RED", [&] {
            UserAction uncheck = this->action(Kind::check);
            return uncheck;
        }());
        EXPECT_TRUE(dlg.red.GetCheck());
        EXPECT_EQ(dlg.fired["green"] + dlg.fired["blue"] * 10 + dlg.fired["red"] * 100, 111);
    });
}

TYPED_TEST(Conformance, ComboByKeyboard) {
    ProbeDlg dlg;
    dlg.init = [&] { dlg.combo.SetFocus(); };
    this->run(dlg, [&](WindowUser& u) {
        u.key(L"Down");
        u.key(L"Down");
        EXPECT_EQ(dlg.combo.GetCurSel(), 1);
        EXPECT_EQ(dlg.fired["combo"], 2);
        u.key(L"b"); // the next that begins so
        EXPECT_EQ(u.text("IDC_COMBO"), L"bravo");
        u.key(L"End");
        EXPECT_EQ(dlg.fired["combo"], 3); // it was there already
        u.key(L"Home");
        EXPECT_EQ(dlg.combo.GetCurSel(), 0);
    });
}

TYPED_TEST(Conformance, DropDownByKeyboard) {
    ProbeDlg dlg;
    std::vector<bool> closed;
    dlg.combo.onCloseUp = [&](bool accepted) { closed.push_back(accepted); };
    dlg.init = [&] {
        dlg.combo.SetCurSel(0);
        dlg.combo.SetFocus();
    };
    this->run(dlg, [&](WindowUser& u) {
        u.key(L"F4");
        EXPECT_TRUE(dlg.combo.dropped());
        EXPECT_EQ(dlg.combo.highlighted(), 0);
        EXPECT_EQ(dlg.fired["dropDown"], 1);
        u.key(L"Down");
        u.key(L"End");
        u.key(L"Up");
        EXPECT_EQ(dlg.combo.highlighted(), 2);
        EXPECT_EQ(dlg.combo.GetCurSel(), 0) << "nothing is chosen yet";
        u.key(L"Escape");
        EXPECT_FALSE(dlg.combo.dropped());
        EXPECT_TRUE(dlg.running()) << "Escape was the list's";
        EXPECT_EQ(dlg.fired["combo"], 0);

        u.key(L"Alt+Down");
        u.key(L"b"); // beta
        u.key(L"r"); // begins bravo
        EXPECT_EQ(dlg.combo.highlighted(), 3);
        u.key(L"Enter");
        EXPECT_TRUE(dlg.running()) << "Enter was the list's";
        EXPECT_EQ(dlg.combo.GetCurSel(), 3);
        EXPECT_EQ(dlg.fired["combo"], 1);
        EXPECT_EQ(closed, (std::vector{false, true}));

        u.key(L"F4");
        u.key(L"Home");
        u.key(L"F4"); // takes what is highlighted
        EXPECT_EQ(dlg.combo.GetCurSel(), 0);
        u.key(L"F4");
        u.key(L"Down");
        u.key(L"Tab"); // so does Tab, and goes on
        EXPECT_FALSE(dlg.combo.dropped());
        EXPECT_EQ(dlg.combo.GetCurSel(), 1);
        EXPECT_NE(dlg.GetFocus(), &dlg.combo);
    });
}

TYPED_TEST(Conformance, DropDownIsRefilledWhileOpen) {
    ProbeDlg dlg;
    this->run(dlg, [&](WindowUser& u) {
        UserAction click;
        u.act("IDC_COMBO", click);
        ASSERT_TRUE(dlg.combo.dropped());
        u.key(L"Down");
        u.key(L"Down"); // beta
        dlg.combo.SetItems(std::vector<tv::ui::ListItem>{{L"aleph", 0, {}}, {L"beth", 0, {}}, {L"beta", 0, {}}});
        EXPECT_EQ(dlg.combo.highlighted(), 2);
        this->face.pass(1ms);
        dlg.combo.ResetContent();
        EXPECT_EQ(dlg.combo.highlighted(), -1);
        this->face.pass(1ms);
        u.key(L"Down");
        dlg.combo.SetItems(std::vector<tv::ui::ListItem>{{L"beta", 0, {}}});
        EXPECT_EQ(dlg.combo.highlighted(), 0) << "the text it stood on came back";
        u.key(L"Enter");
        EXPECT_EQ(u.text("IDC_COMBO"), L"beta");

        u.act("IDC_COMBO", click);
        dlg.combo.EnableWindow(false);
        EXPECT_FALSE(dlg.combo.dropped());
        dlg.combo.EnableWindow(true);

        // In an editable one the text leads.
        dlg.entry.SetFocus();
        u.key(L"F4");
        ASSERT_TRUE(dlg.entry.dropped());
        u.key(L"g");
        EXPECT_EQ(u.text("IDC_ENTRY"), L"g");
        EXPECT_EQ(dlg.entry.highlighted(), 2);
        u.key(L"Enter");
        EXPECT_EQ(u.text("IDC_ENTRY"), L"gamma");
        dlg.entry.ShowDropDown();
        u.choose("IDC_ENTRY", L"alpha");
        EXPECT_EQ(u.text("IDC_ENTRY"), L"alpha");
        EXPECT_FALSE(dlg.entry.dropped());
    });
}

TYPED_TEST(Conformance, DefaultAndEscapeButtons) {
    {
        ProbeDlg dlg;
        EXPECT_EQ(this->run(dlg, [](WindowUser& u) { u.key(L"Enter"); }), IDOK);
        EXPECT_EQ(this->run(dlg, [](WindowUser& u) { u.key(L"Escape"); }), IDCANCEL);
        EXPECT_EQ(this->run(dlg, [](WindowUser& u) { u.closeBox(); }), IDCANCEL);
    }
    ProbeDlg dlg;
    dlg.SetDefaultButton(dlg.more);
    EXPECT_EQ(this->run(dlg,
                        [&](WindowUser& u) {
                            u.key(L"Enter");
                            EXPECT_EQ(dlg.fired["more"], 1);
                            dlg.memo.SetFocus(); // where Enter is a line break
                            u.key(L"Enter");
                            EXPECT_EQ(dlg.fired["more"], 1);
                            EXPECT_EQ(u.text("IDC_MEMO"), L"\n");
                            dlg.ok.SetFocus(); // Enter presses the button it stands on
                            u.key(L"Enter");
                        }),
              IDOK);
}

TYPED_TEST(Conformance, ModalStackAndTheFirstEndCounts) {
    ProbeDlg below;
    std::vector<std::size_t> depth;
    below.more.onClick = [&] {
        ProbeDlg above(&below);
        const int code = this->run(above, [&](WindowUser&) {
            depth.push_back(this->face.toolkit.modalStack().size());
            EXPECT_EQ(this->face.toolkit.topmost(), &above);
            below.EndDialog(77); // ends when the window above it is gone
            above.EndDialog(5);
            above.EndDialog(6);
        });
        EXPECT_EQ(code, 5);
        depth.push_back(this->face.toolkit.modalStack().size());
    };
    EXPECT_EQ(this->run(below, [](WindowUser& u) { u.click("IDC_MORE"); }), 77);
    EXPECT_EQ(depth, (std::vector<std::size_t>{2, 1}));
    EXPECT_EQ(this->face.toolkit.topmost(), nullptr);
}

TYPED_TEST(Conformance, AHiddenWindowGetsOutOfTheWayAndComesBack) {
    ProbeDlg dlg;
    this->run(dlg, [&](WindowUser& u) {
        dlg.ShowWindow(false);
        EXPECT_EQ(this->face.toolkit.topmost(), nullptr);
        EXPECT_EQ(u.refused("IDC_CHECK", {}), L"IDC_CHECK: 다른 대화상자가 열려 있습니다.");
        dlg.ShowWindow(true);
        EXPECT_EQ(this->face.toolkit.topmost(), &dlg);
        u.click("IDC_CHECK");
        EXPECT_EQ(dlg.check.GetCheck(), 1);
    });
}

TYPED_TEST(Conformance, Timers) {
    std::vector<int> ran;
    const auto note = [&](int number) { return [&ran, number] { ran.push_back(number); }; };
    auto& toolkit = this->face.toolkit;
    auto late = toolkit.after(20ms, note(3));
    auto early = toolkit.after(5ms, note(2));
    auto gone = toolkit.after(5ms, note(90));
    auto again = toolkit.after(5ms, note(91));
    { auto destroyed = toolkit.post(note(92)); }
    gone.cancel();
    again = toolkit.after(30ms, note(4)); // re-arming replaces
    auto first = toolkit.post([&] {
        ran.push_back(0);
        toolkit.postDetached(note(10)); // behind what is posted already
    });
    auto second = toolkit.post(note(1));
    EXPECT_TRUE(ran.empty()); // never inside the event that asked for it
    // A busy machine may take its time; the order is what counts.
    for (int i = 0; again.pending() && i < 500; ++i)
        this->face.pass(10ms);
    EXPECT_EQ(ran, (std::vector<int>{0, 1, 10, 2, 3, 4}));
    EXPECT_FALSE(late.pending() || early.pending() || again.pending());
}

TYPED_TEST(Conformance, WindowTimersDieWithTheRun) {
    ProbeDlg dlg;
    this->run(dlg, [&](WindowUser&) {
        dlg.SetTimer(1, 5);
        dlg.SetTimer(2, 5);
        dlg.KillTimer(2);
        for (int i = 0; dlg.ticks.size() < 2 && i < 500; ++i)
            this->face.pass(10ms);
        EXPECT_GE(dlg.ticks.size(), 2u);
        EXPECT_EQ(std::count(dlg.ticks.begin(), dlg.ticks.end(), 2u), 0);
    });
    const auto before = dlg.ticks.size();
    this->face.pass(20ms);
    EXPECT_EQ(dlg.ticks.size(), before);
}
