#include "kxgui/frame/SizingBand.h"
#include "kxgui/frame/VORDBaseChildDlg.h"
#include "kxgui/frame/VORDBaseDlg.h"
#include "platform/text/MessageManager.h"
#include "platform/toolkit/Button.h"
#include "platform/toolkit/Edit.h"
#include "platform/toolkit/ModuleChain.h"
#include "platform/toolkit/Static.h"
#include "tests/support/HeadlessTest.h"

#include <filesystem>
#include <fstream>

namespace {

constexpr unsigned fixedTemplate = 9001, sizingTemplate = 9002, pageTemplate = 9003;
constexpr tv::ui::DialogTemplate templates[] = {{fixedTemplate, "IDD_TEST_FIXED", {200, 100}, false},
                                                {sizingTemplate, "IDD_TEST_SIZING", {200, 100}, true},
                                                {pageTemplate, "IDD_TEST_PAGE", {100, 50}, false}};

struct TestPage : VORDBaseChildDlg {
    explicit TestPage(CWnd& parent) : VORDBaseChildDlg(pageTemplate, parent, "IDC_PAGE") {
        text.SetWindowText(L"쪽의 텍스트");
    }
    CStatic text{*this, "IDC_PAGE_TEXT"};
};

struct TestDlg : VORDRunDlg {
    explicit TestDlg(unsigned id = fixedTemplate) : VORDRunDlg(id, nullptr) { edit.LabelledBy(label); }
    void SetText() override { log += "T"; }
    void InitCtrl() override { log += "I"; }
    void Data2Dlg() override { log += "D"; }
    int Dlg2Data() override {
        log += "G";
        return acceptable;
    }
    using VORDBaseDlg::tooltip;

    std::string log;
    int acceptable = 1;
    CStatic label{*this, "IDC_LABEL"};
    CEdit edit{*this, "IDC_EDIT"};
    TestPage page{*this};
    CButton ok{*this, "IDOK"};
    CButton cancel{*this, "IDCANCEL"};
};

struct BaseDialog : HeadlessTest {
    BaseDialog() {
        tv::ui::ModuleChain::instance().add({"test", false, templates});
        zel::frx::setPlacementStore(host.settings());
    }
    ~BaseDialog() override {
        zel::frx::setPlacementStore(nullptr);
        tv::ui::ModuleChain::instance().remove("test");
    }
};

} // namespace

TEST_F(BaseDialog, RunsItsStepsInOrderAndStaysOpenUntilAcceptable) {
    std::vector<int> depths;
    const auto subscription = host.modalEvents()->onDepthChanged([&](int depth) { depths.push_back(depth); });
    TestDlg dialog;
    dialog.acceptable = 0;
    user.expect<TestDlg>([&](auto& u) {
        EXPECT_EQ(dialog.log, "TID");
        u.click("IDOK");
        EXPECT_TRUE(dialog.running());
        dialog.acceptable = 1;
        u.key(L"Enter");
    });
    EXPECT_EQ(dialog.DoModal(), IDOK);
    EXPECT_EQ(dialog.log, "TIDGG");
    EXPECT_EQ(depths, (std::vector<int>{1, 0}));
}

TEST_F(BaseDialog, EscapeCloseBoxAndCancelEndItWithoutGathering) {
    for (const char* way : {"key", "box", "button"}) {
        TestDlg dialog;
        user.expect<TestDlg>([&](auto& u) {
            if (way == std::string("key"))
                u.key(L"Escape");
            else if (way == std::string("box"))
                u.closeBox();
            else
                u.click("IDCANCEL");
        });
        EXPECT_EQ(dialog.DoModal(), IDCANCEL);
        EXPECT_EQ(dialog.log, "TID") << way;
    }
}

TEST_F(BaseDialog, CannotBeMadeSmallerThanItsTemplate) {
    TestDlg dialog(sizingTemplate);
    user.expect<TestDlg>([&](auto& u) {
        const CSize opened = dialog.GetWindowRect().Size();
        EXPECT_EQ(opened, tv::ui::dialogUnitsToPixels({200, 100}));
        EXPECT_TRUE(dialog.userResize({50, 40}));
        EXPECT_EQ(dialog.GetWindowRect().Size(), opened);
        EXPECT_TRUE(dialog.userResize({700, 500}));
        EXPECT_EQ(dialog.GetWindowRect().Size(), (CSize{700, 500}));
        u.key(L"Escape");
    });
    dialog.DoModal();
    TestDlg fixed;
    user.expect<TestDlg>([&](auto& u) {
        EXPECT_FALSE(fixed.userResize({700, 500}));
        u.key(L"Escape");
    });
    fixed.DoModal();
}

TEST_F(BaseDialog, OpensOnceAtTheRememberedSizeAndPlace) {
    {
        TestDlg dialog(sizingTemplate);
        user.expect<TestDlg>([&](auto& u) {
            EXPECT_TRUE(dialog.userResize({600, 400}));
            EXPECT_TRUE(dialog.userMove({5000, 30})); // off the screen at the right
            u.key(L"Escape");
        });
        dialog.DoModal();
    }
    TestDlg dialog(sizingTemplate);
    user.expect<TestDlg>([&](auto& u) {
        EXPECT_EQ(dialog.GetWindowRect().Size(), (CSize{600, 400}));
        EXPECT_EQ(dialog.GetWindowRect().top, 30);
        EXPECT_LT(dialog.GetWindowRect().left, toolkit.workArea().right) << "brought back onto the screen";
        EXPECT_TRUE(dialog.userResize({650, 420}));
        dialog.OnSize(0, 650, 420);
        EXPECT_EQ(dialog.GetWindowRect().Size(), (CSize{650, 420})) << "applied once only";
        u.key(L"Escape");
    });
    dialog.DoModal();
}

