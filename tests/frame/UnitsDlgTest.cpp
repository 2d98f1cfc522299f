#include "kxgui/frame/UnitsDlg.h"
#include "kxgui/frame/UnitsDirDlg.h"
#include "platform/drawing/OdDbDatabase.h"
#include "tests/support/HeadlessTest.h"

#include <deque>
#include <numbers>

using std::numbers::pi;

namespace {

// Points as a person would pick them; an empty queue gives up.
struct Picks : TavoPointInput {
    std::deque<OdGePoint3d> points;
    std::vector<std::wstring> prompts;
    bool dialogWasHidden = true;
    Tavo::ErrorStatus getPoint(const OdString& prompt, const OdGePoint3d*, OdGePoint3d& point) override {
        prompts.push_back(prompt.wstr());
        dialogWasHidden = dialogWasHidden && tv::ui::Toolkit::current()->topmost() == nullptr;
        if (points.empty()) return Tavo::eCancelled;
        point = points.front();
        points.pop_front();
        return Tavo::eOk;
    }
};

struct UnitsDlg : HeadlessTest {
    T_UNITS_D data{2, 4, 0, 0, false, 4, 0.0};
    OdDbDatabasePtr none;

    int run(std::function<void(tv::ui::WindowUser&)> does, double angle = 0.0) {
        CUnitsDlg dialog(none, angle, nullptr);
        dialog.SetData(data);
        user.expect<CUnitsDlg>(std::move(does));
        const int code = dialog.DoModal();
        dialog.GetData(data);
        return code;
    }
    // Runs the direction dialog alone and answers its angle.
    double direction(int type, bool clockwise, double angle, std::function<void(tv::ui::WindowUser&)> does) {
        CUnitsDirDlg dialog(type, 4, angle, clockwise ? 1 : 0, nullptr);
        user.expect<CUnitsDirDlg>(std::move(does));
        dialog.DoModal();
        return dialog.GetAngle();
    }
};

} // namespace

TEST_F(UnitsDlg, ShowsTheRecordAndHandsItBack) {
    data = {4, 3, 1, 4, true, 1, 0.0};
    const int code = run(
        [](auto& u) {
            EXPECT_EQ(u.title(), L"도면 단위");
            EXPECT_EQ(u.text("IDC_UNITS_LTYPE"), L"건축");
            EXPECT_EQ(u.text("IDC_UNITS_LPREC"), L"0'-0 1/8\"");
            EXPECT_EQ(u.text("IDC_UNITS_APREC"), L"0d00'00\"");
            EXPECT_EQ(u.text("IDC_UNITS_INSERT"), L"인치");
            EXPECT_EQ(u.look("IDC_UNITS_CLOCKWISE").checked, 1);
            EXPECT_EQ(u.text("IDC_UNITS_SAMPLE_LENGTH"), L"0'-1 1/2\",0'-2\",0'-0\"");
            EXPECT_EQ(u.text("IDC_UNITS_SAMPLE_ANGLE"), L"0'-3\"<45d0'0\",0'-0\"");
            u.choose("IDC_UNITS_LTYPE", L"십진");
            EXPECT_EQ(u.text("IDC_UNITS_LPREC"), L"0.000") << "the precision list follows its type";
            EXPECT_EQ(u.text("IDC_UNITS_SAMPLE_LENGTH"), L"1.500,2.004,0.000");
            u.choose("IDC_UNITS_INSERT", L"밀리미터");
            u.click("IDC_UNITS_CLOCKWISE");
            u.click("IDOK");
        },
        pi / 2.0);
    EXPECT_EQ(code, IDOK);
    EXPECT_EQ(data.lunits, 2);
    EXPECT_EQ(data.luprec, 3);
    EXPECT_EQ(data.aunits, 1);
    EXPECT_EQ(data.auprec, 4) << "an untouched precision stays exactly what it was";
    EXPECT_FALSE(data.clockwise);
    EXPECT_EQ(data.insunits, 4);
    EXPECT_DOUBLE_EQ(data.angbase, pi / 2.0);
}

TEST_F(UnitsDlg, CancelAndUnknownValuesChangeNothing) {
    data = {2, 17, 9, 0, false, 4711, 0.0};
    run([](auto& u) {
        u.choose("IDC_UNITS_LTYPE", 0);
        u.key(L"Escape");
    });
    EXPECT_EQ(data.lunits, 2);
    run([](auto& u) {
        EXPECT_EQ(u.text("IDC_UNITS_APREC"), L"");
        EXPECT_EQ(u.text("IDC_UNITS_SAMPLE_ANGLE"), L"");
        u.click("IDOK");
    });
    EXPECT_EQ(data.luprec, 17);
    EXPECT_EQ(data.aunits, 9);
    EXPECT_EQ(data.insunits, 4711);
}

