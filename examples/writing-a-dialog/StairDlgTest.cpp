#include "StairDlg.h"

#include "platform/host/embedded/EmbeddedHost.h"
#include "platform/text/MessageManager.h"
#include "platform/toolkit/headless/HeadlessToolkit.h"
#include "platform/toolkit/headless/SimulatedUser.h"

#include <gtest/gtest.h>

namespace {

//! [desk]
struct Stair : testing::Test {
    tv::host::EmbeddedHost host;
    tv::ui::HeadlessToolkit toolkit;
    tv::ui::SimulatedUser user{toolkit, [](const std::string& fault) { ADD_FAILURE() << fault; }};
    static void SetUpTestSuite() { ASSERT_TRUE(registerStairTemplates()); }
};
//! [desk]

//! [rule test]
TEST(StairRule, NeverSteeperThanWanted) {
    EXPECT_EQ(riserCount({2800.0, 175.0}), 16);
    EXPECT_EQ(riserCount({2800.1, 175.0}), 17);
    EXPECT_EQ(riserCount({0.3, 0.1}), 3) << "a remainder of the arithmetic makes no step";
    for (const T_STAIR_D none : {T_STAIR_D{0.0, 175.0}, {2800.0, -1.0}, {1e300, 1e-300}})
        EXPECT_EQ(riserCount(none), 0);
}
//! [rule test]

//! [dialog test]
TEST_F(Stair, RefusesNonsenseAndHandsBackWhatWasEntered) {
    user.expect<CStairDlg>([](auto& u) {
        EXPECT_EQ(u.text("IDC_STAIR_RESULT"), L"16단, 각 175.0 mm");
        u.type("IDC_STAIR_RISER", L"high");
        EXPECT_EQ(u.text("IDC_STAIR_RESULT"), L"");
        u.click("IDOK"); // brings the box expected below
        u.type("IDC_STAIR_RISER", L"180");
        EXPECT_EQ(u.text("IDC_STAIR_RESULT"), L"16단, 각 175.0 mm");
        u.type("IDC_STAIR_HEIGHT", L"3000");
        EXPECT_EQ(u.text("IDC_STAIR_RESULT"), L"17단, 각 176.5 mm");
        u.key(L"Enter");
    });
    user.expectBox(L"0보다 큰 수로", "IDOK");

    CStairDlg dialog(nullptr);
    EXPECT_EQ(dialog.DoModal(), IDOK);
    EXPECT_DOUBLE_EQ(dialog.GetData().height, 3000.0);
    EXPECT_DOUBLE_EQ(dialog.GetData().riser, 180.0);
}
//! [dialog test]

TEST_F(Stair, CancelKeepsTheData) {
    user.expect<CStairDlg>([](auto& u) {
        u.type("IDC_STAIR_HEIGHT", L"1");
        u.key(L"Escape");
    });
    CStairDlg dialog(nullptr);
    EXPECT_EQ(dialog.DoModal(), IDCANCEL);
    EXPECT_DOUBLE_EQ(dialog.GetData().height, 2800.0);
}

TEST_F(Stair, SpeaksTheLanguageOfItsMessageFile) {
    VORD_MSGFunction::AddFileBase(KX_SOURCE_DIR "/examples/writing-a-dialog/messages/stair");
    VORD_MSGFunction::SetCurrentLanguageId(1033);
    EXPECT_TRUE(VORD_MSGFunction::LoadFile());
    user.expect<CStairDlg>([](auto& u) {
        EXPECT_EQ(u.title(), L"Stair");
        EXPECT_EQ(u.text("IDC_STAIR_RESULT"), L"16 steps of 175.0 mm");
        u.key(L"Alt+R");
        EXPECT_EQ(u.dialog().GetFocus()->name(), "IDC_STAIR_RISER")
            << "the label's mnemonic leads to the field";
        u.click("IDCANCEL");
    });
    CStairDlg(nullptr).DoModal();
    VORD_MSGFunction::Reset();
}

} // namespace
