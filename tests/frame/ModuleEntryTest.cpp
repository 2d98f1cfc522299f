#include "kxgui/frame/ModuleEntry.h"
#include "kxgui/frame/MessageDlg.h"
#include "kxgui/frame/Messages.h"
#include "kxgui/frame/MultiAskDlg.h"
#include "kxgui/frame/Templates.h"
#include "kxgui/frame/UnitsDlg.h"
#include "platform/toolkit/ModuleChain.h"
#include "tests/support/HeadlessTest.h"

using tv::ui::ModuleChain;

struct ModuleEntry : HeadlessTest {};

TEST_F(ModuleEntry, RegistersAtLoadAndRefusesASecondTime) {
    _Init_ZEL_CAD_CTRLdll();
    ASSERT_EQ(kxGuiModuleReady(), 1);
    ASSERT_TRUE(ModuleChain::instance().find(IDD_UNITS));
    EXPECT_EQ(kxGuiModuleEntry(1), 0) << "a second copy of the library";
    EXPECT_EQ(kxGuiModuleReady(), 1) << "the first one stays";
}

TEST_F(ModuleEntry, WithoutRegistrationNoDialogOpens) {
    ASSERT_EQ(kxGuiModuleEntry(0), 1);
    constexpr tv::ui::DialogTemplate taken[] = {{IDD_UNITS, "IDD_OTHER", {10, 10}, false}};
    ASSERT_TRUE(ModuleChain::instance().add({"squatter", false, taken}));
    EXPECT_EQ(kxGuiModuleEntry(1), 0);
    EXPECT_EQ(kxGuiModuleReady(), 0);
    OdDbDatabasePtr none;
    EXPECT_EQ(CUnitsDlg(none, 0.0, nullptr).DoModal(), -1) << "though a template of that number is there";
    EXPECT_EQ(CMultiAskDlg(L"", L"", {L"a"}, {1}, nullptr).DoModal(), -1);
    EXPECT_EQ(CMessageDlg(nullptr).DoModal(), -1);
    EXPECT_EQ(MessageDlg(L"본문", nullptr, 0), static_cast<unsigned>(-1));
    ModuleChain::instance().remove("squatter");
    EXPECT_EQ(kxGuiModuleEntry(1), 1);
    EXPECT_EQ(kxGuiModuleReady(), 1);
}

TEST_F(ModuleEntry, NewModulesAreSearchedFirstSystemModulesLast) {
    auto& chain = ModuleChain::instance();
    constexpr tv::ui::DialogTemplate one[] = {{9100, "IDD_CHAIN_ONE", {10, 10}, false}};
    constexpr tv::ui::DialogTemplate two[] = {{9101, "IDD_CHAIN_TWO", {10, 10}, false}};
    ASSERT_TRUE(chain.add({"one", true, one}));
    ASSERT_TRUE(chain.add({"two", false, two}));
    EXPECT_EQ(chain.all().front().id, 9101u);
    EXPECT_NE(chain.all().front().id, 9100u);
    EXPECT_FALSE(chain.add({"three", false, two})) << "the template's number is taken";
    chain.remove("one");
    chain.remove("two");
    EXPECT_FALSE(chain.find("IDD_CHAIN_TWO"));
}
