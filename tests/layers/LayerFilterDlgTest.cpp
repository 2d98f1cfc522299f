#include "kxgui/layers/LayerFilterDlg.h"

#include "kxgui/controls/InPlaceEdit.h"
#include "platform/drawing/OdDbDatabase.h"
#include "platform/drawing/OdDbLayerTable.h"
#include "tests/support/HeadlessTest.h"

using namespace kx::layers;
using namespace std::chrono_literals;
using tv::ui::UserAction;

namespace {

struct LayerFilterDialog : HeadlessTest {
    OdDbDatabasePtr db = OdDbDatabase::create();
    std::wstring expression;
    CLayerFilterDlg dialog{db.get(), nullptr};

    void SetUp() override {
        const auto layers = db->layers(OdDb::kForWrite);
        for (const wchar_t* name : {L"A1", L"A2", L"B1"})
            layers->add(name);
        dialog.SetName(L"Filter1");
    }
    int run(std::function<void(tv::ui::WindowUser&, CListEditableCtrl&)> does) {
        user.expect<CLayerFilterDlg>([does](auto& u) {
            does(u, static_cast<CListEditableCtrl&>(*u.dialog().GetDlgItem("IDC_LAYER_FILTER_ROWS")));
        });
        return dialog.DoModal();
    }
    static UserAction at(int row, FilterProperty property) {
        UserAction action;
        action.kind = UserAction::Kind::cell;
        action.row = row;
        action.column = static_cast<int>(property);
        return action;
    }
    static void enter(tv::ui::WindowUser& u, int row, FilterProperty property, std::wstring_view text) {
        u.act("IDC_LAYER_FILTER_ROWS", at(row, property));
        u.type(CInPlaceEdit::kName, text);
        u.key(L"Enter");
    }
    std::wstring count(tv::ui::WindowUser& u) {
        toolkit.advance(1s);
        return u.text("IDC_LAYER_FILTER_COUNT");
    }
};

} // namespace

TEST_F(LayerFilterDialog, RowsMakeTheExpressionAndThePreview) {
    const std::string before = db->bytes();
    EXPECT_EQ(run([&](auto& u, auto& rows) {
                  EXPECT_EQ(count(u), L"도면층 4개 / 전체 4개");
                  enter(u, 0, FilterProperty::name, L"A*");
                  EXPECT_EQ(rows.GetItemCount(), 2) << "an empty row begins the next one";
                  EXPECT_EQ(count(u), L"도면층 2개 / 전체 4개");
                  auto locked = at(1, FilterProperty::locked);
                  locked.cell = UserAction::Cell::edit;
                  locked.text = L"예";
                  u.act("IDC_LAYER_FILTER_ROWS", locked);
                  enter(u, 1, FilterProperty::name, L"B*");
                  EXPECT_EQ(u.text("IDC_LAYER_FILTER_TEXT"),
                            L"NAME==\"A*\" OR NAME==\"B*\" AND LOCKED==\"True\"");
                  u.check("IDC_LAYER_FILTER_CONTRARY");
                  EXPECT_EQ(count(u), L"도면층 2개 / 전체 4개");
                  EXPECT_EQ(rows.GetItemCount(), 3);
                  u.selectRows("IDC_LAYER_FILTER_ROWS", tv::ui::RowSet({0}));
                  u.key(L"Delete");
                  EXPECT_EQ(count(u), L"도면층 4개 / 전체 4개");
                  u.type("IDC_LAYER_FILTER_NAME", L" Walls ");
                  u.click("IDOK");
              }),
              IDOK);
    EXPECT_EQ(dialog.GetName(), L"Walls");
    EXPECT_EQ(dialog.GetExpression(), L"NAME==\"B*\" AND LOCKED==\"True\"");
    EXPECT_EQ(db->bytes(), before) << "the dialog writes nothing";
}

TEST_F(LayerFilterDialog, WhatCantBeUnderstoodStaysUnlessItIsChanged) {
    dialog.SetExpression(L"SIZE==\"3\" ");
    dialog.SetWithin([](const T_LAYER_DATA& layer) { return layer.name == L"A1"; });
    EXPECT_EQ(run([&](auto& u, auto&) {
                  EXPECT_FALSE(u.look("IDC_LAYER_FILTER_ROWS").enabled);
                  EXPECT_NE(u.text("IDC_LAYER_FILTER_SAID").find(L"SIZE"), std::wstring::npos);
                  EXPECT_EQ(count(u), L"도면층 0개 / 전체 4개");
                  u.type("IDC_LAYER_FILTER_TEXT", L"SIZE==\"4\"");
                  u.user().expectBox(L"SIZE", "IDOK");
                  u.click("IDOK");
                  u.type("IDC_LAYER_FILTER_TEXT", L"");
                  EXPECT_EQ(count(u), L"도면층 1개 / 전체 4개") << "what the filters above let through";
                  u.type("IDC_LAYER_FILTER_TEXT", L"SIZE==\"3\" ");
                  u.click("IDOK");
              }),
              IDOK);
    EXPECT_EQ(dialog.GetExpression(), L"SIZE==\"3\" ");
}

TEST_F(LayerFilterDialog, RefusesNamesAndCellsWithASentence) {
    dialog.validateName = [](const std::wstring& name) { return name.empty() ? L"needs a name" : L""; };
    EXPECT_EQ(run([&](auto& u, auto& rows) {
                  u.type("IDC_LAYER_FILTER_NAME", L"  ");
                  u.user().expectBox(L"needs a name", "IDOK");
                  u.click("IDOK");
                  u.type("IDC_LAYER_FILTER_NAME", L"x");
                  enter(u, 0, FilterProperty::name, L"COLOR==\"1\"");
                  EXPECT_NE(u.text("IDC_LAYER_FILTER_SAID"), L"");
                  EXPECT_TRUE(rows.editor()) << "the editor stays with what was refused";
                  u.key(L"Escape");
                  u.type("IDC_LAYER_FILTER_TEXT", L"color = red or not on=yes");
                  EXPECT_EQ(rows.cellText(0, static_cast<int>(FilterProperty::color)), L"Red");
                  EXPECT_EQ(rows.cellText(1, static_cast<int>(FilterProperty::on)), L"아니오");
                  u.click("IDOK");
              }),
              IDOK);
    EXPECT_EQ(dialog.GetExpression(), L"COLOR==\"red\" OR OFF==\"True\"");
}
