#include "kxgui/sysvars/SysVarsDlg.h"
#include "kxgui/controls/InPlaceEdit.h"
#include "kxgui/frame/ColorDlg.h"
#include "tests/support/HeadlessTest.h"

#include <gmock/gmock.h>

using namespace kx::sysvar;
using tv::ui::UserAction;

namespace {

struct SysVars : HeadlessTest {
    OdDbDatabasePtr database = host.documentManager()->newDocument()->database();
    void TearDown() override { getSysVarDlgItems().clear(); }

    int run(std::function<void(tv::ui::WindowUser&, CListEditableCtrl&)> does) {
        user.expect<CSysVarsDlg>([does](auto& u) {
            does(u, static_cast<CListEditableCtrl&>(*u.dialog().GetDlgItem("IDC_SYSVARS_LIST")));
        });
        CSysVarsDlg dialog(database, nullptr);
        return dialog.DoModal();
    }
    // Leaves the rows of that name, and what would be done to the value in the first one.
    static UserAction click(std::wstring_view name, tv::ui::WindowUser& u) {
        u.type("IDC_SYSVARS_FILTER", name);
        UserAction action;
        action.kind = UserAction::Kind::cell;
        action.row = 0;
        action.column = kValue;
        return action;
    }
    static void find(tv::ui::WindowUser& u, std::wstring_view name) {
        u.act("IDC_SYSVARS_LIST", click(name, u));
    }
    static void enter(tv::ui::WindowUser& u, std::wstring_view name, std::wstring_view text) {
        find(u, name);
        u.type(CInPlaceEdit::kName, text);
        u.key(L"Enter");
    }
    std::wstring value(const wchar_t* name) {
        OdString text;
        host.sysvarManager()->getText(name, text, database);
        return text.wstr();
    }
};

} // namespace

TEST_F(SysVars, EditsAreStagedMarkedAndWrittenWithOkAsOneStep) {
    const auto before = database->bytes();
    EXPECT_EQ(run([&](auto& u, auto& list) {
                  EXPECT_FALSE(u.look("IDC_SYSVARS_APPLY").enabled);
                  enter(u, L"USERI3", L"12");
                  EXPECT_TRUE(list.cell(0, kValue).bold);
                  EXPECT_EQ(list.cellText(0, kMark), L"*");
                  EXPECT_EQ(list.cellText(0, kValue), L"12");
                  find(u, L"FILLMODE");
                  EXPECT_EQ(list.cellText(0, kValue), L"0") << "a click toggles it";
                  find(u, L"LUNITS");
                  u.choose("IDC_INPLACE_COMBO", L"4");
                  u.type("IDC_SYSVARS_FILTER", L"");
                  u.check("IDC_SYSVARS_ONLY_CHANGED");
                  EXPECT_EQ(list.GetItemCount(), 3);
                  EXPECT_EQ(database->bytes(), before);
                  u.click("IDOK");
              }),
              IDOK);
    EXPECT_EQ(value(L"USERI3"), L"12");
    EXPECT_EQ(value(L"FILLMODE"), L"0");
    EXPECT_EQ(value(L"LUNITS"), L"4");
    database->undo();
    EXPECT_EQ(database->bytes(), before);
}

TEST_F(SysVars, CancelDropsAndApplyKeepsWhatWasApplied) {
    EXPECT_EQ(run([&](auto& u, auto&) {
                  enter(u, L"USERI1", L"1");
                  u.click("IDC_SYSVARS_APPLY");
                  EXPECT_EQ(value(L"USERI1"), L"1");
                  EXPECT_FALSE(u.look("IDC_SYSVARS_APPLY").enabled);
                  enter(u, L"USERI1", L"2");
                  u.click("IDCANCEL");
              }),
              IDCANCEL);
    EXPECT_EQ(value(L"USERI1"), L"1");
    for (const auto& item : getSysVarDlgItems())
        EXPECT_FALSE(item.overridden);
}

TEST_F(SysVars, WhatWasMadeOfAnInputIsSaidBeforeOkTakesIt) {
    EXPECT_EQ(run([&](auto& u, auto& list) {
                  find(u, L"LUPREC");
                  u.type("IDC_SYSVARS_FILTER", L"USERR1");
                  find(u, L"USERR1");
                  u.type(CInPlaceEdit::kName, L"much");
                  u.key(L"Enter");
                  EXPECT_TRUE(list.editor()) << "it stays to be mended";
                  EXPECT_NE(u.text("IDC_SYSVARS_SAID").find(L"much"), std::wstring::npos);
                  u.key(L"Escape");
                  enter(u, L"PICKBOX", L"99");
                  EXPECT_EQ(list.cellText(0, kValue), L"50");
                  EXPECT_NE(u.text("IDC_SYSVARS_SAID").find(L"50"), std::wstring::npos);
                  find(u, L"PICKBOX");
                  u.type(CInPlaceEdit::kName, L"-4");
                  u.click("IDOK");
                  EXPECT_TRUE(u.dialog().running()) << "first the person sees what became of it";
                  EXPECT_EQ(list.cellText(0, kValue), L"0");
                  u.click("IDOK");
              }),
              IDOK);
    EXPECT_EQ(value(L"PICKBOX"), L"0");
}

