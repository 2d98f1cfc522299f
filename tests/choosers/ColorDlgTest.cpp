#include "kxgui/frame/ColorDlg.h"
#include "kxgui/frame/RecentColors.h"
#include "tests/support/HeadlessTest.h"

using kx::frame::recentColors;
using kx::frame::rememberColor;
using tv::ui::UserAction;

namespace {

UserAction cell(UserAction::Cell what, int row, int column) {
    UserAction action;
    action.kind = UserAction::Kind::cell;
    action.cell = what;
    action.row = row;
    action.column = column;
    return action;
}

struct ColorDlg : HeadlessTest {
    OdCmColor color = OdCmColor::byIndex(256);

    int run(std::function<void(tv::ui::WindowUser&)> does, unsigned options = CColorDlg::kSpecial) {
        CColorDlg dialog(color, options, nullptr);
        user.expect<CColorDlg>(std::move(does));
        const int code = dialog.DoModal();
        color = dialog.GetColor();
        return code;
    }
};

} // namespace

TEST_F(ColorDlg, PointingAtACellFillsEveryView) {
    EXPECT_EQ(run([](auto& u) {
                  EXPECT_EQ(u.text("IDC_COLOR_NAME"), L"ByLayer");
                  EXPECT_EQ(u.dialog().GetFocus()->name(), "IDC_COLOR_NAME");
                  u.act("IDC_COLOR_PALETTE", cell(UserAction::Cell::click, 4, 2));
                  EXPECT_EQ(u.text("IDC_COLOR_NAME"), L"30");
                  EXPECT_EQ(u.text("IDC_COLOR_INFO"), L"색인: 30, RGB: 255, 127, 0");
                  EXPECT_EQ(u.text("IDC_COLOR_HEX"), L"#FF7F00") << "the other page follows";
                  auto& grid = static_cast<CSwatchGrid&>(*u.dialog().GetDlgItem("IDC_COLOR_STANDARD"));
                  EXPECT_TRUE(grid.userHover(0));
                  EXPECT_EQ(u.text("IDC_COLOR_INFO"), L"색인: 1, RGB: 255, 0, 0");
                  EXPECT_EQ(u.text("IDC_COLOR_NAME"), L"30") << "hovering chooses nothing";
                  EXPECT_TRUE(grid.userHover(-1));
                  EXPECT_EQ(u.text("IDC_COLOR_INFO"), L"색인: 30, RGB: 255, 127, 0");
                  u.act("IDC_COLOR_STANDARD", cell(UserAction::Cell::doubleClick, 0, 2));
              }),
              IDOK);
    EXPECT_EQ(color, OdCmColor::byIndex(3)) << "a double click is OK";
    EXPECT_EQ(run([](auto& u) {
                  EXPECT_EQ(u.look("IDC_COLOR_STANDARD").selection, std::vector{2});
                  u.click("IDC_COLOR_BYBLOCK");
                  EXPECT_TRUE(u.look("IDC_COLOR_STANDARD").selection->empty());
                  u.key(L"Escape");
              }),
              IDCANCEL);
    EXPECT_EQ(color, OdCmColor::byIndex(3)) << "cancelled";
    EXPECT_EQ(recentColors(host.settings()), std::vector{OdCmColor::byIndex(3)});
}

TEST_F(ColorDlg, EntriesByKeyboardAndRefusals) {
    user.expect<CColorDlg>([this](auto& u) {
        user.expectBox(L"\"300\"", "IDOK");
        for (const wchar_t* key : {L"3", L"0", L"0", L"Enter"})
            u.key(key);
        EXPECT_TRUE(u.dialog().running());
        EXPECT_EQ(u.text("IDC_COLOR_NAME"), L"300") << "the entry stays for correction";
        for (const wchar_t* key : {L"1", L"1", L"Enter"})
            u.key(key);
        EXPECT_FALSE(u.dialog().running());
    });
    CColorDlg dialog(OdCmColor::byIndex(7), CColorDlg::kPlain, nullptr);
    EXPECT_EQ(dialog.DoModal(), IDOK);
    EXPECT_EQ(dialog.GetColor(), OdCmColor::byIndex(11));

    // Without ByLayer and ByBlock neither can be entered or pressed; a choice elsewhere takes a faulty entry's
    // place.
    EXPECT_EQ(run(
                  [this](auto& u) {
                      (void)u.refused("IDC_COLOR_BYLAYER", {});
                      u.type("IDC_COLOR_NAME", L"bylayer");
                      user.expectBox(L"\"bylayer\"", "IDOK");
                      u.choose("IDC_COLOR_TABS", 1);
                      u.click("IDOK");
                      EXPECT_EQ(u.look("IDC_COLOR_TABS").selection, std::vector{0})
                          << "back to the faulty entry";
                      u.choose("IDC_COLOR_RECENT", 0);
                      EXPECT_EQ(u.text("IDC_COLOR_NAME"), L"11");
                      u.click("IDOK");
                  },
                  CColorDlg::kPlain),
              IDOK);
    EXPECT_EQ(color, OdCmColor::byIndex(11));
}

