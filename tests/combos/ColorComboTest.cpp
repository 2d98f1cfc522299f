#include "kxgui/controls/ColorCombos.h"
#include "kxgui/frame/ColorDlg.h"
#include "platform/toolkit/Pictures.h"
#include "tests/combos/ComboTest.h"
#include "tests/text/TempFolder.h"

#include <gmock/gmock.h>

using testing::ElementsAre;

namespace {

struct ColorCombo : ComboTest {
    static std::vector<std::uintptr_t> data(const CComboBox& combo) {
        std::vector<std::uintptr_t> out;
        for (int i = 0; i < combo.GetCount(); ++i)
            out.push_back(combo.GetItemData(i));
        return out;
    }
};

// Has room for some entries only.
struct SmallCombo : CCobxColor {
    using CCobxColor::CCobxColor;
    int AddEntry(std::wstring_view text, std::uintptr_t item, const tv::ui::Picture& picture) override {
        return GetCount() == 5 ? -1 : CCobxColor::AddEntry(text, item, picture);
    }
};

} // namespace

TEST_F(ColorCombo, EntriesByOptionsAndType) {
    run<CCobxColor>([&](CCobxColor& combo, auto&) {
        combo.SetUseCurrent(true);
        combo.SetNoneAndBackground(true);
        refill(combo);
        EXPECT_THAT(data(combo),
                    ElementsAre(257, 258, 259, 0xC0000000, 0xC1000000, 0xC3000001, 0xC3000002, 0xC3000003,
                                0xC3000004, 0xC3000005, 0xC3000006, 0xC3000007, 0xC2008080));
        EXPECT_EQ(combo.GetLBText(0), L"현재 사용");
        EXPECT_EQ(combo.GetLBText(12), L"Select Color...");
    });
    run<CCobxColor>([&](CCobxColor& combo, auto&) {
        combo.SetType(VORDCobxBase::typeNoLayerBlock);
        refill(combo);
        EXPECT_THAT(data(combo), ElementsAre(0xC3000001, 0xC3000002, 0xC3000003, 0xC3000004, 0xC3000005,
                                             0xC3000006, 0xC3000007, 260, 0xC2008080));
        combo.SelectColor(OdCmColor::byRgb(0, 0, 0));
        EXPECT_EQ(combo.GetSelectedItem(), 260U);
        EXPECT_EQ(combo.GetColor(), OdCmColor::byRgb(0, 0, 0));
    });
    run<SmallCombo>([&](SmallCombo& combo, auto&) {
        refill(combo);
        EXPECT_EQ(combo.GetCount(), 5) << "as far as it got";
        combo.SelectColor(OdCmColor::byIndex(200));
        EXPECT_EQ(combo.GetCount(), 5);
    });
}

TEST_F(ColorCombo, FollowsTheCurrentColourAndLayer) {
    const OdDbObjectId layer = addLayer(L"Wall");
    layer.open<OdDbLayerTableRecord>(OdDb::kForWrite)->setColor(OdCmColor::byIndex(3));
    host.sysvarManager()->setText(L"CLAYER", L"Wall", database());
    host.sysvarManager()->setText(L"CECOLOR", L"200", database());
    run<CCobxColor>([&](CCobxColor& combo, auto& u) {
        refill(combo);
        EXPECT_EQ(combo.items().at(0).picture, tv::ui::colorPicture(0x00FF00)) << "by layer";
        const int own = combo.GetCount() - 2;
        EXPECT_EQ(combo.GetCurSel(), own) << "a colour of its own stands before the last entry";
        EXPECT_EQ(combo.GetItemData(own), 0xC30000C8U);
        combo.SelectColor(OdCmColor::byRgb(0, 128, 128));
        EXPECT_EQ(combo.GetItemData(own), combo.GetItemData(own + 1))
            << "of all colours this one has the mark's data";
        EXPECT_EQ(combo.GetColor(), OdCmColor::byRgb(0, 128, 128));
        EXPECT_EQ(combo.GetCurSel(), own);
        u.choose("IDC_COMBO", L"Red");
        EXPECT_EQ(variable(L"CECOLOR"), L"1");
        EXPECT_EQ(database()->undoName(), L"색상 변경");

        combo.SelectVaries();
        EXPECT_EQ(combo.GetWindowText(), L"*다양함*");
        host.sysvarManager()->setText(L"COLORINDEX", L"30", nullptr);
        user.expect<CColorDlg>([](tv::ui::WindowUser& dialog) { dialog.click("IDOK"); });
        u.choose("IDC_COMBO", combo.GetCount() - 1);
        EXPECT_EQ(variable(L"CECOLOR"), L"30") << "what the dialog opened on";
        EXPECT_EQ(combo.GetCurSel(), combo.GetCount() - 2);
        EXPECT_EQ(combo.GetWindowText(), L"30");

        user.expect<CColorDlg>([](tv::ui::WindowUser& dialog) { dialog.click("IDCANCEL"); });
        u.choose("IDC_COMBO", combo.GetCount() - 1);
        EXPECT_EQ(combo.GetWindowText(), L"30") << "given up";
    });
}

TEST_F(ColorCombo, EntriesFollowTheLanguage) {
    const TempFolder folder;
    folder.write("texts_en.ini", "IDC_TBMNU_509 = Scarlet\n");
    VORD_MSGFunction::AddFileBase(folder.path / "texts");
    run<CCobxColor>([&](CCobxColor& combo, auto& u) {
        refill(combo);
        u.choose("IDC_COMBO", L"Red");
        VORD_MSGFunction::SetCurrentLanguageId(1033);
        EXPECT_TRUE(VORD_MSGFunction::LoadFile());
        refill(combo);
        EXPECT_EQ(combo.GetWindowText(), L"Scarlet");
    });
    VORD_MSGFunction::Reset();
}