TEST_F(SysVars, RowsAreResetAndDefaulted) {
    ASSERT_EQ(host.sysvarManager()->setText(L"USERI2", L"7", database), Tavo::eOk);
    run([&](auto& u, auto& list) {
        enter(u, L"USERI2", L"8");
        u.key(L"Delete");
        EXPECT_EQ(list.cellText(0, kValue), L"7");
        EXPECT_FALSE(u.look("IDC_SYSVARS_RESET").enabled);
        u.click("IDC_SYSVARS_DEFAULT");
        EXPECT_EQ(list.cellText(0, kValue), L"0");
        u.click("IDC_SYSVARS_RESET");
        EXPECT_EQ(list.cellText(0, kValue), L"7");
        u.type("IDC_SYSVARS_FILTER", L"EXTMAX");
        u.selectRows("IDC_SYSVARS_LIST", {0});
        EXPECT_FALSE(u.look("IDC_SYSVARS_DEFAULT").enabled) << "read-only";
        find(u, L"EXTMAX");
        EXPECT_EQ(list.editor(), nullptr);
        u.click("IDCANCEL");
    });
}

TEST_F(SysVars, AColourIsChosenInItsDialog) {
    run([&](auto& u, auto& list) {
        user.expect<CColorDlg>([](auto& c) {
            c.type("IDC_COLOR_NAME", L"30");
            c.click("IDOK");
        });
        find(u, L"CECOLOR");
        u.choose("IDC_INPLACE_COMBO", L"Select Color...");
        toolkit.runDue();
        EXPECT_EQ(list.cellText(0, kValue), L"30");
        EXPECT_TRUE(list.cell(0, kValue).picture);
        u.click("IDOK");
    });
    EXPECT_EQ(value(L"CECOLOR"), L"30");
}

TEST_F(SysVars, WhatTheDrawingRefusesIsNamedAndStays) {
    EXPECT_EQ(run([&](auto& u, auto& list) {
                  enter(u, L"CPLOTSTYLE", L"No such style");
                  enter(u, L"USERI1", L"5");
                  user.expectBox(L"CPLOTSTYLE", "IDOK");
                  u.click("IDOK");
                  EXPECT_TRUE(u.dialog().running());
                  EXPECT_EQ(value(L"USERI1"), L"5");
                  u.type("IDC_SYSVARS_FILTER", L"");
                  u.check("IDC_SYSVARS_ONLY_CHANGED");
                  EXPECT_EQ(list.GetItemCount(), 1);
                  u.click("IDCANCEL");
              }),
              IDCANCEL);
}

// What a damaged drawing holds can be mended here, and what a person enters can be anything.
TEST_F(SysVars, ValuesBeyondAllRules) {
    ASSERT_EQ(database->setHeaderVar(L"FILLMODE", tv::dwg::HeaderValue::integer(5)).status, Tavo::eOk);
    run([&](auto& u, auto& list) {
        find(u, L"FILLMODE");
        ASSERT_TRUE(list.editor()) << "neither of the two to toggle between";
        u.choose("IDC_INPLACE_COMBO", L"1");
        u.key(L"Enter");
        EXPECT_EQ(list.cellText(0, kValue), L"1");
        const std::wstring texts[] = {std::wstring(10000, L'x'), L"\x5d0\x5d1 e\x301 \xd83d", L"\t", L"%s%n"};
        for (const wchar_t* name : {L"PROJECTNAME", L"CLAYER", L"LUPREC", L"LIMMAX", L"CECOLOR", L"LTSCALE"})
            for (const std::wstring& text : texts) {
                UserAction action = click(name, u);
                action.cell = UserAction::Cell::edit;
                action.text = text;
                if (name == std::wstring_view(L"PROJECTNAME"))
                    u.act("IDC_SYSVARS_LIST", action);
                else
                    EXPECT_FALSE(u.refused("IDC_SYSVARS_LIST", action).empty());
            }
        u.type("IDC_SYSVARS_FILTER", texts[0]);
        EXPECT_EQ(list.GetItemCount(), 0);
        u.type("IDC_SYSVARS_FILTER", L"");
        u.click("IDOK");
    });
}

TEST_F(SysVars, SortingKeepsTheSelectionAndCopyTakesTheRows) {
    run([&](auto& u, auto& list) {
        u.type("IDC_SYSVARS_FILTER", L"useri");
        u.selectRows("IDC_SYSVARS_LIST", {1});
        UserAction header;
        header.kind = UserAction::Kind::header;
        header.column = kName;
        u.act("IDC_SYSVARS_LIST", header);
        EXPECT_EQ(list.cellText(0, kName), L"USERI5");
        EXPECT_EQ(list.cellText(list.GetCurSel(), kName), L"USERI2");
        u.key(L"Ctrl+C");
        EXPECT_TRUE(toolkit.clipboardText().find(L"USERI2\t0\t") != std::wstring::npos);
        u.type("IDC_SYSVARS_FILTER", L"useri2 useri");
        EXPECT_EQ(list.cellText(list.GetCurSel(), kName), L"USERI2");
        u.click("IDCANCEL");
    });
}