TEST_F(BaseDialog, SizingBandIsThreePixelsWideAndCornersComeFirst) {
    using kx::frame::sizingBandAt;
    const CRect outer{100, 100, 300, 200};
    EXPECT_EQ(sizingBandAt(outer, {102, 102}), HitTest::topLeft);
    EXPECT_EQ(sizingBandAt(outer, {101, 199}), HitTest::bottomLeft);
    EXPECT_EQ(sizingBandAt(outer, {299, 101}), HitTest::topRight);
    EXPECT_EQ(sizingBandAt(outer, {298, 198}), HitTest::bottomRight);
    EXPECT_EQ(sizingBandAt(outer, {102, 150}), HitTest::left);
    EXPECT_EQ(sizingBandAt(outer, {103, 150}), HitTest::client);
    EXPECT_EQ(sizingBandAt(outer, {298, 150}), HitTest::right);
    EXPECT_EQ(sizingBandAt(outer, {297, 150}), HitTest::client);
    EXPECT_EQ(sizingBandAt(outer, {200, 199}), HitTest::bottom);

    for (const unsigned id : {fixedTemplate, sizingTemplate}) {
        TestDlg dialog(id);
        user.expect<TestDlg>([&](auto& u) {
            const CPoint corner = dialog.GetWindowRect().TopLeft();
            EXPECT_EQ(dialog.OnNcHitTest(corner), id == sizingTemplate ? HitTest::topLeft : HitTest::caption);
            u.key(L"Escape");
        });
        dialog.DoModal();
    }
}

TEST_F(BaseDialog, F1OpensTheCommandReference) {
    struct Help : TavoHelp {
        CWnd* window = nullptr;
        OdString topic = L"unset";
        void search(CWnd* w, const OdString& t) override {
            window = w;
            topic = t;
        }
    } help;
    host.setHelp(&help);
    TestDlg dialog;
    user.expect<TestDlg>([&](auto& u) {
        u.key(L"F1");
        u.key(L"Escape");
    });
    dialog.DoModal();
    EXPECT_EQ(help.window, &dialog);
    EXPECT_TRUE(help.topic.isEmpty());
}

TEST_F(BaseDialog, ToolTipsNeedTheirWindow) {
    TestDlg dialog;
    EXPECT_EQ(dialog.AddToolTip(CRect{0, 0, 10, 10}, L"힌트"), 0);
    EXPECT_EQ(dialog.AddToolTip("IDC_EDIT", 0, L"힌트"), 0);
    user.expect<TestDlg>([&](auto& u) {
        EXPECT_EQ(dialog.AddToolTip(CRect{500, 500, 510, 510}, L"구역"), 1);
        EXPECT_EQ(dialog.AddToolTip("IDC_EDIT", L"제목", L"값을 입력합니다."), 1);
        EXPECT_EQ(dialog.AddToolTip("IDC_NONE", 0, L"힌트"), 0);
        EXPECT_EQ(dialog.edit.toolTip(), L"");
        dialog.EnableToolTips(1);
        EXPECT_EQ(dialog.edit.toolTip(), L"제목\n값을 입력합니다.");
        EXPECT_EQ(dialog.tooltip.title(), L"타보캐드");
        ASSERT_TRUE(dialog.tooltip.toolAt({505, 505}));
        EXPECT_EQ(dialog.tooltip.toolAt({505, 505})->text, L"구역");
        EXPECT_EQ(dialog.toolTipAt({505, 505}), L"구역");
        EXPECT_TRUE(dialog.tooltip.shown());
        u.key(L"F2");
        EXPECT_FALSE(dialog.tooltip.shown()) << "a key takes the hint away";
        dialog.EnableToolTips(0);
        EXPECT_EQ(dialog.edit.toolTip(), L"");
        u.key(L"Escape");
    });
    dialog.DoModal();
}

TEST_F(BaseDialog, TakesControlTextsFromTheFilesOfItsTemplateAndItsPages) {
    const auto file = std::filesystem::temp_directory_path() / "kx_base_dialog_test_en.ini";
    std::ofstream(file)
        << "[IDD_TEST_FIXED]\nCAPTION = Test\nIDOK = Fine\n[IDD_TEST_PAGE]\nIDC_PAGE_TEXT = Text of the page\n";
    VORD_MSGFunction::AddFile(file);
    ASSERT_TRUE(VORD_MSGFunction::LoadFile());
    TestDlg dialog;
    user.expect<TestDlg>([&](auto& u) {
        EXPECT_EQ(u.title(), L"Test");
        EXPECT_EQ(u.text("IDOK"), L"Fine");
        EXPECT_EQ(u.text("IDC_PAGE_TEXT"), L"Text of the page");
        u.key(L"Escape");
    });
    dialog.DoModal();
    VORD_MSGFunction::Reset();
    std::filesystem::remove(file);
}

TEST_F(BaseDialog, FadesInOnlyWhenSwitchedOn) {
    zel::frx::MFadeEffectCtrl::EnableFadeEffects(true);
    TestDlg dialog;
    user.expect<TestDlg>([&](auto& u) {
        EXPECT_EQ(dialog.opacity(), 0.0);
        toolkit.advance(zel::frx::MFadeEffectCtrl::fadeTime / 2);
        EXPECT_GT(dialog.opacity(), 0.0);
        EXPECT_LT(dialog.opacity(), 1.0);
        toolkit.advance(zel::frx::MFadeEffectCtrl::fadeTime);
        EXPECT_EQ(dialog.opacity(), 1.0);
        u.key(L"Escape");
    });
    dialog.DoModal();
    zel::frx::MFadeEffectCtrl::EnableFadeEffects(false);
}