TEST_F(ColorDlg, TrueColorViewsStayInStep) {
    color = OdCmColor::byRgb(255, 128, 0);
    EXPECT_EQ(run([this](auto& u) {
                  EXPECT_EQ(u.look("IDC_COLOR_TABS").selection, std::vector{1}) << "opens where the colour is";
                  EXPECT_EQ(u.text("IDC_COLOR_PART2"), L"128");
                  u.type("IDC_COLOR_PART3", L"64");
                  EXPECT_EQ(u.text("IDC_COLOR_HEX"), L"#FF8040");
                  EXPECT_EQ(u.look("IDC_COLOR_PART3_SLIDER").selection, std::vector{64});
                  u.type("IDC_COLOR_HEX", L"4080c0");
                  EXPECT_EQ(u.text("IDC_COLOR_HEX"), L"4080c0")
                      << "an entry is not rewritten under the fingers";
                  EXPECT_EQ(u.text("IDC_COLOR_PART1"), L"64");
                  u.choose("IDC_COLOR_MODEL", L"HSL");
                  EXPECT_EQ(u.text("IDC_COLOR_PART1_LABEL"), L"색조(&H):");
                  EXPECT_EQ(u.text("IDC_COLOR_PART1"), L"210");
                  EXPECT_EQ(u.text("IDC_COLOR_HEX"), L"#4080C0") << "another model is no other colour";
                  u.choose("IDC_COLOR_PART3_SLIDER", 100);
                  EXPECT_EQ(u.text("IDC_COLOR_HEX"), L"#FFFFFF");
                  EXPECT_EQ(u.text("IDC_COLOR_PART1"), L"210") << "white keeps the hue on its way";
                  u.choose("IDC_COLOR_PART3_SLIDER", 25);
                  user.expectBox(L"채도에 입력한 \"101\"", "IDOK");
                  u.type("IDC_COLOR_PART2", L"101");
                  u.click("IDOK");
                  EXPECT_EQ(u.dialog().GetFocus()->name(), "IDC_COLOR_PART2");
                  user.expectBox(L"\"#12345\"", "IDOK");
                  u.type("IDC_COLOR_HEX", L"#12345");
                  u.click("IDOK");
                  u.type("IDC_COLOR_HEX", L"#123456");
                  EXPECT_EQ(u.text("IDC_COLOR_INFO"), L"트루컬러, RGB: 18, 52, 86");
                  u.click("IDOK");
              }),
              IDOK);
    EXPECT_EQ(color, OdCmColor::byRgb(0x12, 0x34, 0x56));
}

TEST_F(ColorDlg, ThePreviewShowsOldAndNew) {
    color = OdCmColor::byIndex(1);
    run([](auto& u) {
        u.click("IDC_COLOR_BYLAYER");
        const auto& list = static_cast<CDrawArea&>(*u.dialog().GetDlgItem("IDC_COLOR_PREVIEW")).displayList();
        ASSERT_EQ(list.items.size(), 2u);
        EXPECT_EQ(list.items[0].fill, 0xFF0000u);
        EXPECT_EQ(list.items[1].text, L"ByLayer");
        u.closeBox();
    });
}

TEST_F(ColorDlg, WithoutTheTrueColorPageOnlyIndexedColorsAreOffered) {
    rememberColor(host.settings(), OdCmColor::byIndex(40));
    rememberColor(host.settings(), OdCmColor::byRgb(1, 2, 3));
    color = OdCmColor::byRgb(250, 2, 3);
    EXPECT_EQ(run(
                  [](auto& u) {
                      EXPECT_EQ(u.look("IDC_COLOR_TABS").items->size(), 1u);
                      EXPECT_EQ(u.look("IDC_COLOR_RECENT").items, std::vector<std::wstring>{L"40"});
                      EXPECT_EQ(u.text("IDC_COLOR_NAME"), L"Red") << "the nearest one";
                      u.click("IDOK");
                  },
                  CColorDlg::kHideTrueColorTab),
              IDOK);
    EXPECT_EQ(color, OdCmColor::byIndex(1));
}
