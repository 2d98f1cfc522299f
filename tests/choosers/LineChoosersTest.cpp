#include "kxgui/frame/LineWeightDlg.h"
#include "kxgui/frame/LinetypeDlg.h"
#include "platform/toolkit/Pictures.h"
#include "tests/support/HeadlessTest.h"

using namespace kx::frame;
using tv::ui::UserAction;

namespace {

std::string linetype(const std::string& name, const std::string& description, const std::string& dashes) {
    return "0\nLTYPE\n2\n" + name + "\n70\n" + (name.find('|') == std::string::npos ? "0" : "16") + "\n3\n" +
           description + "\n72\n65\n" + dashes;
}

// A drawing of an old version: its table has no records for ByLayer and ByBlock.
OdDbDatabasePtr oldDrawing() {
    return OdDbDatabase::openBytes(
               "0\nSECTION\n2\nHEADER\n9\n$ACADVER\n1\nAC1009\n0\nENDSEC\n0\nSECTION\n2\nTABLES\n"
               "0\nTABLE\n2\nLTYPE\n70\n5\n" +
               linetype("CONTINUOUS", "Solid line", "73\n0\n40\n0.0\n") +
               linetype("DASHED10", "B", "73\n2\n40\n3.0\n49\n2.0\n49\n-1.0\n") +
               linetype("dashed2", "C", "73\n2\n40\n1.5\n49\n1.0\n49\n-0.5\n") +
               linetype("HOUSE|FENCE", "D", "73\n0\n40\n0.0\n") +
               linetype("DOT", "A", "73\n2\n40\n0.5\n49\n0.0\n49\n-0.5\n") + "0\nENDTAB\n0\nENDSEC\n0\nEOF\n")
        .database;
}

std::vector<std::wstring> names(tv::ui::WindowUser& u) {
    std::vector<std::wstring> out;
    for (const auto& row : u.look("IDC_LINETYPE_LIST").rows)
        out.push_back(row[0]);
    return out;
}

UserAction on(UserAction::Kind kind, int row, int column) {
    UserAction action;
    action.kind = kind;
    action.cell = UserAction::Cell::doubleClick;
    action.row = row;
    action.column = column;
    return action;
}

struct LineChoosers : HeadlessTest {
    template <class Dialog>
    int run(Dialog& dialog, std::function<void(tv::ui::WindowUser&)> does) {
        user.expect<Dialog>(std::move(does));
        return dialog.DoModal();
    }
};

using Names = std::vector<std::wstring>;

} // namespace

TEST_F(LineChoosers, LinetypesAreSortedAndTheSelectionGoesAlong) {
    const auto drawing = oldDrawing();
    ASSERT_TRUE(drawing);
    CLinetypeDlg dialog(drawing, true, nullptr);
    dialog.SetName(L"DASHED2");
    EXPECT_EQ(
        run(dialog,
            [](auto& u) {
                EXPECT_EQ(names(u),
                          (Names{L"ByLayer", L"ByBlock", L"CONTINUOUS", L"dashed2", L"DASHED10", L"DOT"}));
                const auto& list = static_cast<CListCtrl&>(*u.dialog().GetDlgItem("IDC_LINETYPE_LIST"));
                EXPECT_EQ(list.GetCurSel(), 3);
                EXPECT_EQ(list.cell(4, 1).picture, tv::ui::dashPicture({2, -1}));
                EXPECT_EQ(list.cell(2, 1).picture, tv::ui::dashPicture({})) << "a line without gaps";
                u.act("IDC_LINETYPE_LIST", on(UserAction::Kind::header, 0, 0));
                EXPECT_EQ(names(u),
                          (Names{L"ByLayer", L"ByBlock", L"DOT", L"DASHED10", L"dashed2", L"CONTINUOUS"}));
                EXPECT_EQ(list.GetCurSel(), 4);
                u.act("IDC_LINETYPE_LIST", on(UserAction::Kind::header, 0, 2));
                EXPECT_EQ(names(u)[2], L"DOT");
                EXPECT_EQ(names(u)[5], L"CONTINUOUS");
                u.act("IDC_LINETYPE_LIST", on(UserAction::Kind::header, 0, 1));
                EXPECT_EQ(names(u)[5], L"CONTINUOUS") << "samples have no order";
                u.act("IDC_LINETYPE_LIST", on(UserAction::Kind::cell, 2, 0));
            }),
        IDOK);
    EXPECT_EQ(dialog.GetName(), L"DOT");
    EXPECT_EQ(dialog.GetLinetype().database(), drawing.get());
}

TEST_F(LineChoosers, TypingFindsRows) {
    CLinetypeDlg dialog(oldDrawing(), false, nullptr);
    EXPECT_EQ(run(dialog,
                  [this](auto& u) {
                      user.expectBox(L"선종류를 선택하십시오", "IDOK");
                      u.key(L"Enter");
                      EXPECT_TRUE(u.dialog().running()) << "nothing is selected yet";
                      const auto& list = static_cast<CListCtrl&>(*u.dialog().GetDlgItem("IDC_LINETYPE_LIST"));
                      for (const wchar_t* key : {L"d", L"d", L"d"})
                          u.key(key);
                      EXPECT_EQ(list.GetCurSel(), 3) << "the same letter goes on to DOT";
                      u.key(L"d");
                      EXPECT_EQ(list.GetCurSel(), 1) << "and round again";
                      toolkit.advance(std::chrono::seconds(2));
                      for (const wchar_t* key : {L"D", L"o"})
                          u.key(key);
                      EXPECT_EQ(list.GetCurSel(), 3);
                      u.key(L"x");
                      EXPECT_EQ(list.GetCurSel(), 3) << "no such name: nothing moves";
                      u.key(L"Up");
                      u.key(L"Enter");
                  }),
              IDOK);
    EXPECT_EQ(dialog.GetName(), L"DASHED10");
}

TEST_F(LineChoosers, LineweightsByTheUnitOfTheUser) {
    host.documentManager()->newDocument();
    const auto drawing = tvedWorkingDatabase();
    ASSERT_EQ(tvedSetVar(L"CELWEIGHT", 25, drawing), Tavo::eOk);
    CLineWeightDlg dialog(drawing, nullptr);
    EXPECT_EQ(run(dialog,
                  [](auto& u) {
                      const auto look = u.look("IDC_LINEWEIGHT_LIST");
                      EXPECT_EQ(look.rowCount, 27);
                      EXPECT_EQ(look.rows[2][0], L"기본값");
                      EXPECT_EQ(look.rows[3][0], L"0.00 mm");
                      ASSERT_EQ(look.selection->size(), 1u);
                      EXPECT_EQ(look.rows[static_cast<std::size_t>(look.selection->front())][0], L"0.25 mm");
                      for (const wchar_t* key : {L"2", L".", L"1", L"Enter"})
                          u.key(key);
                  }),
              IDOK);
    EXPECT_EQ(dialog.GetLineWeight(), OdDb::kLnWt211);

    ASSERT_EQ(tvedSetVar(L"LWUNITS", 0, nullptr), Tavo::eOk);
    CLineWeightDlg inInches(nullptr, nullptr, kx::frame::LineWeightOffer::widths);
    EXPECT_EQ(run(inInches,
                  [this](auto& u) {
                      const auto look = u.look("IDC_LINEWEIGHT_LIST");
                      EXPECT_EQ(look.rowCount, 24);
                      EXPECT_EQ(look.rows[7][0], L"0.010\"");
                      user.expectBox(L"선가중치를 선택하십시오", "IDOK");
                      u.click("IDOK");
                      u.key(L"Escape");
                  }),
              IDCANCEL);
}
