#include "kxgui/controls/VORDCobxBase.h"
#include "kxgui/controls/UnitCombos.h"
#include "platform/drawing/OdDbDatabase.h"
#include "platform/drawing/Value.h"
#include "platform/toolkit/ModuleChain.h"
#include "tests/support/HeadlessTest.h"

#include <stdexcept>

using namespace std::chrono_literals;

namespace {

constexpr unsigned comboTemplate = 9201;
constexpr tv::ui::DialogTemplate templates[] = {{comboTemplate, "IDD_TEST_COMBO", {100, 50}, false}};

struct TestCombo : VORDCobxBase {
    using VORDCobxBase::curSel;
    using VORDCobxBase::VORDCobxBase;
    int refills = 0;
    bool broken = false;
    bool hadDatabase = false;
    void RefillList() override {
        ++refills;
        hadDatabase = prepareUpdateList() != nullptr;
        if (!hadDatabase) return;
        AddString(L"도면층");
        AddString(L"도면층 2");
        if (broken) throw std::runtime_error("no more space");
        AddString(L"ABC");
        AddString(L"abc");
    }
};

struct ComboDlg : CDialog {
    ComboDlg() : CDialog(comboTemplate, nullptr) {}
    TestCombo combo{*this, "IDC_COMBO"};
};

struct CobxBase : HeadlessTest {
    CobxBase() {
        tv::ui::ModuleChain::instance().add({"test", false, templates});
        host.documentManager()->newDocument();
    }
    ~CobxBase() override { tv::ui::ModuleChain::instance().remove("test"); }
    void run(std::function<void(TestCombo&)> does) {
        ComboDlg dialog;
        user.expect<ComboDlg>([&](auto& u) {
            does(dialog.combo);
            u.closeBox();
        });
        dialog.DoModal();
    }
    void setActive(int value) { host.sysvarManager()->setSession(L"CMDACTIVE", value); }
};

} // namespace

TEST_F(CobxBase, ManyRequestsCostOneRefill) {
    run([&](TestCombo& combo) {
        for (int i = 0; i < 3; ++i) {
            combo.ScheduleUpdate();
            toolkit.advance(20ms);
        }
        EXPECT_EQ(combo.refills, 0);
        toolkit.advance(50ms);
        EXPECT_EQ(combo.refills, 1);
        EXPECT_EQ(combo.GetCount(), 4);
        toolkit.advance(1000ms);
        EXPECT_EQ(combo.refills, 1);
        combo.PostUpdate();
        EXPECT_EQ(combo.refills, 1) << "never inside the event that asked for it";
        toolkit.runDue();
        EXPECT_EQ(combo.refills, 2);
    });
}

TEST_F(CobxBase, WaitsLongerWhileInputIsAutomated) {
    run([&](TestCombo& combo) {
        for (const auto& [active, delay] : {std::pair{1, 50ms}, {4, 300ms}, {32, 300ms}, {37, 300ms}}) {
            setActive(active);
            const int before = combo.refills;
            combo.ScheduleUpdate();
            toolkit.advance(delay - 1ms);
            EXPECT_EQ(combo.refills, before) << active;
            toolkit.advance(1ms);
            EXPECT_EQ(combo.refills, before + 1) << active;
        }
    });
}

TEST_F(CobxBase, SelectsBeforeItRefillsAndByTheWholeName) {
    run([&](TestCombo& combo) {
        combo.ScheduleUpdate();
        combo.ScheduleSelect(nullptr, 1);
        toolkit.advance(50ms);
        EXPECT_EQ(combo.CComboBox::GetCurSel(), -1) << "the selection found an empty list";
        combo.ScheduleSelect("도면층 2", 0);
        combo.ScheduleEnabled(0);
        EXPECT_TRUE(combo.IsScheduleEnabledSet());
        toolkit.advance(50ms);
        EXPECT_EQ(combo.GetCurSel(), 1);
        EXPECT_FALSE(combo.IsWindowEnabled());
        EXPECT_FALSE(combo.IsScheduleEnabledSet());
        combo.ScheduleSelect("도면", 0);
        toolkit.advance(50ms);
        EXPECT_EQ(combo.GetCurSel(), 1) << "no entry of that name";
    });
}

TEST_F(CobxBase, SelectStringWantsTheWholeText) {
    run([&](TestCombo& combo) {
        combo.ScheduleUpdate();
        toolkit.advance(50ms);
        EXPECT_EQ(combo.SelectString(-1, L"abc", false), 3);
        EXPECT_EQ(combo.SelectString(-1, L"abc", true), 2);
        EXPECT_EQ(combo.SelectString(-1, L"도면", false), -1);
        EXPECT_EQ(combo.SelectString(-1, L"없음", false), -1);
        EXPECT_EQ(combo.SelectString(2, L"도면층", false), -1) << "wrapped around";
        EXPECT_EQ(combo.SelectString(1, L"도면층 2", false), 1) << "the entry it started after comes last";
        combo.SetCurSel(2);
        EXPECT_EQ(combo.GetCurSel(), 2) << "a failed search leaves the selection";

        const auto before = toolkit.changeCount();
        combo.SetCurSel(2);
        EXPECT_EQ(toolkit.changeCount(), before) << "nothing is sent for what is selected already";
        combo.CComboBox::SetCurSel(0);
        combo.SetCurSel(0);
        EXPECT_EQ(combo.curSel, 0) << "but recorded";
    });
}

TEST_F(CobxBase, AFailedRefillAndAMissingDrawingLeaveTheListShort) {
    run([&](TestCombo& combo) {
        combo.broken = true;
        combo.ScheduleUpdate();
        toolkit.advance(50ms);
        EXPECT_EQ(combo.GetCount(), 2);
        host.documentManager()->closeDocument(host.documentManager()->currentDocument());
        combo.ScheduleUpdate();
        toolkit.advance(50ms);
        EXPECT_EQ(combo.GetCount(), 0);
        EXPECT_FALSE(combo.hadDatabase);
    });
    // Destroying the control with a timer running drops what is pending.
    {
        ComboDlg dialog;
        dialog.combo.ScheduleEnabled(0);
        EXPECT_FALSE(dialog.combo.IsScheduleEnabledSet()) << "no window yet";
        dialog.combo.ScheduleUpdate();
    }
    toolkit.advance(1000ms);
}