TEST_F(UnitsDlg, ArchitecturalAndEngineeringAskForInches) {
    for (const wchar_t* type : {L"건축", L"공학"}) {
        data = {2, 4, 0, 0, false, 4, 0.0};
        user.expect<CUnitsDlg>([&](auto& u) {
            u.choose("IDC_UNITS_LTYPE", type);
            u.user().expectBox(L"건축이나 공학 단위를 사용하려면", "IDCANCEL");
            u.click("IDOK");
            EXPECT_TRUE(u.dialog().running());
            u.user().expectBox(L"현재 선택된 값으로 변경하시겠습니까?", "IDOK");
            u.click("IDOK");
        });
        CUnitsDlg dialog(none, 0.0, nullptr);
        dialog.SetData(data);
        EXPECT_EQ(dialog.DoModal(), IDOK);
        dialog.GetData(data);
        EXPECT_EQ(data.insunits, 4) << "nothing is forced to inches";
    }
    data = {5, 4, 0, 0, false, 4, 0.0};
    EXPECT_EQ(run([](auto& u) { u.click("IDOK"); }), IDOK) << "fractional never asks";
}

TEST_F(UnitsDlg, DirectionDialogSetsTheBaseAngle) {
    EXPECT_DOUBLE_EQ(direction(0, false, 0.0,
                               [](auto& u) {
                                   EXPECT_EQ(u.title(), L"뱡향 조정");
                                   EXPECT_EQ(u.look("IDC_UNITDIR_EAST").checked, 1);
                                   EXPECT_FALSE(u.look("IDC_UNITDIR_ANGLE").enabled);
                                   u.key(L"Alt+W");
                                   u.key(L"Enter");
                               }),
                     pi);
    EXPECT_NEAR(direction(0, true, 0.0,
                          [](auto& u) {
                              u.click("IDC_UNITDIR_OTHER");
                              u.type("IDC_UNITDIR_ANGLE", L"370");
                              u.click("IDOK");
                          }),
                350.0 * pi / 180.0, 1e-12);
    EXPECT_DOUBLE_EQ(direction(4, true, 0.0,
                               [](auto& u) {
                                   u.click("IDC_UNITDIR_OTHER");
                                   u.type("IDC_UNITDIR_ANGLE", L" s ");
                                   u.click("IDOK");
                                   EXPECT_EQ(u.look("IDC_UNITDIR_NORTH").checked, 1);
                               }),
                     pi / 2.0);
    const double odd = 0.123456789012345;
    EXPECT_EQ(direction(2, true, odd, [](auto& u) { u.click("IDOK"); }), odd)
        << "an untouched entry loses no digit";
    EXPECT_DOUBLE_EQ(direction(2, false, 0.5,
                               [](auto& u) {
                                   u.type("IDC_UNITDIR_ANGLE", L"100");
                                   u.click("IDOK");
                               }),
                     pi / 2.0);
}

TEST_F(UnitsDlg, AnEntryThatIsNoAngleIsNamedAndKept) {
    direction(0, false, 0.5, [](auto& u) {
        u.type("IDC_UNITDIR_ANGLE", L"북쪽");
        u.user().expectBox(L"\"북쪽\"", "IDOK");
        u.click("IDOK");
        EXPECT_TRUE(u.dialog().running());
        EXPECT_EQ(u.text("IDC_UNITDIR_ANGLE"), L"북쪽");
        u.key(L"Escape");
    });
}

TEST_F(UnitsDlg, PicksTheBaseAngleOnTheScreen) {
    Picks picks;
    host.setPointInput(&picks);
    const auto pick = [](auto& u) {
        u.user().template expect<CUnitsDirDlg>([](auto& d) {
            d.click("IDC_UNITDIR_OTHER");
            d.click("IDC_UNITDIR_PICK");
        });
        u.click("IDC_UNITS_DIRECTION");
        EXPECT_TRUE(u.dialog().IsWindowVisible()) << "the dialog came back";
    };
    picks.points = {{1, 1, 0}, {1, -4, 0}};
    run([&](auto& u) {
        pick(u);
        EXPECT_EQ(u.text("IDC_UNITS_SAMPLE_ANGLE"), L"3.0000<135,0.0000");
        u.click("IDOK");
    });
    EXPECT_DOUBLE_EQ(data.angbase, 3.0 * pi / 2.0);
    EXPECT_TRUE(picks.dialogWasHidden);
    EXPECT_EQ(picks.prompts.size(), 2u);

    picks.points = {{1, 1, 0}};
    run(
        [&](auto& u) {
            pick(u);
            picks.points = {{2, 2, 0}, {2, 2, 5}};
            u.user().template expect<CUnitsDirDlg>([](auto& d) { d.click("IDC_UNITDIR_PICK"); });
            u.user().expectBox(L"두 점이 같아", "IDOK");
            u.click("IDC_UNITS_DIRECTION");
            u.click("IDOK");
        },
        1.0);
    EXPECT_DOUBLE_EQ(data.angbase, 1.0) << "a pick given up leaves the angle";
}
