// Windows that stay while the program goes on, and bars within its main window: the same for every face.
#include "platform/toolkit/ControlBar.h"
#include "tests/conformance/Faces.h"
#include "tests/conformance/ProbeDlg.h"

using namespace std::chrono_literals;
using tv::ui::WindowUser;

namespace {

struct ProbeBar : CControlBar {
    ProbeBar() : CControlBar(IDD_PROBE_PAGE1) {
        inside.LabelledBy(label);
        label.SetWindowText(L"&Inside");
        inside.onKillFocus = [this] { ++left; };
    }
    int left = 0;
    CStatic label{*this, "IDC_LABEL"};
    CEdit inside{*this, "IDC_INSIDE1"};
};

} // namespace

template <class Face>
class Modeless : public testing::Test {
  protected:
    ProbeModule module;
    Face face;
    tv::ui::SimulatedUser user{face.toolkit, [](const std::string& m) { ADD_FAILURE() << m; }, face.hand()};
};
TYPED_TEST_SUITE(Modeless, Faces);

TYPED_TEST(Modeless, IsUsedWhileTheProgramGoesOnAndClosesByEscape) {
    ProbeDlg dlg;
    const auto& windows = this->face.toolkit.modelessWindows();
    for (int turn = 0; turn < 2; ++turn) {
        ASSERT_TRUE(dlg.Create());
        EXPECT_FALSE(dlg.Create()) << "it is there already";
        EXPECT_EQ(windows, std::vector<CDialog*>{&dlg});
        EXPECT_EQ(this->face.toolkit.topmost(), nullptr);
        EXPECT_EQ(this->face.toolkit.active(), &dlg);
        dlg.fired.clear();
        WindowUser u(this->user, dlg);
        u.type("IDC_EDIT", turn == 0 ? L"x" : L"y");
        u.click("IDC_CHECK");
        EXPECT_EQ(dlg.fired["edit"], 1);
        EXPECT_EQ(dlg.fired["check"], 1);
        EXPECT_TRUE(u.look("IDC_CHECK").focused);
        dlg.SetTimer(7, 1);
        this->face.pass(20ms);
        EXPECT_FALSE(dlg.ticks.empty());
        this->face.expectShown(dlg);
        if (turn == 0)
            u.key(L"Escape");
        else
            u.closeBox();
        EXPECT_FALSE(dlg.running());
        u.refused("IDC_CHECK", {});
        this->face.pass(20ms);
        EXPECT_FALSE(dlg.created());
        EXPECT_TRUE(windows.empty());
        EXPECT_EQ(this->face.toolkit.active(), nullptr);
        const auto ticks = dlg.ticks.size();
        this->face.pass(20ms);
        EXPECT_EQ(dlg.ticks.size(), ticks);
    }
}

TYPED_TEST(Modeless, ModalWindowsKeepAPersonFromItButNotFromTheirOwn) {
    ProbeDlg beside, modal;
    ASSERT_TRUE(beside.Create());
    ProbeDlg own(&modal);
    this->user.template expect<ProbeDlg>([&](WindowUser& u) {
        WindowUser(this->user, beside).refused("IDC_CHECK", {});
        EXPECT_EQ(this->face.toolkit.active(), &modal);
        ASSERT_TRUE(own.Create());
        WindowUser(this->user, own).click("IDC_CHECK");
        EXPECT_EQ(own.check.GetCheck(), 1);
        u.click("IDC_CHECK");
        modal.EndDialog(IDOK);
    });
    EXPECT_EQ(modal.DoModal(), IDOK);
    EXPECT_FALSE(own.created()) << "it goes with the window it belongs to";
    EXPECT_EQ(beside.check.GetCheck(), 0);
    WindowUser(this->user, beside).click("IDC_CHECK");
    EXPECT_EQ(beside.check.GetCheck(), 1);
    beside.DestroyWindow();
    EXPECT_TRUE(this->face.toolkit.modelessWindows().empty());
}

TYPED_TEST(Modeless, MayGoInAHandlerOfItsOwn) {
    auto dlg = std::make_unique<ProbeDlg>();
    ASSERT_TRUE(dlg->Create());
    dlg->more.onClick = [&] { dlg->DestroyWindow(); };
    WindowUser(this->user, *dlg).click("IDC_MORE");
    EXPECT_FALSE(dlg->created());
    ASSERT_TRUE(dlg->Create());
    dlg->EndDialog(IDOK);
    dlg.reset(); // before what EndDialog asked for
    this->face.pass(20ms);
    EXPECT_TRUE(this->face.toolkit.modelessWindows().empty());
}

TYPED_TEST(Modeless, BarGetsTheKeyboardOnRequestAndGivesItBack) {
    ProbeBar bar;
    ASSERT_TRUE(bar.Create());
    const auto holder = this->face.hold(bar);
    EXPECT_EQ(this->face.toolkit.active(), nullptr) << "a bar that appears takes nothing away";
    EXPECT_EQ(bar.GetFocus(), nullptr);

    bar.TakeKeyboard();
    EXPECT_EQ(this->face.toolkit.active(), &bar);
    EXPECT_EQ(bar.GetFocus(), &bar.inside);
    EXPECT_TRUE(this->face.homeHasKeyboard(holder) == false);
    WindowUser u(this->user, bar);
    u.type("IDC_INSIDE1", L"2.5");
    u.key(L"Escape");
    EXPECT_EQ(bar.left, 1);
    EXPECT_EQ(this->face.toolkit.active(), nullptr);
    EXPECT_TRUE(this->face.homeHasKeyboard(holder));
    EXPECT_TRUE(bar.running()) << "Escape closes no bar";
    EXPECT_TRUE(bar.hasMnemonic(L'I'));

    bar.ShowWindow(false);
    u.refused("IDC_INSIDE1", {});
    bar.TakeKeyboard();
    EXPECT_EQ(this->face.toolkit.active(), nullptr);
    bar.ShowWindow();
    bar.TakeKeyboard();
    EXPECT_EQ(this->face.toolkit.active(), &bar);
    bar.DestroyWindow();
    EXPECT_TRUE(this->face.homeHasKeyboard(holder));
}
