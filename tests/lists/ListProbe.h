#pragma once

#include "kxgui/controls/ListEditableCtrl.h"
#include "platform/toolkit/Button.h"
#include "platform/toolkit/Dialog.h"
#include "platform/toolkit/ModuleChain.h"
#include "tests/support/HeadlessTest.h"

// A dialog around one list, and the window to it.
constexpr unsigned IDD_LIST_PROBE = 7101;

template <class List>
class ListProbeDlg : public CDialog {
  public:
    ListProbeDlg() : CDialog(IDD_LIST_PROBE, nullptr) { list.MoveWindow({10, 10, 310, 134}); }
    List list{*this, "LIST"};
    CButton ok{*this, "IDOK"};
    CButton cancel{*this, "IDCANCEL"};
    std::function<void()> setUp;
    int OnInitDialog() override {
        if (setUp) setUp();
        list.SetFocus();
        return 0;
    }
};

struct ListProbe : HeadlessTest {
    static constexpr tv::ui::DialogTemplate templates[] = {
        {IDD_LIST_PROBE, "IDD_LIST_PROBE", {200, 100}, false}};
    static void SetUpTestSuite() { tv::ui::ModuleChain::instance().add({"listProbe", false, templates}); }
    static void TearDownTestSuite() { tv::ui::ModuleChain::instance().remove("listProbe"); }

    static tv::ui::UserAction click(int row, int column) {
        tv::ui::UserAction action;
        action.kind = tv::ui::UserAction::Kind::cell;
        action.row = row;
        action.column = column;
        return action;
    }
};
